// What the files of the serial ports share. C++ only.
#ifndef ZOF_DRV_UART_IN_H
#define ZOF_DRV_UART_IN_H

#include <atomic>

#include "drv/zof_drv_uart.h"
#include "drv/zof_pipo_buff.h"

enum { UART_PORT_COUNT = 256 };

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
    std::atomic<uart_state_bfun> state_bfun;
    std::atomic<bool> changed; // the state has changed, and state_bfun does not know
    u32 changes;               // as the port counts them; reader thread only
    std::atomic<u64> bytes;
    uart_client hmi;
    uart_hmi_rev_bfun hmi_bfun; // under hmi_lock, so that no callback meets another one's argument
    void *hmi_arg;
    std::atomic<u8> open_flag;
};

// Open ports by number. A slot is never emptied: a port is opened once and its threads live for the whole run.
extern std::atomic<zof_drv_t *> uart_drvs_t[UART_PORT_COUNT];

uart_context *uart_context_of(zof_drv_t *handle); // null for anything but a serial port
bool uart_port_stands(const zof_drv_t *handle);

// Reader thread. Passes received bytes, or a change of the port's state, to the clients.
void uart_clients_feed(zof_drv_t *handle, const u8 *data, u32 size);
void uart_clients_change(zof_drv_t *handle);

// Main thread. Removes the functions of the clients, and what they have not taken.
void uart_clients_silence(zof_drv_t *handle);

#endif
