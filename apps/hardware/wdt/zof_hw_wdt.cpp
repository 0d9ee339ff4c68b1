#include "hardware/wdt/zof_hw_wdt.h"

enum { FEED_MS = 500, TIMEOUT_S = 5 };

static zof_task_t *wdt_task_t;

void zof_wdt_task_cb(zof_task_t *) {
    zof_wdt_keepalive();
}

void zof_wdt_task_create(void) {
    if (wdt_task_t) {
        return;
    }
    wdt_task_t = zof_task_create(zof_wdt_task_cb, FEED_MS, nullptr);
    zof_wdt_set_timeout(TIMEOUT_S);
    zof_wdt_open();
}
