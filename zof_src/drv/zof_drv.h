// System services: locks, threads, time, folders, hardware defaults, and the start of the drivers.
#ifndef ZOF_DRV_H
#define ZOF_DRV_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef void *zof_mutex_t;
typedef void *zof_sem_t;
typedef struct zof_thread zof_thread_t;
typedef struct zof_dir zof_dir_t;

// One entry of a folder walk. One static record: the next zof_readdir overwrites it.
typedef struct {
    u32 is_dir; // 1 for a folder, else 0
    u32 size;   // low half of the file's size
    const char *name;
} zof_dirent_t;

// The head of every driver handle; a port's own fields follow.
typedef struct {
    u8 type; // ZOF_DRV_UART ...
    u8 port;
    void *context;
} zof_drv_t;

enum { ZOF_DRV_UART = 2 };

// The one lock over LVGL and all that lies above it. Recursive. Lock order: this first, then a buffer's own lock.
extern zof_mutex_t dis_mutex;

zof_mutex_t zof_mutex_create(void);
void zof_mutex_destory(zof_mutex_t m);
s32 zof_mutex_lock(zof_mutex_t m);
s32 zof_mutex_unlock(zof_mutex_t m);

zof_sem_t zof_sem_create(u32 initial);
s32 zof_sem_take(zof_sem_t sem, u32 ms);
s32 zof_sem_trytake(zof_sem_t sem);
s32 zof_sem_release(zof_sem_t sem);
s32 zof_sem_get_value(zof_sem_t sem);
s32 zof_sem_delete(zof_sem_t sem);

void zof_delay(u32 ms);
u32 zof_sys_time_ms(void);
s32 zof_reboot(void);
const char *zof_system_get_name(void);

zof_thread_t *zof_thread_create(const char *name, void (*fn)(void *arg), void *arg, u32 stack, s32 prio);
void zof_thread_del(zof_thread_t *t);

zof_dir_t *zof_opendir(const char *path);
const zof_dirent_t *zof_readdir(zof_dir_t *dir);
void zof_closedir(zof_dir_t *dir);

// Files, as far as systems differ: 0 made, 1 exists already, -1; replaces `to`, 0 or -1; bytes, or -1.
s32 zof_mkdir(const char *path);
s32 zof_rename(const char *from, const char *to);
s64 zof_file_size(const char *path);

s32 zof_ram_get_img_free(void);
s32 zof_ram_get_img_check(void);
s32 zof_drv_get_wh_max_value(u32 *w, u32 *h);

#define ZOF_HW_PARAM_COUNT 30
enum { ZOF_HW_BEEP_PORT = 22, ZOF_HW_BEEP_PIN = 24, ZOF_HW_UART_PORT = 26, ZOF_HW_UNSET = 0xFF };
u8 *zof_hw_get_def_param(void);
void zof_drv_def_param_init(void);
void zof_drv_set_def_param(void);
void zof_drv_hw_init(void);

void zof_drv_init(void);
void win_drv_init(void); // the port's list of drivers (port/win_drv.cpp)

ZOF_C_END

#endif
