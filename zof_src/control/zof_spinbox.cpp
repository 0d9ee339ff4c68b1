// Spin boxes: a number with a fixed count of digits, changed by a step that the cursor chooses.
#include "control/zof_spinbox.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_cursor.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_spinbox_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_spinbox_attr_t),
    CSON_INT(zof_spinbox_attr_t, range_min),
    CSON_INT(zof_spinbox_attr_t, range_max),
    CSON_INT(zof_spinbox_attr_t, step),
    CSON_INT(zof_spinbox_attr_t, int_cnt),
    CSON_INT(zof_spinbox_attr_t, dec_cnt),
    CSON_INT(zof_spinbox_attr_t, i_value),
    CSON_OBJ(zof_spinbox_attr_t, cursor_style, zof_cursor_style_attr_t_tbl),
    CSON_END,
};

const zof_ctrl_class_t zof_spinbox_class = {
    .type = ZOF_CTRL_SPINBOX,
    .name = "spinbox",
    .attr = zof_spinbox_attr_t_tbl,
    .attr_size = sizeof(zof_spinbox_attr_t),
    .create = zof_spinbox_create,
    .value = zof_value_number<zof_spinbox_get_value>,
};

// LVGL counts in 32 bits and loops forever on a box without digits, so both are clamped.
static void format_set(lv_obj_t *obj, const zof_spinbox_attr_t *box) {
    u8 digits = (u8)(box->int_cnt + box->dec_cnt);
    if (digits == 0) {
        zof_printf("spin box %u: no digits; one is shown", box->pub_t.id);
    }
    lv_spinbox_set_range(obj, LV_MAX(box->range_min, -INT32_MAX), box->range_max);
    lv_spinbox_set_step(obj, LV_MIN(box->step, (u32)INT32_MAX));
    lv_spinbox_set_digit_format(obj, LV_MAX(digits, 1), box->int_cnt);
}

s32 zof_spinbox_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_spinbox_attr_t *box = (zof_spinbox_attr_t *)attr;
    if (!record || !box) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_spinbox_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &box->pub_t);
    lv_obj_set_height(obj, LV_SIZE_CONTENT);
    format_set(obj, box);
    zof_ctrl_style_add(record, box->pub_t.style_list, box->pub_t.style_num, 0);
    zof_cursor_style_set(obj, &box->cursor_style, LV_PART_CURSOR, ZOF_TRUE);
    lv_spinbox_set_value(obj, box->i_value); // last, so that it is shown in the final format
    return 0;
}

s32 zof_spinbox_set_value(zof_ctrl_t *ctrl, s32 value) {
    return zof_on(ctrl, &lv_spinbox_class, [=](lv_obj_t *obj) { lv_spinbox_set_value(obj, value); });
}

s32 zof_spinbox_get_value(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_spinbox_class, lv_spinbox_get_value);
}

s32 zof_spinbox_step_next(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_spinbox_class, lv_spinbox_step_next);
}

s32 zof_spinbox_step_prev(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_spinbox_class, [](lv_obj_t *obj) {
        if (lv_spinbox_get_step(obj) <= INT32_MAX / 10) { // LVGL multiplies in 32 bits
            lv_spinbox_step_prev(obj);
        }
    });
}

// LVGL adds in 32 bits, and mirrors the value on its way through zero, which may put it outside of the range. The value
// is set only once, because each change calls the control's function, which may delete the box.
static s32 step_by(zof_ctrl_t *ctrl, s32 sign) {
    return zof_on(ctrl, &lv_spinbox_class, [=](lv_obj_t *obj) {
        s64 value = lv_spinbox_get_value(obj);
        s64 step = lv_spinbox_get_step(obj);
        s64 next = value + sign * step;
        if (LV_ABS(value) + step > INT32_MAX) {
            lv_spinbox_set_value(obj, (s32)LV_CLAMP(INT32_MIN, next, INT32_MAX));
        } else if (value * sign < 0 && next * sign > 0) {
            lv_spinbox_set_value(obj, (s32)(next - 2 * value));
        } else if (sign > 0) {
            lv_spinbox_increment(obj);
        } else {
            lv_spinbox_decrement(obj);
        }
    });
}

s32 zof_spinbox_increment(zof_ctrl_t *ctrl) {
    return step_by(ctrl, 1);
}

s32 zof_spinbox_decrement(zof_ctrl_t *ctrl) {
    return step_by(ctrl, -1);
}
