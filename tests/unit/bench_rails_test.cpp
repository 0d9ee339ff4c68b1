// Rails in the model of the panel: their grids, lists that arrive in pieces, what is sent and for how long it holds.
#include <algorithm>
#include <random>

#include "bench_fixture.h"

// What the values of a grid are, without its code: multiples of the step, and both ends.
static std::vector<u16> values_of(grid_t grid) {
    std::vector<u16> out;
    for (u32 v = grid.low; v <= grid.high; v++) {
        if (v % grid.step == 0 || v == grid.low || v == grid.high) {
            out.push_back((u16)v);
        }
    }
    return out;
}

TEST_CASE("grid: steps reach every value of every rail and no other, and the gate accepts exactly these") {
    std::vector<prof_t> rails = board_default_rails();
    rails.resize(10);
    rails.push_back({RAIL_PPS, 3310, 5990, 4870}); // ends off the grid
    rails.push_back({RAIL_AVS, 9050, 9170, 30});
    rails.push_back({RAIL_PPS, 3305, 3333, 1004}); // ends that are not shown
    start();
    rails_send(rails, 0);
    for (u8 i = 5; i < rails.size(); i++) {
        const prof_t &rail = rails[i];
        CAPTURE((int)i);
        for (const grid_t grid : {grid_volts(&rail), grid_amperes(&rail)}) {
            if (!prof_adjustable(&rail)) {
                continue;
            }
            const std::vector<u16> values = values_of(grid);
            u16 v = grid.low;
            for (const u16 value : values) {
                REQUIRE(v == value);
                REQUIRE(v % 10 == 0); // two decimals say it all
                v = grid_step(grid, v, 1);
            }
            CHECK(v == grid.high); // stops there
            for (auto value = values.rbegin(); value != values.rend(); ++value) {
                REQUIRE(v == *value);
                v = grid_step(grid, v, -1);
            }
            CHECK(grid_step(grid, grid.low, (s32)values.size() / 2) == values[values.size() / 2]);
        }
        const grid_t volts = grid_volts(&rail);
        for (u32 mv = rail.vmin - 30u; prof_adjustable(&rail) && mv <= rail.vmax + 30u; mv++) {
            const bool can =
                mv >= volts.low && mv <= volts.high && (mv % volts.step == 0 || mv == volts.low || mv == volts.high);
            REQUIRE((bench_apply_how({i, (u16)mv, grid_amperes(&rail).low}) != BENCH_APPLY_NO) == can);
        }
    }
    CHECK(grid_volts(&rails[12]).low == 3310);
    CHECK(grid_amperes(&rails[12]).high == 1000);
    const prof_t nothing_to_set = {RAIL_PPS, 3301, 3309, 1000};
    const prof_t no_current = {RAIL_PPS, 3300, 11000, 9};
    CHECK((!grid_rail_valid(&nothing_to_set) && !grid_rail_valid(&no_current)));
}

TEST_CASE("grid: neighbours enclose any value, and a slider stops at both ends and at whole tenths between them") {
    const grid_t grid = {3310, 5990, 20};
    for (u32 v = 3000; v < 6100; v++) {
        const u16 below = grid_below(grid, v), above = grid_above(grid, v), near = grid_coarse(grid, v, GRID_COARSE_MV);
        CAPTURE(v);
        REQUIRE((grid_has(grid, below) && grid_has(grid, above) && grid_has(grid, near)));
        if (v > grid.low && v < grid.high) {
            REQUIRE((below < v && above > v && above - below <= 40));
            REQUIRE((near % GRID_COARSE_MV == 0 || near == grid.low || near == grid.high));
            REQUIRE(std::abs((s32)near - (s32)v) <= GRID_COARSE_MV / 2);
        }
    }
}

TEST_CASE("bench: a rail opens at its lowest voltage with the current last used on it, and never at its maximum") {
    start();
    for (u8 i = 0; i < RAIL_MAX; i++) {
        const prof_t &rail = bench.rails.rail[i];
        const bench_choice_t open = bench_rail_open(i);
        CHECK(open.mv == (prof_adjustable(&rail) ? rail.vmin : rail.vmax));
        CHECK(open.ma == (prof_adjustable(&rail) ? 1000 : rail.imax));
    }
    applied({7, 12000, GRID_MA});
    applied({0, 5000, 5000});
    CHECK(bench_rail_open(7).ma == GRID_MA); // the smallest current is kept too
    std::vector<prof_t> rails = board_default_rails();
    std::swap(rails[6], rails[7]);
    rails[5].imax = 700;
    rails_send(rails, 0);
    CHECK((bench_rail_open(6).ma == GRID_MA && bench_rail_open(7).ma == 1000 && bench_rail_open(5).ma == 700));
    start();
    CHECK(bench_rail_open(7).ma == 1000); // since the start
}

TEST_CASE("bench: an unconfirmed request that the box may have executed does not make a higher voltage look lower") {
    start();
    applied({7, 12000, 1000});
    bench_take(REG_OUT_STATE, 1);
    REQUIRE(bench_apply({7, 5000, 1000}, false));
    live(2000, 5000); // the answer was lost
    CHECK((bench.not_taken && !bench_applied({7, 12000, 1000})));
    CHECK(bench_apply_how({7, 9000, 1000}) == BENCH_APPLY_HOLD);
    CHECK(bench_apply_how({7, 5000, 1000}) == BENCH_APPLY_CLICK);
    applied({7, 9000, 1000});
    CHECK((bench_applied({7, 9000, 1000}) && bench_apply_how({7, 9000, 2000}) == BENCH_APPLY_CLICK));
    REQUIRE(bench_apply({6, 5000, 1000}, false));
    live(2100, 5000);
    bench_take(REG_RAIL_ACTIVE, 6); // late, but only this request can have done it
    CHECK(bench_applied({6, 5000, 1000}));
    bench_take(REG_BOX_VERSION, 0x0203);
    bench_take(REG_OUT_STATE, 1);
    bench_take(REG_AUTO_ARM, 0);
    rails_send(board_default_rails(), 6);
    CHECK((bench_live() && !bench.mv_known)); // what was measured before it started again does not count
    CHECK(bench_apply_how({6, 3300, 1000}) == BENCH_APPLY_HOLD);
}

TEST_CASE("bench: a box that may turn its output on when a rail is applied needs a hold for more than the last time") {
    start();
    CHECK(bench_apply_how({2, 12000, 5000}) == BENCH_APPLY_CLICK);
    bench.settings_known = 0; // not in yet
    CHECK((bench_apply_how({2, 12000, 5000}) == BENCH_APPLY_HOLD && !bench_apply_turns_on()));
    CHECK(bench_apply_how({0, 5000, 5000}) == BENCH_APPLY_CLICK);
    bench_take(REG_AUTO_ARM, 1);
    CHECK((bench_apply_how({2, 12000, 5000}) == BENCH_APPLY_HOLD && bench_apply_turns_on()));
}

TEST_CASE("bench: a new list discards what was set by the old one, even while it is being applied") {
    start();
    applied({7, 12000, 1000});
    std::vector<prof_t> rails = board_default_rails();
    rails_send(rails, 7);
    CHECK(bench_applied({7, 12000, 1000})); // the same list
    rails[7].vmax = 20000;
    rails_send(rails, 7);
    CHECK(!bench.set_known);
    REQUIRE(bench_apply({7, 9000, 1000}, false));
    rails.resize(7);
    rails_send(rails, RAIL_NONE);
    CHECK((!bench.applying && bench.not_taken && !bench.set_known));
    rails_send(board_default_rails(), RAIL_NONE);
    bench_take(REG_RAIL_ACTIVE, 0);
    REQUIRE(bench_apply({0, 5000, 5000}, false));
    bench_rails_ask(); // its answer names the old rail, which is the same
    bench_take(REG_RAIL_ACTIVE, 0);
    CHECK(bench.applying);
}

// A line that loses single bytes. Returns what arrives.
static bytes lossy(const bytes &in, double loss, std::mt19937 &random) {
    bytes out;
    for (const u8 byte : in) {
        if (std::generate_canonical<double, 32>(random) >= loss) {
            out.push_back(byte);
        }
    }
    return out;
}

static bool one_of(const prof_t &rail, const std::vector<prof_t> &rails) {
    return std::any_of(rails.begin(), rails.end(), [&](const prof_t &r) { return memcmp(&r, &rail, sizeof(r)) == 0; });
}

TEST_CASE("bench: a line that loses bytes never produces a rail that the board did not send") {
    start();
    u32 shown = 0, again = 0;
    for (u32 seed = 1; seed <= 3000; seed++) {
        CAPTURE(seed);
        std::mt19937 random(seed);
        board box;
        box.rails = board_default_rails(1 + seed % RAIL_MAX);
        std::shuffle(box.rails.begin(), box.rails.end(), random);
        const u32 pieces = 1 + seed % 3; // lost frames; or bursts that arrive in pieces
        box.write = [&](u16 addr, const std::vector<u16> &words) {
            bytes f = lossy(frame_write(addr, words), seed % 2 ? 0.004 : 0.03, random);
            for (size_t at = 0, n = f.size() / pieces + 1; at < f.size(); at += n) {
                recive_data_handle(f.data() + at, (u32)std::min(n, f.size() - at));
            }
        };
        for (u32 answer = 0; answer < 3; answer++) { // asked for or not, whole or not
            if (answer != 1) {
                bench_rails_ask();
            }
            board_send_rails(box);
            for (u8 i = 0; bench.rails.state == BENCH_RAILS_SHOWN && i < bench.rails.count; i++) {
                REQUIRE((!bench.rails.valid[i] || one_of(bench.rails.rail[i], box.rails)));
            }
            (bench.rails.state == BENCH_RAILS_SHOWN ? shown : again)++;
        }
        u8 zeros[300] = {}; // ends a frame that is not whole
        recive_data_handle(zeros, sizeof(zeros));
        bench.rails.state = BENCH_RAILS_NONE;
        live(20, 0, 0);
    }
    CHECK((shown > 1000 && again > 1000));
}

TEST_CASE("bench: a second answer does not complete an incomplete first one") {
    start();
    bench_rails_ask();
    const std::vector<u16> old = {RAIL_FIX, 5000, 5000, 5000}, next = {RAIL_FIX, 9000, 9000, 3000};
    const auto write = [](u16 addr, const std::vector<u16> &words) {
        bytes f = frame_write(addr, words);
        recive_data_handle(f.data(), (u32)f.size());
    };
    write(REG_RAIL_BASE, old);
    write(REG_RAIL_COUNT, {1}); // the end is lost
    write(REG_RAIL_BASE, next); // and here the count
    write(REG_RAIL_COMMIT, {1});
    CHECK(bench.rails.state == BENCH_RAILS_AGAIN);
}

TEST_CASE("preset: a preset identifies its rail by values, and its text form restores exactly what was stored") {
    start();
    REQUIRE(bench_preset_store(0, {7, 12000, 1000}));
    REQUIRE(bench_preset_store(1, {10, 48000, 5000}));
    CHECK((!bench_preset_store(2, {13, 5000, 5000}) && !bench_preset_store(BENCH_PRESETS, {0, 5000, 5000})));
    bench_choice_t choice;
    CHECK((!bench_preset_find(2, &choice) && bench_preset_find(1, &choice) && choice.rail == 10));
    std::vector<prof_t> rails = {{RAIL_AVS, 9000, 20000, 5000},
                                 {RAIL_PPS, 3300, 11000, 5000},
                                 {RAIL_PPS, 3300, 16000, 3000},
                                 {RAIL_PPS, 3300, 21000, 5000},
                                 {RAIL_EPR, 48000, 48000, 3000}};
    rails_send(rails);
    CHECK((bench_preset_find(0, &choice) && choice.rail == 3 && choice.mv == 12000 && choice.ma == 1000));
    CHECK(!bench_preset_find(1, &choice)); // 48 V, but not 5 A
    rails[3].imax = 900;
    rails_send(rails);
    CHECK((bench_preset_find(0, &choice) && choice.rail == 2)); // another one that can
    pass(2100);
    CHECK(!bench_preset_find(0, &choice)); // nothing is known of the box
    char text[BENCH_PRESET_TEXT], again[BENCH_PRESET_TEXT];
    CHECK(std::string(bench_preset_text(text, &bench.preset[0])) == "PPS 3300 21000 5000 12000 1000");
    for (const bench_preset_t &preset : bench.preset) {
        bench_preset_t parsed;
        CHECK((bench_preset_parse(bench_preset_text(text, &preset), &parsed) && parsed.used == preset.used));
        CHECK(std::string(text) == bench_preset_text(again, &parsed));
    }
    for (const char *bad :
         {"PPS", "PPS 3300 21000 5000 12000", "PPS 3300 21000 5000 12000 1000 7", "XYZ 3300 21000 5000 12000 1000",
          "PPS 3300 21000 5000 12010 1000", "PPS 3300 21000 5000 12000 5050", "FIX 5000 5000 5000 5000 3000",
          "PPS -300 21000 5000 12000 1000", "PPS 3300 99999 5000 12000 1000", "FIX 58000 58000 5000 58000 5000",
          "PPS 21000 3300 5000 12000 1000", "PPSX 3300 21000 5000 12000 1000"}) {
        CAPTURE(bad);
        bench_preset_t preset;
        CHECK((!bench_preset_parse(bad, &preset) && !preset.used));
    }
}
