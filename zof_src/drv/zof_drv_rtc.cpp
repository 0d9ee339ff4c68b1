#include "drv/zof_drv_rtc.h"

#include <stdio.h>
#include <stdlib.h>

const zof_drv_rtc_ops_t *zof_rtc_t;

s32 zof_rtc_get_time(zof_rtc_time_t *time) {
    return time && zof_rtc_t && zof_rtc_t->get_time ? zof_rtc_t->get_time(time) : -1;
}

s32 zof_rtc_set_time(const zof_rtc_time_t *time) {
    return time && zof_rtc_t && zof_rtc_t->set_time ? zof_rtc_t->set_time(time) : -1;
}

s32 zof_rtc_get_stamp(zof_rtc_stamp_t *stamp) {
    return stamp && zof_rtc_t && zof_rtc_t->get_stamp ? zof_rtc_t->get_stamp(stamp) : -1;
}

const char *zof_rtc_stamp_text(char out[ZOF_RTC_TEXT_SIZE]) {
    zof_rtc_stamp_t now;
    *out = '\0';
    if (zof_rtc_get_stamp(&now) == 0) {
        const zof_rtc_time_t *t = &now.time;
        const unsigned zone = (unsigned)abs(now.zone) % 1440;
        snprintf(out, ZOF_RTC_TEXT_SIZE, "%04u-%02u-%02uT%02u:%02u:%02u.%03u%c%02u:%02u", t->year % 10000u,
                 t->month % 100u, t->day % 100u, t->hour % 100u, t->minute % 100u, t->second % 100u, now.ms % 1000u,
                 now.zone < 0 ? '-' : '+', zone / 60, zone % 60);
    }
    return out;
}
