// Touches and events on their way up: tones, waking from standby, and reports to a host.
#include "hmi/zof_hmi.h"

#include "drv/zof_drv.h"
#include "func/zof_func_stdby.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_sync.h"
#include "hmi/zof_hmi_tone.h"
#include "project/zof_prj.h"

// Bits of the project's `th_en`.
enum { REPORT_PRESS = 0x10, REPORT_RELEASE = 0x20, REPORT_HOLD = 0x40 };

static u32 reported_press; // time of the last reported press, ms; not updated while the finger stays down

static void report_send() {
    static const u8 type_key[] = {1, 0xB0};
    static const u8 param_key[] = {2, 0x04, 0x01};
    zof_hmi_sync_refresh(); // the frame reports this touch, not the last copy
    zof_hmi_cmd_read_send(ui_cmd_analys, type_key, nullptr, param_key, nullptr);
}

void zof_hmi_touch_cmd_send(u8 press, u8 release, u8 hold) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!ui_cmd_analys || !prj || !prj->attr) {
        return;
    }
    const zof_prj_touch_t *touch = &prj->attr->hw_t.touch_t;
    const u32 now = zof_sys_time_ms();
    const bool pressed = press && (touch->th_en & REPORT_PRESS);
    const bool held = hold && (touch->th_en & REPORT_HOLD) && now - reported_press >= touch->long_press_time;
    if (pressed) {
        reported_press = now;
    }
    if (pressed || held || (release && (touch->th_en & REPORT_RELEASE))) {
        report_send();
    }
}

// A press that wakes the display is hidden from the controls until the finger lifts.
static s32 touch_press() {
    zof_hmi_touch_rtp_cal_check(1);
    zof_hmi_touch_tone(1, 0);
    zof_hmi_touch_cmd_send(1, 0, 0);
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
    if (touch->state == ZOF_TOUCH_HELD) {
        zof_hmi_touch_cmd_send(0, 0, 1);
    } else {
        zof_hmi_touch_tone(1, 1);
        zof_hmi_touch_cmd_send(0, 1, 0);
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
