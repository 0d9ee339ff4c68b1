// Sounds and clips: the first byte selects the kind and the actions on a clip, the rest is the file. Nothing waits and
// no other thread runs: the body of the playing thread runs where it would be started, and the device takes a block
// whenever that body would wait for it.
#include <SDL.h>

#include "drv/zof_drv_media.h"
#include "fuzz_file.h"
#include "port/win_sound.h"
#include "screen_fixture.h"
#include "temp_project.h"

enum { WIDTH = 64, HEIGHT = 48, PASSES = 3, CHANNELS_MOST = 8, STEP_MS = 150 }; // some frames
enum { REPLAY = 1, RESIZE = 2, COURSE = 4 };                                    // of a clip, after the kind

static struct {
    SDL_AudioSpec spec;
    std::vector<u8> block;
    u32 passes; // through a file played in a loop
} device;

extern "C" SDL_Thread *__wrap_SDL_CreateThread(SDL_ThreadFunction body, const char *, void *data) {
    device.passes = 0;
    body(data);
    return (SDL_Thread *)&device;
}

extern "C" void __wrap_SDL_WaitThread(SDL_Thread *, int *) {
}

extern "C" SDL_AudioDeviceID __wrap_SDL_OpenAudioDevice(const char *, int, const SDL_AudioSpec *want,
                                                        SDL_AudioSpec *got, int) {
    if (want->channels < 1 || want->channels > CHANNELS_MOST) {
        return 0;
    }
    *got = *want;
    got->silence = want->format == AUDIO_U8 ? 0x80 : 0;
    device.spec = *got;
    device.block.resize((size_t)want->samples * want->channels * SDL_AUDIO_BITSIZE(want->format) / 8);
    if (++device.passes > PASSES) {
        sound.type_p = true;
    }
    return 2;
}

extern "C" void __wrap_SDL_PauseAudioDevice(SDL_AudioDeviceID, int) {
}
extern "C" void __wrap_SDL_CloseAudioDevice(SDL_AudioDeviceID) {
}

extern "C" int __wrap_SDL_SemWait(SDL_sem *) {
    if (sound.put == sound.taken) { // a finished sound waits to be stopped
        sound.type_p = true;
    } else {
        device.spec.callback(device.spec.userdata, device.block.data(), (int)device.block.size());
    }
    return 0;
}

extern "C" int __wrap_SDL_SemWaitTimeout(SDL_sem *, u32) {
    return SDL_MUTEX_TIMEDOUT;
}

static temp_project_t project;
static lv_obj_t *player;

void fuzz_open() {
    screen_open(WIDTH, HEIGHT);
    zof_image_init();
    win_audio_init();
    win_video_init();
    player = zof_drv_video_create(lv_scr_act());
}

static void clip_play(const std::string &path, u32 how) {
    static const std::vector<u32> courses[] = {
        {ZOF_MEDIA_PLAY},
        {ZOF_MEDIA_PLAY, ZOF_MEDIA_PAUSE, ZOF_MEDIA_RESUME},
        {ZOF_MEDIA_PLAY, ZOF_MEDIA_STOP, ZOF_MEDIA_PLAY},
        {ZOF_MEDIA_PLAY, ZOF_MEDIA_PAUSE, ZOF_MEDIA_RESUME, ZOF_MEDIA_STOP, ZOF_MEDIA_PLAY}};
    zof_drv_video_set_pos(player, 0, 0, WIDTH, HEIGHT);
    zof_drv_video_set_one_replay(player, how & REPLAY);
    zof_drv_video_set_src(player, path.c_str());
    for (u32 state : courses[how / COURSE % std::size(courses)]) {
        zof_drv_video_set_state(player, state);
        screen_step(STEP_MS);
    }
    if (how & RESIZE) {
        zof_drv_video_set_pos(player, 5, 5, HEIGHT - 1, WIDTH + 1);
        screen_step(STEP_MS);
    }
    fuzz_must(zof_drv_video_get_state(player) != -1, "the player stays valid");
    zof_drv_video_set_src(player, nullptr);
    zof_drv_video_set_one_replay(player, 0);
}

void fuzz_one(fuzz_input &in) {
    static const char *const ends[] = {"x.wav", "x.mp3", "x.aac", "x.mp4"};
    const u32 first = fuzz_byte(in);
    const char *name = ends[first % 4];
    fuzz_file_set(project.path(name), fuzz_text(in));
    if (first % 4 == 3) {
        clip_play(project.path(name), first / 4);
    } else {
        zof_drv_audio_set_one_replay(first / 4 & REPLAY);
        zof_drv_audio_set_src(project.path(name).c_str());
    }
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    fuzz_must(zof_drv_audio_get_state() == ZOF_MEDIA_STOP, "the sound has stopped");
}
