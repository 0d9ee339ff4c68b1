// Keyboards, with LVGL's Pinyin input method where a project asks for it. LVGL keeps pointers from the keyboard to the
// text box and between input method, keyboard and candidates, and clears none of them when one is deleted; this file
// does.
#include "control/zof_keyboard.h"

#include <string.h>

#include "control/zof_btn_map_in.h"
#include "control/zof_btnmatrix.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_font.h"
#include "project/look/zof_style.h"

static const zof_name_t mode_names[] = {{"lower case", LV_KEYBOARD_MODE_TEXT_LOWER},
                                        {"upper case", LV_KEYBOARD_MODE_TEXT_UPPER},
                                        {"symbols", LV_KEYBOARD_MODE_SPECIAL},
                                        {"numbers", LV_KEYBOARD_MODE_NUMBER},
                                        ZOF_NAMES_END};

const reflect_item_t zof_keyboard_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_keyboard_attr_t),
    CSON_BOOL(zof_keyboard_attr_t, keyboard_spell),
    CSON_ENUM(zof_keyboard_attr_t, mode, LV_KEYBOARD_MODE_USER_4 + 1, mode_names),
    CSON_BOOL(zof_keyboard_attr_t, popovers),
    CSON_TEXT(zof_keyboard_attr_t, cn_font_lib),
    CSON_INT(zof_keyboard_attr_t, cn_font_size),
    CSON_END,
};

const zof_ctrl_class_t zof_keyboard_class = {
    .type = ZOF_CTRL_KEYBOARD,
    .name = "keyboard",
    .attr = zof_keyboard_attr_t_tbl,
    .attr_size = sizeof(zof_keyboard_attr_t),
    .create = zof_keyboard_create,
    .value = zof_value_element<zof_keyboard_get_selected_btn, zof_keyboard_get_btn_text>,
};

enum { CHECKED_DARKER = 40, CANDIDATE_ROOM = 15, CANDIDATE_FONT_MAX = 512 };

static zof_keyboard_attr_t *keyboard_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_keyboard_attr_t>(ctrl, ZOF_CTRL_KEYBOARD);
}

// Clears what was typed and hides the candidates.
static void pinyin_reset(const lv_obj_t *keyboard) {
    const zof_keyboard_attr_t *attr = keyboard_attr((const zof_ctrl_t *)keyboard);
    if (!attr || !attr->pinyin) {
        return;
    }
    lv_ime_pinyin_t *pinyin = (lv_ime_pinyin_t *)attr->pinyin;
    memset(pinyin->input_char, 0, sizeof(pinyin->input_char));
    pinyin->ta_count = 0;
    lv_obj_add_flag(pinyin->cand_panel, LV_OBJ_FLAG_HIDDEN);
}

static void event_txtbox_deleted(lv_event_t *e) {
    lv_obj_t *keyboard = (lv_obj_t *)lv_event_get_user_data(e);
    lv_keyboard_set_textarea(keyboard, nullptr);
    pinyin_reset(keyboard);
}

static void txtbox_unbind(lv_obj_t *keyboard) {
    lv_obj_t *former = lv_keyboard_get_textarea(keyboard);
    if (former) {
        lv_obj_remove_event_cb_with_user_data(former, event_txtbox_deleted, keyboard);
    }
    lv_keyboard_set_textarea(keyboard, nullptr);
    pinyin_reset(keyboard);
}

static void event_keyboard_deleted(lv_event_t *e) {
    txtbox_unbind(lv_event_get_target(e));
}

// The candidates are right above the keyboard and have its width and colours.
static void candidates_place(lv_obj_t *keyboard, lv_obj_t *panel) {
    lv_obj_set_width(panel, lv_obj_get_width(keyboard));
    lv_obj_align_to(panel, keyboard, LV_ALIGN_OUT_TOP_MID, 0, 0);
    lv_obj_set_style_bg_color(panel, lv_obj_get_style_bg_color(keyboard, LV_PART_MAIN), LV_PART_MAIN);
    lv_obj_set_style_bg_opa(panel, lv_obj_get_style_bg_opa(keyboard, LV_PART_MAIN), LV_PART_MAIN);
    lv_obj_set_style_text_color(panel, lv_obj_get_style_text_color(keyboard, LV_PART_ITEMS), LV_PART_ITEMS);
}

static lv_obj_t *candidates_of(const lv_event_t *e) {
    const zof_keyboard_attr_t *attr = (const zof_keyboard_attr_t *)e->user_data;
    return attr->pinyin ? lv_ime_pinyin_get_cand_panel(attr->pinyin) : nullptr;
}

static void event_keyboard_changed(lv_event_t *e) {
    lv_obj_t *panel = candidates_of(e);
    if (panel) {
        candidates_place(lv_event_get_target(e), panel);
    }
}

static void event_keyboard_extent(lv_event_t *e) {
    lv_obj_t *panel = candidates_of(e);
    if (panel) {
        lv_event_set_ext_draw_size(e, lv_obj_get_style_height(panel, LV_PART_MAIN));
    }
}

static void event_pinyin_deleted(lv_event_t *e) {
    zof_keyboard_attr_t *attr = (zof_keyboard_attr_t *)lv_event_get_user_data(e);
    ((lv_ime_pinyin_t *)attr->pinyin)->kb = nullptr; // LVGL would delete it
    attr->pinyin = nullptr;
}

static void event_pinyin_keyboard_deleted(lv_event_t *e) {
    zof_keyboard_attr_t *attr = (zof_keyboard_attr_t *)lv_event_get_user_data(e);
    if (attr->pinyin) {
        lv_obj_del(attr->pinyin);
    }
}

// As a child the panel is deleted, hidden, moved and faded with its keyboard, though it is outside of it.
static void candidates_adopt(lv_obj_t *keyboard, lv_obj_t *panel, u32 font_size) {
    lv_obj_set_parent(panel, keyboard);
    lv_obj_add_flag(keyboard, LV_OBJ_FLAG_OVERFLOW_VISIBLE);
    lv_obj_add_flag(panel, (lv_obj_flag_t)(LV_OBJ_FLAG_FLOATING | LV_OBJ_FLAG_IGNORE_LAYOUT));
    lv_obj_clear_flag(panel, LV_OBJ_FLAG_CLICK_FOCUSABLE); // the text box keeps its cursor
    lv_obj_set_height(panel, (lv_coord_t)font_size + CANDIDATE_ROOM);
    lv_obj_set_style_text_opa(panel, LV_OPA_COVER, LV_PART_ITEMS);
    zof_btn_map_press_fresh(panel);
}

static void pinyin_create(lv_obj_t *keyboard, lv_obj_t *parent, zof_keyboard_attr_t *attr) {
    const u32 font_size = LV_MIN(attr->cn_font_size, (u32)CANDIDATE_FONT_MAX);
    lv_obj_t *pinyin = attr->pinyin = lv_ime_pinyin_create(parent);
    if (!pinyin) {
        return;
    }
    lv_obj_add_flag(pinyin, LV_OBJ_FLAG_HIDDEN); // it shows nothing itself, but would take touches
    lv_obj_t *panel = lv_ime_pinyin_get_cand_panel(pinyin);
    candidates_adopt(keyboard, panel, font_size);
    const lv_font_t *font = zof_font_create_lvfont(attr->cn_font_lib, font_size);
    if (font) {
        lv_obj_set_style_text_font(pinyin, font, LV_PART_MAIN);
        lv_obj_set_style_text_font(panel, font, LV_PART_MAIN);
    }
    lv_ime_pinyin_set_keyboard(pinyin, keyboard); // it already has LVGL's dictionary
    lv_obj_add_event_cb(keyboard, event_keyboard_changed, LV_EVENT_SIZE_CHANGED, attr);
    lv_obj_add_event_cb(keyboard, event_keyboard_changed, LV_EVENT_STYLE_CHANGED, attr);
    lv_obj_add_event_cb(keyboard, event_keyboard_extent, LV_EVENT_REFR_EXT_DRAW_SIZE, attr);
    lv_obj_add_event_cb(keyboard, event_pinyin_keyboard_deleted, LV_EVENT_DELETE, attr);
    lv_obj_add_event_cb(pinyin, event_pinyin_deleted, LV_EVENT_DELETE, attr);
    candidates_place(keyboard, panel);
    lv_obj_refresh_ext_draw_size(keyboard);
}

static bool styles_checked(const lv_obj_t *obj) {
    const zof_keyboard_attr_t *attr = keyboard_attr((const zof_ctrl_t *)obj);
    for (u32 i = 0; attr && i < attr->pub_t.style_num; i++) {
        const zof_style_attr_t *style = attr->pub_t.style_list[i];
        if (style && style->style_part == LV_PART_ITEMS && (style->style_state & LV_STATE_CHECKED)) {
            return true;
        }
    }
    return false;
}

static void color_set(lv_obj_t *obj, lv_style_prop_t prop, lv_color_t color, u32 selector) {
    lv_style_value_t value;
    const bool has = lv_obj_get_local_style_prop(obj, prop, &value, selector) == LV_RES_OK;
    if (has && value.color.full == color.full) {
        return; // setting a style is a style change too
    }
    value.color = color;
    lv_obj_set_local_style_prop(obj, prop, value, selector);
}

// Keys such as Enter are drawn checked: a darker shade of the others, in any theme. Their captions look like those of
// the others, unless the project says otherwise; LVGL would draw them for a light theme.
static void checked_darken(lv_obj_t *obj) {
    const lv_state_t state = obj->state;
    obj->state = LV_STATE_DEFAULT;
    const lv_color_t key = lv_obj_get_style_bg_color(obj, LV_PART_ITEMS);
    const lv_color_t caption = lv_obj_get_style_text_color(obj, LV_PART_ITEMS);
    obj->state = state;
    const u32 checked = (u32)LV_PART_ITEMS | LV_STATE_CHECKED;
    color_set(obj, LV_STYLE_BG_COLOR, lv_color_darken(key, CHECKED_DARKER), checked);
    if (!styles_checked(obj)) {
        color_set(obj, LV_STYLE_TEXT_COLOR, caption, checked);
    }
}

static void event_style_changed(lv_event_t *e) {
    checked_darken(lv_event_get_target(e));
}

static void mode_set(lv_obj_t *obj, const zof_keyboard_attr_t *attr) {
    lv_keyboard_set_mode(obj, (lv_keyboard_mode_t)attr->mode);
    lv_keyboard_set_popovers(obj, attr->popovers);
}

s32 zof_keyboard_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_keyboard_attr_t *keyboard = (zof_keyboard_attr_t *)attr;
    if (!record || !keyboard) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_keyboard_create(parent);
    if (!obj) {
        return -1;
    }
    lv_obj_set_align(obj, LV_ALIGN_DEFAULT); // LVGL would measure the position from the bottom centre
    zof_ctrl_pub_attr(record, &keyboard->pub_t);
    zof_btn_map_press_fresh(obj);
    lv_obj_set_style_text_font(obj, &lv_font_montserrat_16, LV_PART_MAIN);
    lv_obj_add_event_cb(obj, event_keyboard_deleted, LV_EVENT_DELETE, nullptr);
    if (keyboard->keyboard_spell) {
        mode_set(obj, keyboard);
    } else if (keyboard->cn_font_lib) {
        pinyin_create(obj, parent, keyboard);
    }
    zof_ctrl_style_add(record, keyboard->pub_t.style_list, keyboard->pub_t.style_num, 0);
    lv_obj_set_user_data(obj, record); // needed by the next step already
    checked_darken(obj);
    lv_obj_add_event_cb(obj, event_style_changed, LV_EVENT_STYLE_CHANGED, nullptr);
    lv_obj_set_style_text_opa(obj, LV_OPA_COVER, LV_PART_ITEMS);
    lv_obj_set_style_text_opa(obj, LV_OPA_COVER, (u32)LV_PART_ITEMS | LV_STATE_PRESSED);
    return 0;
}

s32 zof_keyboard_set_txtbox(zof_ctrl_t *ctrl, zof_ctrl_t *txtbox) {
    lv_obj_t *box = zof_ctrl_obj(txtbox);
    if (!box || !lv_obj_check_type(box, &lv_textarea_class)) {
        return zof_refuse(txtbox);
    }
    return zof_on(ctrl, &lv_keyboard_class, [=](lv_obj_t *obj) {
        const bool clickable = lv_obj_has_flag(obj, LV_OBJ_FLAG_CLICKABLE);
        txtbox_unbind(obj);
        lv_keyboard_set_textarea(obj, box);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_CLICKABLE, clickable); // LVGL mistakes a state for this flag and sets it
        lv_obj_add_event_cb(box, event_txtbox_deleted, LV_EVENT_DELETE, obj);
        return 0;
    });
}

lv_obj_t *zof_keyboard_get_txtbox(zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_keyboard_class);
    return obj ? lv_keyboard_get_textarea(obj) : nullptr;
}

s32 zof_keyboard_get_selected_btn(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_btnmatrix_class, lv_btnmatrix_get_selected_btn);
}

const char *zof_keyboard_get_btn_text(zof_ctrl_t *ctrl, u32 id) {
    return zof_btnmatrix_get_btn_text(ctrl, id);
}
