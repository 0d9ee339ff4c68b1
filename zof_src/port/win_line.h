// What the serial lines of all systems share: which device a port is, and what is logged of it.
#ifndef WIN_LINE_H
#define WIN_LINE_H

#include "port/zof_host.h"

// Writes the path of a port: `path`, else that in the environment variable ZOF_COM<P>, else `own`, the system's name
// for it. Returns false when it does not fit.
bool win_line_path(s32 port, const char *path, const char *own, char *out, size_t size);

// Logs what has become of a port. `seen`: its device has been open before; `foreign`: it is not looked for again.
void win_line_log(s32 port, bool seen, bool foreign, const zof_uart_info_t *now, const zof_host_line_t *line);

// Returns true if a look has found nothing new.
bool win_line_same(const zof_uart_info_t *a, const zof_uart_info_t *b);

#endif
