// The register link with the panel: anything that a board, or noise, may send. The input is a series of messages, each
// a byte for its length and then its bytes; a length of 255 lets the panel draw.
#include "fuzz.h"

#include "panel_fixture.h"

enum { DRAW = 255, SETTLE = 8 };

extern "C" {
void __real_zof_reg_set_user(u16 addr, u16 *data, u8 datalen);

void __wrap_zof_reg_set_user(u16 addr, u16 *data, u8 datalen) {
    fuzz_must(addr <= REG_MAX && datalen == 1, "a handler gets one word of an existing register");
    __real_zof_reg_set_user(addr, data, datalen);
}
}

void fuzz_open() {
    fuzz_must(chdir(ZOF_PANEL_DIR) == 0, "the panel's project exists");
    panel_open();
}

void fuzz_one(fuzz_input &in) {
    while (in.size) {
        const u8 n = fuzz_byte(in);
        if (n == DRAW) {
            screen_step(SCREEN_STEP_MS);
            continue;
        }
        std::vector<u8> message = fuzz_bytes(in, n);
        recive_data_handle(message.data(), (u32)message.size());
    }
    u8 zeros[SETTLE] = {}; // ends an incomplete frame, so inputs are independent
    recive_data_handle(zeros, SETTLE);
    panel_sent.clear();
}
