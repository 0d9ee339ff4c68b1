// JPEG pictures in a build without FFmpeg, by libjpeg-turbo: baseline and progressive, grey and colour.
#include <turbojpeg.h>

#include "port/win_image.h"
#include "zof_lib/zof_stdio.h"

// What can be decoded of a damaged file is shown.
static bool pixels_decode(tjhandle decoder, const u8 *file, size_t size, win_image *image) {
    return tjDecompress2(decoder, file, size, image->pixels, image->w, 0, image->h, TJPF_BGRA, 0) == 0 ||
           tjGetErrorCode(decoder) == TJERR_WARNING;
}

bool image_jpeg_decode(const u8 *file, size_t size, const char *name, win_image *image) {
    tjhandle decoder = tjInitDecompress();
    int w = 0, h = 0, sampling = 0, colours = 0;
    bool good = decoder && tjDecompressHeader3(decoder, file, size, &w, &h, &sampling, &colours) == 0 &&
                image_fits(w, h) && image_scans_are_few(file, size, name);
    if (good) {
        *image = {(u8 *)zof_lv_malloc((size_t)w * (size_t)h * 4), w, h, false};
        good = image->pixels && pixels_decode(decoder, file, size, image);
    }
    if (!good) {
        zof_lv_free(image->pixels);
        *image = {};
    }
    tjDestroy(decoder);
    return good;
}
