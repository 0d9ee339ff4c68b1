// The serial port table of the desktop: speed numbers become rates here, bytes go to the host's functions at once.
#include "drv/zof_drv_uart.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

enum { BAUD_MAX = 10000000 };

static constexpr u32 speeds[] = {2400,   4800,   9600,   19200,  38400,   57600,   115200, 230400,
                                 460800, 500000, 576000, 921600, 1000000, 1152000, 1500000};
static_assert(sizeof(speeds) / sizeof(speeds[0]) == UART_SPEED_COUNT);

// Numbers above the enumeration are literal rates. Returns false for invalid settings.
static bool line_settings(const zof_uart_cfg_t *cfg, zof_host_line_t *line) {
    const u32 baud = cfg->speed_e < UART_SPEED_COUNT ? speeds[cfg->speed_e] : cfg->speed_e;
    if (baud > BAUD_MAX || cfg->bit_e > UART_BIT_8 || cfg->parity_e > UART_PARITY_EVEN || cfg->stop_e > UART_STOP_2) {
        zof_printf("serial port %d: settings speed=%u,bit=%u,parity=%u,stop=%u are out of range", cfg->port,
                   cfg->speed_e, cfg->bit_e, cfg->parity_e, cfg->stop_e);
        return false;
    }
    *line = {baud, (u8)(cfg->bit_e == UART_BIT_7 ? 7 : 8), (u8)cfg->parity_e, (u8)(cfg->stop_e == UART_STOP_2 ? 2 : 1)};
    return true;
}

static zof_drv_t *win_uart_open(zof_uart_cfg_t *cfg) {
    zof_host_line_t line;
    const char *path = cfg->path ? cfg->path : zof_drv_uart_port_path(cfg->port);
    return line_settings(cfg, &line) ? zof_host_serial_open(cfg->port, path, &line) : nullptr;
}

static s32 win_uart_set_cfg(zof_drv_t *handle, const zof_uart_cfg_t *cfg) {
    zof_host_line_t line;
    return line_settings(cfg, &line) ? zof_host_serial_set(handle, &line) : -1;
}

void win_uart_init(void) {
    static constexpr zof_drv_uart_ops_t ops = {
        .open = win_uart_open,
        .set_cfg = win_uart_set_cfg,
        .send = win_uart_send,
        .receive = win_uart_receive,
        .reserved = {},
        .close = win_uart_close,
        .info = win_uart_info,
        .path_set = win_uart_path_set,
    };
    drv_uart_t = &ops;
}
