// The Trend page with twelve hours of reports, ten a second: reading the store, and drawing both panes.
#include "bench/bench_trend.h"
#include "bench_ids.h"
#include "measure.h"
#include "zof_main.h"

static void fill() {
    const u64 now = trend_now();
    const u32 count = 12 * 3600 * 10;
    u32 noise = 1;
    for (u32 i = 0; i <= count; i++) {
        noise = noise * 1664525u + 1013904223u;
        const u16 mv = (u16)(9000 + i / 100 % 3000 + (noise >> 24));
        trend_add({.at = now - (u64)(count - i) * 100,
                   .mv = mv,
                   .ma = (u16)(500 + (noise >> 25)),
                   .set_mv = 12000,
                   .set_ma = 1000,
                   .rail = 7,
                   .flags = TREND_SET | TREND_ON | TREND_OUT_KNOWN});
    }
}

// The same pane by LVGL's own chart: two points a column.
static lv_obj_t *plain_chart(lv_obj_t *parent, lv_coord_t y, lv_coord_t height) {
    static constexpr u32 POINTS = 500;
    lv_obj_t *chart = lv_chart_create(parent);
    lv_obj_remove_style_all(chart);
    lv_obj_set_pos(chart, 60, y);
    lv_obj_set_size(chart, 501, height);
    lv_obj_set_style_line_width(chart, 2, LV_PART_ITEMS);
    lv_chart_set_point_count(chart, POINTS);
    lv_chart_set_range(chart, LV_CHART_AXIS_PRIMARY_Y, 0, 15000);
    lv_chart_set_div_line_count(chart, 4, 7);
    lv_chart_series_t *series = lv_chart_add_series(chart, lv_color_white(), LV_CHART_AXIS_PRIMARY_Y);
    for (u32 i = 0; i < POINTS; i++) {
        lv_chart_set_value_by_id(chart, series, (u16)i, (lv_coord_t)(9000 + i * 6 % 3000 + (i % 2 ? 255 : 0)));
    }
    return chart;
}

static double draw_ms(lv_obj_t *a, lv_obj_t *b) {
    lv_refr_now(nullptr);
    return median_ms(100, [=] {
        lv_obj_invalidate(a);
        lv_obj_invalidate(b);
        lv_refr_now(nullptr);
    });
}

void measure_trend() {
    panel_up();
    fill();
    zof_view_set_dis_view(ZOF_VIEW5_ID);
    zof_delay(400); // a press right after a page has changed does not count
    zof_event_send(zof_ctrl_get_form_id(ZOF_VIEW5_ID, VIEW5_SPAN3_ID), LV_EVENT_PRESSED, nullptr); // 12 h
    zof_event_send(zof_ctrl_get_form_id(ZOF_VIEW5_ID, VIEW5_SPAN3_ID), LV_EVENT_CLICKED, nullptr);
    trend_column_t columns[250];
    const double query = median_ms(100, [&] {
        trend_stats_t stats;
        trend_columns(trend_now() - 12 * 3600 * 1000, 172800, columns, 250);
        trend_stats(trend_now() - 12 * 3600 * 1000, trend_now(), &stats);
    });
    const double paint = median_ms(100, view5_paint);
    const double ours = draw_ms(zof_ctrl_get_form_id(ZOF_VIEW5_ID, VIEW5_VOLTS_PANE_ID)->obj,
                                zof_ctrl_get_form_id(ZOF_VIEW5_ID, VIEW5_LOW_PANE_ID)->obj);
    lv_obj_t *screen = lv_obj_create(nullptr);
    lv_obj_t *a = plain_chart(screen, 68, 123);
    lv_obj_t *b = plain_chart(screen, 220, 107);
    lv_disp_load_scr(screen);
    const double them = draw_ms(a, b);
    printf("| the trend of twelve hours, read from its store | %.2f ms | | |\n", query);
    printf("| the Trend page painted ten times a second, when nothing changed | %.2f ms | | |\n", paint);
    printf("| both panes of the trend drawn | %.2f ms | %.2f ms, two lv_chart of 500 points | %.2f |\n", ours, them,
           ours / them);
}
