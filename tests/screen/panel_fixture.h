// The bench panel for tests: its real project folder, a line that records what is sent, and frames like the board's.
#ifndef PANEL_FIXTURE_H
#define PANEL_FIXTURE_H

#include <unistd.h>

#include "bench_ids.h"
#include "board.h"
#include "frames.h"
#include "register_line.h"
#include "screen_fixture.h"
#include "zof_main.h"

inline std::vector<std::pair<u16, u16>> panel_sent; // registers that the panel has reported, in order

inline s32 panel_send(zof_drv_t *, const u8 *data, u32 size) {
    frame_report_words(bytes(data, data + size), [](u16 addr, u16 value) { panel_sent.emplace_back(addr, value); });
    return (s32)size;
}

// Starts the panel as its program does, but on the test's clock and with its own line.
inline void panel_open() {
    REQUIRE(chdir(ZOF_PANEL_DIR) == 0);
    screen_init();
    zof_drv_init();
    zof_func_pwon();
    zof_lang_on_change(panel_lang_changed);
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    register_line_open(panel_send);
    screen_step(50);
    panel_sent.clear();
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
    box.write = board_write;
    board_write(REG_RAIL_ACTIVE, {active});
    board_send_rails(box);
    screen_step(20);
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

using reports = std::vector<std::pair<u16, u16>>;

#endif
