// Texts that the panel's code writes: through the current language, and the given English where it has none.
#ifndef ZOF_HW_TEXT_H
#define ZOF_HW_TEXT_H

#include "zof_lib/zof_type.h"

enum panel_text_e {
    TEXT_OUT_ON,
    TEXT_OUT_OFF,
    TEXT_SELECT,
    TEXT_USE, // a format: volts, hundredths
    TEXT_APPLIED,
    TEXT_FIXED,
    TEXT_ADJUSTABLE,
    TEXT_COUNT
};

// For a label: the language key, which the label keeps and follows, or the English text when the language lacks it.
const char *panel_text(panel_text_e id);

// The words themselves in the current language; valid until it changes.
const char *panel_words(panel_text_e id);

// Writes "Use 12.04 V" in the current language. A translation that is no format of two unsigned numbers is not used.
void panel_use_text(char *out, size_t size, u16 mv);

#endif
