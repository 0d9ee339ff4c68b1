// Frames of the register link with nothing behind them, as fast as can be: a check stands in place of what registers do,
// by --wrap. The input is a series of messages as for the link with its panel.
#include "fuzz.h"

#include "hardware/uart/zof_hw_uart.h"

enum { SETTLE = 8 };

static s32 answer_read(zof_drv_t *, const u8 *data, u32 size) {
    fuzz_read(data, size);
    return (s32)size;
}

extern "C" void __wrap_zof_reg_set_user(u16 addr, u16 *data, u8 datalen) {
    fuzz_must(addr <= REG_MAX && datalen == 1, "a handler gets one word of a register that exists");
    fuzz_read((u8 *)data, sizeof(*data));
}

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    static const zof_drv_uart_ops_t ops = {.send = answer_read};
    static int context;
    static zof_drv_t handle = {.type = ZOF_DRV_UART, .port = 6, .context = &context};
    fuzz_quiet();
    lv_init();
    drv_uart_t = &ops;
    drv_uart = &handle;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    fuzz_input in = {data, size};
    while (in.size) {
        std::vector<u8> message = fuzz_bytes(in, fuzz_byte(in));
        recive_data_handle(message.data(), (u32)message.size());
    }
    u8 zeros[SETTLE] = {}; // whatever is kept as the beginning of a frame ends here, so each input stands alone
    recive_data_handle(zeros, SETTLE);
    return 0;
}
