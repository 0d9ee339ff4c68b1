// The register link to the controller board: the image of registers and the frames that update it. Everything here runs
// under dis_mutex: sending on the main thread, received frames on the link's client thread.
#ifndef ZOF_HW_UART_H
#define ZOF_HW_UART_H

#include "hardware/uart/zof_hw_map.h"
#include "zof.h"

ZOF_C_BEGIN

extern zof_drv_t *drv_uart; // the open port, or null

// Callbacks for what the board sends. They run under dis_mutex; members may be null.
typedef struct {
    void (*write)(u16 addr, u16 value); // a register was written; `value` is in the range of its row
    void (*word)(u16 addr);             // a word was stored in the image, before `write` of its frame
    void (*delivered)(void);            // all bytes of one delivery have been handled
} zof_hw_client_t;
// Sets the client, which must stay valid. Call it before zof_hw_init.
void zof_hw_client_set(const zof_hw_client_t *client);

// Counters of received data since the start.
typedef struct {
    u32 frames;
    u32 last_ms; // time of the last frame, from zof_sys_time_ms
    u32 skipped; // bytes that were not part of a frame
} zof_link_count_t;
extern zof_link_count_t g_link;

// Called after each change of the port's state and once at the start, also of a replay. It runs under dis_mutex and may
// send: what it sends comes first on a line that has just been opened.
typedef void (*zof_link_state_fun)(const zof_uart_info_t *info);
void zof_link_on_change(zof_link_state_fun fun); // call it before zof_hw_init; null removes the callback

// Starts the hardware of the box, or the replay; called once, after the first view is shown. A port that cannot be
// opened is not fatal.
void zof_hw_init(void);
void zof_uart_init(void);

// Access the image of registers without sending anything. Return 0 or the value, or -1 for an address above REG_MAX.
s32 zof_reg_set(u16 addr, u16 data);
s32 zof_reg_get(u16 addr);

// Sends up to 125 words of the image, starting at `addr`, in one report; further words are left out. Returns the result
// of the driver, or -1 if the address is above REG_MAX or there is no port.
s32 zof_reg_com_send(u16 addr, u16 len);
// Stores a value in the image and sends it. Returns as zof_reg_com_send does.
s32 zof_reg_report(u16 addr, u16 value);

// The port's receive callback: takes all frames out of the bytes and keeps an incomplete head for the next call.
void recive_data_handle(u8 *databuf, u32 datalen);
// Executes a complete frame of at least 6 bytes. Returns 0, also for an unknown command, or -1 for an address above
// REG_MAX or null.
s32 zof_comm_handle(u8 *data);
// Passes a register that the board wrote to the client: `data[0]`, limited to the range of its row. Registers that the
// board does not write are ignored.
void zof_reg_set_user(u16 addr, u16 *data, u8 datalen);
// Passes to the client that a word was stored in the image.
void zof_reg_take_word(u16 addr);
// Mark the beginning and the end of the data that the line delivered at once; commits of the rail table are deferred to
// the end.
void zof_reg_delivery_begin(void);
void zof_reg_delivery_end(void);

ZOF_C_END

#endif
