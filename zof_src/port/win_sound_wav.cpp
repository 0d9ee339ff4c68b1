// WAV files, with SDL. A file that has finished stays in the state "playing", silent, until it is stopped.
#include "drv/zof_drv_file.h"
#include "port/win_sound.h"
#include "zof_lib/zof_stdio.h"

enum { FILE_MOST = 64 << 20, RIFF_HEAD = 12, CHUNK_HEAD = 8, RATE_MOST = 192000, EMPTY_PAUSE_MS = 20 };

static u32 le32(const u8 *p) {
    return (u32)p[0] | (u32)p[1] << 8 | (u32)p[2] << 16 | (u32)p[3] << 24;
}

// A chunk that claims more than the file has is cut to it: SDL would allocate what it claims. Returns true if the end
// of the file is missing; programs that write to a pipe claim a length that no file has.
static bool lengths_bound(u8 *file, u32 size) {
    for (u64 at = RIFF_HEAD; at + CHUNK_HEAD <= size;) {
        u8 *length = file + at + 4;
        const u32 left = size - (u32)at - CHUNK_HEAD;
        const u32 claimed = le32(length);
        if (claimed > left) {
            for (u32 i = 0; i < 4; i++) {
                length[i] = (u8)(left >> 8 * i);
            }
            return claimed < FILE_MOST;
        }
        at += CHUNK_HEAD + (u64)claimed + (claimed & 1);
    }
    return false;
}

// Returns null, or why the file cannot be played.
static const char *wav_load(const char *path, SDL_AudioSpec *spec, u8 **data, u32 *size, bool *cut) {
    u32 length = 0;
    const char *why = nullptr;
    u8 *file = zof_file_read_all(path, FILE_MOST, &length, &why);
    bool good = file;
    if (file) {
        *cut = lengths_bound(file, length);
        SDL_ClearError();
        good = SDL_LoadWAV_RW(SDL_RWFromConstMem(file, (int)length), 1, spec, data, size);
        why = SDL_GetError();
    }
    if (good && (spec->freq <= 0 || spec->freq > RATE_MOST)) {
        SDL_FreeWAV(*data);
        good = false;
        why = "its rate is out of range";
    }
    zof_free(file);
    return good ? nullptr : why;
}

const char *sound_wav_fault(const char *path) {
    SDL_AudioSpec spec = {};
    u8 *data = nullptr;
    u32 size = 0;
    bool cut = false;
    const char *why = wav_load(path, &spec, &data, &size, &cut);
    if (!why) {
        SDL_FreeWAV(data);
    }
    return why ? why : cut ? "cut short: its end is missing" : nullptr;
}

// False when there is nothing more to play.
static bool wav_play() {
    SDL_AudioSpec spec = {};
    u8 *data = nullptr;
    u32 size = 0;
    bool cut = false;
    const char *why = wav_load(sound.audio_file, &spec, &data, &size, &cut);
    if (why) {
        sound_complain(why);
        return false;
    }
    const bool opened = sound_device_open(spec.freq, spec.format, spec.channels);
    if (!opened) {
        sound_complain("can't open audio.\n");
    } else if (size == 0) {
        sound_stop_wait(EMPTY_PAUSE_MS); // and play again, if requested
    } else if (sound_feed(data, size) && sound_drain()) {
        sound_stop_wait(0);
    }
    sound_device_close();
    SDL_FreeWAV(data);
    return opened && size == 0;
}

int mythread_wav(void *) {
    while (wav_play() && sound.cycle && !sound.type_p) {
    }
    sound.play_state = 0;
    return 0;
}
