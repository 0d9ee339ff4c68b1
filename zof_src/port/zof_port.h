// The desktop port: window, touch and serial port behind the driver tables. The win_* functions are named only by
// win_drv_init's list. Graphics thread only, except where a function says otherwise.
#ifndef ZOF_PORT_H
#define ZOF_PORT_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Display, window and input device. Once, after the project was read: size and title are the project's.
void win_disp_init(void);
// The project's size in pixels, or 480 by 272 without a project that fits.
void win_disp_get_wh(s32 *w, s32 *h);
void win_touch_init(void);
void win_uart_init(void);
void win_rtc_init(void);
void win_gpio_init(void);
void win_video_init(void);
void win_audio_init(void);
// LVGL's decoder of PNG and JPEG files, in front of its own. The first JPEG loads FFmpeg.
void zof_ffmpeg_init(void);
void win_aid_init(void);

// Size of the picture in pixels, set by win_disp_init before sdl_init.
extern s32 SDL_HOR_RES, SDL_VER_RES;

// Opens the window. Where no display is usable the picture is drawn off the screen and one line says so; nothing here
// fails for want of a window.
void sdl_init(void);

// LVGL's flush and read callbacks. Wheel and keyboard are not registered on the desktop; they are there for a port that
// wants these devices.
void sdl_display_flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels);
void sdl_mouse_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_mousewheel_read(lv_indev_drv_t *drv, lv_indev_data_t *data);
void sdl_keyboard_read(lv_indev_drv_t *drv, lv_indev_data_t *data);

// Takes every pending event of the window. A timer runs it every 10 ms; ends the process when the window was closed.
void sdl_event_handler(lv_timer_t *timer);

// Dims the window, in percent; above 100 wraps in 8 bits. Any thread: off the graphics thread it shows with the next
// look at the window's events.
void zof_win_set_dis_bright(u8 level);
// The factor that is in force, 0 to 255; for tests.
u8 sdl_bright_get(void);

// True while this file is the sound that plays, or played last.
zof_bool win_audio_src_is(const char *path);

// The player of clips: an image whose pixels a timer renews. `set_src` gives 1, or 0 and there is no picture. The
// clip is scaled to the object's size at that moment. Commands are ZOF_MEDIA_*; without a clip they do nothing.
lv_obj_t *lv_ffmpeg_player_create(lv_obj_t *parent);
u32 lv_ffmpeg_player_set_src(lv_obj_t *player, const char *path);
void lv_ffmpeg_player_set_cmd(lv_obj_t *player, u32 command);
void lv_ffmpeg_player_set_auto_restart(lv_obj_t *player, zof_bool restart);
zof_bool lv_ffmpeg_player_runs(lv_obj_t *player);
extern const lv_obj_class_t lv_ffmpeg_player_class;
// The frames that a file says it has; -1 when it cannot be opened.
s32 lv_ffmpeg_get_frame_num(const char *path);

// The picture that the window shows, 0x??RRGGBB (the top byte is not kept), width x height; null before the window is
// open. Undimmed. For screenshots; owned by the window.
const u32 *sdl_frame_get(s32 *width, s32 *height);

// Puts mouse events into the window's own queue, as a finger at this pixel of the picture would: the road of a real
// press, without a finger.
void sdl_pointer_inject(s32 x, s32 y, zof_bool pressed);

// Writes the picture to a PNG file, undimmed. 0, or -1 with a line that says why.
s32 zof_shot_png(const char *path);
// The same for any pixels of this form; for tests that keep the pictures of a failure.
s32 zof_shot_png_write(const char *path, const u32 *pixels, s32 width, s32 height);

ZOF_C_END

#endif
