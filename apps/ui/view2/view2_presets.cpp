// Presets: a touch loads one into the tray, as if it had been typed; a hold stores what the tray shows. A finger that
// lifts in between has changed its mind, and neither happens.
#include <stdio.h>

#include "ui/keep.h"
#include "ui/view2/view2.h"

static constexpr u32 chips[BENCH_PRESETS] = {VIEW2_PRESET0_ID, VIEW2_PRESET1_ID, VIEW2_PRESET2_ID, VIEW2_PRESET3_ID};

enum { TOUCH_MS = 400 };

static struct {
    bool filling;
    u32 chip;
    u64 since;
} held;

static bool can_store() {
    return tray_mode() == TRAY_FIXED || tray_mode() == TRAY_ADJUSTABLE;
}

static void chip_paint(u32 n) {
    para_t *chip = view2(chips[n]);
    const bench_preset_t &preset = bench.preset[n];
    bench_choice_t choice;
    const bool listed = tray_mode() != TRAY_HIDDEN;
    const bool offered = listed && !bench.remote[0] && bench_preset_find(n, &choice);
    char text[2 * PAINT_NUMBER_SIZE + 1], volts[PAINT_NUMBER_SIZE], amperes[PAINT_NUMBER_SIZE];
    snprintf(text, sizeof(text), "%s\n%s", preset.used ? number_volts(volts, preset.mv) : "-․-- V",
             preset.used ? number_amperes(amperes, preset.ma) : "-․-- A");
    paint_text(chip, text);
    paint_look(chip, held.filling && held.chip == n ? LOOK_HOLD : offered ? LOOK_CHOSEN : 0);
    paint_touch(chip, offered || (can_store() && !bench.remote[0]));
    paint_shown(chip, listed);
}

void presets_paint() {
    for (u32 n = 0; n < BENCH_PRESETS; n++) {
        chip_paint(n);
    }
}

static void fill_paint(u32 ms) {
    held.filling = ms > 0;
    chip_paint(held.chip);
}

static void hold_done() {
    if (can_store()) {
        bench_preset_store(held.chip, tray_choice());
        keep_save();
    }
}

static constexpr ui_hold_t store_hold = {fill_paint, hold_done, nullptr};

static void open(u32 n) {
    bench_choice_t choice;
    if (bench_preset_find(n, &choice)) {
        tray_select(choice);
    }
}

template <u32 N> void preset_event(zof_ctrl_t *ctrl, zof_event_e event) {
    const bool counts = ui_takes(event);
    if (event == ZOF_EVENT_PRESSED && counts) {
        held = {.chip = N, .since = bench.now};
        if (can_store()) {
            hold_begin(ctrl, &store_hold);
        }
    }
    hold_event(event);
    if (event == ZOF_EVENT_CLICKED && counts && (!can_store() || bench.now - held.since < TOUCH_MS)) {
        open(N);
    }
    ui_paint();
}

template void preset_event<0>(zof_ctrl_t *, zof_event_e);
template void preset_event<1>(zof_ctrl_t *, zof_event_e);
template void preset_event<2>(zof_ctrl_t *, zof_event_e);
template void preset_event<3>(zof_ctrl_t *, zof_event_e);
