// Console log and the two counted allocator families. Every function here may be called on any thread.
#ifndef ZOF_STDIO_H
#define ZOF_STDIO_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

#if defined(__GNUC__)
#define ZOF_PRINTF_LIKE(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define ZOF_PRINTF_LIKE(fmt, args)
#endif

// Prints to standard output, adds a line end and flushes; lines of different threads do not mix. A message that has its
// own "\n" is thus followed by an empty line. Control characters in inserted values are printed as \xHH; those of the
// format itself are kept. Messages of any length are printed whole. Returns the bytes of the text before escaping, -1
// for null.
s32 zof_printf(const char *fmt, ...) ZOF_PRINTF_LIKE(1, 2);

// Prints to the error stream from now on, for a program whose standard output is data. Before any thread starts.
void zof_printf_to_errors(void);

// The runtime's family: memory is zeroed, also what zof_realloc adds. Returns null for 0 and for a size that no block
// can have. A failed zof_realloc leaves the old block; zof_realloc(p, 0) releases it and returns null. Blocks are
// aligned to 16 bytes. Null may be released.
void *zof_malloc(size_t n);
void *zof_realloc(void *p, size_t n);
void zof_free(void *p);

// LVGL's family: the same, but memory is not zeroed.
void *zof_lv_malloc(size_t n);
void *zof_lv_realloc(void *p, size_t n);
void zof_lv_free(void *p);

// The exit statuses of all programs; zof_exits in func/zof_option.h explains them.
enum { ZOF_EXIT_GOOD = 0, ZOF_EXIT_FAILURE = 1, ZOF_EXIT_USAGE = 2, ZOF_EXIT_FILES = 3, ZOF_EXIT_DISPLAY = 4 };

// LVGL allocates with these. It does not check most of its blocks, so a failure would crash somewhere else. The program
// ends instead, with one log line and the status ZOF_EXIT_FAILURE. Blocks above 1 MiB, which are pictures and layers,
// are checked by their users and may be null.
void *zof_lv_malloc_must(size_t n);
void *zof_lv_realloc_must(void *p, size_t n);

// Ends the program when memory is exhausted: logs what it was for and exits with ZOF_EXIT_FAILURE. Does not return.
void zof_mem_end(const char *what);

// For tests: makes the n-th allocation from now on fail, of either family, and no other one; 0 for none. Returns the
// number of allocations since the last call.
u32 zof_mem_fail_at(u32 n);

// Returns the bytes in use by both families together; logs a line at each call.
u32 zof_mem_get_used(void);

// Returns what is left of the assumed total, in bytes; negative when more is in use. Saturates at the ends of s32.
s32 zof_mem_get_free(void);

// Sets the memory that the device is assumed to have, in megabytes; 10 at start. 0 is ignored.
void zof_win_mem_total_set(u32 mb);

// Return the bytes alive in each family, exact at any moment; for displays and for tests that prove memory use flat.
u32 zof_mem_count(void);
u32 zof_lv_mem_count(void);

ZOF_C_END

#endif
