// The bench panel for tests: its real project folder, a line that records what is sent, and frames like the board's.
#ifndef PANEL_FIXTURE_H
#define PANEL_FIXTURE_H

#include <unistd.h>

#include <utility>

#include "bench/bench.h"
#include "bench_ids.h"
#include "board.h"
#include "frames.h"
#include "register_line.h"
#include "screen_fixture.h"
#include "zof_main.h"

using reports = std::vector<std::pair<u16, u16>>;
inline reports panel_sent; // registers that the panel has reported, in order

inline s32 panel_send(zof_drv_t *, const u8 *data, u32 size) {
    frame_report_words(bytes(data, data + size), [](u16 addr, u16 value) { panel_sent.emplace_back(addr, value); });
    return (s32)size;
}

// What the panel has reported since the last call, without what it asks for by itself.
inline reports sent() {
    reports out = std::exchange(panel_sent, {});
    std::erase_if(out,
                  [](auto report) { return report.first == REG_RAIL_REQUEST || report.first == REG_SETTINGS_REQUEST; });
    return out;
}

// Starts the panel as its program does, but on the test's clock, with its own line, and with no settings kept from
// before: `state` is the folder for them, which a test may open a second time.
inline void panel_open(const char *state = "") {
    setenv("ZOF_STATE", state, 1);
    setenv("HOME", "", 1);
    REQUIRE(chdir(ZOF_PANEL_DIR) == 0);
    screen_init();
    zof_drv_init();
    zof_func_pwon();
    panel_start();
    register_line_open(panel_send);
    screen_step(50);
}

inline void panel_port(bench_port_e state, const char *who = "") {
    bench_port_t port = {.state = state};
    snprintf(port.path, sizeof(port.path), "/dev/ttyUSB0");
    snprintf(port.who, sizeof(port.who), "%s", who);
    bench_take_port(&port);
    screen_step(110);
}

// The board writes registers, one frame for each call.
inline void board_write(u16 addr, const std::vector<u16> &words) {
    bytes f = frame_write(addr, words);
    recive_data_handle(f.data(), (u32)f.size());
}

inline void board_readings(u16 mv, u16 ma, u16 dw, u32 mwh) {
    board_write(REG_LIVE_MV, {mv});
    board_write(REG_LIVE_MA, {ma});
    board_write(REG_LIVE_DW, {dw});
    board_write(REG_SESS_MWH_LO, {(u16)mwh});
    board_write(REG_SESS_MWH_HI, {(u16)(mwh >> 16)});
}

// The board sends its rail table, of which `active` is in force.
inline void board_rails(const std::vector<prof_t> &rails, u16 active = RAIL_NONE) {
    board box;
    box.rails = rails;
    box.rail = active;
    box.write = board_write;
    board_send_rails(box);
    screen_step(20);
}

inline void board_settings_send() {
    for (const auto &[addr, value] : reports{{REG_BRIGHT, 80}, {REG_BOOT_STATE, 0}, {REG_AUTO_ARM, 0}}) {
        board_write(addr, {value});
    }
}

// What a board does that has just been asked for everything: thirteen rails, the first in force, output off.
inline void board_ready() {
    panel_port(BENCH_PORT_OPEN);
    board_write(REG_BOX_VERSION, {0x0203});
    board_settings_send();
    board_write(REG_OUT_STATE, {0});
    board_readings(0, 0, 0, 12534);
    board_rails(board_default_rails(), 0);
    screen_step(300); // presses count again
    panel_sent.clear();
}

// The board has applied 12.00 V and 1.00 A of a PPS rail, as the panel requested.
inline void board_applied(bench_choice_t choice = {7, 12000, 1000}) {
    REQUIRE(bench_apply(choice, true));
    board_write(REG_RAIL_ACTIVE, {choice.rail});
    panel_sent.clear();
    screen_step(10);
}

// Readings go on while the screen runs.
inline void live(u32 ms) {
    for (u32 left = ms; left > 0; left -= std::min(left, 100u)) {
        board_readings(bench.mv, bench.ma, bench.dw, bench.mwh);
        screen_step(std::min(left, 100u));
    }
}

// The run that the pictures show: 12 V set on a PPS rail, output on.
inline void running(u16 mv = 12000, u16 ma = 874, u16 dw = 105) {
    board_write(REG_OUT_STATE, {1});
    board_readings(mv, ma, dw, 12534);
    screen_step(10);
}

inline void open_running() {
    panel_open();
    board_ready();
    board_applied();
    bench.last_on_mv = 12000;
    running();
    panel_sent.clear();
}

inline std::string text_of(u32 view, u32 ctrl) {
    para_t *c = zof_ctrl_get_form_id(view, ctrl);
    return c && c->obj ? lv_label_get_text(c->obj) : "(no label)";
}

inline bool is_shown(u32 view, u32 ctrl) {
    return zof_ctrl_get_hidden(zof_ctrl_get_form_id(view, ctrl)) == 0;
}

inline void go_to(u32 view) {
    zof_view_set_dis_view(view);
    screen_step(50);
    panel_sent.clear();
}

#endif
