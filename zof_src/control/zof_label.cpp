// Labels. LVGL places a text at the top of its label; where a label keeps its height, this file moves the text to the
// middle or the bottom with the label's own text offset.
#include "control/zof_label.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"

static const zof_name_t long_names[] = {{"wrap", LV_LABEL_LONG_WRAP},     {"dots", LV_LABEL_LONG_DOT},
                                        {"scroll", LV_LABEL_LONG_SCROLL}, {"circle", LV_LABEL_LONG_SCROLL_CIRCULAR},
                                        {"cut", LV_LABEL_LONG_CLIP},      ZOF_NAMES_END};

// Both orders of the two words are read.
static const zof_name_t align_names[] = {
    {"auto", 0},           {"left", 1},           {"center", 2},           {"right", 3},
    {"auto top", 0x10},    {"left top", 0x11},    {"center top", 0x12},    {"right top", 0x13},
    {"auto middle", 0x20}, {"left middle", 0x21}, {"center middle", 0x22}, {"right middle", 0x23},
    {"auto bottom", 0x30}, {"left bottom", 0x31}, {"center bottom", 0x32}, {"right bottom", 0x33},
    {"top auto", 0x10},    {"top left", 0x11},    {"top center", 0x12},    {"top right", 0x13},
    {"middle auto", 0x20}, {"middle left", 0x21}, {"middle center", 0x22}, {"middle right", 0x23},
    {"bottom auto", 0x30}, {"bottom left", 0x31}, {"bottom center", 0x32}, {"bottom right", 0x33},
    ZOF_NAMES_END};

const reflect_item_t zof_label_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_label_attr_t),
    CSON_INT(zof_label_attr_t, auto_hight),
    CSON_ENUM(zof_label_attr_t, dis_mode_e, LV_LABEL_LONG_CLIP + 1, long_names),
    CSON_INT(zof_label_attr_t, animspeed),
    CSON_ENUM(zof_label_attr_t, align_e, 0x40, align_names),
    CSON_TEXT(zof_label_attr_t, txt),
    CSON_INT(zof_label_attr_t, align_label),
    CSON_END,
};

const zof_ctrl_class_t zof_label_class = {
    .type = ZOF_CTRL_LABEL,
    .name = "label",
    .attr = zof_label_attr_t_tbl,
    .attr_size = sizeof(zof_label_attr_t),
    .create = zof_label_create,
    .update_txt = zof_label_update_txt,
    .value = zof_value_text<zof_label_get_text>,
};

static zof_label_attr_t *label_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_label_attr_t>(ctrl, ZOF_CTRL_LABEL);
}

// LVGL moves a text back to the top whenever a mode is set, and in the scrolling modes whenever text, size or style
// changes.
static void place_keep(lv_obj_t *obj) {
    const zof_label_attr_t *attr = label_attr(obj);
    if (attr && attr->auto_hight == 1) {
        ((lv_label_t *)obj)->offset.y = attr->txt_y;
    }
}

static void event_place_keep(lv_event_t *e) {
    place_keep(lv_event_get_target(e));
}

static void text_show(lv_obj_t *obj, const char *text) {
    lv_label_set_text(obj, text);
    place_keep(obj);
}

// The height that whole lines of the stored text leave free. The stored text counts; for a key that is the key itself.
static lv_coord_t free_height(lv_obj_t *obj, const zof_label_attr_t *attr) {
    const lv_font_t *font = lv_obj_get_style_text_font(obj, LV_PART_MAIN);
    lv_coord_t line = lv_font_get_line_height(font);
    if (line < 1) {
        return 0;
    }
    lv_point_t size;
    lv_txt_get_size(&size, attr->txt ? attr->txt : "", font, 0, 0, attr->pub_t.size.width, LV_TEXT_FLAG_NONE);
    return lv_obj_get_height(obj) - size.y / line * line;
}

static void place_vertically(lv_obj_t *obj, zof_label_attr_t *attr, u32 align_e) {
    lv_label_t *label = (lv_label_t *)obj;
    switch (align_e & 0xF0) {
    case 0x10:
        attr->txt_y = 0;
        break;
    case 0x20:
        attr->txt_y = free_height(obj, attr) / 2;
        break;
    case 0x30:
        attr->txt_y = free_height(obj, attr);
        break;
    default:
        attr->txt_y = label->offset.y;
        return;
    }
    label->offset.y = attr->txt_y;
    lv_obj_invalidate(obj);
}

s32 zof_label_set_align(zof_ctrl_t *ctrl, u32 align_e) {
    return zof_on(ctrl, &lv_label_class, [=](lv_obj_t *obj) {
        lv_text_align_t align = (lv_text_align_t)(align_e & 0x0F);
        lv_obj_set_style_text_align(obj, align, LV_PART_MAIN);
        zof_label_attr_t *attr = label_attr(ctrl);
        if (!attr || attr->auto_hight != 1) {
            return;
        }
        zof_obj_layout(obj);
        place_vertically(obj, attr, align_e);
    });
}

s32 zof_label_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_label_attr_t *label = (zof_label_attr_t *)attr;
    if (!record || !label) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_label_create(parent);
    if (!obj) {
        return -1;
    }
    zof_obj_press_unlock(obj);
    zof_ctrl_pub_attr(record, &label->pub_t);
    zof_label_set_dis_mode(record, label->dis_mode_e);
    zof_label_set_anim_speed(record, label->animspeed);
    if (label->auto_hight != 1) {
        lv_obj_set_height(obj, LV_SIZE_CONTENT);
    }
    lv_obj_set_user_data(obj, record); // needed by the next steps already
    zof_label_set_txt(record, label->txt);
    zof_ctrl_style_add(record, label->pub_t.style_list, label->pub_t.style_num, 0);
    zof_label_set_align(record, label->align_e);
    if (label->auto_hight != 1) {
        zof_obj_layout(obj); // otherwise the alignment has done that
    }
    place_keep(obj);
    if (label->auto_hight == 1) {
        lv_obj_add_event_cb(obj, event_place_keep, LV_EVENT_STYLE_CHANGED, nullptr);
        lv_obj_add_event_cb(obj, event_place_keep, LV_EVENT_SIZE_CHANGED, nullptr);
    }
    return 0;
}

s32 zof_label_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return zof_on(ctrl, &lv_label_class, [=](lv_obj_t *obj) {
        if (!zof_txt_show(obj, text, text_show)) {
            return;
        }
        zof_label_attr_t *attr = label_attr(ctrl);
        if (!attr) {
            return;
        }
        zof_txt_change(&attr->txt, text);
        zof_label_set_align(ctrl, attr->align_e);
    });
}

char *zof_label_get_text(zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_label_class);
    return obj ? lv_label_get_text(obj) : (char *)(intptr_t)-1;
}

s32 zof_label_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_text_color(obj, zof_color_to_lv(color), LV_PART_MAIN); });
}

s32 zof_label_set_txt_size(zof_ctrl_t *ctrl, u32 size) {
    return zof_on(ctrl, &lv_label_class, [=](lv_obj_t *obj) {
        const zof_label_attr_t *attr = label_attr(ctrl);
        if (!attr) {
            return;
        }
        const lv_font_t *font = zof_txt_font(&attr->pub_t, size);
        if (font) {
            lv_obj_set_style_text_font(obj, font, LV_PART_MAIN);
        }
        zof_label_set_align(ctrl, attr->align_e);
    });
}

s32 zof_label_set_dis_mode(zof_ctrl_t *ctrl, u32 mode) {
    return zof_on(ctrl, &lv_label_class, [=](lv_obj_t *obj) {
        lv_label_set_long_mode(obj, (lv_label_long_mode_t)(mode <= LV_LABEL_LONG_CLIP ? mode : 0));
        place_keep(obj);
    });
}

s32 zof_label_set_anim_speed(zof_ctrl_t *ctrl, u32 speed) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_anim_speed(obj, speed, LV_PART_MAIN); });
}

s32 zof_label_update_txt(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_label_class, [=](lv_obj_t *obj) {
        const zof_label_attr_t *attr = label_attr(ctrl);
        if (attr && zof_lang_check_str(attr->txt)) {
            zof_txt_show(obj, attr->txt, text_show);
        }
    });
}
