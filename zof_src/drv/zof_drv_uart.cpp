// Opening serial ports, and the reader thread of each, which passes what it reads to the port's clients. Ports live for
// the whole run; closing one only silences its clients.
#include "drv/zof_drv_uart_in.h"
#include "zof_lib/zof_stdio.h"

enum { BUF_LEN = 2048, BUF_LEN_MIN = 1024, BUF_LEN_MAX = 1024 * 1024 };

// Returns the port's number, or -1. The desktop's number has priority, then the settings', then the hardware default.
static s32 resolve_port(const zof_uart_cfg_t *cfg) {
    s32 port = cfg->port;
    if (port == -1) {
        const u8 def = zof_hw_get_def_param()[ZOF_HW_UART_PORT];
        if (def != ZOF_HW_UNSET) {
            zof_printf("get default uart port %d \n", def);
            port = def;
        }
    }
    if (cfg->win_port > 0) {
        port = cfg->win_port;
    }
    if (port >= UART_PORT_COUNT) {
        zof_printf("serial port %d: there are only ports below %d", port, UART_PORT_COUNT);
        return -1;
    }
    return port < 0 ? -1 : port;
}

// Reader thread, when receiving has returned without bytes. Drivers without `info` report no changes.
static void change_look(zof_drv_t *handle, uart_context *ctx) {
    zof_uart_info_t now = {};
    if (zof_drv_uart_info_get(handle, &now) == 0 && now.changes != ctx->changes) {
        ctx->changes = now.changes;
        uart_clients_change(handle);
    } else {
        zof_delay(1);
    }
}

static void zof_uart_recive_data_th(void *arg) {
    auto *handle = (zof_drv_t *)arg;
    auto *ctx = (uart_context *)handle->context;
    if (ctx->buf_len > BUF_LEN_MAX) {
        zof_printf("max buflen must be less than 1MB\n");
        return;
    }
    if (ctx->buf_len < BUF_LEN_MIN) {
        zof_printf("The value must be larger than 1024. Set the value to 1024\n");
        ctx->buf_len = BUF_LEN_MIN;
    }
    auto *buf = (u8 *)zof_malloc(ctx->buf_len);
    if (!buf) {
        zof_printf("zof_malloc buf fail\n");
        return;
    }
    while (uart_port_stands(handle)) {
        const s32 n = zof_drv_uart_recive(handle, buf, ctx->buf_len);
        if (n <= 0) {
            change_look(handle, ctx);
            continue;
        }
        ctx->bytes += (u32)n;
        uart_clients_feed(handle, buf, (u32)n);
    }
    zof_free(buf);
    ctx->buf_len = 0;
}

// Releases everything of a port that cannot be used.
static zof_drv_t *open_undo(zof_drv_t *handle) {
    zof_free(handle->context);
    if (drv_uart_t->close) {
        drv_uart_t->close(handle);
    }
    return nullptr;
}

static zof_drv_t *open_new(zof_uart_cfg_t *cfg, s32 port) {
    if (!drv_uart_t || !drv_uart_t->open) {
        return nullptr;
    }
    cfg->port = port;
    zof_drv_t *handle = drv_uart_t->open(cfg);
    if (!handle) {
        return nullptr;
    }
    auto *ctx = (uart_context *)zof_malloc(sizeof(uart_context));
    handle->type = ZOF_DRV_UART;
    handle->port = (u8)port;
    handle->context = ctx;
    if (!ctx) {
        return open_undo(handle);
    }
    ctx->buf_len = BUF_LEN;
    uart_drvs_t[port] = handle; // first: the reader runs for as long as its port is in this table
    ctx->thread = zof_thread_create("zof uart", zof_uart_recive_data_th, handle, 2048, 1);
    if (!ctx->thread) {
        zof_printf("serial port %d: its reader thread cannot be started", port);
        uart_drvs_t[port] = nullptr;
        return open_undo(handle);
    }
    return handle;
}

zof_drv_t *zof_drv_uart_open(zof_uart_cfg_t *cfg) {
    if (!cfg) {
        return nullptr;
    }
    const s32 port = resolve_port(cfg);
    zof_printf("zof uart port=%d speed_e=%d,bit_e=%d,parity_e=%d,stop_e=%d\n", port, cfg->speed_e, cfg->bit_e,
               cfg->parity_e, cfg->stop_e);
    if (port < 0) {
        return nullptr;
    }
    zof_drv_t *handle = uart_drvs_t[port];
    if (handle) {
        if (zof_drv_uart_set_cfg(handle, cfg->speed_e, cfg->bit_e, cfg->parity_e, cfg->stop_e) != 0) {
            return nullptr;
        }
    } else {
        handle = open_new(cfg, port);
    }
    if (handle) {
        uart_context_of(handle)->open_flag = 1;
    }
    return handle;
}

s32 zof_drv_uart_close(zof_drv_t *handle) {
    if (!uart_context_of(handle)) {
        return -1;
    }
    uart_clients_silence(handle);
    return 0;
}
