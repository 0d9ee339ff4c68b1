// PNG and JPEG files for LVGL, decoded by FFmpeg: faster than LVGL's own decoders, and for every kind of both.
#include <string.h>

#include "lvgl.h"
#include "port/ff_media.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

// A picture as LVGL draws it; `pixels` is null for none, and LVGL's memory else.
struct picture {
    lv_img_header_t header;
    u8 *pixels;
};

// The picture whose size was asked for last. To tell a size is to decode it all: a PNG that breaks off is none. And
// LVGL asks right before it opens a picture, so what was decoded for the question waits for that.
static picture asked;

static bool image_open(ff_media *m, const char *path) {
    static const char *const extensions[] = {".png", ".jpg", ".jpeg"};
    const char *dot = strrchr(path, '.');
    for (const char *extension : extensions) {
        if (dot && strcmp(dot, extension) == 0) {
            if (!ff_open(m, ff_source_lvgl(path), extension, false)) {
                return false;
            }
            if (!ff_codec_open(m, AVMEDIA_TYPE_VIDEO)) {
                return true;
            }
            ff_close(m);
        }
    }
    return false;
}

static void pixels_take(picture *p, const AVFrame *frame) {
    const int w = frame->width, h = frame->height;
    if (w <= 0 || h <= 0 || w > FF_LVGL_SIDE_MOST || h > FF_LVGL_SIDE_MOST) {
        return;
    }
    const bool alpha = ff_has_alpha(frame->format);
    SwsContext *scaler = ff_scaler(w, h, frame->format, w, h);
    p->header.w = (u32)w & FF_LVGL_SIDE_MOST;
    p->header.h = (u32)h & FF_LVGL_SIDE_MOST;
    p->header.cf = alpha ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    p->pixels = (u8 *)zof_lv_malloc((size_t)w * (size_t)h * 4 + FF_TAIL);
    if (p->pixels && !ff_scale(scaler, frame, p->pixels, w, h)) {
        zof_lv_free(p->pixels);
        p->pixels = nullptr;
    }
    sws_freeContext(scaler);
}

// The first frame of the file.
static picture picture_load(const char *path) {
    picture p = {};
    ff_media m = {};
    if (!image_open(&m, path)) {
        return p;
    }
    AVPacket *packet = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    if (packet && frame && ff_packet_read(&m, packet) && avcodec_send_packet(m.codec, packet) == 0 &&
        avcodec_send_packet(m.codec, nullptr) == 0 && avcodec_receive_frame(m.codec, frame) == 0) {
        pixels_take(&p, frame);
    }
    av_frame_free(&frame);
    av_packet_free(&packet);
    ff_close(&m);
    return p;
}

static lv_res_t decoder_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    if (lv_img_src_get_type(src) != LV_IMG_SRC_FILE) {
        return LV_RES_INV;
    }
    zof_lv_free(asked.pixels);
    asked = picture_load((const char *)src);
    if (!asked.pixels) {
        return LV_RES_INV;
    }
    *header = asked.header;
    return LV_RES_OK;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    if (dsc->src_type != LV_IMG_SRC_FILE) {
        return LV_RES_INV;
    }
    dsc->img_data = asked.pixels;
    asked = {};
    return dsc->img_data ? LV_RES_OK : LV_RES_INV;
}

static void decoder_close(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    zof_lv_free((void *)dsc->img_data);
    dsc->img_data = nullptr;
}

void zof_ffmpeg_init(void) {
    av_log_set_level(AV_LOG_QUIET);
    lv_img_decoder_t *decoder = lv_img_decoder_create();
    lv_img_decoder_set_info_cb(decoder, decoder_info);
    lv_img_decoder_set_open_cb(decoder, decoder_open);
    lv_img_decoder_set_close_cb(decoder, decoder_close);
}
