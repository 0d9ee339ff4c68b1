#include "drv/zof_drv_rtc.h"

const zof_drv_rtc_ops_t *zof_rtc_t;

s32 zof_rtc_get_time(zof_rtc_time_t *time) {
    return time && zof_rtc_t && zof_rtc_t->get_time ? zof_rtc_t->get_time(time) : -1;
}

s32 zof_rtc_set_time(const zof_rtc_time_t *time) {
    return time && zof_rtc_t && zof_rtc_t->set_time ? zof_rtc_t->set_time(time) : -1;
}
