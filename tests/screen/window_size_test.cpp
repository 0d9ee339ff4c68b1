// Windows of other sizes than the picture: what they show, where presses land, full screen, and the size that is kept.
#include "drv/zof_drv_gpio.h"
#include "port/win_place.h"
#include "port/win_screen.h"
#include "temp_project.h"
#include "window_events.h"
#include "zof_main.h"

static void resize(s32 w, s32 h) {
    SDL_SetWindowSize(window(), w, h);
    screen_step(20);
}

// What a pixel of the window has of the picture in one direction: (pixel, share).
static std::vector<std::pair<s32, double>> shares(s32 at, s32 pic, s32 out) {
    std::vector<std::pair<s32, double>> result;
    const double begin = (double)at * pic / out, end = (double)(at + 1) * pic / out;
    for (s32 i = (s32)begin; i < pic && i < end; i++) {
        result.emplace_back(i, (std::min(i + 1.0, end) - std::max((double)i, begin)) / (end - begin));
    }
    return result;
}

// Checks every pixel of the window by its area in the picture, which is at (x, y) in the size w x h; black beside it.
static void check_window(s32 x, s32 y, s32 w, s32 h) {
    const screen_picture p = screen_shot();
    s32 all_w = 0, all_h = 0, wrong = 0;
    SDL_GetWindowSize(window(), &all_w, &all_h);
    for (s32 at = 0; at < all_w * all_h && wrong < 3; at++) {
        const s32 i = at % all_w - x, j = at / all_w - y;
        double want[3] = {};
        if (i >= 0 && i < w && j >= 0 && j < h) {
            for (const auto &[row, tall] : shares(j, p.height, h)) {
                for (const auto &[column, wide] : shares(i, p.width, w)) {
                    for (u32 c = 0; c < 3; c++) {
                        want[c] += tall * wide * (p.at(column, row) >> c * 8 & 0xFF);
                    }
                }
            }
        }
        for (u32 c = 0; c < 3; c++) {
            const double got = *window_at(at % all_w, at / all_w) >> c * 8 & 0xFF;
            if (std::abs(got - want[c]) > 0.55) { // rounded
                MESSAGE(form("(%d, %d), colour %u: %g, not %g", at % all_w, at / all_w, c, got, want[c]));
                wrong++;
            }
        }
    }
    CHECK(wrong == 0);
}

TEST_CASE("a window of any size shows the picture as large as fits, by areas, and so do its changed parts") {
    const struct {
        s32 w, h;         // of the window
        win_rect_t shown; // the picture in it
    } rows[] = {{160, 100, {0, 2, 160, 96}},  {50, 30, {0, 0, 50, 30}},     {101, 61, {0, 0, 101, 61}},
                {203, 121, {0, 0, 202, 121}}, {203, 120, {1, 0, 200, 120}}, {300, 61, {99, 0, 102, 61}},
                {70, 200, {0, 79, 70, 42}},   {7, 3, {1, 0, 5, 3}}};
    screen_open(100, 60);
    SDL_SetWindowMinimumSize(window(), 1, 1); // tiled desktops do not ask
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_hex(0x204060), 0);
    lv_obj_t *label = lv_label_create(lv_scr_act());
    lv_label_set_text(label, "12.00 V");
    for (const auto &row : rows) {
        CAPTURE(&row - rows);
        lv_obj_set_pos(label, 10, 10);
        screen_step(40);
        resize(row.w, row.h);
        check_window(row.shown.x, row.shown.y, row.shown.w, row.shown.h);
        lv_obj_set_pos(label, 31, 23);
        screen_step(40);
        flush_part(51, 7, 59, 13, 0xFFB000 + (u32)row.w);
        flush_part(99, 59, 99, 59, 0xFFFFFF - (u32)row.w);
        check_window(row.shown.x, row.shown.y, row.shown.w, row.shown.h);
    }
}

TEST_CASE("presses land where they appear in windows of other sizes, and are ignored on the black border") {
    const auto left = [](u32 type, s32 x, s32 y) { return mouse(type, SDL_BUTTON_LEFT, x, y); };
    const struct {
        s32 w, h;
        s32 at[2], then[2]; // a press and where it lands
        s32 edge[2], last[2];
        s32 black[2]; // 0, 0: no black border
    } rows[] = {{1280, 800, {640, 400}, {400, 240}, {1279, 783}, {799, 479}, {640, 784}},
                {400, 240, {200, 120}, {401, 241}, {399, 239}, {799, 479}, {0, 0}},
                {801, 481, {400, 240}, {400, 240}, {800, 480}, {799, 479}, {0, 0}},
                {1920, 480, {960, 240}, {400, 240}, {1359, 479}, {799, 479}, {559, 200}}};
    screen_open(800, 480);
    for (const auto &row : rows) {
        CAPTURE(row.w);
        resize(row.w, row.h);
        push(left(SDL_MOUSEBUTTONDOWN, row.at[0], row.at[1]));
        CHECK(pointer() == pointer_state{true, row.then[0], row.then[1]});
        push(left(SDL_MOUSEBUTTONUP, row.edge[0], row.edge[1]));
        CHECK(pointer() == pointer_state{false, row.last[0], row.last[1]});
        push(finger(SDL_FINGERDOWN, (float)row.edge[0] / (float)row.w, (float)row.edge[1] / (float)row.h + 1e-5f));
        CHECK(pointer() == pointer_state{true, row.last[0], row.last[1]});
        push(finger(SDL_FINGERUP, 0.5f, 0.5f));
        CHECK(pointer() == pointer_state{false, row.then[0], row.then[1]});
        for (const s32 x : {0, 17, 400, 799}) { // a session's taps are in pixels of the picture
            sdl_pointer_inject(x, x * 3 / 5, ZOF_FALSE);
            screen_step(SCREEN_INPUT_MS);
            CHECK((row.w < 800 || pointer() == pointer_state{false, x, x * 3 / 5}));
        }
        if (!row.black[0]) {
            continue;
        }
        const float black_x = (float)row.black[0] / (float)row.w, black_y = (float)row.black[1] / (float)row.h;
        push(left(SDL_MOUSEBUTTONDOWN, row.black[0], row.black[1]));
        push(left(SDL_MOUSEMOTION, row.at[0], row.at[1]));
        CHECK(!std::get<bool>(pointer()));
        push(left(SDL_MOUSEBUTTONUP, row.at[0], row.at[1]));
        push(finger(SDL_FINGERDOWN, black_x, black_y));
        CHECK(!std::get<bool>(pointer()));
        push(finger(SDL_FINGERUP, black_x, black_y));
        push(left(SDL_MOUSEBUTTONDOWN, row.at[0], row.at[1])); // one that began inside stays, at the edge
        push(left(SDL_MOUSEMOTION, row.black[0], row.black[1]));
        CHECK(std::get<bool>(pointer()));
        CHECK((std::get<1>(pointer()) == 0 || std::get<2>(pointer()) == 479));
        push(left(SDL_MOUSEBUTTONUP, row.at[0], row.at[1]));
    }
}

static std::vector<std::pair<u16, u16>> landed;

TEST_CASE("further fingers are reported where they land, and only the first moves and lifts the pointer") {
    screen_open(200, 100);
    zof_touch_landed_set([](u16 x, u16 y) { landed.emplace_back(x, y); });
    push(finger(SDL_FINGERDOWN, 0.25f, 0.5f, 7));
    push(finger(SDL_FINGERDOWN, 0.75f, 0.5f, 8));
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 20, 30));
    CHECK(landed == std::vector<std::pair<u16, u16>>{{150, 50}, {20, 30}});
    push(finger(SDL_FINGERMOTION, 0.8f, 0.5f, 8));
    push(finger(SDL_FINGERUP, 0.8f, 0.5f, 8));
    CHECK(pointer() == pointer_state{true, 50, 50});
    push(finger(SDL_FINGERUP, 0.25f, 0.5f, 7));
    CHECK(!std::get<bool>(pointer()));
    CHECK(landed.size() == 2);
}

TEST_CASE("the cursor hides after a finger and comes back when the mouse moves") {
    screen_open(200, 100);
    push(finger(SDL_FINGERDOWN, 0.5f, 0.5f));
    CHECK(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE);
    push(finger(SDL_FINGERUP, 0.5f, 0.5f));
    CHECK(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE);
    SDL_Event again = mouse(SDL_MOUSEMOTION, 0, 5, 5); // the same finger, as SDL reports it once more
    again.motion.which = SDL_TOUCH_MOUSEID;
    push(again);
    CHECK(SDL_ShowCursor(SDL_QUERY) == SDL_DISABLE);
    push(mouse(SDL_MOUSEMOTION, 0, 5, 5));
    CHECK(SDL_ShowCursor(SDL_QUERY) == SDL_ENABLE);
}

static bool is_full() {
    return (SDL_GetWindowFlags(window()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

static void key(SDL_Keycode code, u32 type, u8 repeat = 0) {
    SDL_Event e = {};
    e.key = {.type = type, .repeat = repeat};
    e.key.keysym.sym = code;
    push(e);
}

TEST_CASE("a held key is one press, and F11 switches full screen and reaches no application") {
    static std::string keys;
    screen_open(200, 100);
    zof_drv_win_key_irq_reg([](zof_win_key_param_t *param, u32 code) {
        keys += (char)(zof_drv_win_key_get_status(param) ? code : code - 32);
    });
    for (const SDL_Keycode code : {SDL_Keycode(SDLK_a), SDL_Keycode(SDLK_F11)}) {
        key(code, SDL_KEYDOWN);
        key(code, SDL_KEYDOWN, 1);
        key(code, SDL_KEYDOWN, 1);
        key(code, SDL_KEYUP);
    }
    CHECK(keys == "aA");
    CHECK(is_full());
    SDL_Rect screen = {};
    SDL_GetDisplayBounds(0, &screen);
    check_window(0, (screen.h - screen.w / 2) / 2, screen.w, screen.w / 2);
    key(SDLK_F11, SDL_KEYDOWN);
    CHECK(!is_full());
    zof_disp_set_fullscreen(ZOF_TRUE);
    CHECK(is_full());
}

TEST_CASE("a picture as large as the screen is full screen at once, pixel by pixel") {
    SDL_SetHint(SDL_HINT_VIDEODRIVER, "offscreen");
    SDL_Init(SDL_INIT_VIDEO);
    SDL_Rect bounds = {};
    REQUIRE(SDL_GetDisplayBounds(0, &bounds) == 0);
    screen_open(bounds.w, bounds.h);
    CHECK(is_full());
    push(mouse(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT, 51, 60));
    CHECK(pointer() == pointer_state{true, 51, 60});
}

// The lightest pixel of each frame that was shown, outside the sign in the middle.
static std::vector<u32> lightest;

static u32 lightest_now() {
    const screen_picture p = screen_frame();
    u32 most = 0;
    for (s32 i = 0; i < p.width * p.height; i++) {
        const s32 x = i % p.width, y = i / p.width;
        const bool sign = std::abs(x - p.width / 2) <= 80 && std::abs(y - p.height / 2) <= 80;
        const u32 color = p.pixels[(size_t)i];
        most = sign ? most : std::max({most, color >> 16, color >> 8 & 0xFF, color & 0xFF});
    }
    return most;
}

TEST_CASE("the bench panel is black from the first frame to its first page, with the sign in the middle") {
    REQUIRE(chdir(ZOF_PANEL_DIR) == 0);
    screen_init();
    zof_drv_init();
    lightest.push_back(lightest_now());
    CHECK((*window_at(400, 240) & 0xFFFFFF) == 0);
    lv_disp_get_default()->driver->flush_cb = [](lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels) {
        const bool last = lv_disp_flush_is_last(drv);
        sdl_display_flush(drv, area, pixels);
        if (last) {
            lightest.push_back(lightest_now());
        }
    };
    zof_func_pwon();
    zof_prj_create(zof_views_fun, ZOF_VIEW_COUNT);
    screen_step(40);
    REQUIRE(lightest.size() >= 3); // opened, sign, page
    CHECK(lightest[0] == 0);
    CHECK(lightest[1] == 0);
}

static std::pair<s32, s32> window_size() {
    s32 w = 0, h = 0;
    SDL_GetWindowSize(window(), &w, &h);
    return {w, h};
}

TEST_CASE("the window opens as it was left, but full screen is not remembered") {
    temp_project_t folder;
    setenv("ZOF_STATE", folder.path("state/deep").c_str(), 1);
    const std::string file = folder.path("state/deep/window-");
    win_place_t place = {1, 2, false};
    for (const char *wrong : {"", "640", "640 480", "640 480\n\n", "0 480\n", "640 -480\n", "99999 480\n",
                              "640 480 minimised\n", "640 480\n640 480\n"}) {
        CAPTURE(wrong);
        folder.write("state/deep/window-", wrong);
        printed([&place] { CHECK(!win_place_read("", &place)); });
        CHECK(place.w == 1);
    }
    std::filesystem::remove_all(folder.path("state"));

    screen_open(200, 100);
    CHECK(window_size() == std::pair(200, 100));
    win_screen_close();
    CHECK(!std::filesystem::exists(folder.path("state"))); // nothing has changed
    static const std::vector<u32> pixels(200 * 100);
    const auto open = [] { REQUIRE(win_screen_open(pixels.data(), 200, 100)); };
    const auto window = [] { return SDL_GetWindowFromID(2); };
    open();
    SDL_SetWindowSize(window(), 333, 222);
    win_screen_event(SDL_WINDOWEVENT_SIZE_CHANGED);
    win_screen_full_set(true);
    win_screen_event(SDL_WINDOWEVENT_SIZE_CHANGED);
    win_screen_close();
    CHECK(file_text(file) == "333 222\n");
    open();
    s32 w = 0, h = 0;
    win_screen_size(&w, &h);
    CHECK(std::pair(w, h) == std::pair(333, 222));
    win_screen_close();
    folder.write("state/deep/window-", "9000 3000 maximised\n"); // from a larger screen
    CHECK(win_place_read("", &place));
    CHECK(place.maximised);
    open();
    win_screen_size(&w, &h);
    SDL_Rect room = {};
    SDL_GetDisplayUsableBounds(0, &room);
    CHECK((w <= room.w && h <= room.h));
}

TEST_CASE("the window's state is kept in the user's state folder") {
    const struct {
        const char *state, *xdg, *home, *path;
    } rows[] = {{"/s", "/x", "/h", "/s/f"},
                {nullptr, "/x", "/h", "/x/window_size_test/f"},
                {nullptr, "x", "/h", "/h/.local/state/window_size_test/f"},
                {nullptr, nullptr, "/h", "/h/.local/state/window_size_test/f"},
                {"", "/x", "/h", ""},
                {"s", "/x", "/h", ""},
                {nullptr, nullptr, nullptr, ""}};
    for (const auto &row : rows) {
        CAPTURE(&row - rows);
        const auto set = [](const char *name, const char *to) { to ? setenv(name, to, 1) : unsetenv(name); };
        set("ZOF_STATE", row.state);
        set("XDG_STATE_HOME", row.xdg);
        set("HOME", row.home);
        char path[64] = "";
        CHECK(zof_file_state_path(path, sizeof(path), "f", ZOF_FALSE) == (row.path[0] ? 0 : -1));
        CHECK(std::string(path) == row.path);
    }
    char path[64];
    CHECK(zof_file_state_path(path, 5, "f", ZOF_FALSE) == -1);
    temp_project_t home; // a size from the time when all programs had one folder is taken over
    home.write("zof/window-a", "640 480\n");
    setenv("XDG_STATE_HOME", home.folder.c_str(), 1);
    win_place_t place = {};
    CHECK((win_place_read("a", &place) && place.w == 640));
    CHECK(file_text(home.path("window_size_test/window-a")) == "640 480\n");
    CHECK(!std::filesystem::exists(home.path("zof/window-a")));
}
