// From attribute records to LVGL objects: the walk over a view's controls and the table of creators. Graphics thread.
#ifndef ZOF_CTRL_CREATE_H
#define ZOF_CTRL_CREATE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Maximum nesting depth of controls. LVGL walks up and down the tree for most operations, so deeper ones would slow
// each other down, and drawing them is recursive.
enum { ZOF_CTRL_NEST_MAX = 64 };

// Walks the view's file and creates the missing controls, in file order; `pub` ones only while the view is being shown.
// Existing ones are moved to the top, so that the drawing order is the file's. A control that cannot be created is
// logged and left out. Returns 0, immediately when the list is complete; -1 for null or a file that cannot be read.
s32 zof_ctrl_list_create(zof_view_node_t *view);

// Creates one control from record->attr, on the parent that its parent_id names or else on the view, and connects its
// events. Returns 0, or -1 with a log line.
s32 zof_ctrl_create_from_attr(zof_view_node_t *view, para_t *record);

// Calls the type's creator and returns its result, or -1 for null and types beyond the table.
s32 zof_ctrl_create(lv_obj_t *parent_obj, para_t *record, void *attr, u32 ctrl_type);

// Creates the control if it has attributes but no object, and shows it if it is hidden. Returns the record, or null for
// an unknown view or control.
para_t *zof_ctrl_show(u32 view_id, u32 ctrl_id);

// All creators, here and in the families' headers, have this shape: they create the LVGL object on `parent`, store it
// in record->obj and set it up from the type's attribute record, which stays the caller's. They return 0, or -1 with
// nothing created. This one creates the plain container.
s32 zof_obj_create(para_t *record, lv_obj_t *parent, void *attr);

// A row for a control family. `update_txt` updates texts after a language change; `del` releases, after the object is
// gone, what the attribute record does not own alone.
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
