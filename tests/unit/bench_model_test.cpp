// The model of the panel without its pages: what it sends, and what it takes for known.
#include <array>

#include "bench/bench_trend.h"
#include "bench_fixture.h"

TEST_CASE("bench: readings are late after one second and unknown after two, and then everything is requested again") {
    start();
    CHECK(bench_age() == BENCH_LIVE);
    pass(1000);
    CHECK((bench_age() == BENCH_LATE && bench_out_known() && bench.mv_known));
    pass(1000);
    CHECK((bench_age() == BENCH_DEAD && !bench_out_known() && !bench.mv_known && !bench.set_known &&
           bench.settings_known == 0));
    CHECK(said().empty());
    pass(100000); // across the clock's wrap
    CHECK(bench_silence_ms() >= 101000);
    bench_take(REG_LIVE_MV, 5000);
    CHECK((bench_live() && bench.mv_known && !bench.ma_known && !bench_out_known()));
    CHECK(said() == reports{{REG_SETTINGS_REQUEST, 1}, {REG_RAIL_REQUEST, 1}});
    CHECK(bench.rails.state == BENCH_RAILS_NONE); // the old list is not shown until the new one is in
    bench_take(REG_OUT_STATE, 1);
    CHECK(bench_is_on());
    bench_take(REG_BOX_VERSION, 0x0204); // the box has started again
    CHECK((bench.version == 0x0204 && !bench_live()));
    CHECK(said() == reports{{REG_SETTINGS_REQUEST, 1}, {REG_RAIL_REQUEST, 1}});
}

TEST_CASE("bench: every press sends off while the output is on or unknown, and on is never sent right after off") {
    start();
    CHECK((bench_toggle() == BENCH_TOGGLE_OFF && !bench_toggle_down()));
    CHECK(bench_turn_on(false));
    CHECK(bench_toggle() == BENCH_TOGGLE_TURNING_ON);
    CHECK(!bench_turn_on(false));
    bench_take(REG_OUT_STATE, 1);
    CHECK(said() == reports{{REG_OUT_REQ, 1}});
    CHECK((bench_toggle_down() && bench_toggle() == BENCH_TOGGLE_TURNING_OFF));
    CHECK(bench_toggle_down()); // deaf
    CHECK(said() == reports{{REG_OUT_REQ, 0}});
    live(1000);
    CHECK((bench_toggle() == BENCH_TOGGLE_STILL_ON && bench_toggle_down()));
    CHECK(said() == reports{{REG_OUT_REQ, 0}});
    bench_take(REG_OUT_STATE, 0);
    CHECK(!bench_turn_on(false)); // deaf for 0.6 s
    live(600, 0, 0);
    CHECK(bench_turn_on(false));
    CHECK((bench_toggle_down() && said() == reports{{REG_OUT_REQ, 1}, {REG_OUT_REQ, 0}})); // changed one's mind
    pass(2500);
    for (u32 i = 0; i < 3; i++) {
        CHECK(bench_toggle_down());
    }
    CHECK(bench_toggle() == BENCH_TOGGLE_UNKNOWN_SAID);
    CHECK(said() == reports{{REG_OUT_REQ, 0}, {REG_OUT_REQ, 0}, {REG_OUT_REQ, 0}});
    bench_take(REG_OUT_STATE, 0);
    CHECK(bench_toggle() != BENCH_TOGGLE_UNKNOWN_SAID);
}

TEST_CASE("bench: unconfirmed off is the first thing sent when a port opens") {
    start();
    open_port(BENCH_PORT_GONE);
    CHECK((bench_age() == BENCH_DEAD && bench_toggle_down() && said().empty()));
    open_port();
    CHECK(said() == reports{{REG_OUT_REQ, 0}, {REG_SETTINGS_REQUEST, 1}, {REG_RAIL_REQUEST, 1}});
    open_port(BENCH_PORT_GONE);
    open_port();
    CHECK(said() == reports{{REG_OUT_REQ, 0}, {REG_SETTINGS_REQUEST, 1}, {REG_RAIL_REQUEST, 1}});
    bench_take(REG_OUT_STATE, 0);
    said();
    open_port(BENCH_PORT_GONE);
    open_port();
    CHECK(said() == reports{{REG_SETTINGS_REQUEST, 1}, {REG_RAIL_REQUEST, 1}});
}

TEST_CASE("bench: turning on at more than the last voltage needs a hold, and so does an unknown set voltage") {
    start();
    applied({4, 20000, 5000});
    CHECK((bench_toggle() == BENCH_TOGGLE_HOLD && !bench_turn_on(false) && said().empty()));
    CHECK(bench_turn_on(true));
    bench_take(REG_OUT_STATE, 1);
    bench_take(REG_OUT_STATE, 0);
    live(100, 0, 0);
    CHECK(bench_toggle() == BENCH_TOGGLE_OFF); // 20 V was on before
    bench_take(REG_RAIL_ACTIVE, 7);            // set by somebody else
    CHECK((bench_toggle() == BENCH_TOGGLE_HOLD_UNKNOWN && !bench_turn_on(false)));
    bench.hold_off = true;
    CHECK(bench_turn_on(false));
    pass(1100); // late: nothing is turned on
    bench.turning_on = false;
    CHECK(!bench_turn_on(true));
}

TEST_CASE(
    "bench: at the current limit, a change that would raise the voltage needs a hold, and so does turning on again") {
    start();
    applied({7, 21000, 500});
    bench_take(REG_OUT_STATE, 1);
    live(100, 5000, 500);
    CHECK(bench_apply_how({7, 21000, 5000}) == BENCH_APPLY_HOLD);
    CHECK(bench_apply_how({4, 20000, 5000}) == BENCH_APPLY_HOLD);
    CHECK(bench_apply_how({7, 5000, 5000}) == BENCH_APPLY_CLICK);
    CHECK(bench_apply_how({7, 20980, 450}) == BENCH_APPLY_CLICK); // cannot raise it
    CHECK(bench_apply_how({7, 20980, 550}) == BENCH_APPLY_HOLD);
    bench_take(REG_OUT_STATE, 0);
    live(700, 0, 0);
    CHECK(bench_toggle() == BENCH_TOGGLE_OFF); // as before
    applied({7, 21000, 550});
    CHECK(bench_toggle() == BENCH_TOGGLE_HOLD); // the device never saw more than 5 V
}

TEST_CASE("bench: a garbled rail changes nothing, and the rail is requested again at most every ten seconds") {
    start();
    applied({7, 12000, 1000});
    live(BENCH_PAUSE_MS, 0, 0);
    for (u32 i = 0; i < 3; i++) { // also in the answers
        bench_take(REG_RAIL_ACTIVE, 90);
        live(500, 0, 0);
        bench_take(REG_RAIL_ACTIVE, 90);
        rails_send(board_default_rails(), 90);
    }
    CHECK((bench.set_known && bench.rail == 7 && said() == reports{{REG_RAIL_REQUEST, 1}}));
    bench_take(REG_RAIL_ACTIVE, RAIL_NONE);
    CHECK((!bench.set_known && bench.rail == RAIL_NONE));
}

TEST_CASE("bench: during a replay nothing is sent and presses have no effect") {
    start();
    strcpy(bench.remote, "box.txt");
    bench.replay = true;
    bench_take(REG_OUT_STATE, 1);
    bench_toggle_down();
    bench_rails_ask();
    CHECK((said().empty() && bench_toggle() == BENCH_TOGGLE_ON && !bench_press()));
    bench.replay = false;
    bench.remote[0] = '\0';
}

TEST_CASE("bench: with the output on, a voltage above the set one is applied only by holding") {
    start();
    applied({7, 12000, 1000});
    bench_take(REG_OUT_STATE, 1);
    const struct {
        bench_choice_t choice;
        bench_apply_e how;
    } rows[] = {
        {{7, 12000, 5000}, BENCH_APPLY_CLICK}, {{7, 11980, 1000}, BENCH_APPLY_CLICK},
        {{7, 12020, 1000}, BENCH_APPLY_HOLD},  {{10, 48000, 5000}, BENCH_APPLY_HOLD},
        {{0, 5000, 5000}, BENCH_APPLY_CLICK},  {{0, 5000, 1000}, BENCH_APPLY_NO},
        {{7, 12010, 1000}, BENCH_APPLY_NO},    {{7, 12000, 1020}, BENCH_APPLY_NO},
        {{7, 12000, 0}, BENCH_APPLY_NO},       {{7, 21020, 1000}, BENCH_APPLY_NO},
        {{11, 9050, 1000}, BENCH_APPLY_NO},    {{11, 9100, 3250}, BENCH_APPLY_CLICK},
        {{13, 5000, 5000}, BENCH_APPLY_NO},
    };
    for (const auto &row : rows) {
        CAPTURE((int)row.choice.rail);
        CAPTURE(row.choice.mv);
        CHECK(bench_apply_how(row.choice) == row.how);
        if (row.how != BENCH_APPLY_CLICK) {
            CHECK(!bench_apply(row.choice, false));
        }
    }
    CHECK(said().empty());
    bench.hold_off = true;
    CHECK(bench_apply_how({10, 48000, 5000}) == BENCH_APPLY_CLICK);
    bench.hold_off = false;
    bench_take(REG_RAIL_ACTIVE, 8); // 28 V in force, as somebody else applied it
    CHECK((bench.set_known && bench.set.mv == 28000));
    bench_take(REG_RAIL_ACTIVE, 5); // an adjustable one: then the measured voltage counts
    bench_take(REG_LIVE_MV, 5000);
    bench_take(REG_LIVE_MV, 5000); // confirms the first one
    pass(60);
    CHECK((!bench.set_known && bench_apply_how({5, 5020, 1000}) == BENCH_APPLY_HOLD));
    CHECK(bench_apply_how({5, 5000, 1000}) == BENCH_APPLY_CLICK);
    pass(1100);
    CHECK(bench_age() == BENCH_LATE); // the button stays as it is, but nothing that is held is sent
    CHECK((bench_apply_how({5, 5020, 1000}) == BENCH_APPLY_HOLD && !bench_apply({5, 5020, 1000}, true)));
}

TEST_CASE("bench: applied values count as set when the box reports their rail, and the rail opens with them later") {
    start();
    CHECK((bench_rail_open(7).mv == 3300 && bench_rail_open(7).ma == 1000));
    REQUIRE(bench_apply({7, 12000, 1500}, false));
    CHECK(said() == reports{{REG_ADJ_MV, 12000}, {REG_ADJ_MA, 1500}, {REG_RAIL_SELECT, 7}});
    CHECK((bench.applying && bench.set.rail == 0));
    CHECK(!bench_apply({7, 12000, 1500}, false)); // one at a time
    bench_take(REG_RAIL_ACTIVE, 7);
    CHECK((!bench.applying && bench.set_known && bench.set.mv == 12000));
    CHECK(bench_rail_open(7).mv == 12000);
    applied({0, 5000, 5000});
    CHECK((bench_rail_open(7).mv == 3300 && bench_rail_open(7).ma == 1500));
    REQUIRE(bench_apply({7, 9000, 1000}, false));
    live(2000, 0, 0);
    CHECK((!bench.applying && bench.not_taken && bench.set.mv == 5000));
    bench_take(REG_AUTO_ARM, 1);
    CHECK((bench_apply_turns_on() && bench_apply_how({7, 9000, 1000}) == BENCH_APPLY_HOLD));
    CHECK(bench_apply_how({7, 5000, 1000}) == BENCH_APPLY_CLICK);
}

TEST_CASE("bench: an incomplete or implausible table is requested again, three times one second apart") {
    start();
    bench_rails_ask();
    CHECK(said() == reports{{REG_RAIL_REQUEST, 1}});
    bench_take(REG_RAIL_COMMIT, 1); // nothing has come with it
    CHECK((bench.rails.state == BENCH_RAILS_AGAIN && bench.rails.tries == 2));
    live(980, 0, 0);
    CHECK(said().empty());
    live(40, 0, 0);
    CHECK(said() == reports{{REG_RAIL_REQUEST, 1}});
    live(1000, 0, 0); // no answer
    CHECK((said() == reports{{REG_RAIL_REQUEST, 1}} && bench.rails.tries == 3));
    live(1000, 0, 0);
    CHECK((bench.rails.state == BENCH_RAILS_FAILED && said().empty()));
    live(9000, 0, 0);
    CHECK(said() == reports{{REG_RAIL_REQUEST, 1}});
    const prof_t wrong[] = {{RAIL_FIX, 58000, 58000, 5000},
                            {RAIL_PPS, 11000, 3300, 5000},
                            {9, 5000, 5000, 5000},
                            {RAIL_FIX, 5000, 5000, 0},
                            {RAIL_FIX, 5000, 5000, 6001}};
    for (const prof_t &rail : wrong) {
        bench_rails_ask();
        rails_send({{RAIL_FIX, 5000, 5000, 5000}, rail});
        CHECK((bench.rails.state == BENCH_RAILS_AGAIN && !bench_rail_usable(0)));
        for (int i = 0; i < 2; i++) {
            live(1020, 0, 0);
            rails_send({{RAIL_FIX, 5000, 5000, 5000}, rail});
        }
        CHECK((bench.rails.state == BENCH_RAILS_SHOWN && bench_rail_usable(0) && !bench_rail_usable(1)));
    }
    const u32 changes = bench.rails.changes;
    rails_send(board_default_rails());
    rails_send(board_default_rails());
    CHECK((bench.rails.changes == changes + 1 && bench_rail_usable(12)));
}

TEST_CASE("bench: the current limit shows after 0.3 s, does not flicker, and never shows on a fixed rail") {
    start();
    applied({7, 12000, 1000});
    bench_take(REG_OUT_STATE, 1);
    live(280, 9400, 1000);
    CHECK(!bench.limit);
    live(100, 9400, 1000);
    CHECK(bench.limit);
    for (int i = 0; i < 20; i++) { // one reading in two says otherwise
        live(100, i % 2 ? 11990 : 9400, 1000);
        CHECK(bench.limit);
    }
    live(400, 11990, 900);
    CHECK(!bench.limit);
    applied({2, 12000, 5000});
    live(1000, 9000, 5000);
    CHECK(!bench.limit);
}

TEST_CASE("bench: displayed readings are averaged over 0.3 s, and a step shows at once") {
    start();
    u16 mv, ma, dw;
    live(500, 12004, 1000);
    live(100, 12014, 1000);
    bench_eye(&mv, &ma, &dw);
    CHECK((mv > 12004 && mv < 12014));
    live(100, 5000, 1000);
    bench_eye(&mv, &ma, &dw);
    CHECK(mv == 5000);
}

TEST_CASE("bench: a reset of the session can be undone, even if the box never received it") {
    start();
    u64 mwh;
    for (const bool taken : {true, false}) {
        bench.base_mwh = 0;
        bench_take(REG_SESS_MWH_LO, 5000);
        bench_take(REG_SESS_MWH_HI, 0);
        CHECK(bench_session_reset());
        bench_take(REG_SESS_MWH_LO, taken ? 3 : 5003);
        live(1000, 0, 0);
        CHECK(bench_session_undo());
        CHECK((bench_energy(&mwh) && mwh == 5003));
    }
    CHECK(said() == reports{{REG_SESS_RESET, 1}, {REG_SESS_RESET, 1}});
    bench_session_reset();
    live(5000, 0, 0);
    CHECK(!bench_session_undo());
    pass(2100);
    CHECK(!bench_session_reset());
}

TEST_CASE("bench: a reading that contradicts its report and the next one is dropped, and steps are shown") {
    static const struct {
        const char *what;
        std::vector<std::array<u16, 3>> reports; // mV, mA, dW
        u16 mv, ma, high_mv, high_ma;            // last shown; greatest of the session
    } rows[] = {
        {"a garbled voltage", {{5000, 500, 25}, {34910, 500, 25}, {5000, 500, 25}}, 5000, 500, 5000, 500},
        {"a garbled current", {{5000, 500, 25}, {5000, 62554, 25}, {5010, 500, 25}}, 5010, 500, 5010, 500},
        {"no load", {{5000, 0, 0}, {34910, 0, 0}, {5000, 0, 0}}, 5000, 0, 5000, 0},
        {"a garbled power", {{5000, 500, 25}, {5000, 500, 9000}, {5000, 510, 25}}, 5000, 510, 5000, 510},
        {"a spike that its power confirms",
         {{5000, 500, 25}, {5000, 4000, 200}, {5000, 500, 25}},
         5000,
         500,
         5000,
         4000},
        {"a step with load", {{5000, 500, 25}, {12000, 1200, 144}}, 12000, 1200, 12000, 1200},
        {"a step without load waits for one report", {{5000, 0, 0}, {12000, 0, 0}}, 5000, 0, 5000, 0},
        {"and is shown then", {{5000, 0, 0}, {12000, 0, 0}, {12004, 0, 0}}, 12004, 0, 12004, 0},
        {"a ramp without load", {{0, 0, 0}, {3000, 0, 0}, {7000, 0, 0}, {14000, 0, 0}}, 7000, 0, 7000, 0},
    };
    for (const auto &row : rows) {
        CAPTURE(row.what);
        start();
        bench_take(REG_OUT_STATE, 1);
        for (const auto &[mv, ma, dw] : row.reports) {
            pass(100);
            bench_take(REG_LIVE_MV, mv);
            bench_take(REG_LIVE_MA, ma);
            bench_take(REG_LIVE_DW, dw);
        }
        trend_stats_t stats;
        trend_stats(0, trend_now(), &stats);
        CHECK((bench.mv == row.mv && bench.ma == row.ma));
        CHECK((stats.high[TREND_MV] == row.high_mv && stats.high[TREND_MA] == row.high_ma));
    }
    start();
    bench_take(REG_OUT_STATE, 1);
    u32 shown = 0;
    for (u32 i = 0; i < 40; i++) { // a load that changes with each report, at a box that measures no power
        const u16 ma = i % 2 ? 3000 : 500;
        pass(100);
        bench_take(REG_LIVE_MV, 5000);
        bench_take(REG_LIVE_MA, ma);
        bench_take(REG_OUT_STATE, 1);
        shown += bench.ma == ma;
    }
    CHECK(shown > 30);
    start();
    bench_take(REG_OUT_STATE, 1);
    live(300);
    bench_take(REG_OUT_STATE, 0);
    bench_take(REG_LIVE_MV, 0); // off: nothing to wait for
    bench_take(REG_LIVE_MA, 0);
    bench_take(REG_LIVE_DW, 0);
    CHECK((bench.mv == 0 && bench.ma == 0));
}
