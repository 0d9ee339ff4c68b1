// What all pages share: when they are painted, which presses count, the strip, tabs and links, and buttons that are
// held.
//
// A view's control table has one row per id, empty where nothing is wired. The ids of a view are small and dense, so
// only the wired rows are written down, and the empty ones are added at compile time.
#ifndef UI_H
#define UI_H

#include <array>

#include "bench/bench.h"
#include "ui/paint.h"
#include "ui/views.h"

enum { UI_CALM_MS = 300 };

// A page: its view and what paints it.
struct ui_page_t {
    u32 view;
    void (*paint)();
};

// Starts the timer that paints ten times a second. Once, after the project is created.
void ui_start();
// Advances the model and paints the page that is shown, with its strip. Call it after anything that may have changed
// it.
void ui_paint();
// A page, a tray or the keypad has changed: for 0.3 s presses count only for Off, for they were aimed at what was there
// before.
void ui_calm();
// For the entry function of each view, however it is shown: by a tab, a link, or the host.
void ui_entered();
// Whether this event of a control counts: not of a finger that slid onto it, in the 0.3 s above, nor while the panel is
// locked or a remote client holds it. A press that does not count takes its later events with it.
bool ui_takes(zof_event_e event, bench_press_e what = BENCH_PRESS_ANY);

// A display with a backlight may be too dim to see what is touched. Below UI_DIM_PERCENT the first press only brightens
// it to that level, until BENCH_WAKE_MS after the last touch. Off works at any brightness.
enum { UI_DIM_PERCENT = 30 };
bool wake_press();            // call when a control is pressed; returns whether the press only wakes the display
void wake_tick();             // handles touches outside all controls
u16 wake_bright(u16 percent); // returns the brightness to show for a setting

// The tab of the Output page, which held for a second locks the panel, and unlocks it.
void output_tab_event(zof_ctrl_t *, zof_event_e event);

// The key of the toggle was pressed (ZOF_EVENT_PRESSED) or let go (ZOF_EVENT_CLICKED).
void toggle_key(zof_event_e event);

// A key types a digit, a point, '\b' or, for Done, '\n' on the keypad of the rails. Returns false if it is not open.
bool keypad_type(char c);

// Shows a page at once: while one slides in, LVGL takes no touch, and Off would not count.
void ui_tab_to(u32 view);

// As above; the old page slides away to the left, or to the right with `back`.
void ui_slide_to(u32 view, bool back);

// The strip on all pages but Output; its off button's function.
void strip_paint(u32 view);
void strip_off_event(zof_ctrl_t *, zof_event_e event);
// Writes why nothing is known of the box.
void strip_notice(char *out, size_t size);

// A button that is held for what may hurt. The hold is given up when the finger lifts, slides off by more than
// HOLD_SLIDE_PX, or readings are late; at its end `done` runs once, while the finger is still down.
enum { HOLD_SLIDE_PX = 16 };
struct ui_hold_t {
    void (*paint)(u32 ms); // 0 to BENCH_HOLD_MS
    void (*done)();
    void (*given_up)(); // may be null
};
void hold_begin(zof_ctrl_t *ctrl, const ui_hold_t *hold);
void hold_event(zof_event_e event); // for the events of its control
bool hold_running();
void hold_cancel();

// Controls without a function of their own still need a row, for the press tone and the touch hook.
inline void no_event(zof_ctrl_t *, zof_event_e) {
}

// Rows for ids 1 to N, in order.
template <size_t N, size_t W> constexpr std::array<zof_ctrl_fun_t, N> view_rows(const zof_ctrl_fun_t (&wired)[W]) {
    std::array<zof_ctrl_fun_t, N> rows{};
    u32 id = 0;
    for (zof_ctrl_fun_t &row : rows) {
        row = {++id, no_event};
        for (const zof_ctrl_fun_t &w : wired) {
            row = w.ctrl_id == id ? w : row;
        }
    }
    return rows;
}

// A click that counts, and then a picture of what it did.
template <void (*DO)()> void click_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_CLICKED) {
        DO();
        ui_paint();
    }
}

// Acts when the finger lands.
template <void (*DO)()> void press_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_PRESSED) {
        DO();
        ui_paint();
    }
}

template <u32 VIEW> void tab_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_CLICKED) {
        ui_tab_to(VIEW);
    }
}

#endif
