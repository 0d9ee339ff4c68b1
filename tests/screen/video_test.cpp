// Clips and still pictures with FFmpeg, and the video control: exact pixels, the clip's own time, its end, and broken
// files.
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "media.h"
#include "view_project.h"

extern "C" unsigned lodepng_decode32(unsigned char **out, unsigned *w, unsigned *h, const unsigned char *in,
                                     size_t insize);

enum : u32 { GROUND = 0x102030 };

// Frame n has one colour that encodes n, except its upper left quarter, which is transparent.
static u32 colour(s32 n) {
    return (u32)(n + 1) << 16 | 0x4000 | (u32)(255 - n);
}

static void paint(u32 *pixels, s32 w, s32 h, s32 n) {
    for (s32 i = 0; i < w * h; i++) {
        pixels[i] = i % w < w / 2 && i / w < h / 2 ? 0 : 0xFF000000 | colour(n);
    }
}

static media_clip exact_clip() {
    media_clip clip;
    clip.width = 60;
    clip.height = 40;
    clip.rate_num = 30;
    clip.frames = 60;
    clip.codec = "png";
    clip.paint = paint;
    return clip;
}

struct room_t : temp_project_t {
    lv_obj_t *player;

    room_t() {
        screen_open(320, 240);
        zof_image_init();
        win_video_init();
        lv_obj_set_style_bg_color(lv_scr_act(), lv_color_hex(GROUND), 0);
        player = zof_drv_video_create(lv_scr_act());
        REQUIRE(player);
        CHECK(zof_drv_video_set_pos(player, 20, 30, 60, 40) == 0);
    }

    std::string make(const std::string &name, const media_clip &clip) const {
        REQUIRE(media_write((top + "/" + name).c_str(), clip));
        return top + "/" + name;
    }

    // Writes a clip and plays it.
    void play(const media_clip &clip) const {
        zof_drv_video_set_src(player, make("clip.mp4", clip).c_str());
        zof_drv_video_set_state(player, ZOF_MEDIA_PLAY);
    }

    // The number of the shown frame; -1 for none.
    s32 frame() const {
        return (s32)(screen_pixel(70, 60) >> 16) - 1;
    }
};

TEST_CASE("a clip is shown pixel by pixel at the rate of its stream, however coarse the main loop's steps are") {
    room_t room;
    media_clip clip = exact_clip();
    clip.rate_num = 30000;
    clip.rate_den = 1001;
    clip.frames = 250;
    clip.paint = [](u32 *pixels, s32 w, s32 h, s32 n) { std::fill_n(pixels, w * h, 0xFF000000 | colour(n)); };
    const std::string path = room.make("a.mp4", clip);
    CHECK(lv_ffmpeg_get_frame_num(path.c_str()) == 250);
    CHECK(zof_drv_video_set_src(room.player, path.c_str()) == -1); // there is no sound driver; the picture is loaded
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    for (const u32 seconds : {1, 2, 4}) {
        while (screen_now < seconds * 1000) {
            screen_now += 9; // a pause of 5 ms plus the time of a turn
            lv_timer_handler();
        }
        CAPTURE(seconds);
        CHECK(std::abs(room.frame() - (s32)(seconds * 30000 / 1001)) <= 1);
    }
    for (const u32 stall_ms : {20, 90, 900, 1500}) { // the sound continues meanwhile: the picture must not lag
        CAPTURE(stall_ms);
        screen_now += stall_ms;
        screen_step(85);
        CHECK(std::abs(room.frame() - (s32)(screen_now * 30 / 1001)) <= 1);
    }
}

// The grey of a frame, far enough from its neighbours for a lossy codec.
static void paint_grey(u32 *pixels, s32 w, s32 h, s32 n) {
    std::fill_n(pixels, w * h, 0xFF000000 | (u32)(n * 9) * 0x010101);
}

TEST_CASE("frames that the decoder holds back are shown at the end of the clip, and again when it starts over") {
    room_t room;
    media_clip clip = exact_clip();
    clip.width = clip.height = 64;
    clip.codec = "mpeg4";
    clip.frames = 24;
    clip.b_frames = 6;
    clip.paint = paint_grey;
    zof_drv_video_set_src(room.player, room.make("b.mp4", clip).c_str());
    for (s32 run = 0; run < 2; run++) {
        zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
        for (const s32 n : {0, 9, 20, 21, 22, 23, 23}) {
            CAPTURE(n);
            const auto shown = [n] { return std::abs((s32)(screen_pixel(70, 60) & 0xFF) - n * 9) <= 3; };
            while (!shown() && zof_drv_video_get_state(room.player) == ZOF_MEDIA_PLAY) {
                screen_step(5);
            }
            CHECK(shown());
        }
        screen_step(100);
        CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    }
}

TEST_CASE("a clip of variable frame rate shows each frame at its own time") {
    static const s32 times[] = {0, 1, 2, 30, 31, 90, 91, 100}; // in 1/30 s
    room_t room;
    media_clip clip = exact_clip();
    clip.times = times;
    clip.frames = (s32)std::size(times);
    room.play(clip);
    for (s32 n = 0; n + 1 < clip.frames; n++) {
        CAPTURE(n);
        while (screen_now + 7 < (u32)(times[n + 1] * 1000 / 30)) {
            screen_step(5);
        }
        CHECK(room.frame() == n);
        screen_step(10);
        CHECK(room.frame() == n + 1);
    }
}

TEST_CASE("a clip is transparent, scaled, paused, resumed and stopped, and ends with its last frame or starts again") {
    room_t room;
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY); // without a clip: nothing
    room.play(exact_clip());
    screen_step(515);
    CHECK(room.frame() == 15);
    screen_check(
        {{20, 30, GROUND}, {49, 49, GROUND}, {50, 49, colour(15)}, {49, 50, colour(15)}, {79, 69, colour(15)}});
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PAUSE);
    screen_step(500);
    CHECK(room.frame() == 15);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PAUSE); // a second pause is a stop
    zof_drv_video_set_state(room.player, ZOF_MEDIA_RESUME);
    screen_step(85); // the next frame is shown at once
    CHECK(room.frame() == 18);
    screen_step(3000);
    CHECK(room.frame() == 59);
    zof_drv_video_set_one_replay(room.player, 1);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_RESUME); // it is at its start again
    screen_step(2100);
    CHECK(room.frame() < 10);
    // Another size restarts it, in the state last requested.
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    screen_step(1000);
    CHECK(zof_drv_video_set_pos(room.player, 10, 10, 101, 77) == 0);
    screen_step(85);
    CHECK(screen_pixel(110, 86) == colour(2));
    for (u16 side : {0, 5000}) { // no picture is empty
        CHECK(zof_drv_video_set_pos(room.player, 0, 0, side, 5000) == 0);
        screen_step(100);
    }
    CHECK(zof_drv_video_set_state(nullptr, 0) == -1);
    CHECK(zof_drv_video_set_src(lv_scr_act(), "clip.mp4") == -1); // not a player
}

TEST_CASE("a faulty clip ends: a change of size, an excessive size, a missing file") {
    room_t room;
    media_clip clip = exact_clip();
    clip.resize_at = 10;
    room.play(clip);
    screen_step(1000);
    CHECK(room.frame() == 9);
    CHECK(printed([&] { zof_drv_video_set_src(room.player, "/none.mp4"); }) == "video /none.mp4: cannot be opened\n\n");
    clip = exact_clip();
    clip.width = 4200;
    clip.height = 8;
    clip.frames = 1;
    const std::string wide = room.make("wide.mp4", clip);
    CHECK(contains(printed([&] { zof_drv_video_set_src(room.player, wide.c_str()); }), "video " + wide + ": "));
}

TEST_CASE("the sound of a deleted player stops") {
    room_t room;
    media_clip clip = exact_clip();
    clip.frames = 5;
    clip.tone_hz = 440;
    clip.tone_ms = 5000;
    win_audio_init();
    room.play(clip);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    lv_obj_del(room.player);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
}

TEST_CASE("every kind of PNG looks as in LVGL's own decoder, transparent or not, and a JPEG comes close") {
    room_t room;
    for (const std::string name : {"L.png", "LA.png", "P.png", "RGB.png", "RGBA.png", "RGB.jpg"}) {
        CAPTURE(name);
        const std::string path = ZOF_MEDIA_DIR "/kinds/" + name,
                          png = file_text(path.substr(0, path.size() - 3) + "png");
        unsigned char *want = nullptr;
        unsigned w = 0, h = 0;
        REQUIRE(lodepng_decode32(&want, &w, &h, (const unsigned char *)png.data(), png.size()) == 0);
        lv_img_decoder_dsc_t dsc;
        REQUIRE(lv_img_decoder_open(&dsc, path.c_str(), lv_color_black(), 0) == LV_RES_OK);
        const bool clear = contains(name, "A") || name == "P.png";
        CHECK((int)dsc.header.cf == (clear ? LV_IMG_CF_TRUE_COLOR_ALPHA : LV_IMG_CF_TRUE_COLOR));
        REQUIRE((dsc.header.w == w && dsc.header.h == h));
        s32 off = 0; // error of the worst byte
        for (u32 i = 0; i < w * h * 4; i++) {
            off = std::max(off, abs(dsc.img_data[i] - want[i % 2 ? i : i ^ 2])); // blue comes first
        }
        CHECK(off <= (name == "RGB.jpg" ? 8 : 0));
        lv_img_decoder_close(&dsc);
        zof_lv_free(want);
    }
}

TEST_CASE("a JPEG with more scans than any encoder makes is refused with one line, in a clip too") {
    room_t room;
    const struct {
        const char *name, *line;
    } rows[] = {{"few_scans.jpg", ""},
                {"many_scans.jpg", "refused, 5005 scans of 65536 pixels take too long\n"},
                {"large_scans.jpg", "refused, 35 scans of 4000000 pixels take too long\n"}};
    for (const auto &row : rows) {
        CAPTURE(row.name);
        const std::string path = std::string(ZOF_MEDIA_DIR "/") + row.name;
        lv_img_header_t header = {};
        lv_res_t result = LV_RES_OK;
        const std::string log = printed([&] {
            for (s32 i = 0; i < 2; i++) {
                result = lv_img_decoder_get_info(path.c_str(), &header);
            }
        });
        CHECK(log == (row.line[0] ? "picture " + path + ": " + row.line : ""));
        CHECK((result == LV_RES_OK) == !row.line[0]);
    }
}

TEST_CASE("a video control plays the project's clips in its box, and is deleted with its view") {
    view_project_t project;
    std::filesystem::create_directories(project.path("video"));
    REQUIRE(media_write(project.path("video/a.mp4").c_str(), exact_clip()));
    project.view(2, {ctrl(ZOF_CTRL_LABEL, 1)});
    project.view(1,
                 {ctrl(ZOF_CTRL_OBJ, 9, "", box(0, 0, 320, 240), filled(0x406060)),
                  ctrl(ZOF_CTRL_VIDEO, 1, R"("volume": 99, "play_en": true)", box(20, 30, 120, 80) + R"(, "pub": 1)"),
                  ctrl(ZOF_CTRL_VIDEO, 2, "", R"("parent_id": 9)")});
    project.open(320, 240);
    zof_image_init();
    win_video_init();
    CHECK(contains(printed([] { zof_view_set_dis_view(1); }), ".pub: expected true or false, found a number"));
    for (const char *name : {"a.avi", "a", "", (const char *)nullptr}) {
        CHECK(zof_video_set_src(at(1), name) == -1);
    }
    zof_video_set_src(at(1), "a.mp4");
    zof_video_set_state(at(1), ZOF_MEDIA_PLAY);
    screen_step(420);
    CHECK(screen_is_golden("video"));
    zof_video_set_state(at(1), ZOF_MEDIA_PAUSE);
    zof_video_set_state(at(1), ZOF_MEDIA_PAUSE); // a second pause is a stop
    CHECK(((zof_video_attr_t *)at(1)->attr)->state == ZOF_MEDIA_STOP);
    zof_video_set_state(at(1), ZOF_MEDIA_RESUME);
    screen_step(2600); // past its end: it replays
    CHECK(zof_video_get_state(at(1)) == ZOF_MEDIA_PLAY);
    CHECK(zof_ctrl_delete(at(1)) == 0); // no effect: the object is the driver's
    CHECK(at(1)->obj != nullptr);
    para_t *inner = at(2);
    CHECK(zof_ctrl_del(1, 2) == 0);
    CHECK(zof_ctrl_get_child_sum(at(9)) == 1);
    zof_ctrl_obj_del(inner); // with the record
    CHECK(zof_ctrl_get_child_sum(at(9)) == 0);
    zof_view_set_dis_view(2);
    screen_step(200);
}
