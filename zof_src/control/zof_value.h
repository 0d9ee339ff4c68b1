// Arc, bar, slider, spin box and line. Graphics thread, or under dis_mutex. Colours are 0xRRGGBB. Functions return 0,
// or the value that a getter's name says; -1 without an object of the kind.
#ifndef ZOF_VALUE_H
#define ZOF_VALUE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Lines. They show nothing until they get points, in pixels from their own corner, which the caller keeps.
s32 zof_line_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_line_set_dash(zof_ctrl_t *ctrl, u32 width, u32 gap);
s32 zof_line_set_dis(zof_ctrl_t *ctrl, const zof_line_disp_t *dis);
s32 zof_line_set_points(zof_ctrl_t *ctrl, const lv_point_t *points, u32 count);

// Arcs. Angles in degrees, clockwise from the right; background and indicator always get the same ones.
s32 zof_arc_create(para_t *record, lv_obj_t *parent, void *attr);

// Frees the paths of an arc's pictures, once its object is gone. Returns 0, or -1 for a record that was not created.
s32 zof_arc_del(para_t *record);

// `part`: 0 is the background, 1 the indicator; others have no effect.
s32 zof_arc_set_dis(zof_ctrl_t *ctrl, u32 part, const zof_line_disp_t *dis);
s32 zof_arc_set_knob(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_arc_set_value_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_arc_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_arc_get_value(zof_ctrl_t *ctrl);
s32 zof_arc_set_rotation(zof_ctrl_t *ctrl, u16 angle);
s32 zof_arc_set_angles(zof_ctrl_t *ctrl, u16 start, u16 end);

// Bars. One whose ends are equal is not created. A value is clamped to the range; with an animation time it slides
// there.
s32 zof_bar_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_bar_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_bar_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_bar_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_bar_get_value(zof_ctrl_t *ctrl);

// Sliders: like bars, but equal ends are allowed.
s32 zof_slider_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_slider_set_bar_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_slider_set_value(zof_ctrl_t *ctrl, s16 value);
s32 zof_slider_set_range(zof_ctrl_t *ctrl, s16 min, s16 max);
s32 zof_slider_get_value(zof_ctrl_t *ctrl);

// Spin boxes. The step, next (a tenth) and previous (ten times), is what increment and decrement change the value by.
s32 zof_spinbox_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_spinbox_set_value(zof_ctrl_t *ctrl, s32 value);
s32 zof_spinbox_get_value(zof_ctrl_t *ctrl);
s32 zof_spinbox_step_next(zof_ctrl_t *ctrl);
s32 zof_spinbox_step_prev(zof_ctrl_t *ctrl);
s32 zof_spinbox_increment(zof_ctrl_t *ctrl);
s32 zof_spinbox_decrement(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
