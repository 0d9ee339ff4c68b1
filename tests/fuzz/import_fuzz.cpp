// Recordings shown as the trend: the input is a CSV file.
#include "bench/bench_import.h"
#include "bench/bench_session.h"
#include "fuzz_file.h"

enum { COLUMNS = 250 };

void fuzz_open() {
}

static void columns_check(u64 from, u64 width) {
    static trend_column_t columns[COLUMNS];
    trend_columns(from, width, columns, COLUMNS);
    for (const trend_column_t &c : columns) {
        for (u32 k = 0; c.any && k < TREND_KINDS; k++) {
            fuzz_must(c.low[k] <= c.first[k] && c.first[k] <= c.high[k], "a column has its first value");
            fuzz_must(c.low[k] <= c.last[k] && c.last[k] <= c.high[k], "a column has its last value");
        }
    }
}

void fuzz_one(fuzz_input &in) {
    fuzz_file_set("/recording.csv", fuzz_text(in));
    if (fuzz_file.content.empty() || import_file("/recording.csv") < 0) {
        return;
    }
    fuzz_must(trend_stopped() && trend_begin() <= trend_now(), "the clock stops at the end");
    trend_stats_t stats, whole;
    session_stats(&stats);
    trend_stats(trend_begin(), trend_now(), &whole);
    fuzz_must(stats.any == whole.any && stats.mah == whole.mah && stats.high[TREND_MV] == whole.high[TREND_MV],
              "the session is the whole recording");
    for (u32 k = 0; k < TREND_KINDS; k++) {
        fuzz_must(stats.low[k] <= stats.mean[k] && stats.mean[k] <= stats.high[k], "the mean is between the ends");
    }
    columns_check(trend_begin(), (trend_now() - trend_begin()) / COLUMNS + 1);
    columns_check(trend_now() - 60000, 240);
}
