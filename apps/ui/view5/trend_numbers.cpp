// The numbers beside the panes of the trend.
#include <stdio.h>

#include "bench/bench_import.h"
#include "bench/bench_record.h"
#include "bench/bench_session.h"
#include "bench_ids.h"
#include "ui/ui.h"
#include "ui/view5/trend_page.h"

static const char *running_words(char *out, u64 ms) {
    const u64 s = ms / 1000;
    snprintf(out, TREND_TEXT, "%u:%02u:%02u", (unsigned)(s / 3600), (unsigned)(s / 60 % 60), (unsigned)(s % 60));
    return out;
}

static const char *ago_words(char *out, u64 ms) {
    const unsigned s = (unsigned)(ms / 1000);
    if (s < 60) {
        snprintf(out, TREND_TEXT, "%u s", s);
    } else if (s < 3600) {
        snprintf(out, TREND_TEXT, "%u min %u s", s / 60, s % 60);
    } else {
        snprintf(out, TREND_TEXT, "%u h %u min", s / 3600, s / 60 % 60);
    }
    return out;
}

void trend_clock(char *out, u64 at, bool seconds) {
    const u32 s = trend_day_ms(at) / 1000;
    const int n = snprintf(out, TREND_TEXT, "%u:%02u", s / 3600, s / 60 % 60);
    if (seconds) {
        snprintf(out + n, TREND_TEXT - (size_t)n, ":%02u", s % 60);
    }
}

// Values ----------------------------------------------------------------------------------------------------------
// Write volts in hundredths, amperes in thousandths and watts in tenths, followed by `unit`, which may be empty.
static const char *volts_words(char *out, bool known, u32 mv, const char *unit) {
    if (known) {
        snprintf(out, TREND_TEXT, "%u.%02u%s", mv / 1000, mv % 1000 / 10, unit);
    } else {
        snprintf(out, TREND_TEXT, "-․--%s", unit);
    }
    return out;
}

static const char *low_words(char *out, bool known, u32 value, const char *unit) {
    const bool watts = trend_page.watts;
    const char *dashes = watts ? "-․-" : "-․---";
    if (!known) {
        snprintf(out, TREND_TEXT, "%s%s", dashes, unit);
    } else if (watts) {
        snprintf(out, TREND_TEXT, "%u.%u%s", value / 1000, value % 1000 / 100, unit);
    } else {
        snprintf(out, TREND_TEXT, "%u.%03u%s", value / 1000, value % 1000, unit);
    }
    return out;
}

// Without a cursor, shows what the box reports now; nothing while an imported recording is shown.
static void now_paint() {
    char text[TREND_TEXT];
    u16 mv, ma, dw;
    bench_eye(&mv, &ma, &dw);
    const bool watts = trend_page.watts;
    if (trend_stopped()) {
        for (u32 id : {VIEW5_WHEN_ID, VIEW5_AT_VOLTS_ID, VIEW5_AT_LOW_ID}) {
            paint_text(view5(id), "");
        }
    } else {
        paint_words(view5(VIEW5_WHEN_ID), TEXT_T_NOW);
        paint_text(view5(VIEW5_AT_VOLTS_ID), volts_words(text, bench.mv_known, mv, " V"));
        paint_text(view5(VIEW5_AT_LOW_ID), low_words(text, watts ? bench.dw_known : bench.ma_known,
                                                     watts ? dw * 100u : ma, watts ? " W" : " A"));
    }
    paint_text(view5(VIEW5_AGO_ID), "");
}

static void cursor_paint(const trend_point_t *point) {
    char text[TREND_TEXT];
    const u32 low = point ? trend_value(point, trend_low_what()) : 0;
    paint_words(view5(VIEW5_WHEN_ID), TEXT_T_CURSOR);
    if (trend_stopped()) { // an imported recording is in the past
        trend_clock(text, trend_page.cursor_at, true);
        paint_text(view5(VIEW5_AGO_ID), text);
    } else {
        paint_words(view5(VIEW5_AGO_ID), TEXT_T_AGO, ago_words(text, trend_now() - trend_page.cursor_at));
    }
    paint_text(view5(VIEW5_AT_VOLTS_ID), volts_words(text, point != nullptr, point ? point->mv : 0, " V"));
    paint_text(view5(VIEW5_AT_LOW_ID), low_words(text, point != nullptr, low, trend_page.watts ? " W" : " A"));
}

static void stats_paint() {
    trend_stats_t stats;
    char text[TREND_TEXT];
    if (trend_page.span == TREND_SESSION) {
        session_stats(&stats);
        paint_text(view5(VIEW5_SPAN_ID), running_words(text, trend_session_ms()));
    } else {
        static constexpr const char *words[TREND_SESSION] = {"1 min", "10 min", "1 h", "12 h"};
        const u64 span = trend_spans[trend_page.span].ms;
        trend_stats(trend_now() - span, trend_now(), &stats);
        paint_text(view5(VIEW5_SPAN_ID), words[trend_page.span]);
    }
    const struct {
        u32 volts, low;
        const u32 *value;
    } rows[] = {{VIEW5_MIN_VOLTS_ID, VIEW5_MIN_LOW_ID, stats.low},
                {VIEW5_MAX_VOLTS_ID, VIEW5_MAX_LOW_ID, stats.high},
                {VIEW5_MEAN_VOLTS_ID, VIEW5_MEAN_LOW_ID, stats.mean}};
    for (const auto &row : rows) {
        paint_text(view5(row.volts), volts_words(text, stats.any, row.value[TREND_MV], ""));
        paint_text(view5(row.low), low_words(text, stats.any, row.value[trend_low_what()], ""));
    }
    paint_text(view5(VIEW5_LOW_UNIT_ID), trend_page.watts ? "W" : "A");
    for (const auto &[id, value] : {std::pair<u32, u64>{VIEW5_CHARGE_ID, stats.mah}, {VIEW5_ENERGY_ID, stats.mwh}}) {
        snprintf(text, sizeof(text), stats.any ? "%llu.%03llu" : "-․---", (unsigned long long)value / 1000,
                 (unsigned long long)value % 1000);
        paint_text(view5(id), text);
    }
}

static void record_paint() {
    const bool runs = record_runs();
    const bool failed = record.state == RECORD_FULL || record.state == RECORD_FAILED;
    char text[TREND_TEXT];
    for (u32 id : {VIEW5_RECORDING_DOT_ID, VIEW5_RECORDING_ID, VIEW5_RECORDED_ID}) {
        paint_shown(view5(id), runs);
    }
    para_t *file = view5(VIEW5_FILE_ID);
    paint_shown(file, runs || failed || trend_stopped());
    paint_look(file, failed ? LOOK_CHOSEN : 0);
    if (failed) {
        paint_words(file, record.state == RECORD_FULL ? TEXT_T_FULL : TEXT_T_FAILED);
    } else {
        paint_text(file, trend_stopped() ? import_name() : record.name);
    }
    paint_text(view5(VIEW5_RECORDED_ID), running_words(text, bench.now - record.since));
    para_t *button = view5(VIEW5_RECORD_ID);
    paint_words(button, runs ? TEXT_T_STOP : TEXT_T_RECORD);
    paint_look(button, runs ? LOOK_CHOSEN : trend_stopped() || bench.replay ? LOOK_DEAD : 0);
}

void trend_numbers_paint(const trend_point_t *at) {
    if (trend_page.cursor) {
        cursor_paint(at);
    } else {
        now_paint();
    }
    stats_paint();
    record_paint();
}
