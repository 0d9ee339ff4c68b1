// Sketchpads: drawn on with the finger. Graphics thread, or under dis_mutex. Functions return 0, or -1 without an
// object of the kind.
#ifndef ZOF_SKETCHPAD_H
#define ZOF_SKETCHPAD_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u8 toolbar;
    u8 line_width;
} zof_sketchpad_attr_t;

extern const reflect_item_t zof_sketchpad_attr_t_tbl[];

// 1 to 2047 pixels on each side; the control owns the pixels.
s32 zof_sketchpad_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_sketchpad_set_width(zof_ctrl_t *ctrl, u8 width); // width of new strokes, in pixels
s32 zof_sketchpad_clean_bg(zof_ctrl_t *ctrl);            // removes all strokes

// Makes new strokes translucent, or opaque again.
s32 zof_sketchpad_set_transp(zof_ctrl_t *ctrl, zof_bool on);

// LVGL callback of the pad's LV_EVENT_DELETE: releases the pixels.
void zof_sketchpad_del_event(lv_event_t *e);

ZOF_C_END

#endif
