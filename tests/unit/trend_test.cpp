#include <algorithm>
#include <random>
#include <vector>

#include "bench/bench_session.h"
#include "bench/bench_trend.h"
#include "port/zof_host.h"
#include "zof_test.h"

static u32 test_now;

static void clock_start(u32 at = 0) {
    static const zof_clock_t clock = {[] { return test_now; }, [](u32) {}};
    zof_clock_set(&clock);
    test_now = at;
    bench_start();
}

static void wait_ms(u32 ms) {
    test_now += ms;
    bench_tick();
}

static void report(u16 mv, u16 ma) {
    bench_take(REG_LIVE_MV, mv);
    bench_take(REG_LIVE_MA, ma);
    bench_take(REG_LIVE_DW, (u16)((u32)mv * ma / 100000));
}

// What a span has, from all reports one by one.
static trend_stats_t plain_stats(const std::vector<trend_point_t> &points, u64 from, u64 to) {
    trend_sum_t sum = {};
    const trend_point_t *before = nullptr;
    for (const trend_point_t &p : points) {
        if (p.at >= from && p.at <= to) {
            trend_sum_add(&sum, before, &p);
            before = &p;
        }
    }
    trend_stats_t out;
    trend_sum_stats(&sum, &out);
    return out;
}

static bool same(const trend_stats_t &a, const trend_stats_t &b) {
    return a.any == b.any && std::equal(a.low, a.low + 3, b.low) && std::equal(a.high, a.high + 3, b.high) &&
           std::equal(a.mean, a.mean + 3, b.mean) && a.mah == b.mah && a.mwh == b.mwh && a.ms == b.ms;
}

// A run with noise, single spikes and silences.
static std::vector<trend_point_t> random_run(std::mt19937 &random, u32 count, u32 step) {
    std::vector<trend_point_t> points;
    u64 at = trend_now();
    for (u32 i = 0; i < count; i++) {
        const bool gap = random() % 500 == 0;
        at += gap ? 1 + random() % 20000 : 1 + random() % (2 * step);
        if (gap) {
            trend_gap();
        }
        trend_point_t p = {.at = at, .mv = (u16)(12000 + random() % 20), .ma = (u16)(random() % 3 ? 800 : 810)};
        p.mv = random() % 3000 == 0 ? (u16)(random() % 50000) : p.mv;
        p.flags = !points.empty() && !gap && at - points.back().at <= BENCH_DEAD_MS ? TREND_JOINED : 0;
        trend_add(p);
        points.push_back(p);
    }
    test_now += (u32)(at - trend_now());
    bench_tick();
    return points;
}

TEST_CASE("trend: statistics and columns of any span match those computed report by report") {
    clock_start();
    const u32 seed = getenv("ZOF_SEED") ? (u32)strtoul(getenv("ZOF_SEED"), nullptr, 10) : std::random_device()();
    CAPTURE(seed);
    std::mt19937 random(seed);
    const std::vector<trend_point_t> points = random_run(random, 20000, 100);
    for (u32 i = 0; i < 40; i++) {
        const u64 from = points[random() % points.size()].at - random() % 300;
        const u64 width = 1 + random() % (i % 4 ? 20000 : 200000);
        trend_stats_t stats;
        trend_stats(from, from + width * 100 - 1, &stats);
        CHECK(same(stats, plain_stats(points, from, from + width * 100 - 1)));
        trend_column_t columns[100];
        trend_columns(from, width, columns, 100);
        u32 wrong = 0;
        bool gaps[100] = {}; // the columns between, or that of the second point if they are adjacent
        for (size_t j = 1; j < points.size(); j++) {
            const s64 before =
                ((s64)points[j - 1].at - (s64)from + 1000000000ll * (s64)width) / (s64)width - 1000000000;
            const s64 at = ((s64)points[j].at - (s64)from + 1000000000ll * (s64)width) / (s64)width - 1000000000;
            const s64 first = std::min(before + 1, at);
            for (s64 k = std::max(first, (s64)0); k < std::max(at, first + 1) && k < 100; k++) {
                gaps[k] = gaps[k] || !(points[j].flags & TREND_JOINED);
            }
        }
        for (u32 k = 0; k < 100; k++) {
            wrong += columns[k].gap != gaps[k];
            const auto in = [&](const trend_point_t &p) {
                return p.at >= from + k * width && p.at < from + (k + 1) * width;
            };
            const auto first = std::find_if(points.begin(), points.end(), in);
            const bool any = first != points.end();
            const trend_stats_t want = plain_stats(points, from + k * width, from + (k + 1) * width - 1);
            wrong += columns[k].any != any;
            wrong += any && (!std::equal(want.low, want.low + 3, columns[k].low) ||
                             !std::equal(want.high, want.high + 3, columns[k].high) ||
                             columns[k].first[TREND_MV] != first->mv ||
                             columns[k].joined != ((first->flags & TREND_JOINED) != 0));
        }
        CHECK(wrong == 0);
    }
}

TEST_CASE("trend: a report is found at its time, but not in a silence or before the first one") {
    clock_start();
    report(5000, 100);
    const u64 first = trend_now();
    wait_ms(1500);
    report(6000, 200);
    wait_ms(2500); // more than the box may be silent
    report(7000, 300);
    trend_point_t p;
    CHECK(!trend_at(first - 1, &p));
    CHECK((trend_at(first, &p) && p.mv == 5000));
    CHECK((trend_at(first + 1499, &p) && p.mv == 5000));
    CHECK((trend_at(first + 1500, &p) && p.mv == 6000));
    CHECK(!trend_at(first + 1501, &p));
    CHECK((trend_at(first + 4000, &p) && p.mv == 7000));
    wait_ms(1900);
    CHECK(trend_at(trend_now(), &p));
    wait_ms(200);
    CHECK(!trend_at(trend_now(), &p));
    trend_column_t columns[8];
    trend_columns(first, 1000, columns, 8);
    std::string shown;
    for (const trend_column_t &c : columns) {
        shown += c.any ? 'x' : c.gap ? '-' : '.';
    }
    CHECK(shown == "xx--x--."); // from the last report on, the box is silent
}

TEST_CASE("trend: lost frames do not produce a report with old values") {
    clock_start();
    const auto count = [] {
        trend_stats_t stats;
        trend_stats(0, trend_now(), &stats);
        return stats;
    };
    bench_take(REG_LIVE_MV, 5000);
    bench_take(REG_LIVE_MA, 100);
    CHECK(!count().any);
    wait_ms(100);
    bench_take(REG_LIVE_MV, 6000); // the power was lost: the last report is complete without
    CHECK(count().high[TREND_MV] == 5000);
    bench_take(REG_LIVE_DW, 6); // the current was lost
    wait_ms(100);
    bench_take(REG_LIVE_MA, 900); // the voltage was lost
    bench_take(REG_LIVE_DW, 6);
    CHECK((count().high[TREND_MV] == 5000 && count().high[TREND_MA] == 100));
    wait_ms(100);
    report(7000, 200);
    CHECK((count().high[TREND_MV] == 7000 && count().high[TREND_MA] == 200));
}

TEST_CASE("trend: weeks of reports keep every spike, and the last twelve hours are complete") {
    clock_start(0xFFFFFFFFu - 5000); // across the wrap of the clock
    const u64 begin = trend_now();
    u32 spikes = 0;
    for (u32 i = 0; i < 1300000; i++) { // 36 hours at ten a second
        test_now += 100;
        bench_tick();
        const bool spike = i % 100000 == 50000;
        spikes += spike;
        report(spike ? (u16)(20000 + spikes) : 12000, 1000);
    }
    trend_column_t columns[250];
    const u64 width = 36 * 3600 * 1000 / 250;
    trend_columns(trend_now() / width * width - 249 * width, width, columns, 250);
    u32 seen = 0, gaps = 0;
    for (const trend_column_t &c : columns) {
        seen += c.any && c.high[TREND_MV] > 20000;
        gaps += c.gap;
    }
    CHECK((seen == spikes && gaps == 0));
    trend_stats_t stats;
    trend_stats(begin, trend_now(), &stats);
    CHECK((stats.high[TREND_MV] == 20000 + spikes && stats.low[TREND_MV] == 12000));
    CHECK(stats.ms / 1000 == 129999); // all of it
    CHECK((stats.mah >= 36100 && stats.mah <= 36112));
    trend_point_t p;
    CHECK(trend_at(trend_now() - 12 * 3600 * 1000, &p));
    CHECK(!trend_at(begin + 60000, &p));
    wait_ms(30u * 24 * 3600 * 1000); // and a month of silence
    report(5000, 0);
    trend_stats(trend_now() - 12 * 3600 * 1000, trend_now(), &stats);
    CHECK((stats.any && stats.high[TREND_MV] == 5000));
}

TEST_CASE("session: a reset starts a new session, and undoing it continues the previous one") {
    clock_start();
    for (u32 i = 0; i <= 36000; i++) { // an hour at 1 A and 12 V
        report(12000, 1000);
        wait_ms(100);
    }
    trend_stats_t stats;
    session_stats(&stats);
    CHECK((stats.mah == 1000 && stats.mwh == 12000 && stats.mean[TREND_MW] == 12000));
    CHECK(trend_now() - session_begin() == 3600100);
    session_reset();
    session_stats(&stats);
    CHECK((!stats.any && trend_now() == session_begin()));
    for (u32 i = 0; i <= 18000; i++) {
        report(5000, 2000);
        wait_ms(100);
    }
    session_stats(&stats);
    CHECK((stats.mah == 1000 && stats.mwh == 5000 && stats.high[TREND_MV] == 5000));
    session_undo();
    session_stats(&stats);
    CHECK((stats.mah == 2000 && stats.mwh == 17000 && stats.high[TREND_MV] == 12000 && stats.low[TREND_MV] == 5000));
}
