#include "drv/zof_drv_aid.h"

const zof_drv_aid_ops_t *drv_aid_t;

s32 zof_drv_aid_pointer(s32 x, s32 y, zof_bool pressed) {
    if (!drv_aid_t || !drv_aid_t->pointer) {
        return -1;
    }
    drv_aid_t->pointer(x, y, pressed);
    return 0;
}

const u32 *zof_drv_aid_frame(s32 *width, s32 *height) {
    return width && height && drv_aid_t && drv_aid_t->frame ? drv_aid_t->frame(width, height) : nullptr;
}

s32 zof_drv_aid_shot(const char *path) {
    return path && drv_aid_t && drv_aid_t->shot ? drv_aid_t->shot(path) : -1;
}

u8 *zof_drv_aid_png(const u32 *pixels, s32 width, s32 height, size_t *size) {
    return pixels && size && drv_aid_t && drv_aid_t->png ? drv_aid_t->png(pixels, width, height, size) : nullptr;
}
