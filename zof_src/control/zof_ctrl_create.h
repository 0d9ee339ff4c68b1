// From attribute records to LVGL objects: the walk over a view's controls and the table of creators. Graphics thread.
#ifndef ZOF_CTRL_CREATE_H
#define ZOF_CTRL_CREATE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Controls may lie within each other this deep. LVGL goes up and down the tree for most of what it does, so deeper ones
// would make each other slow, and drawing them is a recursion.
enum { ZOF_CTRL_NEST_MAX = 64 };

// Walks the view's file and makes the controls that are missing, in file order; `pub` ones only while the view is being
// shown. What exists is put on top again, so that the drawing order is the file's. A control that cannot be made gets a
// line and is left out. 0, at once when the list is complete; -1 for null or a file that cannot be had.
s32 zof_ctrl_list_create(zof_view_node_t *view);

// Makes one control from record->attr below the parent that its parent_id names, or else on the view, and wires its
// events. 0, or -1 with a line.
s32 zof_ctrl_create_from_attr(zof_view_node_t *view, para_t *record);

// Calls the type's creator: its result, or -1 for null and types above the table.
s32 zof_ctrl_create(lv_obj_t *parent_obj, para_t *record, void *attr, u32 ctrl_type);

// Makes the control if its attributes are there and its object is not, and shows it if it is hidden. The record, or
// null for an unknown view or control.
para_t *zof_ctrl_show(u32 view_id, u32 ctrl_id);

// Applies what all controls share: place, size, click area, touch, hidden, opacity, scrolling. 0, or -1 for null.
s32 zof_ctrl_pub_attr(zof_ctrl_t *ctrl, zof_pub_attr_t *attr);

// Creators, here and in the families' headers, share this shape: they make the LVGL object on `parent`, store it in
// record->obj and set it up from the type's attribute record, which stays the caller's. 0, or -1 with nothing made.
// This one is the plain container's.
s32 zof_obj_create(para_t *record, lv_obj_t *parent, void *attr);

// A control family's row. `update_txt` renews texts after a language change; `del` releases what the attribute record
// alone does not own, after the object is gone.
typedef struct {
    u32 type;
    const char *name;                                            // as in theme file names
    s32 (*create)(para_t *record, lv_obj_t *parent, void *attr); // MANDATORY
    s32 (*update_txt)(zof_ctrl_t *ctrl);                         // OPTIONAL
    s32 (*del)(para_t *record);                                  // OPTIONAL
} zof_ctrl_class_t;

extern const zof_ctrl_class_t zof_ctrl_classes[];

ZOF_C_END

#endif
