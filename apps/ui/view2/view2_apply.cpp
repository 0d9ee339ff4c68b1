// The button that applies what the tray shows, the bar that fills it while it is held, and the line above it.
#include "ui/view2/view2.h"

// The choice that the button shows; only this is sent.
struct offer_t {
    bench_choice_t choice;
    u32 changes; // change count of the list of rails
    bench_apply_e how;
};
static offer_t painted, pressed;

static bool sent;      // the box has been requested to apply it
static bool filling;   // the bar covers part of the button
static bool impatient; // a hold was given up at impatient_at
static u64 impatient_at;

static bool same(const offer_t &a, const offer_t &b) {
    return a.choice.rail == b.choice.rail && a.choice.mv == b.choice.mv && a.choice.ma == b.choice.ma &&
           a.changes == b.changes;
}

// The line --------------------------------------------------------------------------------------------------------
// A white line takes the place of the plus button for a fixed rail, and stays clear of it for an adjustable one.
static void line_look(bool white, bool adjustable) {
    static constexpr struct {
        u32 look;
        s32 x, y, width;
    } rows[] = {{0, 494, 7, 276}, {LOOK_CHOSEN, 550, 7, 226}, {LOOK_HOLD, 494, 4, 276}};
    const auto &row = rows[!white ? 0 : adjustable ? 1 : 2];
    paint_look(view2(VIEW2_TRAY_STATE_ID), row.look);
    paint_place(view2(VIEW2_TRAY_STATE_ID), row.x, row.y, row.width, 40);
}

// Returns what to report in place of the output's state, or TEXT_COUNT for nothing.
static panel_text_e line_news() {
    if (bench.not_taken && bench.now - bench.not_taken_at < BENCH_NEWS_MS) {
        return TEXT_NOT_TAKEN;
    }
    if (impatient && painted.how == BENCH_APPLY_HOLD && bench.now - impatient_at < BENCH_NOTE_MS) {
        return TEXT_HOLD_LONGER;
    }
    return painted.how != BENCH_APPLY_NO && bench_apply_turns_on() ? TEXT_TURNS_ON : TEXT_COUNT;
}

static void line_paint(tray_mode_e mode) {
    para_t *line = view2(VIEW2_TRAY_STATE_ID);
    const panel_text_e news = line_news();
    const bool on = bench_is_on();
    const bool white = on || news != TEXT_COUNT;
    u16 mv, ma, dw;
    bench_eye(&mv, &ma, &dw);
    char volts[PAINT_NUMBER_SIZE];
    if (news != TEXT_COUNT) {
        paint_words(line, news);
    } else if (on) {
        paint_words(line, TEXT_ON_AT, bench.mv_known ? number_volts(volts, mv) : "-․-- V");
    } else {
        paint_words(line, bench_out_known() ? TEXT_IS_OFF : TEXT_IS_UNKNOWN);
    }
    line_look(white, mode == TRAY_ADJUSTABLE);
    paint_shown(line, mode != TRAY_DEAD);
}

// The button ------------------------------------------------------------------------------------------------------
static void words_paint(bool selected) {
    para_t *button = view2(VIEW2_LABEL84_ID);
    char volts[PAINT_NUMBER_SIZE];
    number_volts(volts, painted.choice.mv);
    if (!selected) {
        paint_words(button, TEXT_SELECT);
    } else if (bench.applying) {
        paint_words(button, TEXT_APPLYING);
    } else if (bench_applied(painted.choice)) {
        paint_words(button, TEXT_APPLIED);
    } else {
        paint_words(button, painted.how == BENCH_APPLY_HOLD ? TEXT_HOLD_USE : TEXT_USE, volts);
    }
}

// Returns to the Output page when the box has confirmed the rail.
static void confirmed_leave() {
    const bool done = sent && !bench.applying;
    sent = sent && bench.applying;
    if (done && bench_applied(painted.choice) && !keypad_is_open()) {
        view1_paint();
        ui_slide_to(ZOF_VIEW1_ID, true);
    }
}

void apply_paint(tray_mode_e mode) {
    para_t *button = view2(VIEW2_LABEL84_ID);
    const bool selected = mode == TRAY_FIXED || mode == TRAY_ADJUSTABLE;
    painted = {tray_choice(), bench.rails.changes, BENCH_APPLY_NO};
    if (selected && !bench.remote[0] && !bench_applied(painted.choice)) {
        painted.how = bench_apply_how(painted.choice);
    }
    if (filling && painted.how != BENCH_APPLY_HOLD) { // the button no longer shows what it is held for
        hold_cancel();
    }
    words_paint(selected);
    paint_look(button, painted.how == BENCH_APPLY_NO ? LOOK_DEAD : painted.how == BENCH_APPLY_HOLD ? LOOK_HOLD : 0);
    paint_touch(button, painted.how != BENCH_APPLY_NO);
    line_paint(mode);
    confirmed_leave();
}

static void fill_paint(u32 ms) {
    para_t *fill = view2(VIEW2_HOLD_FILL_ID), *button = view2(VIEW2_LABEL84_ID);
    const s32 width = zof_ctrl_get_width(button) * (s32)ms / BENCH_HOLD_MS;
    char volts[PAINT_NUMBER_SIZE];
    paint_words(view2(VIEW2_HOLD_WORDS_ID), TEXT_HOLD_USE, number_volts(volts, pressed.choice.mv));
    paint_place(fill, zof_ctrl_get_x(button), zof_ctrl_get_y(button), width, zof_ctrl_get_height(button));
    paint_shown(fill, width > 0);
    filling = width > 0;
}

static void apply(bool held) {
    if (same(painted, pressed) && painted.changes == bench.rails.changes && bench_apply(painted.choice, held)) {
        sent = true;
    }
}

static void hold_done() {
    apply(true);
}

static void hold_given_up() {
    impatient = true;
    impatient_at = bench.now;
}

static constexpr ui_hold_t apply_hold = {fill_paint, hold_done, hold_given_up};

void apply_event(zof_ctrl_t *ctrl, zof_event_e event) {
    const bool counts = ui_takes(event);
    if (event == ZOF_EVENT_PRESSED) {
        pressed = counts ? painted : offer_t{};
        if (pressed.how == BENCH_APPLY_HOLD) {
            impatient = false;
            hold_begin(ctrl, &apply_hold);
        }
    }
    hold_event(event);
    if (event == ZOF_EVENT_CLICKED && counts && pressed.how == BENCH_APPLY_CLICK) {
        apply(false);
    }
    ui_paint();
}

void apply_leave() {
    sent = false;
    impatient = false;
}
