#include "ui/keys.h"

#include "bench/bench_record.h"
#include "bench_ids.h"
#include "ui/keep.h"
#include "ui/ui.h"

// Codes of keys: the character for those that have one.
enum : u32 { KEY_ESC = 27, KEY_SPACE = ' ', KEY_LOCK = 'l', KEY_F2 = 0x4000003B, KEY_F12 = 0x40000045 };

static constexpr u32 pages[] = {ZOF_VIEW1_ID, ZOF_VIEW2_ID, ZOF_VIEW5_ID, ZOF_VIEW4_ID, ZOF_VIEW3_ID}; // as the tabs

// The key that is down; a key that repeats counts once.
static u32 down_key;

static void page_key(u32 key) {
    if (ui_takes(ZOF_EVENT_PRESSED)) {
        ui_tab_to(pages[key - '1']);
    }
}

static void pressed(u32 key) {
    if (key == KEY_ESC || key == KEY_F12) {
        bench_off();
    } else if (key == KEY_SPACE) {
        toggle_key(ZOF_EVENT_PRESSED);
    } else if (key == KEY_LOCK) {
        bench_lock(!bench.locked);
        keep_save();
    } else if (key == KEY_F2) {
        record_picture();
    } else if (key >= '1' && key <= '5') {
        page_key(key);
    }
}

// A second finger counts for Off alone.
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

static void take(zof_win_key_param_t *param, u32 key) {
    const bool down = zof_win_key_get_status(param) == 1;
    if (down == (down_key == key)) {
        return;
    }
    down_key = down ? key : 0;
    bench_tick();
    if (down) {
        pressed(key);
    } else if (key == KEY_SPACE) {
        toggle_key(ZOF_EVENT_CLICKED);
    }
    ui_paint();
}

void keys_start() {
    zof_win_key_irq_reg(take);
    zof_touch_landed_set(landed);
}
