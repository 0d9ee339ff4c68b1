// What operating systems do differently, and nothing else: one file for each system implements this. No higher file
// includes a system header.
#ifndef ZOF_HOST_H
#define ZOF_HOST_H

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_rtc.h"
#include "drv/zof_drv_uart.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The host also implements these of drv/zof_drv.h and drv/zof_drv_file.h itself: zof_system_start, zof_system_get_name,
// zof_opendir, zof_readdir, zof_closedir, zof_file_size, zof_folder_unlock, zof_file_error, zof_file_path_take and
// zof_program_path; zof_drv_uart_list of drv/zof_drv_uart.h; win_wdt_init of drv/zof_drv_wdt.h; and all of
// drv/zof_drv_net.h and drv/zof_drv_device.h.

// A clock that never goes back, in milliseconds, and a sleep; also when a test has replaced the clock below, for waits
// in system calls.
u64 zof_host_time_ms(void);
void zof_host_sleep(u32 ms);

// Tests can replace the clock: zof_sys_time_ms and zof_delay then use the test's alone. `clock` is kept, not copied;
// null restores the host's own.
typedef struct {
    u32 (*now_ms)(void);
    void (*delay_ms)(u32 ms);
} zof_clock_t;
void zof_clock_set(const zof_clock_t *clock);

// The clock's rows in the table of win_rtc.cpp. They return local date and time: 0, or -1 when they are not available.
// The host implements the second.
s32 win_rtc_get_time(zof_rtc_time_t *out);
s32 win_rtc_get_stamp(zof_rtc_stamp_t *out);

s32 zof_host_mkdir(const char *path);                  // 0, 1 when the name exists already, -1
s32 zof_host_rename(const char *from, const char *to); // replaces `to` in one step; 0 or -1
// The host's part of drv/zof_drv_file.h, with the same contracts; sync leaves the file open.
u32 zof_host_file_kind(const char *path);
FILE *zof_host_file_read_open(const char *path);
FILE *zof_host_file_write_open(const char *path, zof_bool keep);
FILE *zof_host_file_open(const char *path);
s32 zof_host_real_path(const char *path, char *out, size_t size);
FILE *zof_host_file_create(const char *path);
zof_bool zof_host_is_absolute(const char *path);
u32 zof_host_process_id(void);
zof_bool zof_host_process_runs(u32 id); // the calling process counts as running
s32 zof_host_folder_lock(const char *path, char *holder, size_t size);
s32 zof_host_file_sync(FILE *f);
s32 zof_host_file_cut(FILE *f, u64 size);
void zof_host_folder_sync(const char *path);
s32 zof_host_exchange(const char *a, const char *b);
s32 zof_host_remove(const char *path);
s32 zof_host_file_stamp(const char *path, zof_file_stamp_t *out);

// For tests: called before each change of the disk ("create", "write", "sync", "rename", "exchange", "mkdir",
// "remove"); true makes it fail. Null, the initial value: nothing fails. Any thread.
typedef zof_bool (*zof_file_fault_t)(const char *what, const char *path);
void zof_file_fault_set(zof_file_fault_t fault);

// Of a host whose programs load FFmpeg: opens a shared library by its plain name ("avcodec") and major version, and
// leaves it open; null if it is not installed. The second returns the address of one of its functions, or null.
void *zof_host_library_open(const char *name, s32 major);
void *zof_host_library_symbol(void *library, const char *name);

// Graphics thread, before SDL is asked for events. Runs the calls that the system has queued for this thread, if it
// delivers events that way, as browsers do.
void zof_host_events_take(void);
// Returns whether the system scales the window's contents itself, as a page does. The window then keeps the size of the
// picture.
zof_bool zof_host_scales(void);
void zof_host_screen_size(s32 *w, s32 *h); // the desktop's size in pixels; 0, 0 when unknown

// The light of a display that no other program shows. Graphics thread. Find looks for a backlight that this process may
// write, and returns whether there is one; set writes its brightness, 255 for the most that it has and 0 for off, and
// never 0 for another level. Power switches the screens of the device that shows `window` on or off. Set and power
// return 0, or -1 when that is not possible, as on a desktop.
zof_bool zof_host_light_find(void);
s32 zof_host_light_set(u8 level);
s32 zof_host_display_power(struct SDL_Window *window, zof_bool on);

// A program that the system started as a service. Report sends a state ("READY=1"); returns 0, or -1 if the program
// is not a service or the message cannot be sent. Period returns the time in milliseconds within which the system
// expects each "WATCHDOG=1", because it restarts the program otherwise; 0 if it does not watch. Any thread.
s32 zof_host_service_report(const char *text);
u32 zof_host_service_period(void);

// Serial line. Port P is the path that it is opened with, else the one in the environment variable ZOF_COM<P>, else the
// system's own name for it. An open line is locked against other programs. A device that cannot be opened is tried
// every second, one that goes away ten times a second; every change of the state is logged once. Until it is open,
// sends return -1 and receive waits. A pseudo-terminal that has ended is never opened again by its number, and not by a
// link that has not changed since. What is not a serial line is not opened again until something else has its name.
typedef struct {
    u32 baud;     // any rate; the device rounds or refuses what it cannot do
    u8 data_bits; // 7, 8
    u8 parity;    // 0 none, 1 odd, 2 even
    u8 stop_bits; // 1, 2
} zof_host_line_t;
// Returns a handle that begins with its zof_drv_t, whether or not the device can be opened. Null, and a log line that
// says why, for a path that is too long. Released by close. A null path: the port's own; an empty one: none.
zof_drv_t *zof_host_serial_open(s32 port, const char *path, const zof_host_line_t *line);
// Any thread. Returns 0, or -1 with the line unchanged.
s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line);
// The last rows of the table in win_uart.cpp. Send, any thread: returns `size`, or -1: no device, or no room for all of
// it. Waits for room as long as the line accepts bytes at its rate, at most 50 ms after the last one, and not at all
// while the peer does not read. Receive, one thread: waits for at least one byte and returns what there is, up to
// `size`; 0 after a change of the state, and when the line is closed. Close ends a receive that is waiting on another
// thread; nothing may be called with the line after that. The others: as in drv/zof_drv_uart.h.
s32 win_uart_send(zof_drv_t *handle, const u8 *data, u32 size);
s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size);
s32 win_uart_close(zof_drv_t *handle);
void win_uart_info(zof_drv_t *handle, zof_uart_info_t *out);
s32 win_uart_path_set(zof_drv_t *handle, const char *path);

ZOF_C_END

#endif
