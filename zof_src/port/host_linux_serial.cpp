// Serial lines on Linux: waiting, reading and writing. How a device is found and opened is in host_linux_look.cpp.
#include <errno.h>
#include <poll.h>
#include <stdio.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <new>

#include "port/host_linux_line.h"
#include "port/win_line.h"
#include "zof_lib/zof_stdio.h"

struct host_own {
    int wake; // readable after host_line_wake
    host_trace_t trace;
};

static host_own *own_of(const win_line *s) {
    return (host_own *)s->host;
}

bool host_line_init(win_line *s) {
    auto *own = new (std::nothrow) host_own{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK), {}};
    if (!own || own->wake < 0) {
        delete own;
        return false;
    }
    s->host = own;
    return true;
}

void host_line_free(win_line *s) {
    close(own_of(s)->wake);
    delete own_of(s);
}

void host_line_path(s32 port, char *out, size_t size) {
    snprintf(out, size, "/dev/ttyS%d", port - 1);
}

intptr_t host_line_open(win_line *s, const zof_host_line_t *line, zof_uart_info_t *found) {
    const int fd = host_line_look(found->path, line, &own_of(s)->trace, found);
    s->foreign = own_of(s)->trace.foreign;
    return fd;
}

void host_line_forget(win_line *s) {
    own_of(s)->trace = {};
}

void host_line_leave(win_line *s) {
    (void)s;
}

void host_line_close(intptr_t device) {
    close((int)device);
}

static bool room_wait(const win_line *s, u64 deadline) {
    const u64 now = zof_host_time_ms();
    pollfd p = {(int)s->device, POLLOUT, 0};
    return now < deadline && poll(&p, 1, (int)(deadline - now)) > 0 && (p.revents & POLLOUT);
}

// The wait starts again with every byte sent, as long as the line is no slower than its rate.
u32 host_line_write(win_line *s, const u8 *data, u32 size, bool patient, bool *full) {
    const u64 start = zof_host_time_ms();
    const u64 needed = (u64)size * WIN_LINE_BITS * 1000 / (s->line.baud ? s->line.baud : 1);
    u64 last = start;
    u32 sent = 0;
    while (sent < size) {
        const ssize_t n = write((int)s->device, data + sent, size - sent);
        if (n > 0) {
            sent += (u32)n;
            last = zof_host_time_ms();
        } else if (n < 0 && errno == EAGAIN) {
            *full = !patient || !room_wait(s, (last < start + needed ? last : start + needed) + WIN_LINE_SEND_WAIT_MS);
            if (*full) {
                break;
            }
        } else if (n == 0 || errno != EINTR) {
            break;
        }
    }
    return sent;
}

s32 host_line_read(win_line *s, u8 *buffer, u32 size) {
    for (;;) {
        pollfd p[2] = {{(int)s->device, POLLIN, 0}, {own_of(s)->wake, POLLIN, 0}};
        if (poll(p, 2, -1) < 0) {
            return 0;
        }
        if (p[1].revents) {
            host_line_nap(s, 0);
            return 0;
        }
        const ssize_t n = read((int)s->device, buffer, size);
        if (n > 0) {
            return (s32)n;
        }
        if (n == 0 || (errno != EAGAIN && errno != EINTR)) {
            return -1;
        }
    }
}

void host_line_nap(win_line *s, s32 ms) {
    pollfd p = {own_of(s)->wake, POLLIN, 0};
    u64 count;
    if (poll(&p, 1, ms) > 0 && read(p.fd, &count, sizeof(count)) < 0) {
        return; // somebody else has read it
    }
}

void host_line_wake(win_line *s) {
    const u64 one = 1;
    if (write(own_of(s)->wake, &one, sizeof(one)) != (ssize_t)sizeof(one)) {
        zof_printf("serial port %d: cannot wake its reader: %s", s->port, zof_file_error());
    }
}
