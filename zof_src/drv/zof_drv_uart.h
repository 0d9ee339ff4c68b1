// Serial ports: opening, the reader and client threads, sending. The port implements the lines themselves.
#ifndef ZOF_DRV_UART_H
#define ZOF_DRV_UART_H

#include "drv/zof_drv.h"

ZOF_C_BEGIN

typedef enum {
    UART_SPEED_2400,
    UART_SPEED_4800,
    UART_SPEED_9600,
    UART_SPEED_19200,
    UART_SPEED_38400,
    UART_SPEED_57600,
    UART_SPEED_115200,
    UART_SPEED_230400,
    UART_SPEED_460800,
    UART_SPEED_500000,
    UART_SPEED_576000,
    UART_SPEED_921600,
    UART_SPEED_1000000,
    UART_SPEED_1152000,
    UART_SPEED_1500000,
    UART_SPEED_COUNT
} zof_uart_speed_e;
typedef enum { UART_BIT_7, UART_BIT_8 } zof_uart_bit_e;
typedef enum { UART_PARITY_NONE, UART_PARITY_ODD, UART_PARITY_EVEN } zof_uart_parity_e;
typedef enum { UART_STOP_1, UART_STOP_2 } zof_uart_stop_e;

typedef struct {
    s32 win_port;     // desktop port number; above 0 it overrides `port`
    s32 port;         // 0 to 255; -1: the hardware default
    u32 speed_e;      // zof_uart_speed_e; numbers above the enumeration are literal rates, up to 10,000,000 baud
    u32 bit_e;        // zof_uart_bit_e
    u32 parity_e;     // zof_uart_parity_e
    u32 stop_e;       // zof_uart_stop_e
    const char *path; // of a port that is not open yet; null: the port's own; empty: none, until one is set
} zof_uart_cfg_t;

typedef enum {
    UART_STATE_NOT_SOUGHT, // not looked for: there is no path yet; in a list: nothing prevents opening it
    UART_STATE_OPEN,
    UART_STATE_MISSING,  // there is no such device
    UART_STATE_NO_RIGHT, // this user may not open it; `group` may, unless it is empty
    UART_STATE_HELD,     // by another program: `holder` and `holder_id`, as far as the system names it
    UART_STATE_GONE,     // it was open, and the device has vanished
    UART_STATE_ERROR,    // the reason is in `error`
} zof_uart_state_e;

// What is known of a port. Texts are empty where nothing is known.
typedef struct {
    u32 state;        // zof_uart_state_e
    u32 changes;      // grows with each change of anything here but `bytes`
    u32 opened;       // how often it has been opened
    u32 holder_id;    // the number of the process that holds it; 0: unknown
    u64 bytes;        // received since the start
    char path[256];   // as configured
    char adapter[64]; // the name of the adapter behind it
    char holder[32];  // the name of the program that holds it
    char group[32];   // the group whose members may open it
    char error[96];
} zof_uart_info_t;

// What a port supplies. A handle's first member is zof_drv_t. Handles passed to it are its own and not null.
typedef struct {
    zof_drv_t *(*open)(zof_uart_cfg_t *cfg);                      // MANDATORY: opens cfg->port; null on failure
    s32 (*set_cfg)(zof_drv_t *handle, const zof_uart_cfg_t *cfg); // OPTIONAL: 0, or -1 with the line unchanged
    s32 (*send)(zof_drv_t *handle, const u8 *data, u32 size);     // MANDATORY: bytes sent or -1; never waits long
    s32 (*receive)(zof_drv_t *handle, u8 *buffer, u32 size);      // MANDATORY: blocks; bytes, 0 at a change
    void *reserved[2];
    s32 (*close)(zof_drv_t *handle);                       // OPTIONAL: for a port that was opened and cannot be used
    void (*info)(zof_drv_t *handle, zof_uart_info_t *out); // OPTIONAL: all but `bytes`; any thread
    s32 (*path_set)(zof_drv_t *handle, const char *path);  // OPTIONAL: 0 or -1; any thread
} zof_drv_uart_ops_t;

// Set by the port before the first open, and never again.
extern const zof_drv_uart_ops_t *drv_uart_t;

// `data` may be written and is valid until the callback returns; `size` is above 0.
//
// The register link: a message, which is all that arrived up to a silence of the receive time-out, or several of them
// if the lock was busy. Thread "zof uart ui", dis_mutex held.
typedef void (*uart_rev_bfun)(u8 *data, u32 size);
// The host link: each piece as it arrives, after the tail that the last call kept. If a tail is still kept when the
// line has been silent for the receive time-out, it is passed once more, alone: it may never be completed. Thread "zof
// uart hmi", no lock held.
typedef void (*uart_hmi_rev_bfun)(u8 *data, u32 size, void *arg);
// The state of a port, as it is when this is called. Several changes may be merged into one call; `opened` then says
// whether the port has been opened in between. What was received before a change is delivered before this call or
// never. On the thread of the register link's client, dis_mutex held, so that the callback may send.
typedef void (*uart_state_bfun)(const zof_uart_info_t *info);

// Opens a port and starts its reader thread, or returns the open port's handle with the new line settings applied; its
// threads and clients are kept. The number of a newly opened port is written to `cfg->port`. Null without a port
// number, for one above 255, and for settings out of range (an open line stays as it was). A device that is missing,
// busy or forbidden is opened once it is available; zof_drv_uart_info_get returns how it stands. The handle lives
// forever. Opening and the registrations below belong to one thread, the main one.
zof_drv_t *zof_drv_uart_open(zof_uart_cfg_t *cfg);

// Silences both clients; line, threads and handle stay for a later open, after which the register link's callback must
// be set again. Returns 0, or -1 for an invalid handle.
s32 zof_drv_uart_close(zof_drv_t *handle);

// Copies what is known of a port. Any thread. Returns 0, or -1 for an invalid handle or a port without this function.
s32 zof_drv_uart_info_get(zof_drv_t *handle, zof_uart_info_t *out);

// Writes the state of a port in words, such as "held by minicom (process 4711)". Returns `out`.
const char *zof_drv_uart_state_text(const zof_uart_info_t *info, char *out, size_t size);

// Lists the serial ports of the system, at most `most`, in the order of their names, without opening any: one that
// another program has open counts as held. Returns how many were written. Any thread, also before the drivers are
// started.
u32 zof_drv_uart_list(zof_uart_info_t *out, u32 most);

// Sets the path of a port that is opened without one, in place of the environment's; copied. Before the port is opened.
// Returns 0, or -1 for an invalid port and for a path that is empty or too long. The second returns it, or null.
s32 zof_drv_uart_port_path_set(s32 port, const char *path);
const char *zof_drv_uart_port_path(s32 port);

// Moves a port to another path: the line is closed and the new one tried at once, by the reader thread; sends return -1
// until it is open. The same path is tried again, unless it is open. Empty: no line. Any thread, never waits. Returns
// 0, or -1: invalid handle, null, too long, or a port that cannot do it.
s32 zof_drv_uart_path_set(zof_drv_t *handle, const char *path);

// Sets the function that is called after each change of a port's state, and once for the state at this call. Null:
// none. Returns 0 or -1.
s32 zof_drv_uart_state_set_bfun(zof_drv_t *handle, uart_state_bfun fun);

// Sends bytes on the line at once; any thread, but senders of one port must not mix their frames: the panel's senders
// hold dis_mutex. A peer that does not read costs 50 ms once, not each time. Returns `size`, or -1: invalid handle, no
// device, no room.
s32 zof_drv_uart_send(zof_drv_t *handle, const u8 *data, u32 size);

// Waits for at least one byte; for the reader thread. Returns the bytes read, 0 for an invalid handle or after a change
// of the port's state.
s32 zof_drv_uart_recive(zof_drv_t *handle, u8 *buffer, u32 size);

// Changes the line settings, by the numbers of zof_uart_cfg_t. Returns 0, or -1 with the line unchanged.
s32 zof_drv_uart_set_cfg(zof_drv_t *handle, u32 speed, u32 bit, u32 parity, u32 stop);

// Sets the silence that ends a message, for all clients of the port: 5 to 1000 ms, clamped; the default is 5.
void zof_drv_uart_rev_set_timeout(zof_drv_t *handle, u32 ms);

// Sets the register link's client. The first call creates its buffer (`size` bytes, clamped to 2048..102400) and its
// thread; later calls only replace `fun`; null silences it. A piece that does not fit waits, at most a second, and the
// bytes after it stay in the line; then it is lost whole, which is logged at most once a second. Returns 0 or -1.
s32 zof_drv_uart_rev_set_bfun(zof_drv_t *handle, uart_rev_bfun fun, u32 size);

// Sets the host link's client in the same way, with `t_size` bytes of room for a tail before the data. `arg` stays the
// caller's.
s32 zof_drv_uart_hmi_rev_set_bfun(zof_drv_t *handle, uart_hmi_rev_bfun fun, void *arg, u32 size, u32 t_size);

// Keeps what the host link's callback could not use yet; it is put before its next message. Only the latest tail is
// kept. From inside the callback. Returns 0, or -1: invalid handle, no client, no data, more than `t_size`.
s32 zof_drv_uart_hmi_tbuf_set(zof_drv_t *handle, const u8 *data, u32 size);

ZOF_C_END

#endif
