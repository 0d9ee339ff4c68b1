// Serial ports above the port's lines: one reader thread for each port, and up to two client threads, each fed through
// a ping-pong buffer. The register link's client gets messages, which end with a silence of `timeout` ms; the host
// link's gets every piece at once. Ports live for the whole run; closing one only silences its clients.
#include <atomic>
#include <mutex>

#include "drv/zof_drv_uart.h"
#include "drv/zof_lock.h"
#include "drv/zof_pipo_buff.h"
#include "zof_lib/zof_stdio.h"

enum { PORT_COUNT = 256, BUF_LEN = 2048, BUF_LEN_MIN = 1024, BUF_LEN_MAX = 1024 * 1024 };
enum {
    CLIENT_BUF_MIN = 2048,
    CLIENT_BUF_MAX = 102400,
    TIMEOUT_MIN = 5,
    TIMEOUT_MAX = 1000,
    TELL_MS = 1000,
    ROOM_WAIT_MS = 1000
};

// The receive context of one open port. What two threads access is atomic; buffers have their own lock. A client's
// `run` is set last, when its buffer and semaphore exist.
struct uart_client {
    zof_thread_t *thread;
    zof_sem_t sem;
    pipo_buff *buf;
    std::atomic<u8> run;
    u32 pieces;    // put into the buffer so far; under the buffer's lock
    u32 lost;      // bytes that did not fit since this was last logged; reader thread only
    u32 lost_said; // when it was last logged
    bool reported; // it has been logged
};

struct uart_context {
    zof_thread_t *thread;
    u32 buf_len;
    std::atomic<u16> timeout;
    uart_client ui;
    std::atomic<uart_rev_bfun> ui_bfun;
    uart_client hmi;
    uart_hmi_rev_bfun hmi_bfun; // under hmi_lock, so that no callback meets another one's argument
    void *hmi_arg;
    std::atomic<u8> open_flag;
};

const zof_drv_uart_ops_t *drv_uart_t;

// Open ports by number. A slot is never emptied: a port is opened once and its threads live for the whole run.
static std::atomic<zof_drv_t *> uart_drvs_t[PORT_COUNT];

static std::mutex hmi_lock;

static u32 clamp(u32 v, u32 lo, u32 hi) {
    return v < lo ? lo : v > hi ? hi : v;
}

static uart_context *context_of(zof_drv_t *handle) {
    return handle && handle->type == ZOF_DRV_UART ? (uart_context *)handle->context : nullptr;
}

static bool port_stands(const zof_drv_t *handle) {
    return uart_drvs_t[handle->port] == handle;
}

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
    if (port >= PORT_COUNT) {
        zof_printf("serial port %d: there are only ports below %d", port, PORT_COUNT);
        return -1;
    }
    return port < 0 ? -1 : port;
}

static bool fits(uart_client *client, u32 size) {
    return size <= client->buf->size - pipo_buf_get_pi_len(client->buf);
}

static bool store(uart_client *client, const u8 *data, u32 size) {
    zof_lock guard(client->buf->mutex);
    client->pieces++;
    return pipo_buff_set_pi(client->buf, data, size) == 0;
}

// A piece that does not fit is lost whole. A peer that never falls silent would fill the log with that, so the losses
// are added up and logged at most once a second.
static void feed(uart_client *client, const zof_drv_t *handle, const u8 *data, u32 size) {
    const u32 now = zof_sys_time_ms();
    const bool tell = !client->reported || now - client->lost_said >= TELL_MS;
    if (!(fits(client, size) || tell) || !store(client, data, size)) {
        client->lost += size;
        if (tell) {
            zof_printf("serial port %d: receive buffer full; %u bytes are lost", handle->port, client->lost);
            client->reported = true;
            client->lost_said = now;
            client->lost = 0;
        }
    }
    zof_sem_release(client->sem);
}

// A client that is blocked by the graphics thread gets a second to take what it has. While the reader waits, the line's
// own buffer fills, and a peer with flow control stops sending. A client that waits for a silence takes the pause for
// one.
static void feed_waiting(uart_client *client, const zof_drv_t *handle, const u8 *data, u32 size) {
    const u32 start = zof_sys_time_ms();
    while (!fits(client, size) && zof_sys_time_ms() - start < ROOM_WAIT_MS) {
        zof_delay(1);
    }
    feed(client, handle, data, size);
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
    while (port_stands(handle)) {
        const s32 n = zof_drv_uart_recive(handle, buf, ctx->buf_len);
        if (n <= 0) {
            zof_delay(1);
            continue;
        }
        if (ctx->hmi.run && ctx->open_flag) {
            feed_waiting(&ctx->hmi, handle, buf, (u32)n);
        }
        if (ctx->ui.run && ctx->ui_bfun) {
            feed_waiting(&ctx->ui, handle, buf, (u32)n);
        }
    }
    zof_free(buf);
    ctx->buf_len = 0;
}

static u32 pieces_of(uart_client *client) {
    zof_lock guard(client->buf->mutex);
    return client->pieces;
}

// Returns what has arrived when the peer falls silent. Null when a piece arrives between the silence and the switch: it
// would be cut from the rest of its frame, so the message is not over.
static pipo_half *message_take(uart_client *client, uart_context *ctx) {
    u32 pieces;
    zof_sem_take(client->sem, 0);
    do {
        pieces = pieces_of(client);
    } while (zof_sem_take(client->sem, ctx->timeout) == 0);
    zof_lock guard(client->buf->mutex);
    return client->pieces == pieces ? pipo_buff_get_pi_and_switch(client->buf) : nullptr;
}

static void hmi_deliver(uart_context *ctx, u8 *data, u32 size) {
    uart_hmi_rev_bfun fun;
    void *arg;
    {
        std::lock_guard guard(hmi_lock);
        fun = ctx->hmi_bfun;
        arg = ctx->hmi_arg;
    }
    if (fun) {
        fun(data, size, arg);
    }
}

// Delivers each piece as it arrives, after the tail that the callback kept. If a tail is still there when the line has
// been silent for the time-out, it is delivered once more, alone.
static void zof_uart_hmi_recive_data_th(void *arg) {
    auto *handle = (zof_drv_t *)arg;
    auto *ctx = (uart_context *)handle->context;
    bool tail = false;
    while (port_stands(handle)) {
        const bool silent = zof_sem_take(ctx->hmi.sem, tail ? ctx->timeout.load() : 0) != 0;
        if (!silent && pipo_buf_get_pi_len(ctx->hmi.buf) == 0) {
            continue; // its bytes were delivered with the last piece; a switch would lose the tail kept since
        }
        pipo_half *half = pipo_buff_get_pi_and_switch(ctx->hmi.buf);
        if (half->len + half->t_len) {
            hmi_deliver(ctx, half->read, half->len + half->t_len);
        }
        tail = !silent;
    }
}

// The register link's client holds the graphics lock around its callback, so that frames may touch controls. What
// arrives while it waits for the lock belongs to the next message, so the buffer is switched before.
static void zof_uart_ui_recive_data_th(void *arg) {
    auto *handle = (zof_drv_t *)arg;
    auto *ctx = (uart_context *)handle->context;
    while (ctx->ui.run && port_stands(handle)) {
        pipo_half *half = nullptr;
        while (!half) {
            half = message_take(&ctx->ui, ctx);
        }
        zof_lock gui(dis_mutex);
        const uart_rev_bfun fun = ctx->ui_bfun;
        if (half->len && fun) {
            fun(half->data, half->len);
        }
    }
    ctx->ui_bfun = nullptr;
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
    zof_printf("zof uart port=%d speed_e=%d,bit_e=%d,parity_e=%d,stop_e=%d\n", cfg->port, cfg->speed_e, cfg->bit_e,
               cfg->parity_e, cfg->stop_e);
    const s32 port = resolve_port(cfg);
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
        context_of(handle)->open_flag = 1;
    }
    return handle;
}

s32 zof_drv_uart_close(zof_drv_t *handle) {
    uart_context *ctx = context_of(handle);
    if (!ctx) {
        return -1;
    }
    ctx->ui_bfun = nullptr;
    pipo_buf_clear(ctx->ui.buf);
    ctx->open_flag = 0;
    pipo_buf_clear(ctx->hmi.buf);
    return 0;
}

s32 zof_drv_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    if (!context_of(handle) || !data || !drv_uart_t || !drv_uart_t->send) {
        return -1;
    }
    return drv_uart_t->send(handle, data, size);
}

s32 zof_drv_uart_recive(zof_drv_t *handle, u8 *buffer, u32 size) {
    if (!context_of(handle) || !buffer || !drv_uart_t || !drv_uart_t->receive) {
        return 0;
    }
    return drv_uart_t->receive(handle, buffer, size);
}

s32 zof_drv_uart_set_cfg(zof_drv_t *handle, u32 speed, u32 bit, u32 parity, u32 stop) {
    if (!context_of(handle) || !drv_uart_t || !drv_uart_t->set_cfg) {
        return -1;
    }
    zof_printf("uart%d modify speed=%d,bit=%d,parity=%d,stop=%d\n", handle->port, speed, bit, parity, stop);
    const zof_uart_cfg_t cfg = {
        .win_port = 0, .port = handle->port, .speed_e = speed, .bit_e = bit, .parity_e = parity, .stop_e = stop};
    return drv_uart_t->set_cfg(handle, &cfg);
}

void zof_drv_uart_rev_set_timeout(zof_drv_t *handle, u32 ms) {
    uart_context *ctx = context_of(handle);
    if (ctx) {
        ctx->timeout = (u16)clamp(ms, TIMEOUT_MIN, TIMEOUT_MAX);
    }
}

// Creates buffer, semaphore and thread of a client at its first registration. Returns 0 or -1. What was created is kept
// for the next attempt.
static s32 client_start(uart_client *client, zof_drv_t *handle, u32 size, u32 t_size, const char *name,
                        void (*body)(void *), u32 stack) {
    if (client->thread) {
        return 0;
    }
    uart_context *ctx = context_of(handle);
    client->buf = client->buf ? client->buf : pipo_buff_create(clamp(size, CLIENT_BUF_MIN, CLIENT_BUF_MAX), t_size);
    client->sem = client->sem ? client->sem : zof_sem_create(0);
    ctx->timeout = (u16)clamp(ctx->timeout, TIMEOUT_MIN, TIMEOUT_MAX);
    if (!client->buf || !client->sem) {
        return -1;
    }
    client->run = 1; // before the thread, which reads it
    client->thread = zof_thread_create(name, body, handle, stack, 2);
    if (!client->thread) {
        zof_printf("serial port %d: the thread \"%s\" cannot be started", handle->port, name);
        client->run = 0;
        return -1;
    }
    return 0;
}

s32 zof_drv_uart_rev_set_bfun(zof_drv_t *handle, uart_rev_bfun fun, u32 size) {
    uart_context *ctx = context_of(handle);
    if (!ctx || client_start(&ctx->ui, handle, size, 0, "zof uart ui", zof_uart_ui_recive_data_th, 102400) != 0) {
        return -1;
    }
    ctx->ui_bfun = fun;
    return 0;
}

s32 zof_drv_uart_hmi_rev_set_bfun(zof_drv_t *handle, uart_hmi_rev_bfun fun, void *arg, u32 size, u32 t_size) {
    uart_context *ctx = context_of(handle);
    if (!ctx ||
        client_start(&ctx->hmi, handle, size, t_size, "zof uart hmi", zof_uart_hmi_recive_data_th, 20480) != 0) {
        return -1;
    }
    std::lock_guard guard(hmi_lock);
    ctx->hmi_bfun = fun;
    ctx->hmi_arg = arg;
    return 0;
}

s32 zof_drv_uart_hmi_tbuf_set(zof_drv_t *handle, const u8 *data, u32 size) {
    uart_context *ctx = context_of(handle);
    return ctx ? pipo_buff_set_pi_topbuf(ctx->hmi.buf, data, size) : -1;
}
