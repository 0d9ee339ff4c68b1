// The receive handler of the host protocol without a line: it gets the messages of the input, each after the tail kept
// from the previous one, as from the line; answers are read and dropped.
//
// A message: a byte of HMI_* flags, a byte for its length, its bytes. A sealed one is code and payload only.
#ifndef HMI_LINE_H
#define HMI_LINE_H

#include "fuzz.h"
#include "hmi/zof_hmi_analys.h"
#include "hmi/zof_hmi_sync.h"

enum { HMI_CRC = 1, HMI_SEALED = 2, HMI_LONG = 4, HMI_DRAW = 8, HMI_TAIL_SIZE = 256 };

inline std::vector<u8> hmi_tail;

inline s32 hmi_tail_set(const u8 *data, u32 size) {
    if (size == 0 || size > HMI_TAIL_SIZE) {
        return -1;
    }
    hmi_tail.assign(data, data + size);
    return 0;
}

inline const zof_hmi_line_t hmi_line = {.send = fuzz_read, .tail_set = hmi_tail_set};

inline void hmi_open() {
    zof_hmi_sync_init();
    zof_hmi_attr_t attr = {};
    attr.head_fh = FUZZ_HEAD0;
    attr.head_fl = FUZZ_HEAD1;
    attr.resend_en = 1;
    attr.buffsize = 4096;
    fuzz_must(zof_hmi_cmd_sys_analys_init(&attr) == 0 && zof_hmi_cmd_ui_analys_init(&attr) == 0,
              "the analysers are initialised");
    sys_cmd_analys->line = ui_cmd_analys->line = &hmi_line;
}

// Receives one message after the kept tail; returns true if the panel must draw.
inline bool hmi_message(fuzz_input &in) {
    const u8 flags = fuzz_byte(in);
    std::vector<u8> fresh = fuzz_bytes(in, fuzz_byte(in));
    const bool crc = flags & HMI_CRC;
    if (flags & HMI_SEALED) {
        fresh = fuzz_sealed(fresh, crc, flags & HMI_LONG);
    }
    sys_cmd_analys->crc_en = ui_cmd_analys->crc_en = crc;
    std::vector<u8> whole;
    whole.reserve(hmi_tail.size() + fresh.size()); // exact size, so reads beyond it are detected
    whole.insert(whole.end(), hmi_tail.begin(), hmi_tail.end());
    whole.insert(whole.end(), fresh.begin(), fresh.end());
    hmi_tail.clear();
    zof_hmi_recive_data_handle(whole.data(), (u32)whole.size(), nullptr);
    zof_hmi_cmd_ui_data_run();
    return flags & HMI_DRAW;
}

#endif
