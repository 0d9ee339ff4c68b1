// Page 2: the list, the button and the presets; what is touched, what is shown, and what is sent.
#include <random>

#include "panel_rails.h"
#include "temp_project.h"
#include "ui/keep.h"

static void presets_fill() {
    const prof_t pps = board_default_rails()[7], epr = board_default_rails()[10];
    bench.preset[0] = {true, pps, 12000, 1000};
    bench.preset[1] = {true, pps, 3300, 500};
    bench.preset[2] = {true, epr, 48000, 5000};
}

// Whether no word on the page is cut.
static bool words_fit() {
    bool fit = true;
    for (u32 id = 1; id <= 158; id++) {
        para_t *c = zof_ctrl_get_form_id(2, id);
        if (!c || !c->obj || !lv_obj_has_class(c->obj, &lv_label_class) || !lv_obj_is_visible(c->obj)) {
            continue;
        }
        const lv_coord_t width = lv_obj_get_content_width(c->obj);
        const bool wrap = lv_label_get_long_mode(c->obj) == LV_LABEL_LONG_WRAP;
        lv_point_t size;
        lv_txt_get_size(&size, lv_label_get_text(c->obj), lv_obj_get_style_text_font(c->obj, LV_PART_MAIN), 0,
                        lv_obj_get_style_text_line_space(c->obj, LV_PART_MAIN), wrap ? width : LV_COORD_MAX,
                        LV_TEXT_FLAG_NONE);
        if (size.x > width || (wrap && size.y > lv_obj_get_content_height(c->obj))) {
            MESSAGE(form("%u is cut: %s", id, lv_label_get_text(c->obj)));
            fit = false;
        }
    }
    return fit;
}

// The page in English and in German, also as a picture if it has a name.
static void pictures(const std::string &name = "") {
    for (const std::string language : {"en", "de"}) {
        REQUIRE(zof_lang_set(language.c_str()) == 0);
        screen_step(10);
        CHECK(words_fit());
        CHECK((name.empty() || screen_is_golden("rails_" + name + (language == "de" ? "_de" : ""))));
    }
    REQUIRE(zof_lang_set("en") == 0);
    screen_step(10);
}

TEST_CASE("rails: pictures of the list and the tray") {
    open_rails();
    presets_fill();
    live(100);
    pictures("none");
    row_tap(7);
    type_value(VOLTS_Y, "12");
    pictures("adjust");
    board_rails(board_default_rails(6), 0);
    live(100);
    pictures("changed");
    live(4000);
    CHECK(shown(VIEW2_TRAY_WORDS_ID).starts_with("PPS and AVS rails are set here."));
    std::vector<prof_t> rails = board_default_rails(6);
    rails[3].vmin = rails[3].vmax = 58000;
    for (u32 i = 0; i < 3; i++) {
        board_rails(rails, 0);
        if (i == 0) {
            pictures("reading_again");
            CHECK(shown(VIEW2_LABEL79_ID).ends_with("try 2 of 3."));
        }
        live(1020);
    }
    pictures("not_valid");
    row_tap(3);
    CHECK(shown(VIEW2_LABEL84_ID) == "Select a rail");
    board_rails({});
    live(100);
    pictures("empty");
}

TEST_CASE("rails: pictures with the output on") {
    open_rails();
    presets_fill();
    output_on(4770, 475);
    row_tap(1);
    pictures("on_strip");
    row_tap(10);
    screen_press(USE_X, USE_Y);
    live(380);
    pictures("hold");
    screen_release(USE_X, USE_Y);
    live(400);
    board_applied();
    board_readings(12000, 874, 105, 12534);
    row_tap(7);
    CHECK(shown(VIEW2_LABEL84_ID) == "Applied");
    type_value(VOLTS_Y, "11");
    pictures("in_force");
    row_tap(12);
    pictures("hold_adjustable");
    panel_port(BENCH_PORT_GONE);
    screen_step(7000);
    pictures("stale");
}

TEST_CASE("rails: pictures of the keypad") {
    open_rails();
    row_tap(7);
    type_value(VOLTS_Y, "12");
    keypad_type(AMPERES_Y, "");
    pictures("keypad_amperes");
    screen_click(112, 438); // Cancel
    live(300);
    keypad_type(VOLTS_Y, "");
    pictures("keypad");
    for (const char c : std::string("13.37")) {
        key(c);
    }
    pictures("keypad_refused");
    key('<'), key('<'), key('<'), key('<'), key('<');
    for (const char c : std::string("48.00")) {
        key(c);
    }
    pictures("keypad_range");
}

TEST_CASE("rails: a selection sends nothing, a grey button does nothing, and a click applies what is shown") {
    open_rails();
    screen_click(USE_X, USE_Y);
    row_tap(0);
    CHECK(shown(VIEW2_LABEL84_ID) == "Applied"); // the first rail is in force
    screen_click(USE_X, USE_Y);
    row_tap(7);
    CHECK((shown(VIEW2_LABEL82_ID) == "3.30 V" && shown(VIEW2_LABEL83_ID) == "1.00 A"));
    CHECK(sent().empty());
    screen_press(USE_X, USE_Y);
    screen_move(USE_X, 320);
    screen_release(USE_X, 320); // slid off
    screen_press(USE_X, 320);
    screen_move(USE_X, USE_Y);
    screen_release(USE_X, USE_Y); // slid on
    CHECK(sent().empty());
    screen_click(USE_X, USE_Y);
    CHECK(sent() == reports{{REG_ADJ_MV, 3300}, {REG_ADJ_MA, 1000}, {REG_RAIL_SELECT, 7}});
    CHECK(shown(VIEW2_LABEL84_ID) == "Applying");
    screen_click(USE_X, USE_Y);
    live(2000);
    CHECK((sent().empty() && shown(VIEW2_TRAY_STATE_ID) == "The box did not take it"));
    pictures();
    CHECK(shown(VIEW2_LABEL84_ID) == "Use 3.30 V");
    screen_click(USE_X, USE_Y);
    CHECK(sent().size() == 3);
    board_write(REG_RAIL_ACTIVE, {7});
    screen_step(400);
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 1);
    CHECK(text_of(1, VIEW1_SET_LINE_ID) == "Set 3.30 V, 1.00 A max, PPS");
    screen_click(100, 25); // the set line opens the rail in force
    board_rails(board_default_rails(), 7);
    live(700);
    CHECK((zof_view_get_cur_id(ZOF_LAYER_UI) == 2 && shown(VIEW2_LABEL84_ID) == "Applied"));
    CHECK(is_shown(2, ROW_ID[7][COL_CHECK]));
    row_tap(5);
    CHECK((is_shown(2, ROW_ID[7][COL_CHECK]) && !is_shown(2, ROW_ID[5][COL_CHECK]))); // selected is not in force
    CHECK(sent().empty());
}

TEST_CASE("rails: with the output on, a higher voltage is sent only by a hold of 0.8 s, once") {
    open_rails();
    output_on(5000, 500);
    row_tap(10);
    const auto hold = [](u32 ms, s32 to_x = USE_X, s32 to_y = USE_Y) {
        sdl_pointer_inject(USE_X, USE_Y, ZOF_TRUE);
        live(ms / 2);
        sdl_pointer_inject(to_x, to_y, ZOF_TRUE);
        live(ms - ms / 2);
        sdl_pointer_inject(to_x, to_y, ZOF_FALSE);
        live(100);
        return sent();
    };
    screen_click(USE_X, USE_Y);
    CHECK((sent().empty() && shown(VIEW2_TRAY_STATE_ID) == "Hold until it is full"));
    pictures();
    live(2200);
    CHECK(shown(VIEW2_TRAY_STATE_ID) == "The output is on at 5.00 V");
    CHECK(hold(790).empty());
    live(300);
    CHECK(!is_shown(2, VIEW2_HOLD_FILL_ID)); // it has run back
    static const std::pair<s32, s32> off[] = {
        {800 - 1, USE_Y}, {582 - 17, USE_Y}, {USE_X, 358 - 17}, {USE_X, 418 + 17}};
    for (const auto &[x, y] : off) {
        CHECK((x == 799 || hold(1500, x, y).empty())); // 799 is less than 16 px beyond the edge
        live(300);
    }
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2); // not the tab that it slid onto
    screen_step(600);
    sdl_pointer_inject(USE_X, USE_Y, ZOF_TRUE);
    screen_step(600); // readings are late
    live(1000);
    sdl_pointer_inject(USE_X, USE_Y, ZOF_FALSE);
    live(300);
    CHECK(sent().empty());
    CHECK(hold(1900, USE_X, 418 + 14) == reports{{REG_RAIL_SELECT, 10}}); // not more than 16 px
    live(2000);
    sdl_pointer_inject(USE_X, USE_Y, ZOF_TRUE);
    live(500);
    board_write(REG_RAIL_COMMIT, {1}); // not a whole list, and then the same one again
    board_rails(board_default_rails(), 0);
    live(1000);
    sdl_pointer_inject(USE_X, USE_Y, ZOF_FALSE);
    live(400);
    CHECK((sent().empty() && shown(VIEW2_LABEL84_ID) == "Hold for 48.00 V"));
    sdl_pointer_inject(USE_X, USE_Y, ZOF_TRUE);
    live(500);
    board_rails(board_default_rails(6), 0); // another list
    live(1000);
    sdl_pointer_inject(USE_X, USE_Y, ZOF_FALSE);
    live(300);
    CHECK(sent().empty());
    board_rails(board_default_rails(), 0);
    row_tap(10);
    bench.hold_off = true;
    live(100);
    screen_click(USE_X, USE_Y);
    CHECK(sent() == reports{{REG_RAIL_SELECT, 10}});
}

TEST_CASE("rails: if applying turns the output on, the page says so and requires a hold for a high voltage") {
    open_rails();
    board_write(REG_AUTO_ARM, {1});
    row_tap(2);
    CHECK((shown(VIEW2_TRAY_STATE_ID) == "This turns the output on" && shown(VIEW2_LABEL84_ID) == "Hold for 12.00 V"));
    pictures();
    screen_click(USE_X, USE_Y);
    CHECK(sent().empty());
    row_tap(7);
    CHECK(shown(VIEW2_LABEL84_ID) == "Use 3.30 V");
}

TEST_CASE("rails: an incomplete list shows no row, and the same list again changes nothing") {
    open_rails();
    row_tap(7);
    type_value(VOLTS_Y, "12");
    board_rails(board_default_rails(), 0);
    live(100);
    CHECK((shown(VIEW2_LABEL82_ID) == "12.00 V" && is_shown(2, VIEW2_SELBOX_ID)));
    board_write(REG_RAIL_COMMIT, {1});
    live(100);
    CHECK((!is_shown(2, ROW_ID[0][COL_BG]) && !is_shown(2, VIEW2_CONTAINER1_ID) && !is_shown(2, VIEW2_PRESET0_ID)));
    screen_click(USE_X, USE_Y);
    live(3000);
    CHECK(shown(VIEW2_LABEL78_ID) == "The rails cannot be read");
    pictures();
    CHECK(sent().empty());
    board_rails(board_default_rails(), 0);
    live(400);
    CHECK((shown(VIEW2_LABEL82_ID) == "12.00 V" && !is_shown(2, VIEW2_LABEL78_ID)));
    screen_step(2100);
    screen_click(109, 148); // nothing is known: rows are deaf
    screen_click(USE_X, USE_Y);
    CHECK((sent().empty() && !is_shown(2, VIEW2_SELBOX_ID) && !is_shown(2, ROW_ID[0][COL_CHECK])));
    CHECK(shown(VIEW2_TRAY_WORDS_ID).starts_with("Last list."));
}

TEST_CASE("rails: presets open in the tray as if typed, and store what it shows when they are held") {
    temp_project_t state;
    open_rails(state.folder.c_str());
    screen_press(643, 164);
    live(1000);
    screen_release(643, 164);
    CHECK(!bench.preset[0].used); // the tray shows nothing
    row_tap(7);
    type_value(VOLTS_Y, "12");
    screen_press(643, 164);
    live(500);
    CHECK(zof_ctrl_state_judge(zof_ctrl_get_form_id(2, VIEW2_PRESET0_ID), LOOK_HOLD));
    screen_release(643, 164);
    CHECK(!bench.preset[0].used); // too short
    bench.preset[0] = {true, board_default_rails()[6], 3300, 1000};
    screen_press(643, 164);
    live(500);
    screen_release(643, 164);
    CHECK((bench.preset[0].mv == 3300 && shown(VIEW2_LABEL82_ID) == "12.00 V")); // too long for a touch
    screen_press(643, 164);
    live(1000);
    screen_release(643, 164);
    CHECK((bench.preset[0].used && shown(VIEW2_PRESET0_ID) == "12.00 V\n1.00 A"));
    bench.preset[0] = {};
    keep_load(); // as after a restart
    live(100);
    CHECK(shown(VIEW2_PRESET0_ID) == "12.00 V\n1.00 A");
    row_tap(2);
    screen_press(643, 164);
    screen_move(643, 100);
    live(1000);
    screen_release(643, 100);
    CHECK((bench.preset[0].mv == 12000 && bench.preset[0].rail.type == RAIL_PPS)); // slid off
    screen_click(643, 164);
    live(300);
    CHECK((shown(VIEW2_LABEL84_ID) == "Use 12.00 V" && is_shown(2, VIEW2_SLIDER0_ID)));
    CHECK(sent().empty());
    board_rails(board_default_rails(5), 0); // without PPS
    live(400);
    screen_click(643, 164);
    live(300);
    CHECK(shown(VIEW2_LABEL84_ID) == "Select a rail");
}

TEST_CASE("rails: whatever is touched, only displayed values on the grid are sent, and higher ones only by a hold") {
    open_rails();
    presets_fill();
    board box;
    box.rails = board_default_rails();
    box.noise = false;
    box.rail = 0;
    box.target_mv = box.limit_ma = 5000;
    box.write = board_write;
    u32 applied = 0, raised = 0;
    for (u32 seed = 1; seed <= 12; seed++) {
        CAPTURE(seed);
        std::mt19937 random(seed);
        board_output(box, seed % 3 != 0);
        for (u32 action = 0; action < 60; action++) {
            static const std::pair<s32, s32> places[] = {{USE_X, USE_Y},     {USE_X, USE_Y}, {PLUS_X, VOLTS_Y},
                                                         {MINUS_X, VOLTS_Y}, {82, VOLTS_Y},  {312, 438},
                                                         {643, 164},         {740, 164},     {112, 438}};
            const u32 any = random() % 16;
            const s32 row = (s32)(random() % RAIL_MAX);
            const auto [x, y] = any < 9    ? places[any]
                                : any < 13 ? std::pair<s32, s32>{109 + row / 4 * 194, 86 + row % 4 * 62}
                                           : std::pair<s32, s32>{random() % 800, 58 + random() % 370};
            const std::string button = shown(VIEW2_LABEL84_ID), volts = shown(VIEW2_LABEL82_ID);
            const u16 before = box.rail == RAIL_NONE ? (u16)0 : (u16)box.target_mv;
            const u32 ms = random() % 4 ? 30 : 1000;
            sdl_pointer_inject(x, y, ZOF_TRUE);
            for (u32 t = 0; t < ms; t += 50) {
                board_step(box, 50);
                screen_step(50);
            }
            sdl_pointer_inject(x, y, ZOF_FALSE);
            screen_step(50);
            const reports out = sent();
            for (const auto &[addr, value] : out) {
                board_report(box, addr, value);
            }
            if (!out.empty() && out.back().first == REG_RAIL_SELECT) {
                applied++;
                REQUIRE((button.starts_with("Use ") || button.starts_with("Hold for ")));
                const prof_t &rail = box.rails[out.back().second];
                const u16 mv = prof_adjustable(&rail) ? out.front().second : rail.vmax;
                char text[32];
                snprintf(text, sizeof(text), "%u.%02u V", mv / 1000, mv % 1000 / 10);
                REQUIRE((button.ends_with(text) && volts == text));
                REQUIRE((!prof_adjustable(&rail) || grid_can(&rail, mv, out[1].second)));
                if (box.on && mv > before) {
                    raised++;
                    REQUIRE((ms >= 800 && button.starts_with("Hold for ")));
                }
            }
            board_step(box, 100);
            screen_step(300);
            if (zof_view_get_cur_id(ZOF_LAYER_UI) != 2) {
                go_to(2);
                board_send_rails(box);
                screen_step(300);
            }
        }
    }
    MESSAGE("applied " << applied << " times, " << raised << " of them higher with the output on");
    CHECK((applied > 20 && raised > 3));
}
