// From attribute records to LVGL objects: the walk over a view's controls and the table of creators.
#ifndef ZOF_CTRL_CREATE_H
#define ZOF_CTRL_CREATE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

s32 zof_ctrl_list_create(zof_view_node_t *view);
s32 zof_ctrl_create_from_attr(zof_view_node_t *view, para_t *record);
s32 zof_ctrl_create(lv_obj_t *parent_obj, para_t *record, void *attr, u32 ctrl_type);
para_t *zof_ctrl_show(u32 view_id, u32 ctrl_id);
s32 zof_ctrl_pub_attr(zof_ctrl_t *ctrl, zof_pub_attr_t *attr);
s32 zof_obj_create(para_t *record, lv_obj_t *parent, void *attr);

// A control family's row. `update_txt` renews texts after a language change; `del` releases what the attribute record
// alone does not own, after the object is gone.
typedef struct {
    u32 type;
    const char *name;                                              // as in theme file names
    s32 (*create)(para_t *record, lv_obj_t *parent, void *attr);   // null: not yet built
    s32 (*update_txt)(zof_ctrl_t *ctrl);                           // OPTIONAL
    s32 (*del)(para_t *record);                                    // OPTIONAL
} zof_ctrl_class_t;

extern const zof_ctrl_class_t zof_ctrl_classes[];

ZOF_C_END

#endif
