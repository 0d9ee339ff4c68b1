// The sound devices: one for the sound and one for tones, opened and closed under one lock. Many hosts have only one
// device. There a sound takes it from the tones in one step, so that no tone can reopen it in between.
#include <mutex>

#include "port/win_sound.h"

static struct {
    std::mutex lock;
    SDL_AudioDeviceID tone; // 0 while closed
} devices;

// SDL counts audio starts in eight bits, so it is started only once.
static SDL_AudioDeviceID device_open(const SDL_AudioSpec *want, SDL_AudioSpec *got) {
    const bool ready = SDL_WasInit(SDL_INIT_AUDIO) || SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    return ready ? SDL_OpenAudioDevice(nullptr, 0, want, got, 0) : 0;
}

SDL_AudioDeviceID win_device_open(const SDL_AudioSpec *want, SDL_AudioSpec *got) {
    const std::lock_guard<std::mutex> guard(devices.lock);
    const SDL_AudioDeviceID device = device_open(want, got);
    if (device || !devices.tone) {
        return device;
    }
    SDL_CloseAudioDevice(devices.tone);
    devices.tone = 0;
    return device_open(want, got);
}

void win_device_close(SDL_AudioDeviceID device) {
    const std::lock_guard<std::mutex> guard(devices.lock);
    SDL_CloseAudioDevice(device);
}

bool win_device_tone(const SDL_AudioSpec *want, void (*queue)(SDL_AudioDeviceID device, u32 ms), u32 ms) {
    const std::lock_guard<std::mutex> guard(devices.lock);
    if (!devices.tone) {
        devices.tone = device_open(want, nullptr);
    }
    if (!devices.tone) {
        return false;
    }
    queue(devices.tone, ms);
    SDL_PauseAudioDevice(devices.tone, 0);
    return true;
}
