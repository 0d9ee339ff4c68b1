// Ping-pong buffer: one thread fills a half while another one works on the other. Every function takes the buffer's own
// lock, so any thread may call it; only one thread, the client, may switch. For null the result is -1, null or 0.
#ifndef ZOF_PIPO_BUFF_H
#define ZOF_PIPO_BUFF_H

#include "drv/zof_drv.h"

ZOF_C_BEGIN

typedef struct {
    u8 *base;  // the allocation, t_size + size bytes
    u8 *data;  // base + t_size: where received bytes start
    u8 *read;  // where a reader starts: data, or data minus the tail
    u32 len;   // bytes in this half
    u32 t_len; // bytes of tail in front of data
} pipo_half;

typedef struct {
    pipo_half half[2];
    u32 size;         // data bytes of each half
    u32 t_size;       // room for a tail in front of them
    pipo_half *cur;   // being written
    pipo_half *other; // with the client
    zof_mutex_t mutex;
} pipo_buff;

// Creates a buffer; null for size 0 or without memory. pipo_buff_delete releases it when no thread uses it any more.
pipo_buff *pipo_buff_create(u32 size, u32 t_size);
s32 pipo_buff_delete(pipo_buff *buffer); // 0

// Appends to the current half. Returns 0, or -1 with a log line when it does not fit as a whole; nothing is stored
// then.
s32 pipo_buff_set_pi(pipo_buff *buffer, const u8 *data, u32 size);

// Puts bytes right before the current half's data and replaces any tail there. Returns 0, or -1 for size 0 or, with a
// log line, for more than t_size.
s32 pipo_buff_set_pi_topbuf(pipo_buff *buffer, const u8 *data, u32 size);

// Empties the other half, makes it the current one and returns the previous one: t_len + len bytes from `read` on. It
// belongs to the client until its next switch.
pipo_half *pipo_buff_get_pi_and_switch(pipo_buff *buffer);

// Returns the data bytes in the current half, without its tail.
u32 pipo_buf_get_pi_len(pipo_buff *buffer);

// Empties the current half and its tail. Returns 0.
s32 pipo_buf_clear(pipo_buff *buffer);

ZOF_C_END

#endif
