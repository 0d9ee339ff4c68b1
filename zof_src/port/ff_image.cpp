// PNG and JPEG files for LVGL, decoded by FFmpeg: faster than LVGL's own decoders, and for every kind of both.
#include <string.h>

#include "lvgl.h"
#include "port/ff_media.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

// The picture's file, opened far enough to know its size and pixels.
static bool image_open(ff_media *m, const char *path) {
    static const char *const extensions[] = {".png", ".jpg", ".jpeg"};
    const char *dot = strrchr(path, '.');
    for (const char *extension : extensions) {
        if (dot && strcmp(dot, extension) == 0) {
            if (!ff_open(m, ff_source_lvgl(path), extension, true)) {
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

static lv_res_t header_fill(const ff_media *m, lv_img_header_t *header) {
    const AVCodecContext *codec = m->codec;
    if (codec->width <= 0 || codec->height <= 0 || codec->width > FF_LVGL_SIDE_MOST ||
        codec->height > FF_LVGL_SIDE_MOST || codec->pix_fmt == AV_PIX_FMT_NONE) {
        return LV_RES_INV;
    }
    *header = {};
    header->w = (u32)codec->width & FF_LVGL_SIDE_MOST;
    header->h = (u32)codec->height & FF_LVGL_SIDE_MOST;
    header->cf = ff_has_alpha(codec->pix_fmt) ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    return LV_RES_OK;
}

static lv_res_t decoder_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    ff_media m = {};
    if (lv_img_src_get_type(src) != LV_IMG_SRC_FILE || !image_open(&m, (const char *)src)) {
        return LV_RES_INV;
    }
    const lv_res_t result = header_fill(&m, header);
    ff_close(&m);
    return result;
}

// The first frame of the file, as large as its header said.
static bool image_decode(ff_media *m, u8 *pixels, int w, int h) {
    AVPacket *packet = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    bool good = packet && frame && ff_packet_read(m, packet) && avcodec_send_packet(m->codec, packet) == 0 &&
                avcodec_send_packet(m->codec, nullptr) == 0 && avcodec_receive_frame(m->codec, frame) == 0 &&
                frame->width == w && frame->height == h;
    SwsContext *scaler = good ? ff_scaler(w, h, frame->format, w, h, ff_has_alpha(frame->format)) : nullptr;
    good = good && ff_scale(scaler, frame, pixels, w, h);
    sws_freeContext(scaler);
    av_frame_free(&frame);
    av_packet_free(&packet);
    return good;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    ff_media m = {};
    if (dsc->src_type != LV_IMG_SRC_FILE || !image_open(&m, (const char *)dsc->src)) {
        return LV_RES_INV;
    }
    lv_img_header_t header;
    u8 *pixels = nullptr;
    // The file may have been changed since LVGL asked for its size.
    if (header_fill(&m, &header) == LV_RES_OK && header.w == dsc->header.w && header.h == dsc->header.h &&
        header.cf == dsc->header.cf) {
        pixels = (u8 *)zof_lv_malloc((size_t)header.w * header.h * 4 + FF_TAIL);
    }
    if (pixels && !image_decode(&m, pixels, (int)header.w, (int)header.h)) {
        zof_lv_free(pixels);
        pixels = nullptr;
    }
    ff_close(&m);
    dsc->img_data = pixels;
    return pixels ? LV_RES_OK : LV_RES_INV;
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
