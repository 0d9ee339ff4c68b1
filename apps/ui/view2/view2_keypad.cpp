// The keypad for typing a value. It changes only what the tray shows, and only to values on the grid.
#include <stdio.h>
#include <string.h>

#include "ui/view2/view2.h"

enum { TYPED_MAX = 5, DECIMALS_MAX = 2, BACK_ALL_MS = 500 };

static struct {
    bool open;
    axis_e axis;
    bool fresh; // it shows the present value, which the first key replaces
    bool asked; // Done was the last key pressed
    char typed[TYPED_MAX + 1];
} pad;

// The typed value -------------------------------------------------------------------------------------------------
static u32 decimals() {
    const char *point = strchr(pad.typed, '.');
    return point ? (u32)strlen(point + 1) : 0;
}

static bool has_digit() {
    return strpbrk(pad.typed, "0123456789") != nullptr;
}

// Returns the typed value in mV or mA.
static u32 value() {
    u32 value = 0, scale = 1000;
    bool point = false;
    for (const char *c = pad.typed; *c; c++) {
        if (*c == '.') {
            point = true;
        } else if (point) {
            scale /= 10;
            value += (u32)(*c - '0') * scale;
        } else {
            value = value * 10 + (u32)(*c - '0') * 1000;
        }
    }
    return value;
}

enum verdict_e { GOOD, OUT_OF_RANGE, OFF_THE_GRID };

static verdict_e verdict() {
    const grid_t grid = axis_grid(pad.axis);
    if (!has_digit() || value() < grid.low || value() > grid.high) {
        return OUT_OF_RANGE;
    }
    return grid_has(grid, value()) ? GOOD : OFF_THE_GRID;
}

// Judges the value after Done, or once it has all its decimals.
static verdict_e refused() {
    return pad.asked || decimals() == DECIMALS_MAX ? verdict() : GOOD;
}

static void type_value(u32 value) {
    char text[PAINT_NUMBER_SIZE];
    axis_text(text, pad.axis, value);
    snprintf(pad.typed, sizeof(pad.typed), "%.*s", (int)strcspn(text, " "), text);
    pad.fresh = pad.asked = false;
}

// Painting --------------------------------------------------------------------------------------------------------
// Writes a number without its unit.
static void bare(char *out, axis_e axis, u32 value) {
    axis_text(out, axis, value);
    out[strcspn(out, " ")] = '\0';
}

static void note_paint() {
    para_t *note = view2(VIEW2_PAD_NOTE_ID);
    const grid_t grid = axis_grid(pad.axis);
    const verdict_e why = refused();
    char low[PAINT_NUMBER_SIZE], high[PAINT_NUMBER_SIZE], step[PAINT_NUMBER_SIZE];
    if (why == OUT_OF_RANGE) {
        bare(low, pad.axis, grid.low);
        paint_words(note, TEXT_PAD_BETWEEN, low, axis_text(high, pad.axis, grid.high));
    } else if (why == OFF_THE_GRID) {
        bare(low, pad.axis, grid_below(grid, value()));
        bare(high, pad.axis, grid_above(grid, value()));
        snprintf(step, sizeof(step), "%u", grid.step);
        paint_words(note, pad.axis == VOLTS ? TEXT_PAD_GRID_VOLTS : TEXT_PAD_GRID_AMPERES, low, high, step, pad.typed);
    } else {
        paint_words(note, TEXT_PAD_NOTE);
    }
    paint_look(note, why == GOOD ? 0 : LOOK_CHOSEN);
    const bool offers = why == OFF_THE_GRID;
    if (offers) {
        paint_text(view2(VIEW2_PAD_LOWER_ID), axis_text(low, pad.axis, grid_below(grid, value())));
        paint_text(view2(VIEW2_PAD_UPPER_ID), axis_text(high, pad.axis, grid_above(grid, value())));
    }
    paint_shown(view2(VIEW2_PAD_LOWER_ID), offers);
    paint_shown(view2(VIEW2_PAD_UPPER_ID), offers);
    paint_look(view2(VIEW2_PAD_DONE_ID), why == GOOD ? 0 : LOOK_DEAD);
    paint_touch(view2(VIEW2_PAD_DONE_ID), why == GOOD);
}

static void head_paint() {
    const grid_t grid = axis_grid(pad.axis);
    const char *kind = bench.rails.rail[tray_choice().rail].type == RAIL_AVS ? "AVS" : "PPS";
    char low[PAINT_NUMBER_SIZE], high[PAINT_NUMBER_SIZE], step[PAINT_NUMBER_SIZE];
    bare(low, pad.axis, grid.low);
    paint_words(view2(VIEW2_PAD_TITLE_ID), pad.axis == VOLTS ? TEXT_PAD_VOLTS : TEXT_PAD_AMPERES, "", "", kind);
    paint_words(view2(VIEW2_PAD_RANGE_ID), TEXT_PAD_RANGE, low, axis_text(high, pad.axis, grid.high),
                axis_text(step, pad.axis, grid.step));
}

void keypad_paint() {
    paint_shown(view2(VIEW2_KEYPAD_ID), pad.open);
    if (!pad.open) {
        return;
    }
    char text[TYPED_MAX + 3];
    snprintf(text, sizeof(text), "%s %c", pad.typed, pad.axis == VOLTS ? 'V' : 'A');
    paint_text(view2(VIEW2_PAD_VALUE_ID), text);
    head_paint();
    note_paint();
}

// Keys ------------------------------------------------------------------------------------------------------------
bool keypad_is_open() {
    return pad.open;
}

void keypad_open(axis_e axis) {
    if (!tray_is_settable()) {
        return;
    }
    set_cancel();
    pad = {.open = true, .axis = axis};
    type_value(axis_value(axis));
    pad.fresh = true;
    ui_calm();
}

void keypad_close() {
    if (pad.open) {
        pad.open = false;
        ui_calm();
    }
}

static void type_key(char key) {
    if (pad.fresh) {
        pad.typed[0] = '\0';
        pad.fresh = false;
    }
    pad.asked = false;
    const size_t n = strlen(pad.typed);
    const bool point = strchr(pad.typed, '.') != nullptr;
    if (n < TYPED_MAX && (key == '.' ? !point : decimals() < DECIMALS_MAX)) {
        pad.typed[n] = key;
        pad.typed[n + 1] = '\0';
    }
}

template <char KEY> void key_event(zof_ctrl_t *, zof_event_e event) {
    if (ui_takes(event) && event == ZOF_EVENT_CLICKED) {
        type_key(KEY);
        ui_paint();
    }
}

template void key_event<'0'>(zof_ctrl_t *, zof_event_e);
template void key_event<'1'>(zof_ctrl_t *, zof_event_e);
template void key_event<'2'>(zof_ctrl_t *, zof_event_e);
template void key_event<'3'>(zof_ctrl_t *, zof_event_e);
template void key_event<'4'>(zof_ctrl_t *, zof_event_e);
template void key_event<'5'>(zof_ctrl_t *, zof_event_e);
template void key_event<'6'>(zof_ctrl_t *, zof_event_e);
template void key_event<'7'>(zof_ctrl_t *, zof_event_e);
template void key_event<'8'>(zof_ctrl_t *, zof_event_e);
template void key_event<'9'>(zof_ctrl_t *, zof_event_e);
template void key_event<'.'>(zof_ctrl_t *, zof_event_e);

static void type_back(bool all) {
    const size_t n = strlen(pad.typed);
    pad.typed[all || n == 0 ? 0 : n - 1] = '\0';
    pad.fresh = pad.asked = false;
}

void key_back_event(zof_ctrl_t *, zof_event_e event) {
    static u64 down_at;
    static bool all;
    if (!ui_takes(event)) {
        return;
    }
    bench_tick();
    if (event == ZOF_EVENT_PRESSED) {
        down_at = bench.now;
        all = false;
    } else if (event == ZOF_EVENT_PRESSING && !all && bench.now - down_at >= BACK_ALL_MS) {
        all = true;
        type_back(true);
    } else if (event == ZOF_EVENT_CLICKED && !all) {
        type_back(false);
    } else {
        return;
    }
    ui_paint();
}

void keypad_lower() {
    type_value(grid_below(axis_grid(pad.axis), value()));
}

void keypad_upper() {
    type_value(grid_above(axis_grid(pad.axis), value()));
}

void keypad_done() {
    pad.asked = true;
    if (verdict() == GOOD) {
        axis_set(pad.axis, (u16)value());
        keypad_close();
    }
}

bool keypad_type(char c) {
    const bool open = pad.open;
    if (open && ui_takes(ZOF_EVENT_PRESSED)) {
        if (c == '\b') {
            type_back(false);
        } else if (c == '\n') {
            keypad_done();
        } else {
            type_key(c);
        }
    }
    return open;
}
