// The control flags that a line's settings become; apart, so that a test can look at bits that a pseudo-terminal drops.
#ifndef HOST_LINUX_LINE_H
#define HOST_LINUX_LINE_H

#include "port/zof_host.h"

u32 host_line_cflag(const zof_host_line_t *line);

#endif
