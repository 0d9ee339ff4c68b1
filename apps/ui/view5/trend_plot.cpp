#include "ui/view5/trend_plot.h"

#include <string.h>

#include <algorithm>

#include "bench_look.h"

// Heights ---------------------------------------------------------------------------------------------------------
s16 plot_height(u32 value, u32 full, s16 height) {
    const u32 shown = std::min(value, full);
    return (s16)((u64)height * PLOT_UNIT * (full - shown) / full);
}

// Extends a column to cover at least `a` to `b`.
static void reach(plot_t *plot, u32 k, s16 a, s16 b) {
    const bool empty = plot->top[k] == PLOT_NONE;
    plot->top[k] = std::min({a, b, empty ? a : plot->top[k]});
    plot->bottom[k] = std::max({a, b, empty ? a : plot->bottom[k]});
}

// Draws a straight line across the columns between two that have reports.
static void bridge(plot_t *plot, u32 after, u32 until, s16 from, s16 to) {
    s16 last = from;
    for (u32 k = after + 1; k < until; k++) {
        const s16 now = (s16)(from + (to - from) * (s32)(k - after) / (s32)(until - after));
        reach(plot, k, last, now);
        last = now;
    }
    reach(plot, until, last, to);
}

static void trace_fill(plot_t *plot, const trend_column_t *columns, trend_what_e what, u32 full) {
    s32 before = -1; // the last column with reports
    const auto height = [&](u32 value) { return plot_height(value, full, plot->height); };
    for (u32 k = 0; k < PLOT_COLUMNS; k++) {
        const trend_column_t &c = columns[k];
        if (!c.any) {
            continue;
        }
        reach(plot, k, height(c.high[what]), height(c.low[what]));
        if (c.joined && before >= 0) {
            bridge(plot, (u32)before, k, height(columns[before].last[what]), height(c.first[what]));
        }
        before = (s32)k;
    }
    for (u32 k = 0; k < PLOT_COLUMNS; k++) { // the line is two pixels thick
        if (plot->top[k] != PLOT_NONE) {
            plot->top[k] -= PLOT_UNIT;
            plot->bottom[k] += PLOT_UNIT;
        }
    }
}

void plot_fill(plot_t *plot, const trend_column_t *columns, trend_what_e what, u32 full, u16 trend_column_t::*set) {
    std::fill_n(plot->top, (u32)PLOT_COLUMNS, (s16)PLOT_NONE);
    std::fill_n(plot->bottom, (u32)PLOT_COLUMNS, (s16)PLOT_NONE);
    trace_fill(plot, columns, what, full);
    for (u32 k = 0; k < PLOT_COLUMNS; k++) {
        plot->gap[k] = columns[k].gap;
        plot->set[k] = set && columns[k].set
                           ? (s16)((plot_height(columns[k].*set, full, plot->height) + PLOT_UNIT / 2) / PLOT_UNIT)
                           : (s16)PLOT_NONE;
    }
}

// Drawing ---------------------------------------------------------------------------------------------------------
struct pen_t {
    lv_draw_ctx_t *draw;
    s32 x, y; // position of the pane
    lv_draw_rect_dsc_t look;
};

static void fill(pen_t &pen, s32 x, s32 y, s32 width, s32 height, u32 coverage) {
    const lv_area_t area = {(lv_coord_t)(pen.x + x), (lv_coord_t)(pen.y + y), (lv_coord_t)(pen.x + x + width - 1),
                            (lv_coord_t)(pen.y + y + height - 1)};
    pen.look.bg_opa = (lv_opa_t)(coverage * LV_OPA_COVER / PLOT_UNIT);
    if (height > 0 && pen.look.bg_opa > 0) {
        lv_draw_rect(pen.draw, &pen.look, &area);
    }
}

static void ink(pen_t &pen, zof_color_t color) {
    pen.look.bg_color = lv_color_hex(color & 0xFFFFFF);
}

static void grid_draw(pen_t &pen, const plot_t *plot) {
    ink(pen, COLOR_LINE);
    for (s32 i = 0; i < plot->rows; i++) {
        fill(pen, 0, (plot->height * i + plot->rows / 2) / plot->rows, PLOT_WIDTH + 1, 1, PLOT_UNIT);
    }
    for (s32 i = 0; i <= plot->parts; i++) {
        fill(pen, (PLOT_WIDTH * i + plot->parts / 2) / plot->parts, 0, 1, plot->height, PLOT_UNIT);
    }
    ink(pen, COLOR_DIM);
    fill(pen, 0, plot->height, PLOT_WIDTH + 1, 1, PLOT_UNIT);
}

// Calls `draw` for each run of columns that are alike.
template <typename ALIKE, typename DRAW> static void runs(ALIKE &&alike, DRAW &&draw) {
    for (u32 k = 0; k < PLOT_COLUMNS;) {
        u32 end = k + 1;
        while (end < PLOT_COLUMNS && alike(k, end)) {
            end++;
        }
        draw((s32)k, (s32)(end - k));
        k = end;
    }
}

static void gaps_draw(pen_t &pen, const plot_t *plot) {
    ink(pen, COLOR_RAISED);
    runs([=](u32 a, u32 b) { return plot->gap[a] == plot->gap[b]; },
         [&](s32 k, s32 count) {
             if (plot->gap[k]) {
                 fill(pen, k * PLOT_COLUMN_PX, 0, count * PLOT_COLUMN_PX, plot->height, PLOT_UNIT);
             }
         });
}

static void set_draw(pen_t &pen, const plot_t *plot) {
    ink(pen, COLOR_AMBER);
    runs([=](u32 a, u32 b) { return plot->set[a] == plot->set[b]; },
         [&](s32 k, s32 count) {
             const s32 row = plot->set[k];
             const s32 before = k > 0 ? plot->set[k - 1] : (s32)PLOT_NONE;
             if (row != PLOT_NONE) {
                 fill(pen, k * PLOT_COLUMN_PX, row, count * PLOT_COLUMN_PX, 1, PLOT_UNIT);
             }
             if (row != PLOT_NONE && before != PLOT_NONE) {
                 fill(pen, k * PLOT_COLUMN_PX, std::min(row, before), 1, std::abs(row - before), PLOT_UNIT);
             }
         });
}

// Covers the first and the last row in part, which makes slopes smooth.
static void column_draw(pen_t &pen, s32 x, s32 width, s32 top, s32 bottom) {
    top += PLOT_UNIT; // a value at full scale is drawn half above the pane
    bottom += PLOT_UNIT;
    const s32 first = top / PLOT_UNIT;
    const s32 last = bottom / PLOT_UNIT;
    const u32 above = (u32)(top % PLOT_UNIT);
    fill(pen, x, first - 1, width, 1, PLOT_UNIT - above);
    fill(pen, x, first, width, last - first - 1, PLOT_UNIT);
    fill(pen, x, last - 1, width, 1, (u32)(bottom % PLOT_UNIT));
}

static void trace_draw(pen_t &pen, const plot_t *plot) {
    ink(pen, COLOR_WHITE);
    runs([=](u32 a, u32 b) { return plot->top[a] == plot->top[b] && plot->bottom[a] == plot->bottom[b]; },
         [&](s32 k, s32 count) {
             if (plot->top[k] != PLOT_NONE) {
                 column_draw(pen, k * PLOT_COLUMN_PX, count * PLOT_COLUMN_PX, plot->top[k], plot->bottom[k]);
             }
         });
}

static void draw_event(lv_event_t *e) {
    const lv_obj_t *obj = lv_event_get_target(e);
    const plot_t *plot = (const plot_t *)lv_event_get_user_data(e);
    pen_t pen = {.draw = lv_event_get_draw_ctx(e), .x = obj->coords.x1, .y = obj->coords.y1};
    lv_draw_rect_dsc_init(&pen.look);
    grid_draw(pen, plot);
    gaps_draw(pen, plot);
    set_draw(pen, plot);
    trace_draw(pen, plot);
}

// Showing ---------------------------------------------------------------------------------------------------------
static bool differs(const plot_t *a, const plot_t *b, u32 k) {
    return a->top[k] != b->top[k] || a->bottom[k] != b->bottom[k] || a->set[k] != b->set[k] || a->gap[k] != b->gap[k];
}

// Redraws the columns that changed. A change of the set value also draws at the edge of the next column.
static void changed_draw(lv_obj_t *obj, const plot_t *shown, const plot_t *next) {
    u32 first = 0;
    u32 last = PLOT_COLUMNS;
    while (first < PLOT_COLUMNS && !differs(shown, next, first)) {
        first++;
    }
    while (last > first && !differs(shown, next, last - 1)) {
        last--;
    }
    if (first < last) {
        const lv_area_t area = {(lv_coord_t)(obj->coords.x1 + (s32)first * PLOT_COLUMN_PX), obj->coords.y1,
                                (lv_coord_t)(obj->coords.x1 + (s32)last * PLOT_COLUMN_PX), obj->coords.y2};
        lv_obj_invalidate_area(obj, &area);
    }
}

void plot_show(para_t *chart, plot_t *shown, const plot_t *next) {
    if (!chart || !chart->obj) {
        return;
    }
    if (!lv_obj_get_event_user_data(chart->obj, draw_event)) {
        lv_obj_add_event_cb(chart->obj, draw_event, LV_EVENT_DRAW_MAIN_END, shown);
        lv_obj_invalidate(chart->obj);
    } else if (shown->rows != next->rows || shown->parts != next->parts) {
        lv_obj_invalidate(chart->obj);
    } else {
        changed_draw(chart->obj, shown, next);
    }
    *shown = *next;
}
