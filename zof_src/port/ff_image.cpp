// PNG and JPEG files for LVGL, decoded by FFmpeg: faster than LVGL's own decoders, and for every kind of both.
#include "lvgl.h"
#include "port/ff_media.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// The picture whose size was asked for last. To tell a size is to decode it all: a PNG that breaks off is none. And
// LVGL asks right before it opens a picture, so what was decoded for the question waits for that.
static AVFrame *asked;

static bool image_open(ff_media *m, const char *path) {
    static const char *const extensions[] = {".png", ".jpg", ".jpeg"};
    for (const char *extension : extensions) {
        if (zof_suffix_is(path, extension)) {
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

// The first frame of the file; null for none.
static AVFrame *frame_load(const char *path) {
    ff_media m = {};
    if (!image_open(&m, path)) {
        return nullptr;
    }
    AVPacket *packet = av_packet_alloc();
    AVFrame *frame = av_frame_alloc();
    if (!packet || !frame || !ff_packet_read(&m, packet) || ff_packet_send(&m, packet, path) != 0 ||
        ff_packet_send(&m, nullptr, path) != 0 || avcodec_receive_frame(m.codec, frame) != 0) {
        av_frame_free(&frame);
    }
    av_packet_free(&packet);
    ff_close(&m);
    return frame;
}

static lv_res_t decoder_info(lv_img_decoder_t *, const void *src, lv_img_header_t *header) {
    if (lv_img_src_get_type(src) != LV_IMG_SRC_FILE) {
        return LV_RES_INV;
    }
    av_frame_free(&asked);
    asked = frame_load((const char *)src);
    if (!asked || asked->width <= 0 || asked->height <= 0 || asked->width > FF_LVGL_SIDE_MOST ||
        asked->height > FF_LVGL_SIDE_MOST) {
        return LV_RES_INV;
    }
    *header = {};
    header->w = (u32)asked->width & FF_LVGL_SIDE_MOST;
    header->h = (u32)asked->height & FF_LVGL_SIDE_MOST;
    header->cf = ff_has_alpha(asked->format) ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR;
    return LV_RES_OK;
}

static lv_res_t decoder_open(lv_img_decoder_t *, lv_img_decoder_dsc_t *dsc) {
    if (dsc->src_type != LV_IMG_SRC_FILE || !asked) {
        return LV_RES_INV;
    }
    const int w = asked->width, h = asked->height;
    SwsContext *scaler = ff_scaler(w, h, asked->format, w, h);
    u8 *pixels = (u8 *)zof_lv_malloc((size_t)w * (size_t)h * 4 + FF_TAIL);
    if (pixels && !ff_scale(scaler, asked, pixels, w, h)) {
        zof_lv_free(pixels);
        pixels = nullptr;
    }
    sws_freeContext(scaler);
    av_frame_free(&asked);
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
