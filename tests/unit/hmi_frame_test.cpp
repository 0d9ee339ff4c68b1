// Frames of the host protocol without a line: sent frames byte for byte, received frames at every split, and irregular
// rules that must stay, because hosts in the field rely on them.

#include <string.h>

#include <algorithm>
#include <string>

#include "hmi/zof_hmi.h"
#include "hmi/zof_hmi_analys.h"
#include "host_frame.h"
#include "temp_project.h"

struct analys_t {
    zof_hmi_cmd_analys_t a = {.head_fh = 0x5A, .head_fl = 0xA5};
    explicit analys_t(bool crc) {
        a.types = zof_sys_cmd_types;
        a.type_count = (u8)zof_sys_cmd_type_count;
        a.param_size = ZOF_HMI_RECORD_SIZE;
        a.crc_en = crc;
        REQUIRE(zof_hmi_cmd_analys_init(&a) == 0);
    }
    ~analys_t() {
        for (void *p : {(void *)a.send_buf, a.type_param, a.req_param, a.value_param, a.reply_param}) {
            zof_free(p);
        }
    }
};

static bytes payload_of(u32 n) {
    bytes out;
    for (u32 i = 0; i < n; i++) {
        out.push_back((u8)(i * 7 + 1));
    }
    return out;
}

static bytes built(zof_hmi_cmd_analys_t &a, u32 n) {
    REQUIRE(zof_hmi_frame_send_clear(&a, n) == 0);
    const bytes payload = payload_of(n);
    std::copy(payload.begin(), payload.end(), a.send_cursor);
    const u8 *frame = nullptr;
    const u32 size = zof_hmi_frame_build(&a, ZOF_HMI_OP_GET, n, &frame);
    return {frame, frame + size};
}

static s32 check(zof_hmi_cmd_analys_t &a, const bytes &data) {
    const bytes exact(data); // exact size, so a read beyond it is detected
    return zof_hmi_cmd_check_data(&a, exact.data(), (u32)exact.size());
}

TEST_CASE("host frames: every size is sent in its form, including those around 127 bytes that receivers misread") {
    CHECK(zof_hmi_crc16((const u8 *)"123456789", 9) == 0x31C3);
    for (bool crc : {false, true}) {
        analys_t x(crc);
        for (u32 n : {0u, 1u, 10u, 124u, 125u, 126u, 127u, 128u, 129u, 253u, 254u, 255u, 256u, 5000u}) {
            CAPTURE(n);
            CAPTURE(crc);
            const bytes payload = payload_of(n);
            const u32 len = n + (crc ? 3 : 1);
            bytes want = frame_of(ZOF_HMI_OP_GET, payload, crc, true);
            if (n <= 128) {
                // At 128 a zero is inserted after the code and the last byte is lost; from 127 the CRC excludes the
                // code.
                const bytes body = n == 128 ? join({{0}, {payload.begin(), payload.end() - 1}}) : payload;
                const bytes counted = join({{ZOF_HMI_OP_GET}, body});
                want = join({{0x5A, 0xA5, (u8)len}, counted, crc ? crc_of(n >= 127 ? body : counted) : bytes()});
            }
            CHECK(built(x.a, n) == want);
        }
        const u8 *frame;
        CHECK(zof_hmi_frame_build(&x.a, ZOF_HMI_OP_GET, x.a.send_size, &frame) == 0);
        CHECK(zof_hmi_frame_send_clear(&x.a, ZOF_HMI_LEN_MAX) == -1);
        CHECK(built(x.a, ZOF_HMI_LEN_MAX - 3).size() == (crc ? 0x8003u : 0x8001u));
    }
}

TEST_CASE("host frames: wrong heads, missing bytes and bad CRCs have different results, and nothing beyond the data is "
          "read") {
    for (int form = 0; form < 4; form++) {
        const bool crc = form % 2, long_form = form / 2;
        analys_t x(crc);
        for (u32 n : {2u, 100u, 124u, 252u, 253u, 300u}) {
            CAPTURE(n);
            bytes frame = frame_of(ZOF_HMI_OP_SET, payload_of(n), crc, long_form);
            CHECK(check(x.a, frame) == (s32)frame.size());
            for (size_t cut = 2; cut < frame.size(); cut++) {
                REQUIRE(check(x.a, {frame.begin(), frame.begin() + (long)cut}) == -2);
            }
            frame.back() ^= 1;
            CHECK(check(x.a, frame) == (crc ? -3 : (s32)frame.size()));
        }
        for (u8 len : {0, 1, 2}) {
            const bytes size = long_form ? bytes{0x80, len} : bytes{len};
            CHECK(check(x.a, join({{0x5A, 0xA5}, size, {0, 0, 0, 0}})) == -3);
        }
        CHECK(check(x.a, {0x5A, 0xA6, 3, 0x11, 0xB0, 1}) == -1);
    }
    CHECK(zof_hmi_cmd_check_data(nullptr, nullptr, 0) == 0);
}

TEST_CASE("host frames: a frame is executed by its row, unless it is incomplete, unknown or invalid") {
    temp_project_t project;
    REQUIRE(project.open());
    analys_t x(false);
    const struct {
        u8 op;
        bytes payload;
        s32 result; // 0: nothing was executed
    } rows[] = {{ZOF_HMI_OP_GET, {0xB0, 0x00, 0x01}, 7},
                {ZOF_HMI_OP_SET, {0xB0, 0x00, 0x01}, 7}, // cannot be written
                {ZOF_HMI_OP_SET, {0xB0, 0x02}, 0},
                {ZOF_HMI_OP_SET, {0xB0, 0x02, 40}, 7},
                {ZOF_HMI_OP_GET, {0xB0, 0x7E}, 0},
                {ZOF_HMI_OP_GET, {0xB3, 0x00}, 0},
                {ZOF_HMI_OP_GET, {0xB0}, 0},
                {ZOF_HMI_OP_SET + 1, {0xB0, 0x01}, -1}};
    for (const auto &row : rows) {
        const bytes frame = frame_of(row.op, row.payload);
        CAPTURE(row.payload.back());
        CHECK(zof_hmi_cmd_rev_analys(&x.a, frame.data(), (u32)frame.size()) == row.result);
        CHECK(zof_hmi_cmd_rev_analys(&x.a, frame.data(), (u32)frame.size() - 1) == 0);
    }
}

TEST_CASE("host link: without memory an analyser is not created, releases what it has, and can be created later") {
    enum { ALLOCATIONS = 8 }; // those of the host link; the ones after them are LVGL's
    const zof_hmi_attr_t attr = {.head_fh = 0x5A, .head_fl = 0xA5};
    lv_init();
    for (const auto &[make, made] : {std::pair(&zof_hmi_cmd_sys_analys_init, &sys_cmd_analys),
                                     std::pair(&zof_hmi_cmd_ui_analys_init, &ui_cmd_analys)}) {
        CHECK(make(nullptr) == -1);
        for (u32 n = 1; !*made && n <= ALLOCATIONS; n++) {
            const u32 before = zof_mem_count();
            zof_mem_fail_at(n);
            const s32 result = make(&attr);
            zof_mem_fail_at(0);
            CHECK((result == 0) == (*made != nullptr));
            CHECK((*made || zof_mem_count() == before));
        }
        CHECK((make(&attr) == 0 && make(&attr) == 0 && *made));
    }
}

TEST_CASE("host link: equal head bytes, no port and a missing file open no link") {
    temp_project_t project;
    REQUIRE(project.open());
    CHECK(zof_hmi_init() == -1);
    project.write("config/project/zofhmi.g", R"({"hmi_en": 1, "uart": {"win_port": 7}, "head_fh": 9, "head_fl": 9})");
    CHECK(contains(printed([] { CHECK(zof_hmi_init() == -1); }), "must differ"));
    project.write("config/project/zofhmi.g", R"({"hmi_en": 1, "uart": {}, "head_fh": 9, "head_fl": 8})");
    CHECK(zof_hmi_init() == -1);
}

static u32 words(const char *names) {
    return names && *names ? charCount(names, ' ') + 1 : 0;
}

// Reference and host libraries are generated from the rows: a row without texts leaves a gap in them.
TEST_CASE("host commands: each row has a name, a help text and a name for each field") {
    for (u32 t = 0; t <= zof_ui_cmd_type_count; t++) {
        const zof_hmi_cmd_type_t &type = t ? zof_ui_cmd_types[t - 1] : zof_sys_cmd_types[0];
        for (u32 p = 0; p < type.param_count; p++) {
            const zof_hmi_param_type_t &row = type.params[p];
            CAPTURE(type.name);
            REQUIRE((row.name && row.help));
            CAPTURE(row.name);
            CHECK(words(row.value_names) == row.value->count);
            CHECK(words(row.req_names) == row.rw->req->count);
        }
    }
}
