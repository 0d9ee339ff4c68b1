// What system commands share with the graphics thread. They run on the link's receive thread without the graphics lock,
// so that a host is answered while a view is being built: they read a copy that the graphics thread keeps up to date,
// and leave their last step to it.
#ifndef ZOF_HMI_SYNC_H
#define ZOF_HMI_SYNC_H

#include "drv/zof_drv_touch.h"
#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

enum { ZOF_HMI_VERSION_APP, ZOF_HMI_VERSION_SDK, ZOF_HMI_VERSION_FW, ZOF_HMI_VERSION_COUNT };

typedef struct {
    u8 has_project;
    u8 th_en;     // touch flags of the project
    u8 has_touch; // there is a touch device
    zof_touch_t touch;
    u32 standby_state;
    zof_func_standby_t standby;
    const char *version[ZOF_HMI_VERSION_COUNT]; // as they were when the link was opened; may be null
} zof_hmi_seen_t;

// Makes the copy and the task that updates it at the end of every turn of the main loop. Main thread, before the link
// opens. Returns 0 or -1.
s32 zof_hmi_sync_init(void);

// Updates the copy now; graphics thread.
void zof_hmi_sync_refresh(void);

// Returns the copy, with the changes applied that the graphics thread has not carried out yet. Any thread, never waits.
zof_hmi_seen_t zof_hmi_sync_seen(void);

// Any thread, never waits; the graphics thread carries it out within a period. The later of two of a kind counts.
void zof_hmi_sync_tone(u8 count, u16 pause, u16 tone);
void zof_hmi_sync_th_en(u8 flags);
void zof_hmi_sync_standby(const zof_func_standby_t *times);

// Has the graphics thread call `fn` and waits for its result, because the acknowledgement needs it. Receive thread.
// Returns -1 when the graphics thread has not started it within five seconds; it is then never run. On the graphics
// thread itself the call is direct.
s32 zof_hmi_sync_call(s32 (*fn)(void *arg), void *arg);

// Returns true on the thread that called zof_hmi_sync_init; false on all threads before that.
zof_bool zof_hmi_sync_on_graphics(void);

ZOF_C_END

#endif
