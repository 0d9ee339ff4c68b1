// PNG and JPEG files for LVGL, ahead of its own decoders. LVGL's library decodes PNG, so that a panel without media
// needs no FFmpeg; here size, opacity and damage of a picture are known before it is opened. FFmpeg decodes JPEG, in
// all its kinds, which LVGL's own decoder does not.
#include <stdlib.h>
#include <string.h>

#include "lvgl.h"
#include "port/ff_media.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define LODEPNG_NO_COMPILE_CPP
extern "C" {
#include "src/extra/libs/png/lodepng.h"
}

enum { PNG_FILE_MOST = 64 << 20, PNG_PIXEL_BYTES_MOST = 8 };

// The picture whose size was last asked for: a frame, or the pixels of a PNG. The size is only known once it is
// decoded, and LVGL asks right before it opens a picture, so the result is kept until then. LVGL also asks when an
// image gets its source; a PNG is not decoded again while its file has the same bytes. The result is not in LVGL's
// memory, which is counted, because the picture may never be opened.
static struct {
    AVFrame *frame;
    u8 *pixels;
    u8 *file; // the bytes that the pixels were decoded from
    size_t file_size;
    s32 w, h;
    bool alpha;
} asked;

static void asked_drop() {
    if (asked.frame) {
        ff.av_frame_free(&asked.frame);
    }
    free(asked.pixels);
    free(asked.file);
    asked = {};
}

static bool jpeg_open(ff_media *m, const char *path) {
    if (!ff_open(m, ff_source_lvgl(path), ".jpg", false)) {
        return false;
    }
    if (ff_codec_open(m, AVMEDIA_TYPE_VIDEO)) {
        ff_close(m);
        return false;
    }
    return true;
}

// Returns the first frame of the file; null if there is none.
static AVFrame *frame_load(const char *path) {
    ff_media m = {};
    if (!jpeg_open(&m, path)) {
        return nullptr;
    }
    AVPacket *packet = ff.av_packet_alloc();
    AVFrame *frame = ff.av_frame_alloc();
    if (!packet || !frame || !ff_packet_read(&m, packet) || ff_packet_send(&m, packet, path) != 0 ||
        ff_packet_send(&m, nullptr, path) != 0 || ff.avcodec_receive_frame(m.codec, frame) != 0) {
        ff.av_frame_free(&frame);
    }
    ff.av_packet_free(&packet);
    ff_close(&m);
    return frame;
}

static bool jpeg_load(const char *path) {
    asked_drop();
    asked.frame = frame_load(path);
    if (!asked.frame) {
        return false;
    }
    asked.w = asked.frame->width;
    asked.h = asked.frame->height;
    asked.alpha = ff_has_alpha(asked.frame->format);
    return true;
}

static bool side_fits(s64 side) {
    return side > 0 && side <= FF_LVGL_SIDE_MOST;
}

// Converts to LVGL's order of colours, in memory of our own.
static u8 *png_pixels(const u8 *rgba, size_t bytes) {
    auto *pixels = (u8 *)malloc(bytes);
    for (size_t i = 0; pixels && i < bytes; i += 4) {
        const u8 bgra[4] = {rgba[i + 2], rgba[i + 1], rgba[i], rgba[i + 3]};
        memcpy(pixels + i, bgra, sizeof(bgra));
    }
    return pixels;
}

// Decodes a file in memory. Its size in pixels limits what its data may inflate to.
static void png_decode(const u8 *file, size_t size) {
    LodePNGState state;
    lodepng_state_init(&state);
    unsigned w = 0, h = 0;
    u8 *rgba = nullptr;
    if (lodepng_inspect(&w, &h, &state, file, size) == 0 && side_fits(w) && side_fits(h)) {
        state.decoder.zlibsettings.max_output_size = 2 * ((size_t)w * PNG_PIXEL_BYTES_MOST + 1) * h;
        if (lodepng_decode(&rgba, &w, &h, &state, file, size) == 0) {
            asked.pixels = png_pixels(rgba, (size_t)w * h * 4);
            asked.w = (s32)w;
            asked.h = (s32)h;
            asked.alpha = lodepng_can_have_alpha(&state.info_png.color) != 0;
        }
        zof_lv_free(rgba);
    }
    lodepng_state_cleanup(&state);
}

// The whole file in memory for free; null when it is too large or cannot be read.
static u8 *png_read(const char *path, size_t *size) {
    const ff_source source = ff_source_lvgl(path);
    if (!source.handle) {
        return nullptr;
    }
    *size = source.size > 0 && source.size <= PNG_FILE_MOST ? (size_t)source.size : 0;
    auto *file = *size ? (u8 *)malloc(*size) : nullptr;
    if (file && source.read(source.handle, file, (int)*size) != (int)*size) {
        free(file);
        file = nullptr;
    }
    source.close(source.handle);
    return file;
}

static bool png_load(const char *path) {
    size_t size = 0;
    u8 *file = png_read(path, &size);
    if (file && asked.pixels && size == asked.file_size && memcmp(file, asked.file, size) == 0) {
        free(file);
        return true;
    }
    asked_drop();
    if (file) {
        png_decode(file, size);
        asked.file = file;
        asked.file_size = size;
    }
    return asked.pixels != nullptr;
}

static const struct {
    const char *extension;
    bool (*load)(const char *path);
} kinds[] = {{".png", png_load}, {".jpg", jpeg_load}, {".jpeg", jpeg_load}};

static bool asked_load(const char *path) {
    for (const auto &kind : kinds) {
        if (zof_suffix_is(path, kind.extension)) {
            return kind.load(path);
        }
    }
    return false;
}

static lv_res_t decoder_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    if (lv_img_src_get_type(src) != LV_IMG_SRC_FILE) {
        return LV_RES_INV;
    }
    if (!asked_load((const char *)src) || !side_fits(asked.w) || !side_fits(asked.h)) {
        asked_drop();
        return LV_RES_INV;
    }
    *header = {};
    header->w = (u32)asked.w & FF_LVGL_SIDE_MOST;
    header->h = (u32)asked.h & FF_LVGL_SIDE_MOST;
    header->cf = asked.alpha ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    return LV_RES_OK;
}

static bool asked_paint(u8 *pixels) {
    if (asked.pixels) {
        memcpy(pixels, asked.pixels, (size_t)asked.w * (size_t)asked.h * 4);
        return true;
    }
    SwsContext *scaler = ff_scaler(asked.w, asked.h, asked.frame->format, asked.w, asked.h);
    const bool good = ff_scale(scaler, asked.frame, pixels, asked.w, asked.h);
    ff.sws_freeContext(scaler);
    return good;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    if (dsc->src_type != LV_IMG_SRC_FILE || (!asked.pixels && !asked.frame)) {
        return LV_RES_INV;
    }
    u8 *pixels = (u8 *)zof_lv_malloc((size_t)asked.w * (size_t)asked.h * 4 + FF_TAIL);
    if (pixels && !asked_paint(pixels)) {
        zof_lv_free(pixels);
        pixels = nullptr;
    }
    asked_drop();
    dsc->img_data = pixels;
    return pixels ? LV_RES_OK : LV_RES_INV;
}

static void decoder_close(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    zof_lv_free((void *)dsc->img_data);
    dsc->img_data = nullptr;
}

void zof_ffmpeg_init(void) {
    lv_img_decoder_t *decoder = lv_img_decoder_create();
    lv_img_decoder_set_info_cb(decoder, decoder_info);
    lv_img_decoder_set_open_cb(decoder, decoder_open);
    lv_img_decoder_set_close_cb(decoder, decoder_close);
}
