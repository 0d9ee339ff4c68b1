// View files: checks their controls, each one alone and in relation to the others.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "control/zof_ctrl_create.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/zof_util.h"

enum { NAME_SIZE = 128 };

// Ids and names ----------------------------------------------------------------------------------------------------

static void id_check(check_run_t *c, const check_file_t *file, u32 index) {
    check_ctrl_t *ctrl = &c->ctrls.at[index];
    const u32 node = zof_jdoc_get(&file->doc, ctrl->pub, "id");
    if (ctrl->id < 1 || ctrl->id > UINT16_MAX) {
        return; // a missing or invalid id has been reported
    }
    u32 *known = &c->ctrl_of_id[ctrl->id];
    if (*known) {
        char other[NAME_SIZE] = "";
        check_text(file, c->ctrls.at[*known - 1].pub, "name", other, sizeof other);
        check_report(c, file, node, CHECK_ID, "the control %s has the id %lld already; this one is left out", other,
                     (long long)ctrl->id);
        return;
    }
    *known = index + 1;
}

struct name_t {
    char identifier[NAME_SIZE];
    u32 node;
};

// Makes an identifier as `zof ids` does: characters other than letters and digits become '_'.
static bool identifier_make(const char *name, char *out) {
    bool any = false, ascii = true;
    u32 i = 0;
    for (; name[i] && i + 1 < NAME_SIZE; i++) {
        const char c = name[i];
        const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        out[i] = !letter ? '_' : c >= 'a' && c <= 'z' ? (char)(c - 32) : c;
        any = any || letter;
        ascii = ascii && (u8)c < 0x80;
    }
    out[i] = 0;
    return any && ascii;
}

static void names_check(check_run_t *c, const check_file_t *file) {
    check_list_t<name_t> names = {};
    for (u32 i = 0; i < c->ctrls.count; i++) {
        const u32 node = zof_jdoc_get(&file->doc, c->ctrls.at[i].pub, "name");
        char name[NAME_SIZE] = "", identifier[NAME_SIZE];
        if (zof_jdoc_text(&file->doc, node, name, sizeof name) <= 0) {
            check_report_key(c, file, node == ZOF_J_NONE ? c->ctrls.at[i].pub : node, CHECK_IDENTIFIER,
                             "a control without a name has no id in programs");
        } else if (!identifier_make(name, identifier)) {
            check_report(c, file, node, CHECK_IDENTIFIER, "%s makes no readable identifier; use letters and digits",
                         name);
        } else if (name_t *made = check_add(names)) {
            std::memcpy(made->identifier, identifier, NAME_SIZE);
            made->node = node;
        }
    }
    std::sort(names.at, names.at + names.count, [](const name_t &a, const name_t &b) {
        const int order = std::strcmp(a.identifier, b.identifier);
        return order != 0 ? order < 0 : a.node < b.node;
    });
    for (u32 i = 1; i < names.count; i++) {
        if (std::strcmp(names.at[i].identifier, names.at[i - 1].identifier) == 0) {
            check_report(c, file, names.at[i].node, CHECK_IDENTIFIER, "another control of this view has the name %s",
                         names.at[i].identifier);
        }
    }
    zof_free(names.at);
}

// Parents ----------------------------------------------------------------------------------------------------------

static bool parent_later(const check_run_t *c, u32 index, s64 id) {
    for (u32 i = index + 1; i < c->ctrls.count; i++) {
        if (c->ctrls.at[i].id == id) {
            return true;
        }
    }
    return false;
}

// Types that require a parent of a certain type.
static const struct {
    u32 type, parent;
    const char *said;
} parents[] = {
    {ZOF_CTRL_TILE, ZOF_CTRL_TILEVIEW, "the parent of a tile must be a tile view"},
    {ZOF_CTRL_SCROLLCONT_OBJ, ZOF_CTRL_SCROLLCONT, "the parent of a scroll item must be a scroll container"}};

static void parent_kind_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl,
                              const check_ctrl_t *parent, u32 node) {
    for (const auto &row : parents) {
        if (ctrl->type->type == row.type && (!parent || (parent->type && parent->type->type != row.parent))) {
            check_report_key(c, file, node == ZOF_J_NONE ? ctrl->pub : node, CHECK_PARENT, "%s", row.said);
        }
    }
}

static void parent_check(check_run_t *c, const check_file_t *file, u32 index) {
    const check_ctrl_t *ctrl = &c->ctrls.at[index];
    const u32 node = zof_jdoc_get(&file->doc, ctrl->pub, "parent_id");
    const u32 known = ctrl->parent > 0 && ctrl->parent <= UINT16_MAX ? c->ctrl_of_id[ctrl->parent] : 0;
    const check_ctrl_t *parent = known && known - 1 < index ? &c->ctrls.at[known - 1] : nullptr;
    if (ctrl->parent == 0 || parent) {
        parent_kind_check(c, file, ctrl, parent, node);
    } else if (ctrl->parent == ctrl->id) {
        check_report(c, file, node, CHECK_PARENT, "a control cannot be its own parent");
    } else if (parent_later(c, index, ctrl->parent)) {
        check_report(c, file, node, CHECK_PARENT, "the parent, %lld, must come before this control",
                     (long long)ctrl->parent);
    } else {
        check_report(c, file, node, CHECK_PARENT, "no control has the id %lld", (long long)ctrl->parent);
    }
}

// Controls ---------------------------------------------------------------------------------------------------------

static void visible_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    const u32 alpha = zof_jdoc_get(&file->doc, ctrl->pub, "alpha");
    const u32 hidden = zof_jdoc_get(&file->doc, ctrl->pub, "hidden");
    const u32 type = ctrl->type->type;
    if (hidden != ZOF_J_NONE && file->doc.nodes[hidden].kind == ZOF_J_TRUE) {
        return;
    }
    if (type == ZOF_CTRL_GIF || type == ZOF_CTRL_QRCODE) { // these ignore opacity
        return;
    }
    if (alpha == ZOF_J_NONE) {
        check_report_key(c, file, ctrl->pub, CHECK_INVISIBLE, "alpha is missing: it counts as 0, which is invisible");
    } else if (check_number(file, ctrl->pub, "alpha", nullptr, 1) == 0) {
        check_report(c, file, alpha, CHECK_INVISIBLE, "alpha is 0, so the control is invisible");
    }
}

// Reports a control of a type that is made to be touched but does not accept touches.
static void touch_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    const u32 node = zof_jdoc_get(&file->doc, ctrl->pub, "t_mode");
    if (ctrl->type->touch && check_number(file, ctrl->pub, "t_mode", zof_pub_attr_t_tbl, 0) == 0) {
        check_report_key(c, file, node == ZOF_J_NONE ? ctrl->pub : node, CHECK_DEAD,
                         "%s, so touches pass through this %s; write \"t_mode\": 1",
                         node == ZOF_J_NONE ? "t_mode is missing" : "t_mode is 0", ctrl->type->name);
    }
}

static void ends_check(check_run_t *c, const check_file_t *file, u32 object, const char *low, const char *high) {
    const u32 node = zof_jdoc_get(&file->doc, object, high);
    const s64 from = check_number(file, object, low, nullptr, 0), to = check_number(file, object, high, nullptr, 0);
    if (object != ZOF_J_NONE && from >= to) {
        check_report_key(c, file, node == ZOF_J_NONE ? object : node, CHECK_ENDS, "%s, %lld, is not below %s, %lld",
                         low, (long long)from, high, (long long)to);
    }
}

// Checks that a value in the file is within its range. Without the keys of the range, nothing is reported.
static void within_check(check_run_t *c, const check_file_t *file, u32 object, const char *key, u32 range,
                         const char *low, const char *high) {
    const u32 node = zof_jdoc_get(&file->doc, object, key);
    const s64 from = check_number(file, range, low, nullptr, 0), to = check_number(file, range, high, nullptr, from);
    const s64 value = check_number(file, object, key, nullptr, from);
    if (node != ZOF_J_NONE && from < to && (value < from || value > to)) {
        check_report(c, file, node, CHECK_RANGE, "%lld is not from %s, %lld, to %s, %lld", (long long)value, low,
                     (long long)from, high, (long long)to);
    }
}

// Checks ranges of values. A chart without an axis keeps the range that the program sets.
static void ranges_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    switch (ctrl->type->type) {
    case ZOF_CTRL_BAR:
    case ZOF_CTRL_SLIDER:
        ends_check(c, file, ctrl->property, "minValue", "maxValue");
        break;
    case ZOF_CTRL_ARC:
        ends_check(c, file, zof_jdoc_get(&file->doc, ctrl->property, "range_t"), "minValue", "maxValue");
        within_check(c, file, ctrl->property, "arc_value", zof_jdoc_get(&file->doc, ctrl->property, "range_t"),
                     "minValue", "maxValue");
        break;
    case ZOF_CTRL_SPINBOX:
        ends_check(c, file, ctrl->property, "range_min", "range_max");
        within_check(c, file, ctrl->property, "i_value", ctrl->property, "range_min", "range_max");
        break;
    case ZOF_CTRL_CHART:
        if (zof_jdoc_get(&file->doc, ctrl->property, "y_max") != ZOF_J_NONE) {
            ends_check(c, file, ctrl->property, "y_min", "y_max");
        }
        break;
    default:
        break;
    }
}

// Checks that lists of captions end with an empty one.
static void captions_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    for (const char *key : {"btn_txt", "btnmatrix_txt"}) {
        const u32 array = zof_jdoc_get(&file->doc, ctrl->property, key);
        u32 last = array != ZOF_J_NONE ? file->doc.nodes[array].child : ZOF_J_NONE;
        while (last != ZOF_J_NONE && file->doc.nodes[last].next != ZOF_J_NONE) {
            last = file->doc.nodes[last].next;
        }
        if (last != ZOF_J_NONE && zof_jdoc_text(&file->doc, last, nullptr, 0) != 0) {
            check_report(c, file, last, CHECK_OPTIONS,
                         "the last caption must be an empty one, \"\", which ends the list");
        }
    }
}

static const check_file_t *theme_file(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    char name[NAME_SIZE], path[2 * NAME_SIZE];
    if (!check_text(file, ctrl->entry, "theme", name, sizeof name)) {
        return nullptr;
    }
    std::snprintf(path, sizeof path, "config/theme/%s/%s.g", name, zof_ctrl_classes[ctrl->type->type]->name);
    return check_file_find(c, path, true);
}

static void theme_name_check(check_run_t *c, const check_file_t *file, u32 node) {
    char name[NAME_SIZE], path[NAME_SIZE + 32];
    bool any = false;
    if (zof_jdoc_text(&file->doc, node, name, sizeof name) <= 0) {
        return;
    }
    std::snprintf(path, sizeof path, "config/theme/%s/", name);
    for (u32 i = 0; i < c->files.count; i++) {
        any = any || check_begins(c->files.at[i].path, "config/theme/");
        if (check_begins(c->files.at[i].path, path)) {
            return;
        }
    }
    if (any) { // `theme` is a required key, so projects without themes also name one
        check_report(c, file, node, CHECK_THEME, "there is no theme %s", name);
    }
}

static void look_name_check(check_run_t *c, const check_file_t *file, const check_ctrl_t *ctrl) {
    const u32 look = zof_jdoc_get(&file->doc, ctrl->entry, "look");
    char theme[NAME_SIZE] = "";
    check_text(file, ctrl->entry, "theme", theme, sizeof theme);
    if (look != ZOF_J_NONE && ctrl->type->parts == 0) {
        check_report_key(c, file, look, CHECK_STYLE, "a control of this type has no styles");
    } else if (look != ZOF_J_NONE) {
        check_look_use(c, file, look, theme);
    }
}

static void ctrl_check(check_run_t *c, const check_file_t *file, u32 index) {
    const check_ctrl_t ctrl = c->ctrls.at[index];
    if (!ctrl.type) {
        id_check(c, file, index); // other controls may name it as their parent
        return;
    }
    check_object(c, file, ctrl.property, ctrl.type->record, nullptr);
    id_check(c, file, index);
    parent_check(c, file, index);
    visible_check(c, file, &ctrl);
    touch_check(c, file, &ctrl);
    ranges_check(c, file, &ctrl);
    captions_check(c, file, &ctrl);
    theme_name_check(c, file, zof_jdoc_get(&file->doc, ctrl.entry, "theme"));
    look_name_check(c, file, &ctrl);
    check_actions(c, file, zof_jdoc_get(&file->doc, ctrl.entry, "on"));
    check_styles(c, file, zof_jdoc_get(&file->doc, ctrl.property, "styles"), ctrl.type, theme_file(c, file, &ctrl));
}

// Records a control. One without `property` has been reported and is not checked further.
static void ctrl_note(check_run_t *c, const check_file_t *file, u32 entry) {
    const s64 type = check_number(file, entry, "type", zof_entry_t_tbl, -1);
    const bool known = type >= 0 && type < ZOF_CTRL_TYPE_COUNT;
    const u32 property = zof_jdoc_get(&file->doc, entry, "property");
    const u32 pub = zof_jdoc_get(&file->doc, property, "pub_t");
    c->broken = c->broken || !known; // the texts of an unknown type cannot be found
    if (property == ZOF_J_NONE || file->doc.nodes[property].kind != ZOF_J_OBJECT) {
        return;
    }
    check_ctrl_t *made = check_add(c->ctrls);
    if (!made) {
        c->no_memory = true;
        return;
    }
    const u32 pt = zof_jdoc_get(&file->doc, pub, "pt"), size = zof_jdoc_get(&file->doc, pub, "size");
    const u32 bar = zof_jdoc_get(&file->doc, pub, "scrollbar_t");
    *made = {entry,
             property,
             pub,
             known ? &zof_cat_types[type] : nullptr,
             check_number(file, pub, "id", nullptr, 0),
             check_number(file, pub, "parent_id", nullptr, 0),
             check_number(file, pt, "x", nullptr, 0),
             check_number(file, pt, "y", nullptr, 0),
             check_number(file, size, "width", nullptr, 0),
             check_number(file, size, "height", nullptr, 0),
             check_number(file, bar, "dir_e", zof_scrollbar_t_tbl, 0) != 0};
}

static void ctrls_forget(check_run_t *c) {
    for (u32 i = 0; i < c->ctrls.count; i++) {
        const s64 id = c->ctrls.at[i].id;
        if (id > 0 && id <= UINT16_MAX) {
            c->ctrl_of_id[id] = 0;
        }
    }
    c->ctrls.count = 0;
}

void check_view_file(check_run_t *c, check_file_t *file) {
    check_object(c, file, 0, check_root("config/view/*"), nullptr);
    const u32 controls = zof_jdoc_get(&file->doc, 0, "controls");
    const bool has_controls = controls != ZOF_J_NONE && file->doc.nodes[controls].kind == ZOF_J_ARRAY;
    for (u32 at = has_controls ? file->doc.nodes[controls].child : ZOF_J_NONE; at != ZOF_J_NONE;
         at = file->doc.nodes[at].next) {
        if (file->doc.nodes[at].kind == ZOF_J_OBJECT) {
            ctrl_note(c, file, at);
        }
    }
    for (u32 i = 0; i < c->ctrls.count; i++) {
        ctrl_check(c, file, i);
    }
    names_check(c, file);
    check_geometry(c, file);
    ctrls_forget(c);
}
