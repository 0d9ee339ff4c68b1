// Opens media files within bounds, and lets FFmpeg read through our own functions only.
#include "port/ff_media.h"

#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_file.h"
#include "port/win_image.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { IO_BLOCK = 32768, STREAMS_MOST = 16, PROBE_BYTES = 1 << 20, LOOK_US = 2000000, FOREIGN_PACKETS = 4000 };
enum { RATE_MOST = 192000, CHANNELS_MOST = 8 };

// The one demuxer for each extension: the name decides what a file is, nothing is probed.
static const struct {
    const char *extension, *demuxer;
} demuxers[] = {{".mp4", "mov"}, {".mp3", "mp3"}, {".aac", "aac"}, {".jpg", "jpeg_pipe"}};

static const AVInputFormat *demuxer_of(const char *name) {
    for (const auto &row : demuxers) {
        if (zof_suffix_is(name, row.extension)) {
            return ff.av_find_input_format(row.demuxer);
        }
    }
    return nullptr;
}

ff_source ff_source_host(const char *path) {
    FILE *file = zof_file_read_open(path);
    if (!file) {
        return {};
    }
    fseek(file, 0, SEEK_END);
    const s64 size = ftell(file);
    fseek(file, 0, SEEK_SET);
    return {file, [](void *h, u8 *buf, int n) { return (int)fread(buf, 1, (size_t)n, (FILE *)h); },
            [](void *h, s64 pos) { return (s64)fseek((FILE *)h, pos, SEEK_SET); }, [](void *h) { fclose((FILE *)h); },
            size};
}

static bool is_stopped(const ff_media *m) {
    return m->stop && *m->stop;
}

static int io_read(void *opaque, u8 *buf, int size) {
    auto *m = (ff_media *)opaque;
    const int n = is_stopped(m) ? 0 : m->source.read(m->source.handle, buf, size);
    if (n <= 0) {
        return AVERROR_EOF;
    }
    m->at += n;
    return n;
}

static s64 io_seek(void *opaque, s64 offset, int whence) {
    auto *m = (ff_media *)opaque;
    if (whence & AVSEEK_SIZE) {
        return m->source.size;
    }
    const int from = whence & ~AVSEEK_FORCE;
    const s64 base = from == SEEK_CUR ? m->at : from == SEEK_END ? m->source.size : 0;
    if (offset < -base || offset > m->source.size - base || m->source.seek(m->source.handle, base + offset) != 0) {
        return AVERROR(EINVAL);
    }
    m->at = base + offset;
    return m->at;
}

static int io_refuse(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **) {
    return AVERROR(EACCES);
}

static int io_interrupted(void *opaque) {
    return is_stopped((ff_media *)opaque);
}

static bool format_alloc(ff_media *m) {
    auto *block = (u8 *)ff.av_malloc(IO_BLOCK);
    m->io = block ? ff.avio_alloc_context(block, IO_BLOCK, 0, m, io_read, nullptr, io_seek) : nullptr;
    if (!m->io) {
        ff.av_free(block);
        return false;
    }
    m->format = ff.avformat_alloc_context();
    if (!m->format) {
        return false;
    }
    m->format->pb = m->io;
    m->format->flags |= AVFMT_FLAG_CUSTOM_IO;
    m->format->io_open = io_refuse;
    m->format->interrupt_callback = {io_interrupted, m};
    m->format->max_streams = STREAMS_MOST;
    m->format->probesize = PROBE_BYTES;
    m->format->max_analyze_duration = LOOK_US;
    return true;
}

// Checks what a stream declares before a decoder allocates memory for it.
static bool within_bounds(const AVCodecParameters *p) {
    switch (p->codec_type) {
    case AVMEDIA_TYPE_VIDEO:
        return p->width >= 0 && p->height >= 0 && p->width <= FF_SIDE_MOST && p->height <= FF_SIDE_MOST;
    case AVMEDIA_TYPE_AUDIO:
        return p->sample_rate >= 0 && p->sample_rate <= RATE_MOST && p->ch_layout.nb_channels <= CHANNELS_MOST;
    default:
        return true;
    }
}

static bool streams_look(ff_media *m) {
    AVDictionary *options[STREAMS_MOST] = {};
    const u32 count = m->format->nb_streams;
    bool good = count > 0 && count <= STREAMS_MOST;
    for (u32 i = 0; good && i < count; i++) {
        good = within_bounds(m->format->streams[i]->codecpar);
        ff.av_dict_set_int(&options[i], "max_pixels", (s64)FF_SIDE_MOST * FF_SIDE_MOST, 0);
    }
    // A file may have no streams before it is probed.
    good = (good || count == 0) && ff.avformat_find_stream_info(m->format, options) >= 0 && m->format->nb_streams > 0;
    for (AVDictionary *&one : options) {
        ff.av_dict_free(&one);
    }
    return good;
}

bool ff_open(ff_media *m, ff_source source, const char *name, bool look) {
    if (!ff_lib_open()) {
        if (source.handle) {
            source.close(source.handle);
        }
        return false;
    }
    m->source = source;
    m->at = 0;
    const AVInputFormat *demuxer = demuxer_of(name);
    if (!source.handle || !demuxer || !format_alloc(m) ||
        ff.avformat_open_input(&m->format, nullptr, demuxer, nullptr) < 0 || (look && !streams_look(m))) {
        ff_close(m);
        return false;
    }
    return true;
}

const char *ff_codec_open(ff_media *m, AVMediaType type) {
    m->stream = ff.av_find_best_stream(m->format, type, -1, -1, nullptr, 0);
    if (m->stream < 0) {
        return "there is no such stream\n";
    }
    const AVCodecParameters *p = m->format->streams[m->stream]->codecpar;
    if (!within_bounds(p)) {
        return "too large, or too many channels\n";
    }
    const AVCodec *decoder = ff.avcodec_find_decoder(p->codec_id);
    if (!decoder) {
        return "Unsupported codec!\n";
    }
    m->codec = ff.avcodec_alloc_context3(decoder);
    if (!m->codec || ff.avcodec_parameters_to_context(m->codec, p) < 0) {
        return "Couldn't copy codec context";
    }
    m->codec->max_pixels = (s64)FF_SIDE_MOST * FF_SIDE_MOST;
    return ff.avcodec_open2(m->codec, decoder, nullptr) < 0 ? "Failed to open decoder!\n" : nullptr;
}

int ff_packet_send(ff_media *m, const AVPacket *packet, const char *name) {
    const bool jpeg = packet && m->codec->codec_id == AV_CODEC_ID_MJPEG;
    return jpeg && !image_scans_are_few(packet->data, (size_t)packet->size, name)
               ? AVERROR(EINVAL)
               : ff.avcodec_send_packet(m->codec, packet);
}

bool ff_packet_read(ff_media *m, AVPacket *packet) {
    for (u32 foreign = 0; foreign < FOREIGN_PACKETS && !is_stopped(m); foreign++) {
        if (ff.av_read_frame(m->format, packet) < 0) {
            return false;
        }
        if (packet->stream_index == m->stream) {
            return true;
        }
        ff.av_packet_unref(packet);
    }
    return false;
}

void ff_close(ff_media *m) {
    ff.avcodec_free_context(&m->codec);
    ff.avformat_close_input(&m->format);
    if (m->io) {
        ff.av_freep(&m->io->buffer);
        ff.avio_context_free(&m->io);
    }
    if (m->source.handle) {
        m->source.close(m->source.handle);
    }
    m->source = {};
}

bool ff_has_alpha(int pixel_format) {
    const AVPixFmtDescriptor *d = ff.av_pix_fmt_desc_get((AVPixelFormat)pixel_format);
    return d && (d->flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL));
}

SwsContext *ff_scaler(int from_w, int from_h, int from_format, int w, int h) {
    const AVPixFmtDescriptor *d = ff.av_pix_fmt_desc_get((AVPixelFormat)from_format);
    if (!d || from_w <= 0 || from_h <= 0 || w <= 0 || h <= 0) {
        return nullptr;
    }
    int flags = SWS_BILINEAR;
    if (!(d->flags & AV_PIX_FMT_FLAG_RGB) && d->nb_components >= 2 && ((from_w | from_h) & 7)) {
        flags |= SWS_ACCURATE_RND;
    }
    // BGR0 would keep the unused byte of formats that have one, and the window would take it for transparency.
    return ff.sws_getContext(from_w, from_h, (AVPixelFormat)from_format, w, h, AV_PIX_FMT_BGRA, flags, nullptr, nullptr,
                             nullptr);
}

bool ff_scale(SwsContext *scaler, const AVFrame *frame, u8 *pixels, int w, int h) {
    u8 *const planes[4] = {pixels};
    const int row[4] = {w * 4};
    return scaler && ff.sws_scale(scaler, frame->data, frame->linesize, 0, frame->height, planes, row) == h;
}
