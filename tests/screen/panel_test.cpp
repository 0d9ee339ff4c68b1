#include <utility>

#include "panel_fixture.h"

// What the panel has reported since the last call.
static reports sent() {
    return std::exchange(panel_sent, {});
}

static void rails_open() {
    panel_open();
    go_to(2);
    board_rails(board_default_rails());
}

TEST_CASE("panel: the front page is empty at first, and shows readings truncated, never rounded") {
    panel_open();
    CHECK(screen_is_golden("panel_output_unknown"));
    board_readings(12345, 999, 605, 1234567);
    CHECK(text_of(1, VIEW1_LABEL0_ID) == "12.34");
    CHECK(text_of(1, VIEW1_LABEL2_ID) == "0.999 A");
    CHECK(text_of(1, VIEW1_LABEL4_ID) == "60.5 W");
    CHECK(text_of(1, VIEW1_LABEL3_ID) == "1234.567");
    board_readings(0, 0, 0, 12481);
    CHECK(screen_is_golden("panel_output_off"));
    board_readings(20000, 3012, 602, 12534);
    board_write(REG_OUT_STATE, {1});
    CHECK(screen_is_golden("panel_output_on"));
}

TEST_CASE("panel: the toggle requests the opposite of the board's state, and a touch counts where it is lifted") {
    panel_open();
    screen_click(632, 168);
    screen_click(632, 168);
    CHECK(sent() == reports{{REG_OUT_REQ, 1}, {REG_OUT_REQ, 1}});
    board_write(REG_OUT_STATE, {1});
    screen_click(632, 168);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_press(632, 168);
    CHECK(screen_is_golden("panel_output_pressed"));
    screen_move(200, 300);
    screen_release(200, 300);
    board_readings(1, 1, 1, 5000);
    screen_press(396, 392); // resets the session
    CHECK(is_shown(1, VIEW1_LABEL21_ID));
    screen_move(396, 200);
    CHECK(!is_shown(1, VIEW1_LABEL21_ID));
    screen_release(396, 200);
    CHECK(sent().empty()); // slid off
    screen_click(396, 392);
    CHECK(sent() == reports{{REG_SESS_RESET, 1}});
    CHECK(text_of(1, VIEW1_LABEL3_ID) == "5.000"); // until the board says otherwise
}

TEST_CASE("panel: entering the rails page requests them, and an empty list says what to expect") {
    panel_open();
    screen_click(632, 300);
    screen_step(400);
    CHECK(sent() == reports{{REG_RAIL_REQUEST, 1}});
    CHECK(screen_is_golden("panel_rails_empty"));
    board_rails(board_default_rails());
    CHECK(screen_is_golden("panel_rails_thirteen"));
    for (const auto &[count, has] : {std::pair<u16, u32>{20, 13}, {0x0100, 0}}) {
        board_write(REG_RAIL_COUNT, {count});
        board_write(REG_RAIL_COMMIT, {0});
        CHECK(g_prof_n == has);
    }
}

TEST_CASE("panel: a fixed rail is chosen, used, and active when the board says so") {
    rails_open();
    screen_click(684, 392);
    CHECK(sent().empty()); // nothing is chosen yet
    screen_click(140, 98);
    CHECK(screen_is_golden("panel_rails_fixed"));
    screen_click(684, 392);
    CHECK(sent() == reports{{REG_RAIL_SELECT, 1}, {REG_SETTINGS_REQUEST, 1}});
    screen_step(400);
    go_to(2);
    board_rails(board_default_rails(), 4);
    CHECK(screen_is_golden("panel_rails_in_force"));
    screen_click(684, 392); // drawn as disabled, but the marked rail is used all the same
    CHECK(sent().front() == std::pair<u16, u16>{REG_RAIL_SELECT, 4});
}

TEST_CASE("panel: an adjustable rail opens its sliders at its maximum, and sends what they show") {
    rails_open();
    screen_click(400, 160);
    board_rails(board_default_rails()); // hides the sliders, but a tap on any row still only closes them
    screen_click(140, 98);
    CHECK(g_sel == RAIL_NONE);
    screen_click(400, 160);
    screen_drag(752, 344, 466, 344, 8);
    screen_drag(424, 392, 341, 392, 8);
    const u16 mv = (u16)zof_slider_get_value(zof_ctrl_get_form_id(2, VIEW2_SLIDER0_ID));
    const u16 ma = (u16)zof_slider_get_value(zof_ctrl_get_form_id(2, VIEW2_SLIDER1_ID));
    CHECK(sent().empty());
    CHECK(screen_is_golden("panel_rails_adjust"));
    screen_click(684, 392);
    CHECK(sent() == reports{{REG_ADJ_MV, mv}, {REG_ADJ_MA, ma}, {REG_RAIL_SELECT, 7}, {REG_SETTINGS_REQUEST, 1}});
}

TEST_CASE("panel: odd rails are shown as they are, and only real ranges of PPS and AVS open the sliders") {
    panel_open();
    go_to(2);
    board_rails({{99, 5000, 5000, 5000}, {3, 15000, 28000, 5000}, {1, 9000, 9000, 3000}, {1, 3300, 40000, 5000}}, 200);
    CHECK(text_of(2, 6) + text_of(2, 10) + text_of(2, 9) == "FIXEPR15.0-28.0 V");
    screen_click(140, 98); // an EPR range
    CHECK(!is_shown(2, VIEW2_CONTAINER1_ID));
    CHECK(text_of(2, VIEW2_LABEL84_ID) == "Use 15.00 V");
    board_rails(board_default_rails());
    screen_click(660, 160); // the thirteenth
    CHECK(g_sel == 12);
    board_rails({{0, 5000, 5000, 5000}}, 5); // active, but not in the table
    CHECK(g_sel == RAIL_NONE);
}

TEST_CASE("panel: settings are shown as stored, corrected by the board, and sent as they change") {
    panel_open();
    for (const auto &[pct, level] : std::vector<std::pair<u16, u32>>{{10, 9}, {100, 99}}) {
        board_write(REG_BRIGHT, {pct});
        screen_step(30);
        CHECK(sdl_bright_get() == level * 255 / 100); // in every view, one step short of full
    }
    screen_click(500, 456);
    CHECK(sent() == reports{{REG_SETTINGS_REQUEST, 1}});
    board_write(REG_BRIGHT, {80});
    board_write(REG_AUTO_ARM, {1});
    screen_step(300);
    CHECK(sent().empty()); // the slider moved, and nothing was sent back
    CHECK(screen_is_golden("panel_settings"));
    screen_click(590, 246);
    screen_click(720, 360);
    CHECK(sent() == reports{{REG_BOOT_STATE, 1}, {REG_AUTO_ARM, 0}});
    screen_drag(611, 108, 48, 300, 6); // follows the finger wherever it goes
    CHECK(sent().back() == std::pair<u16, u16>{REG_BRIGHT, 10});
    screen_step(300);
    CHECK(screen_is_golden("panel_settings_changed"));
}

TEST_CASE("panel: a language change leaves no English word on the running panel") {
    panel_open();
    board_readings(20000, 3012, 602, 12534);
    board_write(REG_OUT_STATE, {1});
    go_to(3);
    CHECK(screen_is_golden("panel_about"));
    go_to(2);
    board_rails(board_default_rails());
    screen_click(140, 98);
    CHECK(zof_lang_set("de") == 0);
    CHECK(screen_is_golden("panel_rails_fixed_de"));
    for (u32 view : {1, 3, 4}) {
        go_to(view);
        CHECK(screen_is_golden(view == 1 ? "panel_output_on_de" : view == 3 ? "panel_about_de" : "panel_settings_de"));
    }
    go_to(2);
    board_rails({});
    CHECK(screen_is_golden("panel_rails_empty_de"));
    CHECK(zof_lang_set("en") == 0);
    CHECK(screen_is_golden("panel_rails_empty"));
    zof_lang_set_cur_str("#use", "%u %02u %s"); // not a format of two numbers
    board_rails(board_default_rails());
    screen_click(140, 98);
    CHECK(text_of(2, VIEW2_LABEL84_ID) == "Use 9.00 V");
    board_rails({});
    CHECK(zof_lang_set("no such language") == -1); // then the code writes its default words
    CHECK(text_of(2, VIEW2_LABEL84_ID) == "Select a rail");
}
