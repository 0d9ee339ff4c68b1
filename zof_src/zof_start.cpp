// The fixed order in which the runtime starts, and the endless loop that drives it. After zof_main everything happens
// inside lv_timer_handler or under the same lock; between two turns the loop sleeps, and other threads get the lock.
#include "zof_start.h"

#include <string.h>

#include "check/zof_check.h"
#include "drv/zof_lock.h"
#include "drv/zof_loop_in.h"
#include "func/zof_func.h"
#include "func/zof_option.h"
#include "func/zof_script.h"
#include "hmi/zof_hmi.h"
#include "inspect/zof_inspect.h"
#include "lvgl.h"
#include "project/look/zof_lang.h"
#include "project/path/zof_res.h"
#include "project/zof_prj.h"
#include "project/zof_ver.h"
#include "zof_lib/zof_stdio.h"

// Returns ZOF_EXIT_GOOD if the project can be shown, otherwise the exit status, after a message.
static int project_check(void) {
    const zof_prj_t *project = zof_prj_get_cur();
    if (!project) {
        zof_prj_places_print();
        return zof_drv_get_prj_path() ? ZOF_EXIT_FAILURE : ZOF_EXIT_FILES;
    }
    const char *language = zof_lang_start();
    if (language && (!project->lang_name || strcmp(language, project->lang_name) != 0)) {
        return ZOF_EXIT_FILES; // the reason has been logged
    }
    return zof_check_start(zof_res_get_prj_path()) ? ZOF_EXIT_GOOD : ZOF_EXIT_FAILURE;
}

int zof_run(int argc, char **argv) {
    zof_system_start();
    const bool build_call = argc > 2 && argv && argv[1] && argv[1][0] == 't';
    const int ended = build_call ? zof_win_cmd(argc, argv) : zof_options_take(argc, argv);
    if (ended >= 0) {
        return ended;
    }
    zof_ver_printf();
    lv_init();
    zof_drv_init();
    const int fault = project_check();
    if (fault != ZOF_EXIT_GOOD) {
        return fault;
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
