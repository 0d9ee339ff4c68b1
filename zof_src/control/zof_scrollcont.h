// Scroll containers: an endless wheel of equal items, each styled by its distance from the middle. Graphics thread, or
// under dis_mutex.
#ifndef ZOF_SCROLLCONT_H
#define ZOF_SCROLLCONT_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u16 child_cnt;
    u8 display_count;
    u8 dir;
    u16 pad;
    u8 zoom;
    u16 arc_r;
    u8 arc_dir;
    u8 zoom_mode;
    u8 opa_mode;
    u8 need_init; // no key: 1 until the wheel has its initial position
} zof_scrollcont_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 create_num;
} zof_scrollcont_obj_attr_t;

extern const reflect_item_t zof_scrollcont_attr_t_tbl[];
extern const reflect_item_t zof_scrollcont_obj_attr_t_tbl[];

// Creates the container. Refused with a log line when `display_count` is 0.
s32 zof_scrollcont_create(para_t *record, lv_obj_t *parent, void *attr);

// Creates an item; -1 unless the parent is a container. The one that completes `child_cnt` starts the wheel: before the
// next frame the first item is in the middle, and the container has received LV_EVENT_SCROLL_END and LV_EVENT_SCROLL.
s32 zof_scrollcont_obj_create(para_t *record, lv_obj_t *parent, void *attr);

// Returns the `create_num` of the item in the middle; -1 without one.
s32 zof_scrollcont_get_display_index(zof_ctrl_t *ctrl);

// Moves the item in the middle of a horizontal wheel to the middle of the order too, so that there is equally much to
// scroll to on either side. Does nothing while no item is exactly there. Returns 0, or -1 for any other control.
s32 scroll_inf(zof_ctrl_t *ctrl);

// LVGL callbacks of a complete container; user data is its zof_scrollcont_attr_t.
void scroll_init_event_cb(lv_event_t *e);     // the first turn, once; on LV_EVENT_REFRESH
void scroll_infinite_event_cb(lv_event_t *e); // as scroll_inf, in both directions
void scroll_arc_event_cb(lv_event_t *e);      // sinks, zooms and fades along the arc
void scroll_zoom_event_cb(lv_event_t *e);     // zooms by pixels

ZOF_C_END

#endif
