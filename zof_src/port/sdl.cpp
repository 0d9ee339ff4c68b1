// The window: a frame store whose changed parts are copied to the window's surface, and the events of mouse, touch and
// keyboard. Without a display SDL draws off the screen; without SDL the frame store works alone, so that screenshots
// work everywhere.
#include <SDL.h>

#include <stdlib.h>
#include <string.h>

#include <atomic>

#include "drv/zof_drv_audio.h"
#include "drv/zof_drv_gpio.h"
#include "drv/zof_drv_touch.h"
#include "drv/zof_drv_up.h"
#include "drv/zof_loop_in.h"
#include "port/win_loop.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

enum { EVENT_PERIOD_MS = 10, KEY_BUFFER = 32, BRIGHT_FULL = 255 };

s32 SDL_HOR_RES = 480;
s32 SDL_VER_RES = 272;

// The window and its picture.
static struct {
    SDL_Window *window;
    SDL_Surface *surface; // the window's own, to notice when SDL has replaced it
    SDL_Surface *picture; // the frame store, as SDL sees it
    SDL_Rect changed;     // part of the picture that changed since it was last shown
    u32 *tft_fb;
    SDL_threadID thread; // the graphics thread: the only one that may touch the window
} monitor;

static float zoom = 1.0f;
static std::atomic<u8> sdl_quit_qry;
static std::atomic<u8> bright_wanted{BRIGHT_FULL}; // set by any thread
static u8 bright_shown = BRIGHT_FULL;              // applied by the graphics thread

// The latest state of mouse, wheel and keyboard.
static u8 left_button_down;
static u8 press_unread; // a press that ended before the widgets read it: they still get it once
static s16 last_x, last_y;
static u8 wheel_state;
static s16 wheel_diff;
static char key_buffer[KEY_BUFFER];
static u8 key_down;

static bool events_take();

// Runs on the thread that raises the event, so it only sets a flag.
static int quit_filter(void *, SDL_Event *event) {
    if (event->type == SDL_QUIT || (event->type == SDL_WINDOWEVENT && event->window.event == SDL_WINDOWEVENT_CLOSE)) {
        sdl_quit_qry = 1;
    }
    return 1;
}

static bool memory_driver(const char *name) {
    return name && (strcmp(name, "offscreen") == 0 || strcmp(name, "dummy") == 0);
}

// Uses the display of the environment, else SDL's drivers that need none.
static bool video_start() {
    const char *asked = SDL_getenv("SDL_VIDEODRIVER");
    if (SDL_Init(SDL_INIT_VIDEO) == 0) {
        if (memory_driver(SDL_GetCurrentVideoDriver()) && !memory_driver(asked)) {
            zof_printf("window: no display found; drawing off the screen");
        }
        return true;
    }
    for (const char *driver : {"offscreen", "dummy"}) {
        const char *why = SDL_GetError();
        char reason[128];
        SDL_strlcpy(reason, why, sizeof(reason));
        SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, driver, SDL_HINT_OVERRIDE);
        if (SDL_Init(SDL_INIT_VIDEO) == 0) {
            zof_printf("window: %s; drawing off the screen", reason);
            return true;
        }
    }
    return false;
}

// SDL would pass our finished picture to OpenGL, which without a graphics card costs more than drawing it did. Drivers
// other than these have no other way to show it.
static void plain_framebuffer() {
    const char *driver = SDL_GetCurrentVideoDriver();
    if (memory_driver(driver) || (driver && strcmp(driver, "x11") == 0)) {
        SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    }
}

static void zoom_choose() {
    s32 w = 0;
    s32 h = 0;
    zof_host_screen_size(&w, &h);
    const bool unknown = w <= 0 || h <= 0;
    zoom = unknown || (SDL_HOR_RES < w && SDL_VER_RES < h) ? 1.0f : 0.5f;
}

static void window_drop() {
    if (monitor.picture) {
        SDL_FreeSurface(monitor.picture);
    }
    if (monitor.window) {
        SDL_DestroyWindow(monitor.window);
    }
    monitor.picture = nullptr;
    monitor.window = nullptr;
}

static bool window_open() {
    zof_prj_facts_t facts = {};
    const char *title = zof_drv_up.prj_facts(&facts) == 0 && facts.title ? facts.title : "";
    monitor.window = SDL_CreateWindow(title, SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                                      (int)((float)SDL_HOR_RES * zoom), (int)((float)SDL_VER_RES * zoom), 0);
    if (!monitor.tft_fb || !monitor.window || !SDL_GetWindowSurface(monitor.window)) {
        return false;
    }
    monitor.picture = SDL_CreateRGBSurfaceWithFormatFrom(monitor.tft_fb, SDL_HOR_RES, SDL_VER_RES, 32,
                                                         SDL_HOR_RES * (int)sizeof(u32), SDL_PIXELFORMAT_RGB888);
    return monitor.picture != nullptr;
}

static void frame_store_make() {
    const size_t bytes = (size_t)SDL_HOR_RES * (size_t)SDL_VER_RES * sizeof(u32);
    monitor.tft_fb = (u32 *)zof_malloc(bytes);
    if (monitor.tft_fb) {
        memset(monitor.tft_fb, 0xFF, bytes);
    }
}

void sdl_init(void) {
    monitor.thread = SDL_ThreadID();
    frame_store_make();
    const bool video = video_start();
    if (video) {
        SDL_SetEventFilter(quit_filter, nullptr);
        plain_framebuffer();
        zoom_choose();
    }
    if (!video || !window_open()) {
        zof_printf("window: %s; continuing without one", SDL_GetError());
        window_drop();
    }
    if (monitor.window) {
        SDL_StartTextInput();
    }
    static zof_loop_source events;
    zof_loop_source_add(&events, lv_timer_create(sdl_event_handler, EVENT_PERIOD_MS, nullptr));
    win_loop_init(events_take);
}

// Copies a part of the picture to the window, and shows it. At half size a part begins and ends at even positions, so
// that each pixel of the window comes from the same pixels as in a whole copy.
static void window_update(SDL_Rect part) {
    SDL_Surface *surface = monitor.picture ? SDL_GetWindowSurface(monitor.window) : nullptr;
    if (!surface) {
        return;
    }
    const SDL_Rect whole = {0, 0, SDL_HOR_RES, SDL_VER_RES};
    part = surface == monitor.surface ? part : whole;
    monitor.surface = surface;
    if (zoom < 1) {
        part.w = (part.x + part.w + 1) / 2 * 2 - part.x / 2 * 2;
        part.h = (part.y + part.h + 1) / 2 * 2 - part.y / 2 * 2;
        part.x = part.x / 2 * 2;
        part.y = part.y / 2 * 2;
        SDL_Rect shown = {part.x / 2, part.y / 2, part.w / 2, part.h / 2};
        SDL_BlitScaled(monitor.picture, &part, surface, &shown);
        part = shown;
    } else {
        SDL_Rect shown = part;
        SDL_BlitSurface(monitor.picture, &part, surface, &shown);
    }
    SDL_UpdateWindowSurfaceRects(monitor.window, &part, 1);
}

static void window_update_all() {
    window_update({0, 0, SDL_HOR_RES, SDL_VER_RES});
}

void sdl_display_flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels) {
    const bool outside = area->x2 < 0 || area->y2 < 0 || area->x1 >= SDL_HOR_RES || area->y1 >= SDL_VER_RES;
    if (outside || !monitor.tft_fb) {
        lv_disp_flush_ready(drv);
        return;
    }
    const s32 row = area->x2 - area->x1 + 1;
    const s32 left = LV_MAX(area->x1, 0);
    const s32 width = LV_MIN(area->x2, SDL_HOR_RES - 1) - left + 1;
    const s32 bottom = LV_MIN(area->y2, SDL_VER_RES - 1);
    for (s32 y = LV_MAX(area->y1, 0); y <= bottom; y++) {
        const lv_color_t *from = pixels + (size_t)(y - area->y1) * (size_t)row + (left - area->x1);
        memcpy(monitor.tft_fb + (size_t)y * (size_t)SDL_HOR_RES + left, from, (size_t)width * sizeof(u32));
    }
    const s32 top = LV_MAX(area->y1, 0);
    const SDL_Rect flushed = {left, top, width, bottom - top + 1};
    SDL_UnionRect(&monitor.changed, &flushed, &monitor.changed);
    if (lv_disp_flush_is_last(drv)) {
        window_update(monitor.changed);
        monitor.changed = {};
    }
    lv_disp_flush_ready(drv);
}

static void bright_apply() {
    const u8 level = bright_wanted;
    if (level == bright_shown) {
        return;
    }
    bright_shown = level;
    if (monitor.picture) {
        SDL_SetSurfaceColorMod(monitor.picture, level, level, level);
        window_update_all();
    }
}

void zof_win_set_dis_bright(u8 level) {
    bright_wanted = (u8)(level * 255 / 100);
    if (SDL_ThreadID() == monitor.thread) {
        bright_apply();
    } else {
        zof_loop_wake(nullptr);
    }
}

u8 sdl_bright_get(void) {
    return bright_shown;
}

static void pointer_at(float x, float y) {
    last_x = (s16)LV_CLAMP(-32768.0f, x, 32767.0f);
    last_y = (s16)LV_CLAMP(-32768.0f, y, 32767.0f);
}

static void mouse_at(s32 x, s32 y) {
    pointer_at((float)x / zoom, (float)y / zoom);
}

static void finger_at(const SDL_TouchFingerEvent *finger) {
    pointer_at((float)SDL_HOR_RES * finger->x / zoom, (float)SDL_VER_RES * finger->y / zoom);
}

// While the host has touch switched off nothing reads it, and a press from that time must not become a click later.
static void press() {
    left_button_down = 1;
    press_unread = !(touch_indev && touch_indev->driver->read_timer->paused);
}

static void button_event(const SDL_MouseButtonEvent *button) {
    const bool down = button->type == SDL_MOUSEBUTTONDOWN;
    if (button->button == SDL_BUTTON_LEFT) {
        if (down) {
            press();
            mouse_at(button->x, button->y);
        } else {
            left_button_down = 0;
        }
    } else if (button->button == SDL_BUTTON_MIDDLE) {
        wheel_state = down;
    }
}

// Any window event lifts the finger, so that a drag that leaves the window does not stick.
static void window_event(const SDL_WindowEvent *window) {
    left_button_down = 0;
    press_unread = 0;
    if (window->event == SDL_WINDOWEVENT_EXPOSED || window->event == SDL_WINDOWEVENT_TAKE_FOCUS) {
        window_update_all();
    }
}

static void text_event(const char *text) {
    const size_t used = strlen(key_buffer);
    if (used + strlen(text) < sizeof(key_buffer)) {
        strcpy(key_buffer + used, text);
    }
}

static void event_take(const SDL_Event *event) {
    switch (event->type) {
    case SDL_MOUSEMOTION:
        mouse_at(event->motion.x, event->motion.y);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        button_event(&event->button);
        break;
    case SDL_MOUSEWHEEL:
        wheel_diff = (s16)-event->wheel.y;
        break;
    case SDL_FINGERDOWN:
        press();
        finger_at(&event->tfinger);
        break;
    case SDL_FINGERUP:
        left_button_down = 0;
        finger_at(&event->tfinger);
        break;
    case SDL_FINGERMOTION:
        finger_at(&event->tfinger);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        zof_drv_win_key_set_value(event->type == SDL_KEYDOWN, (u32)event->key.keysym.sym);
        break;
    case SDL_TEXTINPUT:
        text_event(event->text.text);
        break;
    case SDL_WINDOWEVENT:
        window_event(&event->window);
        break;
    default:
        break;
    }
}

// Takes all pending events of the window; true if one came from the user or the desktop. Ends the process when the
// window was closed.
static bool events_take() {
    bool user = false;
    SDL_Event event;
    while (SDL_PollEvent(&event)) {
        event_take(&event);
        user = user || event.type < SDL_USEREVENT;
    }
    bright_apply();
    if (sdl_quit_qry) {
        zof_drv_audio_set_state(ZOF_MEDIA_STOP); // its thread may be opening a device that SDL_Quit removes
        window_drop();
        SDL_Quit();
        exit(0); // NOLINT(concurrency-mt-unsafe): the other threads hold nothing that it destroys
    }
    return user;
}

void sdl_event_handler(lv_timer_t *) {
    events_take();
}

void sdl_mouse_read(lv_indev_drv_t *, lv_indev_data_t *data) {
    data->point.x = last_x;
    data->point.y = last_y;
    data->state = left_button_down || press_unread ? LV_INDEV_STATE_PRESSED : LV_INDEV_STATE_RELEASED;
    press_unread = 0;
    zof_touch_event(data); // before the widgets see it
}

void sdl_mousewheel_read(lv_indev_drv_t *, lv_indev_data_t *data) {
    data->state = wheel_state ? LV_INDEV_STATE_PRESSED : LV_INDEV_STATE_RELEASED;
    data->enc_diff = wheel_diff;
    wheel_diff = 0;
}

// Each character is a press, released at the next read; the bytes of one character stay together.
void sdl_keyboard_read(lv_indev_drv_t *, lv_indev_data_t *data) {
    if (key_down) {
        key_down = 0;
        data->state = LV_INDEV_STATE_RELEASED;
    } else if (key_buffer[0]) {
        u32 length = 0;
        data->key = _lv_txt_encoded_next(key_buffer, &length);
        memmove(key_buffer, key_buffer + length, sizeof(key_buffer) - length);
        key_down = 1;
        data->state = LV_INDEV_STATE_PRESSED;
    } else {
        data->state = LV_INDEV_STATE_RELEASED;
    }
    data->continue_reading = key_down || key_buffer[0];
}

const u32 *sdl_frame_get(s32 *width, s32 *height) {
    if (width) {
        *width = SDL_HOR_RES;
    }
    if (height) {
        *height = SDL_VER_RES;
    }
    return monitor.tft_fb;
}

void sdl_pointer_inject(s32 x, s32 y, zof_bool pressed) {
    static bool injected_down;
    const bool down = pressed != ZOF_FALSE;
    SDL_Event event = {};
    event.motion.type = SDL_MOUSEMOTION;
    event.motion.x = (s32)((float)x * zoom);
    event.motion.y = (s32)((float)y * zoom);
    SDL_PushEvent(&event);
    if (down == injected_down) {
        return;
    }
    injected_down = down;
    SDL_Event button = {};
    button.button.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    button.button.button = SDL_BUTTON_LEFT;
    button.button.state = down ? SDL_PRESSED : SDL_RELEASED;
    button.button.x = event.motion.x;
    button.button.y = event.motion.y;
    SDL_PushEvent(&button);
}
