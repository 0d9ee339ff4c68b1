// What lies below the threads of a serial port: the table of open ports, and the calls that the port's driver answers.
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_uart_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

const zof_drv_uart_ops_t *drv_uart_t;
std::atomic<zof_drv_t *> uart_drvs_t[UART_PORT_COUNT];

uart_context *uart_context_of(zof_drv_t *handle) {
    return handle && handle->type == ZOF_DRV_UART ? (uart_context *)handle->context : nullptr;
}

bool uart_port_stands(const zof_drv_t *handle) {
    return uart_drvs_t[handle->port] == handle;
}

s32 zof_drv_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    if (!uart_context_of(handle) || !data || !drv_uart_t || !drv_uart_t->send) {
        return -1;
    }
    return drv_uart_t->send(handle, data, size);
}

s32 zof_drv_uart_recive(zof_drv_t *handle, u8 *buffer, u32 size) {
    if (!uart_context_of(handle) || !buffer || !drv_uart_t || !drv_uart_t->receive) {
        return 0;
    }
    return drv_uart_t->receive(handle, buffer, size);
}

s32 zof_drv_uart_info_get(zof_drv_t *handle, zof_uart_info_t *out) {
    const uart_context *ctx = uart_context_of(handle);
    if (!ctx || !out || !drv_uart_t || !drv_uart_t->info) {
        return -1;
    }
    drv_uart_t->info(handle, out);
    out->bytes = ctx->bytes;
    return 0;
}

s32 zof_drv_uart_path_set(zof_drv_t *handle, const char *path) {
    return uart_context_of(handle) && path && drv_uart_t && drv_uart_t->path_set ? drv_uart_t->path_set(handle, path)
                                                                                 : -1;
}

s32 zof_drv_uart_set_cfg(zof_drv_t *handle, u32 speed, u32 bit, u32 parity, u32 stop) {
    if (!uart_context_of(handle) || !drv_uart_t || !drv_uart_t->set_cfg) {
        return -1;
    }
    zof_printf("uart%d modify speed=%d,bit=%d,parity=%d,stop=%d\n", handle->port, speed, bit, parity, stop);
    const zof_uart_cfg_t cfg = {
        .win_port = 0, .port = handle->port, .speed_e = speed, .bit_e = bit, .parity_e = parity, .stop_e = stop};
    return drv_uart_t->set_cfg(handle, &cfg);
}

static char *given[UART_PORT_COUNT]; // paths of the command line

s32 zof_drv_uart_port_path_set(s32 port, const char *path) {
    if (port < 0 || port >= UART_PORT_COUNT || !path || !*path || strlen(path) >= sizeof(zof_uart_info_t::path)) {
        return -1;
    }
    zof_free(given[port]);
    given[port] = zof_text_copy(path);
    return given[port] ? 0 : -1;
}

const char *zof_drv_uart_port_path(s32 port) {
    return port >= 0 && port < UART_PORT_COUNT ? given[port] : nullptr;
}

static const char *held_text(const zof_uart_info_t *info, char *out, size_t size) {
    const char *name = *info->holder ? info->holder : "another program";
    if (info->holder_id) {
        snprintf(out, size, "held by %s (process %u)", name, info->holder_id);
    } else {
        snprintf(out, size, "held by %s", name);
    }
    return out;
}

const char *zof_drv_uart_state_text(const zof_uart_info_t *info, char *out, size_t size) {
    static constexpr const char *texts[] = {"not looked for", "open", "no such device",
                                            "no permission",  "held", "the device is gone"};
    if (info->state == UART_STATE_HELD) {
        return held_text(info, out, size);
    }
    const bool group = info->state == UART_STATE_NO_RIGHT && *info->group;
    const char *text = info->state < UART_STATE_ERROR ? texts[info->state] : info->error;
    snprintf(out, size, group ? "%s; group %s has it" : "%s", text, info->group);
    return out;
}
