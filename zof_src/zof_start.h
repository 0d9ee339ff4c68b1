// The start of a program built on the runtime: its main is `return zof_run(argc, argv);` and it supplies zof_main.
#ifndef ZOF_START_H
#define ZOF_START_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Supplied by the application. Called once, on the main thread under dis_mutex, when the drivers stand: hands over the
// view table with zof_prj_create and opens what the application needs. From then on the application lives in callbacks.
void zof_main(void);

// Handles the command line, brings the runtime up in its fixed order, calls zof_main and runs the main loop: one turn
// of lv_timer_handler under dis_mutex, then sleep without it until a timer is due, the window has an event, a host's
// command comes in, or another thread has held the lock. Main thread only, once. Returns 0 when zof_win_cmd did what
// was asked, 1 when there is no project to show; otherwise never: closing the window ends the process. Without memory
// for LVGL's objects it ends with a line and the status ZOF_EXIT_MEMORY.
int zof_run(int argc, char **argv);

// Answers `--help`, `-h`, `--version` and `-V`, and makes the build call `t <switch><stamp>`: argv[2] less its first
// two characters becomes "comp_time" of the project file at ../../res; every other key stays, and only faults of that
// file are printed, which is then left as it was. Returns 0 when the process is to stop, whatever came of it; -1 when
// the user interface is to run.
s32 zof_win_cmd(int argc, char **argv);

ZOF_C_END

#endif
