// Pictures in memory with text, lines and scaled pictures, for contact sheets and for overlays of a window.
#ifndef VIEW_DRAW_H
#define VIEW_DRAW_H

#include <string>
#include <vector>

#include "zof_lib/zof_type.h"

struct view_image_t {
    s32 width = 0, height = 0;
    std::vector<u32> pixels; // 0x??RRGGBB
};

struct view_box_t {
    s32 x, y, w, h;
};

view_image_t view_image(s32 width, s32 height, u32 color);

// All drawing is clipped to the image. `opacity` is 0 to 255.
void view_fill(view_image_t *image, view_box_t box, u32 color, u8 opacity);
void view_frame(view_image_t *image, view_box_t box, u32 color, s32 thick);

// Draws one line of text, 17 pixels high, at its upper left corner. Characters that the built-in font lacks are drawn
// as "?".
void view_text(view_image_t *image, s32 x, s32 y, const std::string &text, u32 color);
s32 view_text_width(const std::string &text);

// Copies `from` to the middle of the box, scaled to fit.
void view_copy(view_image_t *image, view_box_t box, const view_image_t &from);

// Returns the bytes of a PNG file.
std::string view_png(const view_image_t &image);

// Reads the bytes of a PNG file. Returns false if they are not a PNG picture.
bool view_png_read(view_image_t *image, const std::string &bytes);

// Returns the bytes that a text in base64 stands for, up to the first other character.
std::string view_base64(const char *text);

#endif
