// What systemd wants to hear from a service: datagrams of text on a socket that it names in the environment.
#include <stddef.h>
#include <stdlib.h>
#include <string.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "port/zof_host.h"
#include "zof_lib/zof_util.h"

s32 zof_host_service_report(const char *text) {
    const char *path = getenv("NOTIFY_SOCKET");
    sockaddr_un address = {.sun_family = AF_UNIX};
    if (!path || !zof_text_join(address.sun_path, sizeof(address.sun_path), path, nullptr, nullptr)) {
        return -1;
    }
    const size_t length = offsetof(sockaddr_un, sun_path) + strlen(path);
    if (path[0] == '@') {
        address.sun_path[0] = '\0'; // a socket that has no file
    }
    const int fd = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const ssize_t sent = fd < 0 ? -1
                                : sendto(fd, text, strlen(text), MSG_NOSIGNAL | MSG_DONTWAIT,
                                         (const sockaddr *)&address, (socklen_t)length);
    if (fd >= 0) {
        close(fd);
    }
    return sent == (ssize_t)strlen(text) ? 0 : -1;
}

u32 zof_host_service_period(void) {
    const char *time = getenv("WATCHDOG_USEC"), *process = getenv("WATCHDOG_PID");
    const bool ours = !process || strtoul(process, nullptr, 10) == zof_host_process_id();
    const u64 us = time && ours ? strtoull(time, nullptr, 10) : 0;
    return us / 1000 > UINT32_MAX ? UINT32_MAX : (u32)(us / 1000);
}
