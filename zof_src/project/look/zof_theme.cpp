// Themes: the initial style records of a control type. A control gets shallow copies of them, which its own styles
// override key by key.
#include <string.h>

#include "project/base/zof_ctrl_types.h"
#include "project/base/zof_prj_cur.h"
#include "project/base/zof_prj_up.h"
#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "project/read/zof_fault.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

const char *const zof_theme_name[2] = {"youth", "night"};

// Indexed only by type: the first theme requested for a type is used for the life of the process.
static struct {
    zof_pub_attr_t *zof_theme[ZOF_CTRL_TYPE_COUNT];
    u8 broken[ZOF_CTRL_TYPE_COUNT];        // its file is invalid: reported once, not once per control
    zof_bool remembers;                    // a view is being read, so `missing` is used
    char missing[ZOF_CTRL_TYPE_COUNT][32]; // the last theme found to have no file for the type
} self;

void zof_theme_remember_missing(zof_bool on) {
    self.remembers = on;
    memset(self.missing, 0, sizeof(self.missing));
}

static bool is_missing(const char *theme, u32 type) {
    return theme[0] && strcmp(theme, self.missing[type]) == 0;
}

static void missing_note(const char *theme, u32 type) {
    char *note = self.missing[type];
    if (self.remembers && strlen(theme) < sizeof(self.missing[type])) {
        strcpy(note, theme);
    }
}

static zof_pub_attr_t *theme_read(const char *theme, u32 type) {
    if (is_missing(theme, type)) {
        return nullptr;
    }
    const char *path = zof_res_get_theme_path(theme, type);
    if (!path || zof_file_get_size(path) < 0) {
        missing_note(theme, type);
        return nullptr;
    }
    zof_rootjson_t json = RootJsonGet(path);
    zof_pub_attr_t *record = nullptr;
    if (json.root) {
        const zof_fault_scope scope(path, json.root);
        const zof_colors_scope colors(theme);
        record = zof_j2s_ctrl_create(json.root, type);
        zof_j2s_get_style(json.root, record);
    }
    self.broken[type] = !record;
    RootJsonDel(&json);
    return record;
}

zof_pub_attr_t *zof_theme_get_ctrl(const char *theme, u32 type) {
    const zof_ctrl_class_t *row = zof_prj_up.ctrl_class(type);
    if (!theme || !row || row->no_theme) {
        return nullptr;
    }
    const char *chosen = zof_look_theme("");
    if (!self.zof_theme[type] && !self.broken[type] && chosen[0]) {
        self.zof_theme[type] = theme_read(chosen, type);
    }
    if (!self.zof_theme[type] && !self.broken[type]) {
        self.zof_theme[type] = theme_read(theme, type);
    }
    return self.zof_theme[type];
}

static bool same_style(const zof_style_attr_t *a, const zof_style_attr_t *b) {
    return a && b && a->style_part == b->style_part && a->style_state == b->style_state &&
           a->style_sect == b->style_sect;
}

// Controls refer to the styles of their theme by index, so the new theme gets the order of the old one. Styles that it
// lacks are taken from the old theme; additional ones are dropped, because controls keep their own styles at those
// indices. Returns false without memory, with nothing changed.
static bool theme_align(const char *name, const zof_pub_attr_t *before, zof_pub_attr_t *now) {
    auto **list = (zof_style_attr_t **)zof_malloc((before->style_num + 1u) * sizeof(zof_style_attr_t *));
    if (!list) {
        return false;
    }
    for (u32 n = 0; n < before->style_num; n++) {
        list[n] = before->style_list[n];
        for (u32 i = 0; i < now->style_num; i++) {
            if (same_style(list[n], now->style_list[i])) {
                list[n] = now->style_list[i];
                now->style_list[i] = nullptr;
                break;
            }
        }
    }
    for (u32 i = 0; i < now->style_num; i++) {
        zof_style_attr_t *rest = now->style_list[i];
        if (!rest) {
            continue;
        }
        zof_printf(
            "theme %s: %s: the style of part %u, state %u, section %u is not in the theme before and is left out", name,
            zof_prj_up.ctrl_class(now->ctrl_type)->name, rest->style_part, rest->style_state, rest->style_sect);
        FreeStyleStruct(rest);
        zof_free(rest);
    }
    zof_free(now->style_list);
    now->style_list = list;
    now->style_num = before->style_num;
    return true;
}

static void theme_free(zof_pub_attr_t *theme, u32 type) {
    for (u32 i = 0; theme->style_list && i < theme->style_num; i++) {
        if (theme->style_list[i]) {
            FreeStyleStruct(theme->style_list[i]);
            zof_free(theme->style_list[i]);
        }
    }
    zof_free(theme->style_list);
    zof_j2s_attr_free(theme, type);
}

// Releases the old theme except for the styles taken by the new one.
static void theme_replace(u32 type, zof_pub_attr_t *now) {
    zof_pub_attr_t *before = self.zof_theme[type];
    for (u32 i = 0; i < before->style_num && i < now->style_num; i++) {
        if (before->style_list[i] == now->style_list[i]) {
            before->style_list[i] = nullptr;
        }
    }
    self.zof_theme[type] = now;
    theme_free(before, type);
}

static zof_pub_attr_t *new_themes[ZOF_CTRL_TYPE_COUNT]; // during zof_theme_set

static void ctrl_follow(zof_pub_attr_t *attr) {
    const zof_pub_attr_t *before = attr->style_list ? self.zof_theme[attr->ctrl_type] : nullptr;
    const zof_pub_attr_t *now = before ? new_themes[attr->ctrl_type] : nullptr;
    for (u32 i = 0; now && i < before->style_num && i < attr->style_num; i++) {
        zof_style_attr_t *style = attr->style_list[i];
        if (!style || !before->style_list[i]) {
            continue;
        }
        zof_style_follow((u8 *)style, (const u8 *)before->style_list[i], (const u8 *)now->style_list[i],
                         zof_style_attr_t_tbl);
        if (style->lv_style) {
            zof_style_get_lv_value(style, style->lv_style);
        }
    }
}

static void view_follow(void *view) {
    const db_list *list = ((const zof_view_node_t *)view)->ctrl_list;
    const db_node *head = list ? list->head : nullptr;
    for (const db_node *at = head ? head->next : head; at != head; at = at->next) {
        para_t *record = (para_t *)at->data;
        zof_pub_attr_t *attr = record ? record->attr : nullptr;
        if (attr && attr->look) {
            zof_look_follow(attr, record->obj);
        } else if (attr) {
            ctrl_follow(attr);
        }
    }
}

// Reads the files of a theme for the types that have one. Returns false if the theme has no such file.
static bool types_read(const char *theme) {
    bool any = false;
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        const u8 broken = self.broken[type];
        new_themes[type] = self.zof_theme[type] ? theme_read(theme, type) : nullptr;
        self.broken[type] = broken;
        if (new_themes[type] && theme_align(theme, self.zof_theme[type], new_themes[type])) {
            any = true;
        } else if (new_themes[type]) {
            theme_free(new_themes[type], type);
            new_themes[type] = nullptr;
        }
    }
    return any;
}

s32 zof_theme_set(const char *theme) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!theme || strlen(theme) >= ZOF_THEME_NAME_SIZE || !prj || !prj->view_list) {
        return -1;
    }
    zof_theme_remember_missing(ZOF_FALSE);
    const bool known = types_read(theme);
    if (!zof_look_theme_exists(theme) && !known) {
        return -1;
    }
    zof_look_theme_choose(theme);
    __db_list_travel(prj->view_list, view_follow);
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        if (new_themes[type]) {
            theme_replace(type, new_themes[type]);
        }
    }
    lv_obj_report_style_change(nullptr);
    return 0;
}
