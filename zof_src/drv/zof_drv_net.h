// Connections from programs of this machine over TCP, on 127.0.0.1 alone, and what shows that such a program belongs to
// the same user. Implemented by the host; one without sockets opens no port. After a failure zof_file_error says why.
#ifndef ZOF_DRV_NET_H
#define ZOF_DRV_NET_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct zof_net_port zof_net_port_t;

// Opens a port; 0 selects a free one, whose number is then in `number`. Returns null on failure. The second closes it,
// with nothing else in progress.
zof_net_port_t *zof_net_listen(u16 *number);
void zof_net_unlisten(zof_net_port_t *port);

// All functions below but zof_net_wake belong to one thread, and only zof_net_wait waits.

// Returns the next connection that a program has opened, or -1 if no connection waits.
s32 zof_net_accept(zof_net_port_t *port);

// Returns the number of bytes that were read or written; 0 if it would have to wait; -1 when the other end is closed.
s32 zof_net_read(s32 connection, void *out, u32 size);
s32 zof_net_write(s32 connection, const void *data, u32 size);

// Closes a connection. What was written still reaches the other end.
void zof_net_close(s32 connection);

// Waits for one of the events in `events`, or for zof_net_wake, at most `ms` milliseconds; below 0 without limit.
enum { ZOF_NET_ACCEPT = 1, ZOF_NET_READ = 2, ZOF_NET_WRITE = 4 };
void zof_net_wait(zof_net_port_t *port, s32 connection, u32 events, s32 ms);

// Any thread: ends the current wait, or the next one.
void zof_net_wake(zof_net_port_t *port);

// Fills `out` from the system's source of random numbers. Returns 0 or -1.
s32 zof_net_random(void *out, u32 size);

// Makes the path of a file that only the user of this process may read or replace: `name` in XDG_RUNTIME_DIR, else in a
// folder of the user's own in that for temporary files, which is created with `make`. Returns 0; -1 if there is no such
// folder, others may write to it, or the path does not fit. Any thread.
s32 zof_net_private_path(char *out, size_t size, const char *name, zof_bool make);

// Writes a text to such a file, replacing it; also in a process that changes no medium otherwise. Returns 0 or -1.
s32 zof_net_private_write(const char *path, const char *text);

ZOF_C_END

#endif
