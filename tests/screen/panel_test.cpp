#include "panel_fixture.h"
#include "temp_project.h"
#include "ui/keep.h"

TEST_CASE("panel: at the start it shows what it looks for, then why there is no box") {
    panel_open();
    panel_port(BENCH_PORT_LOOKING);
    CHECK(screen_is_golden("output_start"));
    screen_step(2000);
    panel_port(BENCH_PORT_RIGHT, "dialout");
    CHECK(screen_is_golden("output_no_box"));
    screen_click(632, 340); // Port
    screen_step(400);
    CHECK(screen_is_golden("settings_no_box"));
    static const struct {
        bench_port_e state;
        const char *who, *text;
    } rows[] = {{BENCH_PORT_UNSET, "", "No port is set for the box"},
                {BENCH_PORT_MISSING, "", "No box at /dev/ttyUSB0: nothing is plugged in there"},
                {BENCH_PORT_RIGHT, "", "No box at /dev/ttyUSB0: no right to open it"},
                {BENCH_PORT_HELD, "", "No box at /dev/ttyUSB0: another program has it open"},
                {BENCH_PORT_HELD, "picocom (4711)", "No box at /dev/ttyUSB0: picocom (4711) has it open"},
                {BENCH_PORT_FAULT, "Input/output error", "No box at /dev/ttyUSB0: Input/output error"}};
    for (const auto &row : rows) {
        panel_port(row.state, row.who);
        CHECK(text_of(4, VIEW4_STRIP_NOTICE_ID) == row.text);
    }
}

TEST_CASE("panel: the output's page shows what the board reports, in every state") {
    panel_open();
    board_ready();
    board_applied();
    CHECK(screen_is_golden("output_hold_first")); // 12 V was never on: a hold
    bench.last_on_mv = 12000;
    screen_step(100);
    CHECK(screen_is_golden("output_off"));
    running();
    CHECK(screen_is_golden("output_on"));
    screen_click(396, 392);
    board_readings(12000, 874, 105, 0);
    screen_step(10);
    CHECK(screen_is_golden("output_undo"));
    CHECK(sent() == reports{{REG_SESS_RESET, 1}});
    screen_click(396, 392);
    CHECK(text_of(1, VIEW1_LABEL3_ID) == "12.534");
    bench.base_mwh = 0;
    running(9410, 1000, 94);
    live(400);
    CHECK(is_shown(1, VIEW1_LIMIT_ID));
    CHECK(screen_is_golden("output_limit"));
    running();
    live(400);
    CHECK(!is_shown(1, VIEW1_LIMIT_ID));
    snprintf(bench.remote, sizeof(bench.remote), "192.168.1.20");
    screen_step(100);
    CHECK(screen_is_golden("output_remote"));
    bench.locked = true;
    screen_click(712, 25); // Local
    CHECK((bench.remote[0] && bench_locked_note()));
    bench.locked = false;
    screen_click(712, 25);
    CHECK(!bench.remote[0]);
}

TEST_CASE("panel: old readings fade, become dashes, and return at once, but the toggle waits for the state") {
    open_running();
    screen_step(1100);
    CHECK(screen_is_golden("output_late"));
    screen_step(1000);
    CHECK(text_of(1, VIEW1_LABEL0_ID) == "-․--");
    screen_step(5000);
    CHECK(text_of(1, VIEW1_NOTICE_ID) == "No data from the box for 7 s: the box is silent");
    panel_port(BENCH_PORT_GONE);
    CHECK(screen_is_golden("output_stale"));
    panel_port(BENCH_PORT_OPEN);
    sent();
    board_readings(12000, 874, 105, 12534);
    board_settings_send();
    board_rails(board_default_rails(), 7);
    CHECK(screen_is_golden("output_unknown"));
    sent();
    screen_press(632, 208);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_release(632, 208);
    CHECK(text_of(1, VIEW1_UNKNOWN_WORD_ID) == "Off requested");
    for (u32 view : {2, 3, 4, 5}) { // likewise on each page
        go_to(view);
        board_readings(12000, 874, 105, 12534);
        screen_step(400);
        screen_press(704, 26);
        CHECK(sent() == reports{{REG_OUT_REQ, 0}});
        screen_release(704, 26);
    }
}

TEST_CASE("panel: off acts when the finger lands, on when it lifts inside, and a higher voltage needs a hold") {
    panel_open();
    board_ready();
    screen_click(541, 300); // a corner of its box, outside of the disc
    CHECK(sent().empty());
    screen_click(632, 208);
    CHECK(sent() == reports{{REG_OUT_REQ, 1}}); // 5 V need no hold
    running();
    screen_press(632, 208);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    board_write(REG_OUT_STATE, {0});
    screen_release(632, 208);
    screen_click(632, 208); // within 0.6 s
    CHECK(sent().empty());
    live(600);
    screen_press(632, 208);
    screen_move(541, 300);
    screen_release(541, 300);
    CHECK(sent().empty()); // slid off into a corner of the box
    board_applied({10, 48000, 5000});
    board_readings(0, 0, 0, 12534);
    live(400);
    screen_press(632, 208);
    live(400);
    CHECK(screen_is_golden("output_hold_on"));
    screen_release(632, 208);
    screen_press(632, 208);
    live(300);
    screen_move(632, 90); // 16 px beyond the edge at most
    live(700);
    screen_release(632, 90);
    CHECK(sent().empty());
    for (const char *holder : {"192.168.1.20", ""}) { // a program takes the panel in the middle of a hold
        screen_press(632, 208);
        live(400);
        strcpy(bench.remote, holder);
        bench.locked = holder[0] == '\0'; // or the panel is locked
        live(800);
        screen_release(632, 208);
        CHECK(sent().empty());
        bench.remote[0] = '\0';
        bench.locked = false;
    }
    screen_press(632, 208);
    live(1000);
    CHECK(sent() == reports{{REG_OUT_REQ, 1}});
    live(1000);
    screen_release(632, 208);
    CHECK(sent().empty()); // once
}

TEST_CASE("panel: holding the Output tab for a second locks everything except off") {
    open_running();
    screen_press(80, 456);
    live(900);
    CHECK(!bench.locked);
    live(200);
    screen_release(80, 456);
    CHECK(bench.locked);
    screen_click(632, 340); // Rails
    live(300);
    CHECK(screen_is_golden("output_locked"));
    screen_click(240, 456);
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 1);
    screen_press(632, 208);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_release(632, 208);
    screen_press(80, 456);
    live(1100);
    screen_release(80, 456);
    CHECK(!bench.locked);
    live(600);
    screen_click(240, 456);
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
}

TEST_CASE("panel: the strip shows the live output on every page, and turns it off") {
    open_running();
    for (u32 view : {2, 3, 4, 5}) {
        CAPTURE(view);
        go_to(view);
        running();
        live(400);
        CHECK(text_of(view, VIEW2_STRIP_VOLTS_ID) == "12.00 V");
        screen_press(704, 26);
        CHECK(sent() == reports{{REG_OUT_REQ, 0}});
        screen_release(704, 26);
        board_write(REG_OUT_STATE, {0});
        screen_step(10);
        CHECK(!is_shown(view, VIEW2_STRIP_TURN_OFF_ID));
        screen_click(704, 26); // it never turns on
        CHECK(sent().empty());
        screen_step(2000);
        CHECK(is_shown(view, VIEW2_STRIP_NOTICE_ID));
        CHECK(text_of(view, VIEW2_STRIP_TURN_OFF_ID) == "Turn off");
        screen_click(704, 26);
        CHECK(text_of(view, VIEW2_STRIP_TURN_OFF_ID) == "Off requested");
        running();
    }
}

TEST_CASE("panel: a replay shows all pages and says so, and sends nothing") {
    open_running();
    strcpy(bench.remote, "box.txt");
    bench.replay = true;
    screen_click(400, 216); // the toggle
    live(100);
    CHECK(text_of(1, VIEW1_REMOTE_ID) == "Replay: box.txt");
    s32 tab = 80;
    for (const u32 view : {2, 5, 4, 3}) {
        screen_click(tab += 160, 456);
        screen_step(1100);
        live(100);
        CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == (s32)view);
        CHECK(text_of(view, VIEW2_STRIP_REMOTE_ID) == "Replay");
        screen_click(704, 26);
        screen_step(500);
    }
    CHECK(text_of(3, VIEW3_LINK_ID) == "Replay: box.txt");
    CHECK(text_of(4, VIEW4_PORT_STATE_ID) == "Replay: box.txt");
    CHECK(sent().empty());
}

TEST_CASE("panel: settings are shown as the box reports them, and sent when they change") {
    open_running();
    for (const auto &[pct, level] : std::vector<std::pair<u16, u32>>{{10, 9}, {100, 99}}) {
        board_write(REG_BRIGHT, {pct});
        screen_step(30);
        CHECK(sdl_bright_get() == level * 255 / 100); // in every view, one step short of full
    }
    board_write(REG_BRIGHT, {80});
    screen_click(560, 456);
    running(4770, 475, 22);
    live(300);
    CHECK(screen_is_golden("settings"));
    board_write(REG_OUT_STATE, {0});
    board_readings(0, 0, 0, 0);
    board_write(REG_AUTO_ARM, {1});
    live(300);
    screen_click(728, 190); // the hold
    CHECK(bench.hold_off);
    live(300);
    CHECK(screen_is_golden("settings_off"));
    CHECK(sent().empty());
    screen_click(674, 126);
    screen_click(341, 190);
    CHECK(sent() == reports{{REG_BOOT_STATE, 1}, {REG_AUTO_ARM, 0}});
    live(100);
    screen_drag(250, 128, 20, 300, 6); // follows the finger wherever it goes, and is sent when it lifts
    CHECK(sent() == reports{{REG_BRIGHT, 10}});
    screen_click(685, 314); // Deutsch
    live(300);
    CHECK(text_of(4, 28) == "Sprache");
    screen_step(2100);
    screen_click(341, 190);
    screen_click(674, 126);
    CHECK(sent().empty()); // nothing is known of the box
}

TEST_CASE("panel: while a page slides away the tab bar stands still, and Off counts") {
    open_running();
    screen_press(632, 340); // Rails
    sdl_pointer_inject(632, 340, ZOF_FALSE);
    for (u32 ms = 0; zof_view_get_cur_id(ZOF_LAYER_UI) != 2 && ms < 100; ms += 5) {
        screen_step(5);
    }
    screen_step(40);
    CHECK(screen_is_golden("output_slides"));
    screen_press(704, 26);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_release(704, 26);
    live(300);
    CHECK(lv_obj_get_child_cnt(lv_layer_top()) == 0);
    screen_click(80, 456);
    live(400);
    screen_click(632, 340);
    live(400);
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
}

TEST_CASE("panel: a touch that wakes a dim display does nothing else, but Off works") {
    open_running();
    const auto level = [](u16 percent) { return percent * 99 / 100 * 255 / 100; };
    go_to(4);
    board_write(REG_BRIGHT, {20});
    live(400);
    screen_click(341, 252); // averaging: a window is always bright enough
    CHECK((bench.averaged_off && sdl_bright_get() == level(20)));
    zof_drv_get_disp_t()->own_light = ZOF_TRUE;
    screen_click(341, 252);
    CHECK((bench.averaged_off && sdl_bright_get() == level(30)));
    live(25000);
    screen_click(341, 252); // awake
    CHECK(!bench.averaged_off);
    live(25000);
    CHECK(sdl_bright_get() == level(30)); // since the last touch
    live(6000);
    CHECK(sdl_bright_get() == level(20));
    screen_click(120, 314); // beside all controls
    live(100);
    CHECK(sdl_bright_get() == level(30));
    screen_click(341, 252);
    CHECK(bench.averaged_off);
    live(31000);
    screen_press(704, 26);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_release(704, 26);
}

TEST_CASE("panel: no English word is left on a running panel in German") {
    open_running();
    CHECK(zof_lang_set("de") == 0);
    screen_step(100);
    CHECK(screen_is_golden("output_on_de"));
    go_to(3);
    running();
    live(1000);
    CHECK(screen_is_golden("about_de"));
    CHECK(zof_lang_set("en") == 0);
    live(1000);
    CHECK(screen_is_golden("about"));
    go_to(4);
    CHECK(zof_lang_set("de") == 0);
    running(4770, 475, 22);
    live(1000);
    CHECK(screen_is_golden("settings_de"));
    zof_lang_set_cur_str("#hold_for", "{0} {4} {{0} %s"); // a language file is data
    board_write(REG_OUT_STATE, {0});
    board_applied({10, 48000, 5000});
    go_to(1);
    CHECK(text_of(1, VIEW1_LABEL7_ID) == "48.00 V {4} {48.00 V %s");
    CHECK(zof_lang_set("no such language") == -1); // then the code writes its default words
    screen_step(100);
    CHECK(text_of(1, VIEW1_LABEL7_ID) == "Hold for\n48.00 V");
}

TEST_CASE("panel: its own settings survive a restart, and a damaged file does no harm") {
    temp_project_t state;
    const std::string file = state.folder + "settings";
    panel_open(state.folder.c_str());
    go_to(4);
    screen_step(400);
    screen_click(728, 190); // the hold
    screen_click(685, 314); // Deutsch
    screen_click(341, 252); // the average
    screen_click(728, 252); // the lock
    screen_click(341, 252); // is deaf now
    CHECK((bench_locked_note() && is_shown(4, VIEW4_LOCK_ID) && bench.averaged_off));
    CHECK(file_text(file) == "language = de\nhold_to_raise = no\naverage_readings = no\nlocked = yes\n"
                             "preset_1 = none\npreset_2 = none\npreset_3 = none\npreset_4 = none\n");
    bench.hold_off = bench.averaged_off = bench.locked = false;
    CHECK(zof_lang_set("en") == 0);
    keep_load();
    CHECK((bench.hold_off && bench.averaged_off && bench.locked && text_of(4, 28) == "Sprache"));
    state.write("settings", "hold_to_raise = maybe\n\nlocked\n\xff = yes");
    const std::string log = printed([] { keep_load(); });
    for (const char *line : {"settings:1: not a setting", "settings:3: not a setting", "settings:4: not a setting"}) {
        CHECK(contains(log, line));
    }
    CHECK(!bench.hold_off);
}

TEST_CASE("panel: a second finger counts only for off") {
    open_running();
    go_to(4);
    running();
    live(400);
    screen_press(20, 300);
    zof_touch_landed(700, 190); // a switch
    CHECK(sent().empty());
    zof_touch_landed(704, 26);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    board_write(REG_OUT_STATE, {0});
    screen_step(700);
    zof_touch_landed(704, 26);
    CHECK(sent().empty());
    screen_release(20, 300);
}
