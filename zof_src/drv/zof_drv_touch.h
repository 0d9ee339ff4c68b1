// Touch: the hook between the input device and the widgets, and the counters of a panel check. Graphics thread only,
// except the counters' zof_touch_count_set_irq.
#ifndef ZOF_DRV_TOUCH_H
#define ZOF_DRV_TOUCH_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum { ZOF_TOUCH_RELEASED = 0, ZOF_TOUCH_PRESS = 1, ZOF_TOUCH_HELD = 2 };

typedef struct {
    u8 state; // ZOF_TOUCH_RELEASED ...
    u16 x, y; // pixels, as the input device reports them
} zof_touch_t;

typedef struct {
    s32 (*get_tp_type)(void); // MANDATORY: 1 capacitive, 2 resistive
    void (*rtp_cal)(void);    // OPTIONAL: starts the calibration of a resistive panel
} zof_drv_touch_ops_t;

// The port stores its table and its registered input device here.
extern const zof_drv_touch_ops_t *drv_touch_t;
extern lv_indev_t *touch_indev;

// The hook. A port's read callback calls it last, with the data that it is about to pass to the widgets; a press that
// the host protocol takes is changed to a release. Returns 0, or -1 when a release changed nothing.
s32 zof_touch_event(lv_indev_data_t *data);

// Further fingers, while the first is down: the widgets do not see them. `fn` gets where each one lands, in pixels as
// in zof_touch_t, inside lv_timer_handler; null, the initial value, ignores them. A port calls zof_touch_landed.
void zof_touch_landed_set(void (*fn)(u16 x, u16 y));
void zof_touch_landed(u16 x, u16 y);

// Lets a key act as a finger: from `down` until it is lifted the widgets see a touch at x, y, with everything that a
// touch triggers; another call with `down` moves it. A real finger that lands in between is a further finger. Returns
// -1 and does nothing while a finger is on the panel or touch is not read.
s32 zof_touch_key(u16 x, u16 y, zof_bool down);

// How often a finger has landed on the panel since the start; keys do not count.
u32 zof_touch_landings(void);

// Returns the current touch with the display's rotation applied; -1 without `out` or an input device.
s32 zof_touch_get(zof_touch_t *out);

// Converts a point of the picture to one of the project, for panels that report their own coordinates. Returns -1
// without a point or project, and for a point beyond the picture.
s32 zof_touch_rotate(zof_point_t *point);

// Non-zero stops reading the input device, zero resumes it.
void zof_drv_touch_pause(s32 flag);

s32 zof_drv_touch_get_tp_type(void); // -1 without the operation
void zof_drv_touch_rtp_cal(void);
const zof_drv_touch_ops_t *zof_drv_get_touch_t(void);

// A panel check compares what the interrupt saw with what the widgets saw. Start creates the record or resumes with it;
// stop keeps the counts; clear zeroes all and stops. All return -1 without a record, the two setters also while
// stopped.
s32 zof_touch_count_start(void);
s32 zof_touch_count_stop(void);
s32 zof_touch_count_clear(void);
s32 zof_touch_count_set_irq(u32 state); // 1 pressed
s32 zof_touch_count_set_ui(u32 state);
s32 zof_touch_count_get_irq(u32 *press, u32 *release);
s32 zof_touch_count_get_ui(u32 *press, u32 *release);
void zof_touch_count_free(void);

ZOF_C_END

#endif
