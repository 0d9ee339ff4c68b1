#include "hmi/zof_hmi_tone.h"

#include "control/zof_audio.h"
#include "drv/zof_drv.h"
#include "drv/zof_drv_audio.h"
#include "drv/zof_drv_beep.h"
#include "drv/zof_drv_touch.h"
#include "project/path/zof_res.h"
#include "project/zof_prj.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"
#include "zof_lib/zof_util.h"

// Bits of the project's `th_en`.
enum { TONE_ON = 0x02, TONE_OF_TOUCH = 0x04, TONE_AT_RELEASE = 0x08, CALIBRATE = 0x80 };
enum { PANEL_RESISTIVE = 2, CAL_TAPS = 20, CAL_MS = 5001, SERIES_MS = 10 };

// The series that plays.
static struct {
    zof_task_t *task;
    u8 count;
    u16 pause, tone;
} series;

static zof_prj_hw_attr_t *hardware() {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->attr ? &prj->attr->hw_t : nullptr;
}

zof_prj_tone_t *zof_hmi_tone_set(const zof_prj_tone_t *tone) {
    zof_prj_hw_attr_t *hw = hardware();
    if (!hw || !tone) {
        return nullptr;
    }
    char *sound = zof_text_copy(tone->sound);
    char *before = hw->tone_t.sound;
    hw->tone_t = *tone;
    hw->tone_t.sound = sound;
    zof_free(before); // after the copy: the tone may be the project's own
    return &hw->tone_t;
}

void zof_hmi_tone_on(u16 time) {
    const zof_prj_hw_attr_t *hw = hardware();
    if (!hw) {
        return;
    }
    if (hw->tone_t.type == 0) {
        zof_beep_on(time);
        return;
    }
    if (zof_audio_set_src(hw->tone_t.sound) == 0) {
        zof_audio_set_state(ZOF_MEDIA_PLAY);
    }
}

static void zof_hmi_tone_mult_task(zof_task_t *task) {
    if (series.count > 0) {
        zof_hmi_tone_on(series.tone);
        zof_task_set_period(task, (u32)series.pause + series.tone);
        series.count--;
    }
    if (series.count == 0) {
        zof_task_set_cb_pause(task);
    }
}

void zof_hmi_tone_mult_on(u8 count, u16 pause, u16 tone) {
    series.count = count;
    series.pause = pause;
    series.tone = tone;
    if (!series.task) {
        series.task = zof_task_create(zof_hmi_tone_mult_task, SERIES_MS, nullptr);
        return;
    }
    zof_task_set_period(series.task, SERIES_MS);
    zof_task_set_cb_resume(series.task);
}

void zof_hmi_touch_tone(u8 touch, u8 release) {
    const zof_prj_hw_attr_t *hw = hardware();
    if (!hw || !(hw->touch_t.th_en & TONE_ON)) {
        return;
    }
    const bool of_touch = hw->touch_t.th_en & TONE_OF_TOUCH;
    const bool at_release = hw->touch_t.th_en & TONE_AT_RELEASE;
    if (of_touch == (touch != 0) && at_release == (release != 0)) {
        zof_hmi_tone_on(hw->tone_t.time);
    }
}

void zof_hmi_touch_rtp_cal_check(u8 touch) {
    static u8 taps;
    static u32 first;
    const zof_prj_hw_attr_t *hw = hardware();
    if (!hw || !(hw->touch_t.th_en & CALIBRATE) || zof_drv_touch_get_tp_type() != PANEL_RESISTIVE) {
        return;
    }
    if (touch && taps == 0) {
        taps = 1;
        first = zof_sys_time_ms();
    } else if (!touch || zof_sys_time_ms() - first >= CAL_MS) {
        taps = 0;
    } else if (taps < CAL_TAPS) {
        taps++;
    } else {
        zof_drv_touch_rtp_cal();
        taps = 0;
    }
}
