// Aids for scripts, tests and screenshots: a simulated finger and a camera. Pages that slide use the camera too.
#ifndef ZOF_DRV_AID_H
#define ZOF_DRV_AID_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    void (*pointer)(s32 x, s32 y, zof_bool pressed); // OPTIONAL: handled like a real press from the window on
    s32 (*shot)(const char *path);                   // OPTIONAL: the picture on the panel as PNG; 0 or -1
    const u32 *(*frame)(s32 *width, s32 *height);    // OPTIONAL: the same as 0xAARRGGBB, row by row; null without one
} zof_drv_aid_ops_t;

extern const zof_drv_aid_ops_t *drv_aid_t;

// Graphics thread. Coordinates are the picture's pixels. Returns -1 when the port has no such aid, or the file cannot
// be written.
s32 zof_drv_aid_pointer(s32 x, s32 y, zof_bool pressed);
s32 zof_drv_aid_shot(const char *path);
// Returns the pixels that the panel shows, which belong to the port and change as it draws; null if the port keeps
// none.
const u32 *zof_drv_aid_frame(s32 *width, s32 *height);

ZOF_C_END

#endif
