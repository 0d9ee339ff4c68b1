// Linux serial lines over termios2, so that any rate can be set, not only those with a constant. The reader thread
// looks for a device that cannot be opened, at the start or later. One lock guards the descriptor and what is known of
// the port. The reader takes it only to swap them, never while it opens or closes a device, because senders wait for it
// while they hold the graphics lock.
#include <asm/termbits.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <stdio.h>
#include <string.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <mutex>
#include <new>

#include "port/host_linux_line.h"
#include "port/win_line.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

enum { RETRY_MS = 100, MISSING_RETRY_MS = 1000, SEND_WAIT_MS = 50, CHOKED_MS = 1000 };
enum { BITS_PER_BYTE = 12 }; // start, data, parity, two stop bits

struct host_serial {
    zof_drv_t drv;   // first: the handle
    std::mutex lock; // guards all up to `next`
    int fd;          // -1 while the device is not open; changed by the reader only
    bool choked;     // the peer does not read: no waiting until it does
    u64 patience;    // and not before this time
    zof_host_line_t line;
    zof_uart_info_t info; // all but `bytes`
    char next[sizeof(zof_uart_info_t::path)];
    std::atomic<bool> moved;  // `next` is the path to use from now on
    std::atomic<bool> closed; // by the owner
    std::atomic<int> users;   // the owner, and each thread inside receive; the last one releases it
    int wake;                 // readable after `moved` or `closed` was set
    s32 port;                 // its number, for messages
    bool seen;                // the device has been open under this path; reader thread, after the start
    host_trace_t trace;       // likewise
};

static void line_release(host_serial *s) {
    if (s->users.fetch_sub(1) != 1) {
        return;
    }
    if (s->fd >= 0) {
        close(s->fd);
    }
    if (s->wake >= 0) {
        close(s->wake);
    }
    delete s;
}

// Replaces the descriptor and what is known of the port, also its path. Returns the descriptor that was replaced, for
// the caller to close.
static int state_swap(host_serial *s, int fd, const zof_uart_info_t *found) {
    zof_uart_info_t now = *found;
    zof_host_line_t line;
    int gone;
    {
        std::lock_guard guard(s->lock);
        now.changes = s->info.changes + 1;
        now.opened = s->info.opened + (fd >= 0 ? 1 : 0);
        s->info = now;
        gone = s->fd;
        s->fd = fd;
        s->choked = false;
        s->patience = 0;
        line = s->line;
        if (fd >= 0) {
            host_line_apply(fd, &line); // it may have changed since the device was opened
        }
    }
    win_line_log(s->port, s->seen, s->trace.foreign, &now, &line);
    return gone;
}

static zof_host_line_t line_now(host_serial *s) {
    std::lock_guard guard(s->lock);
    return s->line;
}

// Looks for the device and opens it. Returns true if the state of the port has changed.
static bool device_look(host_serial *s) {
    zof_uart_info_t found = {};
    memcpy(found.path, s->info.path, sizeof(found.path));
    const zof_host_line_t line = line_now(s);
    const int fd = *s->info.path ? host_line_look(s->info.path, &line, &s->trace, &found) : -1;
    if (found.state == UART_STATE_MISSING && s->seen) {
        found.state = UART_STATE_GONE;
    }
    if (fd < 0 && win_line_same(&s->info, &found)) {
        return false;
    }
    state_swap(s, fd, &found);
    s->seen = s->seen || fd >= 0;
    return true;
}

zof_drv_t *zof_host_serial_open(s32 port, const char *path, const zof_host_line_t *line) {
    auto *s = new (std::nothrow) host_serial{};
    if (!s) {
        return nullptr;
    }
    s->users = 1;
    s->fd = -1;
    s->port = port;
    s->line = *line;
    s->wake = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    char own[32];
    snprintf(own, sizeof(own), "/dev/ttyS%d", port - 1);
    const bool fits = win_line_path(port, path, own, s->info.path, sizeof(s->info.path));
    if (s->wake < 0 || !fits) {
        zof_printf("serial port %d: %s", port, fits ? zof_file_error() : "its path is too long");
        line_release(s);
        return nullptr;
    }
    device_look(s);
    return &s->drv;
}

static host_serial *line_of(zof_drv_t *handle) {
    return (host_serial *)handle;
}

s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    if (s->fd >= 0 && !host_line_apply(s->fd, line)) {
        zof_printf("serial line %s: cannot change it: %s", s->info.path, zof_file_error());
        host_line_apply(s->fd, &s->line);
        return -1;
    }
    s->line = *line;
    return 0;
}

static bool room_wait(const host_serial *s, u64 deadline) {
    const u64 now = zof_host_time_ms();
    pollfd p = {s->fd, POLLOUT, 0};
    return now < deadline && poll(&p, 1, (int)(deadline - now)) > 0 && (p.revents & POLLOUT);
}

// Writes what the line accepts. The wait starts again with every byte sent, as long as the line is no slower than its
// rate. Returns the bytes written; `full` is true when the line accepted no more in time.
static u32 line_write(const host_serial *s, const u8 *data, u32 size, bool patient, bool *full) {
    const u64 start = zof_host_time_ms();
    const u64 needed = (u64)size * BITS_PER_BYTE * 1000 / (s->line.baud ? s->line.baud : 1);
    u64 last = start;
    u32 sent = 0;
    while (s->fd >= 0 && sent < size) {
        const ssize_t n = write(s->fd, data + sent, size - sent);
        if (n > 0) {
            sent += (u32)n;
            last = zof_host_time_ms();
        } else if (n < 0 && errno == EAGAIN) {
            *full = !patient || !room_wait(s, (last < start + needed ? last : start + needed) + SEND_WAIT_MS);
            if (*full) {
                break;
            }
        } else if (n == 0 || errno != EINTR) {
            break;
        }
    }
    return sent;
}

// The caller holds the graphics lock. So a peer that does not read may cost SEND_WAIT_MS once and nothing afterwards,
// and one that reads slowly the same once every CHOKED_MS. The reader reports a device that is gone.
s32 win_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    const u64 start = zof_host_time_ms();
    const bool patient = !s->choked && start >= s->patience;
    bool full = false;
    const u32 sent = line_write(s, data, size, patient, &full);
    if (full && patient) {
        zof_printf("serial line %s: it takes no more bytes; %u of %u are lost", s->info.path, size - sent, size);
        s->patience = start + CHOKED_MS;
    }
    s->choked = full;
    return sent == size ? (s32)size : -1;
}

// Sleeps, without limit below 0. Returns early when the line was moved or closed.
static void nap(host_serial *s, int ms) {
    pollfd p = {s->wake, POLLIN, 0};
    u64 count;
    if (poll(&p, 1, ms) > 0 && read(s->wake, &count, sizeof(count)) < 0) {
        return; // somebody else has read it
    }
}

// Reader thread. Puts the line to its new path, if it has one.
static bool path_take(host_serial *s) {
    zof_uart_info_t next = {};
    if (!s->moved.exchange(false)) {
        return false;
    }
    {
        std::lock_guard guard(s->lock);
        memcpy(next.path, s->next, sizeof(next.path));
    }
    const bool same = strcmp(s->info.path, next.path) == 0;
    if (same && s->fd >= 0) {
        return false;
    }
    if (!same) {
        s->trace = {};
        s->seen = false;
    }
    const int gone = state_swap(s, -1, &next);
    if (gone >= 0) {
        close(gone);
    }
    device_look(s);
    return true;
}

// Reader thread. Returns when the state of the port has changed, or may have.
static void device_wait(host_serial *s) {
    do {
        const int pause = s->info.state == UART_STATE_GONE ? RETRY_MS : MISSING_RETRY_MS;
        nap(s, *s->info.path ? pause : -1);
    } while (!path_take(s) && !s->closed && !device_look(s));
}

static void device_lost(host_serial *s) {
    zof_uart_info_t gone = {.state = UART_STATE_GONE};
    memcpy(gone.path, s->info.path, sizeof(gone.path));
    memcpy(gone.adapter, s->info.adapter, sizeof(gone.adapter));
    close(state_swap(s, -1, &gone));
}

// Changes of the state end it without bytes. It takes no lock, which a sender may hold while it waits for a peer that
// waits for its own bytes to be read. Only this thread changes `fd` once the line is open.
static s32 line_read(host_serial *s, u8 *buffer, u32 size) {
    while (s->fd >= 0 && !s->closed) {
        pollfd p[2] = {{s->fd, POLLIN, 0}, {s->wake, POLLIN, 0}};
        if (poll(p, 2, -1) < 0 && errno != EINTR) {
            return 0;
        }
        if (p[1].revents) {
            nap(s, 0);
            if (path_take(s)) {
                return 0;
            }
        }
        if (!p[0].revents) {
            continue;
        }
        const ssize_t n = read(s->fd, buffer, size);
        if (n > 0) {
            return (s32)n;
        }
        if (n == 0 || (errno != EAGAIN && errno != EINTR)) {
            device_lost(s);
            return 0;
        }
    }
    if (!s->closed) {
        device_wait(s);
    }
    return 0;
}

s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size) {
    host_serial *s = line_of(handle);
    s->users++;
    const s32 n = line_read(s, buffer, size);
    line_release(s);
    return n;
}

static void wake(host_serial *s) {
    const u64 one = 1;
    if (write(s->wake, &one, sizeof(one)) != (ssize_t)sizeof(one)) {
        zof_printf("serial port %d: cannot wake its reader: %s", s->port, zof_file_error());
    }
}

s32 win_uart_close(zof_drv_t *handle) {
    host_serial *s = line_of(handle);
    s->closed = true;
    wake(s);
    line_release(s);
    return 0;
}

void win_uart_info(zof_drv_t *handle, zof_uart_info_t *out) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    *out = s->info;
}

s32 win_uart_path_set(zof_drv_t *handle, const char *path) {
    host_serial *s = line_of(handle);
    if (strlen(path) >= sizeof(s->next)) {
        return -1;
    }
    {
        std::lock_guard guard(s->lock);
        snprintf(s->next, sizeof(s->next), "%s", path);
    }
    s->moved = true;
    wake(s);
    return 0;
}
