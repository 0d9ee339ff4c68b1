// Sums of reports: ranges, and integrals over time.
#include <string.h>

#include "bench/bench_trend.h"

u32 trend_value(const trend_point_t *point, trend_what_e what) {
    return what == TREND_MV   ? point->mv
           : what == TREND_MA ? point->ma
                              : (u32)(((u64)point->mv * point->ma + 500) / 1000);
}

void trend_sum_range(trend_sum_t *sum, const u32 *low, const u32 *high, u32 count) {
    for (u32 k = 0; k < TREND_KINDS; k++) {
        sum->low[k] = sum->count == 0 || low[k] < sum->low[k] ? low[k] : sum->low[k];
        sum->high[k] = sum->count == 0 || high[k] > sum->high[k] ? high[k] : sum->high[k];
    }
    sum->count += count;
}

void trend_sum_add(trend_sum_t *sum, const trend_point_t *before, const trend_point_t *point) {
    const u32 value[TREND_KINDS] = {trend_value(point, TREND_MV), trend_value(point, TREND_MA),
                                    trend_value(point, TREND_MW)};
    trend_sum_range(sum, value, value, 1);
    if (before && (point->flags & TREND_JOINED)) {
        const u64 ms = point->at - before->at;
        sum->ms += ms;
        sum->mv_ms2 += ((u64)before->mv + point->mv) * ms;
        sum->ma_ms2 += ((u64)before->ma + point->ma) * ms;
        sum->uw_ms2 += ((u64)before->mv * before->ma + (u64)point->mv * point->ma) * ms;
    }
}

void trend_sum_join(trend_sum_t *sum, const trend_sum_t *more) {
    if (more->count > 0) {
        trend_sum_range(sum, more->low, more->high, more->count);
    }
    sum->ms += more->ms;
    sum->mv_ms2 += more->mv_ms2;
    sum->ma_ms2 += more->ma_ms2;
    sum->uw_ms2 += more->uw_ms2;
}

void trend_sum_stats(const trend_sum_t *sum, trend_stats_t *out) {
    static constexpr u64 HOUR2 = 2ull * 3600 * 1000; // milliseconds, doubled like the integrals
    *out = {};
    out->any = sum->count > 0;
    out->ms = sum->ms;
    memcpy(out->low, sum->low, sizeof(out->low));
    memcpy(out->high, sum->high, sizeof(out->high));
    out->mah = (sum->ma_ms2 + HOUR2 / 2) / HOUR2;
    out->mwh = (sum->uw_ms2 / 1000 + HOUR2 / 2) / HOUR2;
    const u64 ms2 = sum->ms * 2;
    if (ms2 == 0) { // a single report
        memcpy(out->mean, sum->low, sizeof(out->mean));
        return;
    }
    out->mean[TREND_MV] = (u32)((sum->mv_ms2 + ms2 / 2) / ms2);
    out->mean[TREND_MA] = (u32)((sum->ma_ms2 + ms2 / 2) / ms2);
    out->mean[TREND_MW] = (u32)((sum->uw_ms2 / ms2 + 500) / 1000);
}
