// Console log and the two counted allocator families.
#ifndef ZOF_STDIO_H
#define ZOF_STDIO_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

#if defined(__GNUC__)
#define ZOF_PRINTF_LIKE(fmt, args) __attribute__((format(printf, fmt, args)))
#else
#define ZOF_PRINTF_LIKE(fmt, args)
#endif

s32 zof_printf(const char *fmt, ...) ZOF_PRINTF_LIKE(1, 2);

void *zof_malloc(size_t n);
void *zof_realloc(void *p, size_t n);
void zof_free(void *p);

void *zof_lv_malloc(size_t n);
void *zof_lv_realloc(void *p, size_t n);
void zof_lv_free(void *p);

u32 zof_mem_get_used(void);
u32 zof_mem_get_free(void);
void zof_win_mem_total_set(u32 mb);

// Bytes alive in each family, exact at any moment; for displays and for tests that prove memory flat.
u32 zof_mem_count(void);
u32 zof_lv_mem_count(void);

ZOF_C_END

#endif
