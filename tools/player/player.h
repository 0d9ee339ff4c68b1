// The player: runs a project folder with the real runtime and no application, draws into shared memory, and executes
// lines of JSON from its standard input. A process loads one project; to reload it, start a new player.
#ifndef PLAYER_H
#define PLAYER_H

#include <string>

#include "inspect/zof_inspect_in.h"

// All functions run on the main thread, under dis_mutex once a project is loaded, unless noted otherwise.

// Command line options.
struct player_options_t {
    bool live;          // real time and the serial link; if false, only commands advance the time
    std::string shared; // file of the shared memory; empty for none
};
extern player_options_t player_options;

// player_io.cpp ------------------------------------------------------------------------------------------------------
extern const inspect_peer_t player_parent; // at the other end of the standard input and output

// Reserves the standard output for the protocol; other output goes to the error stream. Call it first.
void player_io_init();

// Waits for a line. Returns false at the end of the input. Call it from one thread only.
bool player_line_read(inspect_reader_t *line);

// player_command.cpp -------------------------------------------------------------------------------------------------
extern const inspect_player_t player_commands;

// Returns true after `quit` was executed.
bool player_ended();

// player_start.cpp ---------------------------------------------------------------------------------------------------
// Starts the runtime with the project folder `dir` or its subfolder `res`. Returns an error text, empty on success.
std::string player_start(const char *dir);

// Advances the virtual clock in the steps of the main loop.
void player_clock_advance(u32 ms);
void player_clock_init();

// player_frame.cpp ---------------------------------------------------------------------------------------------------
// Maps the shared memory of the options, if there is one, and starts to report frames. Returns an error text, empty on
// success.
std::string player_frame_init();

#endif
