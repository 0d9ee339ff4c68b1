// JSON Schemas of the files of a project. They accept numbers and names, as the decoder does, so that editors underline
// what it reports: unknown keys and numbers out of range.
#include <cstring>

#include "json.h"
#include "json_in.h"
#include "words.h"

const char *const cat_schema_names[] = {"project", "link", "view", "looks", "theme", "language", nullptr};

// Returns "a|b|c": all names, including alternative ones.
static std::string pattern_of(const zof_name_t *names) {
    std::string text;
    for (; names->name; names++) {
        text += (text.empty() ? "" : "|") + std::string(names->name);
    }
    return text;
}

static cJSON *pattern_json(const std::string &pattern) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "type", "string");
    json_text(json, "pattern", pattern.c_str());
    return json;
}

static cJSON *number_json(const zof_cat_key_t *key, const reflect_item_t *row) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "type", "number");
    const size_t values = row ? row->flags >> CSON_VALUES_SHIFT : 0;
    const bool limited = key->low != 0 || key->high != 0;
    if (limited) {
        cJSON_AddNumberToObject(json, "minimum", (double)key->low);
    } else if (key->kind == ZOF_CAT_COLOR || values) {
        cJSON_AddNumberToObject(json, "minimum", 0);
    }
    if (limited && key->high != ZOF_CAT_ANY) {
        cJSON_AddNumberToObject(json, "maximum", (double)key->high);
    } else if (!limited && values) {
        cJSON_AddNumberToObject(json, "maximum", (double)values - 1);
    } else if (key->kind == ZOF_CAT_COLOR) {
        cJSON_AddNumberToObject(json, "maximum", 0xFFFFFF);
    }
    return json;
}

// Returns the schema of the texts that a file may contain in place of a number, or null if only a number is allowed.
static cJSON *words_json(const zof_cat_key_t *key, const reflect_item_t *row) {
    if (key->kind == ZOF_CAT_COLOR) {
        return pattern_json("^(#([0-9A-Fa-f]{3}|[0-9A-Fa-f]{6})|\\$.+)$");
    }
    if (!row || !row->names) {
        return nullptr;
    }
    const std::string all = pattern_of(row->names);
    return pattern_json(key->kind == ZOF_CAT_SUM ? "^ *(" + all + ")( *[+ ] *(" + all + "))* *$" : "^(" + all + ")$");
}

static cJSON *enum_json(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    std::vector<std::string> names;
    for (const cat_name_t &name : cat_names(record, key)) {
        names.push_back(name.name);
    }
    cJSON *json = cJSON_CreateObject();
    json_texts(json, "enum", names); // the choices that an editor offers
    return json;
}

static cJSON *integer_json(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    const reflect_item_t *row = zof_cat_row(record, key);
    cJSON *number = number_json(key, row);
    cJSON *words = words_json(key, row);
    if (!words) {
        return number;
    }
    cJSON *json = cJSON_CreateObject();
    cJSON *any = cJSON_AddArrayToObject(json, "anyOf");
    if (key->kind != ZOF_CAT_COLOR) {
        cJSON_AddItemToArray(any, enum_json(record, key));
    }
    cJSON_AddItemToArray(any, words);
    cJSON_AddItemToArray(any, number);
    return json;
}

static cJSON *reference(const zof_cat_record_t *record) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "$ref", ("#/definitions/" + std::string(record->name)).c_str());
    return json;
}

static cJSON *plain_json(const char *type) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "type", type);
    return json;
}

static cJSON *value_json(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    const char *json = zof_cat_kinds[key->kind].json;
    if (key->kind == ZOF_CAT_ARRAY) {
        cJSON *array = plain_json("array");
        const bool bare = key->record->keys[0].key[0] == '0';
        cJSON_AddItemToObject(array, "items", bare ? plain_json("string") : reference(key->record));
        return array;
    }
    if (key->kind == ZOF_CAT_OBJECT) {
        return key->record ? reference(key->record) : plain_json("object");
    }
    return strcmp(json, "number") == 0 ? integer_json(record, key)
                                       : plain_json(strcmp(json, "bool") == 0 ? "boolean" : "string");
}

static cJSON *property_json(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    cJSON *json = value_json(record, key);
    if (cJSON_GetObjectItem(json, "$ref")) { // readers ignore all members beside a $ref
        cJSON *all = cJSON_CreateObject();
        cJSON_AddItemToArray(cJSON_AddArrayToObject(all, "allOf"), json);
        json = all;
    }
    const std::string values = cat_values(record, key, "", false);
    const std::string help = cat_kind(key) + (values.empty() ? ". " : ", " + values + ". ") + cat_meaning(key);
    json_text(json, "description", help.c_str());
    json_parsed(json, "default", key->start);
    return json;
}

// Makes the keys of `property` depend on the entry's control type.
static void entry_types_add(cJSON *entry) {
    cJSON *all = cJSON_AddArrayToObject(entry, "allOf");
    for (const zof_cat_type_t &type : zof_cat_types) {
        cJSON *rule = cJSON_CreateObject();
        cJSON *given = cJSON_AddObjectToObject(rule, "if");
        cJSON *choice = cJSON_AddObjectToObject(cJSON_AddObjectToObject(given, "properties"), "type");
        cJSON *any = cJSON_AddArrayToObject(choice, "enum");
        cJSON_AddItemToArray(any, cJSON_CreateNumber(type.type));
        for (const zof_name_t *name = zof_type_names; name->name; name++) {
            if (name->value == (s64)type.type) {
                cJSON_AddItemToArray(any, cJSON_CreateString(name->name));
            }
        }
        json_texts(given, "required", {"type"});
        cJSON *then = cJSON_AddObjectToObject(rule, "then");
        cJSON_AddItemToObject(cJSON_AddObjectToObject(then, "properties"), "property", reference(type.record));
        cJSON_AddItemToArray(all, rule);
    }
}

// Returns the pattern for names of styles in a look: object, part and states. Each may be omitted, but not all of them.
static std::string style_names_pattern(void) {
    const std::string state = "(" + pattern_of(zof_state_names) + ")";
    const std::string more = ")(:(?=.)|$))?";
    return "^(?=.)((" + pattern_of(zof_sect_names) + more + "((" + pattern_of(zof_part_names) + more + "( *" + state +
           "( *[+ ] *" + state + ")* *)?$";
}

// Adds the keys of a record whose names are free.
static void free_keys_add(cJSON *json, const zof_cat_record_t *record, const zof_cat_key_t *key) {
    const std::string pattern = strcmp(record->name, "look") == 0 ? style_names_pattern() : ".*";
    cJSON *patterns = cJSON_AddObjectToObject(json, "patternProperties");
    cJSON_AddItemToObject(patterns, pattern.c_str(), property_json(record, key));
}

// Returns the schema of a record. If `whole`, needed keys are required; looks inherit theirs.
static cJSON *record_json(const zof_cat_record_t *record, bool whole) {
    cJSON *json = plain_json("object");
    json_text(json, "description", record->help);
    cJSON *properties = cJSON_AddObjectToObject(json, "properties");
    std::vector<std::string> needed;
    for (u32 i = 0; i < record->count; i++) {
        const zof_cat_key_t *key = &record->keys[i];
        if (key->key[0] == '*') {
            free_keys_add(json, record, key);
            continue;
        }
        cJSON_AddItemToObject(properties, key->key, property_json(record, key));
        if (whole && key->flags & ZOF_CAT_NEEDED) {
            needed.push_back(key->key);
        }
    }
    json_texts(json, "required", needed);
    cJSON_AddBoolToObject(json, "additionalProperties",
                          strcmp(record->name, "theme") == 0); // a theme may have other keys of its type
    if (strcmp(record->name, "entry") == 0) {
        entry_types_add(json);
    }
    return json;
}

// Adds the definitions of a record and of all records to which it refers.
static void definitions_add(cJSON *definitions, const zof_cat_record_t *record, bool whole) {
    if (cJSON_GetObjectItemCaseSensitive(definitions, record->name)) {
        return;
    }
    cJSON_AddItemToObject(definitions, record->name, record_json(record, whole));
    for (u32 i = 0; i < record->count; i++) {
        if (record->keys[i].record) {
            definitions_add(definitions, record->keys[i].record, whole);
        }
    }
    for (const zof_cat_type_t &type : zof_cat_types) {
        if (strcmp(record->name, "entry") == 0) {
            definitions_add(definitions, type.record, whole);
        }
    }
}

std::string cat_schema(const std::string &name) {
    cJSON *json = cJSON_CreateObject();
    json_text(json, "$schema", "http://json-schema.org/draft-07/schema#");
    json_text(json, "title", ("zof " + name + " file").c_str());
    if (name == "language") {
        json_text(json, "type", "object");
        cJSON_AddItemToObject(json, "additionalProperties", plain_json("string"));
        return json_print(json);
    }
    const zof_cat_record_t *root = cat_record(name == "view" || name == "looks" ? name + " file" : name);
    definitions_add(cJSON_AddObjectToObject(json, "definitions"), root, name != "looks");
    cJSON_AddItemToArray(cJSON_AddArrayToObject(json, "allOf"), reference(root));
    return json_print(json);
}
