// Screenshots: the frame store as a PNG file, written by the encoder that LVGL includes.
#include <stdio.h>

#include "drv/zof_drv_file.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

// LVGL compiles it as C; its own header would declare C++ functions.
extern "C" unsigned lodepng_encode24(unsigned char **out, size_t *outsize, const unsigned char *image, unsigned w,
                                     unsigned h);

static s32 file_write(const char *path, const u8 *data, size_t size) {
    FILE *f = zof_file_write_open(path, ZOF_FALSE);
    const bool written = f && fwrite(data, 1, size, f) == size;
    if (f && fclose(f) == 0 && written) {
        return 0;
    }
    zof_printf("screenshot: %s cannot be written", path);
    return -1;
}

u8 *zof_shot_png_make(const u32 *pixels, s32 width, s32 height, size_t *size) {
    *size = 0;
    if (!pixels || width <= 0 || height <= 0) {
        return nullptr;
    }
    const size_t count = (size_t)width * (size_t)height;
    u8 *rgb = (u8 *)zof_malloc(count * 3);
    u8 *png = nullptr;
    for (size_t i = 0; rgb && i < count; i++) {
        rgb[i * 3] = (u8)(pixels[i] >> 16);
        rgb[i * 3 + 1] = (u8)(pixels[i] >> 8);
        rgb[i * 3 + 2] = (u8)pixels[i];
    }
    if (!rgb || lodepng_encode24(&png, size, rgb, (unsigned)width, (unsigned)height) != 0) {
        zof_printf("screenshot: no memory for %d x %d pixels", width, height);
        zof_lv_free(png);
        png = nullptr;
    }
    zof_free(rgb);
    return png;
}

s32 zof_shot_png_write(const char *path, const u32 *pixels, s32 width, s32 height) {
    size_t size = 0;
    u8 *png = path ? zof_shot_png_make(pixels, width, height, &size) : nullptr;
    const s32 result = png ? file_write(path, png, size) : -1;
    zof_lv_free(png);
    return result;
}

s32 zof_shot_png(const char *path) {
    s32 width = 0;
    s32 height = 0;
    const u32 *pixels = sdl_frame_get(&width, &height);
    if (!pixels) {
        zof_printf("screenshot: there is no picture yet");
        return -1;
    }
    return zof_shot_png_write(path, pixels, width, height);
}
