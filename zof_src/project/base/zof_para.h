// The control record. It stays in its view's list for the life of the process, while its attribute record and LVGL
// object are created and deleted. It is defined here, not with the controls, because leaving a view needs its fields.
#ifndef ZOF_PARA_H
#define ZOF_PARA_H

#include "lvgl.h"
#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

typedef struct para {
    lv_obj_t *obj;        // null while the control does not exist
    void *parent;         // the parent's para_t, or the zof_view_node_t: both start with their object
    zof_pub_attr_t *attr; // the head of the type's attribute record; owned from creation to zof_ctrl_delete
    u16 id;
    u8 is_created;
    u8 making; // zof_ctrl_create_from_attr is running: its events must not create the control a second time
} para_t;

// Returns the LVGL object of a handle; null for a null handle and for a record without an object.
static inline lv_obj_t *zof_ctrl_obj(const zof_ctrl_t *ctrl) {
    return ctrl ? *(lv_obj_t *const *)ctrl : NULL;
}

ZOF_C_END

#endif
