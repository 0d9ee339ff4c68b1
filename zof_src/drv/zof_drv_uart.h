// Serial ports: opening, the reader and client threads, sending. The lines themselves are a port's.
#ifndef ZOF_DRV_UART_H
#define ZOF_DRV_UART_H

#include "drv/zof_drv.h"

ZOF_C_BEGIN

typedef enum {
    UART_SPEED_2400, UART_SPEED_4800, UART_SPEED_9600, UART_SPEED_19200, UART_SPEED_38400,
    UART_SPEED_57600, UART_SPEED_115200, UART_SPEED_230400, UART_SPEED_460800, UART_SPEED_500000,
    UART_SPEED_576000, UART_SPEED_921600, UART_SPEED_1000000, UART_SPEED_1152000, UART_SPEED_1500000,
    UART_SPEED_COUNT
} zof_uart_speed_e;
typedef enum { UART_BIT_7, UART_BIT_8 } zof_uart_bit_e;
typedef enum { UART_PARITY_NONE, UART_PARITY_ODD, UART_PARITY_EVEN } zof_uart_parity_e;
typedef enum { UART_STOP_1, UART_STOP_2 } zof_uart_stop_e;

typedef struct {
    s32 win_port; // desktop port number; above 0 it overrides `port`
    s32 port;     // -1: the hardware default
    u32 speed_e;  // zof_uart_speed_e; numbers above the enumeration are literal rates
    u32 bit_e;
    u32 parity_e;
    u32 stop_e;
} zof_uart_cfg_t;

// What a port supplies. A handle's first member is zof_drv_t.
typedef struct {
    zof_drv_t *(*open)(zof_uart_cfg_t *cfg);                          // MANDATORY: null on failure
    s32 (*set_cfg)(zof_drv_t *handle, const zof_uart_cfg_t *cfg);     // OPTIONAL: 0 or -1
    s32 (*send)(zof_drv_t *handle, const u8 *data, u32 size);         // MANDATORY: bytes sent or -1
    s32 (*receive)(zof_drv_t *handle, u8 *buffer, u32 size);          // MANDATORY: blocks; bytes, 0 when gone
    void *reserved[2];
    s32 (*close)(zof_drv_t *handle);                                  // OPTIONAL
} zof_drv_uart_ops_t;

extern const zof_drv_uart_ops_t *drv_uart_t;

typedef void (*uart_rev_bfun)(u8 *data, u32 size);
typedef void (*uart_hmi_rev_bfun)(u8 *data, u32 size, void *arg);

zof_drv_t *zof_drv_uart_open(zof_uart_cfg_t *cfg);
s32 zof_drv_uart_close(zof_drv_t *handle);
s32 zof_drv_uart_send(zof_drv_t *handle, const u8 *data, u32 size);
s32 zof_drv_uart_recive(zof_drv_t *handle, u8 *buffer, u32 size);
s32 zof_drv_uart_set_cfg(zof_drv_t *handle, u32 speed, u32 bit, u32 parity, u32 stop);
void zof_drv_uart_rev_set_timeout(zof_drv_t *handle, u32 ms);
s32 zof_drv_uart_rev_set_bfun(zof_drv_t *handle, uart_rev_bfun fun, u32 size);
s32 zof_drv_uart_hmi_rev_set_bfun(zof_drv_t *handle, uart_hmi_rev_bfun fun, void *arg, u32 size, u32 t_size);
s32 zof_drv_uart_hmi_tbuf_set(zof_drv_t *handle, const u8 *data, u32 size);

ZOF_C_END

#endif
