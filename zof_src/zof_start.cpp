// The fixed order in which the runtime starts, and the endless loop that drives it. After zof_main everything happens
// inside lv_timer_handler or under the same lock; between two turns the loop sleeps, and other threads get the lock.
#include "zof_start.h"

#include "check/zof_check.h"
#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "func/zof_func.h"
#include "func/zof_script.h"
#include "hmi/zof_hmi.h"
#include "inspect/zof_inspect.h"
#include "lvgl.h"
#include "project/path/zof_res.h"
#include "project/zof_prj.h"
#include "project/zof_ver.h"

int zof_run(int argc, char **argv) {
    zof_system_start();
    if (zof_win_cmd(argc, argv) == 0) {
        return 0;
    }
    zof_ver_printf();
    lv_init();
    zof_drv_init();
    if (!zof_prj_get_cur() || !zof_check_start(zof_res_get_prj_path())) {
        return 1;
    }
    zof_func_pwon();
    zof_hmi_init();
    {
        zof_lock gui(dis_mutex);
        zof_main();
        zof_inspect_start();
        zof_script_start();
    }
    for (;;) {
        u32 sleep_ms;
        {
            zof_lock gui(dis_mutex);
            sleep_ms = zof_loop_turn();
        }
        zof_loop_wait(sleep_ms);
    }
}
