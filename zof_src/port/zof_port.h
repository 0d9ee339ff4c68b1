// The desktop port: window, touch and serial port behind the driver tables. Named only by win_drv_init's list.
#ifndef ZOF_PORT_H
#define ZOF_PORT_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void win_disp_init(void);
void win_disp_get_wh(s32 *w, s32 *h);
void win_touch_init(void);
void win_uart_init(void);

void sdl_init(void);
void sdl_display_flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels);
void sdl_mouse_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_mousewheel_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_keyboard_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void zof_win_set_dis_bright(u8 level);

// The picture that the window shows, 0xAARRGGBB, width x height; null before the window is open. For screenshots.
const u32 *sdl_frame_get(s32 *width, s32 *height);

// Puts a mouse event into the window's own queue, as a finger would: the road of a real press, without a finger.
void sdl_pointer_inject(s32 x, s32 y, zof_bool pressed);

ZOF_C_END

#endif
