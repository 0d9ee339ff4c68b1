// Encodes with FFmpeg. The output depends neither on the time nor on the machine.
#include "media.h"

#include <math.h>
#include <stdio.h>
#include <string.h>

#include <vector>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

struct track {
    AVCodecContext *codec;
    AVStream *stream;
    s64 next; // pts of the next frame
};

static void paint_ball(u32 *pixels, s32 w, s32 h, s32 n) {
    const double t = n / 25.0;
    const s32 radius = h / 6;
    const s32 middle = w / 2;
    const s32 reach = middle - radius;
    const s32 cx = (s32)(middle + reach * sin(t * 1.7));
    const s32 cy = (s32)(h - radius - (h - 2 * radius) * fabs(sin(t * 2.9)));
    for (s32 y = 0; y < h; y++) {
        for (s32 x = 0; x < w; x++) {
            const bool ball = (x - cx) * (x - cx) + (y - cy) * (y - cy) < radius * radius;
            const u32 red = 40 + (u32)(30 * (1 + sin(x * 0.02 + t)));
            const u32 blue = 90 + (u32)(50 * (1 + sin(y * 0.03 - t)));
            pixels[y * w + x] = ball ? 0xFFFFC040 : 0xFF000000 | red << 16 | (red + blue) / 3 << 8 | blue;
        }
    }
}

static bool is_wrong(const char *path, const char *what) {
    fprintf(stderr, "%s: %s\n", path, what);
    return false;
}

static bool packets_take(AVFormatContext *format, track *t) {
    AVPacket *packet = av_packet_alloc();
    int result;
    while ((result = avcodec_receive_packet(t->codec, packet)) == 0) {
        packet->stream_index = t->stream->index;
        packet->duration = packet->duration ? packet->duration : 1;
        av_packet_rescale_ts(packet, t->codec->time_base, t->stream->time_base);
        if (av_interleaved_write_frame(format, packet) < 0) {
            break;
        }
    }
    av_packet_free(&packet);
    return result == AVERROR(EAGAIN) || result == AVERROR_EOF;
}

static AVCodecContext *video_codec(const media_clip &clip, s32 w, s32 h, bool global_header) {
    const AVCodec *encoder = avcodec_find_encoder_by_name(clip.codec);
    AVCodecContext *c = encoder ? avcodec_alloc_context3(encoder) : nullptr;
    if (!c) {
        return nullptr;
    }
    c->width = w;
    c->height = h;
    c->time_base = {clip.rate_den, clip.rate_num};
    c->framerate = {clip.rate_num, clip.rate_den};
    c->pix_fmt = encoder->id == AV_CODEC_ID_PNG     ? AV_PIX_FMT_RGBA
                 : encoder->id == AV_CODEC_ID_MJPEG ? AV_PIX_FMT_YUVJ420P
                                                    : AV_PIX_FMT_YUV420P;
    c->gop_size = 12;
    c->max_b_frames = clip.b_frames;
    c->flags |= AV_CODEC_FLAG_QSCALE | AV_CODEC_FLAG_BITEXACT | (global_header ? AV_CODEC_FLAG_GLOBAL_HEADER : 0);
    c->global_quality = FF_QP2LAMBDA * 3;
    if (avcodec_open2(c, encoder, nullptr) < 0) {
        avcodec_free_context(&c);
    }
    return c;
}

static AVCodecContext *audio_codec(const media_clip &clip, AVCodecID id, bool global_header) {
    const AVCodec *encoder = avcodec_find_encoder(id);
    AVCodecContext *c = encoder ? avcodec_alloc_context3(encoder) : nullptr;
    if (!c) {
        return nullptr;
    }
    // All encoders except the WAV one accept this format.
    c->sample_fmt = id == AV_CODEC_ID_PCM_S16LE ? AV_SAMPLE_FMT_S16 : AV_SAMPLE_FMT_FLTP;
    c->sample_rate = clip.sample_rate;
    c->time_base = {1, clip.sample_rate};
    c->bit_rate = 96000;
    c->flags |= AV_CODEC_FLAG_BITEXACT | (global_header ? AV_CODEC_FLAG_GLOBAL_HEADER : 0);
    av_channel_layout_default(&c->ch_layout, clip.channels);
    if (avcodec_open2(c, encoder, nullptr) < 0) {
        avcodec_free_context(&c);
    }
    return c;
}

static bool track_add(AVFormatContext *format, track *t) {
    t->stream = t->codec ? avformat_new_stream(format, nullptr) : nullptr;
    if (!t->stream) {
        return false;
    }
    t->stream->time_base = t->codec->time_base;
    t->stream->avg_frame_rate = t->codec->framerate;
    return avcodec_parameters_from_context(t->stream->codecpar, t->codec) >= 0;
}

static bool frame_write(AVFormatContext *format, track *t, const media_clip &clip, s32 n) {
    const s32 w = t->codec->width;
    const s32 h = t->codec->height;
    std::vector<u32> pixels((size_t)w * (size_t)h + 16);
    (clip.paint ? clip.paint : paint_ball)(pixels.data(), w, h, n);
    AVFrame *frame = av_frame_alloc();
    frame->format = t->codec->pix_fmt;
    frame->width = w;
    frame->height = h;
    frame->pts = clip.times ? clip.times[n] : n;
    frame->quality = t->codec->global_quality;
    SwsContext *sws =
        sws_getContext(w, h, AV_PIX_FMT_BGRA, w, h, t->codec->pix_fmt, SWS_BILINEAR, nullptr, nullptr, nullptr);
    bool good = sws && av_frame_get_buffer(frame, 0) == 0;
    if (good) {
        const u8 *const planes[] = {(const u8 *)pixels.data()};
        const int row[] = {w * 4};
        sws_scale(sws, planes, row, 0, h, frame->data, frame->linesize);
        good = avcodec_send_frame(t->codec, frame) == 0 && packets_take(format, t);
    }
    sws_freeContext(sws);
    av_frame_free(&frame);
    return good;
}

static double tone(const media_clip &clip, s64 at) {
    return 0.4 * sin(2 * 3.14159265358979 * clip.tone_hz * (double)at / clip.sample_rate);
}

// Encodes at most one frame of the encoder's size.
static bool sound_write(AVFormatContext *format, track *t, const media_clip &clip, s64 end) {
    AVFrame *frame = av_frame_alloc();
    const s64 most = t->codec->frame_size ? t->codec->frame_size : 1024;
    frame->format = t->codec->sample_fmt;
    frame->sample_rate = clip.sample_rate;
    frame->nb_samples = (int)(end - t->next < most ? end - t->next : most);
    frame->pts = t->next;
    av_channel_layout_copy(&frame->ch_layout, &t->codec->ch_layout);
    bool good = av_frame_get_buffer(frame, 0) == 0;
    for (s32 i = 0; good && i < frame->nb_samples; i++) {
        for (s32 ch = 0; ch < clip.channels; ch++) {
            const double v = tone(clip, t->next + i);
            if (t->codec->sample_fmt == AV_SAMPLE_FMT_FLTP) {
                ((float *)frame->extended_data[ch])[i] = (float)v;
            } else {
                ((s16 *)frame->extended_data[0])[i * clip.channels + ch] = (s16)lrint(v * 32767);
            }
        }
    }
    t->next += frame->nb_samples;
    good = good && avcodec_send_frame(t->codec, frame) == 0 && packets_take(format, t);
    av_frame_free(&frame);
    return good;
}

static bool tracks_write(AVFormatContext *format, track *video, track *audio, const media_clip &clip) {
    const s64 ms = clip.tone_ms ? clip.tone_ms : 1000ll * clip.frames * clip.rate_den / clip.rate_num;
    const s64 end = audio->codec ? ms * clip.sample_rate / 1000 : 0;
    bool good = true;
    for (s32 n = 0; good && n < (video->codec ? clip.frames : 0); n++) {
        if (n == clip.resize_at) {
            avcodec_free_context(&video->codec);
            video->codec = video_codec(clip, clip.width / 2, clip.height / 2, false);
        }
        good = video->codec && frame_write(format, video, clip, n);
    }
    while (good && audio->next < end) {
        good = sound_write(format, audio, clip, end);
    }
    for (track *t : {video, audio}) {
        if (good && t->codec) {
            avcodec_send_frame(t->codec, nullptr);
            good = packets_take(format, t);
        }
    }
    return good;
}

static AVCodecID audio_id(const AVOutputFormat *f) {
    return f->audio_codec == AV_CODEC_ID_NONE ? AV_CODEC_ID_AAC : f->audio_codec;
}

bool media_write(const char *path, const media_clip &clip) {
    const int log = av_log_get_level();
    av_log_set_level(log < AV_LOG_ERROR ? log : AV_LOG_ERROR);
    AVFormatContext *format = nullptr;
    if (avformat_alloc_output_context2(&format, nullptr, nullptr, path) < 0) {
        return is_wrong(path, "unknown file type");
    }
    format->flags |= AVFMT_FLAG_BITEXACT;
    const bool global = format->oformat->flags & AVFMT_GLOBALHEADER;
    track video = {}, audio = {};
    bool good = true;
    if (clip.width > 0) {
        video.codec = video_codec(clip, clip.width, clip.height, global);
        good = track_add(format, &video);
    }
    if (clip.tone_hz > 0) {
        audio.codec = audio_codec(clip, audio_id(format->oformat), global);
        good = good && track_add(format, &audio);
    }
    const int opened = good ? avio_open(&format->pb, path, AVIO_FLAG_WRITE) : 0;
    good = good && opened >= 0 && avformat_write_header(format, nullptr) >= 0 &&
           tracks_write(format, &video, &audio, clip) && av_write_trailer(format) == 0;
    good = avio_closep(&format->pb) >= 0 && good;
    avcodec_free_context(&video.codec);
    avcodec_free_context(&audio.codec);
    avformat_free_context(format);
    av_log_set_level(log);
    char reason[AV_ERROR_MAX_STRING_SIZE] = "cannot be encoded or written";
    if (opened < 0) {
        av_strerror(opened, reason, sizeof(reason));
    }
    return good || is_wrong(path, reason);
}
