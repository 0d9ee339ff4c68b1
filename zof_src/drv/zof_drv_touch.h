// Touch: the hook between the input device and the widgets, and the counters of a panel check.
#ifndef ZOF_DRV_TOUCH_H
#define ZOF_DRV_TOUCH_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum { ZOF_TOUCH_RELEASED = 0, ZOF_TOUCH_PRESS = 1, ZOF_TOUCH_HELD = 2 };

typedef struct {
    u8 state;
    u16 x, y;
} zof_touch_t;

typedef struct {
    s32 (*get_tp_type)(void); // MANDATORY: 2 means resistive
    void (*rtp_cal)(void);    // OPTIONAL
} zof_drv_touch_ops_t;

extern const zof_drv_touch_ops_t *drv_touch_t;
extern lv_indev_t *touch_indev;

s32 zof_touch_event(lv_indev_data_t *data);
s32 zof_touch_get(zof_touch_t *out);
s32 zof_touch_rotate(zof_point_t *point);
void zof_drv_touch_pause(s32 flag);
s32 zof_drv_touch_get_tp_type(void);
void zof_drv_touch_rtp_cal(void);
const zof_drv_touch_ops_t *zof_drv_get_touch_t(void);

s32 zof_touch_count_start(void);
s32 zof_touch_count_stop(void);
s32 zof_touch_count_clear(void);
s32 zof_touch_count_set_irq(u32 state);
s32 zof_touch_count_set_ui(u32 state);
s32 zof_touch_count_get_irq(u32 *press, u32 *release);
s32 zof_touch_count_get_ui(u32 *press, u32 *release);
void zof_touch_count_free(void);

ZOF_C_END

#endif
