// What the Linux files of the host layer share.
#ifndef HOST_LINUX_LINE_H
#define HOST_LINUX_LINE_H

#include <sys/stat.h>

#include "port/zof_host.h"

// Returns the control flags for a line's settings; separate, so that a test can check bits that a pseudo-terminal
// drops.
u32 host_line_cflag(const zof_host_line_t *line);

// What had a port's name at the last look.
typedef struct {
    bool looked;
    bool opened;        // a look has opened it
    bool present;       // there was a device
    bool foreign;       // it is not a serial line
    struct stat name;   // the name itself: a link, or the device
    struct stat device; // what it leads to
} host_trace_t;

// Looks for a device, and opens, locks and sets it up unless that is not to be tried again. `trace` is empty at the
// first look at a path. Writes state and texts to `found`, where they are empty. Returns the descriptor or -1.
int host_line_look(const char *path, const zof_host_line_t *line, host_trace_t *trace, zof_uart_info_t *found);

// What is known of a device without opening it. Writes its adapter's name; the group that may use it, and no other
// texts of `out` and not its state.
void host_port_name(const struct stat *device, zof_uart_info_t *out);
void host_port_group(const struct stat *device, zof_uart_info_t *out);
// Writes who has locked the device, or else who has it open; nothing when nobody is found.
void host_port_holder(const struct stat *device, zof_uart_info_t *out);

// Returns the process that holds a lock on this file; 0 when it is not known.
u32 host_lock_holder(const struct stat *file);

// Reads the first line of a small file, without its end and with ? for what is not printable. Returns false if the file
// cannot be read.
bool host_line_read(const char *path, char *out, size_t size);

// For tests: the folders in place of /sys and /dev. Kept, not copied.
void host_port_roots_set(const char *sys, const char *dev);
const char *host_port_sys(void);
const char *host_port_dev(void);

#endif
