// The numbers, booleans and handles that all rooms of the runtime share. C and C++.
#ifndef ZOF_TYPE_H
#define ZOF_TYPE_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define ZOF_C_BEGIN extern "C" {
#define ZOF_C_END }
#else
#define ZOF_C_BEGIN
#define ZOF_C_END
#endif

typedef uint8_t u8;
typedef uint16_t u16;
typedef uint32_t u32;
typedef uint64_t u64;
typedef int8_t s8;
typedef int16_t s16;
typedef int32_t s32;
typedef int64_t s64;

// 32 bits wide on purpose: records decoded from JSON hold booleans at a machine-independent width.
typedef u32 zof_bool;
enum { ZOF_FALSE = 0, ZOF_TRUE = 1 };

typedef s32 zof_coord_t; // pixels
typedef u32 zof_color_t; // 0xRRGGBB in the low 24 bits; the top byte is ignored unless a function says otherwise

// A control handle: the address of anything whose first word is the LVGL object pointer. A control record
// (`para_t`) is one, and so is every LVGL object, whose header begins with its own address.
typedef void zof_ctrl_t;

typedef struct {
    s32 x, y;
} zof_point_t;

typedef struct {
    s32 width, height;
} zof_size_t;

#endif
