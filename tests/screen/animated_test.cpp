// GIFs, QR codes and image sequences, on the test's clock. Pictures come from tests/media/make.py; number n has n bars.
#include "view_project.h"

static void media_copy(const view_project_t &project) {
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
}

// The number of the picture at this position; 0 for none.
static u32 picture_at(s32 x, s32 y) {
    const screen_picture p = screen_shot();
    u32 bars = 0;
    while (bars < 4 && (p.at(x + 6 + 8 * (s32)bars, y + 15) & 0xE0E0E0) == 0xE0E0E0) {
        bars++;
    }
    return bars;
}

// The pictures shown at the next `count` times, `ms` apart, position by position.
static std::string pictures(u32 ms, u32 count, const std::vector<s32> &places = {0}) {
    std::string out(places.size() * (count + 1) - 1, ' ');
    for (u32 i = 0; i < count; i++) {
        screen_step(ms);
        for (size_t n = 0; n < places.size(); n++) {
            out[n * (count + 1) + i] = (char)('0' + picture_at(places[n], 0));
        }
    }
    return out;
}

static std::string ground() {
    return ctrl(ZOF_CTRL_OBJ, 99, "", box(0, 0, 320, 240), filled(0x406060));
}

static std::string gif(u32 id, const std::string &name, const std::string &own, s32 x, const std::string &pub = "") {
    return ctrl(ZOF_CTRL_GIF, id, R"("init_gif": ")" + name + "\"" + own, box(x, 0, 1, 1) + pub);
}

TEST_CASE("a GIF plays as often as its file, its control or the program says") {
    view_project_t project;
    media_copy(project);
    const std::string play = R"(, "play_en": true)";
    project.show({ground(), gif(1, "ever.gif", play, 0), gif(2, "twice.gif", play, 50),
                  gif(3, "ever.gif", play + R"(, "num": 2)", 100), gif(4, "twice.gif", R"(, "num": 1)", 150),
                  gif(5, "spots.gif", play, 200, R"(, "t_mode": 7)"),
                  gif(6, "still.gif", play, 0, R"(, "hidden": true)")});
    CHECK(lv_obj_get_width(at(1)->obj) == 40); // the file's, not the control's
    CHECK(screen_is_golden("gif_first"));
    CHECK(pictures(100, 14, {0, 50, 100, 150}) == "23123123123123 23123333333333 23123333333333 11111111111111");
    CHECK(screen_is_golden("gif_played"));
}

TEST_CASE("a GIF is paused, resumed, restarted and changed, finished or not") {
    view_project_t project;
    media_copy(project);
    project.show({gif(1, "ever.gif", R"(, "play_en": false, "num": 1)", 0)});
    static const auto after = [](s32 done, u32 count) { return done == 0 ? pictures(100, count) : "refused"; };
    CHECK(pictures(100, 3) == "111");
    CHECK(after(zof_gif_resume(at(1)), 1) == "2");
    CHECK(after(zof_gif_pause(at(1)), 3) == "222");
    CHECK(after(zof_gif_reset_play(at(1)), 6) == "123333"); // a restart plays, paused or not
    CHECK(after(zof_gif_play_count(at(1), 2), 9) == "123123333");
    CHECK(after(zof_gif_reset_play(at(1)), 9) == "123123333"); // as often as was last requested
    CHECK(after(zof_gif_set_src(at(1), "twice.gif"), 9) == "231233333");
    const std::string said = printed([] {
        for (const char *name : {"none.gif", "wide.gif", "png/1.png", "\x05:x", (const char *)nullptr}) {
            zof_gif_set_src(at(1), name);
            for (auto call : {zof_gif_reset_play, zof_gif_pause, zof_gif_resume}) {
                CHECK(after(call(at(1)) + zof_gif_play_count(at(1), 3), 2) == "00");
            }
        }
    });
    CHECK(std::count(said.begin(), said.end(), '\n') == 5);
    CHECK(after(zof_gif_set_src(at(1), "ever.gif"), 3) == "231");
}

TEST_CASE("a QR code encodes its text, and a text that does not fit shows no code") {
    view_project_t project;
    const auto code = [](u32 id, s32 x, s32 side, const std::string &own) {
        return ctrl(ZOF_CTRL_QRCODE, id, R"("bg_color": 16777215, "color": 2113632)" + own, box(x, 10, 0, side));
    };
    project.show({ground(), code(1, 10, 90, R"(, "txt": "https://example.org/panel?unit=7")"), code(2, 120, 60, ""),
                  code(3, 200, 60, R"(, "txt": "border", "width": 5, "border_color": 16744448)"),
                  code(4, 280, 20, R"(, "txt": "no room")")});
    CHECK(screen_is_golden("qrcode"));
    CHECK(zof_qrcode_updata_data(at(1), std::string(4000, 'x').c_str()) == -1);
    CHECK(screen_pixel(12, 12) == 0xFFFFFF);
    zof_qrcode_updata_data(at(1), "https://example.org/panel?unit=7");
    zof_qrcode_updata_data(at(2), nullptr);
    CHECK(screen_is_golden("qrcode"));
}

static std::string series(u32 id, const char *folder, u32 start, u32 end, u32 count, bool open = false) {
    return ctrl(ZOF_CTRL_ANIMIMG, id,
                form(R"("img_dsc_t": "%s", "frame_rate": 50, "start_id": %u, "end_id": %u, "repeat_count": %u,
                     "repeat_open": %d)",
                     folder, start, end, count, open),
                box(40 * (s32)(id - 1), 0, 1, 1));
}

TEST_CASE("an image sequence shows its numbers in order, pass by pass") {
    view_project_t project;
    media_copy(project);
    const std::vector<s32> places = {0, 40, 80, 120, 160, 200, 240, 280};
    const std::string said = printed([&] {
        project.show({ground(), series(1, "png", 1, 3, 2), series(2, "png", 1, 3, 1, true),
                      series(3, "jpg", 2, 3, 1, true), series(4, "png", 0, 2, 1, true), series(5, "png", 0, 2, 2),
                      series(6, "mixed", 1, 3, 1, true), series(7, "png", 1, 3, 0, true),
                      series(8, "png", 3, 1, 1, true)});
        CHECK(pictures(50, 1, places) == "1 1 2 4 4 1 1 1");
        CHECK(screen_is_golden("animimg"));
        CHECK(pictures(50, 11, places) == "23312333333 " // the first twice; the last a period longer after a pass
                                          "23123123123 "
                                          "32323232323 "
                                          "12412412412 "
                                          "44444444444 "  // never moves on
                                          "03103103103 "  // all like the first
                                          "11111111111 "  // no pass is left
                                          "11111111111"); // 3 % 2, 4 % 2, 3 % 2...
    });
    CHECK(said == project.path("image/mixed/2.png") + ": cannot be opened\n");
}

TEST_CASE("an image sequence reports whether it plays, has stopped or was paused, and works without pictures") {
    view_project_t project;
    media_copy(project);
    project.show({series(1, "png", 1, 2, 1)});
    screen_step(300);
    CHECK(zof_animimg_get_state(at(1)) == 1); // finished by itself
    zof_animimg_reset_play(at(1));
    zof_animimg_set_frame_rate(at(1), 200); // resumes
    CHECK(pictures(200, 4) == "1221");
    zof_animimg_set_repeat_infinite(at(1), ZOF_TRUE);
    CHECK(zof_animimg_get_repeat_count(at(1)) == 65534); // one pass has begun
    CHECK(pictures(200, 4) == "2121");
    zof_animimg_pause(at(1));
    CHECK(zof_animimg_get_state(at(1)) == 2); // the state stays until it is resumed
    zof_animimg_resume(at(1));
    CHECK(zof_animimg_get_state(at(1)) == 0);
    lv_obj_t *bare = lv_animimg_create(lv_scr_act()); // a program's own
    lv_animimg_set_restart(bare);
    ((lv_animimg_t *)bare)->end = UINT32_MAX; // one more is 0, which must not be divided by
    screen_step(200);
    lv_animimg_set_src(nullptr, "x", 1);
}
