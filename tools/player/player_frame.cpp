// The picture in shared memory.
#include <atomic>

#include "player.h"
#include "player_frame.h"
#include "port/zof_port.h"

#include "../system/stream.h"

static player_frame_t *head; // null if there is no shared memory

// Copies the changed rectangle. The top byte of a pixel in the frame store is undefined; pictures are opaque.
static void rows_copy(const lv_area_t *area) {
    s32 width = 0;
    const u32 *pixels = sdl_frame_get(&width, nullptr);
    u32 *to = (u32 *)(void *)(head + 1);
    const std::atomic_ref<u32> sequence(head->sequence);
    sequence.fetch_add(1);
    for (s32 y = area->y1; y <= area->y2; y++) {
        for (s32 x = area->x1; x <= area->x2; x++) {
            const size_t at = (size_t)y * (size_t)width + (size_t)x;
            to[at] = pixels[at] | 0xFF000000u;
        }
    }
    sequence.fetch_add(1);
}

std::string player_frame_init() {
    if (player_options.shared.empty()) {
        inspect_frames_start(nullptr);
        return "";
    }
    s32 width = 0;
    s32 height = 0;
    sdl_frame_get(&width, &height);
    const size_t size = sizeof(player_frame_t) + (size_t)width * (size_t)height * sizeof(u32);
    head = (player_frame_t *)shared_create(player_options.shared.c_str(), size);
    if (!head) {
        return player_options.shared + " cannot be mapped";
    }
    *head = {PLAYER_MAGIC, PLAYER_VERSION, (u32)width, (u32)height, (u32)width * 4, sizeof(player_frame_t), 0, 0};
    inspect_frames_start(rows_copy);
    return "";
}
