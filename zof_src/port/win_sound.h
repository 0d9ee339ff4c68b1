// The sound module's parts. Internal to the port.
#ifndef WIN_SOUND_H
#define WIN_SOUND_H

#include <SDL.h>

#include <atomic>

#include "zof_lib/zof_type.h"

enum { AUDIO_PATH = 128, AUDIO_RING = 32768 };

// What the graphics thread, the playing thread and SDL's audio thread share. One sound at a time.
struct win_sound {
    char audio_file[AUDIO_PATH];  // written while no thread plays
    std::atomic<bool> type_p;     // asks the playing thread to end
    std::atomic<u8> play_state;   // 1 while playing
    std::atomic<u8> cycle;        // from the end to the start again
    std::atomic<u8> sound_volume; // 128 is the file's own
    std::atomic<bool> heard;      // the device has taken something of this sound
    SDL_sem *wake;                // the device has taken something, or type_p was set
    u8 ring[AUDIO_RING];          // from the playing thread to the device, so that frames follow without a gap
    std::atomic<u32> put, taken;  // bytes since the device was opened
};
extern win_sound sound;

// Opens a device, paused; 0 with SDL's reason. Tones and sounds come here: SDL counts its starts in eight bits, and two
// threads that open at once may be given the same device.
SDL_AudioDeviceID win_audio_open(const SDL_AudioSpec *want, SDL_AudioSpec *got);

// For the playing thread. Opens the device for these samples; false with SDL's reason. Close lets go of it.
bool sound_device_open(int rate, SDL_AudioFormat format, u8 channels);
void sound_device_close(void);

// Takes the beeper's device, which asks for one again at its next tone; false when it had none. Any thread.
bool win_beep_yield(void);

// Hands over so many bytes, as there is room; the drain waits until the device has taken all. False when the thread is
// to end.
bool sound_feed(const u8 *data, u32 size);
bool sound_drain(void);

// Tells why the file is not heard; once, though every touch may ask for it again.
void sound_complain(const char *why);

// Waits to be asked to end, `ms` at most, 0 without limit.
void sound_stop_wait(u32 ms);

// The bodies of the playing thread.
int mythread_wav(void *);
int mythread_others(void *);

#endif
