#include "drv/zof_drv_wdt.h"

static const zof_drv_wdt_ops_t *drv_wdt_t;

s32 zof_drv_wdt_reg(const zof_drv_wdt_ops_t *ops) {
    drv_wdt_t = ops;
    return 0;
}

s32 zof_wdt_open(void) {
    return drv_wdt_t && drv_wdt_t->open ? drv_wdt_t->open() : -1;
}

s32 zof_wdt_close(void) {
    return drv_wdt_t && drv_wdt_t->close ? drv_wdt_t->close() : -1;
}

s32 zof_wdt_set_timeout(u32 seconds) {
    return drv_wdt_t && drv_wdt_t->set_timeout ? drv_wdt_t->set_timeout(seconds) : -1;
}

s32 zof_wdt_keepalive(void) {
    return drv_wdt_t && drv_wdt_t->keepalive ? drv_wdt_t->keepalive() : -1;
}
