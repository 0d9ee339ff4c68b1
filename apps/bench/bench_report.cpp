// Frames have no checksum, so a reading may be garbled on the line. A report that differs much from the last one counts
// at once if its power is the product of its voltage and current, or if nothing is measured because the output is off.
// Otherwise it waits for the next report, which confirms it if it is similar, or lies further on in the same direction.
// A report that is not confirmed is dropped, but not when that happens often: then the output itself is jumping.
#include "bench/bench_report.h"

#include "bench/bench_trend.h"

#include "zof.h"

enum { MV, MA, DW, KINDS, WHOLE = 7 };
enum { REPORT_MS = 50, DW_LEAST = 5, LOG_MS = 10000, DOUBTS = 3, DOUBTS_MS = 1000 };

struct report_t {
    u16 value[KINDS];
    u8 have;   // a bit for each value
    u8 passed; // values that have been accepted
    u64 at;
};

static report_t next;    // arriving
static report_t waiting; // for the next one to confirm it
static u64 logged_at;
static u64 doubted_at[DOUBTS]; // times of the last reports that were not confirmed, as a ring
static u32 doubts;

static constexpr u16 bench_t::*values[KINDS] = {&bench_t::mv, &bench_t::ma, &bench_t::dw};
static constexpr bool bench_t::*known[KINDS] = {&bench_t::mv_known, &bench_t::ma_known, &bench_t::dw_known};
static constexpr u32 slack[KINDS] = {100, 50, 5}; // added to a sixteenth of the value

void report_start(void) {
    next = waiting = {};
    doubts = 0;
}

static bool is_near(u32 a, u32 b, u32 within) {
    return (a > b ? a - b : b - a) <= within + (a > b ? a : b) / 16;
}

static bool is_between(u32 a, u32 b, u32 c) {
    return (a <= b && b <= c) || (a >= b && b >= c);
}

// Returns true if `fits` holds for each value that both reports have.
template <typename F> static bool all(const report_t &report, F &&fits) {
    for (u32 i = 0; i < KINDS; i++) {
        if ((report.have >> i & 1) && !fits(i)) {
            return false;
        }
    }
    return true;
}

static bool is_like_last(const report_t &report) {
    return all(report,
               [&](u32 i) { return !(bench.*known[i]) || is_near(report.value[i], bench.*values[i], slack[i]); });
}

// The next report is like the one that waits, or goes on in its direction, as on a ramp.
static bool confirms(const report_t &report) {
    return all(waiting, [&](u32 i) {
        return is_near(report.value[i], waiting.value[i], slack[i]) ||
               is_between(bench.*values[i], waiting.value[i], report.value[i]);
    });
}

static bool power_fits(const report_t &report) {
    const u32 product = (u32)report.value[MV] * report.value[MA] / 100000;
    const u32 dw = report.value[DW];
    return report.have == WHOLE && dw >= DW_LEAST && (product > dw ? product - dw : dw - product) <= 3 + dw / 8;
}

// What an output that is off measures.
static bool is_nothing(const report_t &report) {
    return bench_out_known() && !bench.on && all(report, [&](u32 i) { return report.value[i] <= slack[i]; });
}

static void accept(const report_t &report) {
    for (u32 i = 0; i < KINDS; i++) {
        if ((report.have & ~report.passed) >> i & 1) {
            bench_reading((u16)(REG_LIVE_MV + i), report.value[i]);
        }
    }
    trend_report_end();
}

static void doubt_note() {
    doubted_at[doubts++ % DOUBTS] = bench.now;
}

// Returns true if several reports within a second were not confirmed. Every report counts then, because otherwise the
// last accepted one would be shown as live for too long.
static bool is_jumping() {
    return doubts >= DOUBTS && bench.now - doubted_at[doubts % DOUBTS] <= DOUBTS_MS;
}

static void waiting_drop() {
    if (waiting.have) {
        doubt_note();
    }
    if (waiting.have && (logged_at == 0 || bench.now - logged_at >= LOG_MS)) {
        logged_at = bench.now;
        zof_printf("box: a report of %u mV, %u mA and %u mW is dropped, because the next one contradicts it",
                   waiting.value[MV], waiting.value[MA], waiting.value[DW] * 100u);
    }
    waiting = {};
}

void report_end(void) {
    const report_t report = next;
    next = {};
    if (report.have == report.passed) {
        trend_report_end();
        return;
    }
    if (waiting.have && confirms(report)) {
        accept(waiting);
        waiting = {};
    } else {
        waiting_drop();
    }
    if (is_like_last(report) || power_fits(report) || is_nothing(report)) {
        accept(report);
    } else if (is_jumping()) {
        doubt_note();
        accept(report);
    } else {
        waiting = report;
    }
}

void report_take(u16 addr, u16 value) {
    const u32 kind = addr - REG_LIVE_MV;
    if (next.have >> kind) { // this value or a later one: the end of the last report was lost
        report_end();
    }
    const u8 bit = (u8)(1u << kind);
    const bool doubted = waiting.have || next.have != next.passed;
    next.value[kind] = value;
    next.have |= bit;
    next.at = bench.now;
    if (!doubted && is_like_last(next)) {
        next.passed |= bit;
        bench_reading(addr, value);
    }
    if (kind == DW) {
        report_end();
    }
}

void report_tick(void) {
    if (next.have && bench.now - next.at > REPORT_MS) {
        report_end();
    }
}
