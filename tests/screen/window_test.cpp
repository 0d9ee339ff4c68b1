// The window: what is copied into it, how events become touches, brightness and zoom.
#include <SDL2/SDL.h>

#include <string>
#include <thread>

#include "drv/zof_drv_disp.h"
#include "screen_fixture.h"

static lv_obj_t *box(lv_obj_t *parent, s32 x, s32 y, s32 w, s32 h, u32 color)
{
    lv_obj_t *obj = lv_obj_create(parent);
    lv_obj_remove_style_all(obj);
    lv_obj_set_pos(obj, x, y);
    lv_obj_set_size(obj, w, h);
    lv_obj_set_style_bg_color(obj, lv_color_hex(color), 0);
    lv_obj_set_style_bg_opa(obj, LV_OPA_COVER, 0);
    return obj;
}

TEST_CASE("the window opens white, shows what is drawn, and a screenshot is the same picture")
{
    screen_open(120, 80);
    s32 w = 0;
    s32 h = 0;
    const u32 *frame = sdl_frame_get(&w, &h);
    REQUIRE(frame);
    CHECK(w == 120);
    CHECK(h == 80);
    CHECK(frame[0] == 0xFFFFFFFF);

    box(lv_scr_act(), 10, 20, 30, 40, 0x123456);
    screen_step(40);
    CHECK(screen_pixel(10, 20) == 0x123456);
    CHECK(screen_pixel(39, 59) == 0x123456);
    CHECK(screen_pixel(40, 60) != 0x123456);

    const std::string path = ZOF_BUILD_DIR "/golden/window_shot.png";
    std::filesystem::create_directories(ZOF_BUILD_DIR "/golden");
    REQUIRE(zof_shot_png(path.c_str()) == 0);
    screen_picture read;
    REQUIRE(screen_png_read(path, &read));
    CHECK(screen_same(read, screen_shot()));
    CHECK(zof_shot_png("/nowhere/at/all.png") == -1);
}
