// The window for tests: events as the system would send them, what the input device makes of them, and its pixels.
#ifndef WINDOW_EVENTS_H
#define WINDOW_EVENTS_H

#include <SDL2/SDL.h>

#include <tuple>

#include "screen_fixture.h"

inline void push(SDL_Event event) {
    SDL_PushEvent(&event);
    screen_step(SCREEN_INPUT_MS);
}

inline SDL_Event mouse(u32 type, u8 button, s32 x, s32 y) {
    SDL_Event e = {};
    e.button = {.type = type, .button = button, .x = x, .y = y};
    if (type == SDL_MOUSEMOTION) {
        e.motion = {.type = type, .x = x, .y = y};
    }
    return e;
}

inline SDL_Event finger(u32 type, float x, float y, s64 id = 0) {
    SDL_Event e = {};
    e.tfinger = {.type = type, .fingerId = id, .x = x, .y = y};
    return e;
}

// What the input device reports.
using pointer_state = std::tuple<bool, s32, s32>; // down, x, y

inline pointer_state pointer() {
    lv_indev_data_t data = {};
    sdl_mouse_read(nullptr, &data);
    return {data.state == LV_INDEV_STATE_PRESSED, data.point.x, data.point.y};
}

inline SDL_Event window_says(u8 what) {
    SDL_Event e = {};
    e.window.type = SDL_WINDOWEVENT;
    e.window.event = what;
    return e;
}

// Draws a rectangle as LVGL would; both corners belong to it.
inline void flush_part(s32 x1, s32 y1, s32 x2, s32 y2, u32 color) {
    std::vector<lv_color_t> pixels((size_t)(x2 - x1 + 1) * (size_t)(y2 - y1 + 1), lv_color_hex(color));
    const lv_area_t area = {x1, y1, x2, y2};
    lv_disp_draw_buf_t *buf = lv_disp_get_default()->driver->draw_buf;
    buf->flushing = 1;
    buf->flushing_last = 1;
    sdl_display_flush(lv_disp_get_default()->driver, &area, pixels.data());
    CHECK(!buf->flushing);
}

inline SDL_Window *window() {
    return SDL_GetWindowFromID(1);
}

// A pixel of the window itself.
inline u32 *window_at(s32 x, s32 y) {
    SDL_Surface *surface = SDL_GetWindowSurface(window());
    REQUIRE(surface);
    REQUIRE(surface->format->BytesPerPixel == 4);
    return (u32 *)((u8 *)surface->pixels + y * surface->pitch) + x;
}

#endif
