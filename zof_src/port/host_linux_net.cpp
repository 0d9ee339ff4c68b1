// Linux: connections on 127.0.0.1, and files of the user alone.
#include <errno.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/eventfd.h>
#include <sys/random.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <new>

#include "drv/zof_drv_net.h"

enum { BACKLOG = 4, PAUSE_MS = 200, DRAIN_SIZE = 4096 };

struct zof_net_port {
    int listener;
    int wake; // readable after zof_net_wake
};

// Returns the descriptor, or -1.
static int listener_open(u16 *number) {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const int one = 1;
    sockaddr_in at = {};
    socklen_t size = sizeof(at);
    at.sin_family = AF_INET;
    at.sin_port = htons(*number);
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof(one));
    if (fd < 0 || bind(fd, (sockaddr *)&at, size) != 0 || listen(fd, BACKLOG) != 0 ||
        getsockname(fd, (sockaddr *)&at, &size) != 0) {
        const int why = errno;
        close(fd);
        errno = why;
        return -1;
    }
    *number = ntohs(at.sin_port);
    return fd;
}

zof_net_port_t *zof_net_listen(u16 *number) {
    const int listener = listener_open(number);
    const int wake = listener >= 0 ? eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK) : -1;
    return wake >= 0 ? new (std::nothrow) zof_net_port{listener, wake} : nullptr;
}

void zof_net_unlisten(zof_net_port_t *port) {
    close(port->listener);
    close(port->wake);
    delete port;
}

// Without free descriptors the connection stays in the queue, and poll would report it without a pause.
s32 zof_net_accept(zof_net_port_t *port) {
    const int fd = accept4(port->listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    const int one = 1;
    if (fd < 0 && errno != EAGAIN && errno != ECONNABORTED && errno != EINTR) {
        poll(nullptr, 0, PAUSE_MS);
    }
    if (fd >= 0) {
        setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &one, sizeof(one));
    }
    return fd;
}

static bool must_wait() {
    return errno == EAGAIN || errno == EINTR;
}

s32 zof_net_read(s32 connection, void *out, u32 size) {
    const ssize_t n = recv(connection, out, size, 0);
    return n > 0 ? (s32)n : n < 0 && must_wait() ? 0 : -1;
}

s32 zof_net_write(s32 connection, const void *data, u32 size) {
    const ssize_t n = send(connection, data, size, MSG_NOSIGNAL);
    return n >= 0 ? (s32)n : must_wait() ? 0 : -1;
}

// A connection that is closed with unread bytes is reset, which may discard what was written.
void zof_net_close(s32 connection) {
    char rest[DRAIN_SIZE];
    shutdown(connection, SHUT_WR);
    while (zof_net_read(connection, rest, sizeof(rest)) > 0) {
    }
    close(connection);
}

void zof_net_wait(zof_net_port_t *port, s32 connection, u32 events, s32 ms) {
    const short wanted = (short)((events & ZOF_NET_READ ? POLLIN : 0) | (events & ZOF_NET_WRITE ? POLLOUT : 0));
    pollfd files[] = {{events & ZOF_NET_ACCEPT ? port->listener : -1, POLLIN, 0},
                      {port->wake, POLLIN, 0},
                      {wanted ? connection : -1, wanted, 0}};
    u64 count;
    if (poll(files, 3, ms) > 0 && files[1].revents && read(port->wake, &count, sizeof(count)) < 0) {
        return; // it was not set after all
    }
}

void zof_net_wake(zof_net_port_t *port) {
    const u64 one = 1;
    if (write(port->wake, &one, sizeof(one)) < 0) {
        return; // the counter is full, so it is set
    }
}

s32 zof_net_random(void *out, u32 size) {
    return getrandom(out, size, 0) == (ssize_t)size ? 0 : -1;
}

// Returns true for a folder of this user that no other may write to.
static bool is_private(const char *path) {
    struct stat st;
    const bool own = lstat(path, &st) == 0 && S_ISDIR(st.st_mode) && st.st_uid == geteuid() && !(st.st_mode & 022);
    if (!own) {
        errno = EACCES;
    }
    return own;
}

s32 zof_net_private_path(char *out, size_t size, const char *name, zof_bool make) {
    char own[256];
    const char *folder = getenv("XDG_RUNTIME_DIR");
    if (!folder || *folder != '/' || !is_private(folder)) {
        const char *temp = getenv("TMPDIR");
        snprintf(own, sizeof(own), "%s/zof-%u", temp && *temp == '/' ? temp : "/tmp", (unsigned)geteuid());
        folder = own;
        if (make) {
            mkdir(folder, 0700);
        }
        if (!is_private(folder)) {
            return -1;
        }
    }
    return (size_t)snprintf(out, size, "%s/%s", folder, name) < size ? 0 : -1;
}

s32 zof_net_private_write(const char *path, const char *text) {
    unlink(path);
    const int fd = open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    const bool written = fd >= 0 && write(fd, text, strlen(text)) == (ssize_t)strlen(text);
    return fd >= 0 && close(fd) == 0 && written ? 0 : -1;
}
