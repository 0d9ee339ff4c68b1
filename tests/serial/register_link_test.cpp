#include "zof_test.h"

#include "host_frame.h"
#include "port/zof_host.h"
#include "register_line.h"
#include "temp_project.h"

// A line that records what is sent.
static bytes sent;
static s32 line_send(zof_drv_t *, const u8 *data, u32 size) {
    sent.insert(sent.end(), data, data + size);
    return (s32)size;
}

static void line_up() {
    register_line_open(line_send);
    sent.clear();
}

static void receive(bytes data) {
    recive_data_handle(data.data(), (u32)data.size());
}

TEST_CASE("register link: values are sent as the board expects them, byte by byte, and never more than a frame holds") {
    line_up();
    CHECK(zof_reg_report(48, 80) == 9);
    CHECK(sent == bytes{0x5A, 0xA5, 0x06, 0x83, 0x00, 0x30, 0x01, 0x00, 0x50});
    zof_reg_set(49, 0x1234);
    const struct {
        u16 addr;
        u8 count;
        bytes head;
        size_t size;
    } rows[] = {{48, 2, {0x5A, 0xA5, 0x08, 0x83, 0x00, 0x30, 0x02, 0x00, 0x50, 0x12, 0x34}, 11},
                {2000, 255, {0x5A, 0xA5, 254, 0x83, 0x07, 0xD0, 125}, 257}, // cut to 125 words
                {16, 0, {0x5A, 0xA5, 0x04, 0x83, 0x00, 0x10, 0x00}, 7}};
    for (const auto &row : rows) {
        sent.clear();
        receive(frame_read(row.addr, row.count));
        CHECK(sent.size() == row.size);
        CHECK(bytes(sent.begin(), sent.begin() + (long)row.head.size()) == row.head);
    }
    sent.clear();
    receive(frame_read(REG_LIVE_MV, 17)); // up to ADJ_MV, a request: a garbled frame may not send one
    CHECK(sent.empty());
    // 2048 is the last valid address, in both directions.
    CHECK((zof_reg_com_send(2048, 255) == 257 && zof_reg_com_send(2049, 1) == -1));
    CHECK((zof_reg_set(2049, 7) == -1 && zof_reg_get(2049) == -1));
    receive(frame_write(2049, {1}));
    receive(frame_write(2048, std::vector<u16>(126, 0xBEEF)));
    CHECK(zof_reg_get(2048) == 0xBEEF);
    drv_uart = nullptr;
    CHECK(zof_reg_report(48, 80) == -1);
}

TEST_CASE(
    "register link: every kind of frame, cut at every byte, is found or lost by the rules, and the next one is found") {
    line_up();
    const struct {
        bytes frame;
        bool write, read;
    } kinds[] = {
        {frame_write(100, {0x1111}), true, false},
        {frame_write(100, {0x1111, 0x2222, 0x3333}), true, false},
        {frame_read(100, 1), false, true},
        {{0x5A, 0xA5, 0x05, 0x99, 0x00, 0x64, 0x11, 0x11}, false, false}, // an unknown command
    };
    for (const auto &kind : kinds) {
        for (size_t cut = 1; cut < kind.frame.size(); cut++) {
            CAPTURE(kind.frame[3]);
            CAPTURE(cut);
            zof_reg_set(100, 0);
            zof_reg_set(200, 0);
            sent.clear();
            receive({kind.frame.begin(), kind.frame.begin() + (long)cut});
            receive({kind.frame.begin() + (long)cut, kind.frame.end()});
            // At most five bytes of the first piece are kept.
            CHECK(zof_reg_get(100) == (kind.write && cut <= 5 ? 0x1111 : 0));
            CHECK(sent.empty() == !(kind.read && cut <= 5));
            receive(frame_write(200, {0x4444}));
            CHECK(zof_reg_get(200) == 0x4444);
            receive(bytes(6, 0)); // the kept bytes are zeros
        }
    }
}

TEST_CASE("register link: frames in one chunk are handled in order, whatever is around and between them") {
    line_up();
    const bytes rubbish = {0x5A, 0x00, 0xA5, 0x5A, 0x5A, 0xA5, 0xFF, 0x82};
    receive(join({rubbish, frame_write(100, {1}), {0x5A}, frame_write(100, {2}), frame_read(100, 1), {0x33}}));
    CHECK(zof_reg_get(100) == 2);
    CHECK(sent.size() == 9);
    // A rejected frame is searched for a head inside it.
    receive(join({{0x5A, 0xA5, 0x0A, 0x82, 0xFF, 0xFF}, frame_write(101, {9})}));
    CHECK(zof_reg_get(101) == 9);
    // What does not fit with the kept bytes is cut off, and the link keeps working.
    receive(bytes(5000, 0x5A));
    receive(frame_write(100, {77}));
    receive(frame_write(101, {78}));
    CHECK(zof_reg_get(101) == 78);
}

TEST_CASE("register link: a frame stores no more words than it holds, and a burst rebuilds the list of rails once") {
    line_up();
    zof_reg_set(100, 5);
    u8 outside[] = {0x5A, 0xA5, 0x05, 0x82, 0x08, 0x01, 0, 1};
    CHECK((zof_comm_handle(outside) == -1 && zof_comm_handle(nullptr) == -1));
    recive_data_handle(nullptr, 6);
    receive({0x5A, 0xA5, 0x03, 0x82, 0x00, 0x64});
    CHECK(zof_reg_get(100) == 5);
    for (u8 len : {0, 1, 2}) { // the frame ends inside its own head, before its address
        receive({0x5A, 0xA5, len, 0x82, 0x00, 0x64});
        CHECK(zof_reg_get(100) == 5);
    }
    static u32 commits, counts;
    static constexpr zof_hw_client_t client = {[](u16 addr, u16) {
        commits += addr == REG_RAIL_COMMIT;
        counts += addr == REG_RAIL_COUNT;
    }};
    zof_hw_client_set(&client);
    // One commit, at the end: it includes what came after the first one.
    receive(join({frame_write(REG_RAIL_COUNT, {2}), frame_write(REG_RAIL_COMMIT, {1}), frame_write(REG_RAIL_COUNT, {3}),
                  frame_write(REG_RAIL_COMMIT, {1}), frame_write(REG_RAIL_COUNT, {1})}));
    CHECK((commits == 1 && counts == 3 && zof_reg_get(REG_RAIL_COUNT) == 1));
    zof_hw_client_set(nullptr);
}

TEST_CASE("register link: a partial frame is not joined with what arrives more than a second later") {
    static u32 now;
    static constexpr zof_clock_t clock = {[] { return now; }, [](u32) {}};
    zof_clock_set(&clock);
    line_up();
    zof_reg_set(100, 5);
    for (const auto &[pause, value] : {std::pair<u32, s32>{1001, 5}, {1000, 7}}) {
        const bytes frame = frame_write(100, {7});
        now += 5000;
        receive({frame.begin(), frame.begin() + 4});
        now += pause;
        receive({frame.begin() + 4, frame.end()});
        CHECK(zof_reg_get(100) == value);
    }
    zof_clock_set(nullptr);
}

TEST_CASE("register link: values reach the client in their range, and a burst runs only its first register's handler") {
    line_up();
    static std::vector<std::pair<u16, u16>> taken;
    static u32 words;
    static constexpr zof_hw_client_t client = {[](u16 addr, u16 value) { taken.emplace_back(addr, value); },
                                               [](u16) { words++; }};
    zof_hw_client_set(&client);
    for (const auto &[addr, value] : {std::pair<u16, u16>{REG_BRIGHT, 9},
                                      {REG_RAIL_ACTIVE, 13},
                                      {REG_OUT_STATE, 0x0100},
                                      {REG_SESS_MWH_LO, 0xFFFF},
                                      {REG_OUT_REQ, 1}, // not the board's
                                      {100, 1}}) {
        receive(frame_write(addr, {value}));
    }
    CHECK(taken ==
          decltype(taken){{REG_BRIGHT, 10}, {REG_RAIL_ACTIVE, 13}, {REG_OUT_STATE, 0}, {REG_SESS_MWH_LO, 0xFFFF}});
    CHECK(words == 6);
    taken.clear();
    receive(join({{0x33, 0x5A, 0x44}, frame_write(REG_OUT_STATE, {1, 5, 0})}));
    CHECK(taken == decltype(taken){{REG_OUT_STATE, 1}, {REG_OUT_STATE, 5}, {REG_OUT_STATE, 0}});
    CHECK((zof_reg_get(REG_RAIL_ACTIVE) == 5 && words == 9));
    zof_hw_client_set(nullptr);
}
