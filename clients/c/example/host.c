// Shows a changing value on a label of a running panel, and prints touches. usage: host PORT VIEW CONTROL [COUNT]
// PORT is the other end of the panel's line: its cable, or one of a pair of pseudo-terminals. The panel's zofhmi.g must
// have head_fh 90, head_fl 165 and no CRC, as that of the bench panel. With COUNT, the program exits after COUNT values
// have been read back correctly.
#define _DEFAULT_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/file.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

#include "zof_host.h"

static int line;         // file descriptor
static char text[32];    // what the label should show
static int shown;        // number of values read back as written
static const char *lost; // reason why the line was lost; null while it is open

static uint16_t line_write(void *user, const uint8_t *bytes, uint16_t size) {
    const ssize_t n = write(*(int *)user, bytes, size);
    return n > 0 ? (uint16_t)n : 0;
}

static uint16_t line_read(void *user, uint8_t *bytes, uint16_t size) {
    const ssize_t n = read(*(int *)user, bytes, size);
    if (n == 0 && size) {
        lost = "the line is gone";
    } else if (n < 0 && errno != EAGAIN && errno != EINTR) {
        lost = strerror(errno);
    }
    return n > 0 ? (uint16_t)n : 0;
}

static void on_reply(zof_host_t *host, zof_host_reply_t *reply) {
    (void)host;
    if (reply->result != ZOF_HOST_DONE) {
        printf("no answer\n");
    } else if (reply->code == ZOF_HOST_LABEL_TEXT) {
        const char *now = zof_host_reply_text(reply);
        printf("label %u/%u: %s\n", reply->view, reply->control, now);
        shown += strcmp(now, text) == 0;
    }
}

static void on_event(zof_host_t *host, const zof_host_event_t *event) {
    if (event->kind == ZOF_HOST_TOUCH) {
        printf("%s at %u, %u\n", event->state ? "pressed" : "released", event->x, event->y);
    } else if (event->kind == ZOF_HOST_RESTORED) {
        printf("the panel has restarted and its state is restored\n");
    }
    (void)host;
}

static uint8_t on_restart(zof_host_t *host, uint8_t step) {
    (void)step;
    zof_host_set_system_touch_config(host, 0x32); // tones, and reports of press and release
    return 0;
}

static uint32_t now_ms(void) {
    struct timespec t;
    clock_gettime(CLOCK_MONOTONIC, &t);
    return (uint32_t)((uint64_t)t.tv_sec * 1000 + (uint64_t)t.tv_nsec / 1000000);
}

// Opens the line for exclusive use, because two hosts would receive each other's answers. Returns null, or an error
// text.
static const char *line_open(const char *port) {
    struct termios t;
    line = open(port, O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (line < 0) {
        return errno == EACCES ? "no permission; is this user in the group that owns it (often dialout)?"
                               : strerror(errno);
    }
    if (flock(line, LOCK_EX | LOCK_NB) != 0) {
        return "in use by another program";
    }
    if (tcgetattr(line, &t) != 0) {
        return errno == ENOTTY ? "not a serial line" : strerror(errno);
    }
    cfmakeraw(&t);
    cfsetspeed(&t, B921600);
    return tcsetattr(line, TCSANOW, &t) == 0 ? NULL : strerror(errno);
}

// Parses a number from `min` to `max`. Returns 0 after a message.
static int number(const char *name, const char *digits, long min, long max, long *out) {
    char *end;
    errno = 0;
    *out = strtol(digits, &end, 10);
    if (end == digits || *end || errno || *out < min || *out > max) {
        fprintf(stderr, "%s is a number from %ld to %ld, not \"%s\"\n", name, min, max, digits);
        return 0;
    }
    return 1;
}

int main(int argc, char **argv) {
    static uint8_t rx[256], tx[256];
    zof_host_t host;
    long view, control, count = 0;
    if (argc < 4 || argc > 5) {
        fprintf(stderr, "usage: host PORT VIEW CONTROL [COUNT]\n");
        return 2;
    }
    if (!number("VIEW", argv[2], 0, UINT16_MAX, &view) || !number("CONTROL", argv[3], 0, UINT16_MAX, &control) ||
        (argc > 4 && !number("COUNT", argv[4], 1, INT_MAX, &count))) {
        return 2;
    }
    const char *why = line_open(argv[1]);
    if (why) {
        fprintf(stderr, "%s: %s\n", argv[1], why);
        return 2;
    }
    memset(&host, 0, sizeof(host));
    host.head_fh = 90, host.head_fl = 165;
    host.timeout_ms = 1000, host.byte_us = 11;
    host.rx = rx, host.rx_size = sizeof(rx), host.tx = tx, host.tx_size = sizeof(tx);
    host.user = &line, host.write = line_write, host.read = line_read;
    host.on_reply = on_reply, host.on_event = on_event, host.on_restart = on_restart;
    zof_host_init(&host);
    setvbuf(stdout, NULL, _IOLBF, 0);
    on_restart(&host, 0); // the panel may have been running for a long time
    for (int value = 0; !lost && (count == 0 || shown < count); usleep(1000)) {
        if (!zof_host_poll(&host, now_ms())) { // everything has been sent and answered
            snprintf(text, sizeof(text), "%d.%02d V", value / 100, value % 100);
            value++;
            zof_host_set_label_text(&host, (uint16_t)view, (uint16_t)control, text);
            zof_host_get_label_text(&host, (uint16_t)view, (uint16_t)control);
        }
    }
    if (lost) {
        fprintf(stderr, "%s: %s\n", argv[1], lost);
    }
    return lost ? 1 : 0;
}
