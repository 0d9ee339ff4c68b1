// The virtual board: a program at the other end of the panel's register link.
#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "run.h"
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
static volatile sig_atomic_t stop;

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
    if (!run_begin(sim, opt.trace)) {
        return ZOF_EXIT_FILES;
    }
    for (int sig : system_end_signals()) {
        signal(sig, [](int) { stop = 1; });
    }
    run_say("line", "the board is at " + line_name());
    while (!stop && !sim.ended && (opt.seconds <= 0 || sim.now_ms < opt.seconds * 1000)) {
        run_step(sim);
    }
    wire_unplug(sim.line);
    run_say("line", std::to_string(sim.line.sent) + " bytes sent, " + std::to_string(sim.line.dropped) +
                        " dropped on a full line");
    const int print_fault = run_say_fault();
    if (print_fault) {
        fprintf(stderr, "board_sim: standard output: %s\n", std::generic_category().message(print_fault).c_str());
    }
    return print_fault ? ZOF_EXIT_FAILURE : ZOF_EXIT_GOOD;
}
