// What a system without displays and devices of its own, sockets, services, shared libraries, locks between programs
// and a watchdog returns. Also part of the host layer for browsers.
#include <errno.h>

#include "drv/zof_drv_device.h"
#include "drv/zof_drv_net.h"
#include "drv/zof_drv_wdt.h"
#include "port/zof_host.h"

s32 zof_host_folder_lock(const char *path, char *holder, size_t size) {
    (void)path;
    (void)holder;
    (void)size;
    return -1;
}

void zof_folder_unlock(s32 lock) {
    (void)lock;
}

s32 zof_host_exchange(const char *a, const char *b) {
    (void)a;
    (void)b;
    errno = ENOSYS;
    return -1;
}

void *zof_host_library_open(const char *name, s32 major) {
    (void)name;
    (void)major;
    return nullptr;
}

void *zof_host_library_symbol(void *library, const char *name) {
    (void)library;
    (void)name;
    return nullptr;
}

void zof_host_screen_size(s32 *w, s32 *h) {
    *w = 0;
    *h = 0;
}

u32 zof_device_list(zof_device_e kind, zof_device_t *out, u32 most) {
    (void)kind;
    (void)out;
    (void)most;
    return 0;
}

zof_bool zof_host_light_find(void) {
    return ZOF_FALSE;
}

s32 zof_host_light_set(u8 level) {
    (void)level;
    return -1;
}

s32 zof_host_display_power(struct SDL_Window *window, zof_bool on) {
    (void)window;
    (void)on;
    return -1;
}

s32 zof_host_service_report(const char *text) {
    (void)text;
    return -1;
}

u32 zof_host_service_period(void) {
    return 0;
}

zof_net_port_t *zof_net_listen(u16 *number) {
    (void)number;
    errno = ENOSYS;
    return nullptr;
}

void zof_net_unlisten(zof_net_port_t *port) {
    (void)port;
}

s32 zof_net_accept(zof_net_port_t *port) {
    (void)port;
    return -1;
}

s32 zof_net_read(s32 connection, void *out, u32 size) {
    (void)connection;
    (void)out;
    (void)size;
    return -1;
}

s32 zof_net_write(s32 connection, const void *data, u32 size) {
    (void)connection;
    (void)data;
    (void)size;
    return -1;
}

void zof_net_close(s32 connection) {
    (void)connection;
}

void zof_net_wait(zof_net_port_t *port, s32 connection, u32 events, s32 ms) {
    (void)port;
    (void)connection;
    (void)events;
    (void)ms;
}

void zof_net_wake(zof_net_port_t *port) {
    (void)port;
}

s32 zof_net_random(void *out, u32 size) {
    (void)out;
    (void)size;
    return -1;
}

s32 zof_net_private_path(char *out, size_t size, const char *name, zof_bool make) {
    (void)out;
    (void)size;
    (void)name;
    (void)make;
    return -1;
}

s32 zof_net_private_write(const char *path, const char *text) {
    (void)path;
    (void)text;
    return -1;
}

s32 win_wdt_init(void) {
    return -1;
}
