// The video control, with the desktop's driver.
#include "media.h"
#include "view_project.h"

// A second of 60 x 40, each frame of a colour of its own.
static void clip_write(const view_project_t &project, const char *name) {
    media_clip clip;
    clip.width = 60;
    clip.height = 40;
    clip.frames = 25;
    clip.codec = "png";
    clip.paint = [](u32 *pixels, s32 w, s32 h, s32 n) { std::fill_n(pixels, w * h, 0xFF002060 | (u32)n << 18); };
    std::filesystem::create_directories(project.path("video"));
    REQUIRE(media_write(project.path(name).c_str(), clip));
}

TEST_CASE("a video control plays the project's clips in its box, and goes with its view") {
    view_project_t project;
    clip_write(project, "video/a.mp4");
    project.view(2, {ctrl(ZOF_CTRL_LABEL, 1)});
    project.view(1,
                 {ctrl(ZOF_CTRL_OBJ, 9, "", box(0, 0, 320, 240), filled(0x406060)),
                  ctrl(ZOF_CTRL_VIDEO, 1, R"("volume": 99, "play_en": true)", box(20, 30, 120, 80) + R"(, "pub": 1)")});
    project.open(320, 240);
    zof_ffmpeg_init();
    win_video_init();
    CHECK(printed([] { zof_view_set_dis_view(1); }) == "");
    for (const char *name : {"a.avi", "a", "", (const char *)nullptr}) {
        CHECK(zof_video_set_src(at(1), name) == -1);
    }
    zof_video_set_src(at(1), "a.mp4");
    zof_video_set_state(at(1), ZOF_MEDIA_PLAY);
    screen_step(420);
    CHECK(screen_is_golden("video"));
    zof_video_set_state(at(1), ZOF_MEDIA_PAUSE);
    zof_video_set_state(at(1), ZOF_MEDIA_PAUSE); // asked twice it is a stop
    CHECK(((zof_video_attr_t *)at(1)->attr)->state == ZOF_MEDIA_STOP);
    zof_video_set_state(at(1), ZOF_MEDIA_RESUME);
    screen_step(1600); // over its end: it replays
    CHECK(zof_video_get_state(at(1)) == ZOF_MEDIA_PLAY);
    CHECK(zof_ctrl_delete(at(1)) == 0); // nothing: the object is the driver's
    CHECK(at(1)->obj != nullptr);
    for (u32 view : {2, 1, 2, 1}) {
        zof_view_set_dis_view(view);
        screen_step(200);
    }
}
