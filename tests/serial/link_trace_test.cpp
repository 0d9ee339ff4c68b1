// The trace of the register link, and its replay.
#include "zof_test.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

#include "hardware/uart/zof_hw_replay.h"
#include "hardware/uart/zof_hw_text.h"
#include "hardware/uart/zof_hw_trace.h"
#include "host_frame.h"
#include "port/zof_host.h"
#include "register_line.h"
#include "temp_project.h"

static u32 now;

// The clock of the machine stands still; that of the test runs.
static void clocks_up() {
    static constexpr zof_clock_t clock = {[] { return now; }, [](u32) {}};
    static constexpr zof_drv_rtc_ops_t rtc = {.get_stamp = [](zof_rtc_stamp_t *out) {
        *out = {{2026, 11, 22, 9, 10, 11}, 123, -210};
        return 0;
    }};
    zof_clock_set(&clock);
    zof_rtc_t = &rtc;
}

static s32 line_takes = 1;
static s32 line_send(zof_drv_t *, const u8 *, u32 size) {
    return line_takes ? (s32)size : -1;
}

static void receive(bytes data) {
    recive_data_handle(data.data(), (u32)data.size());
}

TEST_CASE("trace: it has every frame of both directions in words, and the bytes outside frames") {
    temp_project_t folder;
    clocks_up();
    register_line_open(line_send);
    const std::string file = folder.path("trace"), time = "2026-11-22T09:10:11.123-03:30 ";
    folder.write("trace", std::string(5000, 'x')); // of an earlier run
    zof_trace_start(file.c_str());
    receive(join({{1, 2, 3}, frame_write(16, {20012}), {0x5A}, frame_read(48, 1), {0xFF, 0x5A}}));
    now = 5000; // the kept bytes are too old for the next message
    line_takes = 0;
    zof_reg_report(REG_OUT_REQ, 1);
    receive(frame_write(3000, {1})); // no such register
    receive(bytes(70, 7));
    zof_trace_start(nullptr);
    const std::string lines[] = {"board>panel 010203 skipped",
                                 "board>panel 5AA5058200104E2C write 16 LIVE_MV = 20012 mV",
                                 "board>panel 5A skipped",
                                 "board>panel 5AA50483003001 read 48 BRIGHT, 1 words",
                                 "panel>board 5AA506830030010000 report 48 BRIGHT = 0 %",
                                 "panel>board 5AA506830022010001 report 34 OUT_REQ = 1, not sent",
                                 "board>panel FF5A skipped",
                                 "board>panel 5AA505 skipped", // the rest of this frame is kept for the next message
                                 "board>panel " + hex_text(join({{0x82, 0x0B, 0xB8, 0x00, 0x01}, bytes(59, 7)})) +
                                     " skipped",
                                 "board>panel 070707070707 skipped"};
    std::string expected = "# " + time + "zof_bench: a trace of the register link\n";
    for (const std::string &line : lines) {
        expected += time;
        expected += line + "\n";
    }
    CHECK(file_text(file) == expected);
    CHECK((g_link.frames == 2 && g_link.skipped == 3 + 1 + 2 + 8 + 65));
}

TEST_CASE("trace: anything but a regular file is refused, and a full disk ends the trace with one line") {
    temp_project_t folder;
    clocks_up();
    folder.write("mine", "mine");
    REQUIRE(symlink(folder.path("mine").c_str(), folder.path("link").c_str()) == 0);
    REQUIRE(mkfifo(folder.path("pipe").c_str(), 0600) == 0);
    for (const std::string &path :
         {folder.path("link"), folder.path("pipe"), std::string("/dev/full"), folder.folder, folder.path("no/trace")}) {
        CHECK(contains(printed([&] { zof_trace_start(path.c_str()); }), "ZOF_LINK_TRACE: " + path + ": "));
    }
    CHECK(file_text(folder.path("mine")) == "mine");
    signal(SIGXFSZ, SIG_IGN);
    const std::string file = folder.path("trace");
    zof_trace_start(file.c_str());
    const rlimit small = {300, RLIM_INFINITY};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &small) == 0);
    for (int i = 0; i < 10; i++) {
        zof_trace_remark("line", std::to_string(i).c_str()); // not inside `printed`, whose file is limited too
    }
    const rlimit all = {RLIM_INFINITY, RLIM_INFINITY};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &all) == 0);
    zof_trace_remark("line", "after the end");
    CHECK(file_text(file).size() == 300);
    CHECK(contains(printed([] { zof_trace_start("-"); }), ": a trace of the register link")); // among the log's lines
}

// What has been delivered, with its time: "0:0102 ".
static std::string delivered;
static void on_bytes(u8 *data, u32 size) {
    char text[8];
    delivered += std::to_string(now) + ":";
    for (u32 i = 0; i < size; i++) {
        snprintf(text, sizeof(text), "%02x", data[i]);
        delivered += text;
    }
    delivered += " ";
}

TEST_CASE("replay: the board's bytes arrive at their times, bad lines are reported and skipped, then it is silent") {
    temp_project_t folder;
    clocks_up();
    lv_init();
    const std::string file = folder.path("trace");
    folder.write("trace", "# a remark\r\n\n"
                          "2026-03-29T01:59:59.900+01:00 panel>board 5AA5 report\r\n"
                          "2026-03-29T01:59:59.950+01:00 board>panel 0102 write\n"
                          "2026-03-29T03:00:00.000+02:00 board>panel 03\n" // summer time begins
                          "2026-02-30T01:59:59.950 board>panel 01\n"
                          "01:59:59.950 board>panel 01\n"
                          "2026-03-29T03:00:00.000 panel 04\n"
                          "2026-03-29T03:00:00.000 board>panel 0x4\n"
                          "2026-03-29T03:00:00.000 board>panel \n"
                          "2026-03-29T03:00:00.000 board>panel " +
                              std::string(9000, '0') +
                              "\n"
                              "2026-03-29T02:00:00.000+02:00 board>panel 05 the clock was set back\n"
                              "2026-03-29T02:00:00.100+02:00 board>panel 060708");
    REQUIRE(zof_replay_open(file.c_str()) == 0);
    CHECK((zof_replay_reads(file.c_str()) && !zof_replay_reads(folder.path("config").c_str()) &&
           !zof_replay_reads(nullptr)));
    now = 0;
    const std::string log = printed([] {
        zof_replay_start(on_bytes, 2);
        for (; now <= 1000; now += 10) {
            lv_timer_handler();
        }
    });
    CHECK(delivered == "50:0102 100:03 100:05 200:0607 200:08 ");
    for (const char *line :
         {":6: not a line of a trace: it does not begin with a time",
          ":7: ", ":8: not a line of a trace: after the time", ":9: not a line of a trace: after the direction",
          ":10: ", ":11: not a line of a trace: it is too long", ": the end, after 4 lines of the board"}) {
        CHECK(contains(log, file + line));
    }
    CHECK(!contains(log, ":12: "));
    CHECK(zof_reg_report(REG_OUT_REQ, 1) == 9); // as if it were sent
    REQUIRE(zof_replay_open(file.c_str()) == 0);
    setenv("ZOF_LINK_TRACE", file.c_str(), 1);
    CHECK(contains(printed([] { zof_hw_init(); }), "ZOF_LINK_TRACE: " + file + " is being replayed"));
    CHECK(file_text(file).size() > 9000); // not emptied
    unsetenv("ZOF_LINK_TRACE");
    CHECK(zof_replay_open(folder.folder.c_str()) == -1);
}
