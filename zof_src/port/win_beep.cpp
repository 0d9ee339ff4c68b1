// The tone of the beeper through SDL's audio, on the beeper's thread. Some hosts have one sound device only: the beeper
// lets go of it when a sound is to be played.
#include <SDL.h>

#include <math.h>

#include <mutex>

#include "drv/zof_drv_beep.h"
#include "port/win_sound.h"
#include "zof_lib/zof_stdio.h"

static constexpr u32 RATE = 44100, TONE_HZ = 2000, FLOOR_MS = 400, CHUNK = 441, RAMP = 220;

// The sound device; the thread that plays sounds may close it.
static struct {
    std::mutex lock;
    SDL_AudioDeviceID opened;
    bool said; // that there is none
} beep;

// The device, kept open; 0 when there is none, which is said once. A device that somebody else has is asked for again
// at the next tone.
static SDL_AudioDeviceID device() {
    if (beep.opened) {
        return beep.opened;
    }
    SDL_AudioSpec want = {};
    want.freq = RATE;
    want.format = AUDIO_S16SYS;
    want.channels = 1;
    want.samples = 1024;
    beep.opened = win_audio_open(&want, nullptr);
    if (!beep.opened && !beep.said) {
        zof_printf("beeper: no sound device (%s); tones are silent", SDL_GetError());
        beep.said = true;
    }
    return beep.opened;
}

bool win_beep_yield(void) {
    const std::lock_guard<std::mutex> guard(beep.lock);
    const bool had = beep.opened != 0;
    if (had) {
        SDL_CloseAudioDevice(beep.opened);
    }
    beep.opened = 0;
    return had;
}

// Sample `at` of `count`: a sine that swells and fades in a few ms, so that it begins and ends without a click.
static Sint16 sample(u32 at, u32 count) {
    const u32 edge = at < count - at ? at : count - at;
    const double swell = edge < RAMP ? (double)edge / RAMP : 1;
    return (Sint16)(8000 * swell * sin(2 * 3.14159265358979 * TONE_HZ * at / RATE));
}

// True when it can be heard.
static bool tone_begin(u32 ms) {
    const std::lock_guard<std::mutex> guard(beep.lock);
    const SDL_AudioDeviceID id = device();
    if (id) {
        const u32 count = (u32)((u64)RATE * ms / 1000);
        Sint16 chunk[CHUNK];
        for (u32 at = 0; at < count;) {
            u32 n = 0;
            for (; n < CHUNK && at < count; n++, at++) {
                chunk[n] = sample(at, count);
            }
            SDL_QueueAudio(id, chunk, n * sizeof(chunk[0]));
        }
        SDL_PauseAudioDevice(id, 0);
    }
    return id != 0;
}

s32 win_beep_on(u16 time) {
    const u32 ms = (u32)time + FLOOR_MS;
    const bool heard = tone_begin(ms);
    SDL_Delay(ms);
    return heard ? 0 : -1;
}
