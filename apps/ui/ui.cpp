#include "ui/ui.h"

#include "bench_ids.h"
#include "ui/focus.h"
#include "ui/keep.h"
#include "ui/keys.h"

enum { PAINT_PERIOD_MS = 100, LOCK_MS = 1000 };

static constexpr ui_page_t pages[] = {{ZOF_VIEW1_ID, view1_paint},
                                      {ZOF_VIEW2_ID, view2_paint},
                                      {ZOF_VIEW3_ID, view3_paint},
                                      {ZOF_VIEW4_ID, view4_paint},
                                      {ZOF_VIEW5_ID, view5_paint}};

static struct {
    u64 calm_until;
    bool press_counts;
    bool painting;
} ui;

void ui_paint() {
    bench_tick();
    if (ui.painting) {
        return;
    }
    ui.painting = true;
    wake_tick();
    bright_apply();
    const u32 view = zof_view_get_cur_id(ZOF_LAYER_UI);
    for (const ui_page_t &page : pages) {
        if (page.view == view) {
            if (view != ZOF_VIEW1_ID) {
                strip_paint(view);
            }
            page.paint();
        }
    }
    focus_paint();
    ui.painting = false;
}

void ui_start() {
    keep_load();
    keys_start();
    lv_timer_create([](lv_timer_t *) { ui_paint(); }, PAINT_PERIOD_MS, nullptr);
    zof_lang_on_change(ui_paint);
    ui_paint();
}

void ui_calm() {
    ui.calm_until = bench.now + UI_CALM_MS;
}

// Returns true if the finger was already down before it reached this control.
static bool slid_on() {
    zof_touch_t touch = {};
    return zof_touch_get(&touch) == 0 && touch.state == ZOF_TOUCH_HELD;
}

bool ui_takes(zof_event_e event, bench_press_e what) {
    if (event == ZOF_EVENT_PRESSED) {
        bench_tick();
        ui.press_counts = !wake_press() && !slid_on() && bench.now >= ui.calm_until && bench_press(what);
        if (!ui.press_counts) {
            ui_paint();
        }
    }
    return ui.press_counts;
}

void ui_tab_to(u32 view) {
    zof_view_set_dis_view_anim(view, ZOF_SCR_LOAD_ANIM_NONE, 0, 0, ZOF_ANIM_PATH_END_SLOW);
}

void ui_entered() {
    hold_cancel();
    ui_calm();
    ui_paint();
}

void output_tab_event(zof_ctrl_t *, zof_event_e event) {
    static u64 down_at;
    static bool held;
    const bool counts = ui_takes(event, BENCH_PRESS_LOOKS);
    if (event == ZOF_EVENT_PRESSED) {
        down_at = bench.now;
        held = false;
    } else if (event == ZOF_EVENT_PRESSING && !held) {
        bench_tick();
        if (bench.now - down_at >= LOCK_MS) {
            held = true;
            bench_lock(!bench.locked);
            keep_save();
            ui_paint();
        }
    } else if (event == ZOF_EVENT_CLICKED && counts && !held && zof_view_get_cur_id(ZOF_LAYER_UI) != ZOF_VIEW1_ID) {
        ui_tab_to(ZOF_VIEW1_ID);
    }
}
