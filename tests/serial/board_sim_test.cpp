// The virtual board: its box as pure functions, and its program and the other tools as users start them.
#include "zof_test.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <map>
#include <set>

#include "board.h"
#include "hardware/uart/zof_hw_text.h"
#include "temp_project.h"
#include "wire.h"

// A quiet box that records its registers.
struct seen_board {
    board box;
    std::map<u16, u16> regs; // the value last written to a register

    seen_board() {
        box.rails = board_default_rails();
        box.noise = false;
        box.write = [this](u16 addr, const std::vector<u16> &words) { regs[addr] = words.back(); };
        board_power_up(box);
    }
};

static void report(seen_board &s, std::initializer_list<std::pair<u16, u16>> reports) {
    for (const auto &[addr, value] : reports) {
        board_report(s.box, addr, value);
    }
}

static void settle(board &box, double ms) {
    for (; ms > 0; ms -= 100) {
        board_step(box, 100);
    }
}

// Returns how a program ends, and what it prints on both streams: "1 board_sim: ...".
static std::string tool(const std::string &arguments) {
    std::string text;
    FILE *pipe = popen(("exec 2>&1; " ZOF_BUILD_DIR "/tools/" + arguments).c_str(), "r");
    if (!pipe) {
        return "it does not start";
    }
    char part[512];
    for (size_t n; (n = fread(part, 1, sizeof(part), pipe)) > 0;) {
        text.append(part, n);
    }
    return std::to_string(WEXITSTATUS(pclose(pipe))) + " " + text;
}

static std::string board_sim(const std::string &arguments) {
    return tool("board_sim " + arguments);
}

TEST_CASE("board: a rail ramps up under load, folds back at its limit, and energy is power over time") {
    seen_board s;
    report(s, {{REG_RAIL_SELECT, 4}, {REG_OUT_REQ, 1}});
    board_step(s.box, 100);
    CHECK((s.box.mv > 0 && s.box.mv < 20000)); // on its way
    settle(s.box, 1000);
    CHECK((s.regs[REG_LIVE_MV] == 20000 && s.regs[REG_LIVE_MA] == 2000));
    report(s, {{REG_SESS_RESET, 1}});
    settle(s.box, 3600e3 * 2); // 40 W for two hours
    const u32 mwh = s.regs[REG_SESS_MWH_LO] | (u32)s.regs[REG_SESS_MWH_HI] << 16;
    CHECK((mwh >= 79999 && mwh <= 80000));
    report(s, {{REG_ADJ_MV, 12000}, {REG_ADJ_MA, 1000}, {REG_RAIL_SELECT, 7}});
    s.box.load.ohms = 6;
    settle(s.box, 2000);
    CHECK(s.regs[REG_LIVE_MV] == 6000);
    report(s, {{REG_OUT_REQ, 0}});
    settle(s.box, 1000);
    CHECK((s.regs[REG_OUT_STATE] == 0 && s.regs[REG_LIVE_MV] == 0));
}

TEST_CASE("board: what the panel reports is limited by the registers' rows, stored and sent back") {
    seen_board s;
    report(
        s,
        {{REG_BRIGHT, 5}, {REG_BOOT_STATE, 1}, {REG_RAIL_SELECT, 3}, {REG_RAIL_SELECT, 99}, {REG_LIVE_MV, 7}, {21, 1}});
    CHECK(s.box.rail == 3); // there is no rail 99, and it does not count as the last one
    report(s, {{REG_SETTINGS_REQUEST, 1}});
    CHECK((s.regs[REG_BRIGHT] == 10 && s.regs[REG_BOOT_STATE] == 1 && s.regs[REG_AUTO_ARM] == 0));
    CHECK(s.regs.count(REG_RAIL_SELECT) == 0); // kept in the file, but not the board's to write
}

TEST_CASE("board: saving settings overwrites no other file, and leftovers of a killed board are removed") {
    temp_project_t folder;
    const std::string state = folder.path("state"), own = state + "." + std::to_string(getpid()) + "-0.new";
    folder.write("state", "brightness = 70000\nauto_arm = 1\n\nlast_rail = 3\n");
    folder.write("other", "mine");
    folder.write("state.999999999-0.new", "of a board that was killed");
    for (const std::string &name : {state + ".new", own}) {
        REQUIRE(symlink(folder.path("other").c_str(), name.c_str()) == 0);
    }
    seen_board s;
    s.box.settings_file = state;
    board_power_up(s.box);
    CHECK((s.box.settings.bright == 100 && s.box.rail == 3));
    report(s, {{REG_BRIGHT, 40}});
    CHECK(contains(file_text(state), "brightness = 40\nboot_last = 0\nauto_arm = 1\n"));
    CHECK(file_text(folder.path("other")) == "mine");
    s.box.settings_file = folder.path("none/state");
    report(s, {{REG_BRIGHT, 50}});
    CHECK(s.box.save_failed);
    s.box.settings_file = folder.folder; // cannot be replaced
    report(s, {{REG_BRIGHT, 60}});
    std::set<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder.folder)) {
        names.insert(entry.path().filename());
    }
    CHECK(names ==
          std::set<std::string>{"config", "other", "state", "state.new", std::filesystem::path(own).filename()});
}

TEST_CASE("board: frames are described with the names and units of their registers") {
    const std::pair<bytes, const char *> rows[] = {
        {frame_write(16, {20012}), "write 16 LIVE_MV = 20012 mV"},
        {frame_write(18, {602}), "write 18 LIVE_DW = 602 x 100 mW"},
        {frame_write(272, {1, 2, 3, 4}), "write 272 RAIL_BASE = 1 2 3 4"},
        {frame_write(277, {5}), "write 277 RAIL_BASE+5 = 5"},
        {frame_write(22, {}), "write 22 OUT_STATE, no words"},
        {frame_read(16, 5), "read 16 LIVE_MV, 5 words"},
        {{0x5A, 0xA5, 12, 0x83, 0, 20, 4, 0, 1, 0, 2, 0, 3, 0, 4},
         "report 20 SESS_MWH_HI = 1 x 65536 mWh, 21 = 2, 22 OUT_STATE = 3, 23 RAIL_ACTIVE = 4"},
        {{0x5A, 0xA5, 3, 0x83, 0, 16}, "short frame of 6 bytes"},
        {{0x5A, 0xA5, 4, 0x99, 0, 16, 1}, "unknown command 153"}};
    for (const auto &[frame, text] : rows) {
        CHECK(frame_text(frame) == text);
    }
}

TEST_CASE("board and monitor refuse a line that is not a terminal, and leave it as it is") {
    temp_project_t folder;
    folder.write("file", "mine");
    folder.write("recording", "# zof monitor head=5AA5 crc=0\n0 host 5AA50311B106\n");
    REQUIRE(mkfifo(folder.path("pipe").c_str(), 0600) == 0);
    for (const std::string &line :
         {folder.path("file"), folder.path("pipe"), std::string("/dev/null"), folder.folder}) {
        CAPTURE(line);
        const std::string board = board_sim("--seconds 0.3 --tty " + line);
        CHECK((board[0] == '3' && contains(board, line + ": ")));
        const std::string monitor = tool("zof monitor replay " + folder.path("recording") + " --panel " + line);
        CHECK((monitor[0] == '1' && contains(monitor, line + ": ")));
    }
    CHECK(file_text(folder.path("file")) == "mine");
}

TEST_CASE("board: the trace shows no frame that was not sent") {
    CHECK(contains(board_sim("--trace --seconds 0.3"), "board > panel  write"));
    CHECK(!contains(board_sim("--trace --seconds 0.3 --fault mute"), "board > panel"));
}

TEST_CASE("a pseudo-terminal that was closed is not reopened by its number") {
    wire near, far;
    REQUIRE(wire_plug(far));
    near.tty = far.slave_name;
    REQUIRE(wire_plug(near));
    wire_unplug(near);
    CHECK(wire_plug(near)); // we unplugged it, so it may come back
    wire_unplug(far);
    wire_lost(near);
    CHECK((!wire_plug(near) && near.fd == -1));
}

TEST_CASE("board: --help lists every fault, mistakes are reported with their place, and a link replaces only a link") {
    const std::string help = board_sim("--help");
    CHECK(help[0] == '0');
    for (const fault_row &row : fault_rows) {
        CHECK(contains(help, row.help));
    }
    temp_project_t folder;
    folder.write("file", "mine");
    const std::pair<const char *, const char *> scripts[] = {
        {"# first\n100 load 5\n50 quit\n", "3 board_sim: SCRIPT:3: expected a time"},
        {"\n  # blank\n0 load\n", "3 board_sim: SCRIPT:3: expected: load 4.7 | load 2A"},
        {"0 jump 3\n", "3 board_sim: SCRIPT:1: unknown command"},
        {"0 load 0\n0 rails 14\n0 rail 13\n0 output maybe\n0 fault none\n0 read 65536 1\n1 quit\n",
         "board_sim: SCRIPT:1: the command failed\nboard_sim: SCRIPT:2: the command failed\nboard_sim: SCRIPT:3: the "
         "command failed\nboard_sim: SCRIPT:4: the command failed\nboard_sim: SCRIPT:5: the command "
         "failed\nboard_sim: SCRIPT:6: the command failed\n"},
        {"0 rails 5 # of a small source\n1 rail 4\n2 read 48 3\n3 unplug\n4 plug\n5 quit\n1e9 quit", "0 "}};
    for (const auto &[text, output] : scripts) {
        folder.write("script", text);
        std::string expected = output;
        for (size_t at; (at = expected.find("SCRIPT")) != std::string::npos;) {
            expected.replace(at, 6, folder.path("script"));
        }
        CHECK(contains(board_sim("--script " + folder.path("script")), expected));
    }
    CHECK(contains(board_sim("--trace --script " + folder.path("script")), "board > panel  read 48 BRIGHT, 3 words"));
    CHECK(contains(board_sim("--script " + folder.folder), "cannot be read"));
    folder.write("state", "bright = 1\n");
    const std::pair<std::string, std::string> mistakes[] = {
        {"--state " + folder.path("state"), "3 board_sim: " + folder.path("state") + ":1: not a setting\n"},
        {"--state /dev/null", "3 board_sim: --state: /dev/null: not a file\n"},
        {"--load 2V", "2 board_sim: --load takes ohms"},
        {"--fault lose=x", "2 board_sim: --fault: unknown fault or amount out of range: \"lose=x\""},
        {"--fault garbage=101", "2 board_sim: --fault: unknown fault or amount out of range"},
        {"--seconds=-1", "--seconds: Value -1 not in range"},
        {"--seconds 0.05 --trace >/dev/full", "1 board_sim: standard output: No space left on device\n"}};
    for (const auto &[options, output] : mistakes) {
        CHECK(contains(board_sim(options), output));
    }
    CHECK(file_text(folder.path("state")) == "bright = 1\n");
    CHECK(board_sim("--seconds 0.05 --link " + folder.path("file"))[0] == '3');
    CHECK(file_text(folder.path("file")) == "mine");
    REQUIRE(symlink("/nowhere", folder.path("old").c_str()) == 0);
    CHECK(board_sim("--seconds 0.05 --link " + folder.path("old"))[0] == '0');
    CHECK(!std::filesystem::is_symlink(folder.path("old"))); // it is gone with the board
}

TEST_CASE("tools report wrong arguments and files that are not regular, with the reason, and write nothing") {
    temp_project_t folder;
    const std::string file = folder.path("file"), rows = "zof_protocol " + file, record = folder.path("recording");
    folder.write("file", "no rows");
    folder.write("recording", "# zof monitor head=5AA5 crc=0\n1 host 5A A5 03 11 B1 06\n-5 panel 00\n");
    folder.write("heads", "# zof monitor head=5A5A crc=0\n");
    const std::string link = folder.path("link"), again = folder.path("none/../link");
    const std::pair<std::string, std::string> calls[] = {
        {"zof_protocol", "2 usage: "},
        {"zof_protocol --help", "0 usage: "},
        {rows, "1 zof_protocol: " + file + ": has no lines with"},
        {"zof_protocol /dev/full", "1 zof_protocol: /dev/full: not a regular file"},
        {"zof_protocol " + folder.path("none"), ": No such file or directory"},
        {"zof", "2 zof: a command is missing; the commands are "},
        {"zof id", "2 zof: unknown command \"id\"; did you mean ids?"},
        {"zof ids", "2 zof ids: project is required"},
        {"zof ids --help", "Examples:\n  zof ids res ids.h"},
        {"zof ids " ZOF_PANEL_DIR "/res /dev/full", "1 /dev/full: error: not a regular file"},
        {"zof_media clip /dev/null 64x 64 1", "2 zof_media: WIDTH is a number from 2 to 2000, not \"64x\""},
        {"zof_media clip /dev/null 64 64.5 1", "2 zof_media: HEIGHT is a whole number, not \"64.5\""},
        {"zof_media clip /dev/null 64 64 nan", "2 zof_media: SECONDS is a number from 0.04 to 3600"},
        {"zof_media clip /dev/null 64 64 1 0 gif", "2 zof_media: CODEC is mpeg4, png or mjpeg"},
        {"zof_media clip /dev/null 64 64 1 0 mpeg4 5", "2 zof_media: a clip with mpeg4 cannot change its size"},
        {"zof_media tone /dev/null 440 99999999999", "2 zof_media: MS is a number from 1"},
        {"zof_media tone " + folder.path("none/a.wav") + " 440 10", "a.wav: No such file or directory"},
        {"zof monitor", "zof monitor: a command is missing; the commands are watch, show and replay"},
        {"zof monitor bogus", "zof monitor: unknown command \"bogus\"; the commands are watch, show and replay"},
        {"zof monitor watch --panel-link " + link + " --host-link " + again, "2 zof monitor: host and panel need two"},
        {"zof monitor watch --seconds 0.1 --record /dev/full", "1 zof monitor: /dev/full: No space left on device"},
        {"zof monitor show /dev/zero", "3 zof monitor: /dev/zero: not a regular file"},
        {"zof monitor show " + record, "3 zof monitor: " + record + ":3: expected: MICROSECONDS"},
        {"zof monitor show " + folder.path("heads"), ": the head is two different bytes, such as 5AA5"}};
    for (const auto &[call, output] : calls) {
        CAPTURE(call);
        const std::string printed = tool(call);
        CHECK(contains(printed, output));
    }
    CHECK(file_text(file) == "no rows");
    CHECK(!std::filesystem::is_symlink(link));
}
