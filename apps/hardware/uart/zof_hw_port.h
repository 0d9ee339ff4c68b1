// The port of the box: which one it is, what is known of it, and the next one.
#ifndef ZOF_HW_PORT_H
#define ZOF_HW_PORT_H

#include "zof.h"

enum { ZOF_BOX_PORT = 6 }; // its number, for ZOF_COM6

// Sets the path of the port in place of the environment's, before zof_run. "auto": the one serial adapter; without one,
// or with several, a message on the error stream lists them and there is no port. Returns 0, or -1 after a message: the
// path is empty or too long.
s32 zof_box_port_set(const char *path);

// Returns the path set above; null if there is none.
const char *zof_box_port(void);

// Prints the serial ports of the system, one in a line: path, adapter, and what prevents opening it.
void zof_box_port_print(void);

// Moves the link to the next serial port of the system, which is tried at once; after the last one the first, and among
// them the path that the link began with. Under dis_mutex. Returns 0, or -1 when there is no other port.
s32 zof_box_port_next(void);

// Copies what is known of the port; of a replay, that its file is open. Any thread. Returns 0, or -1 without a port.
s32 zof_box_port_info(zof_uart_info_t *out);

#endif
