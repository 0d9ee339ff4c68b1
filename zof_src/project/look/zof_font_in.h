// Internal header of the font files; C++ only.
#ifndef ZOF_FONT_IN_H
#define ZOF_FONT_IN_H

#include "project/look/zof_font.h"

// Sets up a font of LVGL's built-in symbols, U+F001 to U+F8FF and the bullet of passwords, at a size in pixels. It owns
// nothing. A bitmap is valid until the next one of any such font.
void zof_symbols_set_up(lv_font_t *font, u32 size);

// Sets up a font without letters, the last one of a chain, which notes each letter that is looked for, up to 32.
// `entry` is the one whose fonts use it, `head` the first font of the chain. `noted` is called for each letter, in the
// middle of a layout.
struct zof_font_last {
    const zof_font_t *entry;
    const lv_font_t *head;
    void (*noted)(void);
    u32 codes[32];
    u32 count, reported;
};
void zof_font_last_set_up(lv_font_t *font, zof_font_last *last);

// Logs the letters that have been noted since the last call, each with a control that shows it if there is one.
void zof_font_last_report(zof_font_last *last);

// Returns true if a file begins as an outline font but ends before one of its tables does.
bool zof_font_is_cut(const u8 *content, u32 size);

#endif
