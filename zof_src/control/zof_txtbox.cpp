// Text boxes. LVGL filters what a box accepts one character at a time, each with a layout and an event, and in password
// mode not at all; so texts are filtered here, in one go, and passed on with the limits lifted.
#include "control/zof_txtbox.h"

#include <string.h>

#include "control/zof_ctrl_in.h"
#include "control/zof_cursor.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

static const zof_name_t line_names[] = {{"one line", 0}, {"several lines", 1}, ZOF_NAMES_END};

const reflect_item_t zof_txtbox_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_txtbox_attr_t),
    CSON_ENUM(zof_txtbox_attr_t, line_mode, 0, line_names),
    CSON_ENUM(zof_txtbox_attr_t, txt_align_e, LV_TEXT_ALIGN_RIGHT + 1, zof_text_align_names),
    CSON_ENUM(zof_txtbox_attr_t, holder_txt_align_e, LV_TEXT_ALIGN_RIGHT + 1, zof_text_align_names),
    CSON_TEXT(zof_txtbox_attr_t, accept_txt),
    CSON_INT(zof_txtbox_attr_t, max_txt_len),
    CSON_TEXT(zof_txtbox_attr_t, p_holder_txt),
    CSON_TEXT(zof_txtbox_attr_t, init_txt),
    CSON_BOOL(zof_txtbox_attr_t, pwd_mode_en),
    CSON_INT(zof_txtbox_attr_t, pwd_char_show_time),
    CSON_OBJ(zof_txtbox_attr_t, cursor_style_t, zof_cursor_style_attr_t_tbl),
    CSON_END,
};

const zof_ctrl_class_t zof_txtbox_class = {
    .type = ZOF_CTRL_TXTBOX,
    .name = "txtbox",
    .attr = zof_txtbox_attr_t_tbl,
    .attr_size = sizeof(zof_txtbox_attr_t),
    .create = zof_txtbox_create,
    .value = zof_value_text<zof_txtbox_get_text>,
};

// A box that is being passed a text, with the limits that are lifted meanwhile. Its events may pass it another one.
typedef struct lift {
    lv_obj_t *obj;
    const char *accepted;
    u32 max;
    const struct lift *outer;
} lift_t;

static const lift_t *lifts;

// Spin boxes are text areas too, with texts of their own.
template <typename F> static s32 on_box(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    const lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (!obj || !lv_obj_check_type(obj, &lv_textarea_class)) {
        return zof_refuse(ctrl, function, site);
    }
    return zof_on(ctrl, std::forward<F>(fn));
}

// Bytes of the UTF-8 character at `at`, 0 for an invalid one. LVGL decodes by the first byte alone.
static u32 char_size(const char *at) {
    const u8 first = (u8)*at;
    u32 size = first < 0x80   ? first != 0
               : first < 0xC0 ? 0
               : first < 0xE0 ? 2
               : first < 0xF0 ? 3
               : first < 0xF8 ? 4
                              : 0;
    for (u32 i = 1; i < size; i++) {
        if (((u8)at[i] & 0xC0) != 0x80) {
            return 0;
        }
    }
    return size;
}

static bool is_accepted(const lift_t *box, const char *at, u32 size) {
    if (lv_textarea_get_one_line(box->obj) && (*at == '\n' || *at == '\r')) {
        return false;
    }
    char one[5] = {};
    memcpy(one, at, size);
    return !box->accepted || !box->accepted[0] || strstr(box->accepted, one);
}

// The part of a text that the box accepts, given that it already has `length` characters; null without memory.
static char *text_taken(const lift_t *box, const char *text, u32 length) {
    const u32 max =
        box->max ? box->max : (u32)LV_TEXTAREA_CURSOR_LAST; // LVGL's cursor cannot reach the end beyond this
    char *taken = (char *)zof_malloc(strlen(text) + 1);
    char *end = taken;
    while (taken && *text && length < max) {
        const u32 size = char_size(text);
        if (size && is_accepted(box, text, size)) {
            memcpy(end, text, size);
            end += size;
            length++;
        }
        text += size ? size : 1;
    }
    if (end) {
        *end = 0;
    }
    return taken;
}

static lift_t lift_of(lv_obj_t *obj) {
    for (const lift_t *at = lifts; at; at = at->outer) {
        if (at->obj == obj) {
            return {obj, at->accepted, at->max, lifts};
        }
    }
    return {obj, lv_textarea_get_accepted_chars(obj), lv_textarea_get_max_length(obj), lifts};
}

// Passes a filtered text to LVGL.
static s32 text_hand_over(lv_obj_t *obj, const char *text, u32 length, void (*put)(lv_obj_t *, const char *)) {
    lift_t lift = lift_of(obj);
    char *taken = text_taken(&lift, text, length);
    if (!taken) {
        return -1;
    }
    lifts = &lift;
    lv_textarea_set_accepted_chars(obj, nullptr);
    lv_textarea_set_max_length(obj, 0);
    put(obj, taken);
    zof_free(taken);
    lifts = lift.outer;
    lv_textarea_set_accepted_chars(obj, lift.accepted);
    lv_textarea_set_max_length(obj, lift.max);
    return 0;
}

// Moves the cursor to the end and scrolls there, for which the box must have its size and font by now. LVGL would
// scroll with an animation, which ends at the next layout of the box.
static void end_show(lv_obj_t *obj) {
    lv_obj_enable_style_refresh(true);
    lv_obj_refresh_style(obj, LV_PART_ANY, LV_STYLE_PROP_ANY);
    zof_obj_layout(obj);
    zof_obj_layout(lv_textarea_get_label(obj));
    lv_textarea_set_cursor_pos(obj, LV_TEXTAREA_CURSOR_LAST);
    lv_obj_scroll_by(obj, -LV_MAX(lv_obj_get_scroll_right(obj), 0), -LV_MAX(lv_obj_get_scroll_bottom(obj), 0),
                     LV_ANIM_OFF);
}

s32 zof_txtbox_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_txtbox_attr_t *box = (zof_txtbox_attr_t *)attr;
    if (!record || !box) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_textarea_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &box->pub_t);
    lv_textarea_set_one_line(obj, box->line_mode != 1);
    lv_obj_set_style_text_align(obj, (lv_text_align_t)box->txt_align_e, LV_PART_MAIN);
    lv_obj_set_style_text_align(obj, (lv_text_align_t)box->holder_txt_align_e, LV_PART_TEXTAREA_PLACEHOLDER);
    lv_textarea_set_accepted_chars(obj, box->accept_txt); // LVGL refers to it; the record outlives the object
    lv_textarea_set_max_length(obj, box->max_txt_len);
    lv_textarea_set_placeholder_text(obj, box->p_holder_txt ? box->p_holder_txt : "");
    lv_textarea_set_password_mode(obj, box->pwd_mode_en);
    lv_textarea_set_password_show_time(obj, box->pwd_char_show_time);
    zof_txtbox_set_text(record, box->init_txt);
    const u32 focused = (u32)LV_PART_CURSOR | LV_STATE_FOCUSED;
    zof_cursor_style_set(obj, &box->cursor_style_t, focused, ZOF_FALSE);
    zof_ctrl_style_add(record, box->pub_t.style_list, box->pub_t.style_num, 0);
    end_show(obj);
    return 0;
}

s32 zof_txtbox_add_txt(zof_ctrl_t *ctrl, const char *text) {
    if (!text) {
        return -1;
    }
    return on_box(ctrl, [=](lv_obj_t *obj) {
        return text_hand_over(obj, text, _lv_txt_get_encoded_length(lv_textarea_get_text(obj)), lv_textarea_add_text);
    });
}

s32 zof_txtbox_add_char(zof_ctrl_t *ctrl, u32 character) {
    const char text[] = {(char)character, (char)(character >> 8), (char)(character >> 16), (char)(character >> 24), 0};
    return char_size(text) && char_size(text) == strlen(text) ? zof_txtbox_add_txt(ctrl, text) : -1;
}

s32 zof_txtbox_del_char(zof_ctrl_t *ctrl) {
    return on_box(ctrl, lv_textarea_del_char);
}

s32 zof_txtbox_del_char_forward(zof_ctrl_t *ctrl) {
    return on_box(ctrl, lv_textarea_del_char_forward);
}

s32 zof_txtbox_set_text(zof_ctrl_t *ctrl, const char *text) {
    return text ? on_box(ctrl, [=](lv_obj_t *obj) { return text_hand_over(obj, text, 0, lv_textarea_set_text); }) : -1;
}

const char *zof_txtbox_get_text(zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (!obj || !lv_obj_check_type(obj, &lv_textarea_class)) {
        zof_refuse(ctrl);
        return (const char *)(intptr_t)-1;
    }
    return lv_textarea_get_text(obj);
}

s32 zof_txtbox_pwd_mode(zof_ctrl_t *ctrl, zof_bool on) {
    return on_box(ctrl, [=](lv_obj_t *obj) { lv_textarea_set_password_mode(obj, on); });
}

s32 zof_txtbox_cursor_move(zof_ctrl_t *ctrl, u32 where) {
    static void (*const moves[])(lv_obj_t *) = {lv_textarea_cursor_right, lv_textarea_cursor_left,
                                                lv_textarea_cursor_down, lv_textarea_cursor_up};
    return on_box(ctrl, [=](lv_obj_t *obj) {
        if (where < sizeof(moves) / sizeof(moves[0])) {
            moves[where](obj);
        }
    });
}

s32 zof_txtbox_set_cursor_type(zof_ctrl_t *ctrl, u32 cursor_e, zof_color_t color, u8 width, u8 opa, u32 animtime,
                               u32 selector, zof_bool with_bg) {
    const zof_cursor_style_attr_t cursor = {cursor_e, color, width, opa, animtime};
    return zof_on(ctrl, &lv_textarea_class,
                  [&](lv_obj_t *obj) { return zof_cursor_style_set(obj, &cursor, selector, with_bg); });
}
