// The events that an application's control function is called with: LVGL's own codes, passed through unchanged.
#ifndef ZOF_EVENT_H
#define ZOF_EVENT_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef enum {
    ZOF_EVENT_ALL = 0,
    ZOF_EVENT_PRESSED = 1,
    ZOF_EVENT_PRESSING = 2,
    ZOF_EVENT_PRESS_LOST = 3,
    ZOF_EVENT_SHORT_CLICKED = 4,
    ZOF_EVENT_LONG_PRESSED = 5,
    ZOF_EVENT_LONG_PRESSED_REPEAT = 6,
    ZOF_EVENT_CLICKED = 7,
    ZOF_EVENT_RELEASED = 8,
    ZOF_EVENT_SCROLL_BEGIN = 9,
    ZOF_EVENT_SCROLL_END = 10,
    ZOF_EVENT_SCROLL = 11,
    ZOF_EVENT_GESTURE = 12,
    ZOF_EVENT_KEY = 13,
    ZOF_EVENT_FOCUSED = 14,
    ZOF_EVENT_DEFOCUSED = 15,
    ZOF_EVENT_LEAVE = 16,
    ZOF_EVENT_VALUE_CHANGED = 28,
    ZOF_EVENT_INSERT = 29,
    ZOF_EVENT_REFRESH = 30,
    ZOF_EVENT_READY = 31,
    ZOF_EVENT_CANCEL = 32,
    ZOF_EVENT_DELETE = 33,
    ZOF_EVENT_SCROLL_END_INDEV = 46,
    ZOF_EVENT_SCROLL_END_ANIM = 47,
    ZOF_EVENT_SCROLL_END_ANIM_OFF = 48
} zof_event_e;

typedef void (*zof_ctrl_event_fn)(zof_ctrl_t *ctrl, zof_event_e event);

// One row of the application's view table.
typedef struct {
    u32 view_id;
    void (*zof_view_init)(void);
    void (*zof_view_entry)(void); // MANDATORY: without it the view is created but not shown
    void (*zof_view_exit)(void);
} zof_view_fun_t;

// One row of a view's control table.
typedef struct {
    u32 ctrl_id;
    zof_ctrl_event_fn zof_ctrl_event;
} zof_ctrl_fun_t;

ZOF_C_END

#endif
