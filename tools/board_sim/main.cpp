// The virtual board: a program at the other end of the panel's register link.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <poll.h>
#include <sstream>
#include <unistd.h>

#include "board.h"
#include "wire.h"

struct script_line {
    double at_ms;
    std::vector<std::string> words;
    std::string place; // file:line
};

struct options {
    std::vector<std::string> faults;
    std::string load = "10", script;
    unsigned seed = 0;
    int rails = RAIL_MAX;
    double seconds = 0;
    bool trace = false, quiet_noise = false;
};

static struct {
    board box;
    wire line;
    frame_finder finder;
    options opt;
    std::deque<script_line> script;
    double plugged_ms = 0, flooded_ms = 0;
} sim;

static volatile sig_atomic_t stop;

static double now_ms() {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    return std::chrono::duration<double, std::milli>(clock::now() - start).count();
}

static void say(const char *who, const std::string &what) {
    printf("%9.3f  %-14s %s\n", now_ms() / 1000, who, what.c_str());
    fflush(stdout);
}

static bool parse_load(const std::string &text, board_load &load) {
    char *end;
    const double v = strtod(text.c_str(), &end);
    const std::string unit = end;
    if (end == text.c_str() || !(v > 0 && v < 1e9) || (!unit.empty() && unit != "ohm" && unit != "A")) {
        return false;
    }
    load = unit == "A" ? board_load{10, v} : board_load{v, 0};
    return true;
}

static std::vector<board_rail> first_rails(int n) {
    std::vector<board_rail> rails = board_default_rails();
    rails.resize((size_t)n);
    return rails;
}

static bool number(const std::string &text, int &out) {
    char *end;
    const long v = strtol(text.c_str(), &end, 10);
    out = (int)v;
    return end != text.c_str() && *end == 0 && v >= 0 && v <= 65535;
}

using word_list = std::vector<std::string>;

static bool cmd_load(const word_list &w) {
    return parse_load(w[1], sim.box.load);
}

static bool cmd_rail(const word_list &w) {
    int rail;
    return number(w[1], rail) && board_select(sim.box, (uint16_t)rail);
}

static bool cmd_output(const word_list &w) {
    if (w[1] != "on" && w[1] != "off") {
        return false;
    }
    board_output(sim.box, w[1] == "on");
    return true;
}

static bool cmd_rails(const word_list &w) {
    int count;
    if (!number(w[1], count) || count > RAIL_MAX) {
        return false;
    }
    board_set_rails(sim.box, first_rails(count));
    return true;
}

static void unplug() {
    wire_unplug(sim.line);
    sim.finder.kept.clear(); // an incomplete frame will not be continued
}

static bool cmd_unplug(const word_list &) {
    unplug();
    return true;
}

static bool cmd_plug(const word_list &) {
    return wire_plug(sim.line);
}

static bool cmd_fault(const word_list &w) {
    return fault_take(sim.line.faults, w[1]);
}

static bool cmd_read(const word_list &w) {
    int addr, count;
    if (!number(w[1], addr) || !number(w[2], count) || count > 255) {
        return false;
    }
    wire_send(sim.line, frame_read((uint16_t)addr, (uint8_t)count), now_ms());
    return true;
}

static bool cmd_quit(const word_list &) {
    stop = 1;
    return true;
}

static constexpr struct {
    const char *name;
    size_t count; // of words, with the name
    const char *help;
    bool (*run)(const word_list &w); // false: invalid argument, or the command failed
} commands[] = {
    {"load", 2, "load 4.7 | load 2A", cmd_load},
    {"rail", 2, "rail N               select a rail", cmd_rail},
    {"output", 2, "output on | output off", cmd_output},
    {"rails", 2, "rails N              switch to a source with N rails", cmd_rails},
    {"unplug", 1, "unplug", cmd_unplug},
    {"plug", 1, "plug", cmd_plug},
    {"fault", 2, "fault NAME=AMOUNT    as on the command line; 0 turns it off", cmd_fault},
    {"read", 3, "read ADDR COUNT      read registers of the panel", cmd_read},
    {"quit", 1, "quit", cmd_quit},
};

static std::string faults_help() {
    std::string out = "Faults (--fault NAME or --fault NAME=AMOUNT, may be repeated):\n";
    for (const fault_row &row : fault_rows) {
        char line[160];
        snprintf(line, sizeof(line), "  %-8s %-7g %s\n", row.name, row.normal, row.help);
        out += line;
    }
    out += "\nScript: lines \"MS COMMAND\", where MS is the time since the start, in ascending order; commands:\n";
    for (const auto &row : commands) {
        out += std::string("  ") + row.help + "\n";
    }
    return out + "\nExample:  board_sim --link /tmp/board --trace        then:  ZOF_COM6=/tmp/board zof_bench\n";
}

static bool script_fault(const std::string &place, const std::string &what) {
    fprintf(stderr, "board_sim: %s: %s\n", place.c_str(), what.c_str());
    return false;
}

// Checks the name of a command and its number of words.
static bool command_is(const script_line &s) {
    for (const auto &row : commands) {
        if (!s.words.empty() && s.words[0] == row.name) {
            return s.words.size() == row.count || script_fault(s.place, std::string("expected: ") + row.help);
        }
    }
    return script_fault(s.place, "unknown command");
}

static bool read_script(const std::string &path) {
    std::ifstream in(path);
    if (!in) {
        return script_fault(path, "cannot be read");
    }
    std::string text;
    double last = 0;
    for (int line = 1; std::getline(in, text); line++) {
        text.resize(std::min(text.find('#'), text.size()));
        std::istringstream rest(text);
        std::string word;
        script_line s{0, {}, path + ":" + std::to_string(line)};
        if (text.find_first_not_of(" \t\r") == std::string::npos) {
            continue;
        }
        if (!(rest >> s.at_ms) || s.at_ms < last) {
            return script_fault(s.place, "expected a time in ms, not before that of the line above");
        }
        while (rest >> word) {
            s.words.push_back(word);
        }
        if (!command_is(s)) {
            return false;
        }
        last = s.at_ms;
        sim.script.push_back(s);
    }
    return true;
}

static void run_script(double now) {
    while (!sim.script.empty() && sim.script.front().at_ms <= now && !stop) {
        const script_line s = sim.script.front();
        sim.script.pop_front();
        for (const auto &row : commands) {
            if (s.words[0] == row.name && !row.run(s.words)) {
                script_fault(s.place, "the command failed");
            }
        }
    }
}

static void on_write(uint16_t addr, const std::vector<uint16_t> &words) {
    const bytes frame = frame_write(addr, words);
    if (sim.opt.trace) {
        say("board > panel", frame_text(frame));
    }
    wire_send(sim.line, frame, now_ms());
}

static void on_frame(const bytes &frame) {
    if (sim.opt.trace) {
        say("panel > board", frame_text(frame));
    }
    frame_report_words(frame, [](uint16_t addr, uint16_t value) { board_report(sim.box, addr, value); });
}

// Sends bursts of readings with a silence after each: the line is full, but messages still end.
static void flood(double now) {
    const double period = 20;
    if (sim.line.faults.flood <= 0 || now - sim.flooded_ms < period) {
        return;
    }
    size_t left = (size_t)(sim.line.faults.flood * (now - std::max(sim.flooded_ms, now - 2 * period)) / 1000);
    sim.flooded_ms = now;
    static uint16_t count;
    bytes burst;
    for (; left >= 8; left -= 8) {
        const bytes f = frame_write(REG_LIVE_MA, {count++});
        burst.insert(burst.end(), f.begin(), f.end());
    }
    wire_send(sim.line, burst, now);
}

static void replug(double now) {
    const double period = sim.line.faults.replug * 1000;
    if (period <= 0) {
        return;
    }
    const double since = now - sim.plugged_ms;
    if (sim.line.fd >= 0 && since > period) {
        say("line", "unplugged");
        unplug();
    } else if (sim.line.fd < 0 && since > period + 1000) {
        sim.plugged_ms = now; // even if it fails: the next attempt follows after the next pause
        if (wire_plug(sim.line)) {
            say("line", "plugged in as " + sim.line.slave_name);
        }
    }
}

static void receive() {
    uint8_t buffer[1024];
    for (;;) {
        const ssize_t n = sim.line.fd >= 0 ? read(sim.line.fd, buffer, sizeof(buffer)) : -1;
        if (n > 0) {
            frame_feed(sim.finder, buffer, (size_t)n);
            continue;
        }
        if (sim.line.fd >= 0 && (n == 0 || (errno != EAGAIN && errno != EINTR))) {
            say("line", "the far end is gone");
            wire_lost(sim.line);
            unplug();
        }
        return;
    }
}

static void loop() {
    double last = now_ms();
    while (!stop && (sim.opt.seconds <= 0 || last < sim.opt.seconds * 1000)) {
        const double due = wire_flush(sim.line, last);
        pollfd p = {sim.line.fd, POLLIN, 0};
        poll(&p, sim.line.fd >= 0 ? 1 : 0, due >= 0 && due < 10 ? (int)due + 1 : 10);
        receive();
        const double now = now_ms();
        run_script(now);
        board_step(sim.box, now - last);
        flood(now);
        replug(now);
        last = now;
    }
}

int main(int argc, char **argv) {
    CLI::App app("The virtual board: simulates the bench box at the far end of the panel's serial line.");
    options &opt = sim.opt;
    app.footer(faults_help());
    app.add_option("--link", sim.line.link, "create a link to the pseudo-terminal at this path")->type_name("PATH");
    app.add_option("--tty", sim.line.tty, "use this serial line instead of a pseudo-terminal")
        ->type_name("PATH")
        ->excludes("--link");
    app.add_option("--load", opt.load, "load at the output: 10 (ohms) or 2A (constant current)")->type_name("LOAD");
    app.add_option("--rails", opt.rails, "number of rails that the box offers")->check(CLI::Range(0, (int)RAIL_MAX));
    app.add_option("--state", sim.box.settings_file, "keep the box's settings in this file")->type_name("FILE");
    app.add_option("--fault", opt.faults, "disturb the line, see below")->type_name("NAME[=AMOUNT]");
    app.add_option("--script", opt.script, "run the commands in this file, see below")->type_name("FILE");
    app.add_option("--seed", opt.seed, "random seed for noise and faults");
    app.add_option("--seconds", opt.seconds, "exit after this many seconds");
    app.add_flag("--trace", opt.trace, "decode and print every frame");
    app.add_flag("--no-noise", opt.quiet_noise, "readings without noise");
    CLI11_PARSE(app, argc, argv);
    for (const std::string &f : opt.faults) {
        if (!fault_take(sim.line.faults, f)) {
            fprintf(stderr, "board_sim: --fault: unknown fault or bad amount: \"%s\"; see --help\n", f.c_str());
            return 2;
        }
    }
    if (!parse_load(opt.load, sim.box.load)) {
        fprintf(stderr, "board_sim: --load takes ohms (10) or amperes (2A), not \"%s\"\n", opt.load.c_str());
        return 2;
    }
    if ((!sim.box.settings_file.empty() && !board_settings_check(sim.box)) ||
        (!opt.script.empty() && !read_script(opt.script))) {
        return 2;
    }
    sim.box.random.seed(opt.seed);
    sim.line.random.seed(opt.seed);
    sim.box.noise = !opt.quiet_noise;
    sim.box.write = on_write;
    sim.finder.found = on_frame;
    sim.box.rails = first_rails(opt.rails);
    if (!wire_plug(sim.line)) {
        return 1;
    }
    for (int sig : {SIGINT, SIGTERM, SIGHUP}) {
        signal(sig, [](int) { stop = 1; });
    }
    const std::string where = !sim.line.link.empty()  ? sim.line.link
                              : !sim.line.tty.empty() ? sim.line.tty
                                                      : sim.line.slave_name;
    say("line", "the board is at " + where);
    board_power_up(sim.box);
    loop();
    wire_unplug(sim.line);
    say("line",
        std::to_string(sim.line.sent) + " bytes sent, " + std::to_string(sim.line.dropped) + " dropped on a full line");
    return 0;
}
