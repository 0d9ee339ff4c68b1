// The serial host protocol's face towards the rest of the runtime: the link, and what touches and control events set
// off.
#ifndef ZOF_HMI_H
#define ZOF_HMI_H

#include "drv/zof_drv_touch.h"
#include "project/zof_prj_attr.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Main thread, once, after the drivers: the two steps below. What the first of them returned, if it failed, else what
// the second did.
s32 zof_hmi_init(void);

// Reads config/project/zofhmi.g. 0; -1 without such a file, when it cannot be read, and when its two head bytes are
// equal, which no frame could be told from noise with.
s32 zof_hmi_attr_init(void);

// The link's settings; null until they were read. They live for the whole run.
const zof_hmi_attr_t *zof_hmi_attr_get(void);

// Builds the analysers, opens the line and sends the power-on frame. 0, also when the line cannot be opened; -1 without
// settings, when they say no, or without a port.
s32 zof_hmi_uart_init(void);

// Hands a whole frame to the line; any thread, frames do not mix. The bytes sent, or -1 without a line.
s32 zof_hmi_uart_send(const u8 *data, u32 size);

// What the receive callback could not use yet: comes again in front of the next data. 0, or -1 when it is too much.
s32 zof_hmi_uart_tail_set(const u8 *data, u32 size);

// Tells the host that the panel has started. Main thread.
void zof_hmi_cmd_power_on_send(void);

// Reports the touch to the host if the project's flags ask for this kind. While held, from `long_press_time` ms after a
// reported press on, each call reports. Graphics thread.
void zof_hmi_touch_cmd_send(u8 press, u8 release, u8 hold);

// Every touch before the widgets see it, on the graphics thread. -2 hides the contact from them, anything else lets it
// through. `touch` stays the caller's.
s32 zof_hmi_touch_evevt(const zof_touch_t *touch);

// Every event of every control (zof_event_e), on the graphics thread, before its own function. 0.
s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event);

ZOF_C_END

#endif
