// Display: geometry, background and brightness through one table of operations. Graphics thread only, except
// zof_disp_set_bright.
#ifndef ZOF_DRV_DISP_H
#define ZOF_DRV_DISP_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// One for a program, owned by the port and published with zof_drv_disp_reg. All sizes and places are pixels.
typedef struct zof_disp {
    u32 scn_w, scn_h;                        // physical screen
    u32 pos_x, pos_y;                        // picture on the screen
    u32 size_w, size_h;                      // picture size on the screen
    u32 draw_w, draw_h;                      // drawing size: the project's after rotation
    s32 (*set_bgcolor)(zof_color_t color);   // OPTIONAL: 0 or -1
    s32 (*set_bg)(const char *path);         // OPTIONAL: 0 when the driver shows the picture itself, else -1
    s32 (*set_bright)(u8 level);             // OPTIONAL: percent; called from any thread
    s32 (*get_scn_size)(struct zof_disp *d); // MANDATORY: fills scn_w and scn_h
} zof_disp_t;

typedef struct {
    u32 w, h;
} zof_wh_t;

// Publishes the record; the caller keeps it alive. Null takes the display away. 0.
s32 zof_drv_disp_reg(zof_disp_t *disp);
// The published record, or null.
zof_disp_t *zof_drv_get_disp_t(void);

// The operation's result; -1 with no record or operation. A null path takes the background picture away.
s32 zof_drv_disp_set_bg(const char *path);
s32 zof_drv_disp_set_bgcolor(zof_color_t color);

// Brightness in percent; any thread. 0 when the display has one, else -1.
s32 zof_disp_set_bright(u8 level);

// The physical screen; -1 with no record or `out`, else 0.
s32 zof_disp_get_scn_size(zof_wh_t *out);
// Sets 800 by 480, then asks the port. The operation's result, -1 without one or with no record.
s32 zof_disp_init_scn_size(zof_disp_t *disp);

// The project's quarter turns, low byte; 0 without a project.
s32 zof_disp_get_rotate(void);

// draw_w and draw_h inside the record; null with no record.
zof_wh_t *zof_disp_get_draw_size(void);
// The project's size, turned if it is; the screen's when the project has none or asks for too much.
void zof_disp_init_draw_size(void);

// Where the picture lies and its size; either may be null. 0, or -1 when it covers the screen from (0, 0) or there is
// no record: then nothing has to be cut or moved.
s32 zof_disp_get_screen_pos(zof_wh_t *pos, zof_wh_t *size);
// Lays the picture on the screen by the project's margins and mode. 0, or -1 with no record or project.
s32 zof_disp_init_screen_pos(void);

// All three initialisations, for a record that is registered.
void zof_disp_init(zof_disp_t *disp);

ZOF_C_END

#endif
