// Reports of the box: the measured voltage, current and power, as three registers. Under dis_mutex.
#ifndef BENCH_REPORT_H
#define BENCH_REPORT_H

#include "bench/bench.h"

// Forgets a report that is not complete or not confirmed.
void report_start(void);

// Takes one of the registers REG_LIVE_MV, REG_LIVE_MA and REG_LIVE_DW, in this order.
void report_take(u16 addr, u16 value);

// Ends a report that has no power, at another register or after REPORT_MS.
void report_end(void);
void report_tick(void);

// Takes a reading that is confirmed. In bench_state.cpp.
void bench_reading(u16 addr, u16 value);

#endif
