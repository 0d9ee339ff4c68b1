// Places of controls and styles in the project's files. A file is read a second time, by the JSON reader with
// positions, when one of its positions is first requested.
#include <cstring>
#include <functional>
#include <map>

#include "inspect/zof_inspect_in.h"
#include "project/base/zof_prj_up.h"
#include "project/look/zof_look_in.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

struct entry_t {
    u32 node;
    u32 index; // among the controls
};

// A parsed file, which owns its text.
struct placed_t {
    std::string path;
    zof_jdoc_t doc;
    std::map<u32, entry_t> controls; // in a view file, by id
};

static void controls_index(placed_t *file) {
    const u32 controls = zof_jdoc_get(&file->doc, 0, "controls");
    const u32 first = controls == ZOF_J_NONE ? controls : file->doc.nodes[controls].child;
    u32 index = 0;
    for (u32 node = first; node != ZOF_J_NONE; node = file->doc.nodes[node].next, index++) {
        const u32 id = zof_jdoc_find(&file->doc, node, "property.pub_t.id");
        double number = 0;
        if (id != ZOF_J_NONE && zof_jdoc_number(&file->doc, id, &number) == 0) {
            file->controls.emplace((u32)number, entry_t{node, index});
        }
    }
}

// Never destroyed. A path is looked up in the system once for each file that is asked for.
typedef std::map<std::string, placed_t *> files_t;
static files_t &files = *new files_t, &asked = *new files_t;

void inspect_places_forget(const char *path) {
    const auto found = files.find(path);
    placed_t *file = found == files.end() ? nullptr : found->second;
    if (file) {
        zof_free((void *)file->doc.text);
        zof_jdoc_free(&file->doc);
    }
    delete file;
    files.erase(path);
    asked.clear();
}

// Returns the file, parsed at the first call, or null if it cannot be read.
static placed_t *placed(const char *path) {
    if (!path) {
        return nullptr;
    }
    const auto found = files.find(path);
    if (found != files.end()) {
        return found->second;
    }
    const std::string name = path; // the path buffer is shared
    const char *text = zof_j2s_text(path, nullptr);
    placed_t *file = text ? new placed_t{name, {}, {}} : nullptr;
    if (file && zof_jdoc_read(&file->doc, text, strlen(text)) >= 0 && file->doc.count) {
        controls_index(file);
    }
    files[name] = file;
    return file;
}

static placed_t *placed_once(const std::string &what, const std::function<const char *()> &path) {
    const auto found = asked.find(what);
    return found == asked.end() ? asked[what] = placed(path()) : found->second;
}

static placed_t *view_file(const zof_view_node_t *view) {
    const char *name = zof_view_name_get(view->attr->v_id);
    return name ? placed_once(std::string("view ") + name,
                              [&] { return zof_res_get_prjfile_path("config/view/", name); })
                : nullptr;
}

static placed_t *looks_file(const std::string &theme) {
    return placed_once("looks " + theme, [&] {
        return theme.empty() ? zof_res_get_g_file_path("config/", "looks")
                             : zof_res_get_g_file_path("config/theme/", (theme + "/looks").c_str());
    });
}

static placed_t *theme_file(const std::string &theme, u32 type) {
    return placed_once("theme " + std::to_string(type) + " " + theme,
                       [&] { return zof_res_get_theme_path(theme.c_str(), type); });
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

// Reads `style_part` or `style_state`, which may be a number or a name.
static double number(const zof_jdoc_t *doc, u32 object, const char *key, const zof_name_t *names) {
    double value = 0;
    char text[128];
    s64 named = 0;
    const u32 node = zof_jdoc_get(doc, object, key);
    if (node != ZOF_J_NONE && zof_jdoc_number(doc, node, &value) != 0 &&
        zof_jdoc_text(doc, node, text, sizeof(text)) >= 0 &&
        zof_names_read(names, names == zof_state_names, text, &named) == 0) {
        value = (double)named;
    }
    return value;
}

static cJSON *style_place(const placed_t *file, u32 node, double part, double state) {
    cJSON *style = place(file, node);
    cJSON_AddNumberToObject(style, "part", part);
    cJSON_AddNumberToObject(style, "state", state);
    return style;
}

// Adds the styles in the `styles` array of an object.
static void styles_add(cJSON *out, const placed_t *file, u32 object) {
    const u32 styles = object == ZOF_J_NONE ? object : zof_jdoc_get(&file->doc, object, "styles");
    const u32 first = styles == ZOF_J_NONE ? styles : file->doc.nodes[styles].child;
    for (u32 node = first; node != ZOF_J_NONE; node = file->doc.nodes[node].next) {
        cJSON_AddItemToArray(out, style_place(file, node, number(&file->doc, node, "style_part", zof_part_names),
                                              number(&file->doc, node, "style_state", zof_state_names)));
    }
}

static void look_style_add(cJSON *out, const placed_t *file, u32 node, const char *look, const zof_style_key_t &key) {
    cJSON *style = style_place(file, node, key.part, key.state);
    cJSON_AddStringToObject(style, "look", look);
    cJSON_AddItemToArray(out, style);
}

// Adds the styles that a file has for a look. The look object itself is the style of the main part.
static void look_in_file_add(cJSON *out, const placed_t *file, const char *look) {
    const u32 looks = file && file->doc.count ? zof_jdoc_get(&file->doc, 0, "looks") : ZOF_J_NONE;
    const u32 object = looks == ZOF_J_NONE ? looks : zof_jdoc_get(&file->doc, looks, look);
    if (object == ZOF_J_NONE) {
        return;
    }
    look_style_add(out, file, object, look, {});
    for (u32 node = file->doc.nodes[object].child; node != ZOF_J_NONE; node = file->doc.nodes[node].next) {
        char name[64];
        zof_style_key_t key;
        if (zof_jdoc_key(&file->doc, node, name, sizeof(name)) > 0 && zof_style_key_read(name, &key) == 0) {
            look_style_add(out, file, node, look, key);
        }
    }
}

// Adds the styles of a look, after those of the looks from which it inherits.
static void look_add(cJSON *out, const zof_look_t *look) {
    const std::string theme = look->theme;
    const placed_t *project = looks_file("");
    const placed_t *over = theme.empty() ? nullptr : looks_file(theme);
    std::vector<const char *> chain;
    for (const char *name = look->name; name && chain.size() < ZOF_LOOK_CHAIN_MAX;
         name = zof_look_base(look->theme, name)) {
        chain.insert(chain.begin(), name);
    }
    for (const char *name : chain) {
        look_in_file_add(out, project, name);
        look_in_file_add(out, over, name);
    }
}

static std::string theme_of(const placed_t *file, u32 node) {
    char name[64] = "";
    const u32 theme = zof_jdoc_get(&file->doc, node, "theme");
    if (theme != ZOF_J_NONE) {
        zof_jdoc_text(&file->doc, theme, name, sizeof(name));
    }
    const std::string chosen = inspect_theme();
    return chosen.empty() ? name : chosen;
}

void inspect_places_add(cJSON *out, const zof_view_node_t *view, const para_t *record) {
    const placed_t *file = view_file(view);
    const auto found = file ? file->controls.find(record->id) : std::map<u32, entry_t>::const_iterator();
    if (!file || found == file->controls.end()) {
        return;
    }
    const entry_t at = found->second;
    cJSON *entry = place(file, at.node);
    cJSON_AddStringToObject(entry, "key", ("controls[" + std::to_string(at.index) + "]").c_str());
    cJSON_AddItemToObject(out, "place", entry);
    cJSON *styles = cJSON_AddArrayToObject(out, "styles");
    const zof_look_t *look = record->attr->look;
    if (look) {
        look_add(styles, look);
    }
    const std::string theme = look ? "" : theme_of(file, at.node);
    const placed_t *themed = theme.empty() ? nullptr : theme_file(theme, record->attr->ctrl_type);
    if (themed && themed->doc.count) {
        styles_add(styles, themed, 0);
    }
    styles_add(styles, file, zof_jdoc_get(&file->doc, at.node, "property"));
}
