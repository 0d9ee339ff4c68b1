// What the Linux files of the host layer share.
#ifndef HOST_LINUX_LINE_H
#define HOST_LINUX_LINE_H

#include "port/zof_host.h"

// Returns the control flags for a line's settings; separate, so that a test can check bits that a pseudo-terminal
// drops.
u32 host_line_cflag(const zof_host_line_t *line);

// The host's own clock, even when a test has replaced it: for waits in system calls.
u64 host_monotonic_ms(void);

#endif
