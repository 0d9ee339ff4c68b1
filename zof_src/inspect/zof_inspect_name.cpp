// Names of views and controls.
#include <cstdlib>
#include <cstring>

#include "control/zof_ctrl.h"
#include "inspect/zof_inspect_in.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_util.h"

std::string inspect_view_name(u32 id) {
    const char *file = zof_view_name_get(id);
    std::string name = file ? file : "#" + std::to_string(id);
    if (name.size() > 2 && name.compare(name.size() - 2, 2, ".g") == 0) {
        name.resize(name.size() - 2);
    }
    return name;
}

u32 inspect_view_find(const cJSON *name) {
    if (cJSON_IsNumber(name)) {
        return zof_view_name_get((u32)name->valueint) ? (u32)name->valueint : 0;
    }
    const char *text = cJSON_GetStringValue(name);
    const zof_view_name_t *entry = nullptr;
    const db_list *list = zof_prj_get_cur()->view_names;
    for (s32 i = 0; text && (entry = (const zof_view_name_t *)__db_list_visit((db_list *)list, i)); i++) {
        const std::string id = std::to_string(entry->id);
        if (text == inspect_view_name(entry->id) || strcmp(text, entry->name) == 0 || text == id || text == "#" + id) {
            return entry->id;
        }
    }
    return 0;
}

std::string inspect_view_none(const cJSON *name) {
    const char *typed = cJSON_GetStringValue(name);
    std::string meant;
    u32 least = ZOF_TEXT_NEAR;
    const zof_view_name_t *entry = nullptr;
    const db_list *list = zof_prj_get_cur()->view_names;
    for (s32 i = 0; typed && (entry = (const zof_view_name_t *)__db_list_visit((db_list *)list, i)); i++) {
        const std::string near = inspect_view_name(entry->id);
        meant = zof_text_nearer(typed, near.c_str(), &least) ? near : meant;
    }
    return "there is no view " + (typed ? std::string(typed) : "of this number") +
           (meant.empty() ? "" : "; did you mean " + meant + "?");
}

// Returns the number of controls in the view with this name, and one of them in `found`.
static u32 named(u32 view, const char *name, para_t **found) {
    const db_list *list = zof_view_list_get_ctrl_list(view);
    u32 count = 0;
    for (const db_node *at = list ? list->head->next : nullptr; list && at != list->head; at = at->next) {
        auto *record = (para_t *)at->data;
        if (record->attr && record->attr->name && strcmp(record->attr->name, name) == 0) {
            *found = record;
            count++;
        }
    }
    return count;
}

std::string inspect_path(u32 view, u32 ctrl) {
    const para_t *record = zof_ctrl_get_form_id(view, ctrl);
    const char *name = record && record->attr ? record->attr->name : nullptr;
    para_t *same = nullptr;
    const bool usable = name && *name && *name != '#' && !strchr(name, '/') && named(view, name, &same) == 1;
    return inspect_view_name(view) + "/" + (usable ? name : "#" + std::to_string(ctrl));
}

para_t *inspect_control(const char *path, u32 *view) {
    const char *slash = path ? strrchr(path, '/') : nullptr; // a view's file may be in a subfolder
    if (!slash) {
        return nullptr;
    }
    cJSON *name = cJSON_CreateString(std::string(path, slash).c_str());
    *view = inspect_view_find(name);
    cJSON_Delete(name);
    if (*view) {
        zof_view_load(*view);
    }
    if (slash[1] == '#') {
        return zof_ctrl_get_form_id(*view, (u32)strtoul(slash + 2, nullptr, 10));
    }
    para_t *found = nullptr;
    named(*view, slash + 1, &found);
    return found;
}
