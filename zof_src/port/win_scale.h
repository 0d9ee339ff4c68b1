// Scales a part of a picture by averaging areas: a pixel of the window gets each pixel of the picture by the area that
// the two share. This equals enlarging to any whole factor with hard pixels and averaging from there: edges stay sharp,
// strokes equally thick, and at a whole factor every pixel is a square. Internal: C++ only.
#ifndef WIN_SCALE_H
#define WIN_SCALE_H

#include "port/win_fit.h"

// Weights are in 1/WIN_SCALE_ONE for each direction.
enum { WIN_SCALE_ONE = 4096 };

// One direction: what each pixel of the window consists of.
struct win_axis_t {
    s32 from, to; // sizes in the picture and in the window
    s32 *first;   // by pixel of the window: its first pixel of the picture
    s32 *weight;  // by pixel of the window: where its weights begin; ends with the number of all weights
    u16 *weights; // whose sum is the same for each pixel of the window
};

struct win_scale_t {
    win_axis_t across, down;
    u32 bright; // the sum of the weights down; those across have WIN_SCALE_ONE
};

// Prepares for a fit and a brightness of 1 to WIN_SCALE_ONE, in place of what was prepared before. Returns false
// without memory; nothing may be scaled then. Start with {}.
bool win_scale_make(win_scale_t *scale, const win_fit_t *fit, u32 bright);
void win_scale_free(win_scale_t *scale);

// Writes one row of the window: `count` pixels 0x00RRGGBB from pixel `x` of row `y`, both counted from where the
// picture begins in the window. `pixels` is the whole picture, 0x??RRGGBB.
void win_scale_row(const win_scale_t *scale, const u32 *pixels, s32 x, s32 y, s32 count, u32 *out);

// Returns whether row `y` has the same pixels as the row above it, whatever the picture.
bool win_scale_row_repeats(const win_scale_t *scale, s32 y);

#endif
