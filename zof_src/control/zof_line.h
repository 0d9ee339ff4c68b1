// Lines, and the look that arcs and charts share with them. They show nothing until they get points, in pixels from
// their own corner, which the caller keeps.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_LINE_H
#define ZOF_LINE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    u32 color;
    u32 width;
    u8 opa;
    u8 rounded;
} zof_line_disp_t;

typedef struct {
    zof_pub_attr_t pub_t;
    zof_line_disp_t dis_t;
} zof_line_attr_t;

extern const reflect_item_t zof_line_disp_t_tbl[];
extern const reflect_item_t zof_line_attr_t_tbl[];

s32 zof_line_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_line_set_dash(zof_ctrl_t *ctrl, u32 width, u32 gap);
s32 zof_line_set_dis(zof_ctrl_t *ctrl, const zof_line_disp_t *dis);
s32 zof_line_set_points(zof_ctrl_t *ctrl, const lv_point_t *points, u32 count); // draws the line through points

ZOF_C_END

#endif
