// The pictures of the canvas on their way to the pages: what has changed since the last one, and for a page that is
// slow only the newest.
#ifndef DESIGN_FRAME_H
#define DESIGN_FRAME_H

#include "view_draw.h"

// Takes a new picture. Returns at once; design_frame_send sends what is new in it.
void design_frame_take(const view_image_t *picture);
void design_frame_send();

// Sends the whole picture to a page next.
void design_frame_whole(u32 page);

// The number of the last picture.
u32 design_frame_number();

// Sends a separate picture to a page, with the number that the page has given it.
void design_frame_tile(u32 page, u32 number, const view_image_t &picture);

#endif
