// The trend: every report of the box with its time, for as long as they fit, and what a page shows of them.
//
// The last TREND_POINTS reports are kept as they came, twelve hours at ten a second; older ones as the least and the
// greatest value and the integrals of TREND_COARSE_MS each, for 45 days. So no spike is lost at any span. Between two
// reports the values are joined by a line, unless the box was silent for so long that it counts as dead.
//
// Times are milliseconds of the trend's clock, which runs with `bench.now` and is never small. Everything runs under
// dis_mutex. About 15 MiB, which the system hands out as they are filled.
#ifndef BENCH_TREND_H
#define BENCH_TREND_H

#include "bench/bench.h"

enum { TREND_BLOCK = 64, TREND_POINTS = TREND_BLOCK * 6912, TREND_COARSE = 32768, TREND_COARSE_MS = 120000 };

enum trend_what_e { TREND_MV, TREND_MA, TREND_MW, TREND_KINDS };

enum trend_flag_e {
    TREND_JOINED = 1, // to the report before
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

// A sum of reports. The integrals are over the times between joined reports, and doubled: the mean of two ends is not
// a whole number.
struct trend_sum_t {
    u32 low[TREND_KINDS], high[TREND_KINDS];
    u32 count;
    u64 ms;
    u64 mv_ms2, ma_ms2, uw_ms2;
};

// A column of a chart: what came in a piece of time.
struct trend_column_t {
    u32 low[TREND_KINDS], high[TREND_KINDS], first[TREND_KINDS], last[TREND_KINDS];
    u16 set_mv, set_ma; // at its end
    bool any;           // reports came
    bool gap;           // the box was silent in it
    bool joined;        // its first report, to the one before
    bool set;           // the set values are known
};

struct trend_stats_t {
    u32 low[TREND_KINDS], high[TREND_KINDS], mean[TREND_KINDS];
    u64 mah, mwh; // charge and energy, rounded
    u64 ms;       // the time that they cover
    bool any;
};

u32 trend_value(const trend_point_t *point, trend_what_e what);

// A reading of the box: REG_LIVE_MV, REG_LIVE_MA or REG_LIVE_DW. The three of a report follow each other; the report is
// complete with the last of them, or when the next one begins. A report without volts or amperes does not count.
void trend_take(u16 addr, u16 value);
// The box is silent: the next report is not joined to the last one.
void trend_gap(void);
// Adds a report. Times never run back.
void trend_add(trend_point_t point);
// Forgets all, and lets the clock run.
void trend_clear(void);

u64 trend_now(void);
// The local time of day of a time, in milliseconds.
u32 trend_day_ms(u64 at);
// Stops the clock at a time, for reports that were not taken now; those of the box are dropped from then on. Its times
// of day are `zone` minutes ahead of those of the clock.
void trend_stop(u64 at, s32 zone);
bool trend_stopped(void);
// The time of the first report, or the present one if there is none.
u64 trend_begin(void);

// Fills `count` columns of `width` ms each, from a time on.
void trend_columns(u64 from, u64 width, trend_column_t *out, u32 count);
// The statistics of a span, both ends included.
void trend_stats(u64 from, u64 to, trend_stats_t *out);
// The report in force at a time: the last one before, if it is joined to the next. False in a gap, and where only sums
// are kept.
bool trend_at(u64 at, trend_point_t *out);

// Sums, for what keeps its own.
void trend_sum_add(trend_sum_t *sum, const trend_point_t *before, const trend_point_t *point);
void trend_sum_range(trend_sum_t *sum, const u32 *low, const u32 *high, u32 count); // of `count` reports
void trend_sum_join(trend_sum_t *sum, const trend_sum_t *more);
void trend_sum_stats(const trend_sum_t *sum, trend_stats_t *out);

#endif
