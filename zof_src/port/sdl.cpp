// The desktop's panel: a frame store whose changed parts are shown in the window, and the events of mouse, touch and
// keyboard. Without a display SDL draws off the screen; without SDL the frame store works alone, so that screenshots
// work everywhere.
#include <SDL.h>

#include <stdlib.h>
#include <string.h>

#include <atomic>

#include "drv/zof_drv_audio.h"
#include "drv/zof_drv_gpio.h"
#include "drv/zof_drv_touch.h"
#include "drv/zof_loop_in.h"
#include "port/win_loop.h"
#include "port/win_screen.h"
#include "port/zof_host.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

enum { EVENT_PERIOD_MS = 10, KEY_BUFFER = 32, BRIGHT_FULL = 255 };
enum : s64 { MOUSE = -1 }; // in place of a finger's number

s32 SDL_HOR_RES = 480;
s32 SDL_VER_RES = 272;

// The frame store.
static struct {
    u32 *tft_fb;
    SDL_threadID thread; // the graphics thread: the only one that may touch the window
} monitor;

static bool windowless; // set before sdl_init

static std::atomic<u8> sdl_quit_qry;
static std::atomic<u8> bright_wanted{BRIGHT_FULL}; // set by any thread
static u8 bright_shown = BRIGHT_FULL;              // applied by the graphics thread

// The latest state of mouse, wheel and keyboard.
static u8 left_button_down;
static s64 pointer_owner; // the finger that is down, or MOUSE
static u8 press_unread;   // a press that the widgets have not read: they get it once, where it landed, though it may
                          // have moved on or ended
static s16 last_x, last_y, press_x, press_y;
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

static void frame_store_make() {
    const size_t bytes = (size_t)SDL_HOR_RES * (size_t)SDL_VER_RES * sizeof(u32);
    monitor.tft_fb = (u32 *)zof_malloc(bytes);
    if (monitor.tft_fb) {
        memset(monitor.tft_fb, 0, bytes); // black, until the first view is drawn
    }
}

void sdl_window_none(void) {
    windowless = true;
}

// Without a window SDL still carries the events that are injected.
static bool video_start() {
    if (windowless) {
        SDL_Init(SDL_INIT_EVENTS);
        return false;
    }
    return win_screen_video();
}

void sdl_init(void) {
    monitor.thread = SDL_ThreadID();
    frame_store_make();
    const bool video = video_start();
    if (video) {
        SDL_SetEventFilter(quit_filter, nullptr);
    }
    if (win_screen_open(video ? monitor.tft_fb : nullptr, SDL_HOR_RES, SDL_VER_RES)) {
        SDL_StartTextInput();
    } else if (!windowless) {
        zof_printf("window: %s; continuing without one", SDL_GetError());
    }
    static zof_loop_source events;
    zof_loop_source_add(&events, lv_timer_create(sdl_event_handler, EVENT_PERIOD_MS, nullptr));
    win_loop_init(events_take);
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
    win_screen_draw({left, top, width, bottom - top + 1});
    if (lv_disp_flush_is_last(drv)) {
        win_screen_update();
    }
    lv_disp_flush_ready(drv);
}

static void bright_apply() {
    const u8 level = bright_wanted;
    if (level == bright_shown) {
        return;
    }
    bright_shown = level;
    win_screen_bright(level);
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

// Returns whether this position in the window is inside the picture; outside, the pointer goes to its nearest pixel.
static bool pointer_at(s32 x, s32 y) {
    s32 pic_x = 0;
    s32 pic_y = 0;
    const bool inside = win_screen_pixel(x, y, &pic_x, &pic_y);
    last_x = (s16)pic_x;
    last_y = (s16)pic_y;
    return inside;
}

// While the host has touch switched off nothing reads it, and a press from that time must not become a click later.
static bool touch_paused() {
    return touch_indev && touch_indev->driver->read_timer->paused;
}

// A press in the black beside the picture does nothing, not even when it moves inside. Of several contacts the first is
// the pointer; the others are only reported.
static void contact_down(s64 who, s32 x, s32 y) {
    s32 pic_x = 0;
    s32 pic_y = 0;
    if (!win_screen_pixel(x, y, &pic_x, &pic_y)) {
        return;
    }
    if (left_button_down && who != pointer_owner) {
        if (!touch_paused()) {
            zof_touch_landed((u16)pic_x, (u16)pic_y);
        }
        return;
    }
    left_button_down = 1;
    pointer_owner = who;
    press_unread = !touch_paused();
    pointer_at(x, y);
    press_x = last_x;
    press_y = last_y;
}

static void contact_move(s64 who, s32 x, s32 y) {
    if (!left_button_down || who == pointer_owner) {
        pointer_at(x, y);
    }
}

static void contact_up(s64 who, s32 x, s32 y) {
    if (left_button_down && who == pointer_owner) {
        pointer_at(x, y);
        left_button_down = 0;
    }
}

// SDL reports a finger as a mouse once more, which would count as a second one.
static bool is_finger(u32 mouse) {
    return mouse == SDL_TOUCH_MOUSEID;
}

static void mouse_button_event(const SDL_MouseButtonEvent *button) {
    const bool down = button->type == SDL_MOUSEBUTTONDOWN;
    if (is_finger(button->which)) {
        return;
    }
    if (button->button == SDL_BUTTON_LEFT) {
        (down ? contact_down : contact_up)(MOUSE, button->x, button->y);
    } else if (button->button == SDL_BUTTON_MIDDLE) {
        wheel_state = down;
    }
}

static void mouse_motion_event(const SDL_MouseMotionEvent *motion) {
    if (!is_finger(motion->which)) {
        SDL_ShowCursor(SDL_ENABLE);
        contact_move(MOUSE, motion->x, motion->y);
    }
}

// A finger's position is a share of the window. There is nothing to point at with a cursor.
static void finger_event(const SDL_TouchFingerEvent *finger) {
    s32 w = 0;
    s32 h = 0;
    win_screen_size(&w, &h);
    const s32 x = (s32)LV_CLAMP(0.0f, finger->x * (float)w, (float)(w - 1));
    const s32 y = (s32)LV_CLAMP(0.0f, finger->y * (float)h, (float)(h - 1));
    SDL_ShowCursor(SDL_DISABLE);
    if (finger->type == SDL_FINGERDOWN) {
        contact_down(finger->fingerId, x, y);
    } else if (finger->type == SDL_FINGERUP) {
        contact_up(finger->fingerId, x, y);
    } else {
        contact_move(finger->fingerId, x, y);
    }
}

// A press whose release may never be reported is lost, so that it neither sticks nor becomes a click.
static void press_lose() {
    if (touch_indev && touch_indev->proc.state == LV_INDEV_STATE_PRESSED) {
        lv_indev_wait_release(touch_indev);
    }
    left_button_down = 0;
    press_unread = 0;
}

static void window_event(const SDL_WindowEvent *window) {
    const bool other = window->event == SDL_WINDOWEVENT_LEAVE && pointer_owner != MOUSE;
    if (win_screen_event(window->event) && left_button_down && !other) {
        press_lose();
    }
}

// Applications see one press for each press, also while the key is held. F11 belongs to the window.
static void key_event(const SDL_KeyboardEvent *key) {
    const bool down = key->type == SDL_KEYDOWN;
    if (key->repeat) {
        return;
    }
    if (key->keysym.sym != SDLK_F11) {
        zof_drv_win_key_set_value(down, (u32)key->keysym.sym);
    } else if (down) {
        win_screen_full_set(!win_screen_is_full());
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
        mouse_motion_event(&event->motion);
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        mouse_button_event(&event->button);
        break;
    case SDL_MOUSEWHEEL:
        wheel_diff = (s16)-event->wheel.y;
        break;
    case SDL_FINGERDOWN:
    case SDL_FINGERUP:
    case SDL_FINGERMOTION:
        finger_event(&event->tfinger);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        key_event(&event->key);
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
    zof_host_events_take();
    while (SDL_PollEvent(&event)) {
        event_take(&event);
        user = user || event.type < SDL_USEREVENT;
    }
    bright_apply();
    if (sdl_quit_qry) {
        zof_drv_audio_set_state(ZOF_MEDIA_STOP); // its thread may be opening a device that SDL_Quit removes
        win_screen_close();
        SDL_Quit();
        exit(0); // NOLINT(concurrency-mt-unsafe): the other threads hold nothing that it destroys
    }
    return user;
}

void sdl_event_handler(lv_timer_t *) {
    events_take();
}

void sdl_mouse_read(lv_indev_drv_t *, lv_indev_data_t *data) {
    data->point.x = press_unread ? press_x : last_x;
    data->point.y = press_unread ? press_y : last_y;
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
    win_screen_position(x, y, &event.motion.x, &event.motion.y);
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
