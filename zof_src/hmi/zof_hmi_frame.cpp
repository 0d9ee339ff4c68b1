// Checks incoming frames and lays out outgoing ones. Nothing here knows the line or the commands.
#include "hmi/zof_hmi_frame.h"

#include <string.h>

#include "zof_lib/zof_stdio.h"

enum { LONG_FORM = 0x80, CRC_SIZE = 2, SHORT_MAX = 127, ODD_PAYLOAD = 128 };
enum { LEN_MIN = 3 }; // code, type and parameter

struct crc_table {
    u16 of[256];
};

// The effect of each byte on the CRC.
static constexpr crc_table crc_steps = [] {
    crc_table table = {};
    for (u32 byte = 0; byte < 256; byte++) {
        u32 crc = byte << 8;
        for (u32 bit = 0; bit < 8; bit++) {
            crc = (crc << 1) ^ (crc & 0x8000 ? 0x1021 : 0);
        }
        table.of[byte] = (u16)crc;
    }
    return table;
}();

u16 zof_hmi_crc16(const u8 *data, u32 size) {
    u16 crc = 0;
    for (u32 i = 0; data && i < size; i++) {
        crc = (u16)(crc << 8 ^ crc_steps.of[crc >> 8 ^ data[i]]);
    }
    return crc;
}

// The length field of a frame whose first four bytes have arrived.
static u32 len_of(const u8 *data) {
    return data[2] & LONG_FORM ? (u32)(data[2] & 0x7F) << 8 | data[3] : data[2];
}

static u32 head_size(const u8 *data) {
    return data[2] & LONG_FORM ? 4 : 3;
}

u32 zof_hmi_frame_total(const u8 *data) {
    return head_size(data) + len_of(data);
}

static bool crc_right(const u8 *counted, u32 len) {
    const u8 *crc = counted + len - CRC_SIZE;
    return zof_hmi_crc16(counted, len - CRC_SIZE) == (crc[0] << 8 | crc[1]);
}

s32 zof_hmi_cmd_check_data(const zof_hmi_cmd_analys_t *analys, const u8 *data, u32 size) {
    if (!analys || !data) {
        return 0;
    }
    if ((size > 0 && data[0] != analys->head_fh) || (size > 1 && data[1] != analys->head_fl)) {
        return -1;
    }
    if (size < 4) {
        return ZOF_HMI_CHECK_PART;
    }
    const u32 len = len_of(data);
    if (len < LEN_MIN) {
        return -3;
    }
    const u32 total = head_size(data) + len;
    if (size < total) {
        return ZOF_HMI_CHECK_PART;
    }
    if (analys->crc_en && !crc_right(data + head_size(data), len)) {
        return -3;
    }
    return (s32)total;
}

zof_hmi_frame_t zof_hmi_frame_parse(const zof_hmi_cmd_analys_t *analys, const u8 *data) {
    if (!analys || !data) {
        return {};
    }
    const u32 len = len_of(data);
    const u32 head = head_size(data);
    const u32 around = analys->crc_en ? 1 + CRC_SIZE : 1;
    return {.len = len, .total = head + len, .op = data[head], .payload = data + head + 1, .size = len - around};
}

s32 zof_hmi_frame_send_clear(zof_hmi_cmd_analys_t *analys, u32 payload) {
    const u32 need = ZOF_HMI_SEND_HEAD + payload + CRC_SIZE;
    if (!analys || payload > ZOF_HMI_LEN_MAX - 1 - CRC_SIZE) {
        return -1;
    }
    if (need > analys->send_size) {
        const u32 grown = need > ZOF_HMI_SEND_GROWN ? need : (u32)ZOF_HMI_SEND_GROWN;
        auto *buf = (u8 *)zof_realloc(analys->send_buf, grown);
        if (!buf) {
            return -1;
        }
        analys->send_buf = buf;
        analys->send_size = (u16)grown;
        analys->send_cursor = buf + ZOF_HMI_SEND_HEAD;
    }
    memset(analys->send_buf, 0, analys->send_size);
    return 0;
}

// Where a frame begins in the send buffer and what its CRC covers, in bytes after its first one.
struct layout {
    u32 start, crc_from, crc_size;
};

static layout layout_of(u32 n) {
    if (n < SHORT_MAX) {
        return {1, 3, n + 1};
    }
    if (n == SHORT_MAX) {
        return {1, 4, n}; // the CRC leaves the code out
    }
    if (n == ODD_PAYLOAD) {
        return {0, 4, n}; // short head in place of a long one: a zero byte slips in and the last byte is lost
    }
    return {0, 4, n + 1};
}

u32 zof_hmi_frame_build(zof_hmi_cmd_analys_t *analys, u8 op, u32 n, const u8 **frame) {
    if (!analys || !frame || !analys->send_buf || ZOF_HMI_SEND_HEAD + n + CRC_SIZE > analys->send_size) {
        return 0;
    }
    const layout lay = layout_of(n);
    const u32 len = n + 1 + (analys->crc_en ? CRC_SIZE : 0);
    const bool long_form = n > ODD_PAYLOAD;
    u8 *out = analys->send_buf + lay.start;
    const u32 head = long_form ? 4 : 3;
    out[0] = analys->head_fh;
    out[1] = analys->head_fl;
    out[2] = (u8)(long_form ? LONG_FORM | len >> 8 : len);
    if (long_form) {
        out[3] = (u8)len;
    }
    if (n == ODD_PAYLOAD) {
        out[4] = 0;
    }
    out[head] = op;
    if (analys->crc_en) {
        const u16 crc = zof_hmi_crc16(out + lay.crc_from, lay.crc_size);
        out[head + len - 2] = (u8)(crc >> 8);
        out[head + len - 1] = (u8)crc;
    }
    *frame = out;
    return head + len;
}
