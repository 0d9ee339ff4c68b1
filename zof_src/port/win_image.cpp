// PNG and JPEG files for LVGL, ahead of its own decoders. LVGL's library decodes PNG, so that a panel without media
// needs no FFmpeg; here size, opacity and damage of a picture are known before it is opened. JPEG has a library of its
// own, because LVGL's decoder knows baseline pictures only.
#include "port/win_image.h"

#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv_file.h"
#include "drv/zof_drv_media.h"
#include "lvgl.h"
#include "src/misc/lv_gc.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define LODEPNG_NO_COMPILE_CPP
extern "C" {
#include "src/extra/libs/png/lodepng.h"
}

enum { FILE_MOST = 64 << 20, PNG_PIXEL_BYTES_MOST = 8 };

// The picture whose size was last asked for. The size is only known once it is decoded, and LVGL asks right before it
// opens a picture, so the pixels are kept until then. LVGL also asks when an image gets its source; a picture is not
// decoded again while its file is unchanged. The pixels are in LVGL's memory, to which they belong once the picture is
// opened.
static struct {
    win_image image;
    char *path;
    zof_file_stamp_t stamp;
} asked;

static void asked_drop() {
    zof_lv_free(asked.image.pixels);
    free(asked.path);
    asked = {};
}

// Converts RGBA to LVGL's order of colours, in place.
static void png_reorder(u8 *pixels, size_t count) {
    for (size_t i = 0; i < count; i++) {
        u32 rgba;
        memcpy(&rgba, pixels + 4 * i, sizeof(rgba));
        const u32 bgra = (rgba & 0xFF00FF00u) | (rgba & 0xFFu) << 16 | (rgba >> 16 & 0xFFu);
        memcpy(pixels + 4 * i, &bgra, sizeof(bgra));
    }
}

// Decodes a file in memory. Its size in pixels limits what its data may inflate to. The checksums of its chunks detect
// damage, so the one inside the compressed data is not computed as well.
static bool png_decode(const u8 *file, size_t size, const char *, win_image *image) {
    LodePNGState state;
    lodepng_state_init(&state);
    state.decoder.zlibsettings.ignore_adler32 = 1;
    unsigned w = 0, h = 0;
    u8 *rgba = nullptr;
    if (lodepng_inspect(&w, &h, &state, file, size) == 0 && image_fits(w, h)) {
        state.decoder.zlibsettings.max_output_size = 2 * ((size_t)w * PNG_PIXEL_BYTES_MOST + 1) * h;
        if (lodepng_decode(&rgba, &w, &h, &state, file, size) == 0) {
            png_reorder(rgba, (size_t)w * h);
            *image = {rgba, (s32)w, (s32)h, lodepng_can_have_alpha(&state.info_png.color) != 0};
        } else {
            zof_lv_free(rgba);
        }
    }
    lodepng_state_cleanup(&state);
    return image->pixels;
}

static u8 *opened_read(lv_fs_file_t *file, size_t *size) {
    u32 length = 0, got = 0;
    lv_fs_seek(file, 0, LV_FS_SEEK_END);
    lv_fs_tell(file, &length);
    lv_fs_seek(file, 0, LV_FS_SEEK_SET);
    auto *bytes = length > 0 && length <= FILE_MOST ? (u8 *)malloc(length) : nullptr;
    if (bytes && (lv_fs_read(file, bytes, length, &got) != LV_FS_RES_OK || got != length)) {
        free(bytes);
        bytes = nullptr;
    }
    *size = length;
    return bytes;
}

// Reads a whole file through LVGL's file layer, which knows drives, into memory to be freed. Returns null when it is
// too large or cannot be read.
static u8 *file_read(const char *path, size_t *size) {
    lv_fs_file_t file;
    if (lv_fs_open(&file, path, LV_FS_MODE_RD) != LV_FS_RES_OK) {
        return nullptr;
    }
    u8 *bytes = opened_read(&file, size);
    lv_fs_close(&file);
    return bytes;
}

typedef bool (*image_decode)(const u8 *file, size_t size, const char *name, win_image *image);

static image_decode decoder_of(const char *path) {
    static const struct {
        const char *extension;
        image_decode decode;
    } kinds[] = {{".png", png_decode}, {".jpg", image_jpeg_decode}, {".jpeg", image_jpeg_decode}};
    for (const auto &kind : kinds) {
        if (zof_suffix_is(path, kind.extension)) {
            return kind.decode;
        }
    }
    return nullptr;
}

// A file without a stamp, on a drive, is decoded again.
static bool asked_load(const char *path, image_decode decode) {
    zof_file_stamp_t stamp = {};
    const bool known = zof_file_stamp(path, &stamp) == 0;
    if (known && asked.path && strcmp(path, asked.path) == 0 && memcmp(&stamp, &asked.stamp, sizeof(stamp)) == 0) {
        return true;
    }
    asked_drop();
    size_t size = 0;
    u8 *file = file_read(path, &size);
    const bool good = file && decode(file, size, path, &asked.image);
    free(file);
    if (good && known) {
        asked.path = strdup(path);
        asked.stamp = stamp;
    }
    return good;
}

static lv_res_t decoder_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    const auto *path = lv_img_src_get_type(src) == LV_IMG_SRC_FILE ? (const char *)src : nullptr;
    const image_decode decode = path ? decoder_of(path) : nullptr;
    if (!decode || !asked_load(path, decode)) {
        return LV_RES_INV;
    }
    *header = {};
    header->w = (u32)asked.image.w & IMAGE_SIDE_MOST;
    header->h = (u32)asked.image.h & IMAGE_SIDE_MOST;
    header->cf = asked.image.alpha ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    return LV_RES_OK;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    if (dsc->src_type != LV_IMG_SRC_FILE || !asked.image.pixels) {
        return LV_RES_INV;
    }
    dsc->img_data = asked.image.pixels;
    asked.image.pixels = nullptr;
    asked_drop();
    return LV_RES_OK;
}

static void decoder_close(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    zof_lv_free((void *)dsc->img_data);
    dsc->img_data = nullptr;
}

static bool is_installed() {
    lv_ll_t *all = &LV_GC_ROOT(_lv_img_decoder_ll);
    for (void *at = _lv_ll_get_head(all); at; at = _lv_ll_get_next(all, at)) {
        if (((const lv_img_decoder_t *)at)->info_cb == decoder_info) {
            return true;
        }
    }
    return false;
}

void zof_image_init(void) {
    if (is_installed()) {
        return;
    }
    lv_img_decoder_t *decoder = lv_img_decoder_create();
    lv_img_decoder_set_info_cb(decoder, decoder_info);
    lv_img_decoder_set_open_cb(decoder, decoder_open);
    lv_img_decoder_set_close_cb(decoder, decoder_close);
}
