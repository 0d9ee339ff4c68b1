// Periodic tasks: LVGL timers under another name. They run inside lv_timer_handler, on the graphics thread.
#ifndef ZOF_TASK_H
#define ZOF_TASK_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef lv_timer_t zof_task_t;

zof_task_t *zof_task_create(void (*fn)(zof_task_t *task), u32 period, void *user_data);
void zof_task_del(zof_task_t *task);
void *zof_task_get_user_data(zof_task_t *task);
void zof_task_set_cb(zof_task_t *task, void (*fn)(zof_task_t *task));
void zof_task_set_cb_pause(zof_task_t *task);
void zof_task_set_cb_resume(zof_task_t *task);
void zof_task_set_period(zof_task_t *task, u32 period);
void zof_task_ready(zof_task_t *task);
void zof_task_once(zof_task_t *task);
void zof_task_reset(zof_task_t *task);

ZOF_C_END

#endif
