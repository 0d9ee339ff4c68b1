// Images, image buttons and tile views.
#include "view_project.h"

static para_t *at(u32 id) {
    para_t *record = zof_ctrl_get_form_id(1, id);
    REQUIRE(record);
    return record;
}

static void show(view_project_t &project, const std::vector<std::string> &controls) {
    project.view(1, controls);
    project.open(320, 240);
    zof_view_set_dis_view(1);
}

TEST_CASE("an image is shown at its size, once in the middle, or all over its box") {
    view_project_t project;
    project.image("red.png", 20, 20, 0xFF0000);
    project.image("blue.png", 20, 20, 0x0000FF);
    project.write("config/languages/en.g", R"({"flag": "red.png"})");
    project.write("config/languages/de.g", R"({"flag": "blue.png"})");
    project.more = R"(, "language": "en")";
    show(project,
         {ctrl(ZOF_CTRL_IMG, 1, R"("init_img": "#flag", "img_mode_e": 0)", box(0, 0, 60, 60)),
          ctrl(ZOF_CTRL_IMG, 2, R"("init_img": "#flag", "img_mode_e": 1)", box(100, 0, 60, 60)),
          ctrl(ZOF_CTRL_IMG, 3, R"("init_img": "#flag", "img_mode_e": 2)", box(200, 0, 60, 60)),
          ctrl(ZOF_CTRL_IMG, 4, R"("init_img": "red.png", "img_mode_e": 7)", box(0, 100, 60, 60)),
          ctrl(ZOF_CTRL_IMG, 5, R"("init_img": "none.png")", box(0, 100, 60, 60)),
          ctrl(ZOF_CTRL_IMG, 6, R"("init_img": "red.png", "init_angel": -900, "rotate_pt": {"x": 3, "y": 4})")});
    CHECK(zof_ctrl_get_width(at(1)) == 20);
    CHECK(screen_pixel(10, 10) == 0xFF0000);
    CHECK(screen_pixel(30, 10) == 0);
    CHECK(screen_pixel(110, 10) == 0);
    CHECK(screen_pixel(120, 20) == 0xFF0000);
    CHECK(screen_pixel(139, 39) == 0xFF0000);
    CHECK(screen_pixel(141, 30) == 0);
    CHECK(screen_pixel(201, 1) == 0xFF0000);
    CHECK(screen_pixel(259, 59) == 0xFF0000);
    CHECK(screen_pixel(10, 110) == 0);
    CHECK(lv_img_get_angle(at(6)->obj) == 2700);

    CHECK(zof_lang_set("de") == 0);
    CHECK(screen_pixel(10, 10) == 0x0000FF);
    CHECK(screen_pixel(130, 30) == 0x0000FF);
    CHECK(screen_pixel(110, 10) == 0);
    CHECK(std::string(zof_img_get_src(at(1))) == "blue.png");
    CHECK(std::string(zof_img_get_src(at(6))) == "red.png");
    CHECK(zof_img_get_src(at(4)) == nullptr);

    CHECK(zof_img_set_src(at(1), "red.png") == 0);
    CHECK(screen_pixel(10, 10) == 0xFF0000);
    CHECK(zof_img_set_src(at(1), "\x05:x") == 0); // would be read as a picture in memory
    CHECK(screen_pixel(10, 10) == 0);
    CHECK(zof_img_set_src(at(1), nullptr) == 0);
    CHECK(zof_img_recolor(at(3), 0x00FF00, 255) == 0);
    CHECK(screen_pixel(210, 10) == 0x00FF00);
    CHECK(zof_img_set_rotate_angel(at(3), -3600) == 0);
    CHECK(zof_img_zoom_setting(at(3), 512) == 0);
    CHECK(zof_img_get_src_type("a") == 1);
    CHECK(zof_img_get_src_type("\x1F") == 0);
    CHECK(zof_img_get_src_type("\xC3\xA4") == 0);
    CHECK(zof_img_get_src_type(nullptr) == 0);
}

TEST_CASE("an image button shows the picture of its state, in the middle of its box") {
    view_project_t project;
    project.image("up.png", 20, 20, 0xFF0000);
    project.image("down.png", 40, 40, 0x00FF00);
    project.image("off.png", 20, 20, 0x0000FF);
    project.write("config/languages/en.g", R"({"up": "up.png"})");
    project.write("config/languages/de.g", R"({"up": "off.png"})");
    project.more = R"(, "language": "en")";
    const std::string pictures = R"("pos_mode_e": 1, "img_rel": "#up", "img_pr": "down.png", "img_ina": "off.png")";
    show(project, {ctrl(ZOF_CTRL_IMGBTN, 1, pictures, box(100, 100, 60, 60)),
                   ctrl(ZOF_CTRL_IMGBTN, 2, R"("img_rel": "none.png", "mode": 1)", box(200, 100, 60, 60))});
    CHECK(screen_pixel(130, 130) == 0xFF0000);
    CHECK(screen_pixel(113, 130) == 0);
    screen_press(130, 130);
    CHECK(zof_imgbtn_get_state(at(1)) == 1);
    CHECK(screen_pixel(113, 130) == 0x00FF00);
    CHECK(screen_pixel(108, 130) == 0);
    screen_release(130, 130);
    CHECK(screen_pixel(113, 130) == 0);
    CHECK(screen_pixel(130, 130) == 0xFF0000);
    for (u32 state = 0; state < 6; state++) {
        CHECK(zof_imgbtn_set_mode(at(1), state) == 0);
        CHECK(zof_imgbtn_get_state(at(1)) == (s32)state);
    }
    zof_ctrl_add_state(at(1), LV_STATE_PRESSED); // a disabled one shows no press
    CHECK(zof_imgbtn_get_state(at(1)) == 5);
    CHECK(zof_imgbtn_set_mode(at(1), 6) == -1);
    zof_imgbtn_set_mode(at(1), 0);
    CHECK(zof_lang_set("de") == 0);
    CHECK(screen_pixel(130, 130) == 0x0000FF);
    CHECK(zof_imgbtn_set_image(at(1), 0, "up.png") == 0);
    CHECK(screen_pixel(130, 130) == 0xFF0000);
    CHECK(zof_imgbtn_set_image(at(1), 0, nullptr) == 0);
    CHECK(zof_imgbtn_set_image(at(1), 6, "up.png") == -1);
    CHECK(zof_imgbtn_set_txt_color(at(1), 0xFF00FF, 3) == 0);
    CHECK(zof_imgbtn_set_txt_color(at(1), 0xFF00FF, 6) == -1);
    zof_imgbtn_set_mode(at(1), 3);
    CHECK(lv_obj_get_style_text_color(at(1)->obj, 0).full == 0xFFFF00FF);
    screen_click(210, 110); // drawn without a picture, and checkable all the same
}

static std::string tile(u32 id, u32 col, u32 row, u32 dir, u32 color) {
    return ctrl(ZOF_CTRL_TILE, id,
                R"("col_id": )" + std::to_string(col) + R"(, "row_id": )" + std::to_string(row) + R"(, "dir": )" +
                    std::to_string(dir),
                R"("parent_id": 1)", R"({"body_t": {"opa": 255, "main_color": )" + std::to_string(color) + "}}");
}

TEST_CASE("tile views show and tell the tile that is asked for") {
    view_project_t project;
    show(project, {ctrl(ZOF_CTRL_TILEVIEW, 1, R"("anim_time": 0, "count": 2)", box(0, 0, 100, 100), "{}"),
                   tile(2, 0, 0, 3, 0x0000FF), tile(3, 1, 0, 3, 0x00FF00),
                   ctrl(ZOF_CTRL_TILEVIEW, 4, R"("unlimited_scroll": 1, "count": 1)", box(0, 0, 0, 0)),
                   ctrl(ZOF_CTRL_TILE, 5, R"("dir": 3)", R"("parent_id": 4)")}); // no room at all
    u32 row = 9;
    u32 col = 9;
    CHECK(zof_tileview_set_tile_id(at(1), 0, 1, 0) == 0);
    CHECK(screen_pixel(50, 50) == 0x00FF00);
    CHECK(zof_tileview_get_tile_id(at(1), &row, &col) == 0);
    CHECK(row == 0);
    CHECK(col == 1);
    CHECK(zof_tileview_set_tile_id(at(1), 5, 5, 0) == 0); // there is none: it stays
    CHECK(screen_pixel(50, 50) == 0x00FF00);
    CHECK(zof_tileview_get_tile_id(at(1), nullptr, &col) == -1);
    CHECK(zof_tileview_get_tile_id(at(4), &row, &col) == -1);
    screen_drag(20, 50, 90, 50, 5);
    screen_step(1000);
    CHECK(screen_pixel(50, 50) == 0x0000FF);
}

// Swipes one page on or back and waits until the view is at rest.
static u32 swipe(bool on, bool horizontal) {
    s32 from = on ? 90 : 10;
    s32 to = on ? 10 : 90;
    if (horizontal) {
        screen_drag(from, 50, to, 50, 4);
    } else {
        screen_drag(50, from, 50, to, 4);
    }
    screen_step(1500);
    return screen_pixel(50, 50);
}

TEST_CASE("an endless view can be swiped for ever in both directions") {
    const u32 colors[] = {0x0000FF, 0x00FF00, 0xFF0000, 0xFFFF00};
    view_project_t project;
    u32 view = 0;
    struct ring_case {
        u32 view, count;
        bool horizontal;
    };
    std::vector<ring_case> rings;
    for (bool horizontal : {true, false}) {
        for (u32 count : {2u, 3u, 4u}) {
            view++;
            rings.push_back({view, count, horizontal});
            const std::string scroll = R"(, "scrollbar_t": {"dir_e": 15, "scroll_one": true})";
            std::vector<std::string> controls = {
                ctrl(ZOF_CTRL_TILEVIEW, 1,
                     R"("unlimited_scroll": 1, "start_id": 1, "anim_time": 0, "count": )" + std::to_string(count),
                     box(0, 0, 100, 100) + scroll, "{}")};
            for (u32 i = 0; i < count; i++) {
                controls.push_back(
                    tile(10 + i, horizontal ? i : 0, horizontal ? 0 : i, horizontal ? 3 : 12, colors[i]));
            }
            project.view(view, controls);
        }
    }
    project.open(320, 240);
    for (const ring_case &ring : rings) {
        CAPTURE(ring.horizontal);
        CAPTURE(ring.count);
        zof_view_set_dis_view(ring.view);
        screen_step(100);
        u32 here = screen_pixel(50, 50);
        u32 index = 0;
        while (index < ring.count && colors[index] != here) {
            index++;
        }
        REQUIRE(index < ring.count);
        for (u32 i = 1; i <= 2 * ring.count; i++) {
            CHECK(swipe(true, ring.horizontal) == colors[(index + i) % ring.count]);
        }
        for (u32 i = 1; i <= 2 * ring.count; i++) {
            CHECK(swipe(false, ring.horizontal) == colors[(index + ring.count * 4 - i) % ring.count]);
        }
        lv_obj_t *obj = zof_ctrl_obj(zof_ctrl_get_form_id(ring.view, 1));
        CHECK((ring.horizontal ? lv_obj_get_scroll_x(obj) : lv_obj_get_scroll_y(obj)) == 100); // home again
        CHECK(lv_obj_has_flag(obj, LV_OBJ_FLAG_SCROLLABLE));
    }
}
