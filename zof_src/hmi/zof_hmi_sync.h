// What system commands share with the graphics thread. They run on the link's receive thread without the graphics lock,
// so a host is answered while a view is being built: they read a copy that the graphics thread keeps fresh, and leave
// their last step to it.
#ifndef ZOF_HMI_SYNC_H
#define ZOF_HMI_SYNC_H

#include "drv/zof_drv_touch.h"
#include "project/zof_prj_attr.h"

ZOF_C_BEGIN

enum { ZOF_HMI_VERSION_APP, ZOF_HMI_VERSION_SDK, ZOF_HMI_VERSION_FW, ZOF_HMI_VERSION_COUNT };

typedef struct {
    u8 has_project;
    u8 th_en;     // touch flags of the project
    u8 has_touch; // there is a touch device
    zof_touch_t touch;
    u32 standby_state;
    zof_func_standby_t standby;
    const char *version[ZOF_HMI_VERSION_COUNT]; // as they were when the link was opened; null for none
} zof_hmi_seen_t;

// Main thread, before the link opens: makes the copy and the task that keeps it fresh, at the end of every turn of the
// main loop. 0 or -1.
s32 zof_hmi_sync_init(void);

// Makes a fresh copy now; graphics thread.
void zof_hmi_sync_refresh(void);

// Any thread, at once: the copy, changed by what was left to the graphics thread and is not done yet.
zof_hmi_seen_t zof_hmi_sync_seen(void);

// Any thread, at once; the graphics thread does it within a period. Of two of a kind the later counts.
void zof_hmi_sync_tone(u8 count, u16 pause, u16 tone);
void zof_hmi_sync_th_en(u8 flags);
void zof_hmi_sync_standby(const zof_func_standby_t *times);

// Receive thread: has the graphics thread call `fn` and waits for its result, because the acknowledgement needs it. -1
// when the graphics thread has not begun with it in five seconds; it is then not done at all. The graphics thread
// itself calls it at once.
s32 zof_hmi_sync_call(s32 (*fn)(void *arg), void *arg);

// True on the thread that called zof_hmi_sync_init, and before that on none.
zof_bool zof_hmi_sync_on_graphics(void);

ZOF_C_END

#endif
