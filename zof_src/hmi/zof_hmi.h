// The serial host protocol's face towards the rest of the runtime.
#ifndef ZOF_HMI_H
#define ZOF_HMI_H

#include "drv/zof_drv_touch.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

s32 zof_hmi_init(void);
s32 zof_hmi_touch_evevt(const zof_touch_t *touch);
s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event);

ZOF_C_END

#endif
