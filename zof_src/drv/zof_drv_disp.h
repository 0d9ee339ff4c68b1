// Display: geometry, background and brightness through one table of operations.
#ifndef ZOF_DRV_DISP_H
#define ZOF_DRV_DISP_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct zof_disp {
    u32 scn_w, scn_h;   // physical screen
    u32 pos_x, pos_y;   // picture on the screen
    u32 size_w, size_h; // picture size
    u32 draw_w, draw_h; // drawing size: the project's after rotation
    s32 (*set_bgcolor)(zof_color_t color);    // OPTIONAL
    s32 (*set_bg)(const char *path);          // OPTIONAL
    s32 (*set_bright)(u8 level);              // OPTIONAL: percent
    s32 (*get_scn_size)(struct zof_disp *d);  // MANDATORY: fills scn_w and scn_h
} zof_disp_t;

typedef struct {
    u32 w, h;
} zof_wh_t;

s32 zof_drv_disp_reg(zof_disp_t *disp);
zof_disp_t *zof_drv_get_disp_t(void);
s32 zof_drv_disp_set_bg(const char *path);
s32 zof_drv_disp_set_bgcolor(zof_color_t color);
s32 zof_disp_set_bright(u8 level);
s32 zof_disp_get_scn_size(zof_wh_t *out);
s32 zof_disp_init_scn_size(zof_disp_t *disp);
s32 zof_disp_get_rotate(void);
zof_wh_t *zof_disp_get_draw_size(void);
void zof_disp_init_draw_size(void);
s32 zof_disp_get_screen_pos(zof_wh_t *pos, zof_wh_t *size);
s32 zof_disp_init_screen_pos(void);
void zof_disp_init(zof_disp_t *disp);

ZOF_C_END

#endif
