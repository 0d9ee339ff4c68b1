// What the files of fonts share. Internal, C++ only.
#ifndef ZOF_FONT_IN_H
#define ZOF_FONT_IN_H

#include "project/look/zof_font.h"

// Sets up a font of LVGL's built-in symbols, U+F001 to U+F8FF and the bullet of passwords, at a size in pixels. It owns
// nothing. A bitmap is valid until the next one of any such font.
void zof_symbols_set_up(lv_font_t *font, u32 size);

// Sets up a font without letters, the last one of a chain. It reports each letter that is looked for, once for each
// chain: the first of these letters of `entry`, whose fonts use it, with a control that has it if one is found.
// `head` is the first font of the chain.
struct zof_font_last {
    const zof_font_t *entry;
    const lv_font_t *head;
    u32 codes[32];
    u32 count;
};
void zof_font_last_set_up(lv_font_t *font, zof_font_last *last);

#endif
