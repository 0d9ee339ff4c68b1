// The views, languages and themes of the project, and those that are chosen.
#include <algorithm>

#include "drv/zof_drv.h"
#include "inspect/zof_inspect_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"

static std::string theme;           // the requested theme
static bool theme_waits;            // the runtime has not accepted it yet, because no control has a theme
static u32 placed[ZOF_LAYER_COUNT]; // the last view that inspect_view_show has put on each layer; 0 before

bool inspect_started() {
    const zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->view_fun_cnt;
}

static void name_take(std::vector<std::string> *names, const zof_dirent_t *entry, bool folders) {
    std::string name = entry->name;
    const bool is_file = name.size() > 2 && name.compare(name.size() - 2, 2, ".g") == 0;
    if (name[0] == '.' || (entry->is_dir != 0) != folders || (!folders && !is_file)) {
        return;
    }
    names->push_back(folders ? name : name.substr(0, name.size() - 2));
}

std::vector<std::string> inspect_names(const char *folder, bool folders) {
    std::vector<std::string> names;
    const char *path = zof_res_get_prjfile_path(folder, nullptr);
    zof_dir_t *dir = path ? zof_opendir(path) : nullptr;
    while (const zof_dirent_t *entry = dir ? zof_readdir(dir) : nullptr) {
        name_take(&names, entry, folders);
    }
    zof_closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

std::string inspect_theme_set(const char *name) {
    const std::vector<std::string> all = inspect_names("config/theme/", true);
    if (std::find(all.begin(), all.end(), name) == all.end()) {
        return "there is no theme " + std::string(name);
    }
    theme = name;
    theme_waits = zof_theme_set(name) != 0;
    return "";
}

std::string inspect_theme() {
    return theme_waits ? theme : zof_look_theme("");
}

std::string inspect_lang_set(const char *name) {
    const std::vector<std::string> all = inspect_names("config/languages/", false);
    if (std::find(all.begin(), all.end(), name) == all.end() || zof_lang_set(name) != 0) {
        return "there is no language " + std::string(name);
    }
    return "";
}

// A view of another layer stays until it is hidden, and would cover the views that are shown next.
void inspect_layers_clear() {
    for (u32 layer = 0; layer < ZOF_LAYER_COUNT; layer++) {
        if (layer != ZOF_LAYER_UI && placed[layer] && zof_view_get_cur_id(layer) == (s32)placed[layer]) {
            zof_view_hide_layer(layer);
        }
    }
}

std::string inspect_view_show(u32 id) {
    if (zof_view_set_dis_view(id) != 0) {
        return "the view " + inspect_view_name(id) + " cannot be shown";
    }
    for (u32 layer = 0; layer < ZOF_LAYER_COUNT; layer++) {
        placed[layer] = zof_view_get_cur_id(layer) == (s32)id ? id : placed[layer];
    }
    theme_waits = theme_waits && zof_theme_set(theme.c_str()) != 0;
    return "";
}

std::vector<zof_view_node_t *> inspect_views_shown() {
    static constexpr zof_layer_se order[] = {ZOF_LAYER_TOP, ZOF_LAYER_STATE, ZOF_LAYER_UI, ZOF_LAYER_BG};
    std::vector<zof_view_node_t *> shown;
    for (const zof_layer_se layer : order) {
        zof_view_node_t *node = zof_prj_get_cur()->cur_view[layer];
        if (node && node->obj) {
            shown.push_back(node);
        }
    }
    return shown;
}
