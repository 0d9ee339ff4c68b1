// Only what has changed is scaled and copied to the window's surface. When the surface is new, everything is, and black
// beside it.
#include "port/win_screen.h"

#include <SDL.h>

#include <stdlib.h>
#include <string.h>

#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_up.h"
#include "lvgl.h"
#include "port/win_light.h"
#include "port/win_place.h"
#include "port/win_scale.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

enum { PARTS_MAX = LV_INV_BUF_SIZE };
enum { LEVEL_FULL = 255, LEVEL_LEAST = 25, LEVELS_TO_BLACK = 4600 }; // 25 to 255 is a twentieth

static struct {
    SDL_Window *window;
    SDL_Surface *surface; // the window's own, to notice when SDL has replaced it; null: show everything
    s32 w, h;             // its size
    const u32 *pixels;    // the picture
    win_fit_t fit;
    win_scale_t scale;
    u32 *line; // a row of the window, where its pixels have another form than ours
    u32 bright;
    SDL_Rect drawn[PARTS_MAX]; // parts of the surface that the system has not been given
    u32 drawn_count;
    SDL_Point corner;        // where it was before it became full screen
    win_place_t opened;      // as it was opened
    win_place_t now, before; // as it is, and was before, while it is neither maximised nor full screen
} screen;

static bool memory_driver(const char *name) {
    return name && (strcmp(name, "offscreen") == 0 || strcmp(name, "dummy") == 0);
}

// Ends the program if its options ask for a window, because the user would wait for a window that never appears.
static void display_must(const char *asked, const char *reason) {
    if (!memory_driver(asked) && (asked || zof_disp_get_fullscreen() || zof_disp_get_scale())) {
        zof_printf("window: %s", reason);
        _Exit(ZOF_EXIT_DISPLAY); // nothing is torn down, as when the window is closed
    }
}

bool win_screen_video() {
    const char *asked = SDL_getenv("SDL_VIDEODRIVER");
    if (SDL_Init(SDL_INIT_VIDEO) == 0) {
        if (memory_driver(SDL_GetCurrentVideoDriver()) && !memory_driver(asked)) {
            display_must(asked, "no display found");
            zof_printf("window: no display found; drawing off the screen");
        }
        return true;
    }
    display_must(asked, SDL_GetError());
    static const char *const without[] = {"offscreen", "dummy"};
    for (const char *driver : without) {
        char reason[128];
        SDL_strlcpy(reason, SDL_GetError(), sizeof(reason));
        SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, driver, SDL_HINT_OVERRIDE);
        if (SDL_Init(SDL_INIT_VIDEO) == 0) {
            zof_printf("window: %s; drawing off the screen", reason);
            return true;
        }
    }
    return false;
}

// SDL would pass our finished picture to OpenGL, which without a graphics card costs more than drawing it did. Drivers
// other than those of a desktop have no other way to show it. Without a desktop SDL may have loaded OpenGL ES alone,
// but still prefers its renderer for OpenGL, which then draws nothing.
static void framebuffer_choose() {
    const char *driver = SDL_GetCurrentVideoDriver();
    if (memory_driver(driver) || (driver && strcmp(driver, "x11") == 0)) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    } else if (win_light_alone()) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "opengles2");
    }
}

static const char *window_title() {
    zof_prj_facts_t facts = {};
    return zof_drv_up.prj_facts(&facts) == 0 && facts.title ? facts.title : "";
}

// Returns whether the screen has no room for a window of the picture's size.
static bool screen_is_small(s32 w, s32 h) {
    s32 screen_w = 0;
    s32 screen_h = 0;
    zof_host_screen_size(&screen_w, &screen_h);
    return screen_w > 0 && screen_h > 0 && (w >= screen_w || h >= screen_h);
}

// The size to open with. Neither one from a larger screen nor a large picture may hide a part of the window.
static win_place_t place_choose(s32 w, s32 h) {
    const s32 percent = (s32)zof_disp_get_scale();
    win_place_t place = {percent ? w * percent / 100 : w, percent ? h * percent / 100 : h, false};
    if (zof_host_scales()) {
        return {w, h, false};
    }
    if (!percent) {
        win_place_read(window_title(), &place);
    }
    SDL_Rect room = {};
    if (SDL_GetDisplayUsableBounds(0, &room) == 0 && (place.w > room.w || place.h > room.h)) {
        const win_fit_t fit = win_fit_make(place.w, place.h, room.w, room.h);
        place.w = fit.out.w;
        place.h = fit.out.h;
    }
    return place;
}

// Hidden until its surface is black; on its own the system would show what was there before, or white. A full screen
// has its size from the beginning, because without a window manager nobody else would set it.
static bool window_create(s32 w, s32 h) {
    const bool full =
        zof_disp_get_fullscreen() || win_light_alone() || (!zof_disp_get_scale() && screen_is_small(w, h));
    screen.opened = screen.now = screen.before = place_choose(w, h);
    screen.corner = {SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED};
    SDL_Rect at = {SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED, screen.opened.w, screen.opened.h};
    u32 flags = SDL_WINDOW_HIDDEN | (zof_host_scales() ? 0 : SDL_WINDOW_RESIZABLE) |
                (screen.opened.maximised ? SDL_WINDOW_MAXIMIZED : 0);
    if (full && SDL_GetDisplayBounds(0, &at) == 0) {
        flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_FULLSCREEN_DESKTOP;
    }
    screen.window = SDL_CreateWindow(window_title(), at.x, at.y, at.w, at.h, flags);
    SDL_Surface *surface = screen.window ? SDL_GetWindowSurface(screen.window) : nullptr;
    if (!surface) {
        return false;
    }
    if (!zof_host_scales()) {
        SDL_SetWindowMinimumSize(screen.window, (w + 1) / 2, (h + 1) / 2);
    }
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
    SDL_ShowWindow(screen.window);
    SDL_UpdateWindowSurface(screen.window);
    win_light_open(screen.window);
    return true;
}

static void window_drop() {
    win_light_close();
    if (screen.window) {
        SDL_DestroyWindow(screen.window);
    }
    screen.window = nullptr;
    screen.surface = nullptr;
}

bool win_screen_open(const u32 *pixels, s32 w, s32 h) {
    framebuffer_choose();
    screen.pixels = pixels;
    screen.bright = WIN_SCALE_ONE;
    screen.fit = win_fit_make(w, h, w, h);
    if (pixels && window_create(w, h)) {
        return true;
    }
    window_drop();
    return false;
}

bool win_screen_is_full() {
    return screen.window && (SDL_GetWindowFlags(screen.window) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

bool win_screen_title_set(const char *title) {
    if (screen.window) {
        SDL_SetWindowTitle(screen.window, title);
    }
    return screen.window != nullptr;
}

// A full screen will be what it was before.
static void maximised_note() {
    if (!win_screen_is_full()) {
        screen.now.maximised = (SDL_GetWindowFlags(screen.window) & SDL_WINDOW_MAXIMIZED) != 0;
    }
}

void win_screen_close() {
    if (!screen.window) {
        return;
    }
    maximised_note();
    if (screen.now.w != screen.opened.w || screen.now.h != screen.opened.h ||
        screen.now.maximised != screen.opened.maximised) {
        win_place_write(window_title(), &screen.now);
    }
    window_drop();
}

// Prepares for a surface that is new or has another size, and clears it. Returns false without memory.
static bool surface_take(SDL_Surface *surface) {
    screen.surface = nullptr; // without memory: again at the next part
    screen.fit = win_fit_make(screen.fit.pic_w, screen.fit.pic_h, surface->w, surface->h);
    zof_free(screen.line);
    screen.line = (u32 *)zof_malloc((size_t)surface->w * sizeof(u32));
    if (!screen.line || !win_scale_make(&screen.scale, &screen.fit, screen.bright)) {
        zof_printf("window: no memory for a picture of %d x %d pixels", surface->w, surface->h);
        return false;
    }
    screen.surface = surface;
    screen.w = surface->w;
    screen.h = surface->h;
    SDL_FillRect(surface, nullptr, SDL_MapRGB(surface->format, 0, 0, 0));
    return true;
}

static void row_draw(SDL_Surface *surface, const win_rect_t *part, s32 y) {
    const u32 format = surface->format->format;
    u8 *to =
        (u8 *)surface->pixels + (size_t)y * (size_t)surface->pitch + (size_t)part->x * surface->format->BytesPerPixel;
    const bool direct = format == SDL_PIXELFORMAT_RGB888;
    if (y > part->y && win_scale_row_repeats(&screen.scale, y - screen.fit.out.y)) {
        memcpy(to, to - surface->pitch, (size_t)part->w * surface->format->BytesPerPixel);
        return;
    }
    win_scale_row(&screen.scale, screen.pixels, part->x - screen.fit.out.x, y - screen.fit.out.y, part->w,
                  direct ? (u32 *)(void *)to : screen.line);
    if (!direct) {
        SDL_ConvertPixels(part->w, 1, SDL_PIXELFORMAT_RGB888, screen.line, part->w * (int)sizeof(u32), format, to,
                          surface->pitch);
    }
}

// Adds to what the system has to be given; when there is no room, to the last part.
static void drawn_add(win_rect_t part) {
    const SDL_Rect rect = {part.x, part.y, part.w, part.h};
    if (screen.drawn_count < PARTS_MAX) {
        screen.drawn[screen.drawn_count++] = rect;
    } else {
        SDL_UnionRect(&screen.drawn[PARTS_MAX - 1], &rect, &screen.drawn[PARTS_MAX - 1]);
    }
}

void win_screen_draw(win_rect_t part) {
    SDL_Surface *surface = screen.window ? SDL_GetWindowSurface(screen.window) : nullptr;
    if (!surface) {
        return;
    }
    const bool whole = surface != screen.surface || surface->w != screen.w || surface->h != screen.h;
    if (whole && !surface_take(surface)) {
        return;
    }
    const win_rect_t shown = whole ? screen.fit.out : win_fit_part(&screen.fit, part);
    for (s32 y = shown.y; shown.w > 0 && y < shown.y + shown.h; y++) {
        row_draw(surface, &shown, y);
    }
    if (whole) {
        screen.drawn_count = 0; // of another surface
    }
    drawn_add(whole ? win_rect_t{0, 0, surface->w, surface->h} : shown);
}

void win_screen_update() {
    if (screen.window && screen.drawn_count && !win_light_is_off()) {
        SDL_UpdateWindowSurfaceRects(screen.window, screen.drawn, (int)screen.drawn_count);
    }
    screen.drawn_count = 0;
}

void win_screen_show_all() {
    screen.surface = nullptr;
    win_screen_draw({});
    win_screen_update();
}

void win_screen_bright(u8 level) {
    const u32 under = win_light_level(level) ? 0 : LEVEL_FULL - (u32)SDL_max(level, (u8)LEVEL_LEAST);
    screen.bright = WIN_SCALE_ONE - WIN_SCALE_ONE * under / LEVELS_TO_BLACK;
    win_screen_show_all();
}

// Returns whether no window manager is seen to decorate the window; there may be none.
static bool is_bare() {
    s32 top = 0;
    s32 left = 0;
    s32 bottom = 0;
    s32 right = 0;
    SDL_GetWindowBordersSize(screen.window, &top, &left, &bottom, &right);
    return !top && !left && !bottom && !right;
}

// SDL only asks the window manager. Without one the window has to have the size of the screen already.
static void full_enter() {
    SDL_Rect bounds = {};
    maximised_note();
    SDL_GetWindowPosition(screen.window, &screen.corner.x, &screen.corner.y);
    if (is_bare() && SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(screen.window), &bounds) == 0) {
        SDL_SetWindowPosition(screen.window, bounds.x, bounds.y);
        SDL_SetWindowSize(screen.window, bounds.w, bounds.h);
    }
    if (SDL_SetWindowFullscreen(screen.window, SDL_WINDOW_FULLSCREEN_DESKTOP) != 0) {
        zof_printf("window: %s", SDL_GetError());
    }
}

static void full_leave() {
    SDL_SetWindowFullscreen(screen.window, 0);
    if (screen.now.maximised) {
        SDL_MaximizeWindow(screen.window);
        return;
    }
    SDL_SetWindowSize(screen.window, screen.now.w, screen.now.h);
    SDL_SetWindowPosition(screen.window, screen.corner.x, screen.corner.y);
}

void win_screen_full_set(bool full) {
    if (screen.window && full != win_screen_is_full() && !win_light_alone()) {
        full ? full_enter() : full_leave();
    }
}

// The system may report the size of a maximised window before it says that it is maximised.
static void size_note(bool maximised) {
    win_place_t size = {};
    SDL_GetWindowSize(screen.window, &size.w, &size.h);
    const u32 flags = SDL_GetWindowFlags(screen.window);
    const bool own = !(flags & (SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_MAXIMIZED | SDL_WINDOW_MINIMIZED));
    if (own) {
        screen.before = screen.now;
        screen.now = size; // not maximised
    } else if (maximised && size.w == screen.now.w && size.h == screen.now.h) {
        screen.now = screen.before;
    }
}

bool win_screen_event(u8 event) {
    if (!screen.window) {
        return false;
    }
    switch (event) {
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_MAXIMIZED:
        size_note(event == SDL_WINDOWEVENT_MAXIMIZED);
        win_screen_show_all();
        return false;
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_TAKE_FOCUS:
        win_screen_show_all();
        return false;
    case SDL_WINDOWEVENT_LEAVE: // with the mouse captured its release is reported wherever it is
        return !(SDL_GetWindowFlags(screen.window) & SDL_WINDOW_MOUSE_CAPTURE);
    default:
        return event == SDL_WINDOWEVENT_FOCUS_LOST || event == SDL_WINDOWEVENT_HIDDEN ||
               event == SDL_WINDOWEVENT_MINIMIZED;
    }
}

bool win_screen_pixel(s32 x, s32 y, s32 *pic_x, s32 *pic_y) {
    return win_fit_pixel(&screen.fit, x, y, pic_x, pic_y);
}

void win_screen_position(s32 pic_x, s32 pic_y, s32 *x, s32 *y) {
    win_fit_position(&screen.fit, pic_x, pic_y, x, y);
}

void win_screen_size(s32 *w, s32 *h) {
    *w = screen.fit.pic_w;
    *h = screen.fit.pic_h;
    if (screen.window) {
        SDL_GetWindowSize(screen.window, w, h);
    }
}
