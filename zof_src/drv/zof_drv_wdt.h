// The watchdog: restarts the box when the program no longer feeds it.
#ifndef ZOF_DRV_WDT_H
#define ZOF_DRV_WDT_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// All MANDATORY; each returns 0 or -1.
typedef struct {
    s32 (*open)(void);
    s32 (*close)(void);
    s32 (*set_timeout)(u32 seconds);
    s32 (*keepalive)(void);
} zof_drv_wdt_ops_t;

// Publishes a port's watchdog; null removes it. Returns 0.
s32 zof_drv_wdt_reg(const zof_drv_wdt_ops_t *ops);

// Return -1 without a watchdog, else the driver's result. A time-out that is set before the watchdog is opened applies
// from then on.
s32 zof_wdt_open(void);
s32 zof_wdt_close(void);
s32 zof_wdt_set_timeout(u32 seconds);
s32 zof_wdt_keepalive(void);

// Publishes the host's watchdog (/dev/watchdog on Linux), for an application that asks for it. Returns 0, or -1 when
// the host has no watchdog. Once it is open, a program that hangs or dies restarts the machine.
s32 win_wdt_init(void);

ZOF_C_END

#endif
