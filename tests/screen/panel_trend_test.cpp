#include <SDL.h>

#include <cmath>

#include "bench/bench_import.h"
#include "bench/bench_record.h"
#include "bench/bench_session.h"
#include "eventually.h"
#include "panel_fixture.h"
#include "temp_project.h"

static s32 noise(u32 i) {
    return (s32)(i * 2654435761u >> 16) % 3 - 1;
}

// Ten minutes in `step_ms`: off, 5 V, 12 V with a silence and a time at the current limit; `s` seconds from now.
static void past(double s_per_s, u32 step_ms) {
    const u64 now = trend_now();
    for (u32 i = 0; i <= 600000 / step_ms; i++) {
        const double t = (double)i * step_ms / 1000 - 600;
        const bool low = t < -420;
        trend_point_t p = {.at = now - (u64)(-t * 1000 * s_per_s),
                           .set_mv = (u16)(low ? 5000 : 12000),
                           .set_ma = 1000,
                           .rail = 7,
                           .flags = TREND_SET | TREND_OUT_KNOWN | TREND_ON};
        if (t > -272 && t < -236) {
            trend_gap();
            continue;
        }
        if (t >= -130 && t <= -70) {
            p.mv = (u16)(9410 + 20 * noise(i));
            p.ma = 1000;
        } else if (t >= -540) {
            p.mv = (u16)(p.set_mv + 4 * noise(i));
            p.ma = (u16)((low ? 360 : 860 + 12 * sin(t / 23)) + 6 * noise(i));
        }
        trend_add(p);
    }
}

static void readings(u16 mv = 12000, u16 ma = 865) {
    board_write(REG_OUT_STATE, {1});
    board_readings(mv, ma, (u16)(mv / 100 * ma / 1000), 12534);
    screen_step(10);
}

static void run_on(u32 ms) {
    for (u32 t = 0; t < ms; t += 100) {
        readings(bench.mv, bench.ma);
        screen_step(90);
    }
}

// The clock shows 14:35 on a November day.
static void clock_set() {
    static constexpr zof_drv_rtc_ops_t ops = {.get_time =
                                                  [](zof_rtc_time_t *out) {
                                                      *out = {2026, 11, 22, 1, 38, 0};
                                                      return 0;
                                                  },
                                              .get_stamp =
                                                  [](zof_rtc_stamp_t *out) {
                                                      *out = {{2026, 11, 22, 14, 35, 0}, (u16)(screen_now % 1000), 60};
                                                      return 0;
                                                  }};
    zof_rtc_t = &ops;
}

static void open_trend(double s_per_s = 1, u32 step_ms = 100) {
    panel_open();
    clock_set();
    board_ready();
    board_applied();
    go_to(5);
    readings();
    trend_clear();
    past(s_per_s, step_ms);
    readings();
    run_on(400);
}

static bool both_languages(const std::string &name) {
    const bool english = screen_is_golden(name);
    CHECK(zof_lang_set("de") == 0);
    screen_step(10);
    const bool german = screen_is_golden(name + "_de");
    CHECK(zof_lang_set("en") == 0);
    screen_step(10);
    return english && german;
}

TEST_CASE("trend: ten minutes, with a cursor that keeps its time, as watts, and when the box is silent") {
    open_trend();
    screen_click(393, 200);
    CHECK(screen_is_golden("trend"));
    CHECK(text_of(5, VIEW5_AGO_ID) == "3 min 18 s ago");
    screen_click(526, 396); // W
    run_on(400);
    CHECK(screen_is_golden("trend_watts"));
    screen_click(526, 396);
    run_on(10000);
    CHECK(text_of(5, VIEW5_AGO_ID) == "3 min 29 s ago");
    screen_click(347, 200); // in the silence
    CHECK(text_of(5, VIEW5_AT_VOLTS_ID) == "-․-- V");
    screen_click(700, 80);
    CHECK(text_of(5, VIEW5_WHEN_ID) == "Now");
    screen_click(60, 396); // 1 min
    screen_click(64, 200);
    run_on(100);
    CHECK(text_of(5, VIEW5_WHEN_ID) == "Cursor");
    run_on(1000);
    CHECK(text_of(5, VIEW5_WHEN_ID) == "Now"); // it has left
    screen_click(154, 396);
    screen_step(7000);
    panel_port(BENCH_PORT_GONE);
    screen_step(100);
    CHECK(both_languages("trend_stale"));
}

TEST_CASE("trend: twelve hours and a session show every spike, and the time of day") {
    open_trend(72, 20);
    screen_click(342, 396);
    screen_click(393, 200);
    run_on(400);
    CHECK(text_of(5, VIEW5_AGO_ID) == "3 h 59 min ago");
    CHECK(screen_is_golden("trend_12h"));
    trend_clear();
    past(8.851, 100);
    screen_click(436, 396);
    screen_click(700, 80);
    run_on(400);
    CHECK(both_languages("trend_session"));
}

TEST_CASE("trend: a recording shows its time and file on all pages, and a full disk ends it") {
    temp_project_t folder;
    open_trend();
    screen_click(393, 200);
    record_folder_set(folder.path("").c_str());
    screen_click(684, 396);
    run_on(400);
    record.since = bench.now - 192000; // three minutes of pictures take long
    run_on(100);
    CHECK(both_languages("trend_recording"));
    const screen_picture shown = screen_shot();
    CHECK(str(record_picture()) == "2026-11-22-0138.png");
    screen_picture saved;
    CHECK((screen_png_read(folder.path("2026-11-22-0138.png"), &saved) && screen_same(saved, shown)));
    go_to(2);
    go_to(5);
    zof_file_fault_set([](const char *, const char *) -> zof_bool { return ZOF_TRUE; });
    run_on(100);
    CHECK(eventually([] {
        record_tick();
        return record.state == RECORD_FULL;
    }));
    zof_file_fault_set(nullptr);
    run_on(400);
    CHECK(both_languages("trend_disk_full"));
    CHECK(!is_shown(5, VIEW5_STRIP_RECORDING_ID));
    screen_click(684, 396);
    panel_port(BENCH_PORT_FAULT, "a reason that is longer than the strip has room for beside the dot");
    for (u32 view : {2, 3, 4, 5}) {
        go_to(view);
        CHECK(is_shown(view, VIEW2_STRIP_RECORDING_ID));
    }
    CHECK(screen_is_golden("trend_recording_no_box"));
}

TEST_CASE("trend: a scale grows at once, and shrinks after a smaller one has sufficed for ten seconds") {
    open_trend();
    screen_click(60, 396);
    const auto top = [](std::initializer_list<u32> ids) {
        std::string shown;
        for (u32 id : ids) {
            shown = is_shown(5, id) ? text_of(5, id) : shown;
        }
        return shown;
    };
    const auto volts = [&] { return top({VIEW5_VOLTS_AXIS3_ID, VIEW5_VOLTS_AXIS4_ID, VIEW5_VOLTS_AXIS5_ID}); };
    const auto low = [&] { return top({VIEW5_LOW_AXIS3_ID, VIEW5_LOW_AXIS4_ID, VIEW5_LOW_AXIS5_ID}); };
    run_on(100);
    CHECK((volts() == "15 V" && low() == "1.5 A"));
    readings(30000, 4000);
    run_on(100);
    CHECK((volts() == "50 V" && low() == "5.0 A"));
    readings();
    run_on(68000);
    CHECK((volts() == "50 V" && low() == "5.0 A"));
    run_on(4000);
    CHECK((volts() == "15 V" && low() == "1.5 A"));
    screen_click(526, 396);
    run_on(100);
    CHECK(low() == "15 W");
}

TEST_CASE("trend: an imported recording is shown with its times of day, without any data from the box") {
    temp_project_t folder;
    std::string text = "Time,Voltage (V),Current (A),Set voltage (V),Set current (A)\r\n";
    for (u32 s = 0; s < 3000; s++) {
        text += form("2026-03-01T23:%02u:%02u.500+01:00,%u.000,1.5,9,2\r\n", 5 + s / 60, s % 60, 5 + s / 600);
    }
    folder.write("a.csv", text);
    CHECK(import_file(folder.path("a.csv").c_str()) == 3000);
    panel_open();
    CHECK(str(SDL_GetWindowTitle(SDL_GetWindowFromID(1))) == "a.csv – USB-PD bench box");
    board_ready();
    go_to(5);
    readings();
    screen_click(436, 396);
    run_on(200);
    CHECK((text_of(5, VIEW5_FILE_ID) == "a.csv" && text_of(5, VIEW5_TIME0_ID) == "22:54"));
    CHECK((text_of(5, VIEW5_TIME_NOW_ID) == "23:54" && text_of(5, VIEW5_SPAN_ID) == "0:49:59"));
    CHECK((text_of(5, VIEW5_MAX_VOLTS_ID) == "9.00" && !is_shown(5, VIEW5_VOLTS_SET_ID)));
    screen_click(684, 396);
    CHECK(!record_runs());
}
