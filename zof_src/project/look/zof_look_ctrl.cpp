// The styles of a control that has a look.
#include <algorithm>
#include <cstring>

#include "project/look/zof_look_in.h"
#include "project/look/zof_style.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

static const reflect_item_t key_tbl[] = {ZOF_STYLE_KEYS, CSON_END};

// Returns the style of the look for the same part, state and section.
static zof_style_attr_t look_style(const zof_look_t *look, const zof_style_attr_t *of) {
    zof_style_attr_t style = *of;
    zof_look_style(look, &style);
    return style;
}

// Returns true if `style` inherits from `base`, of the same part or of the main one.
static bool inherits(const zof_style_attr_t *style, const zof_style_attr_t *base) {
    const bool wider = base->style_part == style->style_part ? base->style_state != style->style_state
                                                             : base->style_part == LV_PART_MAIN;
    return wider && base->style_sect == style->style_sect && !(base->style_state & ~style->style_state);
}

// Takes over what the control itself says of a wider state, or of the text of its main part.
static void style_inherit(const zof_look_t *look, zof_style_attr_t *style, const zof_style_attr_t *base) {
    const zof_style_attr_t before = look_style(look, base);
    if (base->style_part == style->style_part) {
        zof_style_follow((u8 *)style, (const u8 *)&before, (const u8 *)base, zof_style_attr_t_tbl);
    } else {
        zof_style_follow((u8 *)&style->txt_t, (const u8 *)&before.txt_t, (const u8 *)&base->txt_t, zof_text_dis_t_tbl);
    }
}

static void style_overlay(cJSON *styles, zof_style_attr_t *style) {
    cJSON *json = nullptr;
    cJSON_ArrayForEach(json, styles) {
        zof_style_attr_t key = {};
        csonPeek(json, &key, key_tbl);
        if (key.style_part != style->style_part || key.style_state != style->style_state ||
            key.style_sect != style->style_sect) {
            continue;
        }
        const char *font_lib = style->txt_t.font_lib;
        const char *bg_img = style->img_t.bg_img;
        if (GetStyleStruct(json, style) != 0) {
            zof_printf("GetStyleStruct fails");
        }
        zof_look_text_keep(&style->txt_t.font_lib, font_lib);
        zof_look_text_keep(&style->img_t.bg_img, bg_img);
    }
}

// Adds a style that the look does not define, with the values that it inherits from the look.
static zof_style_attr_t *style_add(const zof_look_t *look, zof_pub_attr_t *record, const zof_style_attr_t *key) {
    const u32 count = record->style_num;
    zof_style_attr_t *style = zof_theme_style_check(key->style_part, key->style_state, key->style_sect, record);
    if (style && record->style_num > count) {
        *style = look_style(look, key);
        style->lv_style = nullptr;
    }
    return style;
}

void zof_look_apply(const zof_look_t *look, zof_pub_attr_t *record, cJSON *styles) {
    record->look = look;
    if (zof_theme_style_copy_new(record, &look->styles) == 0) { // without memory a style is null
        zof_style_attr_t **end = record->style_list + record->style_num;
        record->style_num = (u8)(std::remove(record->style_list, end, nullptr) - record->style_list);
    }
    cJSON *json = nullptr;
    cJSON_ArrayForEach(json, styles) {
        zof_style_attr_t key = {};
        csonPeek(json, &key, key_tbl);
        style_add(look, record, &key);
    }
    if (!styles || !styles->child) {
        return;
    }
    std::stable_sort(record->style_list, record->style_list + record->style_num, zof_style_before);
    for (u32 i = 0; i < record->style_num; i++) {
        for (u32 base = 0; base < i; base++) {
            if (inherits(record->style_list[i], record->style_list[base])) {
                style_inherit(look, record->style_list[i], record->style_list[base]);
            }
        }
        style_overlay(styles, record->style_list[i]);
    }
}

static void style_follow(zof_style_attr_t *style, const zof_look_t *before, const zof_look_t *now) {
    zof_style_attr_t from = *style;
    zof_style_attr_t to = *style;
    const bool had = zof_look_style(before, &from);
    if (!zof_look_style(now, &to) && had) {
        return; // the control keeps what the new theme does not mention
    }
    zof_style_follow((u8 *)style, (const u8 *)&from, (const u8 *)&to, zof_style_attr_t_tbl);
    if (style->lv_style) {
        zof_style_get_lv_value(style, style->lv_style);
    }
}

// Adds a style that only the new theme has. That of a second object, which only its control knows, shows when the
// control is created again.
static void style_arrive(zof_pub_attr_t *record, lv_obj_t *obj, const zof_style_attr_t *key) {
    const u32 count = record->style_num;
    zof_style_attr_t *style = style_add(record->look, record, key);
    if (!style || record->style_num == count) {
        return;
    }
    for (u32 base = 0; base < count; base++) {
        if (inherits(style, record->style_list[base])) {
            style_inherit(record->look, style, record->style_list[base]);
        }
    }
    if (obj && style->style_sect == 0 && zof_style_create(style)) {
        lv_obj_add_style(obj, style->lv_style, style->style_part | style->style_state);
    }
}

void zof_look_follow(zof_pub_attr_t *record, lv_obj_t *obj) {
    const zof_look_t *before = record->look;
    const zof_look_t *now = zof_look_get(zof_look_theme(""), before->name);
    if (!now || now == before) {
        return;
    }
    for (u32 i = 0; i < record->style_num; i++) {
        style_follow(record->style_list[i], before, now);
    }
    record->look = now;
    for (u32 i = 0; i < now->styles.style_num; i++) {
        style_arrive(record, obj, now->styles.style_list[i]);
    }
}
