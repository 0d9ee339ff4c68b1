// Serial lines. What is the same on all systems is in win_line.cpp, and a host implements the functions below. The
// reader thread looks for a device that cannot be opened, at the start or later. One lock guards the device and what is
// known of the port. The reader takes it only to swap them, never while it opens or closes a device, because senders
// wait for it while they hold the graphics lock.
#ifndef WIN_LINE_H
#define WIN_LINE_H

#include <atomic>
#include <mutex>

#include "port/zof_host.h"

enum { WIN_LINE_SEND_WAIT_MS = 50, WIN_LINE_BITS = 12 }; // bits of a byte: start, data, parity, two stop bits

struct win_line {
    zof_drv_t drv;   // first: the handle
    std::mutex lock; // guards all up to `next`
    intptr_t device; // the host's number of the open device, -1 while no device is open; changed by the reader only
    bool choked;     // the peer does not read: no waiting until it does
    u64 patience;    // and not before this time
    zof_host_line_t line;
    zof_uart_info_t info; // all but `bytes`
    char next[sizeof(zof_uart_info_t::path)];
    std::atomic<bool> moved;  // `next` is the path to use from now on
    std::atomic<bool> closed; // by the owner
    std::atomic<int> users;   // the owner, and each thread inside receive; the last one releases it
    s32 port;                 // its number, for messages
    bool seen;                // the device has been open under this path; reader thread, after the start
    bool foreign;             // what has this path is not a serial line; set by the host's look, likewise
    void *host;               // the host's own record
};

// Makes and releases the host's own record. Returns false with errno; then it has been released.
bool host_line_init(win_line *s);
void host_line_free(win_line *s);

// Writes the system's own path of a port.
void host_line_path(s32 port, char *out, size_t size);

// Reader thread. Looks for the device at found->path and opens it, unless that is not to be tried again. Writes state
// and texts to `found`, where they are empty. Returns the device or -1. A line that was moved forgets what it knew.
intptr_t host_line_open(win_line *s, const zof_host_line_t *line, zof_uart_info_t *found);
void host_line_forget(win_line *s);

// Returns false with errno when the line cannot be set.
bool host_line_apply(intptr_t device, const zof_host_line_t *line);

// Cancel pending calls on the device, under the line's lock; close the device, which may take long, without the lock.
void host_line_leave(win_line *s);
void host_line_close(intptr_t device);

// Under the lock. Writes what the line accepts; an impatient call does not wait. Returns the bytes that were taken;
// Sets `full` if the line did not accept all of them in time. Does not report a device that is gone; the reader does.
u32 host_line_write(win_line *s, const u8 *data, u32 size, bool patient, bool *full);

// Reader thread, without the lock, which a sender may hold while it waits for a peer that waits for its own bytes to be
// read. Waits for bytes and returns their number, 0 after host_line_wake, -1 when the device is gone.
s32 host_line_read(win_line *s, u8 *buffer, u32 size);

// Reader thread: sleeps, without limit below 0, or until host_line_wake, which any thread may call.
void host_line_nap(win_line *s, s32 ms);
void host_line_wake(win_line *s);

#endif
