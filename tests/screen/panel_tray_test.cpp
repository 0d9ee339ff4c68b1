// Page 2: how the values in the tray are set.
#include <random>

#include "panel_rails.h"

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

TEST_CASE("rails: a slider moves only by its knob, as far as the finger, in coarse steps to both ends") {
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
    sdl_pointer_inject(SLIDE_X, VOLTS_Y, ZOF_TRUE);
    sdl_pointer_inject(SLIDE_X + 60, VOLTS_Y, ZOF_TRUE); // before the panel has looked: it landed on the knob
    screen_step(SCREEN_INPUT_MS);
    screen_move(SLIDE_X + 122, VOLTS_Y);
    screen_release(SLIDE_X + 122, VOLTS_Y);
    CHECK(shown(VIEW2_LABEL82_ID) == "12.00 V");
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
        for (u16 ma = amperes.low;; ma = grid_step(amperes, ma, 1)) {
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

TEST_CASE("rails: the keypad accepts numbers as typed, and refuses values that the rail cannot supply") {
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
