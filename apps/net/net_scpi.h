// The sockets of SCPI: lines over TCP, for SCPI_CLIENTS clients at once, on a separate thread.
#ifndef NET_SCPI_H
#define NET_SCPI_H

#include "zof_lib/zof_type.h"

// Opens the port "[ADDRESS:]PORT", by default on 127.0.0.1, and prints where it listens; port 0 is any that is free. An
// IPv6 address stands in brackets. Returns 0, or -1 after a message. Before the start, once.
s32 net_scpi_listen(const char *address);
// Starts the thread that serves it; does nothing if no port is open. Once.
void net_scpi_start();

#endif
