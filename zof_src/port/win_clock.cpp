// The clock of the runtime: the host's, or that of a test.
#include <atomic>

#include "port/zof_host.h"

// Read by all threads.
static std::atomic<const zof_clock_t *> g_clock{nullptr};

void zof_clock_set(const zof_clock_t *clock) {
    g_clock = clock;
}

u32 zof_sys_time_ms(void) {
    static const u64 start = zof_host_time_ms();
    const zof_clock_t *clock = g_clock;
    return clock ? clock->now_ms() : (u32)(zof_host_time_ms() - start);
}

void zof_delay(u32 ms) {
    const zof_clock_t *clock = g_clock;
    if (clock) {
        clock->delay_ms(ms);
    } else {
        zof_host_sleep(ms);
    }
}

s32 win_rtc_get_time(zof_rtc_time_t *out) {
    zof_rtc_stamp_t now;
    if (win_rtc_get_stamp(&now) != 0) {
        return -1;
    }
    *out = now.time;
    return 0;
}
