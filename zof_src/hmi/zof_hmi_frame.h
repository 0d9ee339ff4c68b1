// Frames of the host protocol: head, length, operation code, payload and an optional CRC. Numbers are big-endian. The
// short form has one length byte, the long form two, marked by bit 7 of the first.
#ifndef ZOF_HMI_FRAME_H
#define ZOF_HMI_FRAME_H

#include "hmi/zof_hmi_cmd.h"

ZOF_C_BEGIN

enum { ZOF_HMI_OP_GET = 0x11, ZOF_HMI_OP_SET = 0x22 };
enum { ZOF_HMI_LEN_MAX = 0x7FFF, ZOF_HMI_SEND_HEAD = 5, ZOF_HMI_SEND_SIZE = 512, ZOF_HMI_SEND_GROWN = 4096 };

// The line that an analyser answers to. `send` sends a whole frame; any thread. `tail_set` keeps bytes for the start of
// the next delivery; receive thread. Both return -1 on failure.
typedef struct {
    s32 (*send)(const u8 *data, u32 size);
    s32 (*tail_set)(const u8 *data, u32 size);
} zof_hmi_line_t;

// The working state of one analyser; each belongs to one thread. `send_buf` keeps ZOF_HMI_SEND_HEAD bytes before
// `send_cursor` free for head, length and code, so that payload is never moved.
typedef struct {
    u8 head_fh, head_fl;
    u8 type_count;
    const zof_hmi_cmd_type_t *types;
    u32 param_size; // of each of the four records
    u8 crc_en;
    u8 resend_en; // writes and failed reads are acknowledged
    u8 *send_buf, *send_cursor;
    u16 send_size;
    void *type_param, *req_param, *value_param, *reply_param;
    const zof_hmi_line_t *line; // OPTIONAL: without one, answers are dropped
} zof_hmi_cmd_analys_t;

// The parts of a frame that zof_hmi_cmd_check_data has passed.
typedef struct {
    u32 len;   // the number in the length field
    u32 total; // bytes of the whole frame
    u8 op;
    const u8 *payload; // into the frame
    u32 size;          // bytes of payload
} zof_hmi_frame_t;

// Returns the CRC-16: polynomial 0x1021, start value 0, most significant bit first. 0 for null.
u16 zof_hmi_crc16(const u8 *data, u32 size);

// Checks the frame at `data`. Returns the whole frame's length; 0 without analyser or data; -1 for a wrong head;
// ZOF_HMI_CHECK_PART when `size` bytes are not all of it; -3 for a wrong CRC, or a length too short for a command.
enum { ZOF_HMI_CHECK_PART = -2 };
s32 zof_hmi_cmd_check_data(const zof_hmi_cmd_analys_t *analys, const u8 *data, u32 size);

// Returns the length of the whole frame whose first four bytes are at `data`.
u32 zof_hmi_frame_total(const u8 *data);

// Splits a frame that has been checked with this analyser into its parts.
zof_hmi_frame_t zof_hmi_frame_parse(const zof_hmi_cmd_analys_t *analys, const u8 *data);

// Prepares `send_buf` for a payload of so many bytes: clears it, and grows it when it is too small. Returns 0; -1 when
// no frame is that long, or without memory.
s32 zof_hmi_frame_send_clear(zof_hmi_cmd_analys_t *analys, u32 payload);

// Puts head, length, code and CRC around the `n` bytes at `send_cursor`. Returns the frame's length and sets `frame` to
// its first byte; 0 for null and for what does not fit. Payloads of 127 and 128 bytes are laid out as older firmware
// does it, which a receiver cannot read back: hosts expect them like that.
u32 zof_hmi_frame_build(zof_hmi_cmd_analys_t *analys, u8 op, u32 n, const u8 **frame);

ZOF_C_END

#endif
