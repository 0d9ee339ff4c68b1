// Sliders: like bars, but equal ends are allowed.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind. Colours are 0xRRGGBB.
#ifndef ZOF_SLIDER_H
#define ZOF_SLIDER_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    s16 minValue;
    s16 maxValue;
    u16 anim_time;
} zof_slider_attr_t;

extern const reflect_item_t zof_slider_attr_t_tbl[];

s32 zof_slider_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_slider_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_slider_set_value(zof_ctrl_t *ctrl, s16 value); // moves the knob to a value, clamped to the range
s32 zof_slider_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_slider_get_value(zof_ctrl_t *ctrl); // the value

ZOF_C_END

#endif
