// JPEG pictures by FFmpeg, in all their kinds.
#include <string.h>

#include "port/ff_media.h"
#include "port/win_image.h"
#include "zof_lib/zof_stdio.h"

struct file_in_memory {
    const u8 *bytes;
    s64 size, at;
};

static ff_source source_of(file_in_memory *file) {
    return {file,
            [](void *h, u8 *buf, int n) {
                auto *f = (file_in_memory *)h;
                const int count = n < f->size - f->at ? n : (int)(f->size - f->at);
                memcpy(buf, f->bytes + f->at, (size_t)count);
                f->at += count;
                return count;
            },
            [](void *h, s64 pos) {
                ((file_in_memory *)h)->at = pos;
                return (s64)0;
            },
            [](void *) {}, file->size};
}

static bool jpeg_open(ff_media *m, file_in_memory *file) {
    if (!ff_open(m, source_of(file), ".jpg", false)) {
        return false;
    }
    if (ff_codec_open(m, AVMEDIA_TYPE_VIDEO)) {
        ff_close(m);
        return false;
    }
    return true;
}

// Returns the first frame of the file, or null if it cannot be decoded.
static AVFrame *frame_decode(file_in_memory *file, const char *name) {
    ff_media m = {};
    if (!jpeg_open(&m, file)) {
        return nullptr;
    }
    AVPacket *packet = ff.av_packet_alloc();
    AVFrame *frame = ff.av_frame_alloc();
    if (!packet || !frame || !ff_packet_read(&m, packet) || ff_packet_send(&m, packet, name) != 0 ||
        ff_packet_send(&m, nullptr, name) != 0 || ff.avcodec_receive_frame(m.codec, frame) != 0) {
        ff.av_frame_free(&frame);
    }
    ff.av_packet_free(&packet);
    ff_close(&m);
    return frame;
}

static bool frame_convert(const AVFrame *frame, win_image *image) {
    image->w = frame->width;
    image->h = frame->height;
    image->alpha = ff_has_alpha(frame->format);
    image->pixels = (u8 *)zof_lv_malloc((size_t)image->w * (size_t)image->h * 4 + FF_TAIL);
    SwsContext *scaler = ff_scaler(image->w, image->h, frame->format, image->w, image->h);
    const bool good = image->pixels && ff_scale(scaler, frame, image->pixels, image->w, image->h);
    ff.sws_freeContext(scaler);
    if (!good) {
        zof_lv_free(image->pixels);
        *image = {};
    }
    return good;
}

bool image_jpeg_decode(const u8 *bytes, size_t size, const char *name, win_image *image) {
    file_in_memory file = {bytes, (s64)size, 0};
    AVFrame *frame = frame_decode(&file, name);
    if (!frame) {
        return false;
    }
    const bool good = image_fits(frame->width, frame->height) && frame_convert(frame, image);
    ff.av_frame_free(&frame);
    return good;
}
