// Replaces net_scpi.cpp on a system without listening sockets.
#include <stdio.h>

#include "net/net_scpi.h"

s32 net_scpi_listen(const char *address) {
    fprintf(stderr, "zof_bench: --scpi %s: this system has no sockets\n", address);
    return -1;
}

void net_scpi_start() {
}
