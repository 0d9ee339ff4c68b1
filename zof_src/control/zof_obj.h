// Plain containers. Graphics thread, or under dis_mutex.
#ifndef ZOF_OBJ_H
#define ZOF_OBJ_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
} zof_obj_attr_t;

extern const reflect_item_t zof_obj_attr_t_tbl[];

// Returns 0, or -1 with nothing created.
s32 zof_obj_create(para_t *record, lv_obj_t *parent, void *attr);

ZOF_C_END

#endif
