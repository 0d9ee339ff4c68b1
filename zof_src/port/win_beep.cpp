// The tone of the beeper through SDL's audio, on the beeper's thread.
#include <SDL.h>

#include <math.h>

#include "drv/zof_drv_beep.h"
#include "port/win_sound.h"
#include "zof_lib/zof_stdio.h"

static constexpr u32 RATE = 44100, TONE_HZ = 2000, FLOOR_MS = 400, CHUNK = 441, RAMP = 220;

// Sample `at` of `count`: a sine that fades in and out within a few ms, so that it begins and ends without a click.
static Sint16 sample(u32 at, u32 count) {
    const u32 edge = at < count - at ? at : count - at;
    const double swell = edge < RAMP ? (double)edge / RAMP : 1;
    return (Sint16)(8000 * swell * sin(2 * 3.14159265358979 * TONE_HZ * at / RATE));
}

static void tone_queue(SDL_AudioDeviceID device, u32 ms) {
    const u32 count = (u32)((u64)RATE * ms / 1000);
    Sint16 chunk[CHUNK];
    for (u32 at = 0; at < count;) {
        u32 n = 0;
        for (; n < CHUNK && at < count; n++, at++) {
            chunk[n] = sample(at, count);
        }
        SDL_QueueAudio(device, chunk, n * sizeof(chunk[0]));
    }
}

// Returns whether the tone can be heard. Without a device this is logged once; each tone tries again, because a sound
// may be using the only one.
static bool tone_begin(u32 ms) {
    static bool reported;
    SDL_AudioSpec want = {};
    want.freq = RATE;
    want.format = AUDIO_S16SYS;
    want.channels = 1;
    want.samples = 1024;
    const bool heard = win_device_tone(&want, tone_queue, ms);
    if (!heard && !reported) {
        zof_printf("beeper: no sound device (%s); tones are silent", SDL_GetError());
        reported = true;
    }
    return heard;
}

s32 win_beep_on(u16 time) {
    const u32 ms = (u32)time + FLOOR_MS;
    const bool heard = tone_begin(ms);
    SDL_Delay(ms);
    return heard ? 0 : -1;
}
