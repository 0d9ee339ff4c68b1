// The panel's keys: shortcuts, and the focus that the arrows move over all controls.
#include <set>

#include "hardware/uart/zof_hw_map.h"
#include "panel_rails.h"
#include "ui/focus.h"
#include "ui/ui.h"

enum : u32 { RIGHT = 0x4000004F, LEFT, DOWN, UP, ENTER = 13, BACK = 8, PAD_5 = 0x4000005D };

static void keyboard(u32 code, bool down = true) {
    zof_drv_win_key_set_value(down, code);
    screen_step(SCREEN_INPUT_MS);
}

static void tap(u32 code) {
    keyboard(code);
    keyboard(code, false);
}

TEST_CASE("panel: keys show pages, turn on and off, and lock") {
    open_running();
    keyboard(27);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    board_write(REG_OUT_STATE, {0});
    live(700);
    keyboard(' ');
    CHECK(sent().empty());
    keyboard(' ', false);
    CHECK(sent() == reports{{REG_OUT_REQ, 1}}); // when it is let go
    running();
    keyboard(' ');
    keyboard(' '); // repeats
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    keyboard(' ', false);
    board_write(REG_OUT_STATE, {0});
    board_applied({10, 48000, 5000});
    live(700);
    keyboard(' ');
    live(700);
    keyboard('x'); // another key does not affect this one
    keyboard(' ', false);
    keyboard('x', false);
    live(700);
    CHECK(sent().empty()); // let go before the hold was full
    keyboard(' ');
    live(900);
    CHECK(sent() == reports{{REG_OUT_REQ, 1}});
    keyboard(' ', false);
    for (const auto &[code, view] : {std::pair<u32, u32>{'2', 2}, {'3', 5}, {'4', 4}, {'5', 3}, {'1', 1}, {'2', 2}}) {
        live(400);
        keyboard(code);
        keyboard(code, false);
        CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == view);
    }
    live(700);
    keyboard(' ');
    keyboard(' ', false);
    CHECK(sent().empty()); // turns on only on the page with the toggle
    keyboard('l');
    keyboard('l', false);
    keyboard('1');
    keyboard('1', false);
    CHECK((bench.locked && zof_view_get_cur_id(ZOF_LAYER_UI) == 2));
    running();
    keyboard(0x40000045);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
}

static std::string box_text(const lv_area_t &box) {
    return form("%d %d %d %d", box.x1, box.y1, box.x2, box.y2);
}

// Returns the position of the ring when it is around a control.
static std::string ring_around(const para_t *ctrl) {
    static constexpr lv_area_t screen = {0, 0, 799, 479};
    lv_area_t box = ctrl->obj->coords;
    lv_area_increase(&box, 5, 5);
    _lv_area_intersect(&box, &box, &screen);
    return box_text(box);
}

// Returns the position of the ring, or an empty text if it is not shown.
static std::string ring() {
    const lv_obj_t *obj = lv_obj_get_child(lv_layer_sys(), 0);
    return obj ? box_text(obj->coords) : "";
}

// Returns the ring positions of all controls with an event function that a finger can reach.
static std::set<std::string> reachable() {
    std::set<std::string> out;
    for (u32 id = 1; id <= 158; id++) {
        para_t *ctrl = zof_ctrl_get_form_id((u32)zof_view_get_cur_id(ZOF_LAYER_UI), id);
        for (s32 i = 0; ctrl && ctrl->obj && ctrl->attr->zof_ctrl_event != no_event && i < 800 * 480; i += 8) {
            lv_point_t at = {(lv_coord_t)(i % 800), (lv_coord_t)(i / 800 / 8 * 8)};
            if (i / 800 % 8 == 0 && lv_indev_search_obj(lv_scr_act(), &at) == ctrl->obj) {
                out.insert(ring_around(ctrl));
                break;
            }
        }
    }
    return out;
}

static void focus_to(u32 view, u32 ctrl) {
    const std::string wanted = ring_around(zof_ctrl_get_form_id(view, ctrl));
    for (u32 i = 0; i < 50 && ring() != wanted; i++) {
        tap(RIGHT);
    }
    REQUIRE(ring() == wanted);
}

TEST_CASE("keys: arrows move the ring over exactly the controls that a finger can press") {
    open_rails();
    for (u32 view : {1, 2, 3, 4, 5, 2}) {
        CAPTURE(view);
        go_to(view);
        board_readings(0, 0, 0, 12534);
        screen_step(400);
        if (view == 2) { // with a rail in the tray, and then with the keypad over all
            board_rails(board_default_rails(), 0);
            row_tap(7);
            if (!ring().empty()) {
                screen_click(82, VOLTS_Y);
                live(400);
            }
        }
        std::set<std::string> seen;
        tap(RIGHT);
        const std::string first = ring();
        do {
            seen.insert(ring());
            tap(RIGHT);
        } while (ring() != first && seen.size() < 60);
        CHECK(seen == reachable());
        tap(LEFT);
        tap(RIGHT);
        CHECK(ring() == first);
        for (u32 i = 0; i < 12; i++) {
            tap(DOWN);
        }
        const std::string lowest = ring();
        tap(UP);
        CHECK(seen.contains(ring()));
        CHECK((view == 3 || ring() != lowest)); // there is nothing but tabs
    }
    CHECK(sent().empty());
    tap(RIGHT);
    screen_press(400, 30); // any touch removes the ring, even beside all controls
    screen_release(400, 30);
    screen_step(100);
    CHECK(ring().empty());
}

TEST_CASE("keys: Enter presses the control in the ring as a finger does: it clicks, holds, and turns off at once") {
    open_rails();
    row_tap(7);
    output_on(5000, 100);
    tap(ENTER); // there is no ring yet
    CHECK(!is_shown(2, VIEW2_KEYPAD_ID));
    focus_to(2, VIEW2_LABEL82_ID);
    tap(ENTER);
    CHECK((is_shown(2, VIEW2_KEYPAD_ID) && ring().empty())); // what had the ring is covered
    live(400);
    for (const u32 code : {(u32)'9', (u32)'9', (u32)BACK, (u32)'.', (u32)PAD_5}) {
        tap(code);
    }
    CHECK(shown(VIEW2_PAD_VALUE_ID) == "9.5 V");
    tap(ENTER); // Done
    CHECK((!is_shown(2, VIEW2_KEYPAD_ID) && shown(VIEW2_LABEL82_ID) == "9.50 V"));
    live(400);
    focus_to(2, VIEW2_LABEL84_ID);
    CHECK(screen_is_golden("rails_focus"));
    keyboard(ENTER);
    live(700);
    keyboard(ENTER, false);
    live(200);
    CHECK(sent().empty()); // let go before the hold was full
    keyboard(ENTER);
    live(400);
    zof_touch_landed(300, 190); // a second finger can only turn off
    live(500);
    CHECK(sent() == reports{{REG_ADJ_MV, 9500}, {REG_ADJ_MA, 1000}, {REG_RAIL_SELECT, 7}});
    keyboard(ENTER, false);
    focus_to(2, VIEW2_STRIP_TURN_OFF_ID);
    keyboard(ENTER);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}}); // at once
    board_write(REG_OUT_STATE, {0});
    keyboard(ENTER, false);
    live(700);
    CHECK(ring().empty()); // Off is hidden
    tap(ENTER);
    CHECK(sent().empty());
    go_to(1);
    live(400);
    focus_to(1, VIEW1_LABEL7_ID);
    bench.locked = true;
    tap(ENTER);
    CHECK((sent().empty() && bench_locked_note()));
    bench.locked = false;
    screen_press(20, 300);
    tap(RIGHT);
    tap(ENTER); // not while a finger is down
    screen_release(20, 300);
    CHECK(sent().empty());
}

TEST_CASE("keys: arrows drag what Enter holds, and the page ignores a finger that lands then") {
    panel_open();
    board_ready();
    go_to(4);
    live(400);
    focus_to(4, VIEW4_SLIDER0_ID);
    keyboard(ENTER);
    CHECK(text_of(4, VIEW4_LABEL16_ID) == "80%");
    for (u32 i = 0; i < 20; i++) {
        tap(LEFT);
    }
    screen_press(728, 190); // a switch
    live(100);
    keyboard(ENTER, false);
    live(100);
    CHECK(sent() == reports{{REG_BRIGHT, 26}});
    screen_release(728, 190);
    live(100);
    CHECK(!bench.hold_off);
    screen_click(728, 190);
    CHECK(bench.hold_off);
}
