// Standby: the display dims after an idle time, goes dark after another, and wakes on touch. Graphics thread.
#ifndef ZOF_FUNC_STDBY_H
#define ZOF_FUNC_STDBY_H

#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

enum { ZOF_STDBY_NORMAL = 0, ZOF_STDBY_DIMMED = 1, ZOF_STDBY_OFF = 2 };

// Stores new times (seconds; 0 disables a step), brightness levels (percent) and views in the project's record and
// starts counting now. With both times 0 only pauses the counting. Returns 0, or -1 for null or without a project.
s32 zof_func_stdby_set_param(const zof_func_standby_t *param);

// Enters a state. Returns 0 when it changed; -1 for the current or an invalid state, both of which restart the idle
// time, and -1 before any time was ever set.
s64 zof_func_stdby_set_statue(u32 state);

// For each press. Returns 0 when it changed the state, so that it should reach no control; -1 otherwise.
s64 zof_func_stdby_touch_click(void);

u32 zof_func_stdby_get_statue(void); // ZOF_STDBY_*

ZOF_C_END

#endif
