// The start of the drivers, and the hardware defaults.
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_up.h"
#include "drv/zof_loop_in.h"

// Every byte 0xFF: not set. The header lists the entries that have a meaning.
static u8 hw_param[ZOF_HW_PARAM_COUNT];

u8 *zof_hw_get_def_param(void) {
    return hw_param;
}

void zof_drv_def_param_init(void) {
    memset(hw_param, ZOF_HW_UNSET, sizeof(hw_param));
}

void zof_drv_set_def_param(void) {
}

void zof_drv_hw_init(void) {
}

void zof_drv_init(void) {
    zof_loop_init();
    zof_drv_up.set_prj_path();
    zof_drv_def_param_init();
    zof_prj_facts_t facts;
    if (zof_drv_up.prj_facts(&facts) != 0) {
        return; // without a project there is nothing to open a window for
    }
    zof_drv_up.port_init();
}
