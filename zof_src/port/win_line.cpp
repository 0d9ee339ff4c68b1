#include "port/win_line.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <new>

#include "zof_lib/zof_stdio.h"

enum { RETRY_MS = 100, MISSING_RETRY_MS = 1000, CHOKED_MS = 1000 };

static bool path_find(s32 port, const char *path, char *out, size_t size) {
    char name[32], own[32];
    snprintf(name, sizeof(name), "ZOF_COM%d", port);
    host_line_path(port, own, sizeof(own));
    const char *given = getenv(name);
    const char *chosen = path ? path : given && *given ? given : own;
    const int need = snprintf(out, size, "%s", chosen);
    return need >= 0 && (size_t)need < size;
}

static void line_release(win_line *s) {
    if (s->users.fetch_sub(1) != 1) {
        return;
    }
    if (s->device >= 0) {
        host_line_leave(s);
        host_line_close(s->device);
    }
    host_line_free(s);
    delete s;
}

// Logs what has become of a port.
static void state_log(const win_line *s, const zof_uart_info_t *now, const zof_host_line_t *line) {
    char text[128];
    if (now->state == UART_STATE_OPEN && s->seen) {
        zof_printf("serial line %s: the device is back", now->path);
    } else if (now->state == UART_STATE_OPEN) {
        zof_printf("serial port %d: %s at %u baud, %u%c%u", s->port, now->path, line->baud, line->data_bits,
                   "NOE"[line->parity], line -> stop_bits);
    } else if (now->state == UART_STATE_GONE) {
        zof_printf("serial line %s: the device is gone; waiting for it", now->path);
    } else if (now->state != UART_STATE_NOT_SOUGHT) {
        zof_printf("serial port %d: cannot open %s: %s%s", s->port, now->path,
                   zof_drv_uart_state_text(now, text, sizeof(text)), s->foreign ? "" : "; looking for it");
    }
}

// Replaces the device and what is known of the port, also its path, and closes the device that was replaced.
static void state_swap(win_line *s, intptr_t device, const zof_uart_info_t *found) {
    zof_uart_info_t now = *found;
    zof_host_line_t line;
    intptr_t gone;
    {
        std::lock_guard guard(s->lock);
        now.changes = s->info.changes + 1;
        now.opened = s->info.opened + (device >= 0 ? 1 : 0);
        s->info = now;
        gone = s->device;
        if (gone >= 0) {
            host_line_leave(s);
        }
        s->device = device;
        s->choked = false;
        s->patience = 0;
        line = s->line;
        if (device >= 0) {
            host_line_apply(device, &line); // it may have changed since the device was opened
        }
    }
    if (gone >= 0) {
        host_line_close(gone);
    }
    state_log(s, &now, &line);
}

static zof_host_line_t line_now(win_line *s) {
    std::lock_guard guard(s->lock);
    return s->line;
}

// Returns true if a look has found nothing new.
static bool same_state(const zof_uart_info_t *a, const zof_uart_info_t *b) {
    return a->state == b->state && a->holder_id == b->holder_id && strcmp(a->holder, b->holder) == 0 &&
           strcmp(a->group, b->group) == 0 && strcmp(a->error, b->error) == 0;
}

// Looks for the device and opens it. Returns true if the state of the port has changed.
static bool device_look(win_line *s) {
    zof_uart_info_t found = {};
    memcpy(found.path, s->info.path, sizeof(found.path));
    const zof_host_line_t line = line_now(s);
    const intptr_t device = *s->info.path ? host_line_open(s, &line, &found) : -1;
    if (found.state == UART_STATE_MISSING && s->seen) {
        found.state = UART_STATE_GONE;
    }
    if (device < 0 && same_state(&s->info, &found)) {
        return false;
    }
    state_swap(s, device, &found);
    s->seen = s->seen || device >= 0;
    return true;
}

zof_drv_t *zof_host_serial_open(s32 port, const char *path, const zof_host_line_t *line) {
    auto *s = new (std::nothrow) win_line{};
    if (!s) {
        return nullptr;
    }
    s->users = 1;
    s->device = -1;
    s->port = port;
    s->line = *line;
    const bool fits = path_find(port, path, s->info.path, sizeof(s->info.path));
    if (!fits || !host_line_init(s)) {
        zof_printf("serial port %d: %s", port, fits ? zof_file_error() : "its path is too long");
        delete s;
        return nullptr;
    }
    device_look(s);
    return &s->drv;
}

static win_line *line_of(zof_drv_t *handle) {
    return (win_line *)handle;
}

s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line) {
    win_line *s = line_of(handle);
    std::lock_guard guard(s->lock);
    if (s->device >= 0 && !host_line_apply(s->device, line)) {
        zof_printf("serial line %s: cannot change it: %s", s->info.path, zof_file_error());
        host_line_apply(s->device, &s->line);
        return -1;
    }
    s->line = *line;
    return 0;
}

// The caller holds the graphics lock. So a peer that does not read may cost WIN_LINE_SEND_WAIT_MS once and nothing
// afterwards, and one that reads slowly the same once every CHOKED_MS.
s32 win_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    win_line *s = line_of(handle);
    std::lock_guard guard(s->lock);
    const u64 start = zof_host_time_ms();
    const bool patient = !s->choked && start >= s->patience;
    bool full = false;
    const u32 sent = s->device >= 0 ? host_line_write(s, data, size, patient, &full) : 0;
    if (full && patient) {
        zof_printf("serial line %s: it takes no more bytes; %u of %u are lost", s->info.path, size - sent, size);
        s->patience = start + CHOKED_MS;
    }
    s->choked = full;
    return sent == size && s->device >= 0 ? (s32)size : -1;
}

// Reader thread. Puts the line to its new path, if it has one.
static bool path_take(win_line *s) {
    zof_uart_info_t next = {};
    if (!s->moved.exchange(false)) {
        return false;
    }
    {
        std::lock_guard guard(s->lock);
        memcpy(next.path, s->next, sizeof(next.path));
    }
    const bool same = strcmp(s->info.path, next.path) == 0;
    if (same && s->device >= 0) {
        return false;
    }
    if (!same) {
        host_line_forget(s);
        s->foreign = false;
        s->seen = false;
    }
    state_swap(s, -1, &next);
    device_look(s);
    return true;
}

// Reader thread. Returns when the state of the port has changed, or may have.
static void device_wait(win_line *s) {
    do {
        const s32 pause = s->info.state == UART_STATE_GONE ? RETRY_MS : MISSING_RETRY_MS;
        host_line_nap(s, *s->info.path ? pause : -1);
    } while (!path_take(s) && !s->closed && !device_look(s));
}

static void device_lost(win_line *s) {
    zof_uart_info_t gone = {.state = UART_STATE_GONE};
    memcpy(gone.path, s->info.path, sizeof(gone.path));
    memcpy(gone.adapter, s->info.adapter, sizeof(gone.adapter));
    state_swap(s, -1, &gone);
}

// Changes of the state end it without bytes. Only this thread changes `device` once the line is open.
static s32 line_read(win_line *s, u8 *buffer, u32 size) {
    while (s->device >= 0 && !s->closed) {
        const s32 n = host_line_read(s, buffer, size);
        if (n > 0) {
            return n;
        }
        if (n < 0) {
            device_lost(s);
            return 0;
        }
        if (path_take(s)) {
            return 0;
        }
    }
    if (!s->closed) {
        device_wait(s);
    }
    return 0;
}

s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size) {
    win_line *s = line_of(handle);
    s->users++;
    const s32 n = line_read(s, buffer, size);
    line_release(s);
    return n;
}

s32 win_uart_close(zof_drv_t *handle) {
    win_line *s = line_of(handle);
    s->closed = true;
    host_line_wake(s);
    line_release(s);
    return 0;
}

void win_uart_info(zof_drv_t *handle, zof_uart_info_t *out) {
    win_line *s = line_of(handle);
    std::lock_guard guard(s->lock);
    *out = s->info;
}

s32 win_uart_path_set(zof_drv_t *handle, const char *path) {
    win_line *s = line_of(handle);
    if (strlen(path) >= sizeof(s->next)) {
        return -1;
    }
    {
        std::lock_guard guard(s->lock);
        snprintf(s->next, sizeof(s->next), "%s", path);
    }
    s->moved = true;
    host_line_wake(s);
    return 0;
}
