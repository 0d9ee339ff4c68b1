#include "ui/keys.h"

#include "bench/bench_record.h"
#include "bench_ids.h"
#include "ui/focus.h"
#include "ui/keep.h"
#include "ui/ui.h"

// Key codes: a key with a character has the character as its code.
enum : u32 {
    CODE_BACK = 8,
    CODE_ENTER = 13,
    CODE_ESC = 27,
    CODE_F2 = 0x4000003B,
    CODE_F12 = 0x40000045,
    CODE_RIGHT = 0x4000004F,
    CODE_LEFT,
    CODE_DOWN,
    CODE_UP,
    CODE_PAD_ENTER = 0x40000058,
    CODE_PAD_1,
    CODE_PAD_0 = CODE_PAD_1 + 9,
    CODE_PAD_POINT,
};

static void page_down(u32 code) {
    static constexpr u32 pages[] = {ZOF_VIEW1_ID, ZOF_VIEW2_ID, ZOF_VIEW5_ID, ZOF_VIEW4_ID,
                                    ZOF_VIEW3_ID}; // in the order of the tabs
    if (ui_takes(ZOF_EVENT_PRESSED, BENCH_PRESS_LOOKS)) {
        ui_tab_to(pages[code - '1']);
    }
}

static void toggle_down(u32) {
    toggle_key(ZOF_EVENT_PRESSED);
}

static void toggle_up() {
    toggle_key(ZOF_EVENT_CLICKED);
}

static void off_down(u32) {
    bench_off();
}

static void lock_down(u32) {
    bench_lock(!bench.locked);
    keep_save();
}

template <focus_way_e WAY> static void focus_down(u32) {
    focus_move(WAY);
}

static void press_down(u32) {
    focus_press(true);
}

static void press_up() {
    focus_press(false);
}

static void picture_down(u32) {
    record_picture();
}

static constexpr struct {
    u32 code, last; // range of key codes
    panel_key_e id;
    void (*down)(u32 code);
    void (*up)();
} rows[] = {
    {'1', '5', KEY_PAGES, page_down},
    {' ', ' ', KEY_TOGGLE, toggle_down, toggle_up},
    {CODE_ESC, CODE_ESC, KEY_OFF, off_down},
    {CODE_F12, CODE_F12, KEY_OFF, off_down},
    {'l', 'l', KEY_LOCK, lock_down},
    {CODE_LEFT, CODE_LEFT, KEY_FOCUS, focus_down<FOCUS_LEFT>},
    {CODE_RIGHT, CODE_RIGHT, KEY_FOCUS, focus_down<FOCUS_RIGHT>},
    {CODE_UP, CODE_UP, KEY_FOCUS, focus_down<FOCUS_UP>},
    {CODE_DOWN, CODE_DOWN, KEY_FOCUS, focus_down<FOCUS_DOWN>},
    {CODE_ENTER, CODE_ENTER, KEY_PRESS, press_down, press_up},
    {CODE_PAD_ENTER, CODE_PAD_ENTER, KEY_PRESS, press_down, press_up},
    {CODE_F2, CODE_F2, KEY_PICTURE, picture_down},
};
static_assert(rows[sizeof(rows) / sizeof(rows[0]) - 1].id + 2 == KEY_COUNT, "each but that of the window has a row");

static u32 down_rows; // bits of the rows whose key is down; a repeating key counts once

// Returns the character that a key types, also on the number pad, or 0.
static char typed(u32 code) {
    static constexpr char block[] = "1234567890.";
    if (code == CODE_ENTER || code == CODE_PAD_ENTER) {
        return focus_shown() ? '\0' : '\n';
    }
    if (code >= CODE_PAD_1 && code <= CODE_PAD_POINT) {
        return block[code - CODE_PAD_1];
    }
    return (code >= '0' && code <= '9') || code == '.' || code == CODE_BACK ? (char)code : code == ',' ? '.' : '\0';
}

static void row_take(u32 row, u32 code, bool down) {
    const u32 bit = 1u << row;
    if (down == ((down_rows & bit) != 0)) {
        return;
    }
    down_rows ^= bit;
    if (down) {
        rows[row].down(code);
    } else if (rows[row].up) {
        rows[row].up();
    }
}

static void take(zof_win_key_param_t *param, u32 code) {
    const bool down = zof_win_key_get_status(param) == 1;
    bench_tick();
    const char c = down ? typed(code) : '\0';
    const bool taken = c != '\0' && keypad_type(c);
    for (u32 i = 0; !taken && i < sizeof(rows) / sizeof(rows[0]); i++) {
        if (code >= rows[i].code && code <= rows[i].last) {
            row_take(i, code, down);
        }
    }
    ui_paint();
}

// A second finger counts only for Off.
static void landed(u16 x, u16 y) {
    const u32 view = (u32)zof_view_get_cur_id(ZOF_LAYER_UI);
    para_t *off =
        zof_ctrl_get_form_id(view, view == ZOF_VIEW1_ID ? (u32)VIEW1_LABEL7_ID : (u32)VIEW2_STRIP_TURN_OFF_ID);
    lv_area_t area;
    if (zof_ctrl_get_coords(off, &area) == 0 && zof_ctrl_get_hidden(off) == 0 && x >= area.x1 && x <= area.x2 &&
        y >= area.y1 && y <= area.y2) {
        bench_tick();
        bench_toggle_down();
        ui_paint();
    }
}

void keys_start() {
    zof_win_key_irq_reg(take);
    zof_touch_landed_set(landed);
}
