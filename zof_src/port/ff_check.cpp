// Opens sounds and clips as the players do, to find out whether they can be played.
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_media.h"
#include "port/ff_media.h"
#include "port/win_sound.h"
#include "zof_lib/zof_util.h"

// How much is decoded, and how much of a clip's end may be missing: a container rounds its duration.
enum { FRAMES_DECODED = 10, PACKETS_DECODED = 50, PACKETS_MOST = 1 << 20, SLACK_MS = 500 };

static thread_local char said[96];

static s64 stream_ms(const ff_media *m, s64 time) {
    const AVStream *stream = m->format->streams[m->stream];
    return ff.av_rescale_q(time, stream->time_base, {1, 1000});
}

// Decodes a packet, or what is left after the last one if it is null. Returns the number of frames.
static u32 frames_of(ff_media *m, const AVPacket *packet, AVFrame *frame, const char *path) {
    u32 count = 0;
    if (ff_packet_send(m, packet, path) >= 0) {
        while (ff.avcodec_receive_frame(m->codec, frame) >= 0) {
            count++;
        }
    }
    return count;
}

// Returns the time in ms at which the last packet ends, and counts the frames of the first ones.
static s64 read_through(ff_media *m, AVPacket *packet, AVFrame *frame, const char *path, u32 *frames) {
    s64 end = 0;
    for (u32 i = 0; i < PACKETS_MOST && ff_packet_read(m, packet); i++) {
        if (i < PACKETS_DECODED && *frames < FRAMES_DECODED) {
            *frames += frames_of(m, packet, frame, path);
        }
        const bool timed = packet->pts != AV_NOPTS_VALUE;
        end = timed && packet->pts + packet->duration > end ? packet->pts + packet->duration : end;
        ff.av_packet_unref(packet);
    }
    *frames += frames_of(m, nullptr, frame, path);
    return stream_ms(m, end);
}

static const char *stream_fault(ff_media *m, const char *path, bool clip) {
    AVPacket *packet = ff.av_packet_alloc();
    AVFrame *frame = ff.av_frame_alloc();
    u32 frames = 0;
    const s64 end = packet && frame ? read_through(m, packet, frame, path, &frames) : 0;
    ff.av_packet_free(&packet);
    ff.av_frame_free(&frame);
    const s64 length = m->format->streams[m->stream]->duration;
    const s64 length_ms = length > 0 ? stream_ms(m, length) : 0;
    if (frames == 0) {
        return clip ? "no picture of it can be decoded" : "nothing of it can be decoded";
    }
    if (clip && end + SLACK_MS < length_ms) { // other containers only estimate their length
        snprintf(said, sizeof said, "cut short: it has %.1f of %.1f s", (double)end / 1000, (double)length_ms / 1000);
        return said;
    }
    return nullptr;
}

static const char *ff_fault(const char *path, bool clip) {
    ff_media m = {};
    if (!ff_lib_open()) {
        return nullptr;
    }
    if (!ff_open(&m, ff_source_host(path), path, true)) {
        return clip ? "not an MP4 file, or its end is missing" : "not a sound file of this kind";
    }
    const char *fault = ff_codec_open(&m, clip ? AVMEDIA_TYPE_VIDEO : AVMEDIA_TYPE_AUDIO);
    if (fault) { // written for a log, with a line end
        snprintf(said, sizeof said, "%.*s", (int)strcspn(fault, "!\n"), fault);
    }
    fault = fault ? said : stream_fault(&m, path, clip);
    ff_close(&m);
    return fault;
}

const char *zof_media_fault(const char *path) {
    const bool clip = zof_suffix_is(path, ".mp4");
    if (clip || zof_suffix_is(path, ".mp3") || zof_suffix_is(path, ".aac")) {
        return ff_fault(path, clip);
    }
    return zof_suffix_is(path, ".wav") ? sound_wav_fault(path) : nullptr;
}

zof_bool zof_media_built_in(const char *) {
    return ZOF_TRUE;
}

u32 zof_media_ffmpeg(void) {
    return ff_lib_open() ? ZOF_FFMPEG_READY : ZOF_FFMPEG_NOT_INSTALLED;
}
