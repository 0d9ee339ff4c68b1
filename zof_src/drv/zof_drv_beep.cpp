// One thread for the life of the program plays all tones; it is woken by a semaphore and plays the length that was
// requested last.
#include "drv/zof_drv_beep.h"

#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_drv_gpio.h"

static zof_sem_t g_beep_sem;
static std::atomic<u16> g_beep_time; // length of the requested tone, ms

static void zof_drv_beep_thread(void *) {
    for (;;) {
        zof_sem_take(g_beep_sem, 0);
        const u16 time = g_beep_time;
        if (time) {
            win_beep_on(time);
        }
    }
}

static s32 beep_start() {
    g_beep_sem = zof_sem_create(0);
    const bool runs = g_beep_sem && zof_thread_create("zof beep", zof_drv_beep_thread, nullptr, 4096, 3);
    return runs ? 0 : -1;
}

s32 zof_beep_init(void) {
    static const s32 started = beep_start(); // created once, by whichever thread comes first
    return started;
}

s32 zof_beep_on(u16 time) {
    if (time == 0) {
        return 0;
    }
    if (zof_beep_init() != 0) {
        return -1;
    }
    g_beep_time = time;
    if (zof_sem_get_value(g_beep_sem) == 0) {
        zof_sem_release(g_beep_sem);
    }
    return 0;
}

s32 zof_beep_off(void) {
    const u8 *param = zof_hw_get_def_param();
    return zof_gpio_setPin(param[ZOF_HW_BEEP_PORT], param[ZOF_HW_BEEP_PIN], 0);
}
