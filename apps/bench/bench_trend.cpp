// The store of the trend: a ring of reports with a sum per block, and a ring of coarse sums for reports that the first
// ring has dropped. A query uses whole sums where they lie in one column, and single reports elsewhere.
#include <algorithm>
#include <string.h>

#include "bench/bench_record.h"
#include "bench/bench_session.h"
#include "bench/bench_trend.h"
#include "zof.h"

// Added to the clock of the model, so that the span of a page never begins before time 0.
static constexpr u64 ZERO = 1ull << 40;

struct block_t {
    trend_sum_t sum;
    bool gap; // at least one of its reports is not joined to the previous one
};

// The reports of one coarse interval, from the first to the last.
struct coarse_t {
    trend_sum_t sum;
    trend_point_t first, last;
    u32 number; // number of the interval, counted from time 0
    u16 era;    // counts calls of trend_clear
    bool gap;   // as in block_t, ignoring the first report
};

static trend_point_t points[TREND_POINTS];
static block_t blocks[TREND_POINTS / TREND_BLOCK];
static coarse_t coarse[TREND_COARSE];
static_assert(sizeof(points) + sizeof(blocks) + sizeof(coarse) < 16u << 20);

static struct {
    u16 era;
    u64 count;      // number of reports taken
    u64 begin;      // time of the first report
    bool open;      // no gap since the last report
    u64 stopped_at; // time at which the clock was stopped, or 0
    s32 zone;       // offset of local time in minutes, while the clock is stopped
    trend_point_t next;
    bool mv, ma; // which values of `next` have arrived
} trend;

static trend_point_t &point_at(u64 i) {
    return points[i % TREND_POINTS];
}

static u64 oldest() {
    return trend.count > TREND_POINTS ? trend.count - TREND_POINTS : 0;
}

// Taking ----------------------------------------------------------------------------------------------------------
u64 trend_now(void) {
    return trend.stopped_at != 0 ? trend.stopped_at : bench.now + ZERO;
}

u64 trend_begin(void) {
    return trend.count > 0 ? trend.begin : trend_now();
}

bool trend_stopped(void) {
    return trend.stopped_at != 0;
}

// Coarse pieces keep their contents; those of an older era are ignored.
void trend_clear(void) {
    trend = {.era = (u16)(trend.era + 1)};
    session_clear();
}

void trend_stop(u64 at, s32 zone) {
    trend.stopped_at = at;
    trend.zone = zone;
}

u32 trend_day_ms(u64 at) {
    static constexpr s64 DAY = 24ll * 3600 * 1000;
    if (trend.stopped_at != 0) {
        return (u32)(((s64)at + trend.zone * 60000ll) % DAY);
    }
    zof_rtc_stamp_t now = {};
    zof_rtc_get_stamp(&now);
    const s64 day = ((now.time.hour * 60 + now.time.minute) * 60 + now.time.second) * 1000ll + now.ms;
    return (u32)(((day - (s64)(trend_now() - at)) % DAY + DAY) % DAY);
}

static void coarse_add(const trend_point_t *before, const trend_point_t *point) {
    const u32 number = (u32)(point->at / TREND_COARSE_MS);
    coarse_t &piece = coarse[number % TREND_COARSE];
    if (piece.number != number || piece.era != trend.era) {
        piece = {.first = *point, .number = number, .era = trend.era};
    } else {
        piece.gap = piece.gap || !(point->flags & TREND_JOINED);
    }
    trend_sum_add(&piece.sum, before, point);
    piece.last = *point;
}

void trend_add(trend_point_t point) {
    const trend_point_t *before = trend.count > 0 ? &point_at(trend.count - 1) : nullptr;
    point.flags &= (u8)~TREND_JOINED;
    if (before && point.at < before->at) {
        return;
    }
    if (before && trend.open && point.at - before->at <= BENCH_DEAD_MS) {
        point.flags |= TREND_JOINED;
    }
    block_t &block = blocks[trend.count % TREND_POINTS / TREND_BLOCK];
    if (trend.count % TREND_BLOCK == 0) {
        block = {};
    }
    trend_sum_add(&block.sum, before, &point);
    block.gap = block.gap || !(point.flags & TREND_JOINED);
    coarse_add(before, &point);
    session_take(before, &point);
    trend.begin = trend.count == 0 ? point.at : trend.begin;
    point_at(trend.count) = point;
    trend.count++;
    trend.open = true;
}

static u8 flags_now() {
    return (u8)((bench_out_known() ? TREND_OUT_KNOWN : 0) | (bench_is_on() ? TREND_ON : 0) |
                (bench.set_known ? TREND_SET : 0) | (bench.limit ? TREND_LIMIT : 0));
}

// Adds the pending report if it has volts and amperes.
static void finish() {
    if (trend.mv && trend.ma) {
        trend.next.flags |= flags_now();
        trend.next.set_mv = bench.set.mv;
        trend.next.set_ma = bench.set.ma;
        trend.next.rail = bench.rail_known ? bench.rail : (u8)RAIL_NONE;
        trend_add(trend.next);
        record_take(&trend.next);
    }
    trend.mv = trend.ma = false;
    trend.next = {};
}

void trend_take(u16 addr, u16 value) {
    if (trend.stopped_at != 0) {
        return;
    }
    if (addr == REG_LIVE_MV) {
        finish();
        trend.next.mv = value;
        trend.mv = true;
    } else if (addr == REG_LIVE_MA) {
        trend.next.ma = value;
        trend.ma = true;
    }
    trend.next.at = trend_now();
    if (addr == REG_LIVE_DW) {
        trend.next.dw = value;
        trend.next.flags = TREND_DW;
        finish();
    }
}

void trend_report_end(void) {
    finish();
}

void trend_gap(void) {
    finish();
    if (trend.open) {
        trend.open = false;
        record_gap();
    }
}

// Walking ---------------------------------------------------------------------------------------------------------
// One or more consecutive reports.
struct piece_t {
    const trend_point_t *first, *last;
    const trend_sum_t *sum;
    bool gap; // it contains a gap
};

// Returns the number of the first report at or after a time.
static u64 find(u64 at) {
    u64 low = oldest();
    u64 high = trend.count;
    while (low < high) {
        const u64 middle = low + (high - low) / 2;
        if (point_at(middle).at < at) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

// Returns the time from which the ring of reports is complete. If reports have been dropped, this is the end of a
// coarse piece.
static u64 fine_from() {
    return oldest() == 0 ? 0 : (point_at(oldest()).at / TREND_COARSE_MS + 1) * TREND_COARSE_MS;
}

template <typename TAKE> static void walk_coarse(u64 from, u64 to, TAKE &&take) {
    const u64 newest = point_at(trend.count - 1).at / TREND_COARSE_MS;
    const u64 end = to / TREND_COARSE_MS < newest ? to / TREND_COARSE_MS : newest;
    u64 n = from / TREND_COARSE_MS;
    n = end >= TREND_COARSE && n < end - TREND_COARSE + 1 ? end - TREND_COARSE + 1 : n;
    for (; n <= end; n++) {
        const coarse_t &piece = coarse[n % TREND_COARSE];
        if (piece.number == (u32)n && piece.era == trend.era && piece.sum.count > 0 && piece.last.at >= from &&
            piece.first.at <= to) {
            take(piece_t{&piece.first, &piece.last, &piece.sum, piece.gap});
        }
    }
}

// Returns the previous report, or null if it is outside the span: the interval between the two then does not count.
static const trend_point_t *before_in(u64 i, u64 from) {
    return i > oldest() && point_at(i - 1).at >= from ? &point_at(i - 1) : nullptr;
}

// Returns true if a block can be used as a whole: it is complete, has no gap, and lies in the span and, according to
// `fits`, in one column.
template <typename FITS> static bool block_whole(u64 i, u64 from, u64 to, FITS &&fits) {
    if (i % TREND_BLOCK != 0 || i + TREND_BLOCK > trend.count || point_at(i + TREND_BLOCK - 1).at > to ||
        !before_in(i, from)) {
        return false;
    }
    return !blocks[i % TREND_POINTS / TREND_BLOCK].gap && fits(point_at(i).at, point_at(i + TREND_BLOCK - 1).at);
}

template <typename FITS, typename TAKE> static void walk_fine(u64 from, u64 to, FITS &&fits, TAKE &&take) {
    for (u64 i = find(from); i < trend.count && point_at(i).at <= to;) {
        if (block_whole(i, from, to, fits)) {
            take(piece_t{&point_at(i), &point_at(i + TREND_BLOCK - 1), &blocks[i % TREND_POINTS / TREND_BLOCK].sum,
                         false});
            i += TREND_BLOCK;
        } else {
            trend_sum_t sum = {};
            trend_sum_add(&sum, before_in(i, from), &point_at(i));
            take(piece_t{&point_at(i), &point_at(i), &sum, false});
            i++;
        }
    }
}

template <typename FITS, typename TAKE> static void walk(u64 from, u64 to, FITS &&fits, TAKE &&take) {
    const u64 fine = fine_from();
    if (trend.count > 0 && from < fine) {
        walk_coarse(from, to < fine ? to : fine - 1, take);
    }
    walk_fine(from < fine ? fine : from, to, fits, take);
}

// Columns ---------------------------------------------------------------------------------------------------------
struct chart_t {
    u64 from, width;
    trend_column_t *column;
    u32 count;
    trend_point_t before; // the last report added
    bool any;
};

static s64 column_of(const chart_t &chart, u64 at) {
    return at < chart.from ? -(s64)((chart.from - at - 1) / chart.width) - 1 : (s64)((at - chart.from) / chart.width);
}

// Marks the columns between two reports that are not joined. If the reports are in adjacent columns, it marks that of
// the second report, so that a short gap stays visible in a long span.
static void gap_mark(chart_t &chart, u64 after, u64 until) {
    const s64 first = column_of(chart, after) + 1;
    const s64 end = column_of(chart, until);
    const s64 stop = std::min(first < end ? end : end + 1, (s64)chart.count);
    for (s64 k = std::max(std::min(first, end), (s64)0); k < stop; k++) {
        chart.column[k].gap = true;
    }
}

// Set values hold until they are changed, also in gaps.
static void set_mark(chart_t &chart, u64 until) {
    const s64 end = std::min(column_of(chart, until), (s64)chart.count);
    for (s64 k = std::max(column_of(chart, chart.before.at), (s64)0); chart.any && k < end; k++) {
        trend_column_t &column = chart.column[k];
        column.set = (chart.before.flags & TREND_SET) != 0;
        column.set_mv = chart.before.set_mv;
        column.set_ma = chart.before.set_ma;
    }
}

static void column_add(trend_column_t &column, const piece_t &piece, bool joined) {
    trend_sum_t sum = {};
    memcpy(sum.low, column.low, sizeof(sum.low));
    memcpy(sum.high, column.high, sizeof(sum.high));
    sum.count = column.any;
    trend_sum_range(&sum, piece.sum->low, piece.sum->high, 1);
    memcpy(column.low, sum.low, sizeof(sum.low));
    memcpy(column.high, sum.high, sizeof(sum.high));
    for (u32 k = 0; k < TREND_KINDS; k++) {
        column.last[k] = trend_value(piece.last, (trend_what_e)k);
        column.first[k] = column.any ? column.first[k] : trend_value(piece.first, (trend_what_e)k);
    }
    column.joined = column.any ? column.joined : joined;
    column.gap = column.gap || piece.gap;
    column.any = true;
}

static void chart_add(chart_t &chart, const piece_t &piece) {
    const bool joined = (piece.first->flags & TREND_JOINED) != 0;
    if (chart.any && !joined) {
        gap_mark(chart, chart.before.at, piece.first->at);
    }
    set_mark(chart, piece.first->at);
    const s64 k = column_of(chart, piece.first->at);
    if (k >= 0 && k < (s64)chart.count) {
        column_add(chart.column[k], piece, joined);
    }
    chart.before = *piece.last;
    chart.any = true;
}

// Starts with the last report before the span, which may be joined to the first one in it.
static void chart_before(chart_t &chart) {
    const u64 fine = fine_from();
    const u64 i = find(chart.from);
    if (i > oldest() && point_at(i - 1).at >= fine) {
        chart.before = point_at(i - 1);
        chart.any = true;
    }
}

// Continues to the end of the span: up to the next report or, after the last one, up to now.
static void chart_after(chart_t &chart) {
    const u64 next = find(chart.from + chart.width * chart.count);
    const bool last = next == trend.count;
    const u64 until = last ? trend_now() + chart.width : point_at(next).at;
    const bool joined = last ? trend.open : (point_at(next).flags & TREND_JOINED) != 0;
    if (chart.any && !joined) {
        gap_mark(chart, chart.before.at, until);
    }
    set_mark(chart, until);
}

void trend_columns(u64 from, u64 width, trend_column_t *out, u32 count) {
    memset(out, 0, sizeof(*out) * count);
    chart_t chart = {.from = from, .width = width, .column = out, .count = count};
    chart_before(chart);
    const auto fits = [&](u64 first, u64 last) { return column_of(chart, first) == column_of(chart, last); };
    walk(from, from + width * count - 1, fits, [&](const piece_t &piece) { chart_add(chart, piece); });
    chart_after(chart);
}

void trend_stats(u64 from, u64 to, trend_stats_t *out) {
    trend_sum_t sum = {};
    walk(
        from, to, [](u64, u64) { return true; }, [&](const piece_t &piece) { trend_sum_join(&sum, piece.sum); });
    trend_sum_stats(&sum, out);
}

bool trend_at(u64 at, trend_point_t *out) {
    const u64 next = find(at + 1);
    if (next == oldest()) {
        return false;
    }
    *out = point_at(next - 1);
    if (out->at == at) {
        return true;
    }
    return next < trend.count ? (point_at(next).flags & TREND_JOINED) != 0
                              : trend.open && at - out->at <= BENCH_DEAD_MS;
}
