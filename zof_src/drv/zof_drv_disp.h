// Display: geometry, background and brightness through one table of operations. Graphics thread only, except
// zof_disp_set_bright.
#ifndef ZOF_DRV_DISP_H
#define ZOF_DRV_DISP_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// One for each program, owned by the port and published with zof_drv_disp_reg. All sizes and positions are pixels.
typedef struct zof_disp {
    u32 scn_w, scn_h;                        // physical screen
    u32 pos_x, pos_y;                        // picture on the screen
    u32 size_w, size_h;                      // picture size on the screen
    u32 draw_w, draw_h;                      // drawing size: the project's after rotation
    s32 (*set_bgcolor)(zof_color_t color);   // OPTIONAL: 0 or -1
    s32 (*set_bg)(const char *path);         // OPTIONAL: 0 when the driver shows the picture itself, else -1
    s32 (*set_bright)(u8 level);             // OPTIONAL: percent; called from any thread
    s32 (*set_fullscreen)(zof_bool on);      // OPTIONAL: 0 or -1
    s32 (*set_title)(const char *title);     // OPTIONAL: of the window; 0 or -1
    s32 (*get_scn_size)(struct zof_disp *d); // MANDATORY: fills scn_w and scn_h
    zof_bool own_light;                      // set_bright dims a light; a window has no light and stays readable
} zof_disp_t;

typedef struct {
    u32 w, h;
} zof_wh_t;

// Draws into memory only, without a window; no display is needed then. Before zof_run, on the main thread.
void zof_disp_headless(void);

// Publishes the record, which the caller keeps alive; null removes the display. Returns 0.
s32 zof_drv_disp_reg(zof_disp_t *disp);
// Returns the published record, or null.
zof_disp_t *zof_drv_get_disp_t(void);

// Returns the operation's result; -1 without a record or operation. A null path removes the background picture.
s32 zof_drv_disp_set_bg(const char *path);
s32 zof_drv_disp_set_bgcolor(zof_color_t color);

// Sets the brightness in percent; any thread. Returns 0 when the display has one, else -1.
s32 zof_disp_set_bright(u8 level);

// Returns true if the display has a backlight, so that a low brightness may make it hard to read.
zof_bool zof_disp_has_light(void);

// Shows the picture on the whole screen, or in a window of its own. Before the display is registered the request is
// kept, and the display starts so. Returns 0, or -1 when the display cannot. The second returns the last request.
s32 zof_disp_set_fullscreen(zof_bool on);
zof_bool zof_disp_get_fullscreen(void);

// Sets the size of the window in percent of the picture's, in place of the size that was remembered; 0, the initial
// value: the remembered one. Before the display is registered. The second returns it.
void zof_disp_set_scale(u32 percent);
u32 zof_disp_get_scale(void);

// Changes the window's title, which is the project's name at first; UTF-8. Returns 0, or -1 without a window.
s32 zof_disp_set_title(const char *title);

// Returns the physical screen's size in `out`: 0, or -1 without a record or `out`.
s32 zof_disp_get_scn_size(zof_wh_t *out);
// Sets 800 by 480, then asks the port. Returns the operation's result, -1 without one or without a record.
s32 zof_disp_init_scn_size(zof_disp_t *disp);

// Returns the project's quarter turns, low byte; 0 without a project.
s32 zof_disp_get_rotate(void);

// Returns draw_w and draw_h inside the record; null without a record.
zof_wh_t *zof_disp_get_draw_size(void);
// Sets the drawing size to the project's, rotated if needed, or to the screen's if the project sets no size or is too
// large.
void zof_disp_init_draw_size(void);

// Returns the position and size of the picture; either may be null. Returns 0, or -1 when it covers the screen from
// (0, 0) or there is no record: then nothing has to be clipped or moved.
s32 zof_disp_get_screen_pos(zof_wh_t *pos, zof_wh_t *size);
// Places the picture on the screen by the project's margins and mode. Returns 0, or -1 without a record or project.
s32 zof_disp_init_screen_pos(void);

// All three initialisations, for a registered record.
void zof_disp_init(zof_disp_t *disp);

ZOF_C_END

#endif
