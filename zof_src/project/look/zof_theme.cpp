// Themes: the initial style records of a control type. A control gets shallow copies of them, which its own styles
// override key by key.
#include <stdio.h>
#include <string.h>

#include "project/base/zof_ctrl_types.h"
#include "project/base/zof_prj_cur.h"
#include "project/base/zof_prj_up.h"
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
    char chosen[64];                       // by zof_theme_set: takes precedence over the names in view files
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
    if (!self.zof_theme[type] && !self.broken[type] && self.chosen[0]) {
        self.zof_theme[type] = theme_read(self.chosen, type);
    }
    if (!self.zof_theme[type] && !self.broken[type]) {
        self.zof_theme[type] = theme_read(theme, type);
    }
    return self.zof_theme[type];
}

s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src) {
        return -1;
    }
    if (!dst->style_list || !src->style_list) {
        return 0;
    }
    for (u32 i = 0; i < src->style_num && i < dst->style_num; i++) {
        if (dst->style_list[i] && src->style_list[i]) {
            *dst->style_list[i] = *src->style_list[i];
        }
    }
    return 0;
}

static zof_style_attr_t *style_new(void) {
    zof_style_attr_t *style = (zof_style_attr_t *)zof_malloc(sizeof(zof_style_attr_t));
    if (style) {
        memset(style, 0, sizeof(*style));
    }
    return style;
}

s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src) {
    if (!dst || !src || src->style_num == 0) {
        return -1;
    }
    dst->style_list = (zof_style_attr_t **)zof_malloc(src->style_num * sizeof(zof_style_attr_t *));
    if (!dst->style_list) {
        return -1;
    }
    dst->style_num = src->style_num;
    for (u32 i = 0; i < dst->style_num; i++) {
        dst->style_list[i] = style_new();
    }
    return zof_theme_style_copy(dst, src);
}

static zof_style_attr_t *style_append(zof_pub_attr_t *record) {
    if (record->style_num == UINT8_MAX) {
        zof_printf("control %u (%s): more than %u styles, the rest is left out", record->id,
                   record->name ? record->name : "", UINT8_MAX);
        return nullptr;
    }
    size_t size = (record->style_num + 1u) * sizeof(zof_style_attr_t *);
    zof_style_attr_t **list = (zof_style_attr_t **)zof_realloc(record->style_list, size);
    if (!list) {
        return nullptr;
    }
    record->style_list = list;
    list[record->style_num] = style_new();
    if (!list[record->style_num]) {
        return nullptr;
    }
    return list[record->style_num++];
}

zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record) {
    if (!record) {
        return nullptr;
    }
    for (u32 i = 0; i < record->style_num; i++) {
        zof_style_attr_t *style = record->style_list[i];
        if (style && style->style_part == part && style->style_state == state && style->style_sect == sect) {
            return style;
        }
    }
    return style_append(record);
}

// Replaces the values that a control has from its old theme by those of the new one; its own values stay. A value equal
// to that of the old theme counts as inherited.
static void fields_follow(u8 *field, const u8 *before, const u8 *now, const reflect_item_t *table) {
    for (; table->key; table++) {
        const size_t at = table->offset;
        if (table->table) {
            fields_follow(field + at, before + at, now + at, table->table);
        } else if (memcmp(field + at, before + at, table->size) == 0) {
            memcpy(field + at, now + at, table->size);
        }
    }
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

static void view_follow(void *view) {
    const db_list *list = ((const zof_view_node_t *)view)->ctrl_list;
    const db_node *head = list ? list->head : nullptr;
    for (const db_node *at = head ? head->next : head; at != head; at = at->next) {
        const para_t *record = (const para_t *)at->data;
        zof_pub_attr_t *attr = record ? record->attr : nullptr;
        const zof_pub_attr_t *before = attr && attr->style_list ? self.zof_theme[attr->ctrl_type] : nullptr;
        const zof_pub_attr_t *now = before ? new_themes[attr->ctrl_type] : nullptr;
        for (u32 i = 0; now && i < before->style_num && i < attr->style_num; i++) {
            zof_style_attr_t *style = attr->style_list[i];
            if (!style || !before->style_list[i]) {
                continue;
            }
            fields_follow((u8 *)style, (const u8 *)before->style_list[i], (const u8 *)now->style_list[i],
                          zof_style_attr_t_tbl);
            if (style->lv_style) {
                zof_style_get_lv_value(style, style->lv_style);
            }
        }
    }
}

s32 zof_theme_set(const char *theme) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!theme || strlen(theme) >= sizeof(self.chosen) || !prj || !prj->view_list) {
        return -1;
    }
    zof_theme_remember_missing(ZOF_FALSE);
    s32 result = -1;
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        const u8 broken = self.broken[type];
        new_themes[type] = self.zof_theme[type] ? theme_read(theme, type) : nullptr;
        self.broken[type] = broken;
        if (new_themes[type] && theme_align(theme, self.zof_theme[type], new_themes[type])) {
            result = 0;
        } else if (new_themes[type]) {
            theme_free(new_themes[type], type);
            new_themes[type] = nullptr;
        }
    }
    __db_list_travel(prj->view_list, view_follow);
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        if (new_themes[type]) {
            theme_replace(type, new_themes[type]);
        }
    }
    if (result == 0) {
        snprintf(self.chosen, sizeof(self.chosen), "%s", theme);
    }
    lv_obj_report_style_change(nullptr);
    return result;
}
