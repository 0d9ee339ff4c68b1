// The window: what is copied into it, how events become touches, brightness and zoom.
#include <SDL2/SDL.h>

#include <sys/wait.h>
#include <unistd.h>

#include <thread>

#include "screen_fixture.h"
#include "temp_project.h"

static lv_obj_t *box(lv_obj_t *parent, s32 x, s32 y, s32 w, s32 h, u32 color) {
    lv_obj_t *obj = lv_obj_create(parent);
    lv_obj_remove_style_all(obj);
    lv_obj_set_pos(obj, x, y);
    lv_obj_set_size(obj, w, h);
    lv_obj_set_style_bg_color(obj, lv_color_hex(color), 0);
    lv_obj_set_style_bg_opa(obj, LV_OPA_COVER, 0);
    return obj;
}

TEST_CASE("the window opens white, shows what is drawn, and a screenshot is the same picture") {
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

static void flush_part(s32 x1, s32 y1, s32 x2, s32 y2, u32 color) {
    std::vector<lv_color_t> pixels((size_t)(x2 - x1 + 1) * (size_t)(y2 - y1 + 1), lv_color_hex(color));
    const lv_area_t area = {x1, y1, x2, y2};
    lv_disp_draw_buf_t *buf = lv_disp_get_default()->driver->draw_buf;
    buf->flushing = 1;
    sdl_display_flush(lv_disp_get_default()->driver, &area, pixels.data());
    CHECK(!buf->flushing);
}

TEST_CASE("a flush beyond an edge is clipped, one outside only reports ready") {
    screen_open(40, 30);
    screen_step(40);
    auto raw = [](s32 x, s32 y) { return sdl_frame_get(nullptr, nullptr)[y * 40 + x] & 0xFFFFFF; };
    const std::vector<u32> before(sdl_frame_get(nullptr, nullptr), sdl_frame_get(nullptr, nullptr) + 40 * 30);
    flush_part(0, 30, 5, 35, 0xFF0000);
    flush_part(40, 0, 45, 5, 0xFF0000);
    flush_part(-9, 0, -1, 5, 0xFF0000);
    flush_part(0, -9, 5, -1, 0xFF0000);
    CHECK(std::vector<u32>(sdl_frame_get(nullptr, nullptr), sdl_frame_get(nullptr, nullptr) + 40 * 30) == before);

    flush_part(2, 28, 4, 40, 0x00FF00);
    CHECK(raw(2, 28) == 0x00FF00);
    CHECK(raw(4, 29) == 0x00FF00);
    CHECK(raw(5, 29) == (before[0] & 0xFFFFFF));
    flush_part(-5, -5, 45, 1, 0x0000FF);
    CHECK(raw(0, 0) == 0x0000FF);
    CHECK(raw(39, 1) == 0x0000FF);
    CHECK(raw(0, 2) == (before[0] & 0xFFFFFF));
}

static void push(SDL_Event event) {
    SDL_PushEvent(&event);
    screen_step(SCREEN_INPUT_MS);
}

static SDL_Event mouse(u32 type, u8 button, s32 x, s32 y) {
    SDL_Event e = {};
    e.button.type = type;
    e.button.button = button;
    e.button.x = x;
    e.button.y = y;
    return e;
}

static SDL_Event window_event(u8 what) {
    SDL_Event e = {};
    e.window.type = SDL_WINDOWEVENT;
    e.window.event = what;
    return e;
}

static SDL_Event finger(u32 type, float x, float y) {
    SDL_Event e = {};
    e.tfinger.type = type;
    e.tfinger.x = x;
    e.tfinger.y = y;
    return e;
}

// What the input device reports.
struct pointer_state {
    bool down;
    s32 x, y;
    bool operator==(const pointer_state &) const = default;
};

static pointer_state pointer() {
    lv_indev_data_t data = {};
    sdl_mouse_read(nullptr, &data);
    return {data.state == LV_INDEV_STATE_PRESSED, data.point.x, data.point.y};
}

TEST_CASE("mouse, finger and wheel reach the input devices; any window event lifts the finger") {
    screen_open(200, 100);
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 50, 60));
    CHECK(pointer() == pointer_state{true, 50, 60});
    SDL_Event motion = {};
    motion.motion.type = SDL_MOUSEMOTION;
    motion.motion.x = 70;
    motion.motion.y = 20;
    push(motion);
    CHECK(pointer() == pointer_state{true, 70, 20});
    push(mouse(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 70, 20));
    CHECK(pointer() == pointer_state{false, 70, 20});
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT, 10, 10));
    CHECK(pointer() == pointer_state{false, 70, 20});

    push(finger(SDL_FINGERDOWN, 0.5f, 0.25f));
    CHECK(pointer() == pointer_state{true, 100, 25});
    push(finger(SDL_FINGERMOTION, 0.25f, 0.5f));
    CHECK(pointer() == pointer_state{true, 50, 50});
    push(finger(SDL_FINGERUP, 0.75f, 0.5f));
    CHECK(pointer() == pointer_state{false, 150, 50});

    for (u8 what : {SDL_WINDOWEVENT_LEAVE, SDL_WINDOWEVENT_EXPOSED, SDL_WINDOWEVENT_TAKE_FOCUS}) {
        push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 50, 60));
        CHECK(pointer().down);
        push(window_event(what));
        CHECK(!pointer().down);
    }

    SDL_Event wheel = {};
    wheel.wheel.type = SDL_MOUSEWHEEL;
    wheel.wheel.y = 3;
    push(wheel);
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_MIDDLE, 0, 0));
    lv_indev_data_t data = {};
    sdl_mousewheel_read(nullptr, &data);
    CHECK(data.enc_diff == -3);
    CHECK(data.state == LV_INDEV_STATE_PRESSED);
    sdl_mousewheel_read(nullptr, &data);
    CHECK(data.enc_diff == 0);

    SDL_Event text = {};
    text.text.type = SDL_TEXTINPUT;
    SDL_strlcpy(text.text.text, "a\xC3\xA9", sizeof(text.text.text));
    push(text);
    std::vector<u32> keys;
    do {
        sdl_keyboard_read(nullptr, &data);
        if (data.state == LV_INDEV_STATE_PRESSED) {
            keys.push_back(data.key);
        }
    } while (data.continue_reading);
    CHECK(keys.size() == 2);
    CHECK(keys[0] == 'a');
}

TEST_CASE("a click that is over before the widgets look is still a click") {
    screen_open(200, 100);
    static s32 clicks;
    lv_obj_t *btn = lv_btn_create(lv_scr_act());
    lv_obj_set_pos(btn, 20, 20);
    lv_obj_set_size(btn, 60, 30);
    lv_obj_add_event_cb(
        btn, [](lv_event_t *) { clicks++; }, LV_EVENT_CLICKED, nullptr);
    screen_step(100);
    SDL_Event down = mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 40, 30);
    SDL_Event up = mouse(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 40, 30);
    SDL_PushEvent(&down);
    SDL_PushEvent(&up);
    screen_step(200);
    CHECK(clicks == 1);
    screen_click(40, 30);
    CHECK(clicks == 2);
    screen_click(140, 80);
    CHECK(clicks == 2);
}

TEST_CASE("a picture as large as the screen opens at half scale, and positions are taken back") {
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "offscreen");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Rect bounds = {};
    REQUIRE(SDL_GetDisplayBounds(0, &bounds) == 0);
    screen_open(bounds.w, 200); // as wide as the screen: not narrower
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 50, 60));
    CHECK(pointer() == pointer_state{true, 100, 120});
    push(mouse(SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT, 50, 60));
    screen_press(300, 100);
    CHECK(pointer() == pointer_state{true, 300, 100});
}

TEST_CASE("brightness dims by percent, from any thread, and leaves screenshots alone") {
    screen_open(60, 40);
    screen_step(40);
    const u32 before = screen_pixel(5, 5);
    CHECK(sdl_bright_get() == 255);
    CHECK(zof_disp_set_bright(50) == 0);
    CHECK(sdl_bright_get() == 127);
    CHECK(zof_disp_set_bright(0) == 0);
    CHECK(sdl_bright_get() == 0);
    zof_disp_set_bright(101);
    CHECK(sdl_bright_get() == 1); // 257 in 8 bits

    std::thread([] { zof_disp_set_bright(100); }).join();
    CHECK(sdl_bright_get() == 1);
    screen_step(20);
    CHECK(sdl_bright_get() == 255);
    CHECK(screen_pixel(5, 5) == before);
    zof_drv_disp_reg(nullptr);
    CHECK(zof_disp_set_bright(50) == -1);
    CHECK(zof_drv_disp_set_bg("x") == -1);
}

TEST_CASE("closing the window ends the process with status 0") {
    const pid_t child = fork();
    if (child == 0) {
        screen_open(60, 40);
        SDL_Event quit = {};
        quit.type = SDL_QUIT;
        SDL_PushEvent(&quit);
        screen_step(100);
        _exit(7);
    }
    int status = 0;
    waitpid(child, &status, 0);
    CHECK(WIFEXITED(status));
    CHECK(WEXITSTATUS(status) == 0);
}

static lv_indev_data_t touch(bool down, s32 x, s32 y) {
    lv_indev_data_t data = {};
    data.state = down ? LV_INDEV_STATE_PRESSED : LV_INDEV_STATE_RELEASED;
    data.point = {x, y};
    return data;
}

TEST_CASE("the touch hook tells press, hold and release, and nothing without a press") {
    screen_open(100, 50);
    screen_step(50);
    zof_touch_t now = {};
    lv_indev_data_t data = touch(false, 3, 4);
    CHECK(zof_touch_event(&data) == -1);
    data = touch(true, 10, 20);
    CHECK(zof_touch_event(&data) == 0);
    REQUIRE(zof_touch_get(&now) == 0);
    CHECK(now.state == ZOF_TOUCH_PRESS);
    data = touch(true, 11, 21);
    CHECK(zof_touch_event(&data) == 0);
    zof_touch_get(&now);
    CHECK(now.state == ZOF_TOUCH_HELD);
    CHECK(now.x == 11);
    data = touch(false, 12, 22);
    CHECK(zof_touch_event(&data) == 0);
    zof_touch_get(&now);
    CHECK(now.state == ZOF_TOUCH_RELEASED);
    CHECK(now.y == 22);
    CHECK(zof_touch_event(nullptr) == -1);
    CHECK(zof_touch_get(nullptr) == -1);

    // Turned displays: as LVGL turns the same point.
    data = touch(true, 10, 20);
    zof_touch_event(&data);
    lv_disp_drv_t *drv = lv_disp_get_default()->driver;
    const struct {
        lv_disp_rot_t rotated;
        u16 x, y;
    } turned[] = {{LV_DISP_ROT_90, 50 - 20 - 1, 10}, {LV_DISP_ROT_180, 89, 29}, {LV_DISP_ROT_270, 50 - 29 - 1, 89}};
    for (const auto &t : turned) {
        drv->rotated = t.rotated;
        zof_touch_get(&now);
        CHECK(now.x == t.x);
        CHECK(now.y == t.y);
    }
    drv->rotated = LV_DISP_ROT_NONE;

    zof_drv_touch_pause(1);
    screen_press(30, 30);
    zof_touch_get(&now);
    CHECK(now.x == 10);
    zof_drv_touch_pause(0);
    screen_step(50);
    zof_touch_get(&now);
    CHECK(now.x == 30);
    CHECK(zof_drv_touch_get_tp_type() == 1);
    CHECK(printed([] { zof_drv_touch_rtp_cal(); }) == "rtp calibration is not supported in windows\n\n");
}

TEST_CASE("a panel check counts presses and releases of both sides") {
    screen_open(10, 10);
    u32 press = 0;
    u32 release = 0;
    CHECK(zof_touch_count_stop() == -1);
    CHECK(zof_touch_count_clear() == -1);
    CHECK(zof_touch_count_set_ui(1) == -1);
    CHECK(zof_touch_count_get_ui(&press, &release) == -1);
    CHECK(zof_touch_count_start() == 0);
    for (u32 state : {1, 1, 0, 0, 1}) {
        CHECK(zof_touch_count_set_irq(state) == 0);
    }
    CHECK(zof_touch_count_get_irq(&press, &release) == 0);
    CHECK(press == 3);
    CHECK(release == 1);
    CHECK(zof_touch_count_get_ui(&press, &release) == 0);
    CHECK(press == 0);
    CHECK(zof_touch_count_stop() == 0);
    CHECK(zof_touch_count_set_irq(1) == -1);
    zof_touch_count_start();
    zof_touch_count_clear();
    CHECK(zof_touch_count_set_irq(1) == -1); // clearing stops, too
    zof_touch_count_free();
    CHECK(zof_touch_count_get_irq(&press, &release) == -1);
}

TEST_CASE("the picture's place follows the project's size, turn, margins and mode") {
    temp_project_t project;
    zof_prj_t *prj = project.open();
    REQUIRE(prj);
    screen_open(10, 10);
    CHECK(SDL_HOR_RES == 320); // the project's, not what the test asked for
    zof_disp_t *d = zof_drv_get_disp_t();
    zof_wh_t pos = {};
    zof_wh_t size = {};
    CHECK(zof_disp_get_screen_pos(&pos, &size) == -1); // it covers the screen
    CHECK(size.w == 320);
    prj->attr->rotate = 1;
    zof_disp_init_draw_size();
    CHECK(zof_disp_get_draw_size()->w == 240);
    CHECK(zof_disp_get_rotate() == 1);
    prj->attr->rotate = 2;
    zof_disp_init_draw_size();
    CHECK(zof_disp_get_draw_size()->w == 320);
    prj->attr->width = 0;
    d->scn_w = 800;
    d->scn_h = 480;
    zof_disp_init_draw_size();
    CHECK(zof_disp_get_draw_size()->w == 800);

    prj->attr->width = 320;
    prj->attr->hw_t.dis_t = {10, 20, 0};
    CHECK(zof_disp_init_screen_pos() == 0);
    CHECK(zof_disp_get_screen_pos(&pos, &size) == 0);
    CHECK(pos.w == 10);
    CHECK(size.w == 780);
    CHECK(size.h == 440);
    prj->attr->hw_t.dis_t.dis_mode = 1;
    zof_disp_init_screen_pos();
    zof_disp_get_screen_pos(nullptr, &size);
    CHECK(size.w == 320);
    CHECK(size.h == 240);
    prj->attr->width = 1000; // does not fit: shares of the sum of its sides
    zof_disp_init_screen_pos();
    zof_disp_get_screen_pos(nullptr, &size);
    CHECK(size.w == 780 * 1000 / 1240);
    CHECK(size.h == 440 * 240 / 1240);
    prj->attr->hw_t.dis_t = {500, 300, 0}; // margins wider than the screen leave nothing
    zof_disp_init_screen_pos();
    zof_disp_get_screen_pos(nullptr, &size);
    CHECK(size.w == 0);

    d->size_w = 160;
    d->size_h = 120;
    prj->attr->width = 320;
    prj->attr->rotate = 0;
    zof_point_t p = {40, 30};
    CHECK(zof_touch_rotate(&p) == 0);
    CHECK(p.x == 80);
    CHECK(p.y == 60);
    prj->attr->rotate = 3;
    p = {40, 30};
    CHECK(zof_touch_rotate(&p) == 0);
    CHECK(p.x == (160 - 40 - 1) * 240 / 160);
    CHECK(p.y == (120 - 30 - 1) * 320 / 120);
    p = {161, 0};
    CHECK(zof_touch_rotate(&p) == -1);
    CHECK(zof_touch_rotate(nullptr) == -1);
}
