// How the desktop's main loop sleeps. Where SDL can wait for window events, it does, and a wake is an event of our own.
// SDL's other drivers would poll every millisecond; there the loop waits on a semaphore and polls the window now and
// then.
#include "port/win_loop.h"

#include <SDL.h>

#include <string.h>

#include <atomic>
#include <initializer_list>

#include "drv/zof_loop_in.h"
#include "zof_lib/zof_stdio.h"

// A picture in memory gets no input; only signals arrive as events there.
enum { LOOK_MS = 10, LOOK_IN_MEMORY_MS = 50 };

static struct {
    bool by_events; // SDL does the waiting
    u32 look_ms;    // otherwise, the longest sleep without polling the window
    u32 wake_event;
    SDL_sem *sem;
    std::atomic<bool> woken; // since the last wait ended: one wake is enough
} sleeper;

static void loop_wait(u32 ms) {
    if (!sleeper.woken) {
        if (sleeper.by_events) {
            SDL_WaitEventTimeout(nullptr, (int)ms);
        } else {
            SDL_SemWaitTimeout(sleeper.sem, SDL_min(ms, sleeper.look_ms));
        }
    }
    sleeper.woken = false;
    while (!sleeper.by_events && SDL_SemTryWait(sleeper.sem) == 0) {
    }
}

static void loop_wake() {
    if (sleeper.woken.exchange(true)) {
        return;
    }
    if (sleeper.by_events) {
        SDL_Event event = {};
        event.type = sleeper.wake_event;
        SDL_PushEvent(&event);
    } else {
        SDL_SemPost(sleeper.sem);
    }
}

static bool one_of(const char *name, std::initializer_list<const char *> names) {
    for (const char *other : names) {
        if (name && strcmp(name, other) == 0) {
            return true;
        }
    }
    return false;
}

void win_loop_init(bool (*input)()) {
    const char *driver = SDL_GetCurrentVideoDriver();
    sleeper.by_events = one_of(driver, {"x11", "wayland", "windows", "cocoa"});
    sleeper.look_ms = !driver || one_of(driver, {"offscreen", "dummy"}) ? LOOK_IN_MEMORY_MS : LOOK_MS;
    sleeper.wake_event = SDL_RegisterEvents(1);
    sleeper.sem = SDL_CreateSemaphore(0);
    if (!sleeper.sem || (sleeper.by_events && sleeper.wake_event == (u32)-1)) {
        zof_printf("window: %s; the loop polls it every 5 ms", SDL_GetError());
        return;
    }
    static const zof_loop_ops_t ops = {.input = input, .wait = loop_wait, .wake = loop_wake};
    drv_loop_t = &ops;
}
