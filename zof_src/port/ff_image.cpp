// PNG and JPEG files for LVGL, ahead of its own decoders. LVGL's library decodes PNG, so that a panel without media
// needs no FFmpeg; here size, opacity and damage of a picture are known before it is opened. FFmpeg decodes JPEG, in
// all its kinds, which LVGL's own decoder does not.
#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv_file.h"
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
// image gets its source; a PNG is not decoded again while its file is unchanged. The pixels are in LVGL's memory, to
// which they belong once the picture is opened.
static struct {
    AVFrame *frame;
    u8 *pixels;
    char *path; // of the PNG
    zof_file_stamp_t stamp;
    s32 w, h;
    bool alpha;
} asked;

static void asked_drop() {
    if (asked.frame) {
        ff.av_frame_free(&asked.frame);
    }
    zof_lv_free(asked.pixels);
    free(asked.path);
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

// Returns the first frame of the file, or null if it cannot be decoded.
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
static void png_decode(const u8 *file, size_t size) {
    LodePNGState state;
    lodepng_state_init(&state);
    state.decoder.zlibsettings.ignore_adler32 = 1;
    unsigned w = 0, h = 0;
    u8 *rgba = nullptr;
    if (lodepng_inspect(&w, &h, &state, file, size) == 0 && side_fits(w) && side_fits(h)) {
        state.decoder.zlibsettings.max_output_size = 2 * ((size_t)w * PNG_PIXEL_BYTES_MOST + 1) * h;
        if (lodepng_decode(&rgba, &w, &h, &state, file, size) == 0) {
            png_reorder(rgba, (size_t)w * h);
            asked.pixels = rgba;
            asked.w = (s32)w;
            asked.h = (s32)h;
            asked.alpha = lodepng_can_have_alpha(&state.info_png.color) != 0;
        } else {
            zof_lv_free(rgba);
        }
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

// A file without a stamp, on a drive, is decoded again.
static bool png_load(const char *path) {
    zof_file_stamp_t stamp = {};
    const bool known = zof_file_stamp(path, &stamp) == 0;
    if (known && asked.path && strcmp(path, asked.path) == 0 && memcmp(&stamp, &asked.stamp, sizeof(stamp)) == 0) {
        return true;
    }
    asked_drop();
    size_t size = 0;
    u8 *file = png_read(path, &size);
    if (file) {
        png_decode(file, size);
    }
    free(file);
    if (asked.pixels && known) {
        asked.path = strdup(path);
        asked.stamp = stamp;
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

static u8 *frame_pixels() {
    auto *pixels = (u8 *)zof_lv_malloc((size_t)asked.w * (size_t)asked.h * 4 + FF_TAIL);
    SwsContext *scaler = ff_scaler(asked.w, asked.h, asked.frame->format, asked.w, asked.h);
    if (pixels && !ff_scale(scaler, asked.frame, pixels, asked.w, asked.h)) {
        zof_lv_free(pixels);
        pixels = nullptr;
    }
    ff.sws_freeContext(scaler);
    return pixels;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    if (dsc->src_type != LV_IMG_SRC_FILE || (!asked.pixels && !asked.frame)) {
        return LV_RES_INV;
    }
    dsc->img_data = asked.pixels ? asked.pixels : frame_pixels();
    asked.pixels = nullptr;
    asked_drop();
    return dsc->img_data ? LV_RES_OK : LV_RES_INV;
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
