// System services: locks, threads, time, folders, hardware defaults, and the start of the drivers. Any thread may call
// them, except where a function says otherwise. A null handle is harmless: the result is -1 or null, or nothing
// happens.
#ifndef ZOF_DRV_H
#define ZOF_DRV_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef void *zof_mutex_t;
typedef void *zof_sem_t;
typedef struct zof_thread zof_thread_t;
typedef struct zof_dir zof_dir_t;

// One entry of a folder walk.
typedef struct {
    u32 is_dir; // 1 for a folder, else 0
    u32 size;   // low half of the file's size in bytes; 0 for a folder
    const char *name;
} zof_dirent_t;

// The head of every driver handle; a port's own fields follow.
typedef struct {
    u8 type; // ZOF_DRV_UART ...
    u8 port;
    void *context; // the driver's own record
} zof_drv_t;

enum { ZOF_DRV_UART = 2 };

// The one lock over LVGL and everything above it. Recursive. Created by zof_drv_init. Lock order: this first, then a
// buffer's own lock. The main loop holds it inside lv_timer_handler; other threads take it before they touch a control.
extern zof_mutex_t dis_mutex;

// Recursive mutexes. Create returns null when the system can make no more. Lock waits without limit; lock and unlock
// return 0, or a negative number for an invalid handle. Each thread unlocks as often as it locks.
zof_mutex_t zof_mutex_create(void);
void zof_mutex_destory(zof_mutex_t m);
s32 zof_mutex_lock(zof_mutex_t m);   // waits for the lock, dis_mutex for example
s32 zof_mutex_unlock(zof_mutex_t m); // releases the lock

// Returns true while a thread waits for any of these mutexes.
zof_bool zof_mutex_contended(void);

// Counting semaphores. Take waits up to `ms` milliseconds, or without limit for 0; trytake does not wait. Both return 0
// when taken, not 0 when time ran out. Release adds one and never waits; it returns 0, or a negative number. Delete
// returns 0; no thread may be waiting.
//
//     zof_sem_take(sem, 0);                       // the first piece of a message
//     while (zof_sem_take(sem, gap_ms) == 0) {}   // ... and every other, until the line is silent for gap_ms
zof_sem_t zof_sem_create(u32 initial);
s32 zof_sem_take(zof_sem_t sem, u32 ms);
s32 zof_sem_trytake(zof_sem_t sem);
s32 zof_sem_release(zof_sem_t sem);
s32 zof_sem_get_value(zof_sem_t sem);
s32 zof_sem_delete(zof_sem_t sem);

// Sleeps for so many milliseconds. Not for the graphics thread: nothing is drawn meanwhile.
void zof_delay(u32 ms);

// Returns milliseconds since the start; wraps after 49 days, so compare differences. Also LVGL's clock.
u32 zof_sys_time_ms(void);

// The desktop cannot reboot: logs that and returns -1.
s32 zof_reboot(void);

// Prepares the process so that a log whose reader has gone does not end it. Call it first, before anything is printed.
void zof_system_start(void);

// Returns the name of the operating system, "linux"; never freed.
const char *zof_system_get_name(void);

// Starts a thread and returns when it runs; null when it cannot be started. `name` is for debuggers. `stack`, in bytes,
// is not used on the desktop. `prio`: 1 or less runs high, 2 to 6 low, 7 or more normal. The record belongs to the
// caller, who may keep it or pass it to zof_thread_del; the thread does not need it.
zof_thread_t *zof_thread_create(const char *name, void (*fn)(void *arg), void *arg, u32 stack, s32 prio);

// Detaches a thread, which keeps running, and releases its record.
void zof_thread_del(zof_thread_t *t);

// Walks a folder, with or without a separator at the end of its path; "." and ".." are included. Open returns null for
// anything but a folder, read returns null at the end. A record is valid until the next read of the same walk.
// zof_closedir releases the walk. Follows links.
zof_dir_t *zof_opendir(const char *path);
const zof_dirent_t *zof_readdir(zof_dir_t *dir);
void zof_closedir(zof_dir_t *dir);

// Files, as far as systems differ; see also zof_drv_file.h. Paths are the host's own.
s32 zof_mkdir(const char *path);                  // 0 created, 1 the name exists already, -1
s32 zof_rename(const char *from, const char *to); // replaces `to`, in one step; 0 or -1
s64 zof_file_size(const char *path);              // bytes, or -1

// Memory for pictures is not counted on the desktop: -1, and 1 for "there is enough".
s32 zof_ram_get_img_free(void);
s32 zof_ram_get_img_check(void);

// The largest panel that the port can drive, in pixels. Returns 0, or -1 when either is null.
s32 zof_drv_get_wh_max_value(u32 *w, u32 *h);

// Hardware defaults: one byte each, ZOF_HW_UNSET for not set. The array lives forever and may be written until the
// drivers that read it are opened. zof_drv_def_param_init unsets all. The last two do nothing on the desktop.
#define ZOF_HW_PARAM_COUNT 30
enum { ZOF_HW_BEEP_PORT = 22, ZOF_HW_BEEP_PIN = 24, ZOF_HW_UART_PORT = 26, ZOF_HW_UNSET = 0xFF };
u8 *zof_hw_get_def_param(void);
void zof_drv_def_param_init(void);
void zof_drv_set_def_param(void);
void zof_drv_hw_init(void);

// Main thread, once, after lv_init: creates dis_mutex, finds the project, unsets the hardware defaults, and starts the
// port's drivers, the display first, which takes its size from the project. Without a project no driver starts;
// zof_prj_get_cur shows whether there is one.
void zof_drv_init(void);

// Starts the port's drivers (port/win_drv.cpp). Called by zof_drv_init alone.
void win_drv_init(void);

ZOF_C_END

#endif
