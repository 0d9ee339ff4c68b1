// A script for the virtual board: lines "MS COMMAND", and the commands.
#ifndef SCRIPT_H
#define SCRIPT_H

#include <istream>

#include "board.h"
#include "wire.h"

struct script_line {
    double at_ms; // since the start
    std::vector<std::string> words;
    std::string place; // file:line
};

// A running board: the state on which the commands of a script act.
struct simulation {
    board box;
    wire line;
    frame_finder finder;
    std::deque<script_line> script; // the remaining lines
    double now_ms = 0;              // since the start
    bool ended = false;             // set by a command

    std::function<void(const bytes &frame)> send; // to the panel
};

// Appends the lines of a script; "#" begins a comment, and times must not decrease. Returns an empty text, or a message
// with the place of the first fault, "FILE:3: ...".
std::string script_read(simulation &sim, std::istream &in, const std::string &file);

// Runs the commands whose time has come, up to one that ends the simulation. Returns a line for each that failed.
std::string script_run(simulation &sim);

// Returns one line of help per command.
std::string script_help();

// Unplugs the line and drops the incomplete frame received from it.
void simulation_unplug(simulation &sim);

// Parses "10", "10ohm" or "2A". Returns false if the text has another form or is out of range.
bool load_parse(const std::string &text, board_load &load);

#endif
