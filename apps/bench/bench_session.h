// The session: what has come since the last reset, which can be undone.
#ifndef BENCH_SESSION_H
#define BENCH_SESSION_H

#include "bench/bench_trend.h"

// A report was added to the trend, after `before` (null: the first one).
void session_take(const trend_point_t *before, const trend_point_t *point);
// Starts a new session; undo continues the one before.
void session_reset(void);
void session_undo(void);
void session_clear(void); // forgets both

// When it began, on the trend's clock; until the first reset, the first report.
u64 session_begin(void);
void session_stats(trend_stats_t *out);

#endif
