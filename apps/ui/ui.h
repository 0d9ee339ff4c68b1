// Functions that all pages share: painting, deciding which presses count, the strip, tabs and links, and buttons that
// must be held.
//
// A view's control table has one row per id, empty where no function is assigned. The ids of a view are small and
// dense, so only the assigned rows are written out, and the empty ones are added at compile time.
#ifndef UI_H
#define UI_H

#include <array>

#include "bench/bench.h"
#include "ui/paint.h"
#include "ui/views.h"

enum { UI_CALM_MS = 300 };

// A page: its view and the function that paints it.
struct ui_page_t {
    u32 view;
    void (*paint)();
};

// Starts the timer that paints ten times a second. Call it once, after the project has been created.
void ui_start();
// Advances the model and paints the current page with its strip. Call it after anything that may have changed the page.
void ui_paint();
// Notes that a page, a tray or the keypad has changed. For UI_CALM_MS only Off accepts presses, because others were
// aimed at what was shown before.
void ui_calm();
// Call this in the entry function of each view. It runs however the view is shown: by a tab, a link or the host.
void ui_entered();
// Returns true if an event of a control counts. A press does not count if the finger slid onto the control, during the
// time of ui_calm, while the panel is locked, or while a remote client holds it. The later events of an ignored press
// are ignored too.
bool ui_takes(zof_event_e event, bench_press_e what = BENCH_PRESS_CHANGES);

// A display with a backlight may be too dim to see what is touched. Below UI_DIM_PERCENT the first press only brightens
// it to that level, until BENCH_WAKE_MS after the last touch. Off works at any brightness.
enum { UI_DIM_PERCENT = 30 };
bool wake_press();            // call it when a control is pressed; returns true if the press only wakes the display
void wake_tick();             // handles touches outside all controls
u16 wake_bright(u16 percent); // returns the brightness to show for a setting

// Handles the tab of the Output page. Holding it for a second locks or unlocks the panel.
void output_tab_event(zof_ctrl_t *, zof_event_e event);

// Handles the key of the toggle: pressed (ZOF_EVENT_PRESSED) or released (ZOF_EVENT_CLICKED).
void toggle_key(zof_event_e event);

// Types a digit, a point, '\b' or, for Done, '\n' on the keypad of the rails page. Returns false if it is not open.
bool keypad_type(char c);

// Shows a page at once, without an animation: LVGL ignores touches while a page slides in, and Off would not count.
void ui_tab_to(u32 view);

// As ui_tab_to, with an animation: the old page slides away to the left, or to the right if `back`.
void ui_slide_to(u32 view, bool back);

// The strip on all pages except Output, and the function of its off button.
void strip_paint(u32 view);
void strip_off_event(zof_ctrl_t *, zof_event_e event);
// Writes why the state of the box is unknown.
void strip_notice(char *out, size_t size);

// A button that must be held for an action that can damage a device. The hold is given up when the finger lifts or
// slides off by more than HOLD_SLIDE_PX, or when readings are late. At its end `done` runs once, while the finger is
// still down.
enum { HOLD_SLIDE_PX = 16 };
struct ui_hold_t {
    void (*paint)(u32 ms); // progress, 0 to BENCH_HOLD_MS
    void (*done)();
    void (*given_up)(); // may be null
};
void hold_begin(zof_ctrl_t *ctrl, const ui_hold_t *hold);
void hold_event(zof_event_e event); // pass it the events of the control
bool hold_running();
void hold_cancel();

// Controls without a function still need a row, for the press tone and the touch hook.
inline void no_event(zof_ctrl_t *, zof_event_e) {
}

// Returns the rows for ids 1 to N, in order.
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

// Runs DO for a click that counts, then paints the result.
template <void (*DO)(), bench_press_e WHAT = BENCH_PRESS_CHANGES> void click_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event, WHAT) && event == ZOF_EVENT_CLICKED) {
        DO();
        ui_paint();
    }
}

// Runs DO when the finger lands.
template <void (*DO)()> void press_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_PRESSED) {
        DO();
        ui_paint();
    }
}

template <u32 VIEW> void tab_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event, BENCH_PRESS_LOOKS) && event == ZOF_EVENT_CLICKED) {
        ui_tab_to(VIEW);
    }
}

#endif
