// The caller fills a queue under a lock of the file's own; the thread takes all of it at once and writes line by line.
// The thread owns the file. A failure is final.
#include "drv/zof_drv_lines.h"

#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <atomic>
#include <chrono>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_lock.h"
#include "zof_lib/zof_stdio.h"

enum {
    QUEUE = 64 * 1024, // more than a minute of ten lines a second
    PAGE = 4096,       // the smallest page of any system; all others are multiples of it
    SYNC_MS = 500,
    STACK = 65536,
    PRIORITY = 7,
};

struct zof_lines {
    FILE *file;
    bool standard; // output: no page, nothing to sync
    u64 size;
    zof_mutex_t mutex;
    zof_sem_t wake, ended;
    zof_thread_t *thread;
    // Under the lock
    char queue[QUEUE];
    u32 queued;
    bool end;
    // Of the thread
    char taken[QUEUE];
    std::atomic<u32> state;
    char why[96];
};

static bool is_full(int reason) {
#ifdef EDQUOT // not in every system's library
    if (reason == EDQUOT) {
        return true;
    }
#endif
    return reason == ENOSPC || reason == EFBIG;
}

static void fail(zof_lines_t *lines) {
    const bool full = is_full(errno);
    snprintf(lines->why, sizeof(lines->why), "%s", zof_file_error());
    zof_file_cut(lines->standard ? nullptr : lines->file, lines->size); // what a failed write has left
    lines->state = full ? ZOF_LINES_FULL : ZOF_LINES_FAILED;
}

// A line after which no other is sure to fit into the page fills it.
static u32 blanks_after(const zof_lines_t *lines, u32 length) {
    const u32 room = PAGE - (u32)((lines->size + length + 2) % PAGE);
    return lines->standard || room == PAGE || room >= ZOF_LINES_MAX + 2 ? 0 : room;
}

// Writes a line. One call of the system, because the file has no buffer.
static bool line_write(zof_lines_t *lines, const char *text) {
    char out[2 * ZOF_LINES_MAX + 4];
    const u32 length = (u32)strlen(text);
    const u32 blanks = blanks_after(lines, length);
    const int size = snprintf(out, sizeof(out), "%s%*s\r\n", text, (int)blanks, "");
    if (zof_file_put(lines->file, out, (size_t)size) != 0 || (lines->standard && fflush(lines->file) != 0)) {
        return false;
    }
    lines->size += (u64)size;
    return true;
}

// Returns how many bytes of lines there are, each ended by 0.
static u32 take(zof_lines_t *lines, bool *end) {
    zof_lock lock(lines->mutex);
    const u32 size = lines->queued;
    memcpy(lines->taken, lines->queue, size);
    lines->queued = 0;
    *end = lines->end;
    return size;
}

// Writes what is queued. Returns whether the file goes on.
static bool turn(zof_lines_t *lines, bool *fresh) {
    bool end;
    const u32 size = take(lines, &end);
    for (u32 at = 0; at < size; at += (u32)strlen(lines->taken + at) + 1) {
        if (!line_write(lines, lines->taken + at)) {
            fail(lines);
            return false;
        }
        *fresh = true;
    }
    return !end;
}

static bool on_medium(zof_lines_t *lines) {
    return lines->standard || zof_file_sync(lines->file) == 0;
}

static void lines_thread(void *arg) {
    using clock = std::chrono::steady_clock; // a test's clock does not drive the medium
    zof_lines_t *lines = (zof_lines_t *)arg;
    bool fresh = false; // lines that may not be on the medium yet
    clock::time_point synced = clock::now();
    while (turn(lines, &fresh)) {
        const bool woken = zof_sem_take(lines->wake, fresh ? SYNC_MS : 0) == 0;
        if (fresh && (!woken || clock::now() - synced >= std::chrono::milliseconds(SYNC_MS))) {
            if (!on_medium(lines)) {
                fail(lines);
                break;
            }
            fresh = false;
            synced = clock::now();
        }
    }
    if (lines->state == ZOF_LINES_OPEN) {
        if (on_medium(lines)) {
            lines->state = ZOF_LINES_DONE;
        } else {
            fail(lines);
        }
    }
    zof_sem_release(lines->ended);
}

static void record_free(zof_lines_t *lines) {
    if (lines->file && !lines->standard) {
        fclose(lines->file);
    }
    zof_mutex_destory(lines->mutex);
    zof_sem_delete(lines->wake);
    zof_sem_delete(lines->ended);
    zof_thread_del(lines->thread);
    zof_free(lines);
}

zof_lines_t *zof_lines_open(const char *path) {
    auto *lines = path ? (zof_lines_t *)zof_malloc(sizeof(zof_lines_t)) : nullptr;
    if (!lines) {
        return nullptr;
    }
    memset((void *)lines, 0, sizeof(*lines));
    lines->standard = strcmp(path, "-") == 0;
    lines->file = lines->standard ? stdout : zof_file_create(path);
    const int reason = errno;
    lines->mutex = zof_mutex_create();
    lines->wake = zof_sem_create(0);
    lines->ended = zof_sem_create(0);
    if (lines->file && lines->mutex && lines->wake && lines->ended) {
        lines->thread = zof_thread_create("zof lines", lines_thread, lines, STACK, PRIORITY);
    }
    if (!lines->thread) {
        record_free(lines);
        errno = reason;
        return nullptr;
    }
    return lines;
}

s32 zof_lines_put(zof_lines_t *lines, const char *line) {
    const size_t length = line ? strlen(line) : 0;
    if (!lines || !line || length > ZOF_LINES_MAX || lines->state != ZOF_LINES_OPEN) {
        return -1;
    }
    {
        zof_lock lock(lines->mutex);
        if (lines->end || lines->queued + length + 1 > QUEUE) {
            return -1;
        }
        memcpy(lines->queue + lines->queued, line, length + 1);
        lines->queued += (u32)length + 1;
    }
    zof_sem_release(lines->wake);
    return 0;
}

void zof_lines_end(zof_lines_t *lines) {
    if (lines) {
        {
            zof_lock lock(lines->mutex);
            lines->end = true;
        }
        zof_sem_release(lines->wake);
    }
}

zof_lines_state_e zof_lines_state(zof_lines_t *lines, const char **why) {
    const zof_lines_state_e state = lines ? (zof_lines_state_e)lines->state.load() : ZOF_LINES_FAILED;
    if (why) {
        *why = lines && state != ZOF_LINES_OPEN ? lines->why : "";
    }
    return state;
}

void zof_lines_free(zof_lines_t *lines) {
    if (lines) {
        zof_lines_end(lines);
        zof_sem_take(lines->ended, 0);
        record_free(lines);
    }
}
