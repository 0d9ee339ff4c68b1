// Aids for scripts, tests and screenshots: a simulated finger and a camera. Pages that slide use the camera too.
#ifndef ZOF_DRV_AID_H
#define ZOF_DRV_AID_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    void (*pointer)(s32 x, s32 y, zof_bool pressed); // OPTIONAL: handled like a real press from the window on
    s32 (*shot)(const char *path);                   // OPTIONAL: the picture on the panel as PNG; 0 or -1
    const u32 *(*frame)(s32 *width, s32 *height);    // OPTIONAL: the same as 0xAARRGGBB, row by row; null without one
    u8 *(*png)(const u32 *pixels, s32 width, s32 height, size_t *size); // OPTIONAL: such pixels as a PNG file
} zof_drv_aid_ops_t;

extern const zof_drv_aid_ops_t *drv_aid_t;

// Graphics thread. Coordinates are the picture's pixels. Returns -1 when the port has no such aid, or the file cannot
// be written.
s32 zof_drv_aid_pointer(s32 x, s32 y, zof_bool pressed);
s32 zof_drv_aid_shot(const char *path);
// Returns the pixels that the panel shows, which belong to the port and change as it draws; null if the port keeps
// none.
const u32 *zof_drv_aid_frame(s32 *width, s32 *height);

// Returns such pixels as the bytes of a PNG file, to be released with zof_lv_free; null without an encoder or memory.
// Any thread.
u8 *zof_drv_aid_png(const u32 *pixels, s32 width, s32 height, size_t *size);

ZOF_C_END

#endif
