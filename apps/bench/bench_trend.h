// The trend: every report of the box with its time, as long as memory allows, and the queries for pages that show it.
//
// The last TREND_POINTS reports are kept unchanged, which is twelve hours at ten a second. Older ones are kept for 45
// days as minima, maxima and integrals over TREND_COARSE_MS each, so no spike is lost at any span. Two successive
// reports are joined by a line unless the box was silent for so long between them that it counts as dead.
//
// Times are milliseconds of the trend's clock, which runs with `bench.now` and starts at a large value. Everything runs
// under dis_mutex. The store takes about 15 MiB, which the system commits as it fills.
#ifndef BENCH_TREND_H
#define BENCH_TREND_H

#include "bench/bench.h"

enum { TREND_BLOCK = 64, TREND_POINTS = TREND_BLOCK * 6912, TREND_COARSE = 32768, TREND_COARSE_MS = 120000 };

enum trend_what_e { TREND_MV, TREND_MA, TREND_MW, TREND_KINDS };

enum trend_flag_e {
    TREND_JOINED = 1, // to the previous report
    TREND_OUT_KNOWN = 2,
    TREND_ON = 4,
    TREND_SET = 8,    // the set values are known
    TREND_DW = 16,    // the power was reported
    TREND_LIMIT = 32, // at the current limit
};

// A report.
struct trend_point_t {
    u64 at;
    u16 mv, ma, dw, set_mv, set_ma;
    u8 rail; // in force, or RAIL_NONE
    u8 flags;
};

// A sum of reports. The integrals cover the times between joined reports; they are doubled, because the mean of two
// ends need not be a whole number.
struct trend_sum_t {
    u32 low[TREND_KINDS], high[TREND_KINDS];
    u32 count;
    u64 ms;
    u64 mv_ms2, ma_ms2, uw_ms2;
};

// A column of a chart: the reports of one interval.
struct trend_column_t {
    u32 low[TREND_KINDS], high[TREND_KINDS], first[TREND_KINDS], last[TREND_KINDS];
    u16 set_mv, set_ma; // at the end of the column
    bool any;           // it has reports
    bool gap;           // the box was silent in it
    bool joined;        // its first report is joined to the previous one
    bool set;           // the set values are known
};

struct trend_stats_t {
    u32 low[TREND_KINDS], high[TREND_KINDS], mean[TREND_KINDS];
    u64 mah, mwh; // charge and energy, rounded
    u64 ms;       // the time that the statistics cover
    bool any;
};

u32 trend_value(const trend_point_t *point, trend_what_e what);

// Takes a reading of the box: REG_LIVE_MV, REG_LIVE_MA or REG_LIVE_DW. The three readings of a report follow each
// other; the report is complete with the last of them, or when the next report begins. A report without volts or
// amperes is dropped.
void trend_take(u16 addr, u16 value);
// Completes the report if it has no power.
void trend_report_end(void);
// Notes that the box is silent: the next report is not joined to the last one.
void trend_gap(void);
// Adds a report. A report older than the last one is dropped.
void trend_add(trend_point_t point);
// Forgets all reports and restarts a stopped clock.
void trend_clear(void);

u64 trend_now(void);
// Converts a time to the local time of day, in milliseconds.
u32 trend_day_ms(u64 at);
// Stops the clock at a time, for reports from a file; reports of the box are dropped from then on. Times of day are
// `zone` minutes ahead of the times of the clock.
void trend_stop(u64 at, s32 zone);
bool trend_stopped(void);
// Returns the time of the first report. An empty trend returns the present time.
u64 trend_begin(void);

// Fills `count` columns of `width` ms each, starting at `from`.
void trend_columns(u64 from, u64 width, trend_column_t *out, u32 count);
// Computes the statistics of a span, both ends included.
void trend_stats(u64 from, u64 to, trend_stats_t *out);
// Finds the report in force at a time: the last one before it, if that is joined to the next. Returns false in a gap,
// and for times that are older than the stored reports.
bool trend_at(u64 at, trend_point_t *out);

// Functions on sums, for modules that keep their own.
void trend_sum_add(trend_sum_t *sum, const trend_point_t *before, const trend_point_t *point);
void trend_sum_range(trend_sum_t *sum, const u32 *low, const u32 *high,
                     u32 count); // adds the ranges of `count` reports
void trend_sum_join(trend_sum_t *sum, const trend_sum_t *more);
void trend_sum_stats(const trend_sum_t *sum, trend_stats_t *out);

#endif
