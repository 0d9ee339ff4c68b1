// MP3, AAC and the sound of clips, with FFmpeg: every frame becomes 16-bit stereo at the file's own rate.
#include <stdio.h>

#include "port/ff_media.h"
#include "port/win_sound.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { STEREO = 2, SAMPLES_MOST = 19200, EMPTY_PAUSE_MS = 20 };

// The state of one pass through the file.
struct sound_run {
    ff_media media;
    SwrContext *swr;
    AVPacket *packet;
    AVFrame *frame;
    s16 *buffer;
    AVSampleFormat format; // the decoder's when the converter was made; a frame in another format would be misread
    int rate, channels;
    bool any; // something was played
};

static const char *converter_make(sound_run *r) {
    AVCodecContext *codec = r->media.codec;
    if (codec->sample_rate <= 0 || codec->ch_layout.nb_channels <= 0 || codec->sample_fmt == AV_SAMPLE_FMT_NONE) {
        return "its sample format is invalid\n";
    }
    r->format = codec->sample_fmt;
    r->rate = codec->sample_rate;
    r->channels = codec->ch_layout.nb_channels;
    AVChannelLayout in, out;
    ff.av_channel_layout_default(&in, r->channels);
    ff.av_channel_layout_default(&out, STEREO);
    const int set =
        ff.swr_alloc_set_opts2(&r->swr, &out, AV_SAMPLE_FMT_S16, r->rate, &in, r->format, r->rate, 0, nullptr);
    r->buffer = (s16 *)zof_malloc(SAMPLES_MOST * STEREO * sizeof(s16));
    r->packet = ff.av_packet_alloc();
    r->frame = ff.av_frame_alloc();
    return set == 0 && ff.swr_init(r->swr) == 0 && r->buffer && r->packet && r->frame ? nullptr : "no memory\n";
}

// Returns why there is no device.
static const char *device_missing() {
    static char why[160];
    if (SDL_WasInit(SDL_INIT_AUDIO)) {
        return "can't open audio.\n";
    }
    snprintf(why, sizeof(why), "Could not initialize SDL - %s\n", SDL_GetError());
    return why;
}

// Returns null, or what went wrong.
static const char *run_open(sound_run *r) {
    r->media.stop = &sound.type_p;
    const bool look = !zof_suffix_is(sound.audio_file, ".mp4"); // its container has all the information
    if (!ff_open(&r->media, ff_source_host(sound.audio_file), sound.audio_file, look)) {
        return "Failed to open file!";
    }
    const char *wrong = ff_codec_open(&r->media, AVMEDIA_TYPE_AUDIO);
    if (wrong) {
        return r->media.stream < 0 ? "" : wrong; // a clip without sound is not an error
    }
    wrong = converter_make(r);
    if (wrong) {
        return wrong;
    }
    return sound_device_open(r->rate, AUDIO_S16SYS, STEREO) ? nullptr : device_missing();
}

// Returns false when the thread must end, or the format changes within the file.
static bool frame_play(sound_run *r) {
    const AVFrame *f = r->frame;
    if (f->format != r->format || f->sample_rate != r->rate || f->ch_layout.nb_channels != r->channels) {
        return false;
    }
    u8 *out[] = {(u8 *)r->buffer};
    int n = ff.swr_convert(r->swr, out, SAMPLES_MOST, (const u8 **)f->extended_data, f->nb_samples);
    for (; n > 0; n = n == SAMPLES_MOST ? ff.swr_convert(r->swr, out, SAMPLES_MOST, nullptr, 0) : 0) {
        r->any = true;
        if (!sound_feed((u8 *)r->buffer, (u32)n * STEREO * sizeof(s16))) {
            return false;
        }
    }
    return true;
}

// Plays what the decoder makes of a packet; null: all that it still holds.
static bool packet_play(sound_run *r, const AVPacket *packet) {
    ff.avcodec_send_packet(r->media.codec, packet); // a broken packet is skipped
    bool on = true;
    while (on && ff.avcodec_receive_frame(r->media.codec, r->frame) == 0) {
        on = frame_play(r);
    }
    return on;
}

static void run_play(sound_run *r) {
    bool on = true;
    while (on && ff_packet_read(&r->media, r->packet)) {
        on = packet_play(r, r->packet);
        ff.av_packet_unref(r->packet);
    }
    if (on) {
        packet_play(r, nullptr);
    }
    sound_drain();
}

static void run_close(sound_run *r) {
    sound_device_close();
    ff.av_frame_free(&r->frame);
    ff.av_packet_free(&r->packet);
    ff.swr_free(&r->swr);
    zof_free(r->buffer);
    ff_close(&r->media);
}

int mythread_others(void *) {
    bool again = ff_lib_open();
    while (again) {
        sound_run r = {};
        const char *wrong = run_open(&r);
        if (wrong && *wrong && !sound.type_p) {
            sound_complain(wrong);
        }
        if (!wrong) {
            run_play(&r);
        }
        run_close(&r);
        again = !wrong && sound.cycle && !sound.type_p;
        if (again && !r.any) {
            sound_stop_wait(EMPTY_PAUSE_MS);
        }
    }
    sound.play_state = 0;
    return 0;
}
