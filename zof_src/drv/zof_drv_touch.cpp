// Touch: every read of the input device passes through here before the widgets see it, so that the host protocol can
// report it and hide a contact from them.
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_touch.h"
#include "drv/zof_drv_up.h"
#include "zof_lib/zof_stdio.h"

const zof_drv_touch_ops_t *drv_touch_t;
lv_indev_t *touch_indev;

static zof_touch_t g_touch_t; // the last touch that was reported upwards
static u8 last_state;         // the finger's state, also while it is hidden
static u8 ignore_once;        // hide until the finger lifts

static void (*g_landed)(u16 x, u16 y);

void zof_touch_landed_set(void (*fn)(u16 x, u16 y)) {
    g_landed = fn;
}

void zof_touch_landed(u16 x, u16 y) {
    if (g_landed) {
        g_landed(x, y);
    }
}

// A finger that is simulated by a key. It begins and ends with a read that reports it where it is.
static struct {
    bool down, unread, lifting;
    bool further; // a finger on the panel that the widgets do not see, until it lifts
    lv_point_t at;
} key;
static bool finger_down; // on the panel, at the last read
static u32 landings;

s32 zof_touch_key(u16 x, u16 y, zof_bool down) {
    const bool starts = down && !key.down;
    if (starts && (finger_down || !touch_indev || touch_indev->driver->read_timer->paused)) {
        return -1;
    }
    key.unread = key.unread || starts;
    key.lifting = key.lifting || (!down && key.down);
    key.down = down != ZOF_FALSE;
    key.at = {(lv_coord_t)x, (lv_coord_t)y};
    return 0;
}

u32 zof_touch_landings(void) {
    return landings;
}

// Puts the key's finger in place of what the panel reports.
static void key_mix(lv_indev_data_t *data) {
    const bool finger = data->state == LV_INDEV_STATE_PRESSED;
    const bool lands = finger && !finger_down;
    finger_down = finger;
    landings += lands;
    key.further = key.further && finger;
    const bool pressed = key.down || key.unread;
    if (pressed && lands) {
        key.further = true;
        zof_touch_landed((u16)data->point.x, (u16)data->point.y);
    }
    if (pressed || key.lifting || key.further) {
        data->point = key.at;
        data->state = pressed ? LV_INDEV_STATE_PRESSED : LV_INDEV_STATE_RELEASED;
    }
    key.lifting = key.lifting && pressed; // the next read lifts it
    key.unread = false;
}

s32 zof_touch_event(lv_indev_data_t *data) {
    if (!data) {
        return -1;
    }
    key_mix(data);
    if (data->state == LV_INDEV_STATE_PRESSED) {
        last_state = last_state == ZOF_TOUCH_RELEASED ? ZOF_TOUCH_PRESS : ZOF_TOUCH_HELD;
    } else if (last_state == ZOF_TOUCH_RELEASED) {
        return -1;
    } else {
        last_state = ZOF_TOUCH_RELEASED;
        ignore_once = 0;
    }
    g_touch_t = {last_state, (u16)data->point.x, (u16)data->point.y};
    if (zof_drv_up.touch(&g_touch_t) == -2) {
        ignore_once = 1;
    }
    if (ignore_once) {
        data->state = LV_INDEV_STATE_RELEASED;
        g_touch_t.state = ZOF_TOUCH_RELEASED;
    }
    return 0;
}

s32 zof_touch_get(zof_touch_t *out) {
    if (!out || !touch_indev) {
        return -1;
    }
    *out = g_touch_t;
    const lv_disp_drv_t *drv = touch_indev->driver->disp ? touch_indev->driver->disp->driver : nullptr;
    if (!drv) {
        return 0;
    }
    if (drv->rotated == LV_DISP_ROT_180 || drv->rotated == LV_DISP_ROT_270) {
        out->x = (u16)(drv->hor_res - out->x - 1);
        out->y = (u16)(drv->ver_res - out->y - 1);
    }
    if (drv->rotated == LV_DISP_ROT_90 || drv->rotated == LV_DISP_ROT_270) {
        const u16 y = out->y;
        out->y = out->x;
        out->x = (u16)(drv->ver_res - y - 1);
    }
    return 0;
}

s32 zof_touch_rotate(zof_point_t *point) {
    zof_prj_facts_t facts = {};
    const zof_disp_t *d = zof_drv_get_disp_t();
    if (!point || !d || zof_drv_up.prj_facts(&facts) != 0) {
        return -1;
    }
    const s64 size_w = d->size_w;
    const s64 size_h = d->size_h;
    if (point->x < 0 || point->x > size_w || point->y < 0 || point->y > size_h) {
        return -1;
    }
    s64 width = facts.width;
    s64 height = facts.height;
    s64 x = point->x;
    s64 y = point->y;
    if ((u8)facts.rotate == 1 || (u8)facts.rotate == 3) {
        width = facts.height;
        height = facts.width;
        x = size_w - x - 1;
        y = size_h - y - 1;
    }
    point->x = (s32)(width != size_w && size_w ? x * width / size_w : x);
    point->y = (s32)(height != size_h && size_h ? y * height / size_h : y);
    return 0;
}

void zof_drv_touch_pause(s32 flag) {
    if (!touch_indev) {
        return;
    }
    if (flag) {
        lv_timer_pause(touch_indev->driver->read_timer);
    } else {
        lv_timer_resume(touch_indev->driver->read_timer);
    }
}

s32 zof_drv_touch_get_tp_type(void) {
    return drv_touch_t && drv_touch_t->get_tp_type ? drv_touch_t->get_tp_type() : -1;
}

void zof_drv_touch_rtp_cal(void) {
    if (drv_touch_t && drv_touch_t->rtp_cal) {
        drv_touch_t->rtp_cal();
    }
}

const zof_drv_touch_ops_t *zof_drv_get_touch_t(void) {
    return drv_touch_t;
}

struct touch_counter {
    u32 state, press, release;
};

struct touch_test {
    touch_counter irq, ui;
    u8 enable;
};

static touch_test *g_test_t; // created by the first start of a panel check

s32 zof_touch_count_start(void) {
    if (!g_test_t) {
        g_test_t = (touch_test *)zof_malloc(sizeof(touch_test));
    }
    if (!g_test_t) {
        return -1;
    }
    g_test_t->enable = 1;
    return 0;
}

s32 zof_touch_count_stop(void) {
    if (!g_test_t) {
        return -1;
    }
    g_test_t->enable = 0;
    zof_delay(10); // let a running interrupt finish before the counts are read
    return 0;
}

s32 zof_touch_count_clear(void) {
    if (!g_test_t) {
        return -1;
    }
    memset(g_test_t, 0, sizeof(*g_test_t));
    return 0;
}

static s32 count_set(touch_counter touch_test::*which, u32 state) {
    if (!g_test_t || !g_test_t->enable) {
        return -1;
    }
    touch_counter *c = &(g_test_t->*which);
    if (state == 1) {
        c->press++;
    } else if (c->state == 1) {
        c->release++;
    }
    c->state = state;
    return 0;
}

static s32 count_get(touch_counter touch_test::*which, u32 *press, u32 *release) {
    if (!g_test_t || !press || !release) {
        return -1;
    }
    *press = (g_test_t->*which).press;
    *release = (g_test_t->*which).release;
    return 0;
}

s32 zof_touch_count_set_irq(u32 state) {
    return count_set(&touch_test::irq, state);
}

s32 zof_touch_count_set_ui(u32 state) {
    return count_set(&touch_test::ui, state);
}

s32 zof_touch_count_get_irq(u32 *press, u32 *release) {
    return count_get(&touch_test::irq, press, release);
}

s32 zof_touch_count_get_ui(u32 *press, u32 *release) {
    return count_get(&touch_test::ui, press, release);
}

void zof_touch_count_free(void) {
    zof_free(g_test_t);
    g_test_t = nullptr;
}
