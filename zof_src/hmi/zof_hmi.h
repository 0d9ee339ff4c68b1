// The serial host protocol as the rest of the runtime sees it: the link, and what touches and control events trigger.
#ifndef ZOF_HMI_H
#define ZOF_HMI_H

#include "drv/zof_drv_touch.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Initialises the host link in the two steps below. Main thread, once, after the drivers. Returns the first step's
// result if it failed, else the second's.
s32 zof_hmi_init(void);

// Reads config/project/zofhmi.g. Returns 0; -1 without such a file, when it cannot be read, and when its two head bytes
// are equal, because frames and noise could not be distinguished.
s32 zof_hmi_attr_init(void);

// Returns the link's settings; null until they are read. They stay valid for the whole run.
const zof_hmi_attr_t *zof_hmi_attr_get(void);

// Builds the analysers, opens the line and sends the power-on frame. Returns 0, even when the line cannot be opened; -1
// without settings, when they disable the link, without a port or memory.
s32 zof_hmi_uart_init(void);

// Sends a whole frame; any thread, frames do not mix. Returns the bytes sent, or -1 without a line.
s32 zof_hmi_uart_send(const u8 *data, u32 size);

// Keeps what the receive callback could not use yet; it is put before the next data. Returns 0, or -1 when it is too
// much.
s32 zof_hmi_uart_tail_set(const u8 *data, u32 size);

// Tells the host that the panel has started. Main thread.
void zof_hmi_cmd_power_on_send(void);

// Reports the touch to the host if the project's flags ask for this kind. While held, every call reports once
// `long_press_time` ms have passed since a reported press. Graphics thread.
void zof_hmi_touch_cmd_send(u8 press, u8 release, u8 hold);

// Sees every touch before the widgets do, on the graphics thread. Returns -2 to hide the contact from them, anything
// else to let it through. `touch` stays the caller's.
s32 zof_hmi_touch_evevt(const zof_touch_t *touch);

// Sees every event of every control (zof_event_e), on the graphics thread, before its own function. Returns 0.
s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event);

ZOF_C_END

#endif
