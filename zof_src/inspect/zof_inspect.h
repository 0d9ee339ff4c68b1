// A look into a running program: see docs/player.md.
#ifndef ZOF_INSPECT_H
#define ZOF_INSPECT_H

#include "project/base/zof_para.h"

ZOF_C_BEGIN

// Name of the file that holds the token of a port, for zof_net_private_path.
#define ZOF_INSPECT_FILE "zof_inspect_%u"

// Opens the port that the environment variable ZOF_INSPECT names, on 127.0.0.1 alone, and prints its number and the
// file of its token; does nothing if the variable is not set. If the port cannot be opened, the program runs without
// it, after one log line. Commands are executed in turns of the main loop. Only the first call counts. Graphics thread,
// after the first view is shown.
void zof_inspect_start(void);

// Whether zof_inspect_event is to be called, for each event that a host may receive. Graphics thread.
zof_bool zof_inspect_events_wanted(void);
void zof_inspect_event(para_t *record, u32 event);

ZOF_C_END

#endif
