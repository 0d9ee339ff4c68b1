// The list of rails. The rail in force has a tick and a background of its own, the selected one a box; they may differ.
#include <stdio.h>

#include "ui/view2/view2.h"

static para_t *cell(u8 row, row_column_e column) {
    return view2(ROW_ID[row][column]);
}

static const badge_t &badge_of(u16 type) {
    for (const badge_t &badge : badges) {
        if (badge.type == type) {
            return badge;
        }
    }
    return badges[0]; // fixed rail
}

static const char *range_text(char *out, size_t size, const prof_t &rail) {
    if (rail.vmin == rail.vmax) {
        return number_volts(out, rail.vmin);
    }
    snprintf(out, size, "%u.%u-%u.%u V", rail.vmin / 1000u, rail.vmin % 1000u / 100, rail.vmax / 1000u,
             rail.vmax % 1000u / 100);
    return out;
}

static void row_shown(u8 i, bool there, bool valid, bool in_force) {
    paint_shown(cell(i, COL_BG), there);
    paint_shown(cell(i, COL_VOLT), there);
    paint_shown(cell(i, COL_BADGE), valid);
    paint_shown(cell(i, COL_CURR), valid);
    paint_shown(cell(i, COL_META), there && !valid);
    paint_shown(cell(i, COL_CHECK), in_force);
}

static void row_paint(u8 i) {
    const prof_t &rail = bench.rails.rail[i];
    const bool there = bench.rails.state == BENCH_RAILS_SHOWN && i < bench.rails.count;
    const bool valid = there && bench.rails.valid[i];
    const bool live = bench_live();
    const bool in_force = valid && live && bench.rail_known && bench.rail == i;
    row_shown(i, there, valid, in_force);
    paint_look(cell(i, COL_BG), in_force ? LOOK_CHOSEN : 0);
    paint_touch(cell(i, COL_BG), valid && live && !bench.remote[0]);
    const u32 look = valid && live ? 0 : LOOK_DEAD;
    const badge_t &badge = badge_of(rail.type);
    char text[32];
    paint_text(cell(i, COL_BADGE), badge.text);
    paint_ground(cell(i, COL_BADGE), live ? badge.bg : COLOR_RAISED);
    paint_ink(cell(i, COL_BADGE), live ? badge.ink : COLOR_GREY);
    paint_text(cell(i, COL_VOLT), valid ? range_text(text, sizeof(text), rail) : "-- V");
    paint_text(cell(i, COL_CURR), number_amperes(text, rail.imax));
    paint_look(cell(i, COL_VOLT), look);
    paint_look(cell(i, COL_CURR), look);
}

static void selection_paint() {
    const bool shown = tray_mode() == TRAY_FIXED || tray_mode() == TRAY_ADJUSTABLE;
    if (shown) {
        para_t *row = cell(tray_choice().rail, COL_BG);
        paint_place(view2(VIEW2_SELBOX_ID), zof_ctrl_get_x(row), zof_ctrl_get_y(row), zof_ctrl_get_width(row),
                    zof_ctrl_get_height(row));
    }
    paint_shown(view2(VIEW2_SELBOX_ID), shown);
}

// Paints the text shown in place of a list.
static void none_paint() {
    para_t *title = view2(VIEW2_LABEL78_ID), *hint = view2(VIEW2_LABEL79_ID);
    const bool none = tray_mode() == TRAY_HIDDEN;
    paint_shown(title, none);
    paint_shown(hint, none);
    if (bench_live() && bench.rails.state == BENCH_RAILS_AGAIN) {
        const char tries[] = {(char)('0' + bench.rails.tries), '\0'};
        paint_words(title, TEXT_AGAIN);
        paint_words(hint, TEXT_AGAIN_HINT, tries);
    } else if (bench_live() && bench.rails.state == BENCH_RAILS_FAILED) {
        paint_words(title, TEXT_CANNOT_READ);
        paint_words(hint, TEXT_CANNOT_READ_HINT);
    } else {
        paint_words(title, TEXT_NO_RAILS);
        paint_words(hint, TEXT_NO_RAILS_HINT);
    }
}

void list_paint() {
    for (u8 i = 0; i < RAIL_MAX; i++) {
        row_paint(i);
    }
    selection_paint();
    none_paint();
}

static u8 row_of(const zof_ctrl_t *ctrl) {
    u8 row = 0;
    while (row < RAIL_MAX && cell(row, COL_BG) != ctrl) {
        row++;
    }
    return row;
}

// Clicking the selected rail again keeps the values that were set.
void row_event(zof_ctrl_t *ctrl, zof_event_e event) {
    const u8 row = row_of(ctrl);
    if (ui_takes(event) && event == ZOF_EVENT_CLICKED && bench_rail_usable(row)) {
        if (tray_choice().rail != row) {
            tray_select(bench_rail_open(row));
        }
        ui_paint();
    }
}
