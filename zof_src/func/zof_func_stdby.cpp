// Three states and one task that counts the idle time. The task reads the project's record, so the caller that set the
// parameters need not keep them.
#include "func/zof_func_stdby.h"

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "project/view/zof_view.h"
#include "project/zof_prj.h"
#include "zof_lib/zof_task.h"

enum { PERIOD_MS = 200, LAYERS = 3 };

static u8 g_cur_statue;
static u32 g_last_time;           // time of the last activity, ms; 0 until the task has run
static zof_task_t *g_stdby_task;  // created when first needed
static s32 g_active_view[LAYERS]; // views to return to, by layer; 0 or less: none

static zof_func_standby_t *record() {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj && prj->attr ? &prj->attr->func_t.standby_t : nullptr;
}

static void stdby_task(zof_task_t *) {
    const zof_func_standby_t *r = record();
    const u32 now = zof_sys_time_ms();
    if (g_last_time == 0) {
        g_last_time = now;
        return;
    }
    const u32 idle = (now - g_last_time) / 1000;
    if (!r) {
        return;
    }
    if (g_cur_statue == ZOF_STDBY_NORMAL && r->stdby_time && idle >= r->stdby_time) {
        zof_func_stdby_set_statue(ZOF_STDBY_DIMMED);
    } else if (g_cur_statue == ZOF_STDBY_DIMMED && r->off_time && idle >= r->off_time) {
        zof_func_stdby_set_statue(ZOF_STDBY_OFF);
    }
}

s32 zof_func_stdby_set_param(const zof_func_standby_t *param) {
    zof_func_standby_t *r = record();
    if (!param || !r) {
        return -1;
    }
    if (param->stdby_time == 0 && param->off_time == 0) {
        zof_task_set_cb_pause(g_stdby_task);
        return 0;
    }
    if (g_stdby_task) {
        zof_task_set_cb_resume(g_stdby_task);
    } else {
        g_stdby_task = zof_task_create(stdby_task, PERIOD_MS, nullptr);
    }
    g_last_time = zof_sys_time_ms();
    *r = *param;
    return 0;
}

// The views are saved after the switch: a standby view on the UI layer is itself what that layer returns to.
static void enter_dimmed(const zof_func_standby_t *r) {
    if (r->stdby_view) {
        zof_view_set_dis_view(r->stdby_view);
    }
    zof_disp_set_bright(r->stdby_bright);
    for (u32 layer = 0; layer < LAYERS; layer++) {
        g_active_view[layer] = zof_view_get_cur_id(layer);
    }
}

static void enter_normal(const zof_func_standby_t *r) {
    if (r->on_view) {
        zof_view_set_dis_view(r->on_view);
    } else {
        for (s32 &view : g_active_view) {
            if (view > 0) {
                zof_view_set_dis_view((u32)view);
                view = 0;
            }
        }
    }
    zof_disp_set_bright(r->on_bright);
}

// The off state waits for a touch. In the others the task runs while a time is set.
static void task_follow(const zof_func_standby_t *r) {
    if (g_cur_statue == ZOF_STDBY_OFF) {
        zof_task_set_cb_pause(g_stdby_task);
    } else if (g_cur_statue == ZOF_STDBY_DIMMED ? r->off_time : r->stdby_time) {
        zof_task_set_cb_resume(g_stdby_task);
    }
}

s64 zof_func_stdby_set_statue(u32 state) {
    const zof_func_standby_t *r = record();
    if (!g_stdby_task || !r) {
        return -1;
    }
    g_last_time = zof_sys_time_ms(); // also for the current state: this is how a touch keeps the display awake
    if (state == g_cur_statue || state > ZOF_STDBY_OFF) {
        return -1;
    }
    if (state == ZOF_STDBY_OFF) {
        zof_disp_set_bright(r->off_bright);
    } else if (state == ZOF_STDBY_DIMMED) {
        enter_dimmed(r);
    } else {
        enter_normal(r);
    }
    g_cur_statue = (u8)state;
    task_follow(r);
    return 0;
}

s64 zof_func_stdby_touch_click(void) {
    return zof_func_stdby_set_statue(g_cur_statue == ZOF_STDBY_OFF ? ZOF_STDBY_DIMMED : ZOF_STDBY_NORMAL);
}

u32 zof_func_stdby_get_statue(void) {
    return g_cur_statue;
}
