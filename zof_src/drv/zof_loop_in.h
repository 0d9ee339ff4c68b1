// The main loop's sleep. The loop sleeps until its next timer is due. Timers that only poll for input (events of the
// window, frames of a host) are sources: while nothing arrives they do not keep the loop awake, and the sender of
// something wakes it. Internal: C++ only.
#ifndef ZOF_LOOP_IN_H
#define ZOF_LOOP_IN_H

#include <atomic>

#include "drv/zof_drv.h"
#include "lvgl.h"
#include "zof_lib/zof_type.h"

// One source. It lives to the end of the process.
struct zof_loop_source {
    lv_timer_t *timer;
    std::atomic<bool> due; // run the timer at the next turn, whatever is left of its period
    void (*settle)();      // runs at the end of every turn; may be null
};

// What a port supplies; null members and a null table are allowed. Without a wait the loop sleeps 5 ms at most.
struct zof_loop_ops_t {
    bool (*input)();      // graphics thread: takes the window's pending events; true on user input
    void (*wait)(u32 ms); // graphics thread, no lock held: returns after `ms`, at an event of the window, or at a wake
    void (*wake)();       // any thread, never waits: ends the current wait, or the next one if the loop does not wait
};
extern const zof_loop_ops_t *drv_loop_t; // set once, before the loop starts

// Creates dis_mutex. From then on its unlock by any thread but the graphics thread wakes the loop.
void zof_loop_init();

// Graphics thread. `timer` may still be null for a source that has not started. At most 8 sources.
void zof_loop_source_add(zof_loop_source *source, lv_timer_t *timer);

// Any thread, never waits: the source's timer runs at the loop's next turn, which begins at once. For null only the
// turn, for a thread that has changed something under dis_mutex.
void zof_loop_wake(zof_loop_source *source);

// Supplied by the port: calls `unlocked` after each unlock of this mutex, on the thread that unlocked it. One mutex;
// called before other threads use it.
void zof_mutex_watch(zof_mutex_t m, void (*unlocked)());

// Graphics thread, under dis_mutex: one turn. Returns the milliseconds until the next one is needed, 500 at most.
u32 zof_loop_turn();

// Graphics thread, no lock held. Leaves other threads time to take dis_mutex if one waits for it.
void zof_loop_wait(u32 ms);

#endif
