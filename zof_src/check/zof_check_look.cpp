// Appearance: styles must be for existing parts and states, theme files for existing types, and controls must lie in
// the visible area.
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "control/zof_ctrl_create.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/zof_util.h"

// Styles -----------------------------------------------------------------------------------------------------------

struct style_key_t {
    s64 part, state, sect;
};

// Returns true if the part, state and section of a style can be read. An unreadable one has been reported.
static bool key_readable(const check_file_t *file, u32 style) {
    for (const char *key : {"style_part", "style_state", "style_sect"}) {
        if (zof_jdoc_get(&file->doc, style, key) != ZOF_J_NONE &&
            check_number(file, style, key, zof_style_attr_t_tbl, -1) == -1) {
            return false;
        }
    }
    return true;
}

static style_key_t key_of(const check_file_t *file, u32 style) {
    return {check_number(file, style, "style_part", zof_style_attr_t_tbl, 0),
            check_number(file, style, "style_state", zof_style_attr_t_tbl, 0),
            check_number(file, style, "style_sect", zof_style_attr_t_tbl, 0)};
}

static void key_report(check_run_t *c, const check_file_t *file, u32 style, const char *key, const zof_cat_type_t *type,
                       const char *what) {
    const u32 node = zof_jdoc_get(&file->doc, style, key);
    check_report(c, file, node == ZOF_J_NONE ? style : node, CHECK_STYLE, "a %s does not have this %s", type->name,
                 what);
}

static void style_check(check_run_t *c, const check_file_t *file, u32 style, const zof_cat_type_t *type) {
    const style_key_t key = key_of(file, style);
    const s64 part = key.part >> 16;
    if (part < 0 || part > 31 || !(type->parts >> part & 1)) {
        key_report(c, file, style, "style_part", type, "part");
    }
    if (key.state & ~(s64)type->states) {
        key_report(c, file, style, "style_state", type, "state");
    }
    if (key.sect < 0 || key.sect >= type->sections) {
        key_report(c, file, style, "style_sect", type, "section");
    }
    for (u32 at = file->doc.nodes[file->doc.nodes[style].parent].child; at != style; at = file->doc.nodes[at].next) {
        const style_key_t other = key_of(file, at);
        if (key_readable(file, at) && std::memcmp(&other, &key, sizeof key) == 0) {
            check_report(c, file, style, CHECK_STYLE_TWICE, "another style is for the same part, state and section");
            return;
        }
    }
}

// Keys that have no effect without `opa` beside them.
static const struct {
    const char *object, *keys[3];
} painted[] = {{"body_t", {"main_color", "grad_color"}}, {"txt_t", {"color", "font_lib"}}};

// Returns true if the theme has a style for the same part, state and section with this value.
static bool theme_has(const check_file_t *theme, style_key_t key, const char *path) {
    const u32 styles = theme && check_file_whole(theme) ? zof_jdoc_get(&theme->doc, 0, "styles") : ZOF_J_NONE;
    u32 at = styles != ZOF_J_NONE ? theme->doc.nodes[styles].child : ZOF_J_NONE;
    for (; at != ZOF_J_NONE; at = theme->doc.nodes[at].next) {
        const style_key_t other = key_of(theme, at);
        if (std::memcmp(&other, &key, sizeof key) == 0 && zof_jdoc_find(&theme->doc, at, path) != ZOF_J_NONE) {
            return true;
        }
    }
    return false;
}

// Reports a colour or a font that is invisible because its opacity is missing and counts as 0.
static void opacity_check(check_run_t *c, const check_file_t *file, u32 style, const check_file_t *theme) {
    for (const auto &row : painted) {
        char path[32];
        const u32 object = zof_jdoc_get(&file->doc, style, row.object);
        std::snprintf(path, sizeof path, "%s.opa", row.object);
        for (u32 i = 0; row.keys[i]; i++) {
            const u32 node = zof_jdoc_get(&file->doc, object, row.keys[i]);
            if (node != ZOF_J_NONE && zof_jdoc_get(&file->doc, object, "opa") == ZOF_J_NONE &&
                !theme_has(theme, key_of(file, style), path)) {
                check_report_key(c, file, node, CHECK_INVISIBLE, "%s is not seen: opa is missing and counts as 0",
                                 row.keys[i]);
                break;
            }
        }
    }
}

void check_styles(check_run_t *c, const check_file_t *file, u32 styles, const zof_cat_type_t *type,
                  const check_file_t *theme) {
    if (styles == ZOF_J_NONE || file->doc.nodes[styles].kind != ZOF_J_ARRAY) {
        return;
    }
    if (type->parts == 0 && file->doc.nodes[styles].child != ZOF_J_NONE) {
        check_report_key(c, file, styles, CHECK_STYLE, "a control of this type has no styles");
        return;
    }
    for (u32 at = file->doc.nodes[styles].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        if (file->doc.nodes[at].kind == ZOF_J_OBJECT && key_readable(file, at)) {
            style_check(c, file, at, type);
            if (!check_has_look(file, at)) {
                opacity_check(c, file, at, theme);
            }
        }
    }
}

// Themes -----------------------------------------------------------------------------------------------------------

// Returns the control type after which a theme file is named, or null after a report.
static const zof_cat_type_t *theme_type(check_run_t *c, const check_file_t *file) {
    const char *slash = std::strrchr(file->path, '/');
    const char *meant = nullptr;
    char name[64];
    std::snprintf(name, sizeof name, "%.*s", (int)std::strcspn(slash + 1, "."), slash + 1);
    u32 least = ZOF_TEXT_NEAR;
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        const char *known = zof_ctrl_classes[type]->name;
        if (std::strcmp(known, name) == 0) {
            return &zof_cat_types[type];
        }
        meant = zof_text_nearer(name, known, &least) ? known : meant;
    }
    check_report(c, file, 0, CHECK_THEME, "no control type has a theme file of this name%s%s%s",
                 meant ? "; did you mean " : "", meant ? meant : "", meant ? "?" : "");
    return nullptr;
}

void check_theme_file(check_run_t *c, const check_file_t *file) {
    const zof_cat_type_t *type = theme_type(c, file);
    const zof_cat_record_t *root = check_root("config/theme/*/*.g");
    for (u32 at = file->doc.nodes[0].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        char name[64];
        zof_jdoc_key(&file->doc, at, name, sizeof name);
        const zof_cat_key_t *key = zof_cat_key(root, name);
        if (key && !(key->flags & ZOF_CAT_IGNORED)) {
            check_value(c, file, at, root, key);
        } else if (!key && !(type && zof_cat_key(type->record, name))) { // keys of the type are accepted but not used
            check_report_key(c, file, at, CHECK_KEY_UNKNOWN, "unknown key %s in a theme", name);
        }
    }
    if (type) {
        check_styles(c, file, zof_jdoc_get(&file->doc, 0, "styles"), type, nullptr);
    }
}

// Places -----------------------------------------------------------------------------------------------------------

// Returns true for types whose size follows from their content instead of the file, or whose parent places them.
static bool places_itself(const check_file_t *file, const check_ctrl_t *ctrl) {
    if (!ctrl->type) {
        return true;
    }
    switch (ctrl->type->type) {
    case ZOF_CTRL_LABEL:
        return check_number(file, ctrl->property, "auto_hight", nullptr, 0) == 0;
    case ZOF_CTRL_IMGBTN:
    case ZOF_CTRL_LINE:
    case ZOF_CTRL_CB:
    case ZOF_CTRL_IMG:
    case ZOF_CTRL_GIF:
    case ZOF_CTRL_QRCODE:
    case ZOF_CTRL_ANIMIMG:
    case ZOF_CTRL_ROLLIST:
    case ZOF_CTRL_TILE:
    case ZOF_CTRL_SCROLLCONT_OBJ:
        return true;
    default:
        return false;
    }
}

// Returns false if a number of the control's position or size is out of range, which has been reported.
static bool is_placed(const check_file_t *file, const check_ctrl_t *ctrl) {
    static const char *const places[] = {"x", "y", nullptr}, *const sizes[] = {"width", "height", nullptr};
    const zof_cat_record_t *pub = zof_cat_key(ctrl->type->record, "pub_t")->record;
    return check_all_in_range(file, zof_jdoc_get(&file->doc, ctrl->pub, "pt"), zof_cat_key(pub, "pt")->record,
                              places) &&
           check_all_in_range(file, zof_jdoc_get(&file->doc, ctrl->pub, "size"), zof_cat_key(pub, "size")->record,
                              sizes);
}

static bool is_hidden(const check_file_t *file, const check_ctrl_t *ctrl) {
    const u32 hidden = zof_jdoc_get(&file->doc, ctrl->pub, "hidden");
    return hidden != ZOF_J_NONE && file->doc.nodes[hidden].kind == ZOF_J_TRUE;
}

static void outside_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl, s64 width, s64 height,
                          const char *outer) {
    const bool fixed = !places_itself(file, ctrl);
    const u32 pt = zof_jdoc_get(&file->doc, ctrl->pub, "pt");
    const u32 place = pt == ZOF_J_NONE ? ctrl->pub : pt;
    const bool gone =
        ctrl->x >= width || ctrl->y >= height || (fixed && (ctrl->x + ctrl->width <= 0 || ctrl->y + ctrl->height <= 0));
    const bool cut =
        fixed && (ctrl->x < 0 || ctrl->y < 0 || ctrl->x + ctrl->width > width || ctrl->y + ctrl->height > height);
    if (gone || cut) {
        check_report_key(c, file, place, CHECK_OUTSIDE, "%lld,%lld %lld x %lld is %s %s, %lld x %lld",
                         (long long)ctrl->x, (long long)ctrl->y, (long long)ctrl->width, (long long)ctrl->height,
                         gone ? "outside" : "partly outside", outer, (long long)width, (long long)height);
    }
}

static void size_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    const u32 size = zof_jdoc_get(&file->doc, ctrl->pub, "size");
    if (size != ZOF_J_NONE && !places_itself(file, ctrl) && (ctrl->width == 0 || ctrl->height == 0)) {
        check_report_key(c, file, size, CHECK_INVISIBLE, "%s is 0, so the control is invisible",
                         ctrl->width == 0 ? "the width" : "the height");
    }
}

void check_geometry(check_run_t *c, const check_file_t *file) {
    for (u32 i = 0; i < c->ctrls.count; i++) {
        const check_ctrl_t *ctrl = &c->ctrls.at[i];
        const u32 type = ctrl->type ? ctrl->type->type : (u32)ZOF_CTRL_TILE;
        if (is_hidden(file, ctrl) || type == ZOF_CTRL_TILE || type == ZOF_CTRL_SCROLLCONT_OBJ ||
            !is_placed(file, ctrl)) {
            continue;
        }
        size_check(c, file, ctrl);
        const u32 known = ctrl->parent > 0 && ctrl->parent <= UINT16_MAX ? c->ctrl_of_id[ctrl->parent] : 0;
        const check_ctrl_t *parent = known && known - 1 < i ? &c->ctrls.at[known - 1] : nullptr;
        if (ctrl->parent == 0 && c->width > 0 && c->height > 0) {
            outside_check(c, file, ctrl, c->width, c->height, "the screen");
        } else if (parent && !parent->scrolls && !places_itself(file, parent) && is_placed(file, parent)) {
            outside_check(c, file, ctrl, parent->width, parent->height, "its parent");
        }
    }
}
