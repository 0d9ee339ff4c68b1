// Button maps as LVGL expects them: texts, "\n" for a row break, an empty text at the end. LVGL refers to a map for as
// long as it shows it, so maps own their texts: translations are freed when the language changes. Internal, C++ only.
#ifndef ZOF_BTN_MAP_IN_H
#define ZOF_BTN_MAP_IN_H

#include "control/zof_ctrl.h"

// Makes a map of these captions and row breaks and adds the end mark; null without memory.
char **zof_btn_map_create(const char *const *texts, u32 count);

// Releases a map and sets the pointer to null.
void zof_btn_map_free(char ***map);

// Replaces an entry by the text to show for a caption. Returns 0, or -1 without memory.
s32 zof_btn_map_put(char **map, u32 slot, const char *caption);

// Returns the entry of a button, or -1. LVGL's own search counts consecutive row breaks as buttons.
s32 zof_btn_map_slot(const char *const *map, u32 id);

// Returns true for the entry that ends a row.
bool zof_btn_map_is_break(const char *text);

// A map without buttons, for objects that lose their map.
extern const char *zof_btn_map_empty[];

// Makes a press that hits no button, or a disabled one, report none. LVGL would report the last button again.
void zof_btn_map_press_fresh(lv_obj_t *btns);

#endif
