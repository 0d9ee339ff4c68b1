// Replay: the data of a board from a trace (zof_hw_trace.h) arrives again at its recorded times, as if a board sent it.
// No port is opened, and what the panel sends is discarded.
#ifndef ZOF_HW_REPLAY_H
#define ZOF_HW_REPLAY_H

#include "zof.h"

// Makes this run a replay of a trace. Call it before zof_run. Returns 0, or -1 after a message on the error stream.
s32 zof_replay_open(const char *file);

// Returns the file of the replay, even after its end, or null if this run is not a replay.
const char *zof_replay_file(void);

// Returns true if `path` is the file of the replay, also by another name.
bool zof_replay_reads(const char *path);

// Starts the replay, on the main thread under dis_mutex. `receive` gets the bytes, up to `most` per call. Invalid lines
// are logged with their place and skipped. After the end the line is silent.
void zof_replay_start(void (*receive)(u8 *data, u32 size), u32 most);

#endif
