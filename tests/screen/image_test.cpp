// Images, image buttons and tile views.
#include "port/zof_port.h"
#include "view_project.h"

enum : u32 { RED = 0xFF0000, GREEN = 0x00FF00, BLUE = 0x0000FF };

// A project whose picture "#flag" is red in English and blue in German.
static void flags_up(view_project_t &project) {
    project.image("red.png", 20, 20, RED);
    project.image("blue.png", 20, 20, BLUE);
    project.write("config/languages/en.g", R"({"flag": "red.png"})");
    project.write("config/languages/de.g", R"({"flag": "blue.png"})");
    project.more = R"(, "language": "en")";
}

TEST_CASE("an image is shown at its size, once in the middle, or all over its box") {
    view_project_t project;
    flags_up(project);
    project.image("RED.PNG", 20, 20, RED); // the suffix counts in any case
    project.image("Green.Png", 320, 240, GREEN);
    project.shown_keys = R"("bg_image": "Green.Png")";
    project.show({ctrl(ZOF_CTRL_IMG, 1, R"("init_img": "#flag", "img_mode_e": 0)", box(0, 0, 60, 60)),
                  ctrl(ZOF_CTRL_IMG, 2, R"("init_img": "#flag", "img_mode_e": 1)", box(100, 0, 60, 60)),
                  ctrl(ZOF_CTRL_IMG, 3, R"("init_img": "#flag", "img_mode_e": 2)", box(200, 0, 60, 60)),
                  ctrl(ZOF_CTRL_IMG, 4, R"("init_img": "#flag", "img_mode_e": 1)", box(0, 100, 13, 31)),
                  ctrl(ZOF_CTRL_IMG, 6, R"("init_img": "red.png", "init_angel": -900)", box(0, 200, 20, 20)),
                  ctrl(ZOF_CTRL_IMG, 8, R"("init_img": "RED.PNG", "img_mode_e": 0)", box(60, 200, 20, 20)),
                  ctrl(ZOF_CTRL_IMGBTN, 7, R"("img_rel": "RED.PNG")", box(100, 200, 20, 20))});
    const u32 NONE = GREEN; // the background
    screen_check({{10, 10, RED}, {30, 10, NONE}, {110, 10, NONE}, {120, 20, RED}, {139, 39, RED}, {141, 30, NONE}});
    screen_check({{201, 1, RED}, {259, 59, RED}, {12, 105, RED}, {13, 105, NONE}, {5, 104, NONE}, {5, 125, NONE}});
    screen_check({{70, 210, RED}, {110, 210, RED}});
    CHECK(lv_img_get_angle(at(6)->obj) == 2700);

    CHECK(zof_lang_set("de") == 0);
    screen_check({{10, 10, BLUE}, {130, 30, BLUE}, {110, 10, NONE}});
    CHECK(zof_img_set_src(at(1), "\x05:x") == 0); // would be read as a picture in memory
    CHECK(screen_pixel(10, 10) == NONE);
}

// Returns the number of allocations while the size of a picture is determined.
static u32 size_costs(const std::string &path) {
    lv_img_header_t header;
    zof_mem_fail_at(0);
    CHECK(lv_img_decoder_get_info(path.c_str(), &header) == LV_RES_OK);
    return zof_mem_fail_at(0);
}

TEST_CASE("a background picture that cannot be shown is reported") {
    view_project_t project;
    project.shown_keys = R"("bg_image": "none.png")";
    project.write("image/text.png", "text");
    const std::string said = project.show({ctrl(ZOF_CTRL_OBJ, 1, "", "", R"({"img_t": {"bg_img": "text.png"}})")});
    CHECK(said == project.path("image/text.png") + ": not a PNG picture\n" + project.path("image/none.png") +
                      ": cannot be opened\n");
}

TEST_CASE("a picture is decoded again only when its file changes") {
    view_project_t project;
    project.image("red.png", 20, 20, RED);
    project.show({ctrl(ZOF_CTRL_IMG, 1, R"("init_img": "red.png")", box(0, 0, 20, 20))});
    screen_check({{10, 10, RED}});
    zof_image_init();
    const std::string path = project.path("image/red.png");
    const u32 decoded = size_costs(path);
    CHECK(2 * size_costs(path) < decoded);
    project.image("red.png", 20, 20, BLUE);
    lv_img_cache_invalidate_src(nullptr);
    lv_obj_invalidate(at(1)->obj);
    screen_check({{10, 10, BLUE}});
}

// LVGL takes such a name for the address of a picture in memory and reads what is there.
TEST_CASE("a name that begins with a control character is refused wherever a picture is named") {
    view_project_t project;
    project.shown_keys = R"("bg_image": "\u0005:x.png")";
    const std::string name = R"(: "\u0005:x.png")", style = R"({"style_part": 0, "img_t": {"bg_img")" + name + "}}";
    const std::string said = project.show({
        ctrl(ZOF_CTRL_IMG, 1, R"("init_img")" + name, box(0, 0, 20, 20), style),
        ctrl(ZOF_CTRL_IMGBTN, 2, R"("img_rel")" + name + R"(, "img_pr")" + name, box(20, 0, 20, 20)),
        ctrl(ZOF_CTRL_GIF, 3, R"("init_gif")" + name, box(40, 0, 20, 20)),
        ctrl(ZOF_CTRL_ANIMIMG, 4, R"("start_id": 0, "end_id": 3, "frame_rate": 50, "img_dsc_t")" + name,
             box(60, 0, 20, 20)),
        ctrl(ZOF_CTRL_ARC, 5, R"("arc_main_img")" + name + R"(, "arc_inc_img")" + name, box(80, 0, 40, 40)),
        ctrl(ZOF_CTRL_LIST, 6, R"("items": [{"txt": "a", "image")" + name + "}]", box(120, 0, 40, 40)),
    });
    CHECK(contains(said, "contains control characters, not opened"));
    CHECK(!contains(said, "\x05"));
    printed([] {
        zof_view_set_bg(1, "\x05:x.png");
        zof_view_set_bg(1, "\x05:.jpg");
        zof_gif_set_src(at(3), "\x1f:x");
        zof_imgbtn_set_image(at(2), 0, "\x01:x.png");
        lv_animimg_set_src(at(4)->obj, "\x05:x", 3);
        screen_step(200);
    });
    CHECK(screen_pixel(10, 10) == 0);
}

TEST_CASE("an image button shows the picture of its state, in the middle of its box") {
    view_project_t project;
    flags_up(project);
    project.image("down.png", 40, 40, GREEN);
    const std::string said =
        project.show({ctrl(ZOF_CTRL_IMGBTN, 1, R"("pos_mode_e": 1, "img_rel": "#flag", "img_pr": "down.png")",
                           box(100, 100, 60, 60)),
                      ctrl(ZOF_CTRL_IMGBTN, 2, R"("img_rel": "none.png", "mode": 1)", box(200, 100, 60, 60)),
                      ctrl(ZOF_CTRL_IMGBTN, 3, R"("img_rel": "none.png", "img_pr": "none.png")", box(0, 0, 60, 60))});
    CHECK(said == project.path("image/none.png") + ": cannot be opened\n"); // once
    screen_check({{130, 130, RED}, {113, 130, 0}});
    screen_press(130, 130);
    screen_check({{113, 130, GREEN}, {108, 130, 0}});
    screen_release(130, 130);
    zof_imgbtn_set_mode(at(1), 5);
    zof_ctrl_add_state(at(1), LV_STATE_PRESSED); // a disabled button shows no press
    CHECK(zof_imgbtn_get_state(at(1)) == 5);
    zof_imgbtn_set_mode(at(1), 0);
    zof_lang_set("de");
    CHECK(screen_pixel(130, 130) == BLUE);
    CHECK(zof_imgbtn_set_image(at(1), 6, "red.png") == -1);
    screen_click(210, 110); // drawn without a picture, but still checkable
}

static std::string tile(u32 id, u32 col, u32 row, u32 dir, u32 color, u32 parent = 1) {
    return ctrl(ZOF_CTRL_TILE, id, form(R"("col_id": %u, "row_id": %u, "dir": %u)", col, row, dir),
                form(R"("parent_id": %u)", parent), filled(color));
}

TEST_CASE("tile views show and report the requested tile") {
    view_project_t project;
    const std::string said = // the second view has no page after its last one, where it starts
        project.show(
            {ctrl(ZOF_CTRL_TILEVIEW, 1, R"("anim_time": 0, "count": 2)", box(0, 0, 100, 100), "{}"),
             tile(2, 0, 0, 3, BLUE), tile(3, 1, 0, 3, GREEN),
             ctrl(ZOF_CTRL_TILEVIEW, 4, R"("unlimited_scroll": 1, "count": 2, "start_id": 2)", box(0, 0, 0, 0)),
             ctrl(ZOF_CTRL_TILE, 5, R"("dir": 3)", R"("parent_id": 4)"),
             ctrl(ZOF_CTRL_TILE, 6, R"("dir": 3)", R"("parent_id": 4)")});
    CHECK(contains(said, "an endless view has no page after start_id 2, where it starts\nerr: create ctrl[c6,6] fail"));
    u32 row = 9, col = 9;
    CHECK(zof_tileview_set_tile_id(at(1), 0, 1, 0) == 0);
    CHECK(screen_pixel(50, 50) == GREEN);
    CHECK(zof_tileview_get_tile_id(at(1), &row, &col) == 0);
    CHECK(row * 10 + col == 1);
    CHECK(zof_tileview_set_tile_id(at(1), 5, 5, 0) == 0); // no such tile: no change
    CHECK(screen_pixel(50, 50) == GREEN);
    CHECK(zof_tileview_get_tile_id(at(4), &row, &col) == -1);
    zof_ctrl_delete(at(3)); // the shown one
    CHECK(zof_tileview_get_tile_id(at(1), &row, &col) == -1);
}

TEST_CASE("an endless view of two tiles can be swiped up and down forever") {
    const u32 colors[] = {BLUE, GREEN};
    view_project_t project({ctrl(ZOF_CTRL_TILEVIEW, 1, R"("unlimited_scroll": 1, "start_id": 1, "count": 2)",
                                 box(0, 0, 100, 100) + R"(, "scrollbar_t": {"dir_e": 15, "scroll_one": true})", "{}"),
                            tile(2, 0, 0, 12, BLUE), tile(3, 0, 1, 12, GREEN)});
    screen_step(100);
    const u32 index = screen_pixel(50, 50) == GREEN;
    for (u32 i = 1; i <= 8; i++) {
        const s32 by = i <= 4 ? -40 : 40;
        screen_drag(50, 50 - by, 50, 50 + by, 4);
        screen_step(1500);
        CHECK(screen_pixel(50, 50) == colors[(index + i) % 2]);
    }
    CHECK(lv_obj_get_scroll_y(at(1)->obj) == 100); // home again
    CHECK(lv_obj_has_flag(at(1)->obj, LV_OBJ_FLAG_SCROLLABLE));
}
