// The window: what is copied to it, and how events become touches.
#include "temp_project.h"
#include "window_events.h"

TEST_CASE("the window opens black, shows what is drawn, and a screenshot is the same picture") {
    screen_open(120, 80);
    CHECK(sdl_frame_get(nullptr, nullptr)[120 * 80 - 1] == 0);
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_hex(0x123456), 0);
    screen_step(40);
    CHECK(screen_pixel(119, 79) == 0x123456);
    temp_project_t folder;
    screen_picture read;
    REQUIRE(zof_shot_png(folder.path("shot.png").c_str()) == 0);
    REQUIRE(screen_png_read(folder.path("shot.png"), &read));
    CHECK(screen_same(read, screen_shot()));
    CHECK(zof_shot_png("/nowhere/at/all.png") == -1);
}

TEST_CASE("a flush beyond an edge is clipped, one outside only reports ready") {
    enum { W = 40, H = 30 };
    screen_open(W, H);
    screen_step(40);
    const u32 *frame = sdl_frame_get(nullptr, nullptr);
    std::vector<u32> want(frame, frame + W * H);
    for (const lv_area_t &a : {lv_area_t{0, 30, 5, 35}, {40, 0, 45, 5}, {-9, 0, -1, 5}, {0, -9, 5, -1}}) {
        flush_part(a.x1, a.y1, a.x2, a.y2, 0xFF0000);
    }
    flush_part(2, 28, 4, 40, 0x00FF00);
    flush_part(-5, -5, 45, 1, 0x0000FF);
    std::fill_n(&want[28 * W + 2], 3, 0xFF00FF00);
    std::fill_n(&want[29 * W + 2], 3, 0xFF00FF00);
    std::fill_n(want.begin(), 2 * W, 0xFF0000FF);
    CHECK(std::equal(want.begin(), want.end(), frame));
}

TEST_CASE("mouse and finger reach the input device") {
    const struct {
        SDL_Event event;
        pointer_state then;
    } rows[] = {{mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 50, 60), {true, 50, 60}},
                {mouse(SDL_MOUSEMOTION, 0, 70, 20), {true, 70, 20}},
                {mouse(SDL_MOUSEMOTION, 0, -9, 300), {true, 0, 99}}, // beyond the edge: as at the edge
                {mouse(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 70, 20), {false, 70, 20}},
                {mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT, 10, 10), {false, 70, 20}},
                {finger(SDL_FINGERDOWN, 0.5f, 0.25f), {true, 100, 25}},
                {finger(SDL_FINGERMOTION, 0.25f, 0.5f), {true, 50, 50}},
                {finger(SDL_FINGERUP, 0.75f, 0.5f), {false, 150, 50}}};
    screen_open(200, 100);
    for (const auto &row : rows) {
        CAPTURE(&row - rows);
        push(row.event);
        CHECK(pointer() == row.then);
    }
    SDL_Event wheel = {}; // turns the other way, with its button pressed
    wheel.wheel.type = SDL_MOUSEWHEEL;
    wheel.wheel.y = 3;
    push(wheel);
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_MIDDLE, 0, 0));
    lv_indev_data_t data = {};
    sdl_mousewheel_read(nullptr, &data);
    CHECK(data.enc_diff == -3);
    CHECK(data.state == LV_INDEV_STATE_PRESSED);
}

TEST_CASE("a press whose release may never come is not a click, and other events of the window do not end it") {
    const struct {
        u8 event;
        bool ends;
    } rows[] = {{SDL_WINDOWEVENT_FOCUS_LOST, true},    {SDL_WINDOWEVENT_LEAVE, true},
                {SDL_WINDOWEVENT_MINIMIZED, true},     {SDL_WINDOWEVENT_EXPOSED, false},
                {SDL_WINDOWEVENT_FOCUS_GAINED, false}, {SDL_WINDOWEVENT_ENTER, false}};
    screen_open(200, 100);
    static s32 clicks;
    lv_obj_add_event_cb(
        lv_btn_create(lv_scr_act()), [](lv_event_t *) { clicks++; }, LV_EVENT_CLICKED, nullptr);
    screen_step(100);
    for (const auto &row : rows) {
        CAPTURE(&row - rows);
        clicks = 0;
        push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 10, 10));
        push(window_says(row.event));
        CHECK(std::get<bool>(pointer()) != row.ends);
        push(mouse(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 10, 10));
        screen_step(100);
        CHECK(clicks == !row.ends);
    }
}

TEST_CASE("a click that ends before the widgets read it is still a click") {
    screen_open(200, 100);
    static s32 clicks;
    lv_obj_t *btn = lv_btn_create(lv_scr_act());
    lv_obj_add_event_cb(
        btn, [](lv_event_t *) { clicks++; }, LV_EVENT_CLICKED, nullptr);
    screen_step(100);
    for (s32 off : {0, 1}) { // but not while touch is switched off
        zof_drv_touch_pause(off);
        for (u32 type : {SDL_MOUSEBUTTONDOWN, SDL_MOUSEBUTTONUP}) {
            SDL_Event event = mouse(type, SDL_BUTTON_LEFT, 10, 10);
            SDL_PushEvent(&event);
        }
        screen_step(200);
        zof_drv_touch_pause(0);
        screen_step(100);
        CHECK(clicks == 1);
    }
}

// Returns whether the window shows the picture, pixel by pixel.
static bool window_shows_picture() {
    const screen_picture p = screen_shot();
    for (s32 i = 0; i < p.width * p.height; i++) {
        if (p.pixels[(size_t)i] != (*window_at(i % p.width, i / p.width) & 0xFFFFFF)) {
            MESSAGE(form("the window is wrong at (%d, %d)", i % p.width, i / p.width));
            return false;
        }
    }
    return true;
}

TEST_CASE("only what has changed is copied to the window, and everything when it was uncovered or dimmed") {
    enum : u32 { MARK = 0xABCDEF };
    screen_open(100, 60);
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_hex(0x204060), 0);
    lv_obj_t *box = lv_obj_create(lv_scr_act());
    lv_obj_set_size(box, 20, 10);
    lv_obj_set_pos(box, 30, 20);
    screen_step(40);
    CHECK(window_shows_picture());
    *window_at(5, 5) = MARK;
    *window_at(99, 59) = MARK;
    for (const s32 x : {31, 60}) {
        lv_obj_set_x(box, x);
        lv_obj_set_style_bg_color(box, lv_color_hex((u32)x), 0);
        screen_step(40);
    }
    CHECK((*window_at(70, 25) & 0xFFFFFF) == 60);
    CHECK((*window_at(35, 25) & 0xFFFFFF) == 0x204060);
    CHECK((*window_at(5, 5) & 0xFFFFFF) == MARK);
    CHECK((*window_at(99, 59) & 0xFFFFFF) == MARK);
    push(window_says(SDL_WINDOWEVENT_EXPOSED));
    CHECK(window_shows_picture());
    // Hardly darker, because a monitor has a light of its own, and never too dark to read.
    for (const auto &[percent, color] : {std::pair<u8, u32>{50, 0x1F3E5D}, {10, 0x1E3D5B}, {0, 0x1E3D5B}}) {
        zof_win_set_dis_bright(percent);
        CHECK((*window_at(5, 5) & 0xFFFFFF) == color);
    }
    zof_win_set_dis_bright(100);
    CHECK(window_shows_picture());
}

TEST_CASE("closing the window ends the process with status 0") {
    screen_open(60, 40);
    SDL_Event quit = {};
    quit.type = SDL_QUIT;
    push(quit); // does not return
    FAIL("the window is still open");
}

// Passes a touch to the hook and checks its result. Returns the touch that it reports then.
static zof_touch_t touched(lv_indev_state_t state, lv_coord_t x, lv_coord_t y, s32 result = 0) {
    lv_indev_data_t data = {};
    data.state = state;
    data.point = {x, y};
    CHECK(zof_touch_event(&data) == result);
    zof_touch_t now = {};
    zof_touch_get(&now);
    return now;
}

TEST_CASE("the touch hook reports press, hold and release, nothing without a press, and counts its calls") {
    screen_open(100, 50);
    screen_step(50);
    touched(LV_INDEV_STATE_RELEASED, 3, 4, -1);
    CHECK(touched(LV_INDEV_STATE_PRESSED, 10, 20).state == ZOF_TOUCH_PRESS);
    CHECK(touched(LV_INDEV_STATE_PRESSED, 11, 21).state == ZOF_TOUCH_HELD);
    CHECK(touched(LV_INDEV_STATE_RELEASED, 12, 22).state == ZOF_TOUCH_RELEASED);

    u32 press = 0, release = 0;
    zof_touch_count_start();
    for (u32 state : {1, 1, 0, 0, 1}) {
        zof_touch_count_set_irq(state);
    }
    zof_touch_count_get_irq(&press, &release);
    CHECK(press * 10 + release == 31); // a release counts only after a press
    zof_touch_count_free();

    // Rotated displays: as LVGL rotates the same point.
    touched(LV_INDEV_STATE_PRESSED, 10, 20);
    lv_disp_drv_t *drv = lv_disp_get_default()->driver;
    const u32 turned[][3] = {{LV_DISP_ROT_90, 29, 10}, {LV_DISP_ROT_180, 89, 29}, {LV_DISP_ROT_270, 20, 89}};
    for (const auto &[rotated, x, y] : turned) {
        drv->rotated = rotated & 3;
        zof_touch_t now = {};
        zof_touch_get(&now);
        CHECK((now.x == x && now.y == y));
    }
    drv->rotated = LV_DISP_ROT_NONE;
}

TEST_CASE("the picture's position follows the project's size, rotation, margins and mode") {
    temp_project_t project;
    zof_prj_t *prj = project.open();
    REQUIRE(prj);
    screen_open(10, 10);
    CHECK(SDL_HOR_RES == 320); // the project's, not what the test requested
    zof_disp_t *d = zof_drv_get_disp_t();
    d->scn_w = 800;
    d->scn_h = 480;
    prj->attr->rotate = 1;
    prj->attr->width = 1000;
    prj->attr->hw_t.dis_t = {10, 20, 1};
    zof_disp_init_draw_size();
    CHECK(zof_disp_get_draw_size()->w == 240);
    CHECK(zof_disp_init_screen_pos() == 0);
    zof_wh_t pos = {}, size = {};
    zof_disp_get_screen_pos(&pos, &size);
    CHECK((pos.w == 10 && size.w == 780 * 1000 / 1240 &&
           size.h == 440 * 240 / 1240)); // in proportion to the sum of its sides
}
