// Runs the board: advances its time, handles what it receives, and makes the faults that recur. One simulation per
// program.
#ifndef RUN_H
#define RUN_H

#include "script.h"

// Prints a line with the time since the start. The second returns the errno of the first one that could not be printed,
// or 0.
void run_say(const char *who, const std::string &what);
int run_say_fault();

// Plugs the line in and powers the box up; with `traced`, every frame is printed. Returns false after a message if the
// line cannot be plugged in.
bool run_begin(simulation &sim, bool traced);

// Waits for the line for at most 10 ms, and does what is due then.
void run_step(simulation &sim);

#endif
