// View 5: the trend. Two panes share one time axis, so that two white traces need no colours; the numbers beside them
// belong to the span that they show.
#include <stdio.h>

#include <algorithm>

#include "bench/bench_record.h"
#include "bench/bench_session.h"
#include "bench_ids.h"
#include "ui/ui.h"
#include "ui/view5/trend_page.h"
#include "ui/view5/trend_plot.h"

static constexpr s32 PANE_X = 60, VOLTS_Y = 68, VOLTS_H = 122, LOW_Y = 220, LOW_H = 106;
enum { AXIS_MAX = 6, SCALE_DOWN_MS = 10000 };
static constexpr u64 SECOND = 1000, MINUTE = 60 * SECOND, HOUR = 60 * MINUTE;

// Spans -----------------------------------------------------------------------------------------------------------
const trend_span_t trend_spans[TREND_SESSION] = {
    {MINUTE, 6, {"−60 s", "−50", "−40", "−30", "−20", "−10"}},
    {10 * MINUTE, 5, {"−10 min", "−8", "−6", "−4", "−2"}},
    {HOUR, 6, {"−60 min", "−50", "−40", "−30", "−20", "−10"}},
    {12 * HOUR, 6, {"−12 h", "−10", "−8", "−6", "−4", "−2"}},
};
static constexpr u32 span_ids[TREND_SPANS] = {VIEW5_SPAN0_ID, VIEW5_SPAN1_ID, VIEW5_SPAN2_ID, VIEW5_SPAN3_ID,
                                              VIEW5_SPAN4_ID};

// Possible lengths of a part of the session's axis. The shortest one is used with which six parts cover the session.
static constexpr u64 session_parts[] = {10 * SECOND, 20 * SECOND, 30 * SECOND, MINUTE,      2 * MINUTE,
                                        5 * MINUTE,  10 * MINUTE, 15 * MINUTE, 20 * MINUTE, 30 * MINUTE,
                                        HOUR,        2 * HOUR,    4 * HOUR,    8 * HOUR,    12 * HOUR,
                                        24 * HOUR,   48 * HOUR,   96 * HOUR,   192 * HOUR};

// Scales ----------------------------------------------------------------------------------------------------------
struct scale_row_t {
    u32 full; // mV, mA or mW
    u8 rows;  // rows of the grid, chosen for round numbers
};
static constexpr scale_row_t volts_rows[] = {{5000, 5}, {10000, 5}, {15000, 3}, {20000, 4}, {30000, 3}, {50000, 5}};
static constexpr scale_row_t amperes_rows[] = {{500, 5}, {1500, 3}, {3000, 3}, {5000, 5}};
static constexpr scale_row_t watts_rows[] = {{5000, 5}, {15000, 3}, {30000, 3}, {60000, 3}, {150000, 3}, {250000, 5}};

struct scale_t {
    u32 index;
    bool fits;         // was chosen for the values shown
    u64 smaller_since; // since when a smaller scale would suffice, or 0
};

// The position and the controls of a pane.
struct pane_t {
    u32 chart, ring;
    u32 axis[AXIS_MAX];
    s16 y, height;
};
static constexpr pane_t panes[2] = {
    {VIEW5_VOLTS_PANE_ID,
     VIEW5_VOLTS_RING_ID,
     {VIEW5_VOLTS_AXIS0_ID, VIEW5_VOLTS_AXIS1_ID, VIEW5_VOLTS_AXIS2_ID, VIEW5_VOLTS_AXIS3_ID, VIEW5_VOLTS_AXIS4_ID,
      VIEW5_VOLTS_AXIS5_ID},
     VOLTS_Y,
     VOLTS_H},
    {VIEW5_LOW_PANE_ID,
     VIEW5_LOW_RING_ID,
     {VIEW5_LOW_AXIS0_ID, VIEW5_LOW_AXIS1_ID, VIEW5_LOW_AXIS2_ID, VIEW5_LOW_AXIS3_ID, VIEW5_LOW_AXIS4_ID,
      VIEW5_LOW_AXIS5_ID},
     LOW_Y,
     LOW_H},
};

trend_page_t trend_page;
static scale_t scales[2];
static plot_t plots[2];

trend_what_e trend_low_what() {
    return trend_page.watts ? TREND_MW : TREND_MA;
}

u64 trend_session_ms() {
    return trend_now() - session_begin();
}

static u64 session_part() {
    u64 part = session_parts[0];
    for (u64 next : session_parts) {
        part = part * TREND_PARTS < trend_session_ms() ? next : part;
    }
    return part;
}

// Columns begin at multiples of their width, so that a report never moves to another column.
static void window_set() {
    const u64 ms = trend_page.span == TREND_SESSION ? session_part() * TREND_PARTS : trend_spans[trend_page.span].ms;
    trend_page.width = ms / PLOT_COLUMNS;
    trend_page.to = (trend_now() / trend_page.width + 1) * trend_page.width;
    trend_page.from = trend_page.to - trend_page.width * PLOT_COLUMNS;
    trend_page.cursor = trend_page.cursor && trend_page.cursor_at >= trend_page.from;
}

u8 trend_parts() {
    return trend_page.span == TREND_SESSION ? (u8)TREND_PARTS : trend_spans[trend_page.span].parts;
}

// Returns the smallest scale that covers the maximum with a tenth to spare. A larger scale is used at once, a smaller
// one after it has sufficed for ten seconds.
template <size_t N> static scale_row_t scale_of(scale_t &scale, const scale_row_t (&rows)[N], u32 most) {
    u32 want = 0;
    while (want + 1 < N && (u64)rows[want].full * 10 < (u64)most * 11) {
        want++;
    }
    const bool waits = scale.smaller_since != 0;
    if (scale.fits && want < scale.index && (!waits || bench.now - scale.smaller_since < SCALE_DOWN_MS)) {
        scale.smaller_since = waits ? scale.smaller_since : bench.now;
    } else {
        scale = {.index = want, .fits = true};
    }
    return rows[scale.index];
}

static scale_row_t scale_set(u32 pane, const trend_column_t *columns) {
    const trend_what_e what = pane == 0 ? TREND_MV : trend_low_what();
    u32 most = 0;
    for (u32 k = 0; k < PLOT_COLUMNS; k++) {
        const trend_column_t &c = columns[k];
        const u32 set = !c.set || what == TREND_MW ? 0u : what == TREND_MV ? c.set_mv : c.set_ma;
        most = std::max({most, c.any ? c.high[what] : 0u, set});
    }
    scale_t &scale = scales[pane];
    return pane == 0          ? scale_of(scale, volts_rows, most)
           : what == TREND_MW ? scale_of(scale, watts_rows, most)
                              : scale_of(scale, amperes_rows, most);
}

// Panes -----------------------------------------------------------------------------------------------------------
static void axis_paint(u32 pane, scale_row_t scale) {
    const pane_t &p = panes[pane];
    const char *unit = pane == 0 ? " V" : trend_page.watts ? " W" : " A";
    for (u32 i = 0; i < AXIS_MAX; i++) {
        para_t *number = view5(p.axis[i]);
        paint_shown(number, i <= scale.rows);
        if (i <= scale.rows) {
            const u32 value = scale.full * i / scale.rows;
            char text[TREND_TEXT];
            const char *shown = i == scale.rows ? unit : "";
            if (pane == 1 && !trend_page.watts) {
                snprintf(text, sizeof(text), "%u.%u%s", value / 1000, value % 1000 / 100, shown);
            } else {
                snprintf(text, sizeof(text), "%u%s", value / 1000, shown);
            }
            paint_text(number, text);
            paint_place(number, 0, p.y + (p.height * (scale.rows - (s32)i) + scale.rows / 2) / scale.rows - 12, 52, 24);
        }
    }
}

static void set_mark_paint(u32 pane, u32 id, u32 value, bool shown, scale_row_t scale) {
    const pane_t &p = panes[pane];
    const s32 row = (plot_height(value, scale.full, p.height) + PLOT_UNIT / 2) / PLOT_UNIT;
    paint_shown(view5(id), shown);
    if (shown) {
        paint_place(view5(id), PANE_X + PLOT_WIDTH + 2, p.y + row - 6, 9, 12);
    }
}

static void ring_paint(u32 pane, const trend_point_t *point, s32 x, scale_row_t scale) {
    const pane_t &p = panes[pane];
    para_t *ring = view5(p.ring);
    paint_shown(ring, point != nullptr);
    if (point) {
        const u32 value = trend_value(point, pane == 0 ? TREND_MV : trend_low_what());
        const s32 row = (plot_height(value, scale.full, p.height) + PLOT_UNIT / 2) / PLOT_UNIT;
        paint_place(ring, x - 6, p.y + row - 6, 12, 12);
    }
}

static void panes_paint(const trend_point_t *at) {
    static trend_column_t columns[PLOT_COLUMNS];
    trend_columns(trend_page.from, trend_page.width, columns, PLOT_COLUMNS);
    const s32 x =
        PANE_X + (s32)((trend_page.cursor_at - trend_page.from) * PLOT_WIDTH / (trend_page.to - trend_page.from));
    for (u32 pane = 0; pane < 2; pane++) {
        const scale_row_t scale = scale_set(pane, columns);
        plot_t plot = {.rows = scale.rows, .parts = trend_parts(), .height = panes[pane].height};
        const auto set = pane == 0 ? &trend_column_t::set_mv : trend_page.watts ? nullptr : &trend_column_t::set_ma;
        plot_fill(&plot, columns, pane == 0 ? TREND_MV : trend_low_what(), scale.full, set);
        plot_show(view5(panes[pane].chart), &plots[pane], &plot);
        axis_paint(pane, scale);
        ring_paint(pane, at, x, scale);
        const bool known = bench_live() && bench.set_known && !trend_stopped();
        set_mark_paint(pane, pane == 0 ? VIEW5_VOLTS_SET_ID : VIEW5_AMPERES_SET_ID,
                       pane == 0 ? bench.set.mv : bench.set.ma, known && (pane == 0 || !trend_page.watts), scale);
    }
    para_t *line = view5(VIEW5_CURSOR_ID);
    paint_shown(line, trend_page.cursor);
    if (trend_page.cursor) {
        paint_place(line, x, VOLTS_Y - 6, 1, LOW_Y + LOW_H - VOLTS_Y + 6);
    }
}

// Times -----------------------------------------------------------------------------------------------------------
static void times_paint() {
    static constexpr u32 ids[TREND_PARTS] = {VIEW5_TIME0_ID, VIEW5_TIME1_ID, VIEW5_TIME2_ID,
                                             VIEW5_TIME3_ID, VIEW5_TIME4_ID, VIEW5_TIME5_ID};
    const bool clock = trend_page.span == TREND_SESSION || trend_stopped();
    const u64 part = (trend_page.to - trend_page.from) / trend_parts();
    char text[TREND_TEXT];
    const u32 step =
        trend_stopped() && part % MINUTE != 0 ? 2 : 1; // a time with seconds needs the room of one and a half labels
    for (u32 i = 0; i < TREND_PARTS; i++) {
        para_t *label = view5(ids[i]);
        const bool shown = i < trend_parts() && i % step == 0;
        paint_shown(label, shown);
        if (shown) {
            trend_clock(text, trend_now() - part * (trend_parts() - i), part % MINUTE != 0);
            paint_text(label, clock ? text : trend_spans[trend_page.span].words[i]);
            const s32 x = PANE_X + (PLOT_WIDTH * (s32)i + trend_parts() / 2) / trend_parts();
            paint_place(label, x - 44, LOW_Y + LOW_H + 4, 88, 24);
        }
    }
    if (trend_stopped()) {
        trend_clock(text, trend_now(), part % MINUTE != 0);
        paint_text(view5(VIEW5_TIME_NOW_ID), text);
    } else {
        paint_words(view5(VIEW5_TIME_NOW_ID), TEXT_T_END);
    }
}

void view5_paint(void) {
    window_set();
    trend_point_t point;
    const bool at = trend_page.cursor && trend_at(trend_page.cursor_at, &point);
    panes_paint(at ? &point : nullptr);
    times_paint();
    trend_numbers_paint(at ? &point : nullptr);
    for (u32 i = 0; i < TREND_SPANS; i++) {
        paint_look(view5(span_ids[i]), i == trend_page.span ? LOOK_CHOSEN : 0);
    }
    paint_look(view5(VIEW5_WATTS_ID), trend_page.watts ? LOOK_CHOSEN : 0);
    paint_shown(view5(VIEW5_LOCK_ID), bench.locked);
}

static void scales_choose() {
    for (scale_t &scale : scales) {
        scale = {};
    }
}

template <u32 SPAN> static void span_do() {
    trend_page.span = SPAN;
    scales_choose();
}

static void watts_do() {
    trend_page.watts = !trend_page.watts;
    scales_choose();
}

static void record_do() {
    if (record_runs()) {
        record_stop();
    } else {
        record_start();
    }
}

static void cursor_off_do() {
    trend_page.cursor = false;
}

// Moves the cursor to the finger.
static void panes_event(zof_ctrl_t *, zof_event_e event) {
    zof_touch_t touch = {};
    if (ui_takes(event, BENCH_PRESS_LOOKS) && (event == ZOF_EVENT_PRESSED || event == ZOF_EVENT_PRESSING) &&
        zof_touch_get(&touch) == 0) {
        const u32 x = (u32)std::clamp((s32)touch.x - PANE_X, 0, PLOT_WIDTH - 1);
        trend_page.cursor = true;
        trend_page.cursor_at = trend_page.from + (trend_page.to - trend_page.from) * x / PLOT_WIDTH;
        ui_paint();
    }
}

static constexpr auto view_ctrls_fun_t = view_rows<158>({
    {VIEW5_SPAN0_ID, click_event<span_do<0>, BENCH_PRESS_LOOKS>},
    {VIEW5_SPAN1_ID, click_event<span_do<1>, BENCH_PRESS_LOOKS>},
    {VIEW5_SPAN2_ID, click_event<span_do<2>, BENCH_PRESS_LOOKS>},
    {VIEW5_SPAN3_ID, click_event<span_do<3>, BENCH_PRESS_LOOKS>},
    {VIEW5_SPAN4_ID, click_event<span_do<4>, BENCH_PRESS_LOOKS>},
    {VIEW5_WATTS_ID, click_event<watts_do, BENCH_PRESS_LOOKS>},
    {VIEW5_RECORD_ID, click_event<record_do>},
    {VIEW5_PANES_ID, panes_event},
    {VIEW5_CURSOR_OFF_ID, click_event<cursor_off_do, BENCH_PRESS_LOOKS>},
    {VIEW5_STRIP_TURN_OFF_ID, strip_off_event},
    {VIEW5_TAB_OUTPUT_ID, output_tab_event},
    {VIEW5_TAB_RAILS_ID, tab_event<ZOF_VIEW2_ID>},
    {VIEW5_TAB_SETTINGS_ID, tab_event<ZOF_VIEW4_ID>},
    {VIEW5_TAB_ABOUT_ID, tab_event<ZOF_VIEW3_ID>},
});

void view5_init(void) {
    zof_view_create(ZOF_VIEW5_ID, view_ctrls_fun_t.data(), view_ctrls_fun_t.size());
}

void view5_entry(void) {
    static bool entered;
    if (!entered && trend_stopped()) { // an imported recording is first shown as a whole
        trend_page.span = TREND_SESSION;
    }
    entered = true;
    scales_choose();
    ui_entered();
}

void view5_exit(void) {
}
