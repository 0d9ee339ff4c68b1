// Places of controls and styles in the project's files. Files are read again, by the JSON reader with positions, when a
// position is first requested.
#include <map>

#include "drv/zof_drv_file.h"
#include "player.h"
#include "project/base/zof_prj_up.h"
#include "project/path/zof_res.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

enum { FILE_MAX = 64 << 20 };

// A file that was read; its text lives as long as the process.
struct placed_t {
    std::string path;
    zof_jdoc_t doc;
    std::map<u32, u32> controls; // of a view file: the node of each id
};

static void controls_index(placed_t *file) {
    const u32 controls = zof_jdoc_get(&file->doc, 0, "controls");
    const u32 first = controls == ZOF_J_NONE ? controls : file->doc.nodes[controls].child;
    for (u32 node = first; node != ZOF_J_NONE; node = file->doc.nodes[node].next) {
        const u32 id = zof_jdoc_find(&file->doc, node, "property.pub_t.id");
        double number = 0;
        if (id != ZOF_J_NONE && zof_jdoc_number(&file->doc, id, &number) == 0) {
            file->controls.emplace((u32)number, node);
        }
    }
}

// Returns null for a file that cannot be read.
static placed_t *placed(const char *path) {
    static std::map<std::string, placed_t *> files;
    if (!path) {
        return nullptr;
    }
    const auto found = files.find(path);
    if (found != files.end()) {
        return found->second;
    }
    u32 size = 0;
    const char *why = nullptr;
    const std::string name = path; // the path buffer is shared
    auto *text = (const char *)zof_file_read_all(path, FILE_MAX, &size, &why);
    placed_t *file = text ? new placed_t{name, {}, {}} : nullptr;
    if (file && zof_jdoc_read(&file->doc, text, size) >= 0 && file->doc.count) {
        controls_index(file);
    }
    files[name] = file;
    return file;
}

static cJSON *place(const placed_t *file, u32 node) {
    u32 line = 0;
    u32 col = 0;
    cJSON *out = cJSON_CreateObject();
    zof_jdoc_place(&file->doc, file->doc.nodes[node].at, &line, &col);
    cJSON_AddStringToObject(out, "file", file->path.c_str());
    cJSON_AddNumberToObject(out, "line", line);
    cJSON_AddNumberToObject(out, "column", col);
    return out;
}

static double number(const zof_jdoc_t *doc, u32 object, const char *key) {
    double value = 0;
    const u32 node = zof_jdoc_get(doc, object, key);
    if (node != ZOF_J_NONE) {
        zof_jdoc_number(doc, node, &value);
    }
    return value;
}

// The styles below an object that has them.
static void styles_add(cJSON *out, const placed_t *file, u32 object) {
    const u32 styles = object == ZOF_J_NONE ? object : zof_jdoc_get(&file->doc, object, "styles");
    const u32 first = styles == ZOF_J_NONE ? styles : file->doc.nodes[styles].child;
    for (u32 node = first; node != ZOF_J_NONE; node = file->doc.nodes[node].next) {
        cJSON *style = place(file, node);
        cJSON_AddNumberToObject(style, "part", number(&file->doc, node, "style_part"));
        cJSON_AddNumberToObject(style, "state", number(&file->doc, node, "style_state"));
        cJSON_AddItemToArray(out, style);
    }
}

static std::string theme_of(const placed_t *file, u32 node) {
    char name[64] = "";
    const u32 theme = zof_jdoc_get(&file->doc, node, "theme");
    if (theme != ZOF_J_NONE) {
        zof_jdoc_text(&file->doc, theme, name, sizeof(name));
    }
    return player_theme().empty() ? name : player_theme();
}

// "controls[3]"
static std::string entry_key(const placed_t *file, u32 node) {
    u32 index = 0;
    for (u32 at = file->doc.nodes[file->doc.nodes[node].parent].child; at != node; at = file->doc.nodes[at].next) {
        index++;
    }
    return "controls[" + std::to_string(index) + "]";
}

static placed_t *view_file(const zof_view_node_t *view) {
    const char *name = zof_view_name_get(view->attr->v_id);
    return name ? placed(zof_res_get_prjfile_path("config/view/", name)) : nullptr;
}

void player_places_add(cJSON *out, const zof_view_node_t *view, const para_t *record) {
    const placed_t *file = view_file(view);
    const auto at = file ? file->controls.find(record->id) : std::map<u32, u32>::const_iterator();
    if (!file || at == file->controls.end()) {
        return;
    }
    cJSON *entry = place(file, at->second);
    cJSON_AddStringToObject(entry, "key", entry_key(file, at->second).c_str());
    cJSON_AddItemToObject(out, "place", entry);
    cJSON *styles = cJSON_AddArrayToObject(out, "styles");
    const std::string theme = theme_of(file, at->second);
    const placed_t *theme_file =
        theme.empty() ? nullptr : placed(zof_res_get_theme_path(theme.c_str(), record->attr->ctrl_type));
    if (theme_file && theme_file->doc.count) {
        styles_add(styles, theme_file, 0);
    }
    styles_add(styles, file, zof_jdoc_get(&file->doc, at->second, "property"));
}
