// What knows all controls: the rows of their types, the walk that creates them, and the update of their texts. Graphics
// thread, or under dis_mutex.
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

// Calls the type's creator and returns its result, or -1 for null and unknown types.
s32 zof_ctrl_create(lv_obj_t *parent_obj, para_t *record, void *attr, u32 ctrl_type);

// Creates the control if it has attributes but no object, and shows it if it is hidden. Returns the record, or null for
// an unknown view or control.
para_t *zof_ctrl_show(u32 view_id, u32 ctrl_id);

// Updates all texts and pictures that are language keys, on all views, shown or not. Returns 0, or -1 without a
// project.
s32 zof_ctrl_txt_update(void);

// Asks for all existing controls again whether their events are watched (zof_ctrl_up.ctrl_watched). Returns 0, or -1
// without a project.
s32 zof_ctrl_watch_update(void);

// The rows of all types, by number, and the names of their theme files.
extern const zof_ctrl_class_t *const zof_ctrl_classes[ZOF_CTRL_TYPE_COUNT];
extern const char *const themeFileName[ZOF_CTRL_TYPE_COUNT];

// Returns the row of a type; null for an unknown one.
const zof_ctrl_class_t *zof_ctrl_class_get(u32 type);

ZOF_C_END

#endif
