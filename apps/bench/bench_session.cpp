#include "bench/bench_session.h"

struct session_t {
    trend_sum_t sum;
    u64 begin; // 0: the first report
};             // 0: since the first report

static struct {
    session_t now, before; // the session before the last reset is kept for undo
} session;

void session_take(const trend_point_t *before, const trend_point_t *point) {
    const bool inside = before && before->at >= session.now.begin;
    trend_sum_add(&session.now.sum, inside ? before : nullptr, point);
}

void session_reset(void) {
    session.before = session.now;
    session.now = {.begin = trend_now()};
}

void session_undo(void) {
    trend_sum_join(&session.before.sum, &session.now.sum);
    session.now = session.before;
}

void session_clear(void) {
    session = {};
}

u64 session_begin(void) {
    return session.now.begin != 0 ? session.now.begin : trend_begin();
}

void session_stats(trend_stats_t *out) {
    trend_sum_stats(&session.now.sum, out);
}
