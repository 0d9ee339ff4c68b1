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
