// The start of a program built on the runtime: its main is `return zof_run(argc, argv);` and it supplies zof_main.
#ifndef ZOF_START_H
#define ZOF_START_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Supplied by the application. Called once under dis_mutex, when the drivers stand: hands over the view table with
// zof_prj_create and opens what the application needs.
void zof_main(void);

// Handles the command line, brings the runtime up in its fixed order, calls zof_main and runs the main loop. Main
// thread only. Returns 0 when the command line was a build call, 1 when there is no project; otherwise never.
int zof_run(int argc, char **argv);

// The build call `t <switch><stamp>`: writes argv[2] less its first two characters as "comp_time" into the project file
// at ../../res. Returns -1 when the user interface is to run (fewer than two arguments), 0 when the process is to stop.
s32 zof_win_cmd(int argc, char **argv);

ZOF_C_END

#endif
