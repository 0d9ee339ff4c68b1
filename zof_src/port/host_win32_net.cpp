// Windows: connections on 127.0.0.1, and files of the user alone.
#define _CRT_RAND_S // before stdlib.h: the system's random numbers
#include <stdlib.h>

#include <winsock2.h>

#include "port/host_win32.h"

#include <algorithm>
#include <errno.h>
#include <new>
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_net.h"

enum { BACKLOG = 4, PAUSE_MS = 200, DRAIN_SIZE = 4096 };

struct zof_net_port {
    SOCKET listener;
    SOCKET wake; // connected to itself: readable after zof_net_wake
};

// Returns a socket on 127.0.0.1, of a number or of a free one, which does not wait; INVALID_SOCKET with errno.
static SOCKET socket_open(int type, u16 number, sockaddr_in *at) {
    const SOCKET s = socket(AF_INET, type, 0);
    u_long on = 1;
    int size = sizeof(*at);
    *at = {};
    at->sin_family = AF_INET;
    at->sin_port = htons(number);
    at->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (s != INVALID_SOCKET && bind(s, (sockaddr *)at, size) == 0 && getsockname(s, (sockaddr *)at, &size) == 0 &&
        ioctlsocket(s, FIONBIO, &on) == 0) {
        SetHandleInformation((HANDLE)s, HANDLE_FLAG_INHERIT, 0);
        return s;
    }
    errno = WSAGetLastError() == WSAEADDRINUSE ? EADDRINUSE : EACCES;
    closesocket(s);
    return INVALID_SOCKET;
}

zof_net_port_t *zof_net_listen(u16 *number) {
    WSADATA ignored;
    sockaddr_in at, own;
    if (WSAStartup(MAKEWORD(2, 2), &ignored) != 0) {
        errno = ENOSYS;
        return nullptr;
    }
    const SOCKET listener = socket_open(SOCK_STREAM, *number, &at);
    if (listener == INVALID_SOCKET || listen(listener, BACKLOG) != 0) {
        return nullptr;
    }
    const SOCKET wake = socket_open(SOCK_DGRAM, 0, &own);
    if (wake == INVALID_SOCKET || connect(wake, (sockaddr *)&own, sizeof(own)) != 0) {
        closesocket(listener);
        return nullptr;
    }
    *number = ntohs(at.sin_port);
    return new (std::nothrow) zof_net_port{listener, wake};
}

void zof_net_unlisten(zof_net_port_t *port) {
    closesocket(port->listener);
    closesocket(port->wake);
    delete port;
}

// A connection inherits that it does not wait.
s32 zof_net_accept(zof_net_port_t *port) {
    const SOCKET s = accept(port->listener, nullptr, nullptr);
    if (s == INVALID_SOCKET) {
        if (WSAGetLastError() == WSAEMFILE || WSAGetLastError() == WSAENOBUFS) {
            Sleep(PAUSE_MS); // it stays in the queue, and would be reported without a pause
        }
        return -1;
    }
    const BOOL on = TRUE;
    setsockopt(s, IPPROTO_TCP, TCP_NODELAY, (const char *)&on, sizeof(on));
    return (s32)s; // handles have 32 bits that count
}

static s32 result_of(int n, int closed) {
    return n > closed ? n : n < 0 && WSAGetLastError() == WSAEWOULDBLOCK ? 0 : -1;
}

s32 zof_net_read(s32 connection, void *out, u32 size) {
    return result_of(recv((SOCKET)connection, (char *)out, (int)size, 0), 0);
}

s32 zof_net_write(s32 connection, const void *data, u32 size) {
    return result_of(send((SOCKET)connection, (const char *)data, (int)size, 0), -1);
}

// A connection that is closed with unread bytes is reset, which may discard what was written.
void zof_net_close(s32 connection) {
    char rest[DRAIN_SIZE];
    shutdown((SOCKET)connection, SD_SEND);
    while (zof_net_read(connection, rest, sizeof(rest)) > 0) {
    }
    closesocket((SOCKET)connection);
}

void zof_net_wait(zof_net_port_t *port, s32 connection, u32 events, s32 ms) {
    fd_set readable, writable;
    FD_ZERO(&readable);
    FD_ZERO(&writable);
    FD_SET(port->wake, &readable);
    if (events & ZOF_NET_ACCEPT) {
        FD_SET(port->listener, &readable);
    }
    if (events & ZOF_NET_READ) {
        FD_SET((SOCKET)connection, &readable);
    }
    if (events & ZOF_NET_WRITE) {
        FD_SET((SOCKET)connection, &writable);
    }
    timeval limit = {ms / 1000, ms % 1000 * 1000};
    char wakes[16];
    select(0, &readable, &writable, nullptr, ms < 0 ? nullptr : &limit);
    while (recv(port->wake, wakes, sizeof(wakes), 0) > 0) {
    }
}

void zof_net_wake(zof_net_port_t *port) {
    send(port->wake, "", 1, 0);
}

s32 zof_net_random(void *out, u32 size) {
    for (u32 at = 0; at < size; at += sizeof(unsigned)) {
        unsigned value;
        if (rand_s(&value) != 0) {
            return -1;
        }
        memcpy((u8 *)out + at, &value, std::min(sizeof(value), (size_t)(size - at)));
    }
    return 0;
}

// The rights of this folder admit its user and the system.
s32 zof_net_private_path(char *out, size_t size, const char *name, zof_bool make) {
    const char *local = getenv("LOCALAPPDATA");
    char folder[400];
    if (!local || !zof_host_is_absolute(local) ||
        snprintf(folder, sizeof(folder), "%s/zof", local) >= (int)sizeof(folder)) {
        errno = ENOENT;
        return -1;
    }
    if (make && zof_host_mkdir(folder) < 0) {
        return -1;
    }
    return (size_t)snprintf(out, size, "%s/%s", folder, name) < size ? 0 : -1;
}

s32 zof_net_private_write(const char *path, const char *text) {
    zof_host_remove(path);
    FILE *f = zof_host_file_create(path);
    const bool written = f && fwrite(text, 1, strlen(text), f) == strlen(text);
    return f && fclose(f) == 0 && written ? 0 : -1;
}
