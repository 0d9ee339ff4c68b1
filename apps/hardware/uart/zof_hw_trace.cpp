#include "hardware/uart/zof_hw_trace.h"

#include <stdio.h>
#include <string.h>

#include <algorithm>
#include <string>

#include "hardware/uart/zof_hw_text.h"

enum { SKIPPED_MAX = 64 }; // bytes in one line

static FILE *trace_file; // null if there is no trace

// Refuses links, because a link could lead to a file that nobody meant to empty.
static FILE *file_start(const char *path) {
    const u32 kind = zof_file_kind(path);
    FILE *f = kind == ZOF_FILE_NONE || kind == ZOF_FILE_PLAIN ? zof_file_write_open(path, ZOF_FALSE) : nullptr;
    if (!f) {
        const bool other = kind == ZOF_FILE_OTHER || kind == ZOF_FILE_FOLDER;
        zof_printf("ZOF_LINK_TRACE: %s: %s", path, other ? "not a regular file" : zof_file_error());
    }
    return f;
}

static void trace_close() {
    if (trace_file && trace_file != stdout) {
        fclose(trace_file);
    }
    trace_file = nullptr;
}

// Writes through the log, because other threads print their lines to the same stream.
static bool console_write(const std::string &line) {
    zof_printf("%s", line.c_str());
    return ferror(stdout) == 0;
}

static bool file_write(const std::string &line) {
    return fwrite(line.data(), 1, line.size(), trace_file) == line.size() && fputc('\n', trace_file) != EOF &&
           fflush(trace_file) == 0;
}

// Each line is written at once, so that the trace is complete even if the program is killed. A full disk or a closed
// pipe ends only the trace.
static void line_write(const std::string &line) {
    if (!(trace_file == stdout ? console_write(line) : file_write(line))) {
        zof_printf("the trace of the register link ends: %s", zof_file_error());
        trace_close();
    }
}

static void bytes_write(const char *way, const u8 *data, u32 size, const std::string &words) {
    char time[ZOF_RTC_TEXT_SIZE];
    line_write(std::string(zof_rtc_stamp_text(time)) + " " + way + " " + hex_text({data, size}) + " " + words);
}

void zof_trace_start(const char *where) {
    trace_close();
    trace_file = !where || !*where ? nullptr : strcmp(where, "-") == 0 ? stdout : file_start(where);
    zof_trace_remark("zof_bench", "a trace of the register link");
}

void zof_trace_received(const u8 *frame, u32 size) {
    if (trace_file) {
        bytes_write(ZOF_TRACE_FROM_BOARD, frame, size, frame_text({frame, size}));
    }
}

void zof_trace_skipped(const u8 *data, u32 size) {
    for (u32 at = 0; trace_file && at < size; at += SKIPPED_MAX) {
        bytes_write(ZOF_TRACE_FROM_BOARD, data + at, std::min<u32>(size - at, SKIPPED_MAX), "skipped");
    }
}

void zof_trace_sent(const u8 *frame, u32 size, bool sent) {
    if (trace_file) {
        bytes_write(ZOF_TRACE_TO_BOARD, frame, size, frame_text({frame, size}) + (sent ? "" : ", not sent"));
    }
}

void zof_trace_remark(const char *subject, const char *text) {
    if (trace_file) {
        char time[ZOF_RTC_TEXT_SIZE];
        line_write(std::string("# ") + zof_rtc_stamp_text(time) + " " + subject + ": " + text);
    }
}
