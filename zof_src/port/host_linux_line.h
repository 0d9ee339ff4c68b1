// What the Linux files of the host layer share.
#ifndef HOST_LINUX_LINE_H
#define HOST_LINUX_LINE_H

#include "port/zof_host.h"

// The control flags that a line's settings become; apart, so that a test can look at bits that a pseudo-terminal drops.
u32 host_line_cflag(const zof_host_line_t *line);

// The host's own clock, whatever a test has put in its place: for waits in system calls.
u64 host_monotonic_ms(void);

#endif
