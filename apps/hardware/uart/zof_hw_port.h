// The port of the box: which one it is, its state, and switching to the next one.
#ifndef ZOF_HW_PORT_H
#define ZOF_HW_PORT_H

#include "zof.h"

enum { ZOF_BOX_PORT = 6 }; // its number in ZOF_COM6

// Sets the path of the port, which overrides the environment. Call it before zof_run. "auto" means the only serial
// adapter. Without exactly one adapter, a message on the error stream lists the ports and no port is used. Returns 0,
// or -1 after a message if the path is empty or too long.
s32 zof_box_port_set(const char *path);

// Returns the path set by zof_box_port_set, or null if it was not called.
const char *zof_box_port(void);

// Prints the serial ports of the system, one per line: path, adapter, and what prevents opening it.
void zof_box_port_print(void);

// Moves the link to the next serial port of the system and tries it at once. After the last port follows the first; the
// path with which the link started is one of them. Call it under dis_mutex. Returns 0, or -1 if there is no other port.
s32 zof_box_port_next(void);

// Copies the state of the port; for a replay, the state is that its file is open. Any thread may call it. Returns 0, or
// -1 if there is no port.
s32 zof_box_port_info(zof_uart_info_t *out);

#endif
