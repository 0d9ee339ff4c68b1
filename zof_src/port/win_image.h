// Pictures in files, decoded into LVGL's pixels. Internal to the port.
#ifndef WIN_IMAGE_H
#define WIN_IMAGE_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

enum { IMAGE_SIDE_MOST = 2047 }; // pixels; LVGL's limit

struct win_image {
    u8 *pixels; // w * h * 4 bytes from zof_lv_malloc; null until something is decoded
    s32 w, h;
    bool alpha;
};

// Returns whether both sides are within LVGL's limit.
bool image_fits(s64 w, s64 h);

// Decodes a JPEG file in memory; `name` is for the log. Returns false, with nothing allocated, when it cannot be
// decoded. FFmpeg does it (ff_jpeg.cpp), in a build without FFmpeg libjpeg-turbo (turbo_jpeg.cpp).
bool image_jpeg_decode(const u8 *file, size_t size, const char *name, win_image *image);

// Returns false for a JPEG picture whose scans would take seconds to decode, and logs that with `name`, once for the
// same name in a row.
bool image_scans_are_few(const u8 *file, size_t size, const char *name);

#endif
