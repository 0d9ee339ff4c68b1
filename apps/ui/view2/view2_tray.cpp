// The tray: the selected rail and its values, or a text if there is nothing to set.
#include <stdio.h>

#include "ui/view2/view2.h"

static struct {
    bench_choice_t choice;
    u32 changes;  // change count of the list in which it was selected
    bool changed; // a change has removed the selection
    u64 changed_at;
    tray_mode_e painted;
} tray = {.choice = {.rail = RAIL_NONE}};

tray_mode_e tray_mode() {
    if (bench.rails.state != BENCH_RAILS_SHOWN || bench.rails.count == 0) {
        return TRAY_HIDDEN;
    }
    if (!bench_live()) {
        return TRAY_DEAD;
    }
    if (tray.choice.rail == RAIL_NONE) {
        return TRAY_EMPTY;
    }
    return prof_adjustable(&bench.rails.rail[tray.choice.rail]) ? TRAY_ADJUSTABLE : TRAY_FIXED;
}

bench_choice_t tray_choice() {
    return tray.choice;
}

void tray_select(bench_choice_t choice) {
    hold_cancel();
    set_cancel();
    tray.choice = choice;
    tray.changes = bench.rails.changes;
    tray.changed = false;
    ui_calm();
}

bool tray_is_settable() {
    return tray_mode() == TRAY_ADJUSTABLE && !bench.remote[0];
}

void tray_check() {
    if (tray.changes == bench.rails.changes) {
        return;
    }
    if (tray.choice.rail == RAIL_NONE) {
        tray.changes = bench.rails.changes;
        return;
    }
    keypad_close();
    tray_select({.rail = RAIL_NONE});
    tray.changed = true;
    tray.changed_at = bench.now;
}

// Values ----------------------------------------------------------------------------------------------------------
grid_t axis_grid(axis_e axis) {
    const prof_t &rail = bench.rails.rail[tray.choice.rail];
    return axis == VOLTS ? grid_volts(&rail) : grid_amperes(&rail);
}

u16 axis_value(axis_e axis) {
    return axis == VOLTS ? tray.choice.mv : tray.choice.ma;
}

void axis_set(axis_e axis, u16 value) {
    (axis == VOLTS ? tray.choice.mv : tray.choice.ma) = value;
}

const char *axis_text(char *out, axis_e axis, u32 value) {
    return axis == VOLTS ? number_volts(out, value) : number_amperes(out, value);
}

// Painting --------------------------------------------------------------------------------------------------------
static void value_paint(u32 id, axis_e axis, bool shown, bool fixed) {
    para_t *value = view2(id);
    char text[PAINT_NUMBER_SIZE];
    paint_shown(value, shown);
    paint_touch(value, shown && tray_is_settable());
    paint_look(value, fixed ? LOOK_CHOSEN : bench.remote[0] ? LOOK_DEAD : 0);
    paint_align(value, fixed ? LV_TEXT_ALIGN_LEFT : LV_TEXT_ALIGN_RIGHT);
    if (shown) {
        paint_text(value, axis_text(text, axis, axis_value(axis)));
    }
}

static void words_paint(tray_mode_e mode) {
    enum { X = 20, ONE_Y = 74, TWO_Y = 35, WIDTH = 550, HEIGHT = 56 };
    para_t *words = view2(VIEW2_TRAY_WORDS_ID);
    const bool changed = mode == TRAY_EMPTY && tray.changed && bench.now - tray.changed_at < BENCH_NEWS_MS;
    char amperes[PAINT_NUMBER_SIZE];
    if (mode == TRAY_FIXED) {
        paint_words(words, TEXT_FIXED_UPTO, number_amperes(amperes, tray.choice.ma));
    } else {
        paint_words(words, mode == TRAY_DEAD ? TEXT_WAIT : changed ? TEXT_CHANGED : TEXT_HINT);
    }
    paint_look(words, changed ? LOOK_CHOSEN : 0);
    paint_place(words, X, mode == TRAY_FIXED ? ONE_Y : TWO_Y, WIDTH, HEIGHT);
    paint_shown(words, mode != TRAY_ADJUSTABLE);
}

void tray_paint() {
    const tray_mode_e mode = tray_mode();
    if (mode != tray.painted) {
        tray.painted = mode;
        ui_calm();
    }
    const bool adjustable = mode == TRAY_ADJUSTABLE;
    paint_shown(view2(VIEW2_CONTAINER1_ID), mode != TRAY_HIDDEN);
    value_paint(VIEW2_LABEL82_ID, VOLTS, adjustable || mode == TRAY_FIXED, mode == TRAY_FIXED);
    value_paint(VIEW2_LABEL83_ID, AMPERES, adjustable, false);
    words_paint(mode);
    set_paint(adjustable);
    apply_paint(mode);
}
