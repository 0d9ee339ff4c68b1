// Frames of the register link without a panel, as fast as possible: --wrap replaces the handlers of registers by a
// check. The input is a series of messages, as for the link with a panel.
#include "fuzz.h"

#include "register_line.h"

enum { SETTLE = 8 };

extern "C" void __wrap_zof_reg_set_user(u16 addr, u16 *data, u8 datalen) {
    fuzz_must(addr <= REG_MAX && datalen == 1, "a handler gets one word of an existing register");
    fuzz_read((u8 *)data, sizeof(*data));
}

void fuzz_open() {
    lv_init();
    register_line_open([](zof_drv_t *, const u8 *data, u32 n) { return fuzz_read(data, n); });
}

void fuzz_one(fuzz_input &in) {
    while (in.size) {
        std::vector<u8> message = fuzz_bytes(in, fuzz_byte(in));
        recive_data_handle(message.data(), (u32)message.size());
    }
    u8 zeros[SETTLE] = {}; // ends an incomplete frame, so inputs are independent
    recive_data_handle(zeros, SETTLE);
}
