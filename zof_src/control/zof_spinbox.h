// Spin boxes. The step, next (a tenth) and previous (ten times), is what increment and decrement change the value by.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind.
#ifndef ZOF_SPINBOX_H
#define ZOF_SPINBOX_H

#include "control/zof_ctrl.h"
#include "control/zof_cursor.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    s32 range_min;
    s32 range_max;
    u32 step;
    u8 int_cnt;
    u8 dec_cnt;
    s32 i_value;
    zof_cursor_style_attr_t cursor_style;
} zof_spinbox_attr_t;

extern const reflect_item_t zof_spinbox_attr_t_tbl[];

s32 zof_spinbox_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_spinbox_set_value(zof_ctrl_t *ctrl, s32 value); // shows a value, clamped to the range
s32 zof_spinbox_get_value(zof_ctrl_t *ctrl);            // the value, without a decimal point
s32 zof_spinbox_step_next(zof_ctrl_t *ctrl);
s32 zof_spinbox_step_prev(zof_ctrl_t *ctrl);
s32 zof_spinbox_increment(zof_ctrl_t *ctrl);
s32 zof_spinbox_decrement(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
