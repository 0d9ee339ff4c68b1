// The client threads of a serial port, each fed through a ping-pong buffer. The register link's client gets messages,
// which end with a silence of `timeout` ms, and the changes of the port's state; the host link's gets every piece at
// once.
#include <mutex>

#include "drv/zof_drv_uart_in.h"
#include "drv/zof_lock.h"
#include "zof_lib/zof_stdio.h"

enum { CLIENT_BUF_MIN = 2048, CLIENT_BUF_MAX = 102400 };
enum { TIMEOUT_MIN = 5, TIMEOUT_MAX = 1000, TELL_MS = 1000, ROOM_WAIT_MS = 1000 };

static std::mutex hmi_lock;

static u32 clamp(u32 v, u32 lo, u32 hi) {
    return v < lo ? lo : v > hi ? hi : v;
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

// What was received and not taken belongs to a line that has ended. Under the buffer's lock together with the flag, so
// that the client never takes old bytes for new ones.
void uart_clients_change(zof_drv_t *handle) {
    auto *ctx = (uart_context *)handle->context;
    if (!ctx->ui.run) {
        return;
    }
    {
        zof_lock guard(ctx->ui.buf->mutex);
        ctx->changed = true;
        pipo_buf_clear(ctx->ui.buf);
    }
    zof_sem_release(ctx->ui.sem);
}

void uart_clients_feed(zof_drv_t *handle, const u8 *data, u32 size) {
    auto *ctx = (uart_context *)handle->context;
    if (ctx->hmi.run && ctx->open_flag) {
        feed_waiting(&ctx->hmi, handle, data, size);
    }
    if (ctx->ui.run && ctx->ui_bfun) {
        feed_waiting(&ctx->ui, handle, data, size);
    }
}

static u32 pieces_of(uart_client *client) {
    zof_lock guard(client->buf->mutex);
    return client->pieces;
}

// Returns what has arrived when the peer falls silent. Null when a piece arrives between the silence and the switch: it
// would be cut from the rest of its frame, so the message is not over. Null also as soon as the port's state changes.
static pipo_half *message_take(uart_client *client, uart_context *ctx) {
    u32 pieces;
    zof_sem_take(client->sem, 0);
    do {
        pieces = pieces_of(client);
    } while (!ctx->changed && zof_sem_take(client->sem, ctx->timeout) == 0);
    zof_lock guard(client->buf->mutex);
    return client->pieces == pieces && !ctx->changed ? pipo_buff_get_pi_and_switch(client->buf) : nullptr;
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
    while (uart_port_stands(handle)) {
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

static void state_deliver(zof_drv_t *handle, uart_context *ctx) {
    zof_uart_info_t info = {};
    ctx->changed = false; // first: what changes from here on is passed by the next call
    const uart_state_bfun fun = ctx->state_bfun;
    if (fun && zof_drv_uart_info_get(handle, &info) == 0) {
        fun(&info);
    }
}

// The register link's client holds the graphics lock around its callbacks, so that frames may touch controls. What
// arrives while it waits for the lock belongs to the next message, so the buffer is switched before. A message is old
// if the state has changed meanwhile.
static void zof_uart_ui_recive_data_th(void *arg) {
    auto *handle = (zof_drv_t *)arg;
    auto *ctx = (uart_context *)handle->context;
    while (ctx->ui.run && uart_port_stands(handle)) {
        pipo_half *half = nullptr;
        while (!half && !ctx->changed) {
            half = message_take(&ctx->ui, ctx);
        }
        zof_lock gui(dis_mutex);
        if (ctx->changed) {
            state_deliver(handle, ctx);
            continue;
        }
        const uart_rev_bfun fun = ctx->ui_bfun;
        if (half->len && fun) {
            fun(half->data, half->len);
        }
    }
    ctx->ui_bfun = nullptr;
}

void uart_clients_silence(zof_drv_t *handle) {
    auto *ctx = (uart_context *)handle->context;
    ctx->ui_bfun = nullptr;
    ctx->state_bfun = nullptr;
    pipo_buf_clear(ctx->ui.buf);
    ctx->open_flag = 0;
    pipo_buf_clear(ctx->hmi.buf);
}

void zof_drv_uart_rev_set_timeout(zof_drv_t *handle, u32 ms) {
    uart_context *ctx = uart_context_of(handle);
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
    uart_context *ctx = uart_context_of(handle);
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
    uart_context *ctx = uart_context_of(handle);
    if (!ctx || client_start(&ctx->ui, handle, size, 0, "zof uart ui", zof_uart_ui_recive_data_th, 102400) != 0) {
        return -1;
    }
    ctx->ui_bfun = fun;
    return 0;
}

s32 zof_drv_uart_state_set_bfun(zof_drv_t *handle, uart_state_bfun fun) {
    uart_context *ctx = uart_context_of(handle);
    if (!ctx || client_start(&ctx->ui, handle, 0, 0, "zof uart ui", zof_uart_ui_recive_data_th, 102400) != 0) {
        return -1;
    }
    ctx->state_bfun = fun;
    ctx->changed = true;
    zof_sem_release(ctx->ui.sem);
    return 0;
}

s32 zof_drv_uart_hmi_rev_set_bfun(zof_drv_t *handle, uart_hmi_rev_bfun fun, void *arg, u32 size, u32 t_size) {
    uart_context *ctx = uart_context_of(handle);
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
    uart_context *ctx = uart_context_of(handle);
    return ctx ? pipo_buff_set_pi_topbuf(ctx->hmi.buf, data, size) : -1;
}
