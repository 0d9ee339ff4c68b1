// The session: the reports since the last reset. A reset can be undone.
#ifndef BENCH_SESSION_H
#define BENCH_SESSION_H

#include "bench/bench_trend.h"

// Adds a report that was added to the trend; `before` is the report before it, or null for the first.
void session_take(const trend_point_t *before, const trend_point_t *point);
// Starts a new session; session_undo continues the previous one.
void session_reset(void);
void session_undo(void);
void session_clear(void); // forgets the current and the previous session

// Returns when the session began, on the trend's clock; before any reset, the time of the first report.
u64 session_begin(void);
void session_stats(trend_stats_t *out);

#endif
