// The far end of the line: a new pseudo-terminal or a given line, with the faults of a real one.
#ifndef WIRE_H
#define WIRE_H

#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <vector>

#include "frames.h"

// Amounts of the faults; 0 turns a fault off.
struct wire_faults {
    double lose = 0, garbage = 0, split = 0, late = 0, flood = 0, replug = 0, mute = 0;
};

// One row per fault. Its amount, 0 to `max`, follows "=" on the command line; without "=" it is `normal`.
struct fault_row {
    const char *name;
    double wire_faults::*amount;
    double normal, max;
    const char *help;
};
extern const std::vector<fault_row> fault_rows;

// Parses "NAME" or "NAME=AMOUNT". Returns false if the name is unknown or the amount out of range.
bool fault_take(wire_faults &faults, const std::string &text);

struct wire {
    int fd = -1;      // the pseudo-terminal's master, or the tty; -1 while it is unplugged
    int slave = -1;   // kept open, so that the line survives a panel that closes it
    std::string link; // a symbolic link to the pseudo-terminal, for the panel
    std::string tty;  // a given line, used instead of a pseudo-terminal
    unsigned baud = 115200;
    std::string slave_name;
    bool linked = false; // we created `link` and must remove it
    bool is_pts = false; // the given line is a pseudo-terminal
    bool ended = false;  // such a pseudo-terminal was closed, and another terminal may have its number
    wire_faults faults;
    std::mt19937 random;

    struct piece {
        double due_ms;
        bytes data;
    };
    std::deque<piece> queue; // bytes in transit, in order
    uint64_t sent = 0, dropped = 0;
};

// Opens or reopens the line. Returns false after a message, also if a given line is not a terminal. A given
// pseudo-terminal that was closed is not reopened.
bool wire_plug(wire &w);
void wire_unplug(wire &w);

// Closes a line whose far end has disappeared.
void wire_lost(wire &w);

// Whether a line can be made without a device; help for --tty, and an example.
extern const bool wire_makes_lines;
extern const char *const wire_line_help, *const wire_example;

// What systems do differently, in wire_posix.cpp and wire_win32.cpp. Read and write do not wait. Read returns the
// bytes, 0 when no bytes have arrived, -1 when the far end is gone; write, of an open line, the bytes that were taken.
// Wait returns when one of the lines can be read, or written if that is wanted, at the latest after `ms`.
long wire_read(wire &w, uint8_t *data, size_t size);
size_t wire_write(wire &w, const bytes &data);
struct wire_wanted {
    wire *line;
    bool write;
};
void wire_wait(const std::vector<wire_wanted> &lines, int ms);

// Queues bytes for the line and applies its faults. `now_ms` is any monotonic clock. Returns false if nothing is sent:
// the line is unplugged or mute.
bool wire_send(wire &w, const bytes &data, double now_ms);

// Writes all bytes whose time has come. Returns the time until the next piece in milliseconds, or -1 if the queue is
// empty.
double wire_flush(wire &w, double now_ms);

#endif
