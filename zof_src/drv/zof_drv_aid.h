// Aids for scripts, tests and screenshots: a simulated finger and a camera.
#ifndef ZOF_DRV_AID_H
#define ZOF_DRV_AID_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    void (*pointer)(s32 x, s32 y, zof_bool pressed); // OPTIONAL: handled like a real press from the window on
    s32 (*shot)(const char *path);                   // OPTIONAL: the picture on the panel as PNG; 0 or -1
} zof_drv_aid_ops_t;

extern const zof_drv_aid_ops_t *drv_aid_t;

// Graphics thread. Coordinates are the picture's pixels. Returns -1 when the port has no such aid, or the file cannot
// be written.
s32 zof_drv_aid_pointer(s32 x, s32 y, zof_bool pressed);
s32 zof_drv_aid_shot(const char *path);

ZOF_C_END

#endif
