// A register link whose line is a function: what the panel sends goes to it.
#ifndef REGISTER_LINE_H
#define REGISTER_LINE_H

#include "hardware/uart/zof_hw_uart.h"

inline void register_line_open(s32 (*send)(zof_drv_t *, const u8 *data, u32 size)) {
    static zof_drv_uart_ops_t ops;
    static int context;
    static zof_drv_t handle = {.type = ZOF_DRV_UART, .port = 6, .context = &context};
    ops.send = send;
    drv_uart_t = &ops;
    drv_uart = &handle;
}

#endif
