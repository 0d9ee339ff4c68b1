// The desktop's touch panel is the mouse, which needs no calibration.
#include "drv/zof_drv_touch.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

static s32 win_touch_get_tp_type(void) {
    return 1;
}

static void win_touch_rtp_cal(void) {
    zof_printf("rtp calibration is not supported in windows\n");
}

void win_touch_init(void) {
    static constexpr zof_drv_touch_ops_t ops = {
        .get_tp_type = win_touch_get_tp_type,
        .rtp_cal = win_touch_rtp_cal,
    };
    drv_touch_t = &ops;
}
