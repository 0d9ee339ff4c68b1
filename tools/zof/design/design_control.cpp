// The controls of a view, and new ones. A new control looks like the snippet of its type in the reference, with the
// start values of the catalogue.
#include "design_control.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

#include "check/zof_fmt.h"
#include "zof_lib/zof_stdio.h"

enum { ID_MAX = UINT16_MAX };

// Views ------------------------------------------------------------------------------------------------------------

static std::string text_at(const zof_jdoc_t *json, u32 node) {
    char text[512];
    return node != ZOF_J_NONE && zof_jdoc_text(json, node, text, sizeof(text)) >= 0 ? text : "";
}

static s64 number_at(const zof_jdoc_t *json, u32 node) {
    double number = 0;
    const bool good = node != ZOF_J_NONE && zof_jdoc_number(json, node, &number) == 0;
    return good && std::fabs(number) < INT32_MAX ? (s64)number : 0;
}

static void controls_read(design_view_t *view) {
    const zof_jdoc_t *json = &view->json;
    u32 index = 0;
    for (u32 at = json->nodes[view->controls].child; at != ZOF_J_NONE; at = json->nodes[at].next) {
        const u32 pub = zof_jdoc_find(json, at, "property.pub_t");
        const auto member = [&](const char *key) {
            return pub == ZOF_J_NONE ? (u32)ZOF_J_NONE : zof_jdoc_get(json, pub, key);
        };
        view->all.push_back({at, index++, text_at(json, member("name")), number_at(json, member("id")),
                             number_at(json, member("parent_id"))});
        view->names.insert(design_control_upper(view->all.back().name));
        view->ids.insert(view->all.back().id);
    }
}

std::string design_view_read(design_files_t *files, const std::string &name, design_view_t *view) {
    *view = {};
    view->files = files;
    view->name = name;
    view->file = "config/view/" + name + ".g";
    design_file_t *entry = name.find('/') == std::string::npos ? design_file_of(files, view->file) : nullptr;
    if (!entry || !entry->doc.exists) {
        return "there is no view " + name;
    }
    view->doc = &entry->doc;
    if (!design_doc_index(view->doc)) {
        return view->file + ":" + view->doc->fault;
    }
    view->json = design_doc_json(view->doc);
    view->controls = zof_jdoc_get(&view->json, 0, "controls");
    if (view->controls == ZOF_J_NONE || view->json.nodes[view->controls].kind != ZOF_J_ARRAY) {
        return view->file + " has no list of controls";
    }
    view->id = number_at(&view->json, zof_jdoc_find(&view->json, 0, "view.v_id"));
    controls_read(view);
    return "";
}

s32 design_view_find(const design_view_t *view, const std::string &path) {
    const std::string name = path.substr(path.find('/') + 1);
    for (const design_control_t &control : view->all) {
        if (name == (name[0] == '#' ? "#" + std::to_string(control.id) : control.name) && !name.empty()) {
            return (s32)control.index;
        }
    }
    return -1;
}

std::string design_view_chosen(design_files_t *files, const cJSON *args, design_view_t *view,
                               std::vector<u32> *chosen) {
    const cJSON *paths = cJSON_GetObjectItemCaseSensitive(args, "controls");
    const cJSON *path = nullptr;
    std::string error = cJSON_GetArraySize(paths) > 0 ? "" : "no control is chosen";
    cJSON_ArrayForEach(path, paths) {
        const std::string text = cJSON_IsString(path) ? path->valuestring : "";
        const std::string name = text.substr(0, text.find('/'));
        if (error.empty() && (!view->doc || view->name != name)) {
            error = view->doc ? "the controls are in different views" : design_view_read(files, name, view);
        }
        const s32 index = error.empty() ? design_view_find(view, text) : -1;
        if (error.empty() && index < 0) {
            error.append("there is no control ").append(text);
        }
        if (error.empty() && !design_view_in(*chosen, (u32)index)) {
            chosen->push_back((u32)index);
        }
    }
    std::sort(chosen->begin(), chosen->end());
    return error;
}

bool design_view_in(const std::vector<u32> &some, u32 index) {
    return std::find(some.begin(), some.end(), index) != some.end();
}

std::vector<u32> design_view_with_children(const design_view_t *view, const std::vector<u32> &chosen) {
    std::vector<bool> in(view->all.size());
    for (const u32 index : chosen) {
        in[index] = true;
    }
    // Once is enough for files in order; in others a child may stand before its parent.
    for (bool more = true; more;) {
        more = false;
        std::vector<bool> ids(ID_MAX + 1);
        for (const design_control_t &control : view->all) {
            ids[(size_t)std::clamp(control.id, (s64)0, (s64)ID_MAX)] =
                ids[(size_t)std::clamp(control.id, (s64)0, (s64)ID_MAX)] || in[control.index];
        }
        for (const design_control_t &control : view->all) {
            const bool child = control.parent > 0 && control.parent <= ID_MAX && ids[(size_t)control.parent];
            more = more || (child && !in[control.index]);
            in[control.index] = in[control.index] || child;
        }
    }
    std::vector<u32> out;
    for (u32 i = 0; i < in.size(); i++) {
        if (in[i]) {
            out.push_back(i);
        }
    }
    return out;
}

std::string design_view_text(const design_view_t *view, u32 index) {
    const zof_jnode_t &node = view->json.nodes[view->all[index].node];
    return view->doc->text.substr(node.at, node.end - node.at);
}

std::string design_view_path(const design_view_t *view, const std::string &name) {
    return view->name + "/" + name;
}

s64 design_control_free_id(const std::set<s64> &ids) {
    s64 id = 1;
    while (id <= ID_MAX && ids.contains(id)) {
        id++;
    }
    return id <= ID_MAX ? id : 0;
}

std::string design_control_upper(const std::string &name) {
    std::string out;
    for (const char c : name) {
        out += isalnum((u8)c) ? (char)toupper((u8)c) : '_';
    }
    return out;
}

// Arguments and edits ----------------------------------------------------------------------------------------------

std::string design_args_text(const cJSON *args, const char *name) {
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(args, name));
    return text ? text : "";
}

double design_args_number(const cJSON *args, const char *name, double absent) {
    const cJSON *number = cJSON_GetObjectItemCaseSensitive(args, name);
    return cJSON_IsNumber(number) && std::fabs(number->valuedouble) < INT32_MAX ? std::trunc(number->valuedouble)
                                                                                : absent;
}

static cJSON *edit_add(cJSON *edits, const design_view_t *view, u32 index, const std::string &below) {
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddItemToArray(edits, edit);
    cJSON_AddStringToObject(edit, "file", view->file.c_str());
    cJSON_AddStringToObject(edit, "path", ("controls[" + std::to_string(index) + "]" + below).c_str());
    return edit;
}

void design_edit_value(cJSON *edits, const design_view_t *view, u32 index, const std::string &below, cJSON *value) {
    cJSON_AddItemToObject(edit_add(edits, view, index, below), value ? "value" : "remove",
                          value ? value : cJSON_CreateTrue());
}

void design_edit_insert(cJSON *edits, const design_view_t *view, u32 index, const std::string &text) {
    cJSON_AddItemToObject(edit_add(edits, view, index, ""), "insert", cJSON_CreateRaw(text.c_str()));
}

// New controls -----------------------------------------------------------------------------------------------------

static const zof_cat_type_t *type_find(const std::string &name) {
    for (const zof_cat_type_t &type : zof_cat_types) {
        if (name == type.name) {
            return &type;
        }
    }
    return nullptr;
}

const zof_cat_type_t *design_control_type(const design_view_t *view, u32 index) {
    const u32 node = zof_jdoc_get(&view->json, view->all[index].node, "type");
    const s64 number =
        node != ZOF_J_NONE && view->json.nodes[node].kind == ZOF_J_NUMBER ? number_at(&view->json, node) : -1;
    for (const zof_cat_type_t &type : zof_cat_types) {
        if (number == (s64)type.type || (number < 0 && text_at(&view->json, node) == type.name)) {
            return &type;
        }
    }
    return nullptr;
}

// Adds the start values of a record's keys.
static cJSON *start_values(const zof_cat_record_t *record) {
    cJSON *out = cJSON_CreateObject();
    for (u32 i = 0; record && i < record->count; i++) {
        const zof_cat_key_t &key = record->keys[i];
        if (key.start) {
            const bool inner = strcmp(key.start, "{}") == 0;
            cJSON_AddItemToObject(out, key.key, inner ? start_values(key.record) : cJSON_Parse(key.start));
        }
    }
    return out;
}

static cJSON *pair(const char *first, double one, const char *second, double two) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddNumberToObject(out, first, one);
    cJSON_AddNumberToObject(out, second, two);
    return out;
}

static cJSON *pub_make(const zof_cat_type_t *type, const cJSON *args, const std::string &name, s64 id, s64 parent) {
    cJSON *pub = cJSON_CreateObject();
    cJSON_AddStringToObject(pub, "name", name.c_str());
    cJSON_AddNumberToObject(pub, "id", (double)id);
    if (parent) {
        cJSON_AddNumberToObject(pub, "parent_id", (double)parent);
    }
    cJSON_AddItemToObject(pub, "pt",
                          pair("x", design_args_number(args, "x", 0), "y", design_args_number(args, "y", 0)));
    cJSON_AddItemToObject(pub, "size",
                          pair("width", design_args_number(args, "width", type->width), "height",
                               design_args_number(args, "height", type->height)));
    if (type->touch) {
        cJSON_AddStringToObject(pub, "t_mode", "touch");
    }
    cJSON_AddNumberToObject(pub, "alpha", 255);
    return pub;
}

// The shape of new controls: that of the last one.
struct shape_t {
    bool lines, numbers;
    std::string theme, line, indent, unit;
};

static shape_t shape_of(const design_view_t *view) {
    shape_t shape = {true,  false, "", design_place_line(&view->json), design_place_indent(&view->json, view->controls),
                     "    "};
    if (view->all.empty()) {
        return shape;
    }
    const u32 node = view->all.back().node;
    const std::string text = design_view_text(view, view->all.back().index);
    const u32 type = zof_jdoc_get(&view->json, node, "type");
    const size_t line = text.find('\n');
    shape.lines = line != std::string::npos;
    shape.numbers = type != ZOF_J_NONE && view->json.nodes[type].kind == ZOF_J_NUMBER;
    shape.theme = text_at(&view->json, zof_jdoc_get(&view->json, node, "theme"));
    const size_t first = shape.lines ? text.find_first_not_of(" \t", line + 1) : line;
    if (shape.lines && first - line - 1 > shape.indent.size() &&
        text.compare(line + 1, shape.indent.size(), shape.indent) == 0) {
        shape.unit = text.substr(line + 1 + shape.indent.size(), first - line - 1 - shape.indent.size());
    }
    return shape;
}

// As the snippets in the reference: `pub_t` on a line, then `own`, the other keys.
static std::string control_text(const shape_t &shape, const zof_cat_type_t *type, const std::string &look, cJSON *pub,
                                cJSON *own) {
    cJSON *head = cJSON_CreateObject();
    cJSON_AddStringToObject(head, "type", type->name);
    cJSON_AddStringToObject(head, "theme", shape.theme.c_str());
    if (!look.empty()) {
        cJSON_AddStringToObject(head, "look", look.c_str());
    }
    std::string out = design_json_text(head, false);
    out.back() = ',';
    std::string keys = design_json_text(own, false);
    keys = keys.substr(1, keys.size() - 2);
    const std::string begin = shape.lines ? shape.line + shape.indent + shape.unit : "";
    const std::string end = shape.lines ? shape.line + shape.indent : "";
    out += " \"property\": {" + begin + "\"pub_t\": " + design_json_text(pub, false) +
           (keys.empty() ? "" : (shape.lines ? "," + begin : ", ") + keys) + end + "}}";
    cJSON_Delete(own);
    cJSON_Delete(head);
    cJSON_Delete(pub);
    return out;
}

// Numbers in place of names, for a view that has no names.
static std::string numbers_text(const design_view_t *view, const std::string &text) {
    const std::string head = "{\"controls\": [";
    const std::string whole = head + text + "]}";
    size_t size = 0;
    char *made = zof_fmt(view->file.c_str(), whole.data(), whole.size(), ZOF_FALSE, &size);
    std::string out = made && size > head.size() + 2 ? std::string(made + head.size(), size - head.size() - 2) : text;
    zof_free(made);
    return out;
}

static std::string new_name(const design_view_t *view, std::string type) {
    std::replace_if(
        type.begin(), type.end(), [](char c) { return !isalnum((u8)c); }, '_');
    u32 number = 1;
    while (view->names.contains(design_control_upper(type + "_" + std::to_string(number)))) {
        number++;
    }
    return type + "_" + std::to_string(number);
}

// Returns the index at which a control goes that was asked to be before another one, after one, or at the end.
static u32 index_asked(const design_view_t *view, const cJSON *args, s32 parent) {
    const s32 before = design_view_find(view, design_args_text(args, "before"));
    const s32 after = design_view_find(view, design_args_text(args, "after"));
    const u32 index = before >= 0 ? (u32)before : after >= 0 ? (u32)after + 1 : (u32)view->all.size();
    return std::max(index, (u32)(parent + 1)); // a parent stands before its children
}

design_new_t design_control_new(const design_view_t *view, const cJSON *args, s64 parent, const char *own,
                                cJSON *edits) {
    const zof_cat_type_t *type = type_find(design_args_text(args, "type"));
    const s64 id = design_control_free_id(view->ids);
    if (!type || !id) {
        return {.fault = type ? "the view has no free id" : "there is no type " + design_args_text(args, "type")};
    }
    design_new_t made = {.name = new_name(view, type->name), .id = id};
    const shape_t shape = shape_of(view);
    cJSON *keys = own ? cJSON_Parse(own) : start_values(type->record);
    const std::string look = own ? "" : design_control_look(view, shape.theme, type, keys, edits);
    const std::string text = control_text(shape, type, look, pub_make(type, args, made.name, id, parent), keys);
    made.text = shape.numbers ? numbers_text(view, text) : text;
    return made;
}

cJSON *design_control_add(design_files_t *files, const cJSON *args, std::vector<std::string> *made,
                          std::string *error) {
    design_view_t view;
    const std::string parent_path = design_args_text(args, "parent");
    *error = design_view_read(files, design_args_text(args, "view"), &view);
    const s32 parent = error->empty() && !parent_path.empty() ? design_view_find(&view, parent_path) : -1;
    *error = error->empty() && parent < 0 && !parent_path.empty() ? "there is no control " + parent_path : *error;
    if (!error->empty()) {
        return nullptr;
    }
    cJSON *edits = cJSON_CreateArray();
    const design_new_t control =
        design_control_new(&view, args, parent < 0 ? 0 : view.all[(u32)parent].id, nullptr, edits);
    if (!control.fault.empty()) {
        *error = control.fault;
        cJSON_Delete(edits);
        return nullptr;
    }
    design_edit_insert(edits, &view, index_asked(&view, args, parent), control.text);
    made->push_back(design_view_path(&view, control.name));
    return edits;
}
