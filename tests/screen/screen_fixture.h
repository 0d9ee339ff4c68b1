// A panel for tests: an off-screen window on a clock that the test sets. Presses go through the window's own events.
//
//     TEST_CASE("a button is pressed") {
//         screen_open(320, 240);
//         ... build objects ...
//         screen_click(100, 50);
//         CHECK(screen_is_golden("button_clicked"));
//     }
//
// Goldens are in tests/screen/golden. A missing one is a failure; ZOF_GOLDEN=write writes them from what is drawn.
#ifndef SCREEN_FIXTURE_H
#define SCREEN_FIXTURE_H

#include <stdarg.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "drv/zof_drv_media.h"
#include "drv/zof_loop_in.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "zof_test.h"

extern "C" unsigned lodepng_decode24(unsigned char **out, unsigned *w, unsigned *h, const unsigned char *in,
                                     size_t insize);

// The longest time for a press to reach the widgets: a poll of the window's events and a read of the input device.
enum { SCREEN_STEP_MS = 5, SCREEN_INPUT_MS = 45 };

inline u32 screen_now; // milliseconds of the test's clock

// Formats a text like printf.
[[gnu::format(printf, 1, 2)]] inline std::string form(const char *format, ...) {
    char *text = nullptr;
    va_list args;
    va_start(args, format);
    const std::string out(vasprintf(&text, format, args) < 0 ? "" : text);
    va_end(args);
    free(text);
    return out;
}

// Starts LVGL on the test's clock, with a window and sounds that are nowhere.
inline void screen_init() {
    static const zof_clock_t clock = {[] { return screen_now; }, [](u32 ms) { screen_now += ms; }};
    zof_clock_set(&clock);
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    setenv("ZOF_STATE", "", 0); // nothing of the person who runs the tests
    lv_init();
}

// Opens the window and the drivers of display and touch. With a project (zof_prj_obj_create) its size is used.
inline void screen_open(s32 width, s32 height) {
    screen_init();
    zof_loop_init();
    SDL_HOR_RES = width;
    SDL_VER_RES = height;
    win_disp_init();
    win_touch_init();
}

// Lets time pass as the main loop does.
inline void screen_step(u32 ms) {
    const u32 end = screen_now + ms;
    while ((s32)(end - screen_now) > 0) {
        screen_now += LV_MIN(end - screen_now, (u32)SCREEN_STEP_MS);
        lv_timer_handler();
    }
}

inline void screen_press(s32 x, s32 y) {
    sdl_pointer_inject(x, y, ZOF_TRUE);
    screen_step(SCREEN_INPUT_MS);
}

// Moves the finger; pressed or not is unchanged.
inline void screen_move(s32 x, s32 y) {
    zof_touch_t touch = {};
    zof_touch_get(&touch);
    sdl_pointer_inject(x, y, touch.state != ZOF_TOUCH_RELEASED);
    screen_step(SCREEN_INPUT_MS);
}

inline void screen_release(s32 x, s32 y) {
    sdl_pointer_inject(x, y, ZOF_FALSE);
    screen_step(SCREEN_INPUT_MS);
}

inline void screen_click(s32 x, s32 y) {
    screen_press(x, y);
    screen_release(x, y);
}

// Drags from one point to another in `steps` moves and lifts the finger at the end.
inline void screen_drag(s32 x1, s32 y1, s32 x2, s32 y2, s32 steps) {
    screen_press(x1, y1);
    for (s32 i = 1; i <= steps; i++) {
        screen_move(x1 + (x2 - x1) * i / steps, y1 + (y2 - y1) * i / steps);
    }
    screen_release(x2, y2);
}

struct screen_picture {
    s32 width = 0;
    s32 height = 0;
    std::vector<u32> pixels; // 0xRRGGBB

    u32 at(s32 x, s32 y) const {
        return x >= 0 && y >= 0 && x < width && y < height ? pixels[(size_t)y * (size_t)width + (size_t)x] : 0xFFFFFFFF;
    }
};

// Returns what the panel shows now.
inline screen_picture screen_frame() {
    screen_picture p;
    const u32 *frame = sdl_frame_get(&p.width, &p.height);
    for (size_t i = 0; frame && i < (size_t)p.width * (size_t)p.height; i++) {
        p.pixels.push_back(frame[i] & 0xFFFFFF);
    }
    return p;
}

// The same, after drawing everything that is pending.
inline screen_picture screen_shot() {
    lv_refr_now(nullptr);
    return screen_frame();
}

inline u32 screen_pixel(s32 x, s32 y) {
    return screen_shot().at(x, y);
}

struct screen_spot {
    s32 x, y;
    u32 color;
};

// Checks the colours of single pixels.
inline void screen_check(const std::vector<screen_spot> &spots) {
    const screen_picture p = screen_shot();
    for (const screen_spot &spot : spots) {
        CAPTURE(spot.x);
        CAPTURE(spot.y);
        CHECK(p.at(spot.x, spot.y) == spot.color);
    }
}

inline bool screen_png_read(const std::string &path, screen_picture *out) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> raw{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    unsigned char *rgb = nullptr;
    unsigned w = 0;
    unsigned h = 0;
    if (raw.empty() || lodepng_decode24(&rgb, &w, &h, (const unsigned char *)raw.data(), raw.size()) != 0) {
        return false;
    }
    *out = {(s32)w, (s32)h, {}};
    for (size_t i = 0; i < (size_t)w * h; i++) {
        out->pixels.push_back((u32)rgb[i * 3] << 16 | (u32)rgb[i * 3 + 1] << 8 | rgb[i * 3 + 2]);
    }
    zof_lv_free(rgb);
    return true;
}

inline void screen_png_write(const std::string &path, const screen_picture &p) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    zof_shot_png_write(path.c_str(), p.pixels.data(), p.width, p.height);
}

// Reports where two pictures first differ; true when they do not.
inline bool screen_same(const screen_picture &got, const screen_picture &want) {
    if (got.width != want.width || got.height != want.height) {
        MESSAGE(form("the picture is %d x %d, expected %d x %d", got.width, got.height, want.width, want.height));
        return false;
    }
    const auto [wrong, right] = std::mismatch(got.pixels.begin(), got.pixels.end(), want.pixels.begin());
    if (wrong == got.pixels.end()) {
        return true;
    }
    const s32 i = (s32)(wrong - got.pixels.begin());
    MESSAGE(form("the first pixel that differs, (%d, %d), is %06X, expected %06X", i % got.width, i / got.width, *wrong,
                 *right));
    return false;
}

inline bool screen_is_golden(const std::string &name) {
    const std::string golden = std::string(ZOF_SOURCE_DIR "/tests/screen/golden/") + name + ".png";
    const std::string kept = std::string(ZOF_BUILD_DIR "/golden/") + name;
    const screen_picture got = screen_shot();
    if (getenv("ZOF_GOLDEN")) {
        screen_png_write(golden, got);
    }
    screen_picture want;
    if (screen_png_read(golden, &want) && screen_same(got, want)) {
        return true;
    }
    screen_png_write(kept + ".got.png", got);
    MESSAGE("compare " << kept << ".got.png with " << golden << "; if it is right, run with ZOF_GOLDEN=write");
    return false;
}

#endif
