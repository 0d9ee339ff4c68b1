// One turn of the main loop, and how long it may sleep. After a touch or a key the sources keep their own periods for a
// while: a held press, a gliding list and a long press all depend on being polled.
#include "drv/zof_loop_in.h"

#include <thread>

enum { SOURCES_MAX = 8, SLEEP_MAX_MS = 500, LIVELY_MS = 2000, NO_WAIT_MS = 5, CONTENDED_MS = 1 };

const zof_loop_ops_t *drv_loop_t;
zof_mutex_t dis_mutex;

// Belongs to the graphics thread, except for its id, which is set before the first turn ends.
static struct {
    zof_loop_source *sources[SOURCES_MAX];
    u32 count;
    u32 input_at;
    bool lively; // there was input within LIVELY_MS
} loop;
static std::atomic<std::thread::id> loop_thread;

void zof_loop_source_add(zof_loop_source *source, lv_timer_t *timer) {
    source->timer = timer;
    if (loop.count < SOURCES_MAX) {
        loop.sources[loop.count++] = source;
    }
}

void zof_loop_wake(zof_loop_source *source) {
    if (source) {
        source->due = true;
    }
    if (drv_loop_t && drv_loop_t->wake) {
        drv_loop_t->wake();
    }
}

// What another thread changed under the lock may need a turn.
static void unlocked() {
    if (loop_thread.load() != std::this_thread::get_id()) {
        zof_loop_wake(nullptr);
    }
}

void zof_loop_init() {
    dis_mutex = zof_mutex_create();
    zof_mutex_watch(dis_mutex, unlocked);
}

static bool pressed() {
    for (lv_indev_t *indev = lv_indev_get_next(nullptr); indev; indev = lv_indev_get_next(indev)) {
        if (indev->proc.state == LV_INDEV_STATE_PRESSED) {
            return true;
        }
    }
    return false;
}

static void input_take() {
    const bool came = drv_loop_t && drv_loop_t->input && drv_loop_t->input();
    if (came || pressed()) {
        loop.input_at = zof_sys_time_ms();
        loop.lively = true;
    } else if (zof_sys_time_ms() - loop.input_at >= LIVELY_MS) {
        loop.lively = false;
    }
}

static bool polls(const lv_timer_t *timer) {
    for (lv_indev_t *indev = lv_indev_get_next(nullptr); indev; indev = lv_indev_get_next(indev)) {
        if (indev->driver->read_timer == timer) {
            return true;
        }
    }
    for (u32 i = 0; i < loop.count; i++) {
        if (loop.sources[i]->timer == timer) {
            return true;
        }
    }
    return false;
}

// LVGL's own result includes the timers that only poll.
static u32 sleep_ms() {
    u32 least = SLEEP_MAX_MS;
    for (const lv_timer_t *t = lv_timer_get_next(nullptr); t; t = lv_timer_get_next((lv_timer_t *)t)) {
        if (t->paused || (!loop.lively && polls(t))) {
            continue;
        }
        const u32 elapsed = lv_tick_elaps(t->last_run);
        const u32 left = elapsed < t->period ? t->period - elapsed : 0;
        least = LV_MIN(least, left);
    }
    return least;
}

u32 zof_loop_turn() {
    loop_thread = std::this_thread::get_id();
    input_take();
    for (u32 i = 0; i < loop.count; i++) {
        zof_loop_source *source = loop.sources[i];
        if (source->due.exchange(false) && source->timer) {
            lv_timer_ready(source->timer);
        }
    }
    lv_timer_handler();
    for (u32 i = 0; i < loop.count; i++) {
        if (loop.sources[i]->settle) {
            loop.sources[i]->settle();
        }
    }
    return sleep_ms();
}

void zof_loop_wait(u32 ms) {
    if (zof_mutex_contended()) {
        zof_delay(CONTENDED_MS); // without a pause the loop would take the lock again before the other thread runs
    }
    if (drv_loop_t && drv_loop_t->wait) {
        drv_loop_t->wait(ms);
    } else {
        zof_delay(LV_MIN(ms, (u32)NO_WAIT_MS));
    }
}
