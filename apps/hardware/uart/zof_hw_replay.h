// Replay: what a board sent in a trace (zof_hw_trace.h) arrives again at its times, as if a board sent it. No port is
// opened, and what the panel sends goes nowhere.
#ifndef ZOF_HW_REPLAY_H
#define ZOF_HW_REPLAY_H

#include "zof.h"

// Makes this run a replay of a trace. Before zof_run. Returns 0, or -1 after a message on the error stream.
s32 zof_replay_open(const char *file);

// Returns the file of the replay, also after its end; null if this run is none.
const char *zof_replay_file(void);

// Returns true if the file of the replay has this path too.
bool zof_replay_reads(const char *path);

// Starts the replay, on the main thread under dis_mutex. `receive` gets the bytes, up to `most` at a time. Lines that
// cannot be read are logged with their place and skipped. At the end the line is silent.
void zof_replay_start(void (*receive)(u8 *data, u32 size), u32 most);

#endif
