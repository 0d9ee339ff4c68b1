// The real-time clock.
#ifndef ZOF_DRV_RTC_H
#define ZOF_DRV_RTC_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    u16 year;
    u8 month; // from 1
    u8 day, hour, minute, second;
} zof_rtc_time_t;

// Local time to the millisecond, and the zone it is in: the minutes by which it is ahead of UTC.
typedef struct {
    zof_rtc_time_t time;
    u16 ms;
    s16 zone;
} zof_rtc_stamp_t;

typedef struct {
    s32 (*get_time)(zof_rtc_time_t *time);       // MANDATORY
    s32 (*set_time)(const zof_rtc_time_t *time); // OPTIONAL
    s32 (*get_stamp)(zof_rtc_stamp_t *stamp);    // OPTIONAL
} zof_drv_rtc_ops_t;

extern const zof_drv_rtc_ops_t *zof_rtc_t;

// Read and set local time. They return -1 for a null record or a missing driver, else the driver's result. A desktop
// logs the time to set, leaves its clock alone and returns 0. Any thread.
s32 zof_rtc_get_time(zof_rtc_time_t *time);
s32 zof_rtc_set_time(const zof_rtc_time_t *time);
s32 zof_rtc_get_stamp(zof_rtc_stamp_t *stamp);

// Writes the present time as "2026-11-22T09:10:11.123+01:00"; an empty text without a clock. Returns `out`. Any thread.
enum { ZOF_RTC_TEXT_SIZE = 32 };
const char *zof_rtc_stamp_text(char out[ZOF_RTC_TEXT_SIZE]);

ZOF_C_END

#endif
