#include "design_frame.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "design_in.h"
#include "design_net.h"

enum { KIND_CANVAS = 1, KIND_TILE = 2, WAITING_MAX = 4 << 20 }; // bytes that a page may not have read yet

static struct {
    view_image_t picture;
    u32 number;
    std::map<u32, view_box_t> due; // of each page: what it has not been sent
} frame;

static view_box_t box_join(const view_box_t &a, const view_box_t &b) {
    if (a.w == 0 || b.w == 0) {
        return a.w == 0 ? b : a;
    }
    const s32 x = std::min(a.x, b.x);
    const s32 y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.w, b.x + b.w) - x, std::max(a.y + a.h, b.y + b.h) - y};
}

// Returns the smallest box of pixels that differ.
static view_box_t box_changed(const view_image_t &was, const view_image_t &is) {
    s32 x1 = is.width, x2 = -1, y1 = is.height, y2 = -1;
    for (s32 y = 0; y < is.height; y++) {
        const u32 *a = &was.pixels[(size_t)y * (size_t)is.width];
        const u32 *b = &is.pixels[(size_t)y * (size_t)is.width];
        if (memcmp(a, b, (size_t)is.width * sizeof(u32)) == 0) {
            continue;
        }
        const s32 left = (s32)(std::mismatch(a, a + is.width, b).first - a);
        s32 right = is.width - 1;
        while (a[right] == b[right]) {
            right--;
        }
        x1 = std::min(x1, left);
        x2 = std::max(x2, right);
        y1 = std::min(y1, y);
        y2 = y;
    }
    return x2 < 0 ? view_box_t{} : view_box_t{x1, y1, x2 - x1 + 1, y2 - y1 + 1};
}

void design_frame_take(const view_image_t *picture) {
    const view_box_t all = {0, 0, picture->width, picture->height};
    const bool same_size = picture->width == frame.picture.width && picture->height == frame.picture.height;
    const view_box_t changed = same_size ? box_changed(frame.picture, *picture) : all;
    frame.picture = *picture;
    frame.number++;
    for (const u32 page : design_pages()) {
        view_box_t &due = frame.due[page];
        due = same_size ? box_join(due, changed) : all;
    }
}

static std::vector<u8> message_make(u32 kind, u32 number, const view_image_t &picture, const view_box_t &box) {
    const u32 head[] = {kind,       number,     (u32)box.x,         (u32)box.y,
                        (u32)box.w, (u32)box.h, (u32)picture.width, (u32)picture.height};
    const size_t pixels = (size_t)box.w * (size_t)box.h;
    std::vector<u8> out(sizeof(head) + pixels * 4);
    memcpy(out.data(), head, sizeof(head));
    u8 *to = out.data() + sizeof(head);
    for (s32 y = box.y; y < box.y + box.h; y++) {
        const u32 *from = &picture.pixels[(size_t)y * (size_t)picture.width + (size_t)box.x];
        for (s32 x = 0; x < box.w; x++, to += 4) {
            to[0] = (u8)(from[x] >> 16);
            to[1] = (u8)(from[x] >> 8);
            to[2] = (u8)from[x];
            to[3] = 255;
        }
    }
    return out;
}

void design_frame_send() {
    for (const u32 page : design_pages()) {
        view_box_t &due = frame.due[page];
        if (due.w > 0 && !frame.picture.pixels.empty() && design_net_waiting(page) < WAITING_MAX) {
            design_net_send_bytes(page, message_make(KIND_CANVAS, frame.number, frame.picture, due));
            due = {};
        }
    }
}

void design_frame_whole(u32 page) {
    frame.due[page] = {0, 0, frame.picture.width, frame.picture.height};
}

u32 design_frame_number() {
    return frame.number;
}

void design_frame_tile(u32 page, u32 number, const view_image_t &picture) {
    design_net_send_bytes(page, message_make(KIND_TILE, number, picture, {0, 0, picture.width, picture.height}));
}
