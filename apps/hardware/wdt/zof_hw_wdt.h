// The panel's watchdog task. It is not started automatically: an application that needs it calls win_wdt_init and
// zof_wdt_task_create.
#ifndef ZOF_HW_WDT_H
#define ZOF_HW_WDT_H

#include "zof.h"

ZOF_C_BEGIN

// Opens the watchdog with a period of five seconds and feeds it every half second from the main loop, so that it fires
// when the user interface hangs. Call it on the graphics thread; a second call does nothing.
void zof_wdt_task_create(void);
void zof_wdt_task_cb(zof_task_t *task);

ZOF_C_END

#endif
