// The serial host protocol's face towards the rest of the runtime.
#ifndef ZOF_HMI_H
#define ZOF_HMI_H

#include "drv/zof_drv_touch.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Main thread, once, after the drivers: reads config/project/zofhmi.g and opens the link if it asks for one. 0, or -1
// without such a file or when it cannot be read. Until the link is built, one line tells a project that asks for it.
s32 zof_hmi_init(void);

// Every touch before the widgets see it, on the graphics thread. -2 hides the contact from them, anything else lets it
// through. `touch` stays the caller's.
s32 zof_hmi_touch_evevt(const zof_touch_t *touch);

// Every event of every control (zof_event_e), on the graphics thread, before its own function. 0.
s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event);

ZOF_C_END

#endif
