// Buttons that must be held: one at a time, because there is one finger. A held button keeps the finger until it has
// slid off by more than 16 px, even over another control. A hold counts only time during which the progress was
// visible, because the finger may have left during a stall. It acts only if the finger is seen to be down at its end,
// so a finger that has just left does nothing. A button that is held by a key has no finger.
#include "ui/ui.h"

enum { FRAME_MS = 16, STALL_MS = 100, BACK_MS = 150 };

static struct {
    const ui_hold_t *now; // null: no hold is running or running back
    zof_ctrl_t *ctrl;
    lv_timer_t *timer;
    bool down;    // the button is held; otherwise the progress runs back
    bool finger;  // held by a finger, not a key
    u32 progress; // ms, up to BENCH_HOLD_MS
    u64 at;       // time of the last progress, or when the hold was given up
} hold;

static bool finger_is_near() {
    lv_area_t area;
    lv_point_t finger;
    zof_ctrl_get_coords(hold.ctrl, &area);
    lv_indev_get_point(touch_indev, &finger);
    lv_area_increase(&area, HOLD_SLIDE_PX, HOLD_SLIDE_PX);
    return _lv_area_is_point_on(&area, &finger, 0);
}

static void end() {
    if (hold.timer) {
        lv_timer_del(hold.timer);
    }
    if (hold.ctrl) {
        paint_keeps_finger((para_t *)hold.ctrl, false);
    }
    hold = {};
}

static u32 progress() {
    hold.progress += (u32)LV_MIN(bench.now - hold.at, (u64)STALL_MS);
    hold.progress = LV_MIN(hold.progress, (u32)BENCH_HOLD_MS);
    hold.at = bench.now;
    return hold.progress;
}

static void give_up() {
    progress();
    hold.down = false;
    paint_keeps_finger((para_t *)hold.ctrl, false);
    if (hold.now->given_up) {
        hold.now->given_up();
    }
}

static void finish() {
    const ui_hold_t *now = hold.now;
    end();
    now->paint(0);
    now->done();
}

// During a hold, readings may become late, and the panel may be locked or taken over by a program.
static bool still_counts() {
    return bench_age() == BENCH_LIVE && !bench.locked && !bench.remote[0];
}

static void turn(lv_timer_t *) {
    bench_tick();
    const ui_hold_t *now = hold.now;
    if (!hold.down) {
        const u64 ms = bench.now - hold.at;
        const u32 left = ms < BACK_MS ? (u32)(hold.progress * (BACK_MS - ms) / BACK_MS) : 0;
        if (left == 0) {
            end();
        }
        now->paint(left);
    } else if (!still_counts()) {
        give_up();
    } else if (progress() >= BENCH_HOLD_MS && !hold.finger) {
        finish();
        ui_paint();
    } else {
        now->paint(hold.progress);
    }
}

void hold_begin(zof_ctrl_t *ctrl, const ui_hold_t *what) {
    hold_cancel();
    hold.now = what;
    hold.ctrl = ctrl;
    hold.at = bench.now;
    hold.down = true;
    zof_touch_t touch = {};
    hold.finger = zof_touch_get(&touch) == 0 && touch.state != ZOF_TOUCH_RELEASED;
    hold.timer = lv_timer_create(turn, FRAME_MS, nullptr);
    paint_keeps_finger((para_t *)ctrl, true);
    what->paint(0);
}

void hold_event(zof_event_e event) {
    if (!hold_running()) {
        return;
    }
    bench_tick();
    const bool lifted = event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST;
    if (lifted || (event == ZOF_EVENT_PRESSING && (!finger_is_near() || !still_counts()))) {
        give_up();
    } else if (event == ZOF_EVENT_PRESSING && progress() >= BENCH_HOLD_MS) {
        finish();
    }
}

bool hold_running() {
    return hold.now && hold.down;
}

void hold_cancel() {
    if (hold.now) {
        const ui_hold_t *now = hold.now;
        end();
        now->paint(0);
    }
}
