// Linux's watchdog. Graphics thread only, like the task that feeds it.
#include <errno.h>
#include <fcntl.h>
#include <linux/watchdog.h>
#include <string.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "drv/zof_drv_wdt.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

static const char device[] = "/dev/watchdog";

static struct {
    int fd;      // -1 while closed
    int seconds; // 0: the device's default
} wdt = {-1, 0};

static s32 apply_timeout() {
    int seconds = wdt.seconds;
    return seconds == 0 || ioctl(wdt.fd, WDIOC_SETTIMEOUT, &seconds) == 0 ? 0 : -1;
}

static s32 wdt_open() {
    if (wdt.fd < 0) {
        wdt.fd = open(device, O_WRONLY | O_CLOEXEC);
    }
    if (wdt.fd < 0) {
        zof_printf("watchdog %s: %s", device, zof_file_error());
        return -1;
    }
    return apply_timeout();
}

// The letter tells the device that closing is intended: without it the machine restarts.
static s32 wdt_close() {
    if (wdt.fd < 0) {
        return -1;
    }
    const bool disarmed = write(wdt.fd, "V", 1) == 1;
    close(wdt.fd);
    wdt.fd = -1;
    return disarmed ? 0 : -1;
}

static s32 wdt_set_timeout(u32 seconds) {
    wdt.seconds = seconds > 3600 ? 3600 : (int)seconds;
    return wdt.fd < 0 ? 0 : apply_timeout();
}

static s32 wdt_keepalive() {
    return wdt.fd >= 0 && ioctl(wdt.fd, WDIOC_KEEPALIVE, 0) == 0 ? 0 : -1;
}

s32 win_wdt_init(void) {
    static constexpr zof_drv_wdt_ops_t ops = {wdt_open, wdt_close, wdt_set_timeout, wdt_keepalive};
    return access(device, F_OK) == 0 ? zof_drv_wdt_reg(&ops) : -1;
}
