// Serial lines in a page: two queues between the panel and a far end, which is another thread or the page's main
// thread.
#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <emscripten.h>
#include <emscripten/threading.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>

#include "port/host_web_line.h"
#include "port/win_line.h"

enum { ROOM = 4096 }; // bytes on their way in one direction, as a system keeps them for a line

struct host_own {
    bool woken;
};

struct far_t {
    const char *path, *adapter;
    bool plugged;
    u32 plugs; // how often it has been plugged in, the number of the open device
    std::deque<u8> to_panel, from_panel;
};

static struct {
    std::mutex lock;                 // guards all
    std::condition_variable changed; // of anything
    far_t far[HOST_FAR_COUNT] = {{"box", "virtual box", false, 0, {}, {}}, {"usb", "allowed port", false, 0, {}, {}}};
} lines;

// ---- far ends

void host_far_plug(u32 far, zof_bool in) {
    std::lock_guard guard(lines.lock);
    far_t *one = &lines.far[far];
    one->plugged = in != ZOF_FALSE;
    one->plugs += in ? 1 : 0;
    one->to_panel.clear();
    one->from_panel.clear();
    lines.changed.notify_all();
}

u32 host_far_read(u32 far, u8 *out, u32 size) {
    std::lock_guard guard(lines.lock);
    std::deque<u8> *from = &lines.far[far].from_panel;
    u32 n = 0;
    for (; n < size && !from->empty(); n++) {
        out[n] = from->front();
        from->pop_front();
    }
    lines.changed.notify_all();
    return n;
}

u32 host_far_write(u32 far, const u8 *data, u32 size) {
    std::lock_guard guard(lines.lock);
    std::deque<u8> *to = &lines.far[far].to_panel;
    u32 n = 0;
    for (; n < size && lines.far[far].plugged && to->size() < ROOM; n++) {
        to->push_back(data[n]);
    }
    lines.changed.notify_all();
    return n;
}

void host_far_wait(u32 far, u32 ms) {
    std::unique_lock guard(lines.lock);
    lines.changed.wait_for(guard, std::chrono::milliseconds(ms), [far] { return !lines.far[far].from_panel.empty(); });
}

// ---- the panel's ends. A device is the far end and how often it had been plugged in.

static far_t *far_of(intptr_t device) {
    return &lines.far[(size_t)device % HOST_FAR_COUNT];
}

static bool is_there(intptr_t device) {
    return far_of(device)->plugged && far_of(device)->plugs == (u32)device / HOST_FAR_COUNT;
}

bool host_line_init(win_line *s) {
    s->host = new (std::nothrow) host_own{};
    return s->host != nullptr;
}

void host_line_free(win_line *s) {
    delete (host_own *)s->host;
}

// The box, unless the port is another one.
void host_line_path(s32 port, char *out, size_t size) {
    snprintf(out, size, "%s", port == 6 ? lines.far[HOST_FAR_BOX].path : "");
}

intptr_t host_line_open(win_line *s, const zof_host_line_t *line, zof_uart_info_t *found) {
    (void)s;
    (void)line;
    std::lock_guard guard(lines.lock);
    found->state = UART_STATE_MISSING;
    for (u32 i = 0; i < HOST_FAR_COUNT; i++) {
        const far_t *far = &lines.far[i];
        if (strcmp(far->path, found->path) == 0 && far->plugged) {
            found->state = UART_STATE_OPEN;
            snprintf(found->adapter, sizeof(found->adapter), "%s", far->adapter);
            return (intptr_t)(far->plugs * HOST_FAR_COUNT + i);
        }
    }
    return -1;
}

void host_line_forget(win_line *s) {
    (void)s;
}

bool host_line_apply(intptr_t device, const zof_host_line_t *line) {
    (void)device;
    (void)line;
    return true; // the page opens an allowed port with the rate of the box
}

void host_line_leave(win_line *s) {
    (void)s;
}

void host_line_close(intptr_t device) {
    std::lock_guard guard(lines.lock);
    if (is_there(device)) { // otherwise they are those of a later connection
        far_of(device)->to_panel.clear();
    }
}

u32 host_line_write(win_line *s, const u8 *data, u32 size, bool patient, bool *full) {
    const auto wait = std::chrono::milliseconds(patient ? WIN_LINE_SEND_WAIT_MS : 0);
    std::unique_lock guard(lines.lock);
    far_t *far = far_of(s->device);
    u32 sent = 0;
    while (sent < size && is_there(s->device)) {
        if (far->from_panel.size() < ROOM) {
            far->from_panel.push_back(data[sent++]);
        } else if (!lines.changed.wait_for(guard, wait, [far] { return far->from_panel.size() < ROOM; })) {
            *full = true;
            break;
        }
    }
    lines.changed.notify_all();
    if (far == &lines.far[HOST_FAR_USB]) {
        MAIN_THREAD_ASYNC_EM_ASM({
            if (Module.zofUsbSent) {
                Module.zofUsbSent();
            }
        });
    }
    return sent;
}

s32 host_line_read(win_line *s, u8 *buffer, u32 size) {
    auto *own = (host_own *)s->host;
    std::unique_lock guard(lines.lock);
    std::deque<u8> *to = &far_of(s->device)->to_panel;
    lines.changed.wait(guard, [s, own, to] { return own->woken || !to->empty() || !is_there(s->device); });
    if (own->woken) {
        own->woken = false;
        return 0;
    }
    if (!is_there(s->device)) {
        return -1;
    }
    u32 n = 0;
    for (; n < size && !to->empty(); n++) {
        buffer[n] = to->front();
        to->pop_front();
    }
    lines.changed.notify_all();
    return (s32)n;
}

void host_line_nap(win_line *s, s32 ms) {
    auto *own = (host_own *)s->host;
    std::unique_lock guard(lines.lock);
    const auto woken = [own] { return own->woken; };
    if (ms < 0) {
        lines.changed.wait(guard, woken);
    } else {
        lines.changed.wait_for(guard, std::chrono::milliseconds(ms), woken);
    }
    own->woken = false;
}

void host_line_wake(win_line *s) {
    std::lock_guard guard(lines.lock);
    ((host_own *)s->host)->woken = true;
    lines.changed.notify_all();
}

u32 zof_drv_uart_list(zof_uart_info_t *out, u32 most) {
    std::lock_guard guard(lines.lock);
    u32 count = 0;
    for (const far_t &far : lines.far) {
        if (far.plugged && count < most) {
            out[count] = {};
            snprintf(out[count].path, sizeof(out->path), "%s", far.path);
            snprintf(out[count].adapter, sizeof(out->adapter), "%s", far.adapter);
            count++;
        }
    }
    return count;
}

// ---- called by the page, for the serial port that the user has allowed

extern "C" {
EMSCRIPTEN_KEEPALIVE void zof_usb_plug(int in) {
    host_far_plug(HOST_FAR_USB, in ? ZOF_TRUE : ZOF_FALSE);
}

EMSCRIPTEN_KEEPALIVE u32 zof_usb_take(const u8 *data, u32 size) {
    return host_far_write(HOST_FAR_USB, data, size);
}

EMSCRIPTEN_KEEPALIVE u32 zof_usb_next(u8 *out, u32 size) {
    return host_far_read(HOST_FAR_USB, out, size);
}
}
