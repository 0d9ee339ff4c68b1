// Periodic tasks on LVGL's timers. The runtime has no scheduler of its own, so that all work on controls happens inside
// the one call that holds the lock.
#include "zof_lib/zof_task.h"

zof_task_t *zof_task_create(void (*fn)(zof_task_t *task), u32 period, void *user_data) {
    return fn ? lv_timer_create(fn, period, user_data) : nullptr;
}

void zof_task_del(zof_task_t *task) {
    if (task) {
        lv_timer_del(task);
    }
}

void *zof_task_get_user_data(zof_task_t *task) {
    return task ? task->user_data : nullptr;
}

void zof_task_set_cb(zof_task_t *task, void (*fn)(zof_task_t *task)) {
    if (task && fn) {
        lv_timer_set_cb(task, fn);
    }
}

void zof_task_set_cb_pause(zof_task_t *task) {
    if (task) {
        lv_timer_pause(task);
    }
}

void zof_task_set_cb_resume(zof_task_t *task) {
    if (task) {
        lv_timer_resume(task);
    }
}

void zof_task_set_period(zof_task_t *task, u32 period) {
    if (task) {
        lv_timer_set_period(task, period);
    }
}

void zof_task_ready(zof_task_t *task) {
    if (task) {
        lv_timer_ready(task);
    }
}

void zof_task_once(zof_task_t *task) {
    if (task) {
        lv_timer_set_repeat_count(task, 1);
    }
}

void zof_task_reset(zof_task_t *task) {
    if (task) {
        lv_timer_reset(task);
    }
}
