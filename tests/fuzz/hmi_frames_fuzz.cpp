// Frames and codec of the host protocol without a project, as fast as possible. The first byte selects: the receive
// handler with a series of messages, one record of the codec decoded and encoded, or one frame built and parsed.
#include "drv/zof_loop_in.h"
#include "hmi_line.h"
#include "port/zof_host.h"

enum { BUILD_MAX = 300 };

static std::vector<const zof_hmi_rec_t *> records; // of all rows

// Decoded records must be encoded to the same bytes.
static void there_and_back(fuzz_input &in) {
    const zof_hmi_rec_t *list = records[fuzz_byte(in) % records.size()];
    const std::vector<u8> wire = fuzz_bytes(in, in.size);
    alignas(8) u8 record[ZOF_HMI_RECORD_SIZE] = {};
    const s32 taken = zof_hmi_cmd_buf_2_param(record, list, wire.data(), (u32)wire.size());
    if (taken <= 0) {
        return;
    }
    fuzz_must(zof_hmi_cmd_param_size(record, list) == (u32)taken, "a record has the size of its encoded form");
    std::vector<u8> out((size_t)taken);
    zof_hmi_cmd_param_2_buf(record, list, out.data());
    fuzz_must(memcmp(out.data(), wire.data(), out.size()) == 0, "a record is encoded as it was decoded");
}

static void build_and_read(fuzz_input &in) {
    const bool crc = fuzz_byte(in) & 1;
    const u32 n = (u32)(fuzz_byte(in) << 8 | fuzz_byte(in)) % BUILD_MAX;
    zof_hmi_cmd_analys_t *a = ui_cmd_analys;
    a->crc_en = crc;
    fuzz_must(zof_hmi_frame_send_clear(a, n) == 0, "there is room for a frame");
    if (in.size) {
        memcpy(a->send_cursor, in.at, in.size < n ? in.size : n);
    }
    const u8 *frame = nullptr;
    const u32 size = zof_hmi_frame_build(a, ZOF_HMI_OP_GET, n, &frame);
    const std::vector<u8> exact(frame, frame + size);
    const u32 len = n + (crc ? 3 : 1);
    if (n >= 2 && (n > 128 || len <= 127)) { // the sizes between have the irregular form that old hosts expect
        fuzz_must(zof_hmi_cmd_check_data(a, exact.data(), size) == (s32)size, "a sent frame can be parsed");
    }
}

void fuzz_open() {
    static const zof_clock_t still = {[] { return 0u; }, [](u32) {}};
    zof_clock_set(&still);
    lv_init();
    zof_loop_init();
    hmi_open();
    for (u32 i = 0; i < zof_ui_cmd_type_count; i++) {
        const zof_hmi_cmd_type_t &type = zof_ui_cmd_types[i];
        records.push_back(type.rec);
        for (u32 k = 0; k < type.param_count; k++) {
            records.insert(records.end(), {type.params[k].value, type.params[k].rw->req});
        }
    }
}

void fuzz_one(fuzz_input &in) {
    hmi_tail.clear();
    const u8 what = fuzz_byte(in) % 4;
    if (what == 0) {
        there_and_back(in);
    } else if (what == 1) {
        build_and_read(in);
    } else {
        while (in.size) {
            hmi_message(in);
        }
    }
}
