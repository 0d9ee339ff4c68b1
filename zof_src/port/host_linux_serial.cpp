// Linux serial lines over termios2, so that any rate can be set, not only those with a constant. The reader thread
// looks for a device that is missing, at the start or later. One lock guards the descriptor. The reader takes it only
// to swap the descriptor, never while it opens or closes one, because senders wait for it while they hold the graphics
// lock.
#include <asm/termbits.h>
#include <errno.h>
#include <fcntl.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
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
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

enum { RETRY_MS = 100, MISSING_RETRY_MS = 1000, SEND_WAIT_MS = 50, CHOKED_MS = 1000 };
enum { BITS_PER_BYTE = 12 }; // start, data, parity, two stop bits

struct host_serial {
    zof_drv_t drv;          // first: the handle
    std::mutex lock;        // guards fd, line, choked and patience
    std::atomic<int> users; // the owner, and each thread inside receive; the last one releases it
    int fd;                 // -1 while the device is missing
    int wake;               // readable once the line is closed
    s32 port;               // its number, for messages
    bool seen;              // the device has been open; reader thread, after the start
    bool choked;            // the peer does not read: no waiting until it does
    u64 patience;           // and not before this time
    zof_host_line_t line;
    struct stat name; // what was at `path` when it was last opened: a link, or the device
    char path[256];
};

u32 host_line_cflag(const zof_host_line_t *line) {
    u32 flag = CREAD | CLOCAL | BOTHER | (BOTHER << IBSHIFT);
    flag |= line->data_bits == 7 ? CS7 : CS8;
    flag |= line->stop_bits == 2 ? (u32)CSTOPB : 0;
    flag |= line->parity ? (u32)PARENB : 0;
    flag |= line->parity == 1 ? (u32)PARODD : 0;
    return flag;
}

static bool port_path(s32 port, char *out, size_t size) {
    char name[32];
    snprintf(name, sizeof(name), "ZOF_COM%d", port);
    const char *given = getenv(name);
    const int need = given && *given ? snprintf(out, size, "%s", given) : snprintf(out, size, "/dev/ttyS%d", port - 1);
    return need > 0 && (size_t)need < size;
}

// A pseudo-terminal supports only 8N1 and silently drops the other bits, so a difference is not a failure.
static bool line_apply(int fd, const zof_host_line_t *line) {
    struct termios2 t;
    if (ioctl(fd, TCGETS2, &t) != 0) {
        return false;
    }
    t.c_iflag = line->parity ? (u32)INPCK : 0;
    t.c_oflag = 0;
    t.c_lflag = 0;
    t.c_cflag = host_line_cflag(line);
    t.c_ispeed = t.c_ospeed = line->baud;
    t.c_cc[VMIN] = 1;
    t.c_cc[VTIME] = 0;
    return ioctl(fd, TCSETS2, &t) == 0;
}

// Opens, locks and sets up the device. Returns -1 with the reason in `why`; `lasting` is then true if this is not a
// serial line.
static int device_open(const char *path, const zof_host_line_t *line, const char **why, bool *lasting) {
    *lasting = false;
    const int fd = open(path, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        *why = errno == EACCES ? "no permission; is this user in the group that owns it (often dialout)?"
                               : zof_file_error();
        return -1;
    }
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
        *why = "another program has it";
    } else if (!line_apply(fd, line)) {
        *lasting = errno == ENOTTY;
        *why = *lasting ? "it is not a serial line" : zof_file_error();
    } else {
        // No TIOCEXCL: a pseudo-terminal that its peer keeps open would stay locked after this process has ended.
        ioctl(fd, TCFLSH, TCIOFLUSH);
        return fd;
    }
    close(fd);
    return -1;
}

static void name_keep(host_serial *s) {
    if (lstat(s->path, &s->name) != 0) {
        s->name = {};
    }
}

// The number of a pseudo-terminal that has ended is reused for the next one, perhaps somebody's shell. So it is opened
// again only through a link that was created since.
static bool may_reopen(const host_serial *s) {
    char *real = realpath(s->path, nullptr);
    const bool pseudo = real && strncmp(real, "/dev/pts/", 9) == 0;
    free(real);
    struct stat now;
    if (!pseudo || lstat(s->path, &now) != 0) {
        return true; // a real device, or nothing to open
    }
    const timespec &then = s->name.st_ctim;
    const bool same = now.st_ino == s->name.st_ino && now.st_dev == s->name.st_dev &&
                      now.st_ctim.tv_sec == then.tv_sec && now.st_ctim.tv_nsec == then.tv_nsec;
    return S_ISLNK(now.st_mode) && !same;
}

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

static void opened_log(const host_serial *s) {
    zof_printf("serial port %d: %s at %u baud, %u%c%u", s->port, s->path, s->line.baud, s->line.data_bits,
               "NOE"[s->line.parity], s -> line.stop_bits);
}

// Waits for a device that is missing or busy, but not for a file that is not a serial line.
static bool first_open(host_serial *s) {
    const char *why = "its name is too long";
    bool lasting = true;
    if (port_path(s->port, s->path, sizeof(s->path))) {
        s->fd = device_open(s->path, &s->line, &why, &lasting);
    }
    name_keep(s);
    if (s->fd >= 0) {
        s->seen = true;
        opened_log(s);
        return true;
    }
    zof_printf("serial port %d: cannot open %s: %s%s", s->port, s->path, why, lasting ? "" : "; looking for it");
    return !lasting;
}

zof_drv_t *zof_host_serial_open(s32 port, const zof_host_line_t *line) {
    auto *s = new (std::nothrow) host_serial{};
    if (!s) {
        return nullptr;
    }
    s->users = 1;
    s->fd = -1;
    s->port = port;
    s->line = *line;
    s->wake = eventfd(0, EFD_CLOEXEC);
    if (s->wake < 0) {
        zof_printf("serial port %d: %s", port, zof_file_error());
    }
    if (s->wake < 0 || !first_open(s)) {
        line_release(s);
        return nullptr;
    }
    return &s->drv;
}

static host_serial *line_of(zof_drv_t *handle) {
    return (host_serial *)handle;
}

s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line) {
    host_serial *s = line_of(handle);
    std::lock_guard guard(s->lock);
    if (s->fd >= 0 && !line_apply(s->fd, line)) {
        zof_printf("serial line %s: cannot change it: %s", s->path, zof_file_error());
        line_apply(s->fd, &s->line);
        return -1;
    }
    s->line = *line;
    return 0;
}

static bool room_wait(const host_serial *s, u64 deadline) {
    const u64 now = host_monotonic_ms();
    pollfd p = {s->fd, POLLOUT, 0};
    return now < deadline && poll(&p, 1, (int)(deadline - now)) > 0 && (p.revents & POLLOUT);
}

// Writes what the line accepts. The wait starts again with every byte sent, as long as the line is no slower than its
// rate. Returns the bytes written; `full` is true when the line accepted no more in time.
static u32 line_write(const host_serial *s, const u8 *data, u32 size, bool patient, bool *full) {
    const u64 start = host_monotonic_ms();
    const u64 needed = (u64)size * BITS_PER_BYTE * 1000 / (s->line.baud ? s->line.baud : 1);
    u64 last = start;
    u32 sent = 0;
    while (s->fd >= 0 && sent < size) {
        const ssize_t n = write(s->fd, data + sent, size - sent);
        if (n > 0) {
            sent += (u32)n;
            last = host_monotonic_ms();
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
    const u64 start = host_monotonic_ms();
    const bool patient = !s->choked && start >= s->patience;
    bool full = false;
    const u32 sent = line_write(s, data, size, patient, &full);
    if (full && patient) {
        zof_printf("serial line %s: it takes no more bytes; %u of %u are lost", s->path, size - sent, size);
        s->patience = start + CHOKED_MS;
    }
    s->choked = full;
    return sent == size ? (s32)size : -1;
}

static bool closing(host_serial *s, int wait_ms) {
    pollfd p = {s->wake, POLLIN, 0};
    return poll(&p, 1, wait_ms) > 0;
}

static void device_lost(host_serial *s) {
    int gone;
    {
        std::lock_guard guard(s->lock);
        gone = s->fd;
        s->fd = -1;
    }
    close(gone);
    zof_printf("serial line %s: the device is gone; waiting for it", s->path);
}

static zof_host_line_t line_now(host_serial *s) {
    std::lock_guard guard(s->lock);
    return s->line;
}

// Reader thread. Opens the device if it is there.
static bool device_look(host_serial *s) {
    const char *why;
    bool lasting;
    const zof_host_line_t line = line_now(s);
    const int fd = may_reopen(s) ? device_open(s->path, &line, &why, &lasting) : -1;
    if (fd < 0) {
        return false;
    }
    name_keep(s);
    {
        std::lock_guard guard(s->lock);
        line_apply(fd, &s->line); // it may have changed meanwhile
        s->fd = fd;
        s->choked = false;
        s->patience = 0;
    }
    if (s->seen) {
        zof_printf("serial line %s: the device is back", s->path);
    } else {
        opened_log(s);
    }
    s->seen = true;
    return true;
}

// Blocks until the device is there; false when the line is closed meanwhile.
static bool device_wait(host_serial *s) {
    while (!closing(s, s->seen ? RETRY_MS : MISSING_RETRY_MS)) {
        if (device_look(s)) {
            return true;
        }
    }
    return false;
}

static s32 line_read(host_serial *s, u8 *buffer, u32 size) {
    for (;;) {
        if (s->fd < 0 && !device_wait(s)) { // only this thread changes fd once the line is open
            return 0;
        }
        pollfd p[2] = {{s->fd, POLLIN, 0}, {s->wake, POLLIN, 0}};
        if (poll(p, 2, -1) < 0 && errno != EINTR) {
            return 0;
        }
        if (p[1].revents) {
            return 0;
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
        }
    }
}

s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size) {
    host_serial *s = line_of(handle);
    s->users++;
    const s32 n = line_read(s, buffer, size);
    line_release(s);
    return n;
}

s32 win_uart_close(zof_drv_t *handle) {
    host_serial *s = line_of(handle);
    const u64 one = 1;
    if (write(s->wake, &one, sizeof(one)) != (ssize_t)sizeof(one)) {
        zof_printf("serial line %s: cannot wake its reader: %s", s->path, zof_file_error());
    }
    line_release(s);
    return 0;
}
