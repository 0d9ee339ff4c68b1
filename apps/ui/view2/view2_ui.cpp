// View 2: the rails. The list is shown only when it came whole; a rail is selected, its values are set in the tray, and
// the button applies them through the gate.
#include <stdio.h>

#include "bench_ids.h"
#include "ui/ui.h"

static u8 selected = RAIL_NONE;

static para_t *view2(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW2_ID, id);
}

static para_t *cell(u8 row, row_column_e column) {
    return view2(ROW_ID[row][column]);
}

static const badge_t &badge_of(u16 type) {
    for (const badge_t &badge : badges) {
        if (badge.type == type) {
            return badge;
        }
    }
    return badges[0]; // of a fixed rail
}

static void row_paint(u8 i) {
    const prof_t &rail = bench.rails.rail[i];
    const bool there = bench.rails.state == BENCH_RAILS_SHOWN && i < bench.rails.count;
    const bool valid = there && bench.rails.valid[i];
    const bool in_force = valid && bench.rail_known && bench.rail == i;
    paint_shown(cell(i, COL_BG), there);
    paint_shown(cell(i, COL_VOLT), there);
    paint_shown(cell(i, COL_BADGE), valid);
    paint_shown(cell(i, COL_CURR), valid);
    paint_shown(cell(i, COL_META), there && !valid);
    paint_shown(cell(i, COL_CHECK), in_force);
    paint_look(cell(i, COL_BG), in_force ? LOOK_CHOSEN : 0);
    if (!there) {
        return;
    }
    const u32 look = valid && bench_live() ? 0 : LOOK_DEAD;
    const badge_t &badge = badge_of(rail.type);
    char text[32];
    paint_text(cell(i, COL_BADGE), badge.text);
    paint_ground(cell(i, COL_BADGE), bench_live() ? badge.bg : COLOR_RAISED);
    paint_ink(cell(i, COL_BADGE), bench_live() ? badge.ink : COLOR_GREY);
    if (!valid) {
        snprintf(text, sizeof(text), "-- V");
    } else if (rail.vmin != rail.vmax) {
        snprintf(text, sizeof(text), "%u.%u-%u.%u V", rail.vmin / 1000u, rail.vmin % 1000u / 100, rail.vmax / 1000u,
                 rail.vmax % 1000u / 100);
    } else {
        number_volts(text, rail.vmin);
    }
    paint_text(cell(i, COL_VOLT), text);
    paint_text(cell(i, COL_CURR), number_amperes(text, rail.imax));
    paint_look(cell(i, COL_VOLT), look);
    paint_look(cell(i, COL_CURR), look);
}

void view2_paint(void) {
    for (u8 i = 0; i < RAIL_MAX; i++) {
        row_paint(i);
    }
    paint_shown(view2(VIEW2_LOCK_ID), bench.locked);
}

void view2_open_rail(u8 rail) {
    selected = rail;
    ui_slide_to(ZOF_VIEW2_ID, false);
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
    {VIEW2_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW2_TAB_OUTPUT_ID, output_tab_event},
    {VIEW2_TAB_TREND_ID, tab_event<ZOF_VIEW5_ID>},
    {VIEW2_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW2_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
});

void view2_init(void) {
    zof_view_create(ZOF_VIEW2_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view2_entry(void) {
    bench_tick();
    if (bench_live()) {
        bench_rails_ask();
    }
    ui_entered();
}

void view2_exit(void) {
}
