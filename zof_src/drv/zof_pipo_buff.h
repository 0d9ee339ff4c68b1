// Ping-pong buffer: one thread fills a half while another works on the other one.
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
    u32 size;
    u32 t_size;
    pipo_half *cur;
    pipo_half *other;
    zof_mutex_t mutex;
} pipo_buff;

pipo_buff *pipo_buff_create(u32 size, u32 t_size);
s32 pipo_buff_delete(pipo_buff *buffer);
s32 pipo_buff_set_pi(pipo_buff *buffer, const u8 *data, u32 size);
s32 pipo_buff_set_pi_topbuf(pipo_buff *buffer, const u8 *data, u32 size);
pipo_half *pipo_buff_get_pi_and_switch(pipo_buff *buffer);
u32 pipo_buf_get_pi_len(pipo_buff *buffer);
s32 pipo_buf_clear(pipo_buff *buffer);

ZOF_C_END

#endif
