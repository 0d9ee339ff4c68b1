// The operations that every control has. Each is one call on the LVGL object behind the handle, or -1 without one.
#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

s32 zof_ctrl_set_pos(zof_ctrl_t *ctrl, s32 x, s32 y) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_pos(obj, x, y); });
}

s32 zof_ctrl_set_x(zof_ctrl_t *ctrl, s32 x) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_x(obj, x); });
}

s32 zof_ctrl_set_y(zof_ctrl_t *ctrl, s32 y) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_y(obj, y); });
}

s32 zof_ctrl_get_x(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_x);
}

s32 zof_ctrl_get_y(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_y);
}

s32 zof_ctrl_set_size(zof_ctrl_t *ctrl, s32 width, s32 height) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_size(obj, width, height); });
}

s32 zof_ctrl_get_width(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_width);
}

s32 zof_ctrl_get_height(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_height);
}

// An open drop list is on the screen, not within its control, so it would stay when the control is hidden.
static lv_obj_tree_walk_res_t list_close(lv_obj_t *obj, void *) {
    if (lv_obj_has_class(obj, &lv_dropdown_class) && lv_dropdown_is_open(obj)) {
        lv_dropdown_close(obj);
    }
    return LV_OBJ_TREE_WALK_NEXT;
}

s32 zof_ctrl_set_hidden(zof_ctrl_t *ctrl, zof_bool hidden) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        zof_obj_flag_set(obj, LV_OBJ_FLAG_HIDDEN, hidden);
        if (hidden) {
            lv_obj_tree_walk(obj, list_close, nullptr);
        }
    });
}

s32 zof_ctrl_get_hidden(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [](lv_obj_t *obj) { return lv_obj_has_flag(obj, LV_OBJ_FLAG_HIDDEN); });
}

s32 zof_ctrl_set_alpha(zof_ctrl_t *ctrl, u8 alpha) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_opa(obj, alpha, LV_PART_MAIN); });
}

s32 zof_ctrl_set_touch(zof_ctrl_t *ctrl, u32 touch) {
    if (touch > 1) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) { zof_obj_flag_set(obj, LV_OBJ_FLAG_CLICKABLE, touch); });
}

s32 zof_ctrl_set_ext_click_area(zof_ctrl_t *ctrl, s32 pixels) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_ext_click_area(obj, zof_coord_to_lv(pixels)); });
}

s32 zof_ctrl_set_align(zof_ctrl_t *ctrl, zof_ctrl_t *base, u32 align, s32 x, s32 y) {
    lv_obj_t *to = zof_obj_of(base, nullptr);
    if (!to) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        if (!lv_obj_get_parent(obj)) { // a view's own object
            return -1;
        }
        lv_obj_align_to(obj, to, (lv_align_t)align, zof_coord_to_lv(x), zof_coord_to_lv(y));
        return 0;
    });
}

// A view's own object has no parent to move within.
static s32 move_to(zof_ctrl_t *ctrl, s32 index, ZOF_CALLER) {
    const auto move = [=](lv_obj_t *obj) {
        if (!lv_obj_get_parent(obj)) {
            return -1;
        }
        lv_obj_move_to_index(obj, index);
        lv_obj_update_layout(obj);
        return 0;
    };
    return zof_on(ctrl, move, function, site);
}

s32 zof_ctrl_move_forground(zof_ctrl_t *ctrl) {
    return move_to(ctrl, -1);
}

s32 zof_ctrl_move_background(zof_ctrl_t *ctrl) {
    return move_to(ctrl, 0);
}

s32 zof_ctrl_set_scrollbar(zof_ctrl_t *ctrl, const zof_scrollbar_t *sb) {
    if (!sb) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_scrollbar_mode(obj, (lv_scrollbar_mode_t)sb->mode_e);
        lv_obj_set_scroll_dir(obj, (lv_dir_t)sb->dir_e);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_SCROLL_CHAIN_HOR, sb->chain_e == 1 || sb->chain_e == 3);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_SCROLL_CHAIN_VER, sb->chain_e == 2 || sb->chain_e == 3);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_SCROLL_MOMENTUM, sb->momentum);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_SCROLL_ELASTIC, sb->elastic);
        zof_obj_flag_set(obj, LV_OBJ_FLAG_SCROLL_ONE, sb->scroll_one);
    });
}

s32 zof_ctrl_get_child_sum(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_child_cnt);
}

zof_ctrl_t *zof_ctrl_get_child(zof_ctrl_t *ctrl, s32 index) {
    lv_obj_t *obj = zof_obj_of(ctrl, nullptr);
    return obj ? lv_obj_get_child(obj, index) : nullptr;
}

s32 zof_ctrl_get_coords(zof_ctrl_t *ctrl, lv_area_t *area) {
    if (!area) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_get_coords(obj, area); });
}

s32 zof_ctrl_set_scroll_dir_x(zof_ctrl_t *ctrl, u32 snap) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_scroll_snap_x(obj, (lv_scroll_snap_t)snap); });
}

s32 zof_ctrl_set_scroll_dir_y(zof_ctrl_t *ctrl, u32 snap) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_scroll_snap_y(obj, (lv_scroll_snap_t)snap); });
}

s32 zof_ctrl_set_scroll_dir(zof_ctrl_t *ctrl, u32 dir) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_scroll_dir(obj, (lv_dir_t)dir); });
}

static lv_anim_enable_t anim(u32 animate) {
    return animate ? LV_ANIM_ON : LV_ANIM_OFF;
}

s32 zof_ctrl_scroll_view(zof_ctrl_t *ctrl, u32 animate) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        if (lv_obj_get_parent(obj)) {
            lv_obj_scroll_to_view(obj, anim(animate));
        }
    });
}

s32 zof_ctrl_scroll_set(zof_ctrl_t *ctrl, s32 x, s32 y, u32 animate) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_scroll_to_x(obj, zof_coord_to_lv(x), anim(animate));
        lv_obj_scroll_to_y(obj, zof_coord_to_lv(y), anim(animate));
    });
}

s32 zof_ctrl_scroll_get_x(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_scroll_x);
}

s32 zof_ctrl_scroll_get_y(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_scroll_y);
}

s32 zof_ctrl_child_not_scroll(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [](lv_obj_t *obj) { lv_obj_add_flag(obj, LV_OBJ_FLAG_IGNORE_LAYOUT | LV_OBJ_FLAG_FLOATING); });
}

s32 zof_ctrl_child_get_scroll(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [](lv_obj_t *obj) { return lv_obj_has_flag(obj, LV_OBJ_FLAG_FLOATING); });
}

s32 zof_ctrl_update_location(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_update_layout);
}

s32 zof_ctrl_force_refresh(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_invalidate);
}

// A quarter turn is drawn one degree further than asked. Projects were drawn with that in mind, so it stays.
static s32 angle_tenths(u16 angle) {
    if (angle % 360 == 0) {
        return 0;
    }
    u16 degrees = angle % 180 == 90 ? (u16)(angle + 1) : angle;
    return degrees * 10;
}

s32 zof_ctrl_rotate_angel(zof_ctrl_t *ctrl, s32 x, s32 y, u16 angle) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_style_transform_pivot_x(obj, x, LV_PART_MAIN);
        lv_obj_set_style_transform_pivot_y(obj, y, LV_PART_MAIN);
        lv_obj_set_style_transform_angle(obj, angle_tenths(angle), LV_PART_MAIN);
    });
}

s32 zof_ctrl_translate_x(zof_ctrl_t *ctrl, s32 x) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_translate_x(obj, x, LV_PART_MAIN); });
}

s32 zof_ctrl_translate_y(zof_ctrl_t *ctrl, s32 y) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_translate_y(obj, y, LV_PART_MAIN); });
}

// LVGL takes the zoom in 16 bits, and divides by it.
s32 zof_ctrl_zoom_set(zof_ctrl_t *ctrl, u32 zoom) {
    s16 kept = (s16)LV_CLAMP(1u, zoom, (u32)INT16_MAX);
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_transform_zoom(obj, kept, LV_PART_MAIN); });
}

s32 zof_ctrl_zoom_pivot(zof_ctrl_t *ctrl, s32 x, s32 y) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_style_transform_pivot_x(obj, x, LV_PART_MAIN);
        lv_obj_set_style_transform_pivot_y(obj, y, LV_PART_MAIN);
    });
}

s32 zof_ctrl_state_judge(zof_ctrl_t *ctrl, u32 state) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { return lv_obj_has_state(obj, (lv_state_t)state); });
}

s32 zof_ctrl_add_state(zof_ctrl_t *ctrl, u32 state) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_add_state(obj, (lv_state_t)state); });
}

s32 zof_ctrl_clear_state(zof_ctrl_t *ctrl, u32 state) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_clear_state(obj, (lv_state_t)state); });
}

s32 zof_ctrl_checked(zof_ctrl_t *ctrl) {
    return zof_ctrl_state_judge(ctrl, LV_STATE_CHECKED) == 1 ? 1 : 0;
}

s32 zof_ctrl_get_state(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_state);
}

s32 zof_ctrl_set_child_clip_corner(zof_ctrl_t *ctrl, zof_bool clip) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_clip_corner(obj, clip != ZOF_FALSE, LV_PART_MAIN); });
}

s32 zof_ctrl_set_gesture_bubble(zof_ctrl_t *ctrl, zof_bool bubble) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { zof_obj_flag_set(obj, LV_OBJ_FLAG_GESTURE_BUBBLE, bubble); });
}

s32 zof_ctrl_style_set_bg_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_bg_color(obj, zof_color_to_lv(color), selector); });
}

s32 zof_ctrl_style_set_bg_grad_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_bg_grad_color(obj, zof_color_to_lv(color), selector); });
}

s32 zof_ctrl_style_set_bg_opa(zof_ctrl_t *ctrl, u8 opa, u32 selector) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_bg_opa(obj, opa, selector); });
}

s32 zof_ctrl_style_set_bg_grad_dir(zof_ctrl_t *ctrl, u32 dir, u32 selector) {
    return zof_on(
        ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_bg_grad_dir(obj, (lv_grad_dir_t)(dir < 3 ? dir : 0), selector); });
}

s32 zof_ctrl_gesture_check(zof_ctrl_t *ctrl) {
    const lv_indev_t *indev = lv_indev_get_act();
    if (!ctrl) {
        return -1;
    }
    return indev ? lv_indev_get_gesture_dir(indev) : 0;
}

s32 zof_square_root(u32 x, lv_sqrt_res_t *result) {
    if (!result) {
        return -1;
    }
    lv_sqrt(x, result, 0x8000);
    return 0;
}

s32 zof_map_relation(s32 x, s32 min_in, s32 max_in, s32 min_out, s32 max_out) {
    return lv_map(x, min_in, max_in, min_out, max_out);
}
