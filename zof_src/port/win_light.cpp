#include "port/win_light.h"

#include <SDL.h>
#include <string.h>

#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

enum { LEVEL_FULL = 255 };

static struct {
    SDL_Window *window; // null on a desktop
    bool backlight;
    bool off; // the display has no signal
} light;

bool win_light_alone() {
    const char *driver = SDL_GetCurrentVideoDriver();
    return driver && strcmp(driver, "KMSDRM") == 0;
}

void win_light_open(SDL_Window *window) {
    light = {};
    if (!win_light_alone()) {
        return;
    }
    SDL_ShowCursor(SDL_DISABLE); // until a mouse moves
    light.window = window;
    light.backlight = zof_host_light_find();
    win_light_level(LEVEL_FULL);
}

void win_light_close() {
    if (light.window) {
        win_light_level(LEVEL_FULL);
    }
    light = {};
}

bool win_light_is_set() {
    return light.backlight;
}

static void power_set(bool on) {
    if (light.off == on && zof_host_display_power(light.window, on) == 0) {
        light.off = !on;
    }
}

bool win_light_level(u8 level) {
    if (!light.window) {
        return false;
    }
    if (light.backlight && zof_host_light_set(level) != 0) {
        zof_printf("backlight: %s; dimming the picture instead", zof_file_error());
        light.backlight = false;
    }
    power_set(level > 0);
    return light.backlight || light.off;
}

bool win_light_is_off() {
    return light.off;
}
