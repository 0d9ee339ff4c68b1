// The desktop port: window, touch and serial port behind the driver tables. The win_* functions are named only by
// win_drv_init's list. Graphics thread only, except where a function says otherwise.
#ifndef ZOF_PORT_H
#define ZOF_PORT_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Creates display, window and input device. Once, after the project was read: size and title are the project's.
void win_disp_init(void);
// Returns the project's size in pixels, or 480 by 272 without a project that fits.
void win_disp_get_wh(s32 *w, s32 *h);
void win_touch_init(void);
void win_uart_init(void);
void win_rtc_init(void);
void win_gpio_init(void);
void win_video_init(void);
void win_audio_init(void);
void win_aid_init(void);
void win_alive_init(void);

// Size of the picture in pixels, set by win_disp_init before sdl_init.
extern s32 SDL_HOR_RES, SDL_VER_RES;

// Opens the window, black. Without a usable display the picture is drawn off the screen, and a log line says so;
// nothing here fails because there is no window.
void sdl_init(void);

// Before sdl_init: there is no window; the picture and injected events work without one, and pixels are exact.
void sdl_window_none(void);

// LVGL's flush and read callbacks. Wheel and keyboard are not registered on the desktop; they are for ports that want
// these devices.
void sdl_display_flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels);
void sdl_mouse_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_mousewheel_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_keyboard_read(lv_indev_drv_t *drv, lv_indev_data_t *data);

// Takes all pending events of the window. A timer runs it every 10 ms; ends the process when the window was closed.
void sdl_event_handler(lv_timer_t *timer);

// Dims the window, in percent; above 100 wraps in 8 bits. Colours keep at least 0.95 of their value, so that texts stay
// readable. Any thread: off the graphics thread it takes effect when the window's events are next read.
void zof_win_set_dis_bright(u8 level);
// Returns the current level, 0 to 255; for tests.
u8 sdl_bright_get(void);

// Returns true while this file is the sound that plays, or played last.
zof_bool win_audio_src_is(const char *path);

// The clip player: an image whose pixels a timer updates. `set_src` returns 1, or 0 when there is no picture, as always
// without FFmpeg. The clip is scaled to the object's size at that moment. Commands are ZOF_MEDIA_*; without a clip they
// do nothing.
lv_obj_t *lv_ffmpeg_player_create(lv_obj_t *parent);
u32 lv_ffmpeg_player_set_src(lv_obj_t *player, const char *path);
void lv_ffmpeg_player_set_cmd(lv_obj_t *player, u32 command);
void lv_ffmpeg_player_set_auto_restart(lv_obj_t *player, zof_bool restart);
zof_bool lv_ffmpeg_player_runs(lv_obj_t *player);
extern const lv_obj_class_t lv_ffmpeg_player_class;
// Returns the number of frames that a file declares; -1 when it cannot be opened.
s32 lv_ffmpeg_get_frame_num(const char *path);

// Returns the picture that the window shows, 0x??RRGGBB (the top byte is undefined), width x height; null before the
// window is open. Undimmed, and in its own size whatever that of the window is. For screenshots; owned by the window.
const u32 *sdl_frame_get(s32 *width, s32 *height);

// Puts mouse events into the window's own queue, as for a finger at this pixel of the picture. They take the same path
// as a real press.
void sdl_pointer_inject(s32 x, s32 y, zof_bool pressed);

// Writes the picture to a PNG file, undimmed. Returns 0, or -1 with a log line that says why.
s32 zof_shot_png(const char *path);
// Returns any pixels of this form as the bytes of a PNG file, to be released with zof_lv_free; null without memory.
// Any thread.
u8 *zof_shot_png_make(const u32 *pixels, s32 width, s32 height, size_t *size);
// Writes any pixels of this form; for tests that keep pictures of a failure.
s32 zof_shot_png_write(const char *path, const u32 *pixels, s32 width, s32 height);

ZOF_C_END

#endif
