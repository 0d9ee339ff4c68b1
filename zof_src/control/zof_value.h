// Arc, bar, slider, spin box and line.
#ifndef ZOF_VALUE_H
#define ZOF_VALUE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

s32 zof_line_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_line_set_dash(zof_ctrl_t *ctrl, u32 width, u32 gap);
s32 zof_line_set_dis(zof_ctrl_t *ctrl, const zof_line_disp_t *dis);
s32 zof_line_set_points(zof_ctrl_t *ctrl, const lv_point_t *points, u32 count);

s32 zof_arc_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_arc_del(para_t *record);
s32 zof_arc_set_dis(zof_ctrl_t *ctrl, u32 part, const zof_line_disp_t *dis);
s32 zof_arc_set_knob(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_arc_set_value_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_arc_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_arc_get_value(zof_ctrl_t *ctrl);
s32 zof_arc_set_rotation(zof_ctrl_t *ctrl, u16 angle);
s32 zof_arc_set_angles(zof_ctrl_t *ctrl, u16 start, u16 end);

s32 zof_bar_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_bar_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_bar_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_bar_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_bar_get_value(zof_ctrl_t *ctrl);

s32 zof_slider_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_slider_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_slider_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_slider_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_slider_get_value(zof_ctrl_t *ctrl);

s32 zof_spinbox_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_spinbox_set_value(zof_ctrl_t *ctrl, s32 value);
s32 zof_spinbox_get_value(zof_ctrl_t *ctrl);
s32 zof_spinbox_step_next(zof_ctrl_t *ctrl);
s32 zof_spinbox_step_prev(zof_ctrl_t *ctrl);
s32 zof_spinbox_increment(zof_ctrl_t *ctrl);
s32 zof_spinbox_decrement(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
