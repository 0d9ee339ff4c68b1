// The picture in shared memory. LVGL's flush callback is wrapped, so that each frame has the rectangle that changed.
#include <atomic>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "lvgl.h"
#include "player.h"
#include "player_picture.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

static struct {
    player_frame_t *head; // null if there is no shared memory
    void (*flush)(lv_disp_drv_t *, const lv_area_t *, lv_color_t *);
    lv_area_t dirty;
    bool drawn; // something was drawn since the last frame
    u32 sequence;
} frame;

static void flush(lv_disp_drv_t *drv, const lv_area_t *area, lv_color_t *pixels) {
    if (frame.drawn) {
        _lv_area_join(&frame.dirty, &frame.dirty, area);
    } else {
        frame.dirty = *area;
    }
    frame.drawn = true;
    frame.flush(drv, area, pixels);
}

static player_frame_t *shared_map(const char *path, s32 width, s32 height) {
    const size_t size = sizeof(player_frame_t) + (size_t)width * (size_t)height * sizeof(u32);
    const int fd = open(path, O_RDWR | O_CLOEXEC);
    void *memory = MAP_FAILED;
    if (fd >= 0 && ftruncate(fd, (off_t)size) == 0) {
        memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    }
    if (fd >= 0) {
        close(fd);
    }
    return memory == MAP_FAILED ? nullptr : (player_frame_t *)memory;
}

std::string player_picture_init() {
    s32 width = 0;
    s32 height = 0;
    sdl_frame_get(&width, &height);
    lv_disp_drv_t *drv = lv_disp_get_default()->driver;
    frame.flush = drv->flush_cb;
    drv->flush_cb = flush;
    if (player_options.shared.empty()) {
        return "";
    }
    frame.head = shared_map(player_options.shared.c_str(), width, height);
    if (!frame.head) {
        return player_options.shared + " cannot be mapped";
    }
    *frame.head = {PLAYER_MAGIC, PLAYER_VERSION, (u32)width, (u32)height, (u32)width * 4, sizeof(player_frame_t), 0, 0};
    return "";
}

// Copies the changed rectangle. The top byte of a pixel in the frame store is undefined; pictures are opaque.
static void rows_copy(const u32 *pixels, u32 width) {
    u32 *to = (u32 *)(void *)(frame.head + 1);
    std::atomic_ref<u32> sequence(frame.head->sequence);
    sequence.fetch_add(1);
    for (s32 y = frame.dirty.y1; y <= frame.dirty.y2; y++) {
        for (s32 x = frame.dirty.x1; x <= frame.dirty.x2; x++) {
            const size_t at = (size_t)y * width + (size_t)x;
            to[at] = pixels[at] | 0xFF000000u;
        }
    }
    sequence.fetch_add(1);
}

void player_picture_publish() {
    s32 width = 0;
    s32 height = 0;
    const u32 *pixels = frame.drawn ? sdl_frame_get(&width, &height) : nullptr;
    const lv_area_t all = {0, 0, (lv_coord_t)(width - 1), (lv_coord_t)(height - 1)};
    frame.drawn = false;
    if (!pixels || !_lv_area_intersect(&frame.dirty, &frame.dirty, &all)) {
        return;
    }
    if (frame.head) {
        rows_copy(pixels, (u32)width);
    }
    player_view_note();
    cJSON *event = player_event("frame");
    cJSON_AddNumberToObject(event, "number", ++frame.sequence);
    cJSON_AddItemToObject(event, "box", player_box(&frame.dirty));
    player_send(event);
}

cJSON *player_box(const lv_area_t *area) {
    const int box[] = {area->x1, area->y1, lv_area_get_width(area), lv_area_get_height(area)};
    return cJSON_CreateIntArray(box, 4);
}

// Writes the file itself, because the runtime is read-only.
std::string player_picture_write(const char *path) {
    s32 width = 0;
    s32 height = 0;
    size_t size = 0;
    const u32 *pixels = sdl_frame_get(&width, &height);
    u8 *png = zof_shot_png_make(pixels, width, height, &size);
    FILE *f = png ? fopen(path, "wb") : nullptr;
    bool written = f && fwrite(png, 1, size, f) == size;
    written = f && fclose(f) == 0 && written;
    zof_lv_free(png);
    return written ? "" : std::string(path) + " cannot be written";
}
