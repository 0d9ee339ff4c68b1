// Clips and still pictures by FFmpeg: exact pixels, the clip's own time, its end, and broken files.
#include <unistd.h>

#include <algorithm>
#include <cmath>

#include "media.h"
#include "screen_fixture.h"
#include "temp_project.h"

extern "C" unsigned lodepng_decode32(unsigned char **out, unsigned *w, unsigned *h, const unsigned char *in,
                                     size_t insize);

enum : u32 { GROUND = 0x102030 };

// Frame n is of one colour that says n, except its left upper quarter, which lets the ground through.
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
        zof_ffmpeg_init();
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

    // The number of the frame that is shown; -1 for none.
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
    CHECK(lv_ffmpeg_get_frame_num("/none.mp4") == -1);
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    CHECK(zof_drv_video_set_src(room.player, path.c_str()) == -1); // there is no sound driver; the picture is in
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    for (const u32 seconds : {1, 4, 8}) {
        while (screen_now < seconds * 1000) {
            screen_now += 9; // 5 ms of pause and what a turn takes
            lv_timer_handler();
        }
        CAPTURE(seconds);
        CHECK(std::abs(room.frame() - (s32)(seconds * 30000 / 1001)) <= 1);
    }
    const u32 c = colour(room.frame());
    screen_check(
        {{20, 30, c}, {79, 30, c}, {20, 69, c}, {79, 69, c}, {80, 50, GROUND}, {50, 70, GROUND}, {19, 50, GROUND}});
    CHECK(lv_obj_get_width(room.player) == 60);
    screen_now += 3000; // a long stall is not made up for by a rush
    const s32 before = room.frame();
    screen_step(100);
    CHECK(room.frame() - before < 6);
}

TEST_CASE("a clip lets shine through, is scaled, paused, resumed and stopped, and ends with its last frame or anew") {
    room_t room;
    const std::string path = room.make("a.mp4", exact_clip());
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY); // without a clip: nothing
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    zof_drv_video_set_src(room.player, path.c_str());
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    screen_step(515);
    CHECK(room.frame() == 15);
    screen_check(
        {{20, 30, GROUND}, {49, 49, GROUND}, {50, 49, colour(15)}, {49, 50, colour(15)}, {79, 69, colour(15)}});
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PAUSE);
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_PAUSE);
    screen_step(500);
    CHECK(room.frame() == 15);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PAUSE); // asked twice it is a stop
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_RESUME);
    screen_step(85); // the next frame comes at once
    CHECK(room.frame() == 18);
    screen_step(3000);
    CHECK(room.frame() == 59);
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    zof_drv_video_set_one_replay(room.player, 1);
    zof_drv_video_set_state(room.player, ZOF_MEDIA_RESUME); // it stands at its start again
    screen_step(2100);
    CHECK(room.frame() < 10);
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_PLAY);
    // Another size begins anew, in the state asked for last.
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    screen_step(1000);
    CHECK(zof_drv_video_set_pos(room.player, 10, 10, 101, 77) == 0);
    screen_step(85);
    CHECK(screen_pixel(110, 86) == colour(2));
    screen_check({{111, 60, GROUND}, {60, 87, GROUND}, {20, 20, GROUND}, {100, 20, colour(2)}});
    zof_drv_video_set_state(room.player, ZOF_MEDIA_STOP);
    screen_step(200);
    CHECK(screen_pixel(110, 86) == colour(2));
    CHECK(zof_drv_video_set_pos(room.player, 0, 0, 0, 77) == 0); // no picture has no pixels
    screen_step(100);
    CHECK(zof_drv_video_set_pos(room.player, 0, 0, 5000, 5000) == 0);
    screen_step(100);
    CHECK(zof_drv_video_set_state(nullptr, 0) == -1);
    CHECK(zof_drv_video_set_src(lv_scr_act(), path.c_str()) == -1); // no player
}

TEST_CASE("what a clip does wrong ends it: a change of size, a size without bounds, a missing file") {
    room_t room;
    media_clip clip = exact_clip();
    clip.resize_at = 10;
    zof_drv_video_set_src(room.player, room.make("resized.mp4", clip).c_str());
    zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY);
    screen_step(1000);
    CHECK(room.frame() == 9);
    CHECK(zof_drv_video_get_state(room.player) == ZOF_MEDIA_STOP);
    CHECK(printed([&] { zof_drv_video_set_src(room.player, "/none.mp4"); }) == "video /none.mp4: cannot be opened\n\n");
    CHECK(room.frame() == (s32)(GROUND >> 16) - 1);
    clip = exact_clip();
    clip.width = 4200;
    clip.height = 8;
    clip.frames = 1;
    const std::string wide = room.make("wide.mp4", clip);
    CHECK(contains(printed([&] { zof_drv_video_set_src(room.player, wide.c_str()); }), "video " + wide + ": "));
}

TEST_CASE("players come and go without a trace, and the sound of one that is gone is stopped") {
    static u32 state;
    static const zof_drv_audio_ops_t sound = {
        .set_src = [](const char *) -> s32 { return 0; },
        .set_state = [](u32 s) -> s32 { return (s32)(state = s) & 0; },
        .get_state = [] { return (s32)state; },
        .set_volum = [](u8 v) -> s32 { return v; },
        .set_one_replay = [](u32 r) -> s32 { return (s32)r; },
    };
    room_t room;
    zof_drv_audio_reg(&sound);
    media_clip clip = exact_clip();
    clip.codec = "mpeg4";
    clip.frames = 5;
    const std::string path = room.make("a.mp4", clip);
    CHECK(zof_drv_video_set_src(room.player, path.c_str()) == 0);
    CHECK(zof_drv_video_set_volum(room.player, 17) == 17);
    CHECK(zof_drv_video_set_one_replay(room.player, 1) == 1);
    CHECK(zof_drv_video_set_state(room.player, ZOF_MEDIA_PLAY) == 0);
    CHECK(state == ZOF_MEDIA_PLAY);
    u32 own = 0;
    u32 lvgl = 0;
    for (u32 i = 0; i < 300; i++) {
        lv_obj_t *player = zof_drv_video_create(lv_scr_act());
        zof_drv_video_set_pos(player, 100, 100, 30, 20);
        zof_drv_video_set_src(player, path.c_str());
        zof_drv_video_set_state(player, ZOF_MEDIA_PLAY);
        screen_step(20);
        lv_obj_del(player);
        screen_step(20);
        if (i == 100) {
            own = zof_mem_count();
            lvgl = zof_lv_mem_count();
        }
    }
    CHECK(zof_mem_count() == own);
    CHECK(zof_lv_mem_count() == lvgl);
    clip.tone_hz = 440;
    clip.tone_ms = 5000;
    win_audio_init();
    zof_drv_video_set_src(room.player, room.make("loud.mp4", clip).c_str());
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_PLAY);
    lv_obj_del(room.player);
    CHECK(zof_drv_audio_get_state() == ZOF_MEDIA_STOP);
}

static std::string be(u32 v) {
    return {(char)(v >> 24), (char)(v >> 16), (char)(v >> 8), (char)v};
}

static std::string chunk(const std::string &kind, const std::string &data) {
    u32 crc = 0xFFFFFFFF;
    for (const char c : kind + data) {
        crc ^= (u8)c;
        for (int i = 0; i < 8; i++) {
            crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
        }
    }
    return be((u32)data.size()) + kind + data + be(~crc);
}

// A PNG of 7 x 5 pixels with bytes that are all different, not compressed.
static std::string png(int depth, int kind, const std::string &more) {
    const int channels[] = {1, 0, 3, 1, 2, 0, 4};
    std::string raw;
    for (int y = 0; y < 5; y++) {
        raw += '\0';
        for (int i = 0; i < (7 * channels[kind] * depth + 7) / 8; i++) {
            raw += (char)(kind == 3 ? (y + i) % 4 : 37 * i + 11 * y);
        }
    }
    u32 a = 1;
    u32 b = 0;
    for (const char c : raw) {
        a = (a + (u8)c) % 65521;
        b = (b + a) % 65521;
    }
    const u32 n = (u32)raw.size();
    const std::string stored = {0x78, 0x01, 1, (char)n, (char)(n >> 8), (char)~n, (char)(~n >> 8)};
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", be(7) + be(5) + (char)depth + (char)kind + std::string(3, 0)) + more +
           chunk("IDAT", stored + raw + be(b << 16 | a)) + chunk("IEND", "");
}

TEST_CASE("every kind of PNG looks as LVGL's own decoder shows it, transparent or not, and a JPEG comes near") {
    room_t room;
    const std::string palette = chunk("PLTE", "\x10\x20\x30\xF0\xE0\xD0\x55\x66\x77\x01\xFE\x80");
    const struct {
        int depth, kind;
        std::string more;
        lv_img_cf_t cf;
    } rows[] = {{8, 0, "", LV_IMG_CF_TRUE_COLOR},
                {8, 2, "", LV_IMG_CF_TRUE_COLOR},
                {8, 3, palette, LV_IMG_CF_TRUE_COLOR_ALPHA},
                {8, 3, palette + chunk("tRNS", "\x80\x40"), LV_IMG_CF_TRUE_COLOR_ALPHA},
                {8, 4, "", LV_IMG_CF_TRUE_COLOR_ALPHA},
                {8, 6, "", LV_IMG_CF_TRUE_COLOR_ALPHA}};
    for (const auto &row : rows) {
        CAPTURE(row.kind);
        const std::string text = png(row.depth, row.kind, row.more);
        room.write("image/a.png", text);
        unsigned char *want = nullptr;
        unsigned w = 0;
        unsigned h = 0;
        REQUIRE(lodepng_decode32(&want, &w, &h, (const unsigned char *)text.data(), text.size()) == 0);
        lv_img_decoder_dsc_t dsc;
        REQUIRE(lv_img_decoder_open(&dsc, room.path("image/a.png").c_str(), lv_color_black(), 0) == LV_RES_OK);
        CHECK((int)dsc.header.cf == row.cf);
        CHECK((int)dsc.header.w == 7);
        u32 wrong = 0;
        for (u32 i = 0; i < w * h; i++) {
            const u8 *p = dsc.img_data + i * 4;
            wrong += p[0] != want[i * 4 + 2] || p[1] != want[i * 4 + 1] || p[2] != want[i * 4] ||
                     (row.cf == LV_IMG_CF_TRUE_COLOR_ALPHA && p[3] != want[i * 4 + 3]);
        }
        CHECK(wrong == 0);
        lv_img_decoder_close(&dsc);
        zof_lv_free(want);
    }
    media_clip clip = exact_clip();
    clip.codec = "mjpeg";
    clip.frames = 1;
    clip.paint = [](u32 *pixels, s32 w, s32 h, s32) { std::fill_n(pixels, w * h, 0xFFC08040); };
    const std::string film = file_text(room.make("a.mp4", clip));
    const size_t from = film.find("\xFF\xD8\xFF");
    room.write("image/a.jpg", film.substr(from, film.find("\xFF\xD9", from) + 2 - from));
    lv_img_decoder_dsc_t dsc;
    REQUIRE(lv_img_decoder_open(&dsc, room.path("image/a.jpg").c_str(), lv_color_black(), 0) == LV_RES_OK);
    CHECK((int)dsc.header.cf == LV_IMG_CF_TRUE_COLOR);
    CHECK((int)dsc.header.w == 60);
    CHECK(std::abs(dsc.img_data[2] - 0xC0) + std::abs(dsc.img_data[1] - 0x80) + std::abs(dsc.img_data[0] - 0x40) < 9);
    lv_img_decoder_close(&dsc);
}
