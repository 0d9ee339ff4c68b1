// The real-time clock of a desktop: read, never set.
#include "drv/zof_drv_rtc.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

static s32 win_rtc_set_time(const zof_rtc_time_t *t) {
    zof_printf("year=%d month=%d day=%d hour=%d minute=%d second=%d\n", t->year, t->month, t->day, t->hour, t->minute,
               t->second);
    zof_printf("The PC does not allow setting the time\n");
    return 0;
}

void win_rtc_init(void) {
    static constexpr zof_drv_rtc_ops_t ops = {
        .get_time = win_rtc_get_time, .set_time = win_rtc_set_time, .get_stamp = win_rtc_get_stamp};
    zof_rtc_t = &ops;
}
