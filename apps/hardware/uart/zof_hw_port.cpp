#include "hardware/uart/zof_hw_port.h"

#include <stdio.h>
#include <string.h>

#include "hardware/uart/zof_hw_replay.h"
#include "hardware/uart/zof_hw_uart.h"

enum { PORTS_MAX = 64 };
enum { PATH_SIZE = sizeof(zof_uart_info_t::path) };

static struct {
    bool set; // `path` is to be used, even if it is empty
    char path[PATH_SIZE];
    char first[PATH_SIZE]; // path of the link at the start; empty until the link leaves it
} chosen;

static void port_print(FILE *to, const zof_uart_info_t *port) {
    char text[128];
    const bool free = port->state == UART_STATE_NOT_SOUGHT;
    fprintf(to, "%-16s %-40s %s\n", port->path, *port->adapter ? port->adapter : "-",
            free ? "free" : zof_drv_uart_state_text(port, text, sizeof(text)));
}

void zof_box_port_print(void) {
    static zof_uart_info_t ports[PORTS_MAX];
    const u32 count = zof_drv_uart_list(ports, PORTS_MAX);
    for (u32 i = 0; i < count; i++) {
        port_print(stdout, &ports[i]);
    }
    if (count == 0) {
        printf("no serial ports\n");
    }
}

// Stores the path of the only adapter. Otherwise reports why there is no such path and leaves it empty.
static void auto_find(void) {
    static zof_uart_info_t ports[PORTS_MAX];
    const u32 count = zof_drv_uart_list(ports, PORTS_MAX);
    const zof_uart_info_t *one = nullptr;
    u32 adapters = 0;
    for (u32 i = 0; i < count; i++) {
        if (*ports[i].adapter) {
            one = &ports[i];
            adapters++;
        }
    }
    snprintf(chosen.path, sizeof(chosen.path), "%s", adapters == 1 ? one->path : "");
    if (adapters != 1) {
        fprintf(stderr, "zof_bench: --port auto: %s; starting without a port%s\n",
                adapters ? "there are several serial adapters" : "there is no serial adapter",
                count ? "; the ports are:" : "");
        for (u32 i = 0; i < count; i++) {
            port_print(stderr, &ports[i]);
        }
    }
}

s32 zof_box_port_set(const char *path) {
    if (!*path || strlen(path) >= sizeof(chosen.path)) {
        fprintf(stderr, "zof_bench: --port: the path is %s\n", *path ? "too long" : "empty");
        return -1;
    }
    chosen.set = true;
    snprintf(chosen.path, sizeof(chosen.path), "%s", path);
    if (strcmp(path, "auto") == 0) {
        auto_find();
    }
    return 0;
}

const char *zof_box_port(void) {
    return chosen.set ? chosen.path : nullptr;
}

static bool same_port(const char *a, const char *b) {
    char real_a[PATH_SIZE], real_b[PATH_SIZE];
    return strcmp(a, b) == 0 || (zof_file_real_path(a, real_a, sizeof(real_a)) == 0 &&
                                 zof_file_real_path(b, real_b, sizeof(real_b)) == 0 && strcmp(real_a, real_b) == 0);
}

// The number of a pseudo-terminal that has been closed may belong to another one, so such a path is not offered again.
static bool may_return(const char *path) {
    return *path && strncmp(path, "/dev/pts/", 9) != 0;
}

// Returns the index of a port in a list, or `count`.
static u32 place_of(const zof_uart_info_t *ports, u32 count, const char *path) {
    u32 at = 0;
    while (at < count && !same_port(ports[at].path, path)) {
        at++;
    }
    return at;
}

s32 zof_box_port_next(void) {
    static zof_uart_info_t ports[PORTS_MAX + 1];
    zof_uart_info_t present;
    if (zof_drv_uart_info_get(drv_uart, &present) != 0) {
        return -1;
    }
    if (!*chosen.first && may_return(present.path)) {
        memcpy(chosen.first, present.path, sizeof(chosen.first));
    }
    u32 count = zof_drv_uart_list(ports, PORTS_MAX);
    if (*chosen.first && place_of(ports, count, chosen.first) == count) {
        memcpy(ports[count++].path, chosen.first, sizeof(chosen.first));
    }
    const u32 at = place_of(ports, count, present.path);
    const u32 next = at + 1 < count ? at + 1 : 0;
    return next < count && next != at ? zof_drv_uart_path_set(drv_uart, ports[next].path) : -1;
}

s32 zof_box_port_info(zof_uart_info_t *out) {
    if (!zof_replay_file()) {
        return zof_drv_uart_info_get(drv_uart, out);
    }
    *out = {.state = UART_STATE_OPEN, .opened = 1};
    snprintf(out->path, sizeof(out->path), "%s", zof_replay_file());
    return 0;
}
