// Where the picture is in a window of any size: as large as fits, in the middle, black beside it. Internal: C++ only.
#ifndef WIN_FIT_H
#define WIN_FIT_H

#include "zof_lib/zof_type.h"

struct win_rect_t {
    s32 x, y, w, h; // pixels
};

struct win_fit_t {
    s32 pic_w, pic_h; // the picture's own size, 1 at least
    win_rect_t out;   // the picture in the window
};

// Returns the fit of a picture in a window; sizes below 1 count as 1. The factor is the smaller of the two quotients of
// their sides. An odd pixel is left to the right and below.
win_fit_t win_fit_make(s32 pic_w, s32 pic_h, s32 win_w, s32 win_h);

// Returns the part of the window that depends on a part of the picture. A part beyond the picture is clipped.
win_rect_t win_fit_part(const win_fit_t *fit, win_rect_t part);

// Converts a position in the window to the pixel of the picture there, or the nearest one of its edge. Returns whether
// the position is inside the picture.
bool win_fit_pixel(const win_fit_t *fit, s32 x, s32 y, s32 *pic_x, s32 *pic_y);

// Converts a pixel of the picture, or one beyond it, to a position in the window. win_fit_pixel converts it back to the
// same pixel, unless the picture is reduced.
void win_fit_position(const win_fit_t *fit, s32 pic_x, s32 pic_y, s32 *x, s32 *y);

#endif
