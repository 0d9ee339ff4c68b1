// The virtual board: its box as pure functions, and its program as people start it.
#include "zof_test.h"

#include <sys/wait.h>

#include <map>

#include "board.h"
#include "temp_project.h"
#include "wire.h"

// A quiet box whose registers the test sees.
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

TEST_CASE("board: a rail ramps up behind its load, folds back at its limit, and energy is power over time") {
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

// What the program prints, on both channels, and how it ends.
static std::string board_sim(const std::string &arguments, int *status) {
    std::string text;
    FILE *pipe = popen((ZOF_BUILD_DIR "/tools/board_sim " + arguments + " 2>&1").c_str(), "r");
    REQUIRE(pipe);
    char part[512];
    for (size_t n; (n = fread(part, 1, sizeof(part), pipe)) > 0;) {
        text.append(part, n);
    }
    *status = WEXITSTATUS(pclose(pipe));
    return text;
}

TEST_CASE("board: --help tells every fault, and what it cannot do is refused with its place") {
    int status;
    const std::string help = board_sim("--help", &status);
    CHECK(status == 0);
    for (const fault_row &row : fault_rows) {
        CHECK(contains(help, row.help));
    }
    temp_project_t folder;
    folder.write("script", "# first\n100 load 5\n50 quit\n");
    folder.write("file", "mine");
    REQUIRE(symlink("/nowhere", folder.path("old").c_str()) == 0);
    const struct {
        std::string arguments;
        int status;
        std::string line;
    } rows[] = {{"--fault flood=1e12", 2, "knows no \"flood=1e12\""},
                {"--script " + folder.path("script"), 2, "script:3: a time"},
                {"--seconds 0.05 --link " + folder.path("file"), 1, "File exists"},
                {"--seconds 0.05 --link " + folder.path("old"), 0, ""}}; // an old link is taken over
    for (const auto &row : rows) {
        CAPTURE(row.arguments);
        CHECK(contains(board_sim(row.arguments, &status), row.line));
        CHECK(status == row.status);
    }
    CHECK(file_text(folder.path("file")) == "mine");
    CHECK(!std::filesystem::is_symlink(folder.path("old"))); // and is gone with the board
}
