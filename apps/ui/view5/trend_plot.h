// A pane of the trend: grid, gaps, the line of the set values, and the trace, drawn on a chart control. A series of the
// chart has a single value per column and the same line width as all others; two points per column would take three
// times as long. Here a column of the trace is two pixels wide and spans from its minimum to its maximum, joined to the
// end of the previous column.
#ifndef TREND_PLOT_H
#define TREND_PLOT_H

#include "bench/bench_trend.h"
#include "zof.h"

enum { PLOT_COLUMNS = 250, PLOT_COLUMN_PX = 2, PLOT_WIDTH = PLOT_COLUMNS * PLOT_COLUMN_PX };
enum { PLOT_UNIT = 16, PLOT_NONE = INT16_MIN }; // units per pixel; no value

// The contents of a pane. Heights are measured from its top.
struct plot_t {
    s16 top[PLOT_COLUMNS], bottom[PLOT_COLUMNS]; // edges of the trace, in 1/PLOT_UNIT pixels
    s16 set[PLOT_COLUMNS];                       // pixel row of the set value
    bool gap[PLOT_COLUMNS];
    u8 rows, parts; // rows and parts of the grid
    s16 height;
};

// Returns the height of a value in a pane, in 1/PLOT_UNIT pixels.
s16 plot_height(u32 value, u32 full, s16 height);
// Fills a pane. `set` selects the set value of a column, or is null to show none.
void plot_fill(plot_t *plot, const trend_column_t *columns, trend_what_e what, u32 full, u16 trend_column_t::*set);
// Makes a chart draw `next`, which is copied to `shown`; `shown` must stay valid. Only the parts that differ are
// redrawn.
void plot_show(para_t *chart, plot_t *shown, const plot_t *next);

#endif
