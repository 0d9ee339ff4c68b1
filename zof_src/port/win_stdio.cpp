// Locks and threads of the desktop, on SDL, and what a desktop does not have: a reboot and memory that is counted.
#include <SDL.h>

#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_loop_in.h"
#include "zof_lib/zof_stdio.h"

struct zof_thread {
    SDL_Thread *handle;
    s32 prio;
    void (*fn)(void *arg);
    void *arg;
    std::atomic<u8> started;
};

static std::atomic<int> mutex_waiters;
static struct {
    zof_mutex_t mutex;
    void (*unlocked)();
} watched;

zof_mutex_t zof_mutex_create(void) {
    return SDL_CreateMutex(); // SDL's are recursive
}

void zof_mutex_destory(zof_mutex_t m) {
    SDL_DestroyMutex((SDL_mutex *)m);
}

s32 zof_mutex_lock(zof_mutex_t m) {
    if (SDL_TryLockMutex((SDL_mutex *)m) == 0) {
        return 0;
    }
    mutex_waiters++;
    const s32 result = SDL_LockMutex((SDL_mutex *)m);
    mutex_waiters--;
    return result;
}

s32 zof_mutex_unlock(zof_mutex_t m) {
    const s32 result = SDL_UnlockMutex((SDL_mutex *)m);
    if (m && m == watched.mutex) {
        watched.unlocked();
    }
    return result;
}

void zof_mutex_watch(zof_mutex_t m, void (*unlocked)()) {
    watched = {m, unlocked};
}

zof_bool zof_mutex_contended(void) {
    return mutex_waiters > 0 ? ZOF_TRUE : ZOF_FALSE;
}

zof_sem_t zof_sem_create(u32 initial) {
    return SDL_CreateSemaphore(initial);
}

s32 zof_sem_take(zof_sem_t sem, u32 ms) {
    return ms == 0 ? SDL_SemWait((SDL_sem *)sem) : SDL_SemWaitTimeout((SDL_sem *)sem, ms);
}

s32 zof_sem_trytake(zof_sem_t sem) {
    return SDL_SemTryWait((SDL_sem *)sem);
}

s32 zof_sem_release(zof_sem_t sem) {
    return SDL_SemPost((SDL_sem *)sem);
}

s32 zof_sem_get_value(zof_sem_t sem) {
    return (s32)SDL_SemValue((SDL_sem *)sem);
}

s32 zof_sem_delete(zof_sem_t sem) {
    SDL_DestroySemaphore((SDL_sem *)sem);
    return 0;
}

s32 zof_reboot(void) {
    zof_printf("%s app reboot\n", zof_system_get_name());
    return -1;
}

// Not monotonic, on purpose: the reader of a serial line (1) runs high, all others low.
static SDL_ThreadPriority sdl_priority(s32 prio) {
    if (prio <= 1) {
        return SDL_THREAD_PRIORITY_HIGH;
    }
    return prio <= 6 ? SDL_THREAD_PRIORITY_LOW : SDL_THREAD_PRIORITY_NORMAL;
}

static int sdl_thread_public_fun(void *arg) {
    auto *t = (zof_thread_t *)arg;
    SDL_SetThreadPriority(sdl_priority(t->prio));
    // Once the flag is set the creator may release the record.
    auto *fn = t->fn;
    void *fn_arg = t->arg;
    t->started = 1;
    fn(fn_arg);
    return 0;
}

zof_thread_t *zof_thread_create(const char *name, void (*fn)(void *arg), void *arg, u32 stack, s32 prio) {
    (void)stack; // the desktop's default size is ample
    auto *t = fn ? (zof_thread_t *)zof_malloc(sizeof(zof_thread_t)) : nullptr;
    if (!t) {
        return nullptr;
    }
    t->prio = prio;
    t->fn = fn;
    t->arg = arg;
    t->handle = SDL_CreateThread(sdl_thread_public_fun, name, t);
    if (!t->handle) {
        zof_free(t);
        return nullptr;
    }
    while (!t->started) {
        SDL_Delay(1);
    }
    return t;
}

void zof_thread_del(zof_thread_t *t) {
    if (t) {
        SDL_DetachThread(t->handle);
        zof_free(t);
    }
}

s32 zof_ram_get_img_free(void) {
    return -1; // no image memory is counted on the desktop
}

s32 zof_ram_get_img_check(void) {
    return 1;
}

s32 zof_drv_get_wh_max_value(u32 *w, u32 *h) {
    if (!w || !h) {
        return -1;
    }
    *w = 4096;
    *h = 4096;
    return 0;
}
