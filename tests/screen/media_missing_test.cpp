// Clips, sounds and pictures on a host whose FFmpeg lacks a library.
#include "eventually.h"
#include "screen_fixture.h"
#include "temp_project.h"

static std::vector<std::string> asked_for; // libraries

extern "C" void *__real_zof_host_library_open(const char *name, s32 major);

extern "C" void *__wrap_zof_host_library_open(const char *name, s32 major) {
    asked_for.push_back(name);
    return strcmp(name, "swscale") == 0 ? nullptr : __real_zof_host_library_open(name, major);
}

TEST_CASE("pictures and tones work without FFmpeg, and what needs it fails with a single line") {
    screen_open(100, 100);
    zof_image_init();
    win_video_init();
    win_audio_init();
    lv_img_header_t header = {};
    CHECK(lv_img_decoder_get_info(ZOF_MEDIA_DIR "/kinds/RGB.png", &header) == LV_RES_OK);
    temp_project_t project;
    project.write("a.wav", "RIFF" + le(36, 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) + le(8000, 4) +
                               le(8000, 4) + le(1, 2) + le(8, 2) + "data" + le(4, 4) + "abcd");
    zof_drv_audio_set_src(project.path("a.wav").c_str());
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
    CHECK(asked_for.empty());

    for (const char *name : {"a.mp3", "a.mp4"}) {
        project.write(name, "anything");
    }
    lv_obj_t *player = zof_drv_video_create(lv_scr_act());
    const std::string log = printed([&] {
        zof_drv_audio_set_src(project.path("a.mp3").c_str());
        CHECK(eventually([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
        zof_drv_video_set_src(player, project.path("a.mp4").c_str());
        CHECK(eventually([] { return zof_drv_audio_get_state() == ZOF_MEDIA_STOP; }));
        zof_drv_video_set_state(player, ZOF_MEDIA_PLAY);
        CHECK(lv_ffmpeg_get_frame_num(project.path("a.mp4").c_str()) == -1);
        lv_img_decoder_get_info(ZOF_MEDIA_DIR "/kinds/RGB.jpg", &header);
        screen_step(100);
    });
    CHECK(contains(log, "media: FFmpeg's library swscale, version "));
    CHECK(std::count(log.begin(), log.end(), '\n') == 1);
    CHECK(asked_for.back() == "swscale");
    zof_drv_audio_set_state(ZOF_MEDIA_STOP);
}
