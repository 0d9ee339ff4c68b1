// Button maps as LVGL takes them: texts, "\n" for a row break, an empty text at the end. LVGL points at a map as long
// as it shows it, so maps own their texts: translations go when the language changes. Internal.
#ifndef ZOF_BTN_MAP_H
#define ZOF_BTN_MAP_H

#include "control/zof_ctrl.h"

// A map of these captions and keys, with an end of its own; null without memory.
char **zof_btn_map_create(const char *const *texts, u32 count);

// Releases a map; the pointer becomes null.
void zof_btn_map_free(char ***map);

// Replaces an entry by what is shown for a caption. 0, or -1 without memory.
s32 zof_btn_map_put(char **map, u32 slot, const char *caption);

// The entry of a button, or -1. LVGL's own search takes row breaks that follow each other for buttons.
s32 zof_btn_map_slot(const char *const *map, u32 id);

// A map without buttons, for objects that lose theirs.
extern const char *zof_btn_map_empty[];

// Lets a press that hits no button, or one that is disabled, count for none. LVGL would report the last button again.
void zof_btn_map_press_fresh(lv_obj_t *btns);

#endif
