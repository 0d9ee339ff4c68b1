// Sound: one file at a time, played by a thread that feeds SDL's device. The thread and the device wait for each other
// on a semaphore; stopping a sound posts it too, and joins the thread.
#include <stdlib.h>
#include <string.h>
#include <strings.h>

#include <mutex>

#include "drv/zof_drv_audio.h"
#include "port/win_sound.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

win_sound sound = {.sound_volume = SDL_MIX_MAXVOLUME};

// What only the graphics thread needs, and the device, which it pauses and the playing thread opens and closes.
static struct {
    SDL_Thread *thread_wav;
    u8 type_wav;    // the latest source was a WAV file
    bool any;       // there has been a playable source
    u8 state_pause; // under the lock, as all below is
    bool primed;    // the ring is full, the device may start
    SDL_AudioDeviceID device;
    SDL_AudioSpec spec;
    std::mutex lock;
    u32 hold, frame_bytes; // the playing thread's: how often each frame is sent to the device, and its size
} audio;

// Closing a device waits for two of its blocks. With a lower rate than this, one block would take too long.
enum { RATE_LEAST = 4000, BLOCK_LEAST = 64 };

// Audio thread: fills the buffer with silence, then with what is available.
static void device_fill(void *, u8 *stream, int size) {
    memset(stream, audio.spec.silence, (size_t)size);
    const u32 from = sound.taken;
    const u32 left = sound.put - from;
    const u32 n = left < (u32)size ? left : (u32)size;
    if (n == 0) {
        return;
    }
    const u32 at = from % AUDIO_RING;
    const u32 first = n < AUDIO_RING - at ? n : AUDIO_RING - at;
    SDL_MixAudioFormat(stream, sound.ring + at, audio.spec.format, first, sound.sound_volume);
    SDL_MixAudioFormat(stream + first, sound.ring, audio.spec.format, n - first, sound.sound_volume);
    sound.heard = true;
    sound.taken = from + n;
    SDL_SemPost(sound.wake);
}

// Returns the samples of a block: 20 ms at most.
static u16 block_of(int rate) {
    u16 samples = BLOCK_LEAST;
    while (samples * 2 <= rate / 50) {
        samples = (u16)(samples * 2);
    }
    return samples;
}

bool sound_device_open(int rate, SDL_AudioFormat format, u8 channels) {
    SDL_AudioSpec want = {};
    audio.hold = rate < RATE_LEAST ? (u32)((RATE_LEAST + rate - 1) / rate) : 1;
    audio.frame_bytes = channels * SDL_AUDIO_BITSIZE(format) / 8u;
    want.freq = rate * (int)audio.hold;
    want.format = format;
    want.channels = channels;
    want.samples = block_of(want.freq);
    want.callback = device_fill;
    sound.put = 0;
    sound.taken = 0;
    const std::lock_guard<std::mutex> guard(audio.lock);
    audio.primed = false;
    audio.device = win_device_open(&want, &audio.spec);
    return audio.device != 0;
}

void sound_device_close(void) {
    SDL_AudioDeviceID device;
    {
        const std::lock_guard<std::mutex> guard(audio.lock);
        device = audio.device;
        audio.device = 0;
    }
    if (device) {
        win_device_close(device);
    }
}

static void device_go() {
    const std::lock_guard<std::mutex> guard(audio.lock);
    if (!audio.primed) {
        audio.primed = true;
        SDL_PauseAudioDevice(audio.device, audio.state_pause);
    }
}

static bool ring_put(const u8 *data, u32 size) {
    while (size > 0 && !sound.type_p) {
        const u32 room = AUDIO_RING - (sound.put - sound.taken);
        if (room == 0) {
            device_go();
            SDL_SemWait(sound.wake);
            continue;
        }
        const u32 at = sound.put % AUDIO_RING;
        u32 n = size < room ? size : room;
        n = n < AUDIO_RING - at ? n : AUDIO_RING - at;
        memcpy(sound.ring + at, data, n);
        sound.put += n;
        data += n;
        size -= n;
    }
    return !sound.type_p;
}

bool sound_feed(const u8 *data, u32 size) {
    if (audio.hold == 1) {
        return ring_put(data, size);
    }
    bool on = true;
    for (u32 at = 0; on && at + audio.frame_bytes <= size; at += audio.frame_bytes) {
        for (u32 i = 0; on && i < audio.hold; i++) {
            on = ring_put(data + at, audio.frame_bytes);
        }
    }
    return on;
}

bool sound_drain(void) {
    device_go();
    while (sound.put != sound.taken && !sound.type_p) {
        SDL_SemWait(sound.wake);
    }
    return !sound.type_p;
}

void sound_complain(const char *why) {
    static char reported[AUDIO_PATH];
    if (strcmp(reported, sound.audio_file) != 0) {
        strcpy(reported, sound.audio_file);
        zof_printf("sound %s: %s", sound.audio_file, why);
    }
}

void sound_stop_wait(u32 ms) {
    while (!sound.type_p) {
        if (ms == 0) {
            SDL_SemWait(sound.wake);
        } else if (SDL_SemWaitTimeout(sound.wake, ms) == SDL_MUTEX_TIMEDOUT) {
            return;
        }
    }
}

static void pause_set(u8 paused) {
    const std::lock_guard<std::mutex> guard(audio.lock);
    audio.state_pause = paused;
    if (audio.device && audio.primed) {
        SDL_PauseAudioDevice(audio.device, paused);
    }
}

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
    pause_set(0);
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
    const bool wav = strcasecmp(extension, ".wav") == 0;
    if (wav || strcasecmp(extension, ".mp3") == 0 || strcasecmp(extension, ".aac") == 0 ||
        strcasecmp(extension, ".mp4") == 0) {
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
        pause_set(0);
        return 0;
    case ZOF_MEDIA_STOP:
        sound_stop();
        return 0;
    case ZOF_MEDIA_PAUSE:
        pause_set(1);
        return 0;
    case ZOF_MEDIA_RESUME:
        pause_set(0);
        return 0;
    default:
        return -1;
    }
}

static s32 win_audio_get_state(void) {
    if (!sound.play_state) {
        return ZOF_MEDIA_STOP;
    }
    const std::lock_guard<std::mutex> guard(audio.lock);
    return audio.state_pause ? ZOF_MEDIA_PAUSE : ZOF_MEDIA_PLAY;
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
