// Bars. LVGL's slider is a bar with a knob, so these operations serve sliders too.
#include "control/zof_bar.h"

#include "control/zof_bar_in.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_bar_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_bar_attr_t),
    CSON_ENDS(zof_bar_attr_t, minValue, maxValue),
    CSON_INT(zof_bar_attr_t, anim_time),
    CSON_END,
};

const zof_ctrl_class_t zof_bar_class = {
    .type = ZOF_CTRL_BAR,
    .name = "bar",
    .attr = zof_bar_attr_t_tbl,
    .attr_size = sizeof(zof_bar_attr_t),
    .create = zof_bar_create,
    .value = zof_value_number<zof_bar_get_value>,
};

// LVGL treats a value that slides as already at its target and sets it there when the animation ends, whatever a finger
// or a new range has done to it meanwhile. So these end the animation.
void zof_bar_slide_end(lv_obj_t *obj) {
    _lv_bar_anim_t *slide = &((lv_bar_t *)obj)->cur_value_anim;
    if (lv_anim_del(slide, nullptr)) {
        slide->anim_state = -1; // LVGL's mark of a value at rest
    }
}

s32 zof_bar_set_up(para_t *record, zof_pub_attr_t *pub, s32 min, s32 max, u32 anim_time) {
    if (!record->obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, pub);
    lv_bar_set_range(record->obj, min, max);
    lv_obj_set_style_anim_time(record->obj, anim_time, LV_PART_MAIN);
    zof_ctrl_style_add(record, pub->style_list, pub->style_num, 0);
    return 0;
}

s32 zof_bar_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_bar_attr_t *bar = (zof_bar_attr_t *)attr;
    if (!record || !bar || bar->minValue == bar->maxValue) {
        return -1;
    }
    record->obj = lv_bar_create(parent);
    return zof_bar_set_up(record, &bar->pub_t, bar->minValue, bar->maxValue, bar->anim_time);
}

s32 zof_bar_color_apply(zof_ctrl_t *ctrl, zof_color_t color, const char *function, const void *site) {
    const auto set = [=](lv_obj_t *obj) { lv_obj_set_style_bg_color(obj, zof_color_to_lv(color), LV_PART_INDICATOR); };
    return zof_on(ctrl, set, function, site);
}

s32 zof_bar_value_apply(zof_ctrl_t *ctrl, s16 value, const char *function, const void *site) {
    const auto set = [=](lv_obj_t *obj) {
        bool slides = lv_obj_get_style_anim_time(obj, LV_PART_MAIN) != 0;
        lv_bar_set_value(obj, value, slides ? LV_ANIM_ON : LV_ANIM_OFF);
    };
    return zof_on(ctrl, &lv_bar_class, set, function, site);
}

s32 zof_bar_range_apply(zof_ctrl_t *ctrl, s16 min, s16 max, const char *function, const void *site) {
    const auto set = [=](lv_obj_t *obj) {
        if (lv_bar_get_min_value(obj) != min || lv_bar_get_max_value(obj) != max) {
            zof_bar_slide_end(obj);
        }
        lv_bar_set_range(obj, min, max);
    };
    return zof_on(ctrl, &lv_bar_class, set, function, site);
}

s32 zof_bar_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color) {
    return zof_bar_color_apply(ctrl, color);
}

s32 zof_bar_set_value(zof_ctrl_t *ctrl, s16 value) {
    return zof_bar_value_apply(ctrl, value);
}

s32 zof_bar_set_range(zof_ctrl_t *ctrl, s16 min, s16 max) {
    return zof_bar_range_apply(ctrl, min, max);
}

s32 zof_bar_get_value(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_bar_class, lv_bar_get_value);
}
