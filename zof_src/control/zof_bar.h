// Bars. One whose ends are equal is not created. A value is clamped to the range; with an animation time it slides
// there.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind. Colours are 0xRRGGBB.
#ifndef ZOF_BAR_H
#define ZOF_BAR_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    s16 minValue;
    s16 maxValue;
    u16 anim_time;
} zof_bar_attr_t;

extern const reflect_item_t zof_bar_attr_t_tbl[];

s32 zof_bar_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_bar_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_bar_set_value(zof_ctrl_t *ctrl, s16 value); // shows a value, clamped to the range
s32 zof_bar_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_bar_get_value(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
