// The virtual board: a program at the other end of the panel's register link.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "hardware/uart/zof_hw_text.h"
#include "script.h"
#include "system.h"
#include "zof_lib/zof_stdio.h"

struct options {
    std::vector<std::string> faults;
    std::string load = "10", script;
    unsigned seed = 0;
    int rails = RAIL_MAX;
    double seconds = 0;
    bool trace = false, quiet_noise = false;
};

static simulation sim;
static options opt;
static double plugged_ms, flooded_ms;
static int print_fault; // errno of the first line that could not be printed

static volatile sig_atomic_t stop;

static double now_ms() {
    using clock = std::chrono::steady_clock;
    static const clock::time_point start = clock::now();
    return std::chrono::duration<double, std::milli>(clock::now() - start).count();
}

static void say(const char *who, const std::string &what) {
    const bool printed = printf("%9.3f  %-14s %s\n", now_ms() / 1000, who, what.c_str()) >= 0 && fflush(stdout) == 0;
    print_fault = printed || print_fault ? print_fault : errno;
}

static std::string faults_help() {
    std::string out = "Faults (--fault NAME or --fault NAME=AMOUNT, may be repeated):\n";
    for (const fault_row &row : fault_rows) {
        char line[160];
        snprintf(line, sizeof(line), "  %-8s %-7g %s; at most %.0f\n", row.name, row.normal, row.help, row.max);
        out += line;
    }
    out += "\nScript: lines \"MS COMMAND\", where MS is the time since the start, in ascending order; commands:\n";
    return out + script_help() + "\nExample:  " + wire_example + "\n";
}

// Reads the script. Returns false after a message.
static bool read_script(const std::string &path) {
    std::ifstream in(std::filesystem::path{path});
    const std::string fault = in ? script_read(sim, in, path) : path + ": cannot be read";
    if (!fault.empty()) {
        fprintf(stderr, "board_sim: %s\n", fault.c_str());
    }
    return fault.empty();
}

static void send_frame(const bytes &frame) {
    if (wire_send(sim.line, frame, now_ms()) && opt.trace) {
        say("board > panel", frame_text(frame));
    }
}

static void on_frame(const bytes &frame) {
    if (opt.trace) {
        say("panel > board", frame_text(frame));
    }
    frame_report_words(frame, [](uint16_t addr, uint16_t value) { board_report(sim.box, addr, value); });
}

// Sends bursts of readings with a silence after each, so that the line is full but messages still end.
static void flood(double now) {
    const double period = 20;
    if (sim.line.faults.flood <= 0 || now - flooded_ms < period) {
        return;
    }
    size_t left = (size_t)(sim.line.faults.flood * (now - std::max(flooded_ms, now - 2 * period)) / 1000);
    flooded_ms = now;
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
    const double since = now - plugged_ms;
    if (sim.line.fd >= 0 && since > period) {
        say("line", "unplugged");
        simulation_unplug(sim);
    } else if (sim.line.fd < 0 && since > period + 1000) {
        plugged_ms = now; // even on failure, so that the next attempt waits for the next interval
        if (wire_plug(sim.line)) {
            say("line", "plugged in as " + sim.line.slave_name);
        }
    }
}

static void receive() {
    uint8_t buffer[1024];
    long n;
    while ((n = wire_read(sim.line, buffer, sizeof(buffer))) > 0) {
        frame_feed(sim.finder, buffer, (size_t)n);
    }
    if (n < 0) {
        say("line", "the far end is gone");
        wire_lost(sim.line);
        simulation_unplug(sim);
    }
}

static void loop() {
    double last = now_ms();
    while (!stop && !sim.ended && (opt.seconds <= 0 || last < opt.seconds * 1000)) {
        const double due = wire_flush(sim.line, last);
        wire_wait({{&sim.line, false}}, due >= 0 && due < 10 ? (int)due + 1 : 10);
        receive();
        const double now = now_ms();
        sim.now_ms = now;
        fputs(script_run(sim).c_str(), stderr);
        board_step(sim.box, now - last);
        flood(now);
        replug(now);
        last = now;
    }
}

static void options_add(CLI::App &app) {
    app.footer(faults_help());
    app.allow_windows_style_options(false); // "/tmp/res" is a path on all systems
    CLI::Option *tty = app.add_option("--tty", sim.line.tty, wire_line_help)->type_name("PATH");
    if (wire_makes_lines) {
        app.add_option("--link", sim.line.link, "create a link to the pseudo-terminal at this path")
            ->type_name("PATH")
            ->excludes(tty);
    } else {
        tty->required();
    }
    app.add_option("--load", opt.load, "load at the output: 10 (ohms) or 2A (constant current)")->type_name("LOAD");
    app.add_option("--rails", opt.rails, "number of rails that the box offers")->check(CLI::Range(0, (int)RAIL_MAX));
    app.add_option("--state", sim.box.settings_file, "keep the box's settings in this file")->type_name("FILE");
    app.add_option("--fault", opt.faults, "disturb the line, see below")->type_name("NAME[=AMOUNT]");
    app.add_option("--script", opt.script, "run the commands in this file, see below")->type_name("FILE");
    app.add_option("--seed", opt.seed, "random seed for noise and faults");
    app.add_option("--seconds", opt.seconds, "exit after this many seconds; 0 for never")->check(CLI::Range(0.0, 1e9));
    app.add_flag("--trace", opt.trace, "decode and print every frame");
    app.add_flag("--no-noise", opt.quiet_noise, "readings without noise");
}

// Returns the exit status: not good after a message about an invalid option or file.
static int options_apply() {
    for (const std::string &f : opt.faults) {
        if (!fault_take(sim.line.faults, f)) {
            fprintf(stderr, "board_sim: --fault: unknown fault or amount out of range: \"%s\"; see --help\n",
                    f.c_str());
            return ZOF_EXIT_USAGE;
        }
    }
    if (!load_parse(opt.load, sim.box.load)) {
        fprintf(stderr, "board_sim: --load takes ohms (10) or amperes (2A), not \"%s\"\n", opt.load.c_str());
        return ZOF_EXIT_USAGE;
    }
    sim.box.random.seed(opt.seed);
    sim.line.random.seed(opt.seed);
    sim.box.noise = !opt.quiet_noise;
    sim.box.rails = board_default_rails((size_t)opt.rails);
    const bool files = (sim.box.settings_file.empty() || board_settings_check(sim.box)) &&
                       (opt.script.empty() || read_script(opt.script));
    return files ? ZOF_EXIT_GOOD : ZOF_EXIT_FILES;
}

static const std::string &line_name() {
    const wire &w = sim.line;
    return !w.link.empty() ? w.link : !w.tty.empty() ? w.tty : w.slave_name;
}

int main(int argc, char **argv) {
    CLI::App app("The virtual board: simulates the bench box at the far end of the panel's serial line.");
    options_add(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &fault) {
        return app.exit(fault) == 0 ? ZOF_EXIT_GOOD : ZOF_EXIT_USAGE;
    }
    const int status = options_apply();
    if (status != ZOF_EXIT_GOOD) {
        return status;
    }
    sim.send = send_frame;
    sim.box.write = [](uint16_t addr, const std::vector<uint16_t> &words) { send_frame(frame_write(addr, words)); };
    sim.finder.found = on_frame;
    if (!wire_plug(sim.line)) {
        return ZOF_EXIT_FILES;
    }
    for (int sig : system_end_signals()) {
        signal(sig, [](int) { stop = 1; });
    }
    say("line", "the board is at " + line_name());
    board_power_up(sim.box);
    loop();
    wire_unplug(sim.line);
    say("line",
        std::to_string(sim.line.sent) + " bytes sent, " + std::to_string(sim.line.dropped) + " dropped on a full line");
    if (print_fault) {
        fprintf(stderr, "board_sim: standard output: %s\n", std::generic_category().message(print_fault).c_str());
    }
    return print_fault ? ZOF_EXIT_FAILURE : ZOF_EXIT_GOOD;
}
