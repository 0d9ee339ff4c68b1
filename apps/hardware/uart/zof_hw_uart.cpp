// The register link: both ends share an image of 16-bit registers, which either side updates with frames without
// checksum, acknowledgement or repetition. The program never polls; the board pushes its values.
#include <stdlib.h>
#include <string.h>

#include "hardware/uart/zof_hw_port.h"
#include "hardware/uart/zof_hw_replay.h"
#include "hardware/uart/zof_hw_trace.h"
#include "hardware/uart/zof_hw_uart.h"

enum { RX_SIZE = 2048, FRAME_MIN = 6, REPORT_WORDS_MAX = 125, REPORT_SIZE = 257 };
enum { ADDR_BYTES = 3, WORDS_MAX = (255 - ADDR_BYTES) / 2 }; // per write frame, limited by its length byte
enum { KEPT_MS = 1000 };

// The image, with room for a burst that starts at the last valid address.
static u16 ctrlreg[(u32)REG_MAX + WORDS_MAX + 1];

// Bytes kept from earlier messages, joined with the new data during analysis; the size is what the driver delivers at
// once.
static u8 RX_HAND_BUF[RX_SIZE + FRAME_MIN];
static u16 last_data_num; // bytes kept from the last message

zof_drv_t *drv_uart;
zof_link_count_t g_link;
static zof_link_state_fun link_state_fun;

static void bytes_skip(const u8 *data, u32 size) {
    g_link.skipped += size;
    zof_trace_skipped(data, size);
}

static void kept_drop() {
    bytes_skip(RX_HAND_BUF, last_data_num);
    last_data_num = 0;
}

static void link_changed(const zof_uart_info_t *info) {
    char text[128];
    zof_trace_remark(info->path, zof_drv_uart_state_text(info, text, sizeof(text)));
    kept_drop();
    if (link_state_fun) {
        link_state_fun(info);
    }
}

void zof_link_on_change(zof_link_state_fun fun) {
    link_state_fun = fun;
}

static void trace_init() {
    const char *where = getenv("ZOF_LINK_TRACE");
    if (zof_replay_reads(where)) {
        zof_printf("ZOF_LINK_TRACE: %s is being replayed", where);
        where = nullptr;
    }
    zof_trace_start(where);
}

static void replay_init() {
    zof_uart_info_t info;
    if (zof_box_port_info(&info) == 0) {
        link_changed(&info);
    }
    zof_replay_start(recive_data_handle, RX_SIZE);
}

void zof_uart_init(void) {
    trace_init();
    if (zof_replay_file()) {
        replay_init();
        return;
    }
    zof_uart_cfg_t cfg = {
        .win_port = -1,
        .port = ZOF_BOX_PORT,
        .speed_e = UART_SPEED_115200,
        .bit_e = UART_BIT_8,
        .parity_e = UART_PARITY_NONE,
        .stop_e = UART_STOP_1,
        .path = zof_box_port(),
    };
    drv_uart = zof_drv_uart_open(&cfg);
    if (drv_uart) {
        zof_drv_uart_state_set_bfun(drv_uart, link_changed);
        zof_drv_uart_rev_set_bfun(drv_uart, recive_data_handle, RX_SIZE);
    }
}

void zof_hw_init(void) {
    zof_uart_init();
}

s32 zof_reg_set(u16 addr, u16 data) {
    if (addr > REG_MAX) {
        return -1;
    }
    ctrlreg[addr] = data;
    return 0;
}

s32 zof_reg_get(u16 addr) {
    return addr > REG_MAX ? -1 : ctrlreg[addr];
}

// Sends a frame to the board and traces it. Every frame passes here.
static s32 frame_send(const u8 *frame, u32 size) {
    const s32 sent = zof_replay_file() ? (s32)size : zof_drv_uart_send(drv_uart, frame, size);
    zof_trace_sent(frame, size, sent >= 0);
    return sent;
}

s32 zof_reg_com_send(u16 addr, u16 len) {
    if (addr > REG_MAX) {
        return -1;
    }
    const u8 count = (u8)(len > REPORT_WORDS_MAX ? (u16)REPORT_WORDS_MAX : len); // the report has room for no more
    u8 frame[REPORT_SIZE] = {REG_HEAD0, REG_HEAD1, (u8)(2 * (count + 2)), REG_CMD_READ, (u8)(addr >> 8),
                             (u8)addr,  count};
    u32 size = 7;
    for (u32 k = 0; k < count; k++) {
        frame[size++] = (u8)(ctrlreg[addr + k] >> 8);
        frame[size++] = (u8)ctrlreg[addr + k];
    }
    return frame_send(frame, size);
}

s32 zof_reg_report(u16 addr, u16 value) {
    return zof_reg_set(addr, value) == 0 ? zof_reg_com_send(addr, 1) : -1;
}

// The handler gets the frame's base address for every word: a frame of several words runs the handler of the first
// register once per word, and only stores the others.
static s32 zof_reg_s_set(u16 addr, const u8 *data, u8 len) {
    for (u32 k = 0; k < len; k++) {
        ctrlreg[addr + k] = (u16)(data[2 * k] << 8 | data[2 * k + 1]);
        zof_reg_take_word((u16)(addr + k));
        zof_reg_set_user(addr, &ctrlreg[addr + k], 1);
    }
    return 0;
}

// Returns the number of words in a write frame with this length byte.
static u8 words_in(u8 len) {
    return len > ADDR_BYTES ? (u8)((len - ADDR_BYTES) / 2) : 0;
}

// Returns true if a range contains a request, which only the panel writes. An answer to a read of it would be the
// request itself: a byte garbled on the line can turn a read of a reading into a read of a request, which must not turn
// the output on.
static bool has_request(u16 addr, u8 count) {
    for (u32 k = 0; k < count; k++) {
        const reg_row_t *row = reg_find(addr + k);
        if (row && row->writer == REG_BY_PANEL) {
            return true;
        }
    }
    return false;
}

s32 zof_comm_handle(u8 *data) {
    if (!data) {
        return -1;
    }
    const u16 addr = (u16)(data[4] << 8 | data[5]);
    if (addr > REG_MAX) {
        return -1;
    }
    if (data[3] == REG_CMD_WRITE) {
        return zof_reg_s_set(addr, data + 6, words_in(data[2]));
    }
    if (data[3] == REG_CMD_READ && data[2] > ADDR_BYTES && !has_request(addr, data[6])) {
        zof_reg_com_send(addr, data[6]);
    }
    return 0;
}

// Returns true if a complete frame of a valid register begins here. At least FRAME_MIN bytes are available, and `rest`
// in total.
static bool frame_begins(const u8 *data, u32 rest) {
    return data[0] == REG_HEAD0 && data[1] == REG_HEAD1 && data[2] + 3u <= rest && (data[4] << 8 | data[5]) <= REG_MAX;
}

// Runs the frames in the buffer. Returns the number of bytes consumed.
static u32 frames_take(u32 n) {
    u32 i = 0, done = 0; // `done`: the end of the last frame
    while (i + FRAME_MIN <= n) {
        u8 *frame = RX_HAND_BUF + i;
        if (!frame_begins(frame, n - i)) {
            i++;
            continue;
        }
        const u32 size = frame[2] + 3u;
        bytes_skip(RX_HAND_BUF + done, i - done);
        zof_trace_received(frame, size);
        g_link.frames++;
        g_link.last_ms = zof_sys_time_ms();
        zof_comm_handle(frame);
        i = done = i + size;
    }
    bytes_skip(RX_HAND_BUF + done, i - done);
    return i;
}

// An incomplete frame is skipped byte by byte, and only the last bytes after the scan are kept: the driver delivers
// whole bursts, so a frame that is cut after its fifth byte is broken. Kept bytes are not joined with a message that
// arrives more than a second later, because they would belong to another frame.
void recive_data_handle(u8 *databuf, u32 datalen) {
    static u32 last_ms; // time of the last message
    if (!databuf) {
        return;
    }
    const u32 now = zof_sys_time_ms();
    if (now - last_ms > KEPT_MS) {
        kept_drop();
    }
    last_ms = now;
    const u32 room = (u32)sizeof(RX_HAND_BUF) - last_data_num;
    const u32 fresh = datalen > room ? room : datalen;
    memcpy(RX_HAND_BUF + last_data_num, databuf, fresh);
    const u32 n = last_data_num + fresh;
    zof_reg_delivery_begin();
    const u32 done = frames_take(n);
    last_data_num = (u16)(n - done);
    memmove(RX_HAND_BUF, RX_HAND_BUF + done, last_data_num);
    zof_reg_delivery_end();
    bytes_skip(databuf + fresh, datalen - fresh);
}
