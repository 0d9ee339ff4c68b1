// Sounds and clips: the first byte chooses the kind, the rest is the file. A clip is also shown.
#include <SDL.h>

#include <thread>

#include "fuzz.h"
#include "screen_fixture.h"
#include "temp_project.h"

// A sound device that takes everything at once: SDL's own wait for the time that it would be heard.
static struct {
    SDL_AudioSpec spec;
    std::thread taker;
    std::atomic<bool> on;
} device;

extern "C" SDL_AudioDeviceID __wrap_SDL_OpenAudioDevice(const char *, int, const SDL_AudioSpec *want,
                                                        SDL_AudioSpec *got, int) {
    *got = *want;
    got->silence = want->format == AUDIO_U8 ? 0x80 : 0;
    device.spec = *got;
    return 2;
}

extern "C" void __wrap_SDL_PauseAudioDevice(SDL_AudioDeviceID, int paused) {
    if (paused || device.on.exchange(true)) {
        return;
    }
    device.taker = std::thread([] {
        std::vector<u8> block((size_t)device.spec.samples * device.spec.channels *
                              SDL_AUDIO_BITSIZE(device.spec.format) / 8);
        while (device.on && !block.empty()) {
            device.spec.callback(device.spec.userdata, block.data(), (int)block.size());
            std::this_thread::yield();
        }
    });
}

extern "C" void __wrap_SDL_CloseAudioDevice(SDL_AudioDeviceID) {
    if (device.on.exchange(false)) {
        device.taker.join();
    }
}

static temp_project_t &project = *new temp_project_t;
static lv_obj_t *player;

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
    fuzz_quiet();
    atexit([] { project.~temp_project_t(); });
    screen_open(64, 48);
    zof_ffmpeg_init();
    win_audio_init();
    win_video_init();
    player = zof_drv_video_create(lv_scr_act());
    zof_drv_video_set_pos(player, 0, 0, 64, 48);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const char *const ends[] = {"x.wav", "x.mp3", "x.aac", "x.mp4"};
    fuzz_input in = {data, size};
    const u32 kind = fuzz_byte(in) % 4;
    project.write(ends[kind], std::string((const char *)in.at, in.size));
    const std::string path = project.path(ends[kind]);
    if (kind == 3) {
        zof_drv_video_set_src(player, path.c_str());
        zof_drv_video_set_state(player, ZOF_MEDIA_PLAY);
        screen_step(400);
        fuzz_must(zof_drv_video_get_state(player) != -1, "a player stays one");
        zof_drv_video_set_src(player, "");
    } else {
        zof_drv_audio_set_src(path.c_str());
    }
    for (u32 i = 0; i < 40 && zof_drv_audio_get_state() == ZOF_MEDIA_PLAY; i++) {
        SDL_Delay(1);
    }
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    fuzz_must(zof_drv_audio_get_state() == ZOF_MEDIA_STOP, "a stop stops");
    return 0;
}
