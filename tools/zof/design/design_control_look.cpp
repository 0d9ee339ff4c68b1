// The look of a new control. In a project with looks, a control without one has neither text nor ground that can be
// seen. Where the project has no look for a type, the one of new projects comes along.
#include <algorithm>
#include <cstring>

#include "control/zof_ctrl_create.h"
#include "design_control.h"
#include "new/new.h"

static const char LOOKS[] = "config/looks.g";

// Returns whether a file of looks has this colour or look: `kind` is "colors" or "looks".
static bool has(design_files_t *files, const std::string &file, const char *kind, const std::string &name) {
    design_file_t *entry = design_file_of(files, file);
    if (!entry || !entry->doc.exists || !design_doc_index(&entry->doc)) {
        return false;
    }
    const zof_jdoc_t json = design_doc_json(&entry->doc);
    const u32 all = zof_jdoc_get(&json, 0, kind);
    return all != ZOF_J_NONE && zof_jdoc_get(&json, all, name.c_str()) != ZOF_J_NONE;
}

static std::string theme_file(const std::string &theme, const std::string &name) {
    return "config/theme/" + theme + "/" + name + ".g";
}

static bool known(design_files_t *files, const std::string &theme, const char *kind, const std::string &name) {
    return has(files, LOOKS, kind, name) || (!theme.empty() && has(files, theme_file(theme, "looks"), kind, name));
}

// Returns whether the theme has styles for a type, which a look would replace.
static bool theme_styles(design_files_t *files, const std::string &theme, const zof_cat_type_t *type) {
    const std::string name = zof_ctrl_classes[type->type]->name;
    const design_file_t *entry = theme.empty() ? nullptr : design_file_of(files, theme_file(theme, name));
    return entry && entry->doc.exists;
}

static std::string neighbour_look(const design_view_t *view, const zof_cat_type_t *type) {
    for (size_t i = view->all.size(); i-- > 0;) {
        const u32 node = view->all[i].node;
        if (design_control_type(view, (u32)i) == type) {
            const u32 look = zof_jdoc_get(&view->json, node, "look");
            char text[512];
            return look != ZOF_J_NONE && zof_jdoc_text(&view->json, look, text, sizeof(text)) >= 0 ? text : "";
        }
    }
    return "";
}

// Adding looks -----------------------------------------------------------------------------------------------------

// What the project lacks.
struct missing_t {
    std::vector<new_look_t> colours, looks;
};

static s32 project_number(design_files_t *files, const char *key) {
    return atoi(design_files_value(files, "config/project/zofprj.g", key).c_str());
}

// Collects the colours of `from`, a file of looks, that a text names.
static void colours_find(const design_view_t *view, const std::string &theme, const std::string &text,
                         const cJSON *from, missing_t *missing) {
    const cJSON *colour = nullptr;
    cJSON_ArrayForEach(colour, cJSON_GetObjectItemCaseSensitive(from, "colors")) {
        const std::string name = colour->string;
        const auto same = [&name](const new_look_t &other) { return other.name == name; };
        const bool used = text.find("\"$" + name + "\"") != std::string::npos;
        if (used && !known(view->files, theme, "colors", name) &&
            std::none_of(missing->colours.begin(), missing->colours.end(), same)) {
            missing->colours.push_back({name, "\"" + std::string(colour->valuestring) + "\""});
        }
    }
}

// Collects the look of new projects with this name, the looks that it inherits from, and their colours and those of
// `keys`.
static missing_t missing_find(const design_view_t *view, const std::string &theme, const std::string &look,
                              const std::string &keys) {
    const s32 width = project_number(view->files, "width");
    const s32 height = project_number(view->files, "height");
    const new_page_t page = {.scale = new_scale(std::max(width, 0), std::max(height, 0))};
    const std::string all = new_looks_text(page);
    cJSON *from = cJSON_Parse(all.c_str());
    missing_t missing;
    colours_find(view, theme, keys, from, &missing);
    for (const new_look_t &one : new_looks_split(new_looks_used(all, "\"look\": \"" + look + "\""))) {
        if (!known(view->files, theme, "looks", one.name)) {
            colours_find(view, theme, one.text, from, &missing);
            missing.looks.push_back(one);
        }
    }
    cJSON_Delete(from);
    return missing;
}

static cJSON *edit_add(cJSON *edits) {
    cJSON *edit = cJSON_CreateObject();
    cJSON_AddItemToArray(edits, edit);
    cJSON_AddStringToObject(edit, "file", LOOKS);
    return edit;
}

static std::string members_text(const std::vector<new_look_t> &members) {
    std::string out;
    for (const new_look_t &member : members) {
        out.append(out.empty() ? "\n        \"" : ",\n        \"").append(member.name + "\": " + member.text);
    }
    return "{" + out + (out.empty() ? "}" : "\n    }");
}

static void missing_add(design_files_t *files, const missing_t &missing, cJSON *edits) {
    const design_file_t *entry = design_file_of(files, LOOKS);
    if (missing.colours.empty() && missing.looks.empty()) {
        return;
    }
    if (entry && !entry->doc.exists) {
        const std::string text = "{\n    \"colors\": " + members_text(missing.colours) +
                                 ",\n    \"looks\": " + members_text(missing.looks) + "\n}\n";
        cJSON_AddStringToObject(edit_add(edits), "create", text.c_str());
        return;
    }
    for (const auto &[kind, members] : {std::pair("colors.", &missing.colours), {"looks.", &missing.looks}}) {
        for (const new_look_t &member : *members) {
            cJSON *edit = edit_add(edits);
            cJSON_AddStringToObject(edit, "path", (kind + member.name).c_str());
            cJSON_AddItemToObject(edit, "value", cJSON_CreateRaw(member.text.c_str()));
        }
    }
}

// Colours that are keys of the control itself.
static const struct {
    const char *type, *object, *colour;
} own_colours[] = {
    {"arc", "arc_t_main", "$line"},
    {"arc", "arc_t_inc", "$mark"},
    {"line", "dis_t", "$mark"},
    {"chart", "chart_line_style", "$line"},
};

std::string design_control_look(const design_view_t *view, const std::string &theme, const zof_cat_type_t *type,
                                cJSON *keys, cJSON *edits) {
    for (const auto &row : own_colours) {
        cJSON *object = strcmp(row.type, type->name) == 0 ? cJSON_GetObjectItem(keys, row.object) : nullptr;
        if (object) {
            cJSON_DeleteItemFromObject(object, "color");
            cJSON_AddStringToObject(object, "color", row.colour);
        }
    }
    const std::string first = new_look_name(type->name);
    const std::string near = known(view->files, theme, "looks", first) ? first : neighbour_look(view, type);
    const bool styled = near.empty() && theme_styles(view->files, theme, type);
    std::string look = near.empty() && !styled ? first : near;
    const std::string text = design_json_text(keys, false);
    missing_add(view->files, missing_find(view, theme, near.empty() ? look : "", text), edits);
    return look;
}
