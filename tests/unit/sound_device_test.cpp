// A host with a single sound device, which tones and sounds share.
#include <SDL.h>

#include <atomic>
#include <thread>

#include "drv/zof_drv_beep.h"
#include "eventually.h"
#include "port/zof_port.h"
#include "temp_project.h"

// A device that cannot be opened while it is open.
static struct {
    std::atomic<int> open, sounds; // sounds: how often a sound has opened it
} device;

extern "C" SDL_AudioDeviceID __wrap_SDL_OpenAudioDevice(const char *, int, const SDL_AudioSpec *want,
                                                        SDL_AudioSpec *got, int) {
    int closed = 0;
    if (!device.open.compare_exchange_strong(closed, 1)) {
        SDL_SetError("Audio device already open");
        return 0;
    }
    device.sounds += want->callback != nullptr;
    if (got) {
        *got = *want;
    }
    return 2;
}

extern "C" void __wrap_SDL_CloseAudioDevice(SDL_AudioDeviceID) {
    usleep(1000); // a real device waits for its last block, while the next user already waits
    device.open--;
}

extern "C" void __wrap_SDL_Delay(Uint32) { // tones follow each other without a pause
    sched_yield();
}

TEST_CASE("a sound takes the only device from the tones, and no tone gets in between") {
    enum { ROUNDS = 300 };
    temp_project_t project;
    project.write("a.wav", "RIFF" + le(36, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) + le(8000, 4) +
                               le(8000, 4) + le(1, 2) + le(8, 2) + "data" + le(4, 4) + "abcd");
    win_audio_init();
    CHECK(win_beep_on(0) == 0);
    std::atomic<bool> end = false;
    std::thread tones([&] {
        while (!end) {
            win_beep_on(0);
        }
        SDL_TLSCleanup(); // SDL frees error texts only for its own threads
    });
    int round = 0;
    const std::string log = printed([&] {
        for (; round < ROUNDS && device.sounds == round; round++) {
            zof_drv_audio_set_src(project.path("a.wav").c_str());
            eventually([&] { return device.sounds > round || zof_drv_audio_get_state() == ZOF_MEDIA_STOP; });
            zof_drv_audio_set_state(ZOF_MEDIA_STOP);
        }
        end = true;
        tones.join();
    });
    CHECK(device.sounds == ROUNDS);
    CHECK(!contains(log, "can't open audio"));
    CHECK(win_beep_on(0) == 0); // tones can use it again
    CHECK(device.open == 1);
}
