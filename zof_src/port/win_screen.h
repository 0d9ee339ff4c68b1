// The window of the desktop: shows a picture as large as fits, in the middle, on black. Graphics thread only. Without a
// window everything here does nothing, and positions are those of the picture. Internal: C++ only.
#ifndef WIN_SCREEN_H
#define WIN_SCREEN_H

#include "port/win_fit.h"

// Starts SDL's video, on the display of the environment, else without one. Returns false when SDL has no video at all.
bool win_screen_video();

// Opens the window, black, for a picture of w x h pixels 0x??RRGGBB that outlives it: as large as it was left, else in
// the picture's own size; full screen if that was requested (zof_disp_set_fullscreen) or the screen is not larger than
// the picture. Returns false, with the reason in SDL_GetError, when no window can be made.
bool win_screen_open(const u32 *pixels, s32 w, s32 h);

// Closes the window, and remembers its size if it has changed.
void win_screen_close();

// Draws a part of the picture that has changed; what has been drawn is shown at the next update.
void win_screen_draw(win_rect_t part);
void win_screen_update();
// Draws and shows the whole picture.
void win_screen_show_all();

// Sets the brightness, 0 to 255: that of the backlight on a device without a desktop, where 0 also switches the display
// off. Otherwise dims the picture. The monitor has a light of its own, so from 25 to 255 colours only change from 0.95
// to 1 of their value, and not any further below: texts stay readable.
void win_screen_bright(u8 level);

void win_screen_full_set(bool full);
// The title of the window, at first the project's name, which stays the name of its remembered size. False without one.
bool win_screen_title_set(const char *title);
bool win_screen_is_full();

// Follows an event of the window, SDL_WINDOWEVENT_*. Returns true for one that ends a press, because its release may
// never be reported.
bool win_screen_event(u8 event);

// Converts a position in the window to a pixel of the picture, clamped to its edge; false if it is in the black.
bool win_screen_pixel(s32 x, s32 y, s32 *pic_x, s32 *pic_y);
// Converts a pixel of the picture to a position in the window.
void win_screen_position(s32 pic_x, s32 pic_y, s32 *x, s32 *y);
// Returns the size of the window in pixels.
void win_screen_size(s32 *w, s32 *h);

#endif
