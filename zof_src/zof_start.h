// The start of a program built on the runtime. Its main is `return zof_run(argc, argv);` and it supplies zof_main.
#ifndef ZOF_START_H
#define ZOF_START_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Supplied by the application. Called once, on the main thread under dis_mutex, after the drivers have started: passes
// the view table to zof_prj_create and opens what the application needs. After that the application runs in callbacks.
void zof_main(void); // passes the view table to zof_prj_create

// Handles the command line, starts the runtime in its fixed order, calls zof_main and runs the main loop: one turn of
// lv_timer_handler under dis_mutex, then sleep without it until a timer is due, the window has an event, a host's
// command arrives, or another thread has held the lock. Main thread only, once. Returns the exit
// status if there is nothing to show: what the command line asked for is done (func/zof_option.h), or there is no
// project, or ZOF_STRICT=1 is set and it has errors. Otherwise never: closing the window ends the process. Without
// memory for LVGL's objects it logs a line and exits with ZOF_EXIT_FAILURE.
int zof_run(int argc, char **argv);

ZOF_C_END

#endif
