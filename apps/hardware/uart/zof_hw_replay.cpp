#include "hardware/uart/zof_hw_replay.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "hardware/uart/zof_hw_trace.h"

enum { LINE_SIZE = 8192, NAP_MAX_MS = 60000 };

// One line of the trace.
struct trace_line {
    s64 at_ms; // on the clock of the trace
    bool from_board;
    std::vector<u8> data;
};

static struct {
    const char *file; // null: no replay
    FILE *in;
    u32 number; // number of the last line read
    void (*receive)(u8 *data, u32 size);
    u32 most; // maximum number of bytes per call of `receive`
    zof_task_t *task;

    trace_line next; // the next line of the board, due `due_ms` after the start
    u64 due_ms;
    bool begun;     // a line has been read
    u64 elapsed_ms; // time since the start, up to `last_ms`
    u32 last_ms;
    u32 lines; // lines delivered so far
} replay;

s32 zof_replay_open(const char *file) {
    replay.in = zof_file_read_open(file);
    if (!replay.in) {
        fprintf(stderr, "zof_bench: %s: %s\n", file, zof_file_error());
        return -1;
    }
    replay.file = file;
    return 0;
}

const char *zof_replay_file(void) {
    return replay.file;
}

bool zof_replay_reads(const char *path) {
    zof_file_stamp_t a, b;
    return replay.file && path && zof_file_stamp(replay.file, &a) == 0 && zof_file_stamp(path, &b) == 0 &&
           a.device == b.device && a.number == b.number;
}

// Reads a time such as "2026-11-22T09:10:11.123+01:00" as milliseconds. Returns the end of the time, or null.
static const char *time_read(const char *text, s64 *out) {
    int year, month, day, hour, minute, second, ms, zone_h = 0, zone_m = 0, used = 0;
    if (sscanf(text, "%4d-%2d-%2dT%2d:%2d:%2d.%3d%n", &year, &month, &day, &hour, &minute, &second, &ms, &used) != 7) {
        return nullptr;
    }
    text += used;
    const char sign = *text;
    if ((sign == '+' || sign == '-') && (sscanf(text + 1, "%2d:%2d%n", &zone_h, &zone_m, &used) == 2)) {
        text += used + 1;
    }
    using namespace std::chrono;
    const year_month_day date{std::chrono::year(year), std::chrono::month((unsigned)month),
                              std::chrono::day((unsigned)day)};
    if (!date.ok() || hour < 0 || minute < 0 || second < 0 || ms < 0 || zone_h < 0 || zone_m < 0) {
        return nullptr;
    }
    const s64 local =
        ((sys_days(date).time_since_epoch().count() * 24LL + hour) * 60 + minute) * 60000 + second * 1000 + ms;
    *out = local - (sign == '-' ? -1 : 1) * (zone_h * 60 + zone_m) * 60000LL;
    return text;
}

static int digit(char c) {
    return c >= '0' && c <= '9'   ? c - '0'
           : c >= 'A' && c <= 'F' ? c - 'A' + 10
           : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                  : -1;
}

// Returns false unless the text begins with at least one byte in hexadecimal, followed by a blank or the end.
static bool hex_read(const char *text, std::vector<u8> *out) {
    out->clear();
    while (digit(text[0]) >= 0 && digit(text[1]) >= 0) {
        out->push_back((u8)(digit(text[0]) << 4 | digit(text[1])));
        text += 2;
    }
    return !out->empty() && (*text == ' ' || !*text);
}

static bool word_take(const char **text, const char *word) {
    const size_t size = strlen(word);
    const bool found = strncmp(*text, word, size) == 0;
    *text += found ? size : 0;
    return found;
}

// Parses a line. Returns null, or a description of its fault.
static const char *line_parse(const char *text, trace_line *out) {
    text = time_read(text, &out->at_ms);
    if (!text || !word_take(&text, " ")) {
        return "it does not begin with a time";
    }
    out->from_board = word_take(&text, ZOF_TRACE_FROM_BOARD " ");
    if (!out->from_board && !word_take(&text, ZOF_TRACE_TO_BOARD " ")) {
        return "after the time, a direction was expected";
    }
    return hex_read(text, &out->data) ? nullptr : "after the direction, bytes as pairs of digits were expected";
}

// Reads a line and removes its line end; the rest of a line that is too long is skipped. Returns false at the end of
// the file.
static bool line_get(char *text, bool *whole) {
    if (!fgets(text, LINE_SIZE, replay.in)) {
        return false;
    }
    replay.number++;
    *whole = strchr(text, '\n') || feof(replay.in);
    for (int c = 0; !*whole && c != '\n' && c != EOF;) {
        c = fgetc(replay.in);
    }
    text[strcspn(text, "\r\n")] = '\0';
    return true;
}

// Adds the time since the previous line. If the clock was set back while the trace was written, no time is added.
static void due_set(s64 before_ms) {
    replay.due_ms += replay.begun && replay.next.at_ms > before_ms ? (u64)(replay.next.at_ms - before_ms) : 0;
    replay.begun = true;
}

// Finds the next line with bytes from the board. Returns false at the end of the trace.
static bool next_find() {
    char text[LINE_SIZE];
    bool whole;
    while (line_get(text, &whole)) {
        if (!*text || *text == '#') {
            continue;
        }
        trace_line line = {};
        const char *fault = whole ? line_parse(text, &line) : "it is too long";
        if (fault) {
            zof_printf("%s:%u: not a line of a trace: %s", replay.file, replay.number, fault);
            continue;
        }
        const s64 before_ms = replay.next.at_ms;
        replay.next = line;
        due_set(before_ms);
        if (line.from_board) {
            return true;
        }
    }
    return false;
}

static void replay_end() {
    zof_printf("replay of %s: the end, after %u lines of the board", replay.file, replay.lines);
    fclose(replay.in);
    zof_task_del(replay.task);
    replay.task = nullptr;
}

static void deliver(std::vector<u8> *data) {
    for (size_t at = 0; at < data->size(); at += replay.most) {
        replay.receive(data->data() + at, (u32)std::min<size_t>(data->size() - at, replay.most));
    }
}

static void replay_step(zof_task_t *task) {
    const u32 now = zof_sys_time_ms();
    replay.elapsed_ms += now - replay.last_ms;
    replay.last_ms = now;
    while (replay.due_ms <= replay.elapsed_ms) {
        replay.lines++;
        deliver(&replay.next.data);
        if (!next_find()) {
            replay_end();
            return;
        }
    }
    zof_task_set_period(task, (u32)std::min<u64>(replay.due_ms - replay.elapsed_ms, NAP_MAX_MS));
}

void zof_replay_start(void (*receive)(u8 *data, u32 size), u32 most) {
    replay.receive = receive;
    replay.most = most;
    replay.last_ms = zof_sys_time_ms();
    zof_printf("replay of %s: no port is opened, and nothing is sent", replay.file);
    if (next_find()) {
        replay.task = zof_task_create(replay_step, 0, nullptr);
    } else {
        replay_end();
    }
}
