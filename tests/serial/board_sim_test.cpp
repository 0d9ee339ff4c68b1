// The virtual board: its box as pure functions, and its program as users start it.
#include "zof_test.h"

#include <sys/stat.h>
#include <sys/wait.h>

#include <map>

#include "board.h"
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

static void tell(seen_board &s, std::initializer_list<std::pair<u16, u16>> reports) {
    for (const auto &[addr, value] : reports) {
        board_report(s.box, addr, value);
    }
}

static void settle(board &box, double ms) {
    for (; ms > 0; ms -= 100) {
        board_step(box, 100);
    }
}

TEST_CASE("board: a rail ramps up under load, folds back at its limit, and energy is power over time") {
    seen_board s;
    tell(s, {{REG_RAIL_SELECT, 4}, {REG_OUT_REQ, 1}});
    board_step(s.box, 100);
    CHECK((s.box.mv > 0 && s.box.mv < 20000)); // on its way
    settle(s.box, 1000);
    CHECK((s.regs[REG_LIVE_MV] == 20000 && s.regs[REG_LIVE_MA] == 2000));
    tell(s, {{REG_SESS_RESET, 1}});
    settle(s.box, 3600e3 * 2); // 40 W for two hours
    const u32 mwh = s.regs[REG_SESS_MWH_LO] | (u32)s.regs[REG_SESS_MWH_HI] << 16;
    CHECK((mwh >= 79999 && mwh <= 80000));
    tell(s, {{REG_ADJ_MV, 12000}, {REG_ADJ_MA, 1000}, {REG_RAIL_SELECT, 7}});
    s.box.load.ohms = 6;
    settle(s.box, 2000);
    CHECK(s.regs[REG_LIVE_MV] == 6000);
    tell(s, {{REG_OUT_REQ, 0}});
    settle(s.box, 1000);
    CHECK((s.regs[REG_OUT_STATE] == 0 && s.regs[REG_LIVE_MV] == 0));
}

// Returns how a program ends, and what it prints on both streams: "1 board_sim: ...".
static std::string tool(const std::string &arguments) {
    std::string text;
    FILE *pipe = popen((ZOF_BUILD_DIR "/tools/" + arguments + " 2>&1").c_str(), "r");
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

TEST_CASE("board and monitor refuse a line that is not a terminal, and leave it as it is") {
    temp_project_t folder;
    folder.write("file", "mine");
    folder.write("recording", "# zof_monitor head=5AA5 crc=0\n0 host 5AA50311B106\n");
    REQUIRE(mkfifo(folder.path("pipe").c_str(), 0600) == 0);
    for (const std::string &line :
         {folder.path("file"), folder.path("pipe"), std::string("/dev/null"), folder.folder}) {
        CAPTURE(line);
        const std::string board = board_sim("--seconds 0.3 --tty " + line);
        CHECK((board[0] == '1' && contains(board, line + ": ")));
        const std::string monitor = tool("zof_monitor replay " + folder.path("recording") + " --panel " + line);
        CHECK((monitor[0] == '2' && contains(monitor, line + ": ")));
    }
    CHECK(file_text(folder.path("file")) == "mine");
}

TEST_CASE("a pseudo-terminal that ended is not opened again by its number") {
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
    folder.write("script", "# first\n100 load 5\n50 quit\n");
    folder.write("file", "mine");
    const std::string script = board_sim("--script " + folder.path("script"));
    CHECK((script[0] == '2' && contains(script, "script:3: expected a time")));
    CHECK(board_sim("--seconds 0.05 --link " + folder.path("file"))[0] == '1');
    CHECK(file_text(folder.path("file")) == "mine");
    REQUIRE(symlink("/nowhere", folder.path("old").c_str()) == 0);
    CHECK(board_sim("--seconds 0.05 --link " + folder.path("old"))[0] == '0');
    CHECK(!std::filesystem::is_symlink(folder.path("old"))); // it is gone with the board
}
