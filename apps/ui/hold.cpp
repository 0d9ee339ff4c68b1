// Buttons that are held: one at a time, because there is one finger.
#include "ui/ui.h"

enum { SLIDE_OFF_PX = 16, FRAME_MS = 16, BACK_MS = 150 };

static struct {
    const ui_hold_t *now; // null: no hold runs and none returns
    zof_ctrl_t *ctrl;
    lv_timer_t *timer;
    u64 since;
    bool down; // the finger is on it; otherwise the progress runs back
    u32 from;  // progress when it was given up
} hold;

static void end() {
    if (hold.timer) {
        lv_timer_del(hold.timer);
    }
    if (hold.ctrl) {
        zof_ctrl_set_ext_click_area(hold.ctrl, 0);
    }
    hold = {};
}

static u32 progress() {
    const u64 ms = bench.now - hold.since;
    return ms < BENCH_HOLD_MS ? (u32)ms : (u32)BENCH_HOLD_MS;
}

static void give_up() {
    hold.from = progress();
    hold.since = bench.now;
    hold.down = false;
    zof_ctrl_set_ext_click_area(hold.ctrl, 0);
    if (hold.now->given_up) {
        hold.now->given_up();
    }
}

static void turn(lv_timer_t *) {
    bench_tick();
    const ui_hold_t *now = hold.now;
    if (!hold.down) {
        const u64 ms = bench.now - hold.since;
        const u32 left = ms < BACK_MS ? (u32)(hold.from * (BACK_MS - ms) / BACK_MS) : 0;
        if (left == 0) {
            end();
        }
        now->paint(left);
    } else if (bench_age() != BENCH_LIVE) {
        give_up();
    } else if (progress() < BENCH_HOLD_MS) {
        now->paint(progress());
    } else {
        end();
        now->paint(0);
        now->done();
        ui_paint();
    }
}

void hold_begin(zof_ctrl_t *ctrl, const ui_hold_t *what) {
    hold_cancel();
    hold.now = what;
    hold.ctrl = ctrl;
    hold.since = bench.now;
    hold.down = true;
    hold.timer = lv_timer_create(turn, FRAME_MS, nullptr);
    zof_ctrl_set_ext_click_area(ctrl, SLIDE_OFF_PX);
    what->paint(0);
}

void hold_event(zof_event_e event) {
    if (hold.now && hold.down && (event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST)) {
        bench_tick();
        give_up();
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
