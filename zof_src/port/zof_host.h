// What operating systems do differently, and nothing else: one file for each system implements this. No file above
// includes a system header.
#ifndef ZOF_HOST_H
#define ZOF_HOST_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Monotonic clock in milliseconds since the first call. Tests put their own clock in its place: with a source set,
// zof_sys_time_ms and zof_delay go by it alone.
typedef struct {
    u32 (*now_ms)(void);
    void (*delay_ms)(u32 ms);
} zof_clock_t;
void zof_clock_set(const zof_clock_t *clock); // null: the host's own
u32 zof_host_time_ms(void);
void zof_host_delay_ms(u32 ms);

// Folder walk; names of `.` and `..` are given too.
typedef struct zof_host_dir zof_host_dir_t;
typedef struct {
    zof_bool is_dir;
    u64 size;
    const char *name; // valid until the next read
} zof_host_dirent_t;
zof_host_dir_t *zof_host_dir_open(const char *path);
s32 zof_host_dir_read(zof_host_dir_t *dir, zof_host_dirent_t *out); // 0, or -1 at the end
void zof_host_dir_close(zof_host_dir_t *dir);

s32 zof_host_mkdir(const char *path); // 0, 1 when it exists already, -1
s64 zof_host_file_size(const char *path); // -1 when it cannot be had
s32 zof_host_rename(const char *from, const char *to); // replaces `to`; 0 or -1
void zof_host_screen_size(s32 *w, s32 *h); // the desktop's size in pixels; 0, 0 when unknown

// Serial line. Port P is the path in the environment variable ZOF_COM<P>, else the system's own name for it; one line
// says which path was opened, or which failed and why. A device that goes away is said once and taken up again when it
// returns; until then sends give -1 and receive waits.
typedef struct {
    u32 baud;
    u8 data_bits; // 7, 8
    u8 parity;    // 0 none, 1 odd, 2 even
    u8 stop_bits; // 1, 2
} zof_host_line_t;
typedef struct zof_host_serial zof_host_serial_t;
zof_host_serial_t *zof_host_serial_open(s32 port, const zof_host_line_t *line);
s32 zof_host_serial_set(zof_host_serial_t *s, const zof_host_line_t *line); // 0 or -1; on -1 the line is as it was
s32 zof_host_serial_send(zof_host_serial_t *s, const u8 *data, u32 size);   // bytes, or -1
s32 zof_host_serial_receive(zof_host_serial_t *s, u8 *buffer, u32 size);    // blocks for at least one byte; 0 when closed
void zof_host_serial_close(zof_host_serial_t *s);

ZOF_C_END

#endif
