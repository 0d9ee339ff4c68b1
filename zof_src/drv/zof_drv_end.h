// What a process leaves behind when it ends, such as a file that other programs look for.
#ifndef ZOF_DRV_END_H
#define ZOF_DRV_END_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Has `fn` called when the process ends, by exit or by zof_end_run; four functions at most. Main thread.
void zof_end_add(void (*fn)(void));

// Calls these functions. For a process that is about to end by _Exit, because other threads still run.
void zof_end_run(void);

ZOF_C_END

#endif
