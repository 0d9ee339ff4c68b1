#include "bench/bench_record.h"

#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <iterator>

#include "bench/bench_folder.h"
#include "drv/zof_drv_aid.h"
#include "zof.h"

record_t record = {.name = record.path};

static struct {
    zof_lines_t *lines;
    char folder[RECORD_PATH_SIZE]; // set by record_folder_set; empty for the default
    u64 last_at;                   // time of the last line
    u32 credit;                    // milliseconds towards the next line
} writer;

// A line costs 100 ms; two lines may be saved up, so that reports that arrive unevenly are all written.
enum { LINE_MS = 100, CREDIT_MS = 200 };

static constexpr char HEADER[] = "Time,Voltage (V),Current (A),Power (W),Set voltage (V),Set current (A),Output,Rail,"
                                 "Current limit,Link,Note";

bool record_runs(void) {
    return record.state == RECORD_RUNS;
}

static void failed(record_state_e state, const char *why) {
    record.state = state;
    snprintf(record.why, sizeof(record.why), "%s", why);
    zof_printf("recording %s ends: %s", record.path, record.why);
}

// Frees the file when its thread has finished with it.
static void settle() {
    const char *why;
    const zof_lines_state_e state = zof_lines_state(writer.lines, &why);
    if (!writer.lines || state == ZOF_LINES_OPEN) {
        return;
    }
    if (state == ZOF_LINES_DONE) {
        record.state = RECORD_OFF;
    } else {
        failed(state == ZOF_LINES_FULL ? RECORD_FULL : RECORD_FAILED, why);
    }
    zof_lines_free(writer.lines);
    writer.lines = nullptr;
}

static void put(const char *line) {
    if (zof_lines_put(writer.lines, line) != 0 && zof_lines_state(writer.lines, nullptr) == ZOF_LINES_OPEN) {
        zof_lines_end(writer.lines);
        failed(RECORD_FAILED, "the medium is too slow");
    }
}

// Lines -----------------------------------------------------------------------------------------------------------
enum { FIELD_SIZE = 24, NOTE_SIZE = 80 };

static const char *thousandths(char *out, bool known, u32 value) {
    *out = '\0';
    if (known) {
        snprintf(out, FIELD_SIZE, "%u.%03u", value / 1000, value % 1000);
    }
    return out;
}

static const char *rail_field(char *out, u8 rail) {
    static constexpr const char *kinds[] = {"FIX", "PPS", "AVS", "EPR"};
    *out = '\0';
    if (rail < bench.rails.count) {
        const prof_t &r = bench.rails.rail[rail];
        const char *kind = r.type < 4 ? kinds[r.type] : kinds[RAIL_FIX];
        const int n = snprintf(out, FIELD_SIZE, "%s %u.%02u", kind, r.vmin / 1000u, r.vmin % 1000u / 10u);
        if (r.vmin != r.vmax) {
            snprintf(out + n, FIELD_SIZE - (size_t)n, "-%u.%02u", r.vmax / 1000u, r.vmax % 1000u / 10u);
        }
        strncat(out, " V", FIELD_SIZE - strlen(out) - 1);
    }
    return out;
}

static void point_put(const trend_point_t *p) {
    char time[ZOF_RTC_TEXT_SIZE], mv[FIELD_SIZE], ma[FIELD_SIZE], set_mv[FIELD_SIZE], set_ma[FIELD_SIZE],
        rail[FIELD_SIZE], watts[FIELD_SIZE] = "", line[ZOF_LINES_MAX + 1];
    const bool set = (p->flags & TREND_SET) != 0;
    if (p->flags & TREND_DW) {
        snprintf(watts, sizeof(watts), "%u.%u", p->dw / 10, p->dw % 10);
    }
    const char *output = !(p->flags & TREND_OUT_KNOWN) ? "" : p->flags & TREND_ON ? "on" : "off";
    snprintf(line, sizeof(line), "%s,%s,%s,%s,%s,%s,%s,%s,%s,live,", zof_rtc_stamp_text(time),
             thousandths(mv, true, p->mv), thousandths(ma, true, p->ma), watts, thousandths(set_mv, set, p->set_mv),
             thousandths(set_ma, set, p->set_ma), output, rail_field(rail, p->rail),
             p->flags & TREND_LIMIT ? "yes" : "no");
    put(line);
}

void record_take(const trend_point_t *point) {
    if (!record_runs()) {
        return;
    }
    const u64 credit = writer.credit + (bench.now - writer.last_at);
    writer.credit = credit < CREDIT_MS ? (u32)credit : (u32)CREDIT_MS;
    writer.last_at = bench.now;
    if (writer.credit >= LINE_MS) {
        writer.credit -= LINE_MS;
        point_put(point);
    }
}

// Writes the holder of the port or the system's error text. The text comes from outside, so it is quoted and its own
// quotes are replaced.
static const char *note_field(char *out, const char *who) {
    size_t n = 0;
    for (out[n++] = '"'; *who && n + 2 < NOTE_SIZE; who++) {
        if ((u8)*who >= ' ') {
            out[n++] = *who == '"' ? '\'' : *who;
        }
    }
    out[n++] = '"';
    out[n] = '\0';
    return n > 2 ? out : "";
}

static void gap_put() {
    static constexpr const char *states[] = {"silent", "no port",  "looking", "missing",
                                             "gone",   "no right", "held",    "error"};
    static_assert(BENCH_PORT_OPEN == 0 && std::size(states) == BENCH_PORT_FAULT + 1);
    char time[ZOF_RTC_TEXT_SIZE], note[NOTE_SIZE + 1], line[ZOF_LINES_MAX + 1];
    snprintf(line, sizeof(line), "%s,,,,,,,,,%s,%s", zof_rtc_stamp_text(time), states[bench.port.state],
             note_field(note, bench.port.who));
    put(line);
}

void record_gap(void) {
    if (record_runs()) {
        gap_put();
    }
}

// Start and end ---------------------------------------------------------------------------------------------------
static bool begin(const char *path) {
    if (writer.lines) {
        zof_lines_free(writer.lines); // waits for the end of the previous file
    }
    snprintf(record.path, sizeof(record.path), "%s", path);
    record.name = record.path + zof_path_parent(record.path);
    writer.lines = zof_lines_open(path);
    if (!writer.lines) {
        failed(errno == ENOSPC ? RECORD_FULL : RECORD_FAILED, zof_file_error());
        return false;
    }
    record.state = RECORD_RUNS;
    record.since = writer.last_at = bench.now;
    writer.credit = LINE_MS;
    put(HEADER);
    if (!bench_live()) {
        gap_put();
    }
    return true;
}

bool record_log(const char *path) {
    return path && !record_runs() && begin(path);
}

bool record_start(void) {
    char path[RECORD_PATH_SIZE];
    return !record_runs() && !trend_stopped() && record_name(path, sizeof(path), ".csv") && begin(path);
}

void record_stop(void) {
    if (record_runs()) {
        zof_lines_end(writer.lines);
        record.state = RECORD_ENDING;
    }
}

void record_tick(void) {
    settle();
}

// Names -----------------------------------------------------------------------------------------------------------
void record_folder_set(const char *folder) {
    snprintf(writer.folder, sizeof(writer.folder), "%s", folder);
}

bool record_name(char *out, size_t size, const char *suffix) {
    char folder[RECORD_PATH_SIZE];
    zof_rtc_time_t now = {};
    zof_rtc_get_time(&now);
    snprintf(folder, sizeof(folder), "%s", writer.folder);
    if (!folder[0]) {
        folder_documents(folder, sizeof(folder));
    }
    for (u32 i = 1; i < 1000; i++) { // several recordings may start in one minute
        char number[8] = "";
        if (i > 1) {
            snprintf(number, sizeof(number), "-%u", i);
        }
        const int n = snprintf(out, size, "%s/%04u-%02u-%02u-%02u%02u%s%s", folder, now.year, now.month, now.day,
                               now.hour, now.minute, number, suffix);
        if (n < 0 || (size_t)n >= size) {
            return false;
        }
        if (zof_file_kind(out) == ZOF_FILE_NONE) {
            return true;
        }
    }
    return false;
}

const char *record_picture(void) {
    static char path[RECORD_PATH_SIZE];
    if (!record_name(path, sizeof(path), ".png") || zof_drv_aid_shot(path) != 0) {
        zof_printf("picture %s: %s", path, zof_file_error());
        return nullptr;
    }
    zof_printf("picture %s", path);
    return path + zof_path_parent(path);
}
