// The picture of a player: published to shared memory, or written as PNG.
#ifndef PLAYER_PICTURE_H
#define PLAYER_PICTURE_H

#include <string>

#include <cjson/cJSON.h>

#include "lvgl.h"

// Wraps the flush callback of the display, which must exist, and maps the file of the options. Returns an error text,
// empty on success.
std::string player_picture_init();

// Publishes everything drawn since the last call as one frame.
void player_picture_publish();

std::string player_picture_write(const char *path);

// Returns [x, y, width, height].
cJSON *player_box(const lv_area_t *area);

#endif
