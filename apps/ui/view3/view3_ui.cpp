// View 3: about, with the present state of the link.
#include <stdio.h>

#include "bench_ids.h"
#include "hardware/uart/zof_hw_uart.h"
#include "ui/ui.h"

static para_t *view3(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW3_ID, id);
}

// Writes an age in tenths of a second ("0.1 s") up to a minute, then as number_age does.
static const char *fine_age(char *out, u64 ms) {
    if (ms >= 60000) {
        return number_age(out, ms);
    }
    snprintf(out, PAINT_NUMBER_SIZE, "%u.%u s", (unsigned)(ms / 1000), (unsigned)(ms % 1000 / 100));
    return out;
}

// Returns the number of frames in the last second, updated once a second.
static u32 rate() {
    static u64 at;
    static u32 before, per_second;
    if (bench.now - at >= 1000) {
        per_second = (u32)((g_link.frames - before) * 1000ull / (bench.now - at));
        before = g_link.frames;
        at = bench.now;
    }
    return per_second;
}

static void link_paint() {
    char age[PAINT_NUMBER_SIZE], frames[PAINT_NUMBER_SIZE], skipped[PAINT_NUMBER_SIZE];
    const u32 per_second = rate();
    snprintf(frames, sizeof(frames), "%u", bench_live() ? per_second : 0);
    snprintf(skipped, sizeof(skipped), "%u", g_link.skipped);
    paint_text(view3(VIEW3_PORT_ID), bench.port.path[0] ? bench.port.path : "-");
    if (bench.replay) {
        paint_words(view3(VIEW3_LINK_ID), TEXT_REPLAY_IS, bench.remote);
    } else if (bench_live()) {
        paint_words(view3(VIEW3_LINK_ID), TEXT_LINK_GOOD, "", fine_age(age, zof_sys_time_ms() - g_link.last_ms));
    } else {
        paint_words(view3(VIEW3_LINK_ID), bench.port.state == BENCH_PORT_OPEN ? TEXT_LINK_SILENT : TEXT_LINK_NONE);
    }
    paint_words(view3(VIEW3_FRAMES_ID), TEXT_FRAMES_RATE, frames, "", skipped);
}

void view3_paint(void) {
    static u64 second = UINT64_MAX;
    if (second != bench.now / 1000) { // digits that change faster cannot be read
        second = bench.now / 1000;
        link_paint();
    }
    char version[PAINT_NUMBER_SIZE];
    snprintf(version, sizeof(version), "%u.%u", bench.version >> 8, bench.version & 0xFF);
    paint_text(view3(VIEW3_BOX_VERSION_ID), bench.version ? version : "-");
    paint_shown(view3(VIEW3_LOCK_ID), bench.locked);
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
    {VIEW3_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW3_TAB_OUTPUT_ID, output_tab_event},
    {VIEW3_TAB_RAILS_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW3_TAB_TREND_ID, tab_event<ZOF_VIEW5_ID>},
    {VIEW3_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
});

void view3_init(void) {
    zof_view_create(ZOF_VIEW3_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view3_entry(void) {
    ui_entered();
}

void view3_exit(void) {
}
