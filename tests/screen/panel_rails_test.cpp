// Page 2: what is touched, what is shown, and what is sent.
#include <random>
#include <utility>

#include "bench_look.h"
#include "panel_fixture.h"
#include "ui/keep.h"

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

static reports sent() {
    reports out = std::exchange(panel_sent, {});
    std::erase_if(out,
                  [](auto report) { return report.first == REG_RAIL_REQUEST || report.first == REG_SETTINGS_REQUEST; });
    return out;
}

// Readings go on while the screen runs.
static void live(u32 ms) {
    for (u32 left = ms; left > 0; left -= std::min(left, 100u)) {
        board_readings(bench.mv, bench.ma, bench.dw, bench.mwh);
        screen_step(std::min(left, 100u));
    }
}

static void open_rails(const char *state_folder = "") {
    panel_open(state_folder);
    board_ready();
    go_to(2);
    board_rails(board_default_rails(), 0);
    live(400);
    sent();
}

static void output_on(u16 mv, u16 ma) {
    board_write(REG_OUT_STATE, {1});
    board_readings(mv, ma, 0, 12534);
    live(400);
}

static void row_tap(u32 row) {
    screen_click((s32)(16 + row / 4 * 194 + 93), (s32)(58 + row % 4 * 62 + 28));
    live(300); // the tray has changed
}

static std::string shown(u32 id) {
    return text_of(2, id);
}

static bool touchable(u32 id) {
    return lv_obj_has_flag(zof_ctrl_get_form_id(2, id)->obj, LV_OBJ_FLAG_CLICKABLE);
}

static void key(char c) {
    static const std::string keys = "789456123.0<";
    const s32 n = (s32)keys.find(c);
    screen_click(480 + 124 * (n % 3), 108 + 104 * (n / 3));
}

static void keypad_type(s32 value_y, const std::string &text) {
    screen_click(82, value_y);
    live(300);
    for (const char c : text) {
        key(c);
    }
}

static void keypad_done_click() {
    screen_click(312, 438);
    live(300);
}

static void type_value(s32 value_y, const std::string &text) {
    keypad_type(value_y, text);
    keypad_done_click();
}

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

TEST_CASE("rails: a box that turns on what is applied says so, and wants a hold for a high voltage") {
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

TEST_CASE("rails: steps act when the finger lands, repeat, grow faster, and stop grey at the end") {
    open_rails();
    row_tap(7);
    CHECK((!touchable(VIEW2_VOLTS_LESS_ID) && touchable(VIEW2_VOLTS_MORE_ID)));
    sdl_pointer_inject(PLUS_X, VOLTS_Y, ZOF_TRUE);
    live(50);
    CHECK(shown(VIEW2_LABEL82_ID) == "3.32 V");
    live(300);
    CHECK(shown(VIEW2_LABEL82_ID) == "3.32 V");
    live(1600); // eight a second
    CHECK(shown(VIEW2_LABEL82_ID) >= "3.56 V");
    CHECK(shown(VIEW2_LABEL82_ID) <= "3.60 V");
    live(2000); // five times as fast
    CHECK(shown(VIEW2_LABEL82_ID) >= "5.00 V");
    CHECK(shown(VIEW2_LABEL82_ID) <= "5.40 V");
    live(25000);
    CHECK((shown(VIEW2_LABEL82_ID) == "21.00 V" && !touchable(VIEW2_VOLTS_MORE_ID)));
    sdl_pointer_inject(PLUS_X, VOLTS_Y, ZOF_FALSE);
    live(100);
    screen_click(MINUS_X, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "20.98 V");
    screen_press(MINUS_X, AMPERES_Y);
    screen_move(MINUS_X, 460); // slid off: no more repeats
    live(1000);
    CHECK(shown(VIEW2_LABEL83_ID) == "0.95 A");
    screen_release(MINUS_X, 460);
    CHECK((sent().empty() && zof_view_get_cur_id(ZOF_LAYER_UI) == 2));
}

TEST_CASE("rails: a slider moves only by its knob, by as much as the finger, in coarse steps to both ends") {
    open_rails();
    row_tap(7);
    for (s32 x = SLIDE_X + 26; x < SLIDE_X + SLIDE_W + 16; x += 12) {
        screen_drag(x, VOLTS_Y, x + 40, VOLTS_Y, 2); // beside the knob
        live(10);
    }
    CHECK(shown(VIEW2_LABEL82_ID) == "3.30 V");
    screen_click(SLIDE_X + 20, VOLTS_Y); // a tap moves nothing
    CHECK(shown(VIEW2_LABEL82_ID) == "3.30 V");
    screen_drag(SLIDE_X + 20, VOLTS_Y, SLIDE_X + 20 + 122, 200, 5); // keeps the finger over the rows
    CHECK(shown(VIEW2_LABEL82_ID) == "12.00 V");
    CHECK(shown(VIEW2_LABEL84_ID) == "Use 12.00 V");
    type_value(VOLTS_Y, "12.02");
    screen_press(SLIDE_X + 122, VOLTS_Y);
    screen_move(SLIDE_X + 132, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "12.70 V");
    screen_move(SLIDE_X + 122, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "12.02 V"); // back where it was
    screen_move(799, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "21.00 V");
    screen_move(0, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "3.30 V");
    screen_release(USE_X, USE_Y); // lifted over the button
    screen_drag(SLIDE_X + 50, AMPERES_Y, 790, AMPERES_Y, 4);
    CHECK((shown(VIEW2_LABEL83_ID) == "5.00 A" && !touchable(VIEW2_AMPERES_MORE_ID)));
    CHECK(sent().empty());
}

TEST_CASE("rails: no tap within 24 px of a knob reaches the button or sends anything, wherever the knob is") {
    open_rails();
    std::mt19937 random(11);
    const auto any = [&](s32 low, s32 high) { return low + (s32)(random() % (u32)(high - low + 1)); };
    row_tap(7);
    for (u32 i = 0; i < 60; i++) {
        const bool amperes = random() % 2;
        const s32 end = i % 3 == 0 ? 1 : i % 3 == 1 ? -1 : 0; // the ends are closest to other controls
        screen_drag(0, 0, 0, 0, 1);
        para_t *knob = zof_ctrl_get_form_id(2, amperes ? VIEW2_AMPERES_KNOB_ID : VIEW2_VOLTS_KNOB_ID);
        const auto middle = [&] { return 8 + zof_ctrl_get_x(knob) + 24; };
        const s32 y = amperes ? AMPERES_Y : VOLTS_Y;
        screen_drag(middle(), y, end ? 400 + 390 * end : any(SLIDE_X, SLIDE_X + SLIDE_W), y, 3);
        screen_click(middle() + any(-24, 24), y + any(-24, 24));
        live(20);
        REQUIRE(sent().empty());
        REQUIRE(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
    }
}

TEST_CASE("rails: every value of a PPS and of an AVS rail is reached by steps or keys, and sent as it is shown") {
    open_rails();
    const std::vector<prof_t> rails = {
        {RAIL_FIX, 5000, 5000, 5000}, {RAIL_PPS, 3300, 11000, 3000}, {RAIL_AVS, 9000, 20000, 3250}};
    board_rails(rails, 0);
    live(400);
    sent();
    const auto use = [](u8 rail, u16 mv, u16 ma) {
        char text[32];
        snprintf(text, sizeof(text), "Use %u.%02u V", mv / 1000, mv % 1000 / 10);
        REQUIRE(shown(VIEW2_LABEL84_ID) == text);
        screen_click(USE_X, USE_Y);
        REQUIRE(sent() == reports{{REG_ADJ_MV, mv}, {REG_ADJ_MA, ma}, {REG_RAIL_SELECT, rail}});
        bench.applying = false;
        board_readings(0, 0, 0, 0);
    };
    for (u8 rail : {1, 2}) {
        CAPTURE((int)rail);
        row_tap(rail);
        const grid_t volts = grid_volts(&rails[rail]), amperes = grid_amperes(&rails[rail]);
        for (u16 mv = volts.low;; mv = grid_step(volts, mv, 1)) {
            use(rail, mv, 1000);
            if (mv == volts.high) {
                break;
            }
            screen_click(PLUS_X, VOLTS_Y);
        }
        for (u16 ma = 0;; ma = grid_step(amperes, ma, 1)) {
            char text[16];
            snprintf(text, sizeof(text), "%u.%02u", ma / 1000, ma % 1000 / 10);
            type_value(AMPERES_Y, text);
            use(rail, volts.high, ma);
            if (ma == amperes.high) {
                break;
            }
        }
    }
}

TEST_CASE("rails: the keypad takes numbers as they are typed, and refuses what the rail cannot give") {
    open_rails();
    row_tap(7);
    static const struct {
        const char *typed, *value, *note;
        bool done;
    } rows[] = {
        {"", "3.30 V", "Nothing changes", true},
        {"12", "12 V", "Nothing changes", true},
        {"<", "3.3 V", "Nothing changes", true},
        {"1.2.34", "1.23 V", "Between 3.30 and 21.00 V", false},
        {"13.379", "13.37 V", "13.37 is not on the 20 mV grid:\n13.36 or 13.38", false},
        {"123456", "12345 V", "Nothing changes", true},
        {"3.31", "3.31 V", "3.31 is not on the 20 mV grid:\n3.30 or 3.32", false},
        {"21.01", "21.01 V", "Between", false},
        {".", ". V", "Nothing changes", true},
        {"0003.3", "0003. V", "Nothing changes", true},
        {"20.99<<<", "20 V", "Nothing changes", true},
    };
    for (const auto &row : rows) {
        CAPTURE(row.typed);
        keypad_type(VOLTS_Y, row.typed);
        CHECK(shown(VIEW2_PAD_VALUE_ID) == row.value);
        CHECK(shown(VIEW2_PAD_NOTE_ID).starts_with(row.note));
        CHECK(touchable(VIEW2_PAD_DONE_ID) == row.done);
        screen_click(112, 438); // Cancel
        live(300);
        CHECK(shown(VIEW2_LABEL82_ID) == "3.30 V");
    }
    type_value(VOLTS_Y, "48"); // judged at Done
    CHECK((is_shown(2, VIEW2_KEYPAD_ID) && shown(VIEW2_PAD_NOTE_ID) == "Between 3.30 and 21.00 V"));
    screen_press(728, 420); // all
    live(600);
    CHECK(shown(VIEW2_PAD_VALUE_ID) == " V");
    screen_release(728, 420);
    keypad_done_click();
    CHECK(is_shown(2, VIEW2_KEYPAD_ID)); // nothing is not a number
    for (const char c : std::string("13.37")) {
        key(c);
    }
    screen_click(312, 346); // the higher neighbour
    CHECK(shown(VIEW2_PAD_VALUE_ID) == "13.38 V");
    for (const auto &[x, y] : {std::pair{540, 220}, {666, 400}, {412, 240}, {200, 400}}) {
        screen_click(x, y); // between the keys, over rows and the tray
    }
    keypad_done_click();
    CHECK((!is_shown(2, VIEW2_KEYPAD_ID) && shown(VIEW2_LABEL82_ID) == "13.38 V" &&
           shown(VIEW2_LABEL84_ID) == "Use 13.38 V"));
    keypad_type(AMPERES_Y, "1.37");
    CHECK(shown(VIEW2_PAD_NOTE_ID) == "1.37 is not on the 50 mA grid:\n1.35 or 1.40");
    screen_press(704, 26); // Off works over the keypad, also if nothing is known
    screen_release(704, 26);
    screen_step(2100);
    CHECK(is_shown(2, VIEW2_KEYPAD_ID));
    sent();
    screen_press(704, 26);
    CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    screen_release(704, 26);
    screen_click(112, 346); // the lower neighbour
    screen_click(312, 438);
    CHECK((!is_shown(2, VIEW2_KEYPAD_ID) && shown(VIEW2_LABEL84_ID) == "Select a rail"));
    screen_click(USE_X, USE_Y);
    board_write(REG_OUT_STATE, {0});
    board_rails(board_default_rails(), 0);
    live(400);
    CHECK(shown(VIEW2_LABEL83_ID) == "1.35 A"); // back with the box
    CHECK(sent().empty());
    keypad_type(VOLTS_Y, "5");
    board_rails(board_default_rails(9), 0);
    live(100);
    CHECK((!is_shown(2, VIEW2_KEYPAD_ID) && shown(VIEW2_TRAY_WORDS_ID).starts_with("The rails have changed.")));
}

TEST_CASE("rails: a list that is not whole shows no row, and the same list again changes nothing") {
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

TEST_CASE("rails: presets open in the tray as if typed, and take what it shows when they are held") {
    const std::string folder = ZOF_BUILD_DIR "/test-state";
    std::filesystem::remove_all(folder);
    open_rails(folder.c_str());
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

TEST_CASE("rails: whatever is touched, only what the screen shows is sent, on the grid, and higher only by a hold") {
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
