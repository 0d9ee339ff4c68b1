#include "script.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

bool load_parse(const std::string &text, board_load &load) {
    char *end;
    const double v = strtod(text.c_str(), &end);
    const std::string unit = end;
    if (end == text.c_str() || !(v > 0 && v < 1e9) || (!unit.empty() && unit != "ohm" && unit != "A")) {
        return false;
    }
    load = unit == "A" ? board_load{10, v} : board_load{v, 0};
    return true;
}

void simulation_unplug(simulation &sim) {
    wire_unplug(sim.line);
    sim.finder.kept.clear();
}

static bool number(const std::string &text, int max, int &out) {
    char *end;
    const long v = strtol(text.c_str(), &end, 10);
    out = (int)v;
    return end != text.c_str() && *end == 0 && v >= 0 && v <= max;
}

using word_list = std::vector<std::string>;

static bool cmd_load(simulation &sim, const word_list &w) {
    return load_parse(w[1], sim.box.load);
}

static bool cmd_rail(simulation &sim, const word_list &w) {
    int rail;
    return number(w[1], RAIL_MAX - 1, rail) && board_select(sim.box, (uint16_t)rail);
}

static bool cmd_output(simulation &sim, const word_list &w) {
    if (w[1] != "on" && w[1] != "off") {
        return false;
    }
    board_output(sim.box, w[1] == "on");
    return true;
}

static bool cmd_rails(simulation &sim, const word_list &w) {
    int count;
    if (!number(w[1], RAIL_MAX, count)) {
        return false;
    }
    board_set_rails(sim.box, board_default_rails((size_t)count));
    return true;
}

static bool cmd_unplug(simulation &sim, const word_list &) {
    simulation_unplug(sim);
    return true;
}

static bool cmd_plug(simulation &sim, const word_list &) {
    return wire_plug(sim.line);
}

static bool cmd_fault(simulation &sim, const word_list &w) {
    return fault_take(sim.line.faults, w[1]);
}

static bool cmd_read(simulation &sim, const word_list &w) {
    int addr, count;
    if (!number(w[1], 65535, addr) || !number(w[2], 255, count)) {
        return false;
    }
    sim.send(frame_read((uint16_t)addr, (uint8_t)count));
    return true;
}

static bool cmd_quit(simulation &sim, const word_list &) {
    sim.ended = true;
    return true;
}

static constexpr struct {
    const char *name;
    size_t count; // number of words, including the name
    const char *help;
    bool (*run)(simulation &sim, const word_list &w); // false: invalid argument, or the command failed
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

std::string script_help() {
    std::string out;
    for (const auto &row : commands) {
        out += std::string("  ") + row.help + "\n";
    }
    return out;
}

// Returns a message if a command is unknown or has the wrong number of words; otherwise an empty text.
static std::string command_fault(const word_list &words) {
    for (const auto &row : commands) {
        if (!words.empty() && words[0] == row.name) {
            return words.size() == row.count ? "" : std::string("expected: ") + row.help;
        }
    }
    return "unknown command";
}

// Parses a line that is not blank. Returns a message, or an empty text on success.
static std::string line_parse(const std::string &text, double earliest, script_line &out) {
    std::istringstream rest(text);
    std::string word;
    if (!(rest >> out.at_ms) || out.at_ms < earliest) {
        return "expected a time in ms, not before that of the line above";
    }
    while (rest >> word) {
        out.words.push_back(word);
    }
    return command_fault(out.words);
}

std::string script_read(simulation &sim, std::istream &in, const std::string &file) {
    std::string text;
    double last = 0;
    for (int number = 1; std::getline(in, text); number++) {
        text.resize(std::min(text.find('#'), text.size()));
        if (text.find_first_not_of(" \t\r") == std::string::npos) {
            continue;
        }
        script_line line{0, {}, file + ":" + std::to_string(number)};
        const std::string fault = line_parse(text, last, line);
        if (!fault.empty()) {
            return line.place + ": " + fault;
        }
        last = line.at_ms;
        sim.script.push_back(line);
    }
    return in.bad() ? file + ": cannot be read" : "";
}

std::string script_run(simulation &sim) {
    std::string failed;
    while (!sim.script.empty() && sim.script.front().at_ms <= sim.now_ms && !sim.ended) {
        const script_line line = sim.script.front();
        sim.script.pop_front();
        for (const auto &row : commands) {
            if (line.words[0] == row.name && !row.run(sim, line.words)) {
                failed += "board_sim: " + line.place + ": the command failed\n";
            }
        }
    }
    return failed;
}
