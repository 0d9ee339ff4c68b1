// State and functions that the parts of the Trend page share.
#ifndef TREND_PAGE_H
#define TREND_PAGE_H

#include "bench/bench_trend.h"
#include "ui/ui.h"

enum { TREND_SPANS = 5, TREND_SESSION = 4, TREND_PARTS = 6, TREND_TEXT = 40 };

struct trend_span_t {
    u64 ms;
    u8 parts;                       // number of parts of its axis
    const char *words[TREND_PARTS]; // labels at the beginning of each part
};
extern const trend_span_t trend_spans[TREND_SESSION]; // all spans except the session

struct trend_page_t {
    u32 span = 1;
    bool watts; // watts are shown in place of amperes
    bool cursor;
    u64 cursor_at;
    u64 from, to; // time range of the panes; the last column is the present one
    u64 width;    // of a column, in ms
};
extern trend_page_t trend_page;

inline para_t *view5(u32 id) {
    return zof_ctrl_get_form_id(ZOF_VIEW5_ID, id);
}

trend_what_e trend_low_what(); // the value that the lower pane shows
u64 trend_session_ms();
u8 trend_parts();

// Writes a time of day, "9:05" or, with seconds, "9:05:07".
void trend_clock(char *out, u64 at, bool seconds);

// Paints the numbers at the right; `at` is the report at the cursor, or null.
void trend_numbers_paint(const trend_point_t *at);

#endif
