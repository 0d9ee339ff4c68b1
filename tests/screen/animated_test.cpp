// GIFs, QR codes and image sequences, on the test's clock. Pictures come from tests/media/make.py; number n has n bars.
#include "view_project.h"

static void media_copy(const view_project_t &project) {
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
}

// The number of the picture at this place; 0 for none.
static u32 picture_at(s32 x, s32 y) {
    const screen_picture p = screen_shot();
    u32 bars = 0;
    while (bars < 4 && (p.at(x + 6 + 8 * (s32)bars, y + 15) & 0xE0E0E0) == 0xE0E0E0) {
        bars++;
    }
    return bars;
}

// The pictures of the next `count` times `ms`.
static std::string pictures(u32 ms, u32 count, s32 x = 0, s32 y = 0) {
    std::string out;
    for (u32 i = 0; i < count; i++) {
        screen_step(ms);
        out += std::to_string(picture_at(x, y));
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
    project.show({ground(), gif(1, "ever.gif", R"(, "play_en": true)", 0),
                  gif(2, "twice.gif", R"(, "play_en": true)", 50),
                  gif(3, "ever.gif", R"(, "play_en": true, "num": 2)", 100), gif(4, "twice.gif", R"(, "num": 1)", 150),
                  gif(5, "spots.gif", R"(, "play_en": true)", 200, R"(, "t_mode": 7)"),
                  gif(6, "still.gif", R"(, "play_en": true)", 0, R"(, "hidden": true)")});
    CHECK(lv_obj_get_width(at(1)->obj) == 40); // the file's, not the control's
    CHECK(screen_is_golden("gif_first"));
    std::string played[4];
    for (u32 i = 0; i < 14; i++) {
        screen_step(100);
        for (u32 g = 0; g < 4; g++) {
            played[g] += std::to_string(picture_at(50 * (s32)g, 0));
        }
    }
    CAPTURE(played[0]);
    CAPTURE(played[1]);
    CHECK(contains(played[0], "23123123123123"));
    CHECK(played[1] == "23123333333333");
    CHECK(played[2] == "23123333333333");
    CHECK(played[3] == "11111111111111");
    CHECK(screen_is_golden("gif_played"));
}

TEST_CASE("a GIF is paused, resumed, restarted and changed, played out or not") {
    view_project_t project;
    media_copy(project);
    project.show({gif(1, "ever.gif", R"(, "play_en": false, "num": 1)", 0)});
    CHECK(pictures(100, 3) == "111");
    CHECK(zof_gif_resume(at(1)) == 0);
    CHECK(pictures(100, 1) == "2");
    CHECK(zof_gif_pause(at(1)) == 0);
    CHECK(pictures(100, 3) == "222");
    CHECK(zof_gif_reset_play(at(1)) == 0); // a restart plays, paused or not
    screen_step(20);
    CHECK(picture_at(0, 0) == 1);
    CHECK(pictures(100, 5) == "23333");
    CHECK(zof_gif_resume(at(1)) == 0);
    CHECK(pictures(100, 3) == "333"); // played out
    CHECK(zof_gif_play_count(at(1), 2) == 0);
    CHECK(pictures(100, 9) == "123123333");
    CHECK(zof_gif_reset_play(at(1)) == 0); // as often as was asked for last
    CHECK(pictures(100, 9) == "123123333");
    zof_gif_pause(at(1));
    CHECK(zof_gif_play_count(at(1), 0) == 0);
    CHECK(pictures(100, 9) == "123123123");
    CHECK(zof_gif_set_src(at(1), "twice.gif") == 0);
    CHECK(pictures(100, 9) == "231233333");
    const std::string said = printed([] {
        for (const char *name : {"none.gif", "none.gif", "wide.gif", "png/1.png", "\x05:x", (const char *)nullptr}) {
            CHECK(zof_gif_set_src(at(1), name) == 0);
            for (auto call : {zof_gif_reset_play, zof_gif_pause, zof_gif_resume}) {
                CHECK(call(at(1)) == 0);
            }
            CHECK(zof_gif_play_count(at(1), 3) == 0);
            CHECK(pictures(100, 2) == "00");
        }
    });
    const std::string image = project.path("image/");
    CHECK(said == image + "none.gif: cannot be read\n" + image + "wide.gif: cannot be read\n" + image +
                      "png/1.png: cannot be read\n\x05:x: cannot be read\na picture without a name: cannot be read\n");
    CHECK(zof_gif_set_src(at(1), "ever.gif") == 0);
    CHECK(pictures(100, 3) == "231");
    CHECK(zof_ctrl_delete(at(1)) == 0);
    screen_step(200);
    CHECK(zof_gif_reset_play(at(1)) == -1);
}

TEST_CASE("a QR code says its text, or shows none that does not fit") {
    view_project_t project;
    const auto code = [](u32 id, s32 x, s32 side, const std::string &own) {
        return ctrl(ZOF_CTRL_QRCODE, id, R"("bg_color": 16777215, "color": 2113632)" + own, box(x, 10, 0, side));
    };
    const std::string said =
        project.show({ground(), code(1, 10, 90, R"(, "txt": "https://example.org/panel?unit=7")"), code(2, 120, 60, ""),
                      code(3, 200, 60, R"(, "txt": "border", "width": 5, "border_color": 16744448)"),
                      code(4, 10, 0, ""), code(5, 10, 2048, ""), code(6, 280, 20, R"(, "txt": "no room")")});
    CHECK(said == "control 4: a QR code is 1 to 2047 pixels high, not 0\nerr: create ctrl[c4,4] fail\n\n"
                  "control 5: a QR code is 1 to 2047 pixels high, not 2048\nerr: create ctrl[c5,5] fail\n\n"
                  "control 6: its text does not fit into a QR code of 20 pixels\n");
    CHECK(screen_is_golden("qrcode"));
    const screen_picture first = screen_shot();
    CHECK(zof_qrcode_updata_data(at(1), "another") == 0);
    CHECK(!(screen_shot().pixels == first.pixels));
    CHECK(zof_qrcode_updata_data(at(1), std::string(4000, 'x').c_str()) == -1);
    CHECK(screen_pixel(12, 12) == 0xFFFFFF);
    CHECK(zof_qrcode_updata_data(at(1), "https://example.org/panel?unit=7") == 0);
    CHECK(zof_qrcode_updata_data(at(2), nullptr) == 0);
    CHECK(screen_same(screen_shot(), first));
    CHECK(zof_qrcode_updata_data(at(99), "x") == -1);
}

static std::string series(u32 id, s32 x, const std::string &folder, const std::string &own) {
    return ctrl(ZOF_CTRL_ANIMIMG, id, R"("img_dsc_t": ")" + folder + R"(", "frame_rate": 50)" + own, box(x, 0, 1, 1));
}

TEST_CASE("an image sequence shows its numbers in order, pass by pass") {
    const struct {
        const char *folder, *own, *shown;
    } all[] = {
        // The first picture twice; the last one a period longer at the end of a pass.
        {"png", R"(, "start_id": 1, "end_id": 3, "repeat_count": 2)", "123312333333"},
        {"png", R"(, "start_id": 1, "end_id": 3, "repeat_open": 1, "repeat_count": 1)", "123123123123"},
        {"jpg", R"(, "start_id": 2, "end_id": 3, "repeat_open": 1, "repeat_count": 1)", "232323232323"},
        {"png", R"(, "start_id": 0, "end_id": 2, "repeat_open": 1, "repeat_count": 1)", "412412412412"},
        {"png", R"(, "start_id": 0, "end_id": 2, "repeat_count": 2)", "444444444444"}, // never gets on
        {"mixed", R"(, "start_id": 1, "end_id": 3, "repeat_open": 1, "repeat_count": 1)",
         "103103103103"},                                                             // all as the first
        {"png", R"(, "start_id": 1, "end_id": 3, "repeat_open": 1)", "111111111111"}, // no pass is left
        {"png", R"(, "start_id": 3, "end_id": 1, "repeat_open": 1, "repeat_count": 1)",
         "111111111111"}, // 3 % 2, 4 % 2, 3 % 2...
    };
    view_project_t project;
    media_copy(project);
    std::vector<std::string> controls = {ground()};
    u32 id = 0;
    for (const auto &one : all) {
        controls.push_back(series(id + 1, 40 * (s32)id, one.folder, one.own));
        id++;
    }
    const std::string said = printed([&] {
        project.show(controls);
        std::string shown[8];
        for (u32 i = 0; i < 12; i++) {
            screen_step(50);
            for (s32 n = 0; n < 8; n++) {
                shown[n] += std::to_string(picture_at(40 * n, 0));
            }
            if (i == 0) {
                CHECK(screen_is_golden("animimg"));
            }
        }
        for (u32 n = 0; n < 8; n++) {
            CAPTURE(n);
            CHECK(shown[n] == all[n].shown);
        }
    });
    CHECK(said == project.path("image/mixed/2.png") + ": cannot be read\n");
}

TEST_CASE("an image sequence tells whether it plays, has stopped, or was paused") {
    view_project_t project;
    media_copy(project);
    project.show({series(1, 0, "png", R"(, "start_id": 1, "end_id": 2, "repeat_count": 1)")});
    CHECK(zof_animimg_get_state(at(1)) == 0);
    screen_step(300);
    CHECK(zof_animimg_get_state(at(1)) == 1); // run out by itself
    CHECK(zof_animimg_get_repeat_count(at(1)) == 0);
    CHECK(zof_animimg_pause(at(1)) == 0);
    CHECK(zof_animimg_get_state(at(1)) == 2);
    CHECK(zof_animimg_reset_play(at(1)) == 0);
    CHECK(zof_animimg_get_state(at(1)) == 0);
    CHECK(zof_animimg_get_repeat_count(at(1)) == 65535);
    lv_animimg_set_pause(at(1)->obj);
    CHECK(zof_animimg_get_state(at(1)) == 2); // the mark stays until it is taken back
    CHECK(zof_animimg_resume(at(1)) == 0);
    lv_animimg_set_pause(at(1)->obj);
    CHECK(zof_animimg_get_state(at(1)) == 1);

    CHECK(zof_animimg_set_frame_rate(at(1), 200) == 0); // goes on
    CHECK(pictures(200, 4) == "1221");
    CHECK(zof_animimg_set_repeat_infinite(at(1), ZOF_TRUE) == 0);
    CHECK(pictures(200, 4) == "2121");
    CHECK(zof_animimg_set_repeat_count(at(1), 0) == 0);
    screen_step(200);
    CHECK(zof_animimg_get_state(at(1)) == 1);
}

TEST_CASE("image sequences without a folder, or with one too long, and pictures too large get one line") {
    view_project_t project;
    media_copy(project);
    const std::string image = project.path("image/");
    const std::string said = project.show(
        {series(1, 0, std::string(200, 'd'), R"(, "end_id": 3, "repeat_count": 9)"),
         series(2, 0, "none", R"(, "end_id": 3, "repeat_count": 9)"),
         ctrl(ZOF_CTRL_ANIMIMG, 3, R"("end_id": 65535, "repeat_open": 1, "repeat_count": 1)"),
         ctrl(ZOF_CTRL_IMG, 4, R"("init_img": "wide.png")"), ctrl(ZOF_CTRL_IMG, 5, R"("init_img": "high.jpg")"),
         ctrl(ZOF_CTRL_IMG, 6, R"("init_img": "wide.png")")});
    screen_step(1000);
    CHECK(said == "image sequence: the path of its folder is too long\n" + image + "none/0.png: cannot be read\n" +
                      "image sequence: no folder is given\n" + image + "wide.png: cannot be read\n" + image +
                      "high.jpg: cannot be read\n");
    lv_obj_t *bare = lv_animimg_create(lv_scr_act());
    lv_animimg_set_restart(bare);
    screen_step(200);
    ((lv_animimg_t *)bare)->end = UINT32_MAX; // one more is 0, which divides nothing
    screen_step(200);
    lv_animimg_set_src(nullptr, "x", 1);
    lv_obj_del(bare);
}
