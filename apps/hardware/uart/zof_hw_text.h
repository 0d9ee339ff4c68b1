// The texts in bench_look.h, which the panel's code writes, in the current language, or in English where the language
// has none.
#ifndef ZOF_HW_TEXT_H
#define ZOF_HW_TEXT_H

#include "bench_look.h"

// Returns a text for a label: the language key, which the label keeps across language changes, or the English text if
// the language does not have it.
const char *panel_text(panel_text_e id);

// Returns the text itself in the current language; valid until the language changes.
const char *panel_words(panel_text_e id);

// Writes "Use 12.04 V" in the current language. A translation that is not a format of two unsigned numbers is ignored.
void panel_use_text(char *out, size_t size, u16 mv);

#endif
