// The picture of a player: published to shared memory, or written as PNG.
#ifndef PLAYER_PICTURE_H
#define PLAYER_PICTURE_H

#include <string>

#include <cjson/cJSON.h>

#include "lvgl.h"

// Observes the display, which must exist, and maps the file of the options. Returns what is wrong.
std::string player_picture_init();

// Sends what was drawn since the last call as one frame.
void player_picture_publish();

std::string player_picture_write(const char *path);

// [x, y, width, height]
cJSON *player_box(const lv_area_t *area);

#endif
