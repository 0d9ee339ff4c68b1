// Check boxes, always as large as their text. zof_cb_is_inactive returns 1 when the box is disabled, 0 when it is not,
// -1 without an object.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_CB_H
#define ZOF_CB_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *txt;
} zof_cb_attr_t;

extern const reflect_item_t zof_cb_attr_t_tbl[];

s32 zof_cb_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_cb_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_cb_set_checked(zof_ctrl_t *ctrl, u32 on); // checks (not 0) or unchecks the box
u32 zof_cb_is_checked(zof_ctrl_t *ctrl);          // 1 when it is checked
s32 zof_cb_set_disable(zof_ctrl_t *ctrl, u32 on);
s32 zof_cb_is_inactive(zof_ctrl_t *ctrl);
s32 zof_cb_update_txt(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
