// Opening a serial line on Linux, and the rules for when that may be tried again.
#include <asm/termbits.h>
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "port/host_linux_line.h"
#include "port/win_line.h"

u32 host_line_cflag(const zof_host_line_t *line) {
    u32 flag = CREAD | CLOCAL | BOTHER | (BOTHER << IBSHIFT);
    flag |= line->data_bits == 7 ? CS7 : CS8;
    flag |= line->stop_bits == 2 ? (u32)CSTOPB : 0;
    flag |= line->parity ? (u32)PARENB : 0;
    flag |= line->parity == 1 ? (u32)PARODD : 0;
    return flag;
}

// A pseudo-terminal supports only 8N1 and silently drops the other bits, so a difference is not a failure.
bool host_line_apply(intptr_t device, const zof_host_line_t *line) {
    const int fd = (int)device;
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

static void error_write(zof_uart_info_t *found, const char *text) {
    found->state = UART_STATE_ERROR;
    snprintf(found->error, sizeof(found->error), "%s", text);
}

// Says in `found` why a device cannot be opened.
static void open_failure(int why, const struct stat *device, zof_uart_info_t *found) {
    switch (why) {
    case ENOENT:
    case ENOTDIR:
    case ENXIO:
    case ENODEV:
    case EIO: // the far end of a pseudo-terminal has just gone
        found->state = UART_STATE_MISSING;
        break;
    case EACCES:
    case EPERM:
        found->state = UART_STATE_NO_RIGHT;
        host_port_group(device, found);
        break;
    case EBUSY:
    case EWOULDBLOCK:
        found->state = UART_STATE_HELD;
        host_port_holder(device, found);
        break;
    default:
        errno = why;
        error_write(found, zof_file_error());
    }
}

// Opens, locks and sets up the device. Returns -1 with the reason in `found`.
static int device_open(const char *path, const zof_host_line_t *line, host_trace_t *now, zof_uart_info_t *found) {
    now->foreign = !S_ISCHR(now->device.st_mode); // a pipe would be held open, a folder would fail
    const int fd = now->foreign ? -1 : open(path, O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd >= 0 && flock(fd, LOCK_EX | LOCK_NB) == 0 && host_line_apply(fd, line)) {
        // No TIOCEXCL: a pseudo-terminal that its peer keeps open would stay locked after this process has ended.
        ioctl(fd, TCFLSH, TCIOFLUSH);
        found->state = UART_STATE_OPEN;
        now->opened = true;
        return fd;
    }
    const int why = errno;
    now->foreign = now->foreign || (fd >= 0 && why == ENOTTY);
    if (fd >= 0) {
        close(fd);
    }
    if (now->foreign) {
        error_write(found, "it is not a serial line");
    } else {
        open_failure(why, &now->device, found);
    }
    return -1;
}

static bool same_node(const struct stat *a, const struct stat *b) {
    return a->st_dev == b->st_dev && a->st_ino == b->st_ino && a->st_rdev == b->st_rdev && a->st_uid == b->st_uid;
}

static bool is_new_link(const host_trace_t *last, const host_trace_t *now) {
    const timespec &then = last->name.st_ctim, &made = now->name.st_ctim;
    return S_ISLNK(now->name.st_mode) &&
           !(same_node(&last->name, &now->name) && then.tv_sec == made.tv_sec && then.tv_nsec == made.tv_nsec);
}

static bool is_pseudo(const char *path) {
    char *real = realpath(path, nullptr);
    const bool pseudo = real && strncmp(real, "/dev/pts/", 9) == 0;
    free(real);
    return pseudo;
}

// The number of a pseudo-terminal that has ended is used again for the next one, perhaps somebody's shell. So one that
// was not there at the last look, or was open, is opened only through a link that was made since.
static bool may_open(const char *path, const host_trace_t *last, const host_trace_t *now) {
    const bool same_device = last->present && same_node(&last->device, &now->device);
    return is_pseudo(path) ? same_device && !last->opened : !(same_device && last->foreign);
}

int host_line_look(const char *path, const zof_host_line_t *line, host_trace_t *trace, zof_uart_info_t *found) {
    const host_trace_t last = *trace;
    host_trace_t now = {.looked = true};
    if (lstat(path, &now.name) != 0) {
        now.name = {};
    }
    now.present = stat(path, &now.device) == 0;
    const int why = errno;
    const bool fresh = !last.looked || is_new_link(&last, &now);
    now.opened = last.opened && !fresh;
    int fd = -1;
    if (!now.present) {
        now.device = {};
        open_failure(why, &now.device, found);
    } else if (fresh || may_open(path, &last, &now)) {
        fd = device_open(path, line, &now, found);
    } else if (last.foreign) {
        now.foreign = true;
        error_write(found, "it is not a serial line");
    } else {
        found->state = UART_STATE_MISSING; // this is another one
        now.present = false;
    }
    if (now.present) {
        host_port_name(&now.device, found);
    }
    *trace = now;
    return fd;
}
