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
    std::atomic<u8> cycle;        // start again at the end
    std::atomic<u8> sound_volume; // 128 is the file's own
    std::atomic<bool> heard;      // the device has taken some of this sound
    SDL_sem *wake;                // posted when the device has taken something or type_p was set
    u8 ring[AUDIO_RING];          // from the playing thread to the device, without gaps between frames
    std::atomic<u32> put, taken;  // bytes since the device was opened
};
extern win_sound sound;

// Opens the device for the sound, paused; returns 0 with SDL's reason. Where there is only one device, the tones lose
// it.
SDL_AudioDeviceID win_device_open(const SDL_AudioSpec *want, SDL_AudioSpec *got);
void win_device_close(SDL_AudioDeviceID device);
// Calls `queue` with the device for tones and starts it; the device is opened if necessary and stays open. Returns
// false with SDL's reason if none can be opened. Any thread.
bool win_device_tone(const SDL_AudioSpec *want, void (*queue)(SDL_AudioDeviceID device, u32 ms), u32 ms);

// For the playing thread. Opens the device for these samples, of more than 0 Hz; false with SDL's reason. Frames of a
// low rate are repeated on their way to it, so that closing it never takes more than about 50 ms.
bool sound_device_open(int rate, SDL_AudioFormat format, u8 channels);
void sound_device_close(void);

// Pass on whole frames as there is room; the drain waits until the device has taken all. Return false when the thread
// must end.
bool sound_feed(const u8 *data, u32 size);
bool sound_drain(void);

// Logs why the file is not heard, only once, although every touch may try it again.
void sound_complain(const char *why);

// For the graphics thread: pauses the device or lets it run, now or when it has something to play.
void sound_pause_set(u8 paused);
bool sound_paused();

// Returns why a WAV file cannot be played as a whole, or null. Any thread.
const char *sound_wav_fault(const char *path);

// Waits until the thread is asked to end, at most `ms`, or without limit for 0.
void sound_stop_wait(u32 ms);

// The bodies of the playing thread.
int mythread_wav(void *);
int mythread_others(void *);

#endif
