// Reports to the system that started the program as a service that it runs: once when the first turn of the main loop
// is done, then again and again, so that the system restarts it when the loop hangs.
#include "drv/zof_loop_in.h"
#include "port/zof_host.h"
#include "port/zof_port.h"

static struct {
    u32 period; // ms; 0: the system does not watch
    u64 next;   // when to report again
    bool ready;
} alive;

// The loop turns at least twice a second.
static void turn_end() {
    if (!alive.ready) {
        alive.ready = true;
        zof_host_service_report("READY=1");
    }
    const u64 now = alive.period ? zof_host_time_ms() : 0;
    if (alive.period && now >= alive.next) {
        alive.next = now + alive.period / 4;
        zof_host_service_report("WATCHDOG=1");
    }
}

void win_alive_init(void) {
    static zof_loop_source turns = {.settle = turn_end};
    alive.period = zof_host_service_period();
    zof_loop_source_add(&turns, nullptr);
}
