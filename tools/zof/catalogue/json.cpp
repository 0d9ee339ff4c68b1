#include "json.h"

#include <algorithm>

#include "control/zof_ctrl_create.h"
#include "hmi/zof_hmi_action.h"
#include "json_in.h"
#include "words.h"

void json_text(cJSON *object, const char *key, const char *text) {
    if (text) {
        cJSON_AddStringToObject(object, key, text);
    }
}

void json_texts(cJSON *object, const char *key, const std::vector<std::string> &texts) {
    cJSON *list = cJSON_AddArrayToObject(object, key);
    for (const std::string &text : texts) {
        cJSON_AddItemToArray(list, cJSON_CreateString(text.c_str()));
    }
}

void json_parsed(cJSON *object, const char *key, const char *json) {
    if (json) {
        cJSON_AddItemToObject(object, key, cJSON_Parse(json));
    }
}

std::string json_print(cJSON *json) {
    char *text = cJSON_Print(json);
    std::string out = text ? text : "";
    cJSON_free(text);
    cJSON_Delete(json);
    for (char &c : out) {
        c = c == '\t' ? ' ' : c; // cJSON indents by a tab
    }
    return out + "\n";
}

static void range_add(cJSON *json, const zof_cat_key_t *key) {
    if (key->low == 0 && key->high == 0) {
        return;
    }
    cJSON_AddNumberToObject(json, "low", (double)key->low);
    if (key->high != ZOF_CAT_ANY) {
        cJSON_AddNumberToObject(json, "high", (double)key->high);
    }
}

static cJSON *key_json(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    cJSON *json = cJSON_CreateObject();
    const char *unit = key->unit ? key->unit : zof_cat_kinds[key->kind].unit;
    json_text(json, "key", key->key);
    json_text(json, "label", key->label);
    json_text(json, "kind", zof_cat_kinds[key->kind].name);
    json_text(json, "group", zof_cat_groups[key->group]);
    json_text(json, "unit", *unit ? unit : nullptr);
    range_add(json, key);
    const std::vector<cat_name_t> names = cat_names(record, key);
    cJSON *list = names.empty() ? nullptr : cJSON_AddArrayToObject(json, "names");
    for (const cat_name_t &name : names) {
        cJSON *item = cJSON_CreateObject();
        json_text(item, "name", name.name.c_str());
        cJSON_AddNumberToObject(item, "value", (double)name.value);
        cJSON_AddItemToArray(list, item);
    }
    json_parsed(json, "absent", key->absent);
    json_parsed(json, "start", key->start);
    json_text(json, "help", key->help);
    json_text(json, "when", key->when);
    json_text(json, "row", key->row);
    json_text(json, "call", key->call);
    json_text(json, "record", key->record ? key->record->name : nullptr);
    cJSON_AddBoolToObject(json, "needed", (key->flags & ZOF_CAT_NEEDED) != 0);
    cJSON_AddBoolToObject(json, "ignored", (key->flags & (ZOF_CAT_IGNORED | ZOF_CAT_COUNTED)) != 0);
    return json;
}

static cJSON *record_json(const zof_cat_record_t *record) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "name", record->name);
    json_text(json, "help", record->help);
    cJSON *keys = cJSON_AddArrayToObject(json, "keys");
    for (u32 i = 0; i < record->count; i++) {
        cJSON_AddItemToArray(keys, key_json(record, &record->keys[i]));
    }
    return json;
}

// What `set` can change in controls of a type.
static std::vector<std::string> type_fields(u32 type) {
    std::vector<std::string> out;
    for (const char *field : {"txt", "value"}) {
        if (zof_action_can_set(type, *field == 't')) {
            out.emplace_back(field);
        }
    }
    return out;
}

static cJSON *type_json(const zof_cat_type_t *type) {
    cJSON *json = cJSON_CreateObject();
    cJSON_AddNumberToObject(json, "type", type->type);
    json_text(json, "name", type->name);
    json_text(json, "theme_file", zof_ctrl_classes[type->type]->name);
    json_text(json, "help", type->help);
    json_text(json, "record", type->record->name);
    json_texts(json, "events", cat_list(type->events));
    json_texts(json, "parts", cat_parts(type));
    cJSON_AddNumberToObject(json, "sections", type->sections);
    json_texts(json, "states", cat_states(type));
    json_texts(json, "calls", cat_list(type->calls));
    json_texts(json, "fields", type_fields(type->type));
    json_text(json, "rows", type->rows);
    cJSON_AddBoolToObject(json, "touch", type->touch);
    cJSON_AddNumberToObject(json, "width", type->width);
    cJSON_AddNumberToObject(json, "height", type->height);
    return json;
}

static cJSON *kind_json(const zof_cat_kind_t *kind) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "name", kind->name);
    json_text(json, "json", kind->json);
    json_text(json, "unit", kind->unit);
    json_text(json, "help", kind->help);
    return json;
}

static cJSON *file_json(const zof_cat_file_t *file) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "path", file->path);
    json_text(json, "help", file->help);
    json_text(json, "record", file->root ? file->root->name : nullptr);
    return json;
}

static const char *const argument_names[] = {"none",    "view",  "slide",  "language", "theme",
                                             "control", "field", "number", "text"}; // of zof_action_arg_e

static cJSON *action_json(const zof_action_row_t *row) {
    cJSON *json = cJSON_CreateObject();
    std::vector<std::string> args;
    for (const zof_action_arg_e arg : row->args) {
        if (arg != ZOF_ACTION_NONE) {
            args.emplace_back(argument_names[arg]);
        }
    }
    json_text(json, "word", row->word);
    json_text(json, "form", row->form);
    json_texts(json, "args", args);
    cJSON_AddNumberToObject(json, "least", row->least);
    json_text(json, "help", row->help);
    return json;
}

std::string cat_json(void) {
    cJSON *json = cJSON_CreateObject();
    cJSON *kinds = cJSON_AddArrayToObject(json, "kinds");
    for (const zof_cat_kind_t &kind : zof_cat_kinds) {
        cJSON_AddItemToArray(kinds, kind_json(&kind));
    }
    json_texts(json, "groups", {zof_cat_groups, zof_cat_groups + ZOF_CAT_GROUP_COUNT});
    cJSON *files = cJSON_AddArrayToObject(json, "files");
    for (u32 i = 0; i < zof_cat_file_count; i++) {
        cJSON_AddItemToArray(files, file_json(&zof_cat_files[i]));
    }
    cJSON *types = cJSON_AddArrayToObject(json, "types");
    for (const zof_cat_type_t &type : zof_cat_types) {
        cJSON_AddItemToArray(types, type_json(&type));
    }
    cJSON *actions = cJSON_AddArrayToObject(json, "actions");
    for (const zof_action_row_t *row = zof_action_rows; row->word; row++) {
        cJSON_AddItemToArray(actions, action_json(row));
    }
    std::vector<std::string> slides;
    for (const char *const *slide = zof_action_slides; *slide; slide++) {
        slides.emplace_back(*slide);
    }
    json_texts(json, "slides", slides);
    cJSON *records = cJSON_AddArrayToObject(json, "records");
    for (u32 i = 0; zof_cat_records[i]->name; i++) {
        cJSON_AddItemToArray(records, record_json(zof_cat_records[i]));
    }
    return json_print(json);
}

// A type of TypeScript that is one of some texts, as the page's formatter breaks it.
static std::string union_ts(const char *name, const std::vector<std::string> &texts) {
    enum { WIDTH = 120 };
    const std::string head = std::string("export type ") + name + " =";
    std::string line;
    std::string lines;
    for (const std::string &text : texts) {
        line += (line.empty() ? " '" : " | '") + text + "'";
        lines += "\n    | '" + text + "'";
    }
    return head + (head.size() + line.size() < WIDTH ? line : lines) + ";\n";
}

std::string cat_page_types(void) {
    std::vector<std::string> kinds;
    std::vector<std::string> json; // each one once, in the order of the kinds
    for (const zof_cat_kind_t &kind : zof_cat_kinds) {
        kinds.emplace_back(kind.name);
        if (std::find(json.begin(), json.end(), kind.json) == json.end()) {
            json.emplace_back(kind.json);
        }
    }
    return "// What keys, and arguments of actions, may be. Written by the target `protocol` from the catalogue.\n" +
           union_ts("KindName", kinds) + union_ts("JsonName", json) +
           union_ts("GroupName", {zof_cat_groups, zof_cat_groups + ZOF_CAT_GROUP_COUNT}) +
           union_ts("ArgumentName", {std::begin(argument_names) + 1, std::end(argument_names)});
}
