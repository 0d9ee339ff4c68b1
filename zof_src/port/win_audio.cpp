// The sound driver: one file at a time, played by a thread. Stopping a sound posts the semaphore that the thread waits
// on, and joins it.
#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv_audio.h"
#include "port/win_sound.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// For the graphics thread alone.
static struct {
    SDL_Thread *thread_wav;
    u8 type_wav; // the latest source was a WAV file
    bool any;    // there has been a playable source
} audio;

static void sound_stop() {
    if (audio.thread_wav) {
        sound.type_p = true;
        SDL_SemPost(sound.wake);
        SDL_WaitThread(audio.thread_wav, nullptr);
        audio.thread_wav = nullptr;
        sound.type_p = false;
    }
    while (sound.wake && SDL_SemTryWait(sound.wake) == 0) {
    }
    sound.play_state = 0;
}

static void sound_start() {
    if (!sound.wake) {
        sound.wake = SDL_CreateSemaphore(0);
        atexit(sound_stop); // no thread may outlive what it reads
    }
    sound_pause_set(0);
    sound.heard = false;
    sound.play_state = 1;
    audio.any = true;
    audio.thread_wav = SDL_CreateThread(audio.type_wav ? mythread_wav : mythread_others, "Thread_wav", nullptr);
    if (!audio.thread_wav) {
        sound.play_state = 0;
    }
}

static s32 win_audio_set_src(const char *path) {
    const char *extension = strrchr(path, '.');
    const bool dot = extension && !strchr(extension, '/');
    if (strlen(path) >= AUDIO_PATH || !dot) {
        zof_printf("sound %.160s: %s\n", path, dot ? "the path is too long" : "a name without a dot");
        return -1;
    }
    sound_stop();
    strcpy(sound.audio_file, path);
    const bool wav = zof_suffix_is(path, ".wav");
    if (wav || zof_suffix_is(path, ".mp3") || zof_suffix_is(path, ".aac") || zof_suffix_is(path, ".mp4")) {
        audio.type_wav = wav;
        sound_start();
    }
    return 0;
}

static s32 win_audio_set_state(u32 state) {
    if (!audio.any) {
        return 0;
    }
    switch (state) {
    case ZOF_MEDIA_PLAY:
        // A source starts by itself; until some of it was heard, it stays at its start.
        if (!sound.play_state || sound.heard) {
            sound_stop();
            sound_start();
        }
        sound_pause_set(0);
        return 0;
    case ZOF_MEDIA_STOP:
        sound_stop();
        return 0;
    case ZOF_MEDIA_PAUSE:
        sound_pause_set(1);
        return 0;
    case ZOF_MEDIA_RESUME:
        sound_pause_set(0);
        return 0;
    default:
        return -1;
    }
}

static s32 win_audio_get_state(void) {
    if (!sound.play_state) {
        return ZOF_MEDIA_STOP;
    }
    return sound_paused() ? ZOF_MEDIA_PAUSE : ZOF_MEDIA_PLAY;
}

static s32 win_audio_set_volum(u8 volume) {
    sound.sound_volume = volume < SDL_MIX_MAXVOLUME ? volume : (u8)SDL_MIX_MAXVOLUME;
    return 0;
}

static s32 win_audio_set_replay(u32 replay) {
    sound.cycle = replay != 0;
    return 0;
}

zof_bool win_audio_src_is(const char *path) {
    return path && audio.thread_wav && strcmp(path, sound.audio_file) == 0;
}

void win_audio_init(void) {
    static const zof_drv_audio_ops_t _drv_audio_t = {
        .set_src = win_audio_set_src,
        .set_state = win_audio_set_state,
        .get_state = win_audio_get_state,
        .set_volum = win_audio_set_volum,
        .set_one_replay = win_audio_set_replay,
    };
    zof_drv_audio_reg(&_drv_audio_t);
}
