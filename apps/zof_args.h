// The command line of the bench panel: what it adds to that of every program (func/zof_option.h).
#ifndef ZOF_ARGS_H
#define ZOF_ARGS_H

#include "zof.h"

extern const zof_app_t zof_bench_app;

// Starts what the command line requested, once the panel runs. Call it on the graphics thread, from zof_main.
void zof_args_begin(void);

#endif
