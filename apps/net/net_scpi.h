// The sockets of SCPI: lines over TCP for up to SCPI_CLIENTS clients, on a separate thread.
#ifndef NET_SCPI_H
#define NET_SCPI_H

#include "zof_lib/zof_type.h"

// Opens the port "[ADDRESS:]PORT", on 127.0.0.1 by default, and prints the address; port 0 selects a free port. An IPv6
// address stands in brackets. Returns 0, or -1 after a message. Call it once, before net_scpi_start.
s32 net_scpi_listen(const char *address);
// Starts the thread that serves the port; does nothing if no port is open. Call it once.
void net_scpi_start();

#endif
