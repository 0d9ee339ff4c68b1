// Views as a whole: new ones, copies, other names, deleting. A view is a file and a row of the project.
#include <algorithm>

#include "design_control.h"

static const char PROJECT[] = "config/project/zofprj.g";

// The rows of the project.
struct pages_t {
    std::vector<std::string> names; // without ".g"
    std::vector<s64> ids;
    s64 start;
};

static std::string text_in(const zof_jdoc_t *json, u32 object, const char *key) {
    char text[256];
    const u32 node = zof_jdoc_get(json, object, key);
    return node != ZOF_J_NONE && zof_jdoc_text(json, node, text, sizeof(text)) >= 0 ? text : "";
}

static s64 id_in(const zof_jdoc_t *json, u32 object, const char *key) {
    double number = 0;
    const u32 node = zof_jdoc_get(json, object, key);
    return node != ZOF_J_NONE && zof_jdoc_number(json, node, &number) == 0 ? (s64)number : 0;
}

static std::string pages_read(design_files_t *files, pages_t *out) {
    design_file_t *entry = design_file_of(files, PROJECT);
    if (!entry || !entry->doc.exists || !design_doc_index(&entry->doc)) {
        return std::string(PROJECT) + " cannot be read";
    }
    const zof_jdoc_t json = design_doc_json(&entry->doc);
    const u32 views = zof_jdoc_get(&json, 0, "views");
    if (views == ZOF_J_NONE || json.nodes[views].kind != ZOF_J_ARRAY) {
        return std::string(PROJECT) + " has no list of views";
    }
    *out = {.start = id_in(&json, 0, "start_page")};
    for (u32 at = json.nodes[views].child; at != ZOF_J_NONE; at = json.nodes[at].next) {
        const std::string file = text_in(&json, at, "pageName");
        out->names.push_back(file.ends_with(".g") ? file.substr(0, file.size() - 2) : file);
        out->ids.push_back(id_in(&json, at, "pageId"));
    }
    return "";
}

static cJSON *edit_of(cJSON *edits, const std::string &file, const std::string &path) {
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddItemToArray(edits, edit);
    cJSON_AddStringToObject(edit, "file", file.c_str());
    if (!path.empty()) {
        cJSON_AddStringToObject(edit, "path", path.c_str());
    }
    return edit;
}

static void value_add(cJSON *edits, const std::string &file, const std::string &path, cJSON *value) {
    cJSON_AddItemToObject(edit_of(edits, file, path), "value", value);
}

static std::string file_of(const std::string &name) {
    return "config/view/" + name + ".g";
}

// Reads the view `args->view` and the project. Returns an error, also if `name` cannot be a new view's name.
static std::string begin(design_files_t *files, const cJSON *args, const std::string *name, design_view_t *view,
                         pages_t *pages) {
    std::string error = design_view_read(files, design_args_text(args, "view"), view);
    error = error.empty() ? pages_read(files, pages) : error;
    error = error.empty() && name ? design_name_fault(*name) : error;
    // Not all systems tell names by upper and lower case.
    const auto same = [&](const std::string &other) {
        return name && other != view->name && design_control_upper(other) == design_control_upper(*name);
    };
    const auto found = std::find_if(pages->names.begin(), pages->names.end(), same);
    error = error.empty() && found != pages->names.end() ? "there is a view " + *found : error;
    const design_file_t *entry = error.empty() && name ? design_file_of(files, file_of(*name)) : nullptr;
    return entry && entry->doc.exists ? "there is a view " + *name : error;
}

static std::string row_path(const pages_t &pages, const std::string &name) {
    const auto found = std::find(pages.names.begin(), pages.names.end(), name);
    return "views[" + std::to_string(found - pages.names.begin()) + "]";
}

cJSON *design_view_add(design_files_t *files, const cJSON *args, std::string *error) {
    design_view_t view;
    pages_t pages;
    const std::string name = design_args_text(args, "name");
    *error = begin(files, args, &name, &view, &pages);
    const s64 id = design_control_free_id(std::set<s64>(pages.ids.begin(), pages.ids.end()));
    if (!error->empty() || !id) {
        return nullptr;
    }
    cJSON *edits = cJSON_CreateArray();
    cJSON_AddStringToObject(edit_of(edits, file_of(name), ""), "create", view.doc->text.c_str());
    value_add(edits, file_of(name), "view.v_name", cJSON_CreateString(name.c_str()));
    value_add(edits, file_of(name), "view.v_id", cJSON_CreateNumber((double)id));
    if (!cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(args, "copy"))) {
        value_add(edits, file_of(name), "controls", cJSON_CreateArray());
    }
    cJSON *row = cJSON_CreateObject();
    cJSON_AddNumberToObject(row, "pageId", (double)id);
    cJSON_AddStringToObject(row, "pageName", (name + ".g").c_str());
    cJSON_AddItemToObject(edit_of(edits, PROJECT, "views[" + std::to_string(pages.ids.size()) + "]"), "insert", row);
    return edits;
}

struct rename_t {
    cJSON *edits;
    std::string old_name, name;
};

static void action_rename(const std::string &file, const std::string &path, const std::string &text, size_t at,
                          void *arg) {
    const auto *rename = (const rename_t *)arg;
    const std::string where = file == file_of(rename->old_name) ? file_of(rename->name) : file;
    const std::string now = text.substr(0, at) + rename->name + text.substr(at + rename->old_name.size());
    value_add(rename->edits, where, path, cJSON_CreateString(now.c_str()));
}

cJSON *design_view_rename(design_files_t *files, const cJSON *args, std::string *error) {
    design_view_t view;
    pages_t pages;
    const std::string name = design_args_text(args, "name");
    *error = begin(files, args, &name, &view, &pages);
    if (!error->empty()) {
        return nullptr;
    }
    rename_t rename = {cJSON_CreateArray(), view.name, name};
    cJSON_AddStringToObject(edit_of(rename.edits, file_of(name), ""), "create", view.doc->text.c_str());
    value_add(rename.edits, file_of(name), "view.v_name", cJSON_CreateString(name.c_str()));
    value_add(rename.edits, PROJECT, row_path(pages, view.name) + ".pageName",
              cJSON_CreateString((name + ".g").c_str()));
    design_control_actions(files, &view, nullptr, action_rename, &rename);
    cJSON_AddTrueToObject(edit_of(rename.edits, view.file, ""), "delete");
    return rename.edits;
}

static void action_count(const std::string &file, const std::string &path, const std::string &, size_t, void *arg) {
    ((std::vector<std::string> *)arg)->push_back(file + " " + path);
}

cJSON *design_view_delete(design_files_t *files, const cJSON *args, std::vector<std::string> *uses,
                          std::string *error) {
    design_view_t view;
    pages_t pages;
    *error = begin(files, args, nullptr, &view, &pages);
    *error = error->empty() && pages.ids.size() < 2 ? "a panel needs a view" : *error;
    if (!error->empty()) {
        return nullptr;
    }
    cJSON *edits = cJSON_CreateArray();
    cJSON_AddTrueToObject(edit_of(edits, PROJECT, row_path(pages, view.name)), "remove");
    if (pages.start == view.id) {
        const auto other = std::find_if(pages.ids.begin(), pages.ids.end(), [&](s64 id) { return id != view.id; });
        value_add(edits, PROJECT, "start_page", cJSON_CreateNumber((double)*other));
    }
    cJSON_AddTrueToObject(edit_of(edits, view.file, ""), "delete");
    std::vector<std::string> all;
    design_control_actions(files, &view, nullptr, action_count, &all);
    std::copy_if(all.begin(), all.end(), std::back_inserter(*uses),
                 [&](const std::string &use) { return !use.starts_with(view.file); });
    return edits;
}
