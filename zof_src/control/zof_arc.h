// Arcs. Angles are in degrees, clockwise from the right; background and indicator always have the same ones.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind. Colours are 0xRRGGBB.
#ifndef ZOF_ARC_H
#define ZOF_ARC_H

#include "control/zof_ctrl.h"
#include "control/zof_line.h"

ZOF_C_BEGIN

typedef struct {
    u32 start_angle, end_angle;
} zof_angle_t;

typedef struct {
    s16 minValue, maxValue;
} zof_range_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_angle_t angle_t;
    s32 arc_value;
    u32 mode_e;
    zof_range_t range_t;
    zof_bool know_dis_en;
    char *arc_main_img;
    zof_line_disp_t arc_t_main;
    char *arc_inc_img;
    zof_line_disp_t arc_t_inc;
    char *main_img_path; // no key: copies of the resolved paths, which the style points to
    char *inc_img_path;  // no key
} zof_arc_attr_t;

extern const reflect_item_t zof_angle_t_tbl[];
extern const reflect_item_t zof_range_t_tbl[];
extern const reflect_item_t zof_arc_attr_t_tbl[];

s32 zof_arc_create(para_t *record, lv_obj_t *parent, void *attr);

// Frees the paths of an arc's pictures, once its object is gone. Returns 0, or -1 for a record that was not created.
s32 zof_arc_del(para_t *record);

// `part`: 0 is the background, 1 the indicator; others have no effect.
s32 zof_arc_set_dis(zof_ctrl_t *ctrl, u32 part, const zof_line_disp_t *dis);
s32 zof_arc_set_knob(zof_ctrl_t *ctrl, zof_color_t color);       // colour of the knob
s32 zof_arc_set_value_range(zof_ctrl_t *ctrl, s16 min, s16 max); // values at both ends
s32 zof_arc_set_value(zof_ctrl_t *ctrl, s16 value);              // shows a value, clamped to the range
s32 zof_arc_get_value(zof_ctrl_t *ctrl);                         // the value
s32 zof_arc_set_rotation(zof_ctrl_t *ctrl, u16 angle);           // turns the whole arc, in degrees
s32 zof_arc_set_angles(zof_ctrl_t *ctrl, u16 start, u16 end);    // angles of both ends of the arc, in degrees

ZOF_C_END

#endif
