// Periodic tasks: LVGL timers under another name. They run inside lv_timer_handler, on the graphics thread, one at a
// time; all functions belong to that thread, or to a caller that holds dis_mutex. A null task is ignored everywhere.
#ifndef ZOF_TASK_H
#define ZOF_TASK_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef lv_timer_t zof_task_t;

// Creates a task that calls `fn` every `period` milliseconds until it is deleted; null for a null `fn` or without
// memory. `user_data` stays the caller's.
zof_task_t *zof_task_create(void (*fn)(zof_task_t *task), u32 period, void *user_data);
void zof_task_del(zof_task_t *task); // ends a task

// Returns the pointer passed at creation; null for a null task.
void *zof_task_get_user_data(zof_task_t *task);

// Replaces the function; a null `fn` is ignored.
void zof_task_set_cb(zof_task_t *task, void (*fn)(zof_task_t *task));

void zof_task_set_cb_pause(zof_task_t *task);
void zof_task_set_cb_resume(zof_task_t *task);

// Sets the period in milliseconds.
void zof_task_set_period(zof_task_t *task, u32 period);

// Runs the task at the next turn of lv_timer_handler, whatever is left of its period.
void zof_task_ready(zof_task_t *task);

// Runs the task once more, then deletes it: the handle must not be used after that.
void zof_task_once(zof_task_t *task);

// Restarts the period now.
void zof_task_reset(zof_task_t *task);

ZOF_C_END

#endif
