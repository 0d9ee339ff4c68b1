// The line's far end: a pseudo-terminal of our own or a given tty, and the faults that a real line has.
#ifndef WIRE_H
#define WIRE_H

#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "frames.h"

// Amounts of the faults; 0 is a good line.
struct wire_faults {
    double lose = 0, garbage = 0, split = 0, late = 0, flood = 0, replug = 0, mute = 0;
};

// A fault is a row; its amount is what stands behind "=" on the command line, or `normal` without it.
struct fault_row {
    const char *name;
    double wire_faults::*amount;
    double normal;
    const char *help;
};
extern const std::vector<fault_row> fault_rows;

// Takes "NAME" or "NAME=AMOUNT"; false for a name without a row and for an amount below 0 or beyond reason.
bool fault_take(wire_faults &faults, const std::string &text);

struct wire {
    int fd = -1;      // the pseudo-terminal's master, or the tty
    int slave = -1;   // kept open, so that a panel that leaves does not end the line
    std::string link; // the name under which the panel finds the pseudo-terminal
    std::string tty;  // a given line instead
    unsigned baud = 115200;
    std::string slave_name;
    bool linked = false; // `link` is ours to remove
    bool is_pts = false; // the given line is a pseudo-terminal ...
    bool ended = false;  // ... that has ended: its number may be another terminal's by now
    wire_faults faults;
    std::mt19937 random;

    struct piece {
        double due_ms;
        bytes data;
    };
    std::deque<piece> queue; // bytes on their way, in order
    uint64_t sent = 0, dropped = 0;
};

// Opens the line, or plugs it in again; false after a message: a given line has to be a terminal. A pseudo-terminal
// that ended stays closed.
bool wire_plug(wire &w);
void wire_unplug(wire &w);

// Closes a line whose far end has ended.
void wire_lost(wire &w);

// Sends bytes over the line, which applies its faults. `now_ms` is any monotonic clock.
void wire_send(wire &w, const bytes &data, double now_ms);

// Writes what is due; returns when the next piece is due, or -1.
double wire_flush(wire &w, double now_ms);

#endif
