// Host side of the panel's serial protocol for firmware. It queues frames, waits for answers, repeats unanswered reads,
// separates events from answers, and restores the panel's state after a restart. It does not allocate, never blocks,
// and has no clock or line of its own: the user supplies buffers, two functions, and the time. C99 and C++. README.md
// beside this file shows how to start.
//
// Call everything here from ONE context, usually the main loop. An interrupt may only fill or empty the user's own ring
// of bytes, which the `read` and `write` functions use; call nothing here from an interrupt. All functions accept a
// null `host`. Callbacks run only within zof_host_feed and zof_host_poll. They may queue frames; a feed or poll called
// from within a callback does nothing.
#ifndef ZOF_HOST_CLIENT_H
#define ZOF_HOST_CLIENT_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Operations of a frame.
enum { ZOF_HOST_READ = 0x11, ZOF_HOST_WRITE = 0x22 };

// Results. The calls that queue a frame return ZOF_HOST_FULL to ZOF_HOST_REFUSED if nothing was queued and nothing will
// be sent. The other values report how a request ended.
enum {
    ZOF_HOST_FULL = -1,    // no room in `tx` now: poll, and try again
    ZOF_HOST_BAD = -2,     // too large for `tx` or for the panel's queue, a null host, or a host not initialised
    ZOF_HOST_REFUSED = -3, // a read of `system.touch` with touch reports on: a report would look like its answer
    ZOF_HOST_TIMEOUT = -4, // no answer to any try: refused, lost, or the panel is off
    ZOF_HOST_DONE = 0,     // answered; `data` holds the value fields
    ZOF_HOST_NO = 1        // only with `acks`: the panel refused a write of a `system` row
};

// Events: unsolicited reports of the panel, and reports of the library.
enum {
    ZOF_HOST_POWER_ON = 1, // the panel has started: it shows its start view, and all earlier writes are lost
    ZOF_HOST_TOUCH = 2,    // `state`, `x` and `y` are set
    ZOF_HOST_SILENT = 3,   // an internal barrier was not answered in time; it is repeated until it is answered
    ZOF_HOST_RESTORED = 4, // everything that `on_restart` queued has been executed
    ZOF_HOST_CONTROL = 5   // a user has done something, with `event_en` in the panel's settings
};

typedef struct zof_host zof_host_t;

// The result of one request. It is valid until the callback returns, as are `data` and texts from it.
typedef struct {
    int request;         // the number returned by the call that queued it
    int8_t result;       // ZOF_HOST_DONE, ZOF_HOST_NO, ZOF_HOST_TIMEOUT
    uint8_t bad;         // set by a zof_host_reply_... function that finds too few bytes
    uint32_t code;       // ZOF_HOST_<ROW>
    uint16_t view;       // ids of the control, for control rows
    uint16_t control;    //
    const uint8_t *data; // value fields not read yet
    uint16_t size;       // their size in bytes
} zof_host_reply_t;

// Valid until the callback returns, as is `text`.
typedef struct {
    uint8_t kind;           // ZOF_HOST_POWER_ON, ZOF_HOST_TOUCH, ZOF_HOST_SILENT, ZOF_HOST_RESTORED, ZOF_HOST_CONTROL
    uint8_t state;          // of a touch: 0 released, 1 pressed, 2 held
    uint16_t x, y;          // of a touch: pixels
    uint8_t event;          // of a control: ZOF_HOST_EVENT_CLICKED ...
    uint8_t missed;         // number of events of controls that were lost on the line before this one, modulo 256
    uint16_t view, control; // of a control; 0 for events without one
    int32_t number;         // of a control: what it stands at: a value, an index, whether it is on
    const char *text;       // of a control: its text; "" for none, null for other kinds
} zof_host_event_t;

typedef void (*zof_host_handler_t)(zof_host_t *host, const zof_host_event_t *event);

// A place for zof_host_on.
typedef struct {
    uint16_t view, control;
    zof_host_handler_t handler;
} zof_host_on_t;

// A host. The first part belongs to the user, who sets it before zof_host_init and leaves it unchanged while the host
// is in use. The second part belongs to the library. The user owns the buffers, which must outlive the host.
struct zof_host {
    uint8_t head_fh, head_fl; // as in the panel's zofhmi.g; they differ
    uint8_t crc;              // its `crc_en`: 0 or 1
    uint8_t acks;             // its `resend_en`: 1 waits for the acknowledgement of each write of a `system` row
    uint8_t tries;            // number of tries of a read before ZOF_HOST_TIMEOUT, 1 to 255; 0: three
    uint16_t buffsize;        // its `buffsize`: size of the panel's queue in bytes, less 1024
    uint16_t timeout_ms; // for the answer to each try, from its last byte; more than the panel's longest pause (1000)
    uint16_t byte_us;    // microseconds per byte on the line, 87 at 115200 baud; 0 for a pipe, or if `write` returns
                         // only after its bytes are sent
    uint8_t *rx;         // MANDATORY, for the largest answer: 10 bytes plus its address and value fields
    uint16_t rx_size;    // 16 to 32767; larger frames are skipped as noise
    uint8_t *tx;         // MANDATORY, the queue of frames: each takes its own size plus 1 or 2 bytes
    uint16_t tx_size;    // 16 to 32767
    zof_host_on_t *on;   // OPTIONAL, places for zof_host_on
    uint8_t on_size;     // number of places
    void *user;          // passed to the functions below; not used by the library

    // MANDATORY. Writes as many bytes as possible without waiting and returns how many, 0 to `size`.
    uint16_t (*write)(void *user, const uint8_t *bytes, uint16_t size);
    // OPTIONAL. Stores received bytes at `bytes` without waiting and returns how many, 0 to `size`. Without it the user
    // calls zof_host_feed.
    uint16_t (*read)(void *user, uint8_t *bytes, uint16_t size);
    // OPTIONAL. Called at the end of each read, and with `acks` of each write of a `system` row, in the order they were
    // queued.
    void (*on_reply)(zof_host_t *host, zof_host_reply_t *reply);
    // OPTIONAL. Called for power-on, touches, the library's reports, and the events of controls that have no handler.
    void (*on_event)(zof_host_t *host, const zof_host_event_t *event);
    // OPTIONAL. Queues the state that a restarted panel must be set to. Called with an empty queue, after everything
    // queued before has been sent: with `step` 0, then 1, 2 ... as long as it returns 1 because `tx` had no room for
    // the rest. ZOF_HOST_RESTORED follows when all of it has been executed.
    uint8_t (*on_restart)(zof_host_t *host, uint8_t step);

    // Private to the library. Counters may be read; they wrap.
    uint16_t noise; // bytes skipped while looking for a frame
    uint16_t late;  // frames that answered no pending request
    uint8_t seq;    // number of the last event of a control; if `view.events` answers another one, events were lost

    uint16_t rx_have, tx_head, tx_used, build, cur_at, cur_size, line_size, sent, in_flight, limit, fill;
    int next, first;
    uint8_t on_used, numbered, ready, state, own, once, flush, tried, restore, step, inside, reports, build_op,
        build_bad;
    uint32_t now, rx_at, since, started, wait, build_code;
    uint8_t own_frame[10];
};

// Checks the settings and discards everything queued or pending. Returns ZOF_HOST_DONE, or ZOF_HOST_BAD if a buffer or
// `write` is missing, a size is out of range or the head bytes are equal; every other call then does nothing.
int zof_host_init(zof_host_t *host);

// Passes received bytes to the library, any number, split anywhere. `now_ms` is the user's time in milliseconds; it may
// start at any value and wraps at 32 bits. Complete answers and events are delivered before it returns.
void zof_host_feed(zof_host_t *host, const uint8_t *bytes, uint16_t size, uint32_t now_ms);

// Runs the library: calls `read` if it is set, ends requests that have timed out, and sends what may be sent. Call it
// every few milliseconds; it never blocks. Returns 1 while something is queued or pending, otherwise 0.
int zof_host_poll(zof_host_t *host, uint32_t now_ms);

// Calls `handler` in place of `on_event` for the events of a control: all kinds, `event->event` says which. With
// control 0 for the view's own: it is shown. Returns ZOF_HOST_DONE, ZOF_HOST_FULL without a free place in `on`,
// ZOF_HOST_BAD for a null handler or host. After zof_host_init, which frees all places.
int zof_host_on(zof_host_t *host, uint16_t view, uint16_t control, zof_host_handler_t handler);

// Queues a read of `view.size`, which waits in the panel's queue after all view and control commands sent before: its
// answer means that they have been executed. Returns a request number, ZOF_HOST_FULL or ZOF_HOST_BAD.
int zof_host_barrier(zof_host_t *host);

// As zof_host_barrier for `system` rows, by a read of `system.standby_state`.
int zof_host_barrier_system(zof_host_t *host);

// Returns the free space in `tx` in bytes.
uint16_t zof_host_room(const zof_host_t *host);

// Return the value fields of an answer one by one, in the order of the row. Cast signed fields, as in
// (int16_t)zof_host_reply_u16(reply). If bytes are missing they return 0 or "" and set `bad`. A text ends with a zero.
uint8_t zof_host_reply_u8(zof_host_reply_t *reply);
uint16_t zof_host_reply_u16(zof_host_reply_t *reply);
uint32_t zof_host_reply_u32(zof_host_reply_t *reply);
const char *zof_host_reply_text(zof_host_reply_t *reply);

// The steps of the row calls below: begin, put the fields in the order of the row, end. `code` is a ZOF_HOST_<ROW>: the
// number of code bytes in the top byte, then the bytes. Numbers are sent big-endian; a null text is sent as an empty
// one. Texts are copied. zof_host_end returns the request number, which wraps from 32767 to 1, or ZOF_HOST_FULL,
// ZOF_HOST_BAD or ZOF_HOST_REFUSED.
void zof_host_begin(zof_host_t *host, uint8_t operation, uint32_t code);
void zof_host_put_u8(zof_host_t *host, uint8_t value);
void zof_host_put_u16(zof_host_t *host, uint16_t value);
void zof_host_put_u32(zof_host_t *host, uint32_t value);
void zof_host_put_text(zof_host_t *host, const char *text);
int zof_host_end(zof_host_t *host);

// One call for each operation of each row, as listed in docs/protocol.md: zof_host_get_<row> queues a read,
// zof_host_set_<row> a write. They return what zof_host_end returns.
// rows: begin

// The device itself.

// Version text: selector 0 application, 1 runtime, 2 firmware.
// Answers: text text
#define ZOF_HOST_SYSTEM_VERSION 0x02B00000ul
static inline int zof_host_get_system_version(zof_host_t *host, int8_t selector) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_VERSION);
    zof_host_put_u8(host, (uint8_t)selector);
    return zof_host_end(host);
}

// Reads 0xAABB; also sent at power-on. Writing 0xCCDD reboots.
// Answers: u16 word
#define ZOF_HOST_SYSTEM_REBOOT 0x02B00100ul
static inline int zof_host_get_system_reboot(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_REBOOT);
    return zof_host_end(host);
}
static inline int zof_host_set_system_reboot(zof_host_t *host, uint16_t word) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_REBOOT);
    zof_host_put_u16(host, word);
    return zof_host_end(host);
}

// Brightness of the display in percent.
// Carries: u8 percent
#define ZOF_HOST_SYSTEM_BRIGHT 0x02B00200ul
static inline int zof_host_set_system_bright(zof_host_t *host, uint8_t percent) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_BRIGHT);
    zof_host_put_u8(host, percent);
    return zof_host_end(host);
}

// A series of tones; its tone time applies to touches too.
// Carries: u8 count, u16 pause_ms, u16 tone_ms
#define ZOF_HOST_SYSTEM_TONE 0x02B00300ul
static inline int zof_host_set_system_tone(zof_host_t *host, uint8_t count, uint16_t pause_ms, uint16_t tone_ms) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_TONE);
    zof_host_put_u8(host, count);
    zof_host_put_u16(host, pause_ms);
    zof_host_put_u16(host, tone_ms);
    return zof_host_end(host);
}

// Touch flags: bit 0 pauses the panel, 1 tones on, 2 for raw touch, 3 at release, 4 report press, 5 release, 6 hold, 7
// calibration taps.
// Answers: u8 flags
#define ZOF_HOST_SYSTEM_TOUCH_CONFIG 0x03B00400ul
static inline int zof_host_get_system_touch_config(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_TOUCH_CONFIG);
    return zof_host_end(host);
}
static inline int zof_host_set_system_touch_config(zof_host_t *host, uint8_t flags) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_TOUCH_CONFIG);
    zof_host_put_u8(host, flags);
    return zof_host_end(host);
}

// The current touch: state 0 released, 1 pressed, 2 held, and its point. Also sent by the panel, as touch_config says.
// Answers: u8 state, u16 x, u16 y
#define ZOF_HOST_SYSTEM_TOUCH 0x03B00401ul
static inline int zof_host_get_system_touch(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_TOUCH);
    return zof_host_end(host);
}

// Date and time.
// Answers: u16 year, u8 month, u8 day, u8 hour, u8 minute, u8 second
#define ZOF_HOST_SYSTEM_RTC 0x02B00500ul
static inline int zof_host_get_system_rtc(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_RTC);
    return zof_host_end(host);
}
static inline int zof_host_set_system_rtc(zof_host_t *host, uint16_t year, uint8_t month, uint8_t day, uint8_t hour,
                                          uint8_t minute, uint8_t second) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_RTC);
    zof_host_put_u16(host, year);
    zof_host_put_u8(host, month);
    zof_host_put_u8(host, day);
    zof_host_put_u8(host, hour);
    zof_host_put_u8(host, minute);
    zof_host_put_u8(host, second);
    return zof_host_end(host);
}

// Standby: times in seconds, 0 for never; brightness in percent; views, 0 for none.
// Answers: u16 stdby_view, u16 stdby_time, u8 stdby_bright, u16 off_time, u8 off_bright, u8 on_bright, u16 on_view
#define ZOF_HOST_SYSTEM_STANDBY 0x03B00600ul
static inline int zof_host_get_system_standby(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_STANDBY);
    return zof_host_end(host);
}
static inline int zof_host_set_system_standby(zof_host_t *host, uint16_t stdby_view, uint16_t stdby_time,
                                              uint8_t stdby_bright, uint16_t off_time, uint8_t off_bright,
                                              uint8_t on_bright, uint16_t on_view) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_STANDBY);
    zof_host_put_u16(host, stdby_view);
    zof_host_put_u16(host, stdby_time);
    zof_host_put_u8(host, stdby_bright);
    zof_host_put_u16(host, off_time);
    zof_host_put_u8(host, off_bright);
    zof_host_put_u8(host, on_bright);
    zof_host_put_u16(host, on_view);
    return zof_host_end(host);
}

// State of standby: 0 normal, 1 dimmed, 2 off.
// Answers: u8 state
#define ZOF_HOST_SYSTEM_STANDBY_STATE 0x03B00601ul
static inline int zof_host_get_system_standby_state(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SYSTEM_STANDBY_STATE);
    return zof_host_end(host);
}
static inline int zof_host_set_system_standby_state(zof_host_t *host, uint8_t state) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_STANDBY_STATE);
    zof_host_put_u8(host, state);
    return zof_host_end(host);
}

// Makes a language of the project the current one and updates all texts.
// Carries: text name
#define ZOF_HOST_SYSTEM_LANGUAGE 0x03B00700ul
static inline int zof_host_set_system_language(zof_host_t *host, const char *name) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SYSTEM_LANGUAGE);
    zof_host_put_text(host, name);
    return zof_host_end(host);
}

// Views and their layers.

// Shows a view on the layer of its file.
// Carries: u16 view
#define ZOF_HOST_VIEW_DISPLAY 0x02B10000ul
static inline int zof_host_set_view_display(zof_host_t *host, uint16_t view) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_DISPLAY);
    zof_host_put_u16(host, view);
    return zof_host_end(host);
}

// The view on a layer: 0 interface, 1 state, 2 top; 65535 for none.
// Answers: u16 view
#define ZOF_HOST_VIEW_DISPLAYED 0x02B10100ul
static inline int zof_host_get_view_displayed(zof_host_t *host, int8_t layer) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIEW_DISPLAYED);
    zof_host_put_u8(host, (uint8_t)layer);
    return zof_host_end(host);
}

// Kept for old hosts: a view's layer comes from its file.
// Carries: u8 layer, u16 view
#define ZOF_HOST_VIEW_LAYER 0x02B10200ul
static inline int zof_host_set_view_layer(zof_host_t *host, uint8_t layer, uint16_t view) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_LAYER);
    zof_host_put_u8(host, layer);
    zof_host_put_u16(host, view);
    return zof_host_end(host);
}

// Takes the view off a layer: 0 interface, 1 state, 2 top, 3 background.
// Carries: u8 layer
#define ZOF_HOST_VIEW_HIDE_LAYER 0x02B10300ul
static inline int zof_host_set_view_hide_layer(zof_host_t *host, uint8_t layer) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_HIDE_LAYER);
    zof_host_put_u8(host, layer);
    return zof_host_end(host);
}

// Makes a view ready without showing it.
// Carries: u16 view
#define ZOF_HOST_VIEW_LOAD 0x02B10400ul
static inline int zof_host_set_view_load(zof_host_t *host, uint16_t view) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_LOAD);
    zof_host_put_u16(host, view);
    return zof_host_end(host);
}

// Background of a view: opacity in the top byte, then red, green, blue.
// Carries: u16 view, u32 argb
#define ZOF_HOST_VIEW_BG_COLOR 0x02B10500ul
static inline int zof_host_set_view_bg_color(zof_host_t *host, uint16_t view, uint32_t argb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_BG_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u32(host, argb);
    return zof_host_end(host);
}

// The project's width and height in pixels.
// Answers: u16 width, u16 height
#define ZOF_HOST_VIEW_SIZE 0x02B10600ul
static inline int zof_host_get_view_size(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIEW_SIZE);
    return zof_host_end(host);
}

// Background image of a view; the request field is not used.
// Carries: u16 view, text image
#define ZOF_HOST_VIEW_BG_IMAGE 0x02B10700ul
static inline int zof_host_set_view_bg_image(zof_host_t *host, uint16_t unused, uint16_t view, const char *image) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIEW_BG_IMAGE);
    zof_host_put_u16(host, unused);
    zof_host_put_u16(host, view);
    zof_host_put_text(host, image);
    return zof_host_end(host);
}

// What one control of a view stands at, counted from 0 among those with a value: `more` is 1 if others follow; control
// 0 if there is none with this number, then with the number -1 if the view is not loaded.
// Answers: u8 seq, u8 more, u16 control, s32 number, text text
#define ZOF_HOST_VIEW_SNAPSHOT 0x02B10800ul
static inline int zof_host_get_view_snapshot(zof_host_t *host, uint16_t view, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIEW_SNAPSHOT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}

// The views on all layers, 65535 for none.
// Answers: u16 interface, u16 state, u16 top, u16 background
#define ZOF_HOST_VIEW_STACK 0x02B10900ul
static inline int zof_host_get_view_stack(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIEW_STACK);
    return zof_host_end(host);
}

// The number of the last event that was sent, modulo 256.
// Answers: u8 seq
#define ZOF_HOST_VIEW_EVENTS 0x02B10A00ul
static inline int zof_host_get_view_events(zof_host_t *host) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIEW_EVENTS);
    return zof_host_end(host);
}

// What every control has.

// Whether the control is hidden: 1 or 0.
// Answers: s8 hidden
#define ZOF_HOST_CONTROL_HIDDEN 0x03B2F000ul
static inline int zof_host_get_control_hidden(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_HIDDEN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_control_hidden(zof_host_t *host, uint16_t view, uint16_t control, int8_t hidden) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_HIDDEN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, (uint8_t)hidden);
    return zof_host_end(host);
}

// Width in pixels.
// Answers: u16 width
#define ZOF_HOST_CONTROL_WIDTH 0x03B2F001ul
static inline int zof_host_get_control_width(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_WIDTH);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Height in pixels.
// Answers: u16 height
#define ZOF_HOST_CONTROL_HEIGHT 0x03B2F002ul
static inline int zof_host_get_control_height(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_HEIGHT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Moves the control within its parent.
// Carries: s16 x, s16 y
#define ZOF_HOST_CONTROL_POS 0x03B2F003ul
static inline int zof_host_set_control_pos(zof_host_t *host, uint16_t view, uint16_t control, int16_t x, int16_t y) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_POS);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)x);
    zof_host_put_u16(host, (uint16_t)y);
    return zof_host_end(host);
}

// Width and height in pixels.
// Carries: u16 width, u16 height
#define ZOF_HOST_CONTROL_SIZE 0x03B2F004ul
static inline int zof_host_set_control_size(zof_host_t *host, uint16_t view, uint16_t control, uint16_t width,
                                            uint16_t height) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_SIZE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, width);
    zof_host_put_u16(host, height);
    return zof_host_end(host);
}

// Opacity, 255 for opaque.
// Carries: u8 alpha
#define ZOF_HOST_CONTROL_ALPHA 0x03B2F005ul
static inline int zof_host_set_control_alpha(zof_host_t *host, uint16_t view, uint16_t control, uint8_t alpha) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_ALPHA);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, alpha);
    return zof_host_end(host);
}

// To the bottom (0) or the top (1) of its parent's children.
// Carries: u8 where
#define ZOF_HOST_CONTROL_MOVE 0x03B2F006ul
static inline int zof_host_set_control_move(zof_host_t *host, uint16_t view, uint16_t control, uint8_t where) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_MOVE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, where);
    return zof_host_end(host);
}

// 1 takes touches, 0 lets them through.
// Carries: u8 touch
#define ZOF_HOST_CONTROL_TOUCH 0x03B2F007ul
static inline int zof_host_set_control_touch(zof_host_t *host, uint16_t view, uint16_t control, uint8_t touch) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_TOUCH);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, touch);
    return zof_host_end(host);
}

// Widens the area that takes touches by so many pixels.
// Carries: u16 pixels
#define ZOF_HOST_CONTROL_CLICK_AREA 0x03B2F008ul
static inline int zof_host_set_control_click_area(zof_host_t *host, uint16_t view, uint16_t control, uint16_t pixels) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_CLICK_AREA);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, pixels);
    return zof_host_end(host);
}

// Places the control at another one of its view.
// Carries: u8 align, s16 x, s16 y
#define ZOF_HOST_CONTROL_ALIGN 0x03B2F009ul
static inline int zof_host_set_control_align(zof_host_t *host, uint16_t view, uint16_t control, uint16_t base,
                                             uint8_t align, int16_t x, int16_t y) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_ALIGN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, base);
    zof_host_put_u8(host, align);
    zof_host_put_u16(host, (uint16_t)x);
    zof_host_put_u16(host, (uint16_t)y);
    return zof_host_end(host);
}

// How many children the control has.
// Answers: u16 count
#define ZOF_HOST_CONTROL_CHILDREN 0x03B2F00Aul
static inline int zof_host_get_control_children(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_CHILDREN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Where the control stands within its parent.
// Answers: u16 x, u16 y
#define ZOF_HOST_CONTROL_XY 0x03B2F00Bul
static inline int zof_host_get_control_xy(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_XY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Scrolls the contents, at once (0) or in an animation (1).
// Carries: u8 animate, s16 x, s16 y
#define ZOF_HOST_CONTROL_SCROLL_TO 0x03B2F00Cul
static inline int zof_host_set_control_scroll_to(zof_host_t *host, uint16_t view, uint16_t control, uint8_t animate,
                                                 int16_t x, int16_t y) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_SCROLL_TO);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, animate);
    zof_host_put_u16(host, (uint16_t)x);
    zof_host_put_u16(host, (uint16_t)y);
    return zof_host_end(host);
}

// How far the contents are scrolled.
// Answers: s16 x, s16 y
#define ZOF_HOST_CONTROL_SCROLL 0x03B2F00Dul
static inline int zof_host_get_control_scroll(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_SCROLL);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// What the control stands at; also sent by the panel for each event, with `event_en`. The number counts events modulo
// 256.
// Answers: u8 seq, u8 event, s32 number, text text
#define ZOF_HOST_CONTROL_EVENT 0x03B2F00Eul
static inline int zof_host_get_control_event(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_EVENT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// 1 if the control can be read and written, 0 if its view is not loaded, -1 if there is no such control.
// Answers: s8 present
#define ZOF_HOST_CONTROL_PRESENT 0x03B2F00Ful
static inline int zof_host_get_control_present(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_PRESENT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// The language key, with #, that its text or picture follows; empty if there is no such key. A write shows the text or
// picture of another key.
// Answers: text key
#define ZOF_HOST_CONTROL_KEY 0x03B2F010ul
static inline int zof_host_get_control_key(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CONTROL_KEY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_control_key(zof_host_t *host, uint16_t view, uint16_t control, const char *key) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CONTROL_KEY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, key);
    return zof_host_end(host);
}

// Labels.

// The text; one that begins with # is looked up in the language.
// Answers: text text
#define ZOF_HOST_LABEL_TEXT 0x03B20000ul
static inline int zof_host_get_label_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_LABEL_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_label_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Colour of the text, 0xRRGGBB.
// Carries: u32 rgb
#define ZOF_HOST_LABEL_COLOR 0x03B20001ul
static inline int zof_host_set_label_color(zof_host_t *host, uint16_t view, uint16_t control, uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// Size of the text in pixels, 1 to 512.
// Carries: u16 pixels
#define ZOF_HOST_LABEL_FONT_SIZE 0x03B20002ul
static inline int zof_host_set_label_font_size(zof_host_t *host, uint16_t view, uint16_t control, uint16_t pixels) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_FONT_SIZE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, pixels);
    return zof_host_end(host);
}

// What a long text does: 0 wraps, 1 ends in dots, 2 scrolls, 3 scrolls in circles, 4 is cut.
// Carries: u8 mode
#define ZOF_HOST_LABEL_LONG_MODE 0x03B20003ul
static inline int zof_host_set_label_long_mode(zof_host_t *host, uint16_t view, uint16_t control, uint8_t mode) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_LONG_MODE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, mode);
    return zof_host_end(host);
}

// Speed of a scrolling text in pixels a second.
// Carries: u16 speed
#define ZOF_HOST_LABEL_SCROLL_SPEED 0x03B20004ul
static inline int zof_host_set_label_scroll_speed(zof_host_t *host, uint16_t view, uint16_t control, uint16_t speed) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_SCROLL_SPEED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, speed);
    return zof_host_end(host);
}

// Low half: alignment of the lines; high half: 1 top, 2 middle, 3 bottom.
// Carries: u8 align
#define ZOF_HOST_LABEL_ALIGN 0x03B20005ul
static inline int zof_host_set_label_align(zof_host_t *host, uint16_t view, uint16_t control, uint8_t align) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LABEL_ALIGN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, align);
    return zof_host_end(host);
}

// Buttons.

// The text on the button.
// Carries: text text
#define ZOF_HOST_BUTTON_TEXT 0x03B20100ul
static inline int zof_host_set_button_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Colour of the text in a state, 0xRRGGBB.
// Carries: u8 selector, u32 rgb
#define ZOF_HOST_BUTTON_COLOR 0x03B20101ul
static inline int zof_host_set_button_color(zof_host_t *host, uint16_t view, uint16_t control, uint8_t selector,
                                            uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, selector);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// Size of the text in pixels, 1 to 512.
// Carries: u16 pixels
#define ZOF_HOST_BUTTON_FONT_SIZE 0x03B20102ul
static inline int zof_host_set_button_font_size(zof_host_t *host, uint16_t view, uint16_t control, uint16_t pixels) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_FONT_SIZE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, pixels);
    return zof_host_end(host);
}

// 0 springs back, 1 stays down at every other click.
// Carries: u8 mode
#define ZOF_HOST_BUTTON_MODE 0x03B20103ul
static inline int zof_host_set_button_mode(zof_host_t *host, uint16_t view, uint16_t control, uint8_t mode) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MODE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, mode);
    return zof_host_end(host);
}

// State bits: 1 checked, 32 pressed, 128 disabled.
// Answers: u8 state
#define ZOF_HOST_BUTTON_STATE 0x03B20104ul
static inline int zof_host_get_button_state(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_STATE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_button_state(zof_host_t *host, uint16_t view, uint16_t control, uint8_t state) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_STATE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, state);
    return zof_host_end(host);
}

// Pictures.

// The picture, a file of the project.
// Answers: text name
#define ZOF_HOST_IMAGE_IMAGE 0x03B20200ul
static inline int zof_host_get_image_image(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_IMAGE_IMAGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_image_image(zof_host_t *host, uint16_t view, uint16_t control, const char *name) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_IMAGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, name);
    return zof_host_end(host);
}

// Turns the picture, in tenths of a degree.
// Carries: u16 angle
#define ZOF_HOST_IMAGE_ANGLE 0x03B20201ul
static inline int zof_host_set_image_angle(zof_host_t *host, uint16_t view, uint16_t control, uint16_t angle) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_ANGLE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, angle);
    return zof_host_end(host);
}

// The point around which the picture turns.
// Carries: s16 x, s16 y
#define ZOF_HOST_IMAGE_PIVOT 0x03B20202ul
static inline int zof_host_set_image_pivot(zof_host_t *host, uint16_t view, uint16_t control, int16_t x, int16_t y) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_PIVOT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)x);
    zof_host_put_u16(host, (uint16_t)y);
    return zof_host_end(host);
}

// Zoom, 256 is 100 %.
// Carries: u16 zoom
#define ZOF_HOST_IMAGE_ZOOM 0x03B20203ul
static inline int zof_host_set_image_zoom(zof_host_t *host, uint16_t view, uint16_t control, uint16_t zoom) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_ZOOM);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, zoom);
    return zof_host_end(host);
}

// Buttons made of pictures.

// The text on the button.
// Carries: text text
#define ZOF_HOST_IMAGE_BUTTON_TEXT 0x03B20300ul
static inline int zof_host_set_image_button_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_BUTTON_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Colour of the text in a state, 0xRRGGBB.
// Carries: u8 state, u32 rgb
#define ZOF_HOST_IMAGE_BUTTON_COLOR 0x03B20301ul
static inline int zof_host_set_image_button_color(zof_host_t *host, uint16_t view, uint16_t control, uint8_t state,
                                                  uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_BUTTON_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, state);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// Size of the text in pixels, 1 to 512.
// Carries: u16 pixels
#define ZOF_HOST_IMAGE_BUTTON_FONT_SIZE 0x03B20302ul
static inline int zof_host_set_image_button_font_size(zof_host_t *host, uint16_t view, uint16_t control,
                                                      uint16_t pixels) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_BUTTON_FONT_SIZE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, pixels);
    return zof_host_end(host);
}

// 0 released, 1 pressed, 2 disabled, 3 checked, 4 checked and pressed, 5 checked and disabled.
// Carries: u8 state
#define ZOF_HOST_IMAGE_BUTTON_STATE 0x03B20303ul
static inline int zof_host_set_image_button_state(zof_host_t *host, uint16_t view, uint16_t control, uint8_t state) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_BUTTON_STATE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, state);
    return zof_host_end(host);
}

// The picture of a state.
// Carries: u8 state, text name
#define ZOF_HOST_IMAGE_BUTTON_IMAGE 0x03B20304ul
static inline int zof_host_set_image_button_image(zof_host_t *host, uint16_t view, uint16_t control, uint8_t state,
                                                  const char *name) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_IMAGE_BUTTON_IMAGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, state);
    zof_host_put_text(host, name);
    return zof_host_end(host);
}

// Lines.

// Colour 0xRRGGBB, width, opacity, and whether the ends are round.
// Carries: u32 rgb, u16 width, u8 opa, u8 rounded
#define ZOF_HOST_LINE_LOOK 0x03B20400ul
static inline int zof_host_set_line_look(zof_host_t *host, uint16_t view, uint16_t control, uint32_t rgb,
                                         uint16_t width, uint8_t opa, uint8_t rounded) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LINE_LOOK);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, rgb);
    zof_host_put_u16(host, width);
    zof_host_put_u8(host, opa);
    zof_host_put_u8(host, rounded);
    return zof_host_end(host);
}

// Arcs.

// Look of a part: 0 background, 1 indicator.
// Carries: u32 rgb, u16 width, u8 opa, u8 rounded
#define ZOF_HOST_ARC_LOOK 0x03B20500ul
static inline int zof_host_set_arc_look(zof_host_t *host, uint16_t view, uint16_t control, int8_t part, uint32_t rgb,
                                        uint16_t width, uint8_t opa, uint8_t rounded) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_LOOK);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, (uint8_t)part);
    zof_host_put_u32(host, rgb);
    zof_host_put_u16(host, width);
    zof_host_put_u8(host, opa);
    zof_host_put_u8(host, rounded);
    return zof_host_end(host);
}

// Colour of the knob, 0xRRGGBB.
// Carries: u32 rgb
#define ZOF_HOST_ARC_KNOB_COLOR 0x03B20501ul
static inline int zof_host_set_arc_knob_color(zof_host_t *host, uint16_t view, uint16_t control, uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_KNOB_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// The values of both ends.
// Carries: s16 min, s16 max
#define ZOF_HOST_ARC_RANGE 0x03B20502ul
static inline int zof_host_set_arc_range(zof_host_t *host, uint16_t view, uint16_t control, int16_t min, int16_t max) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_RANGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)min);
    zof_host_put_u16(host, (uint16_t)max);
    return zof_host_end(host);
}

// The value, kept within the range.
// Answers: s16 value
#define ZOF_HOST_ARC_VALUE 0x03B20503ul
static inline int zof_host_get_arc_value(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_ARC_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_arc_value(zof_host_t *host, uint16_t view, uint16_t control, int16_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)value);
    return zof_host_end(host);
}

// Turns the whole arc, in degrees.
// Carries: u16 degrees
#define ZOF_HOST_ARC_ROTATION 0x03B20504ul
static inline int zof_host_set_arc_rotation(zof_host_t *host, uint16_t view, uint16_t control, uint16_t degrees) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_ROTATION);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, degrees);
    return zof_host_end(host);
}

// Angles of both ends, clockwise from the right, in degrees.
// Carries: u16 start, u16 end
#define ZOF_HOST_ARC_ANGLES 0x03B20505ul
static inline int zof_host_set_arc_angles(zof_host_t *host, uint16_t view, uint16_t control, uint16_t start,
                                          uint16_t end) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ARC_ANGLES);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, start);
    zof_host_put_u16(host, end);
    return zof_host_end(host);
}

// Bars.

// Colour of the indicator, 0xRRGGBB.
// Carries: u32 rgb
#define ZOF_HOST_BAR_COLOR 0x03B20600ul
static inline int zof_host_set_bar_color(zof_host_t *host, uint16_t view, uint16_t control, uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BAR_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// The value, kept within the range.
// Answers: s16 value
#define ZOF_HOST_BAR_VALUE 0x03B20601ul
static inline int zof_host_get_bar_value(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BAR_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_bar_value(zof_host_t *host, uint16_t view, uint16_t control, int16_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BAR_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)value);
    return zof_host_end(host);
}

// The values of both ends.
// Carries: s16 min, s16 max
#define ZOF_HOST_BAR_RANGE 0x03B20602ul
static inline int zof_host_set_bar_range(zof_host_t *host, uint16_t view, uint16_t control, int16_t min, int16_t max) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BAR_RANGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)min);
    zof_host_put_u16(host, (uint16_t)max);
    return zof_host_end(host);
}

// Sliders.

// Colour of the indicator, 0xRRGGBB.
// Carries: u32 rgb
#define ZOF_HOST_SLIDER_COLOR 0x03B20700ul
static inline int zof_host_set_slider_color(zof_host_t *host, uint16_t view, uint16_t control, uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SLIDER_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// The value, kept within the range.
// Answers: s16 value
#define ZOF_HOST_SLIDER_VALUE 0x03B20701ul
static inline int zof_host_get_slider_value(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SLIDER_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_slider_value(zof_host_t *host, uint16_t view, uint16_t control, int16_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SLIDER_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)value);
    return zof_host_end(host);
}

// The values of both ends.
// Carries: s16 min, s16 max
#define ZOF_HOST_SLIDER_RANGE 0x03B20702ul
static inline int zof_host_set_slider_range(zof_host_t *host, uint16_t view, uint16_t control, int16_t min,
                                            int16_t max) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SLIDER_RANGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, (uint16_t)min);
    zof_host_put_u16(host, (uint16_t)max);
    return zof_host_end(host);
}

// Switches.

// Whether the switch is on.
// Answers: u8 on
#define ZOF_HOST_SWITCH_ON 0x03B20800ul
static inline int zof_host_get_switch_on(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SWITCH_ON);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_switch_on(zof_host_t *host, uint16_t view, uint16_t control, uint8_t on) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SWITCH_ON);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, on);
    return zof_host_end(host);
}

// Check boxes.

// The text beside the box.
// Carries: text text
#define ZOF_HOST_CHECK_BOX_TEXT 0x03B20900ul
static inline int zof_host_set_check_box_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHECK_BOX_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Whether the box is checked.
// Answers: u8 checked
#define ZOF_HOST_CHECK_BOX_CHECKED 0x03B20901ul
static inline int zof_host_get_check_box_checked(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CHECK_BOX_CHECKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_check_box_checked(zof_host_t *host, uint16_t view, uint16_t control, uint8_t checked) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHECK_BOX_CHECKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, checked);
    return zof_host_end(host);
}

// Whether the box takes no touches.
// Answers: u8 disabled
#define ZOF_HOST_CHECK_BOX_DISABLED 0x03B20902ul
static inline int zof_host_get_check_box_disabled(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_CHECK_BOX_DISABLED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_check_box_disabled(zof_host_t *host, uint16_t view, uint16_t control, uint8_t disabled) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHECK_BOX_DISABLED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, disabled);
    return zof_host_end(host);
}

// Message boxes.

// The title.
// Carries: text text
#define ZOF_HOST_MESSAGE_BOX_TITLE 0x03B20A00ul
static inline int zof_host_set_message_box_title(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_MESSAGE_BOX_TITLE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// The text.
// Carries: text text
#define ZOF_HOST_MESSAGE_BOX_TEXT 0x03B20A01ul
static inline int zof_host_set_message_box_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_MESSAGE_BOX_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Closes the box after a time in milliseconds.
// Carries: u16 ms
#define ZOF_HOST_MESSAGE_BOX_AUTO_CLOSE 0x03B20A02ul
static inline int zof_host_set_message_box_auto_close(zof_host_t *host, uint16_t view, uint16_t control, uint16_t ms) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_MESSAGE_BOX_AUTO_CLOSE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, ms);
    return zof_host_end(host);
}

// Closes (0) or opens (1) the box.
// Carries: u8 open
#define ZOF_HOST_MESSAGE_BOX_OPEN 0x03B20A03ul
static inline int zof_host_set_message_box_open(zof_host_t *host, uint16_t view, uint16_t control, uint8_t open) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_MESSAGE_BOX_OPEN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, open);
    return zof_host_end(host);
}

// The button clicked last, counted from 0; 65535 for none.
// Answers: u16 button
#define ZOF_HOST_MESSAGE_BOX_CLICKED 0x03B20A04ul
static inline int zof_host_get_message_box_clicked(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_MESSAGE_BOX_CLICKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// The caption of the button clicked last.
// Answers: text text
#define ZOF_HOST_MESSAGE_BOX_CLICKED_TEXT 0x03B20A05ul
static inline int zof_host_get_message_box_clicked_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_MESSAGE_BOX_CLICKED_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Tile views.

// Goes to a tile, at once (0) or in an animation (1).
// Carries: u8 animate, u16 row, u16 column
#define ZOF_HOST_TILE_VIEW_TILE 0x03B20B00ul
static inline int zof_host_set_tile_view_tile(zof_host_t *host, uint16_t view, uint16_t control, uint8_t animate,
                                              uint16_t row, uint16_t column) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TILE_VIEW_TILE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, animate);
    zof_host_put_u16(host, row);
    zof_host_put_u16(host, column);
    return zof_host_end(host);
}

// Text boxes.

// Adds a text at the cursor.
// Carries: text text
#define ZOF_HOST_TEXT_BOX_ADD_TEXT 0x03B20C00ul
static inline int zof_host_set_text_box_add_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_ADD_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Adds a character at the cursor: its UTF-8 bytes, the first one in the lowest byte.
// Carries: u32 character
#define ZOF_HOST_TEXT_BOX_ADD_CHAR 0x03B20C01ul
static inline int zof_host_set_text_box_add_char(zof_host_t *host, uint16_t view, uint16_t control,
                                                 uint32_t character) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_ADD_CHAR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, character);
    return zof_host_end(host);
}

// Deletes the character before the cursor (0) or after it (1).
// Carries: u8 forward
#define ZOF_HOST_TEXT_BOX_DELETE 0x03B20C02ul
static inline int zof_host_set_text_box_delete(zof_host_t *host, uint16_t view, uint16_t control, uint8_t forward) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_DELETE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, forward);
    return zof_host_end(host);
}

// The whole text.
// Answers: text text
#define ZOF_HOST_TEXT_BOX_TEXT 0x03B20C03ul
static inline int zof_host_get_text_box_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_TEXT_BOX_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_text_box_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Whether the text is shown as bullets.
// Carries: u8 on
#define ZOF_HOST_TEXT_BOX_PASSWORD 0x03B20C04ul
static inline int zof_host_set_text_box_password(zof_host_t *host, uint16_t view, uint16_t control, uint8_t on) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_PASSWORD);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, on);
    return zof_host_end(host);
}

// Moves the cursor: 0 right, 1 left, 2 down, 3 up.
// Carries: u8 where
#define ZOF_HOST_TEXT_BOX_CURSOR 0x03B20C05ul
static inline int zof_host_set_text_box_cursor(zof_host_t *host, uint16_t view, uint16_t control, uint8_t where) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TEXT_BOX_CURSOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, where);
    return zof_host_end(host);
}

// Lists of buttons.

// Removes a button, counted from 0.
// Carries: u16 index
#define ZOF_HOST_LIST_REMOVE 0x03B20D00ul
static inline int zof_host_set_list_remove(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LIST_REMOVE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}

// Removes all buttons; the value is ignored.
// Carries: s8 any
#define ZOF_HOST_LIST_CLEAR 0x03B20D01ul
static inline int zof_host_set_list_clear(zof_host_t *host, uint16_t view, uint16_t control, int8_t any) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LIST_CLEAR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, (uint8_t)any);
    return zof_host_end(host);
}

// The text of a button, counted from 0.
// Answers: text text
#define ZOF_HOST_LIST_TEXT 0x03B20D02ul
static inline int zof_host_get_list_text(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_LIST_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}
static inline int zof_host_set_list_text(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index,
                                         const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LIST_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Adds a button at the end.
// Carries: text text
#define ZOF_HOST_LIST_ADD 0x03B20D03ul
static inline int zof_host_set_list_add(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LIST_ADD);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// The button that was touched last, 65535 for none; a write checks a button and no other.
// Answers: u16 index
#define ZOF_HOST_LIST_SELECTED 0x03B20D04ul
static inline int zof_host_get_list_selected(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_LIST_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_list_selected(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_LIST_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}

// The text of the button that was touched last.
// Answers: text text
#define ZOF_HOST_LIST_SELECTED_TEXT 0x03B20D05ul
static inline int zof_host_get_list_selected_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_LIST_SELECTED_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Drop-down lists.

// Inserts an option before a position, or appends it beyond the end.
// Carries: text text
#define ZOF_HOST_DROP_LIST_ADD 0x03B20E00ul
static inline int zof_host_set_drop_list_add(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position,
                                             const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_DROP_LIST_ADD);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Replaces an option, counted from 0.
// Carries: text text
#define ZOF_HOST_DROP_LIST_MODIFY 0x03B20E01ul
static inline int zof_host_set_drop_list_modify(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position,
                                                const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_DROP_LIST_MODIFY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Removes an option, counted from 0.
// Carries: u16 position
#define ZOF_HOST_DROP_LIST_REMOVE 0x03B20E02ul
static inline int zof_host_set_drop_list_remove(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_DROP_LIST_REMOVE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    return zof_host_end(host);
}

// Closes (0) or opens (1) the list.
// Carries: u8 open
#define ZOF_HOST_DROP_LIST_OPEN 0x03B20E03ul
static inline int zof_host_set_drop_list_open(zof_host_t *host, uint16_t view, uint16_t control, uint8_t open) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_DROP_LIST_OPEN);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, open);
    return zof_host_end(host);
}

// The selected option, counted from 0.
// Answers: u16 index
#define ZOF_HOST_DROP_LIST_SELECTED 0x03B20E04ul
static inline int zof_host_get_drop_list_selected(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_DROP_LIST_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_drop_list_selected(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_DROP_LIST_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}

// The text of the selected option.
// Answers: text text
#define ZOF_HOST_DROP_LIST_SELECTED_TEXT 0x03B20E05ul
static inline int zof_host_get_drop_list_selected_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_DROP_LIST_SELECTED_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Roller lists.

// Inserts an option before a position, or appends it beyond the end.
// Carries: text text
#define ZOF_HOST_ROLLER_ADD 0x03B20F00ul
static inline int zof_host_set_roller_add(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position,
                                          const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ROLLER_ADD);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Replaces an option, counted from 0.
// Carries: text text
#define ZOF_HOST_ROLLER_MODIFY 0x03B20F01ul
static inline int zof_host_set_roller_modify(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position,
                                             const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ROLLER_MODIFY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Removes an option, counted from 0.
// Carries: u16 position
#define ZOF_HOST_ROLLER_REMOVE 0x03B20F02ul
static inline int zof_host_set_roller_remove(zof_host_t *host, uint16_t view, uint16_t control, uint16_t position) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ROLLER_REMOVE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, position);
    return zof_host_end(host);
}

// The selected option, counted from 0.
// Answers: u16 index
#define ZOF_HOST_ROLLER_SELECTED 0x03B20F03ul
static inline int zof_host_get_roller_selected(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_ROLLER_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_roller_selected(zof_host_t *host, uint16_t view, uint16_t control, uint16_t index) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_ROLLER_SELECTED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, index);
    return zof_host_end(host);
}

// The text of the selected option.
// Answers: text text
#define ZOF_HOST_ROLLER_SELECTED_TEXT 0x03B20F04ul
static inline int zof_host_get_roller_selected_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_ROLLER_SELECTED_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// GIFs.

// 0 plays from the start, 1 pauses, 2 resumes.
// Carries: u8 which
#define ZOF_HOST_GIF_PLAY 0x03B21000ul
static inline int zof_host_set_gif_play(zof_host_t *host, uint16_t view, uint16_t control, uint8_t which) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_GIF_PLAY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, which);
    return zof_host_end(host);
}

// Plays so many times from the start; 0 plays forever.
// Carries: u16 count
#define ZOF_HOST_GIF_COUNT 0x03B21001ul
static inline int zof_host_set_gif_count(zof_host_t *host, uint16_t view, uint16_t control, uint16_t count) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_GIF_COUNT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, count);
    return zof_host_end(host);
}

// A file under image/, which plays at once.
// Carries: text name
#define ZOF_HOST_GIF_SOURCE 0x03B21002ul
static inline int zof_host_set_gif_source(zof_host_t *host, uint16_t view, uint16_t control, const char *name) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_GIF_SOURCE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, name);
    return zof_host_end(host);
}

// QR codes.

// The text of the code.
// Carries: text text
#define ZOF_HOST_QR_CODE_TEXT 0x03B21100ul
static inline int zof_host_set_qr_code_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_QR_CODE_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Video players.

// A file under video/ that ends in .mp4; its sound begins.
// Carries: text name
#define ZOF_HOST_VIDEO_SOURCE 0x03B21200ul
static inline int zof_host_set_video_source(zof_host_t *host, uint16_t view, uint16_t control, const char *name) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIDEO_SOURCE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, name);
    return zof_host_end(host);
}

// Picture and sound: 0 plays from the start, 1 stops, 2 pauses, 3 resumes.
// Answers: u8 state
#define ZOF_HOST_VIDEO_STATE 0x03B21201ul
static inline int zof_host_get_video_state(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_VIDEO_STATE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_video_state(zof_host_t *host, uint16_t view, uint16_t control, uint8_t state) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIDEO_STATE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, state);
    return zof_host_end(host);
}

// 128 is the file's own, 0 is silent.
// Carries: u8 volume
#define ZOF_HOST_VIDEO_VOLUME 0x03B21202ul
static inline int zof_host_set_video_volume(zof_host_t *host, uint16_t view, uint16_t control, uint8_t volume) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIDEO_VOLUME);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, volume);
    return zof_host_end(host);
}

// Place and size in pixels.
// Carries: u16 x, u16 y, u16 width, u16 height
#define ZOF_HOST_VIDEO_BOX 0x03B21203ul
static inline int zof_host_set_video_box(zof_host_t *host, uint16_t view, uint16_t control, uint16_t x, uint16_t y,
                                         uint16_t width, uint16_t height) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIDEO_BOX);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, x);
    zof_host_put_u16(host, y);
    zof_host_put_u16(host, width);
    zof_host_put_u16(host, height);
    return zof_host_end(host);
}

// Plays once (0), or again and again (1).
// Carries: u8 on
#define ZOF_HOST_VIDEO_REPLAY 0x03B21204ul
static inline int zof_host_set_video_replay(zof_host_t *host, uint16_t view, uint16_t control, uint8_t on) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_VIDEO_REPLAY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, on);
    return zof_host_end(host);
}

// Keyboards.

// The key pressed last, counted from 0; 65535 for none.
// Answers: u32 key
#define ZOF_HOST_KEYBOARD_KEY 0x03B21300ul
static inline int zof_host_get_keyboard_key(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_KEYBOARD_KEY);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// The caption of a key.
// Answers: text text
#define ZOF_HOST_KEYBOARD_CAPTION 0x03B21301ul
static inline int zof_host_get_keyboard_caption(zof_host_t *host, uint16_t view, uint16_t control, uint16_t key) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_KEYBOARD_CAPTION);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, key);
    return zof_host_end(host);
}

// The text box that receives the keys, of the same view.
// Carries: u16 box
#define ZOF_HOST_KEYBOARD_TARGET 0x03B21302ul
static inline int zof_host_set_keyboard_target(zof_host_t *host, uint16_t view, uint16_t control, uint16_t box) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_KEYBOARD_TARGET);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, box);
    return zof_host_end(host);
}

// The text of the text box that receives the keys.
// Answers: text text
#define ZOF_HOST_KEYBOARD_TEXT 0x03B21303ul
static inline int zof_host_get_keyboard_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_KEYBOARD_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_keyboard_text(zof_host_t *host, uint16_t view, uint16_t control, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_KEYBOARD_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Spin boxes.

// The value, without its decimal point.
// Answers: s32 value
#define ZOF_HOST_SPIN_BOX_VALUE 0x03B21400ul
static inline int zof_host_get_spin_box_value(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_SPIN_BOX_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_spin_box_value(zof_host_t *host, uint16_t view, uint16_t control, int32_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SPIN_BOX_VALUE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, (uint32_t)value);
    return zof_host_end(host);
}

// Chooses the digit to change: 0 the one before, 1 the next.
// Carries: u8 which
#define ZOF_HOST_SPIN_BOX_STEP 0x03B21401ul
static inline int zof_host_set_spin_box_step(zof_host_t *host, uint16_t view, uint16_t control, uint8_t which) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SPIN_BOX_STEP);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, which);
    return zof_host_end(host);
}

// Counts by one step: 0 down, 1 up.
// Carries: u8 which
#define ZOF_HOST_SPIN_BOX_COUNT 0x03B21402ul
static inline int zof_host_set_spin_box_count(zof_host_t *host, uint16_t view, uint16_t control, uint8_t which) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_SPIN_BOX_COUNT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, which);
    return zof_host_end(host);
}

// Tables.

// The text of a cell; beyond the end the table grows.
// Carries: u16 row, u16 column, text text
#define ZOF_HOST_TABLE_TEXT 0x03B21500ul
static inline int zof_host_set_table_text(zof_host_t *host, uint16_t view, uint16_t control, uint16_t row,
                                          uint16_t column, const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TABLE_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, row);
    zof_host_put_u16(host, column);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Width of a column in pixels.
// Carries: u16 column, u16 width
#define ZOF_HOST_TABLE_COLUMN_WIDTH 0x03B21501ul
static inline int zof_host_set_table_column_width(zof_host_t *host, uint16_t view, uint16_t control, uint16_t column,
                                                  uint16_t width) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TABLE_COLUMN_WIDTH);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, column);
    zof_host_put_u16(host, width);
    return zof_host_end(host);
}

// Merges a cell with the one to its right, or splits them.
// Carries: u16 row, u16 column
#define ZOF_HOST_TABLE_MERGE_RIGHT 0x03B21502ul
static inline int zof_host_set_table_merge_right(zof_host_t *host, uint16_t view, uint16_t control, uint16_t row,
                                                 uint16_t column) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TABLE_MERGE_RIGHT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, row);
    zof_host_put_u16(host, column);
    return zof_host_end(host);
}

// Borders and background of all cells; colours 0xRRGGBB.
// Carries: u32 border_rgb, u8 border_width, u8 border_opacity, u8 opacity, u32 rgb
#define ZOF_HOST_TABLE_LOOK 0x03B21503ul
static inline int zof_host_set_table_look(zof_host_t *host, uint16_t view, uint16_t control, uint32_t border_rgb,
                                          uint8_t border_width, uint8_t border_opacity, uint8_t opacity, uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_TABLE_LOOK);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u32(host, border_rgb);
    zof_host_put_u8(host, border_width);
    zof_host_put_u8(host, border_opacity);
    zof_host_put_u8(host, opacity);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// Button matrices.

// The caption of a button, counted from 0.
// Answers: text text
#define ZOF_HOST_BUTTON_MATRIX_CAPTION 0x03B21600ul
static inline int zof_host_get_button_matrix_caption(zof_host_t *host, uint16_t view, uint16_t control,
                                                     uint16_t button) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_MATRIX_CAPTION);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, button);
    return zof_host_end(host);
}
static inline int zof_host_set_button_matrix_caption(zof_host_t *host, uint16_t view, uint16_t control, uint16_t button,
                                                     const char *text) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_CAPTION);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, button);
    zof_host_put_text(host, text);
    return zof_host_end(host);
}

// Clears (0) or sets (1) flags of a button: 8 hidden, 32 disabled, 64 checkable, 128 checked.
// Carries: u8 set, u16 button, u16 flags
#define ZOF_HOST_BUTTON_MATRIX_BUTTON_FLAGS 0x03B21601ul
static inline int zof_host_set_button_matrix_button_flags(zof_host_t *host, uint16_t view, uint16_t control,
                                                          uint8_t set, uint16_t button, uint16_t flags) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_BUTTON_FLAGS);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, set);
    zof_host_put_u16(host, button);
    zof_host_put_u16(host, flags);
    return zof_host_end(host);
}

// Clears (0) or sets (1) flags of all buttons.
// Carries: u8 set, u16 flags
#define ZOF_HOST_BUTTON_MATRIX_FLAGS 0x03B21602ul
static inline int zof_host_set_button_matrix_flags(zof_host_t *host, uint16_t view, uint16_t control, uint8_t set,
                                                   uint16_t flags) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_FLAGS);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, set);
    zof_host_put_u16(host, flags);
    return zof_host_end(host);
}

// Whether a button has all of these flags.
// Answers: u8 has
#define ZOF_HOST_BUTTON_MATRIX_HAS_FLAGS 0x03B21603ul
static inline int zof_host_get_button_matrix_has_flags(zof_host_t *host, uint16_t view, uint16_t control,
                                                       uint16_t button, uint16_t flags) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_MATRIX_HAS_FLAGS);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, button);
    zof_host_put_u16(host, flags);
    return zof_host_end(host);
}

// Makes a button 1 to 7 times as wide as others of its row.
// Carries: u8 width, u16 button
#define ZOF_HOST_BUTTON_MATRIX_WIDTH 0x03B21604ul
static inline int zof_host_set_button_matrix_width(zof_host_t *host, uint16_t view, uint16_t control, uint8_t width,
                                                   uint16_t button) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_WIDTH);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, width);
    zof_host_put_u16(host, button);
    return zof_host_end(host);
}

// Whether checking a button unchecks the others.
// Answers: u8 on
#define ZOF_HOST_BUTTON_MATRIX_ONE_CHECKED 0x03B21605ul
static inline int zof_host_get_button_matrix_one_checked(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_MATRIX_ONE_CHECKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_button_matrix_one_checked(zof_host_t *host, uint16_t view, uint16_t control,
                                                         uint8_t on) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_ONE_CHECKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, on);
    return zof_host_end(host);
}

// The button pressed last, counted from 0; 65535 for none.
// Answers: u16 button
#define ZOF_HOST_BUTTON_MATRIX_CLICKED 0x03B21606ul
static inline int zof_host_get_button_matrix_clicked(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_MATRIX_CLICKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}
static inline int zof_host_set_button_matrix_clicked(zof_host_t *host, uint16_t view, uint16_t control,
                                                     uint16_t button) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_BUTTON_MATRIX_CLICKED);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u16(host, button);
    return zof_host_end(host);
}

// The caption of the button pressed last.
// Answers: text text
#define ZOF_HOST_BUTTON_MATRIX_CLICKED_TEXT 0x03B21607ul
static inline int zof_host_get_button_matrix_clicked_text(zof_host_t *host, uint16_t view, uint16_t control) {
    zof_host_begin(host, ZOF_HOST_READ, ZOF_HOST_BUTTON_MATRIX_CLICKED_TEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    return zof_host_end(host);
}

// Charts.

// Colour of a series, 0xRRGGBB; adds the series up to this one, 0 to 15, if the chart lacks them.
// Carries: u32 rgb
#define ZOF_HOST_CHART_COLOR 0x03B21700ul
static inline int zof_host_set_chart_color(zof_host_t *host, uint16_t view, uint16_t control, uint8_t series,
                                           uint32_t rgb) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHART_COLOR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, series);
    zof_host_put_u32(host, rgb);
    return zof_host_end(host);
}

// Adds a value to a series.
// Carries: s16 value
#define ZOF_HOST_CHART_NEXT 0x03B21701ul
static inline int zof_host_set_chart_next(zof_host_t *host, uint16_t view, uint16_t control, uint8_t series,
                                          int16_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHART_NEXT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, series);
    zof_host_put_u16(host, (uint16_t)value);
    return zof_host_end(host);
}

// Sets a point of a series, counted from 0.
// Carries: s16 value
#define ZOF_HOST_CHART_POINT 0x03B21702ul
static inline int zof_host_set_chart_point(zof_host_t *host, uint16_t view, uint16_t control, uint8_t series,
                                           uint16_t point, int16_t value) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHART_POINT);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, series);
    zof_host_put_u16(host, point);
    zof_host_put_u16(host, (uint16_t)value);
    return zof_host_end(host);
}

// The values at both ends of an axis: 0 upwards, 1 sideways.
// Carries: s16 min, s16 max
#define ZOF_HOST_CHART_RANGE 0x03B21703ul
static inline int zof_host_set_chart_range(zof_host_t *host, uint16_t view, uint16_t control, uint8_t axis, int16_t min,
                                           int16_t max) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHART_RANGE);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, axis);
    zof_host_put_u16(host, (uint16_t)min);
    zof_host_put_u16(host, (uint16_t)max);
    return zof_host_end(host);
}

// Removes the values of a series, which stays.
// Carries: u8 series
#define ZOF_HOST_CHART_CLEAR 0x03B21704ul
static inline int zof_host_set_chart_clear(zof_host_t *host, uint16_t view, uint16_t control, uint8_t series) {
    zof_host_begin(host, ZOF_HOST_WRITE, ZOF_HOST_CHART_CLEAR);
    zof_host_put_u16(host, view);
    zof_host_put_u16(host, control);
    zof_host_put_u8(host, series);
    return zof_host_end(host);
}

// The kinds of events, in `control.event`.
enum {
    // no event: the answer to a read
    ZOF_HOST_EVENT_STATE = 0,
    // pressed and released
    ZOF_HOST_EVENT_CLICKED = 1,
    // held down
    ZOF_HOST_EVENT_LONG_PRESSED = 2,
    // the user has changed the value
    ZOF_HOST_EVENT_CHANGED = 3,
    // Enter, in a keyboard or a text box of one line
    ZOF_HOST_EVENT_READY = 4,
    // the key that closes a keyboard
    ZOF_HOST_EVENT_CANCEL = 5,
    // touched, or reached by keys
    ZOF_HOST_EVENT_FOCUSED = 6,
    // a view is shown; the control is 0, the number its layer, the text its file
    ZOF_HOST_EVENT_VIEW = 7,
    // another language; view and control are 0, the text is its name
    ZOF_HOST_EVENT_LANGUAGE = 8
};

// rows: end

#ifdef __cplusplus
}
#endif

#endif
