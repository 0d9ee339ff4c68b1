// Sliders: bars with a knob.
#include "control/zof_slider.h"

#include "control/zof_bar_in.h"
#include "control/zof_ctrl_in.h"

const reflect_item_t zof_slider_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_slider_attr_t),
    CSON_ENDS(zof_slider_attr_t, minValue, maxValue),
    CSON_INT(zof_slider_attr_t, anim_time),
    CSON_END,
};

const zof_ctrl_class_t zof_slider_class = {
    .type = ZOF_CTRL_SLIDER,
    .name = "slider",
    .attr = zof_slider_attr_t_tbl,
    .attr_size = sizeof(zof_slider_attr_t),
    .create = zof_slider_create,
    .value = zof_value_number<zof_slider_get_value>,
};

static void event_turned(lv_event_t *e) {
    zof_bar_slide_end(lv_event_get_current_target(e));
}

s32 zof_slider_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_slider_attr_t *slider = (zof_slider_attr_t *)attr;
    if (!record || !slider) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_slider_create(parent);
    if (obj) { // before the program's handler, which may read the value
        lv_obj_add_event_cb(obj, event_turned, (lv_event_code_t)(LV_EVENT_VALUE_CHANGED | LV_EVENT_PREPROCESS),
                            nullptr);
    }
    return zof_bar_set_up(record, &slider->pub_t, slider->minValue, slider->maxValue, slider->anim_time);
}

s32 zof_slider_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color) {
    return zof_bar_color_apply(ctrl, color);
}

s32 zof_slider_set_value(zof_ctrl_t *ctrl, s16 value) {
    return zof_bar_value_apply(ctrl, value);
}

s32 zof_slider_set_range(zof_ctrl_t *ctrl, s16 min, s16 max) {
    return zof_bar_range_apply(ctrl, min, max);
}

s32 zof_slider_get_value(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_bar_class, lv_bar_get_value);
}
