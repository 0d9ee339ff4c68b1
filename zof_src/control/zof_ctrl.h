// What all controls share: record, registry, event bridge, common operations, animation, deletion. A control's own
// header has its attribute record, its creator (zof_ctrl_class_t.create) and its functions.
// All of it belongs to the graphics thread, or to a caller that holds dis_mutex.
#ifndef ZOF_CTRL_H
#define ZOF_CTRL_H

#include "project/base/zof_ctrl_types.h"
#include "project/view/zof_view.h"

ZOF_C_BEGIN

// An animation; times in milliseconds. It is read when the animation starts and is passed on as its user data, so the
// caller keeps it for as long as the animation runs.
typedef struct {
    u32 time, delay, playback_time, playback_delay;
    u32 repeat_cnt; // only 16 bits are used
    u32 repeat_delay;
    s32 start_value, end_value; // clamped to -1048575..1048575
    lv_anim_exec_xcb_t exec_cb;
    lv_anim_start_cb_t start_cb;
    lv_anim_ready_cb_t ready_cb;
    u32 path; // zof_anim_path_e; any other number leaves LVGL's default path
} zof_anim_dsc_t;

// The hook for all events of all controls that have an event function.
typedef void (*zof_all_event_fn)(u32 view_id, u32 ctrl_id, u8 event);

// Creates the list of a view's control records, searched by id. Null without memory.
db_list *zof_ctrl_list_init(void);

// Returns 0 when the record has the id that `key` points at (u32).
s32 zof_ctrl_list_search_compare(void *record, void *key);

// Returns the record of a control; null when the view is not loaded or has no such control. The record stays when its
// object is deleted; until it has one again, every function returns -1.
para_t *zof_ctrl_get_form_id(u32 view_id, u32 ctrl_id);

// Returns the attribute record of the handle's control: null for an object that is not a control, (void *)-1 for a
// handle without an object.
void *zof_ctrl_get_attr_from_ctrl(zof_ctrl_t *ctrl);

// Returns the control's id, or -1.
s32 zof_ctrl_get_id_form_ctrl(zof_ctrl_t *ctrl);

// Reads what the control stands at; docs list it for each type. Returns 0, or -1 for a type without a value.
s32 zof_ctrl_get_value(zof_ctrl_t *ctrl, zof_ctrl_value_t *out);

// Returns ZOF_TRUE for a control that exists and whose type has a value.
zof_bool zof_ctrl_has_value(const para_t *record);

// The one LVGL callback of the layer, with the record as user data: calls the hook, the host link, and then the
// control's event function. The function may delete its control.
void zof_event_cb_t(lv_event_t *e);

// Sends an LVGL event to the object. Returns LVGL's result, or 255 without an object.
u8 zof_event_send(zof_ctrl_t *ctrl, u32 code, void *param);

// Sets the hook; null removes it.
void zof_ctrl_set_event_all(zof_all_event_fn fn);

// The operations below accept any handle. They return 0, or the value that a getter's name says, and -1 without an
// object. Units are pixels; positions are relative to the parent. Getters of position and size need an up-to-date
// layout (zof_ctrl_update_location).
s32 zof_ctrl_set_pos(zof_ctrl_t *ctrl, s32 x, s32 y);           // places the control in its parent
s32 zof_ctrl_set_x(zof_ctrl_t *ctrl, s32 x);                    // moves the control sideways only
s32 zof_ctrl_set_y(zof_ctrl_t *ctrl, s32 y);                    // moves the control up or down only
s32 zof_ctrl_get_x(zof_ctrl_t *ctrl);                           // distance from the left of its parent
s32 zof_ctrl_get_y(zof_ctrl_t *ctrl);                           // distance from the top of its parent
s32 zof_ctrl_set_size(zof_ctrl_t *ctrl, s32 width, s32 height); // sets width and height
s32 zof_ctrl_get_width(zof_ctrl_t *ctrl);                       // width in pixels
s32 zof_ctrl_get_height(zof_ctrl_t *ctrl);                      // height in pixels

// Hiding also closes the drop lists that are open within the control.
s32 zof_ctrl_set_hidden(zof_ctrl_t *ctrl, zof_bool hidden); // hides the control, or shows it again
s32 zof_ctrl_get_hidden(zof_ctrl_t *ctrl);                  // 1 while it is hidden
s32 zof_ctrl_set_alpha(zof_ctrl_t *ctrl, u8 alpha);         // opacity, 255 is opaque

// 0 lets touches through, 1 takes them; any other value returns -1.
s32 zof_ctrl_set_touch(zof_ctrl_t *ctrl, u32 touch);           // takes touches (1) or lets them through (0)
s32 zof_ctrl_set_ext_click_area(zof_ctrl_t *ctrl, s32 pixels); // takes touches this far around it, too

// Places the control beside or within the base control; `align` is LVGL's.
s32 zof_ctrl_set_align(zof_ctrl_t *ctrl, zof_ctrl_t *base, u32 align, s32 x, s32 y);

// Moves the control to the top or the bottom of its parent's children.
s32 zof_ctrl_move_forground(zof_ctrl_t *ctrl);  // draws the control above the others of its parent
s32 zof_ctrl_move_background(zof_ctrl_t *ctrl); // draws it below the others
s32 zof_ctrl_set_scrollbar(zof_ctrl_t *ctrl, const zof_scrollbar_t *sb); // sets mode and directions of scrolling
s32 zof_ctrl_get_child_sum(zof_ctrl_t *ctrl);                            // number of child objects

// Returns a child object, which is a handle itself; negative indexes count from the end. Null if there is no such
// child.
zof_ctrl_t *zof_ctrl_get_child(zof_ctrl_t *ctrl, s32 index);
s32 zof_ctrl_get_coords(zof_ctrl_t *ctrl, lv_area_t *area); // place on the screen

// Sets where scrolling snaps to (LVGL's snap mode), despite the name.
s32 zof_ctrl_set_scroll_dir_x(zof_ctrl_t *ctrl, u32 snap);            // where scrolling sideways snaps to
s32 zof_ctrl_set_scroll_dir_y(zof_ctrl_t *ctrl, u32 snap);            // where scrolling up and down snaps to
s32 zof_ctrl_set_scroll_dir(zof_ctrl_t *ctrl, u32 dir);               // LVGL's directions: 3 sideways, 12 up and down
s32 zof_ctrl_scroll_view(zof_ctrl_t *ctrl, u32 animate);              // scrolls the parent until the control is visible
s32 zof_ctrl_scroll_set(zof_ctrl_t *ctrl, s32 x, s32 y, u32 animate); // scrolls to a position of the content
s32 zof_ctrl_scroll_get_x(zof_ctrl_t *ctrl);                          // pixels scrolled away at the left
s32 zof_ctrl_scroll_get_y(zof_ctrl_t *ctrl);                          // pixels scrolled away at the top

// Takes the control out of its parent's layout and scrolling; the getter returns whether it is.
s32 zof_ctrl_child_not_scroll(zof_ctrl_t *ctrl);
s32 zof_ctrl_child_get_scroll(zof_ctrl_t *ctrl); // 1 if it is out of the layout
s32 zof_ctrl_update_location(zof_ctrl_t *ctrl);  // lays out now what has changed
s32 zof_ctrl_force_refresh(zof_ctrl_t *ctrl);    // draws the control again

// Rotates the control around its own point (x, y) by an angle in degrees. A quarter turn to either side is drawn one
// degree further.
s32 zof_ctrl_rotate_angel(zof_ctrl_t *ctrl, s32 x, s32 y, u16 angle);

// Translation in pixels; zoom, 256 is 100 %, clamped to 1..32767.
s32 zof_ctrl_translate_x(zof_ctrl_t *ctrl, s32 x);       // draws it this many pixels further right
s32 zof_ctrl_translate_y(zof_ctrl_t *ctrl, s32 y);       // draws it this many pixels further down
s32 zof_ctrl_zoom_set(zof_ctrl_t *ctrl, u32 zoom);       // draws it larger or smaller
s32 zof_ctrl_zoom_pivot(zof_ctrl_t *ctrl, s32 x, s32 y); // the point that zooming leaves in place
s32 zof_ctrl_state_judge(zof_ctrl_t *ctrl, u32 state);   // 1 if it has any of these states
s32 zof_ctrl_add_state(zof_ctrl_t *ctrl, u32 state);     // adds LVGL states: 1 checked, 32 pressed, 128 disabled
s32 zof_ctrl_clear_state(zof_ctrl_t *ctrl, u32 state);   // removes LVGL states
s32 zof_ctrl_get_state(zof_ctrl_t *ctrl);                // sum of its LVGL states
s32 zof_ctrl_set_child_clip_corner(zof_ctrl_t *ctrl, zof_bool clip); // cuts children off at its round corners
s32 zof_ctrl_set_gesture_bubble(zof_ctrl_t *ctrl, zof_bool bubble);  // leaves gestures to its parent

// Set local styles of the object for an LVGL selector (part or-ed with state). Return 0, or -1 without an object.
// Colours are 0xRRGGBB; an unknown gradient direction means no gradient.
s32 zof_ctrl_style_set_bg_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_grad_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_opa(zof_ctrl_t *ctrl, u8 opa, u32 selector);
s32 zof_ctrl_style_set_bg_grad_dir(zof_ctrl_t *ctrl, u32 dir, u32 selector);

// Returns the direction of the gesture that is being handled (LVGL's), 0 for none. The handle is only checked for null.
s32 zof_ctrl_gesture_check(zof_ctrl_t *ctrl);

// Computes a square root, in steps of 1/256 below 32768 squared. Returns 0, or -1 for a null result.
s32 zof_square_root(u32 x, lv_sqrt_res_t *result);

// Maps x from one range to another and clamps the result.
s32 zof_map_relation(s32 x, s32 min_in, s32 max_in, s32 min_out, s32 max_out);

// Starts an animation of the object. Returns 0 or -1.
s32 zof_animation_set(zof_ctrl_t *ctrl, zof_anim_dsc_t *dsc);

// Ends the object's animations that use this callback; null ends all. Returns 1 if there were any, 0 if not, 255
// without an object.
u8 zof_animation_del(zof_ctrl_t *ctrl, lv_anim_exec_xcb_t exec_cb);
s32 zof_animation_del_all(void);       // ends all animations
s32 zof_animation_count_running(void); // number of animations that run

// Applies what all controls share: position, size, click area, touch, hidden, opacity, scrolling. Returns 0, or -1 for
// null.
s32 zof_ctrl_pub_attr(zof_ctrl_t *ctrl, zof_pub_attr_t *attr);

// Deletes object and attributes; the record stays in its list and the control can be created again. Returns 0, also for
// a video control, of which nothing is deleted because the driver owns the object; -1 for null and for a record without
// an object.
s32 zof_ctrl_delete(para_t *record);

// Takes the control out of its view's list and deletes it; the record then belongs to the caller, who passes it to
// zof_ctrl_obj_del. Returns 0, or -1 for an unknown view or control, and for a record without an object, which leaves
// the list all the same.
s32 zof_ctrl_del(u32 view_id, u32 ctrl_id);

// Frees a record that is in no list any more, together with a video's object and attributes. Null does nothing.
void zof_ctrl_obj_del(para_t *record);

// Deleting is safe in any event, also in one that a function of this layer causes: the object leaves the screen at once
// and can no longer be reached; its memory is released when the outermost event or call has returned.

ZOF_C_END

#endif
