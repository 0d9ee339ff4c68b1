// Switches. A square one is made a pixel wider, in the record too. The getter returns 1 or 0.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_SW_H
#define ZOF_SW_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u16 anim_time;
} zof_sw_attr_t;

extern const reflect_item_t zof_sw_attr_t_tbl[];

s32 zof_sw_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_sw_set_state(zof_ctrl_t *ctrl, u32 on); // turns it on (not 0) or off
u32 zof_sw_get_state(zof_ctrl_t *ctrl);         // 1 when it is on

ZOF_C_END

#endif
