// Painting controls: each function changes a control only if it does not look that way already, so a page may be
// painted whenever anything may have changed. A missing control is ignored.
#ifndef PAINT_H
#define PAINT_H

#include "bench_look.h"
#include "zof.h"

enum { PAINT_TEXT_SIZE = 160, PAINT_NUMBER_SIZE = 16 };

// Returns the row of a table whose `id` matches, or the first row if none does.
template <typename T, size_t N, typename E> constexpr const T &row_of(const T (&rows)[N], E id) {
    for (const T &row : rows) {
        if ((u32)row.id == (u32)id) {
            return row;
        }
    }
    return rows[0];
}

// Shows a text or the text of a language key.
void paint_text(para_t *ctrl, const char *text);
// Shows one line, shortened with "…" if it is wider than `width` pixels.
void paint_line(para_t *ctrl, const char *text, s32 width);

// Write and show a text of the panel in the current language; {0} to {3} are replaced by the given texts.
void words_fill(char *out, size_t size, panel_text_e words, const char *a = "", const char *b = "", const char *c = "",
                const char *d = "");
void paint_words(para_t *ctrl, panel_text_e words, const char *a = "", const char *b = "", const char *c = "",
                 const char *d = "");

void paint_shown(para_t *ctrl, bool shown);
void paint_touch(para_t *ctrl, bool touch); // whether it can be touched
// Sets whether a finger that has landed on the control keeps pressing it after sliding off.
void paint_keeps_finger(para_t *ctrl, bool keeps);
void paint_align(para_t *ctrl, u32 align); // LV_TEXT_ALIGN_..., for a vertically centred text
void paint_look(para_t *ctrl, u32 look);   // a panel_look_e, or 0 for the plain look
void paint_ink(para_t *ctrl, zof_color_t color);
void paint_ground(para_t *ctrl, zof_color_t color);
// Sets the text size, for a font file of the project.
void paint_size(para_t *ctrl, u32 size);
// Sets the extra space between lines, in pixels.
void paint_line_space(para_t *ctrl, s32 pixels);
void paint_place(para_t *ctrl, s32 x, s32 y, s32 width, s32 height);

// Write set values truncated to hundredths ("12.04 V", "1.50 A") and measured values with more digits ("1.500 A", "18.0
// W"). `out` has PAINT_NUMBER_SIZE bytes. Return `out`.
const char *number_volts(char *out, u32 mv);
const char *number_amperes(char *out, u32 ma);
const char *number_amperes_fine(char *out, u32 ma);
const char *number_watts(char *out, u32 dw);
// Writes an age: "7 s", "2 min" or "3 h".
const char *number_age(char *out, u64 ms);

#endif
