// Touches and events on their way: tones, waking from standby, and reports to a host. The serial host protocol itself is
// not built yet; a project that asks for it is told so.
#include "hmi/zof_hmi.h"

#include "func/zof_func_stdby.h"
#include "hmi/zof_hmi_tone.h"
#include "project/zof_j2s.h"
#include "project/zof_prj.h"
#include "project/zof_res.h"
#include "zof_lib/zof_stdio.h"

s32 zof_hmi_init(void)
{
    const char *path = zof_res_get_g_file_path("config/project/", "zofhmi");
    if (!path || !FileExist(path)) {
        return -1;
    }
    zof_rootjson_t file = RootJsonGet(path);
    zof_hmi_attr_t attr = {};
    const s32 result = file.root ? GetHmiStruct(file.root, &attr) : -1;
    if (result == 0 && attr.hmi_en) {
        zof_printf("config/project/zofhmi.g: the serial host protocol (hmi_en) is not built yet; no link is opened");
    }
    FreeHmiStruct(&attr);
    RootJsonDel(&file);
    return result;
}

// A press that wakes the display is taken from the controls until the finger lifts.
static s32 touch_press() {
    zof_hmi_touch_rtp_cal_check(1);
    zof_hmi_touch_tone(1, 0);
    const s64 woken = zof_func_stdby_touch_click();
    return woken == 0 ? -2 : (s32)woken;
}

s32 zof_hmi_touch_evevt(const zof_touch_t *touch) {
    if (!touch) {
        return -1;
    }
    if (touch->state == ZOF_TOUCH_PRESS) {
        return touch_press();
    }
    if (touch->state == ZOF_TOUCH_RELEASED) {
        zof_hmi_touch_tone(1, 1);
    }
    return 0;
}

s32 zof_hmi_ctrl_all_event(u32 view_id, u32 ctrl_id, u32 event) {
    (void)view_id;
    (void)ctrl_id;
    if (event == ZOF_EVENT_PRESSED) {
        zof_hmi_touch_rtp_cal_check(0);
        zof_hmi_touch_tone(0, 0);
    } else if (event == ZOF_EVENT_CLICKED) {
        zof_hmi_touch_tone(0, 1);
    }
    return 0;
}
