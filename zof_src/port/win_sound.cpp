// The sound's device: the playing thread fills a ring, SDL's audio thread empties it, and they wait for each other on a
// semaphore.
#include <string.h>

#include <mutex>

#include "port/win_sound.h"
#include "zof_lib/zof_stdio.h"

win_sound sound = {.sound_volume = SDL_MIX_MAXVOLUME};

// The device, which the playing thread opens and closes and the graphics thread pauses.
static struct {
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

void sound_pause_set(u8 paused) {
    const std::lock_guard<std::mutex> guard(audio.lock);
    audio.state_pause = paused;
    if (audio.device && audio.primed) {
        SDL_PauseAudioDevice(audio.device, paused);
    }
}

bool sound_paused() {
    const std::lock_guard<std::mutex> guard(audio.lock);
    return audio.state_pause != 0;
}
