// Ping-pong buffer. The reader of a line appends to the current half; the client swaps the halves and then owns the one
// it got until it swaps again, so its callback needs no lock.
#include <string.h>

#include "drv/zof_lock.h"
#include "drv/zof_pipo_buff.h"
#include "zof_lib/zof_stdio.h"

// Old bytes after `size` stay in the data area; `len` keeps them out of reach.
static void half_reset(pipo_buff *b, pipo_half *half) {
    half->read = half->data;
    half->len = 0;
    half->t_len = 0;
    memset(half->base, 0, b->size);
}

pipo_buff *pipo_buff_create(u32 size, u32 t_size) {
    auto *b = size ? (pipo_buff *)zof_malloc(sizeof(pipo_buff)) : nullptr;
    if (!b) {
        return nullptr;
    }
    b->size = size;
    b->t_size = t_size;
    b->mutex = zof_mutex_create();
    for (pipo_half &half : b->half) {
        half.base = (u8 *)zof_malloc((size_t)t_size + size);
        if (half.base) {
            half.data = half.read = half.base + t_size;
        }
    }
    if (!b->mutex || !b->half[0].base || !b->half[1].base) {
        pipo_buff_delete(b);
        return nullptr;
    }
    b->cur = &b->half[0];
    b->other = &b->half[1];
    return b;
}

s32 pipo_buff_delete(pipo_buff *b) {
    if (!b) {
        return -1;
    }
    {
        zof_lock guard(b->mutex);
        zof_free(b->half[0].base);
        zof_free(b->half[1].base);
    }
    zof_mutex_destory(b->mutex);
    zof_free(b);
    return 0;
}

s32 pipo_buff_set_pi(pipo_buff *b, const u8 *data, u32 size) {
    if (!b || !data) {
        return -1;
    }
    zof_lock guard(b->mutex);
    const u32 room = b->size - b->cur->len;
    if (size > room) {
        zof_printf("pi buf remaining %d, need to save %d, return fail\n", room, size);
        return -1;
    }
    memcpy(b->cur->data + b->cur->len, data, size);
    b->cur->len += size;
    return 0;
}

s32 pipo_buff_set_pi_topbuf(pipo_buff *b, const u8 *data, u32 size) {
    if (!b || !data || size == 0) {
        return -1;
    }
    zof_lock guard(b->mutex);
    if (size > b->t_size) {
        zof_printf("pi t_buf buf total %d, need to save %d, return fail\n", b->t_size, size);
        return -1;
    }
    b->cur->read = b->cur->data - size;
    b->cur->t_len = size;
    memcpy(b->cur->read, data, size);
    return 0;
}

pipo_half *pipo_buff_get_pi_and_switch(pipo_buff *b) {
    if (!b) {
        return nullptr;
    }
    zof_lock guard(b->mutex);
    pipo_half *full = b->cur;
    b->cur = b->other;
    b->other = full;
    half_reset(b, b->cur);
    return full;
}

u32 pipo_buf_get_pi_len(pipo_buff *b) {
    if (!b) {
        return 0;
    }
    zof_lock guard(b->mutex);
    return b->cur->len;
}

s32 pipo_buf_clear(pipo_buff *b) {
    if (!b) {
        return -1;
    }
    zof_lock guard(b->mutex);
    half_reset(b, b->cur);
    return 0;
}
