// The rails page for tests: where its controls are, and what a user does there.
#ifndef PANEL_RAILS_H
#define PANEL_RAILS_H

#include "bench_look.h"
#include "panel_fixture.h"

enum {
    USE_X = 684,
    USE_Y = 388,
    PLUS_X = 518,
    MINUS_X = 172,
    VOLTS_Y = 336,
    AMPERES_Y = 394,
    SLIDE_X = 230,
    SLIDE_W = 248
};

inline void open_rails(const char *state_folder = "") {
    panel_open(state_folder);
    board_ready();
    go_to(2);
    board_rails(board_default_rails(), 0);
    live(400);
    sent();
}

inline void output_on(u16 mv, u16 ma) {
    board_write(REG_OUT_STATE, {1});
    board_readings(mv, ma, (u16)(mv * ma / 100000), 12534);
    live(400);
}

inline void row_tap(u32 row) {
    screen_click((s32)(16 + row / 4 * 194 + 93), (s32)(58 + row % 4 * 62 + 28));
    live(300); // the tray has changed
}

inline std::string shown(u32 id) {
    return text_of(2, id);
}

inline bool touchable(u32 id) {
    return lv_obj_has_flag(zof_ctrl_get_form_id(2, id)->obj, LV_OBJ_FLAG_CLICKABLE);
}

inline void key(char c) {
    static const std::string keys = "789456123.0<";
    const s32 n = (s32)keys.find(c);
    screen_click(480 + 124 * (n % 3), 108 + 104 * (n / 3));
}

inline void keypad_type(s32 value_y, const std::string &text) {
    screen_click(82, value_y);
    live(300);
    for (const char c : text) {
        key(c);
    }
}

inline void keypad_done_click() {
    screen_click(312, 438);
    live(300);
}

inline void type_value(s32 value_y, const std::string &text) {
    keypad_type(value_y, text);
    keypad_done_click();
}

#endif
