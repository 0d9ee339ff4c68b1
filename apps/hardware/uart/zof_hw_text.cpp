#include <stdio.h>
#include <string.h>

#include "hardware/uart/zof_hw_text.h"
#include "zof.h"

const char *panel_text(panel_text_e id) {
    const panel_text_t &text = panel_texts[id];
    return zof_lang_get_cur_str(text.key) == text.key ? text.english : text.key;
}

const char *panel_words(panel_text_e id) {
    return zof_lang_get_cur_str(panel_text(id));
}

// A language file is data: a format from it must take two numbers and nothing else.
static bool is_use_format(const char *text) {
    const char *first = strstr(text, "%u");
    const char *second = first ? strstr(first + 2, "%02u") : nullptr;
    return second && charCount(text, '%') == 2;
}

void panel_use_text(char *out, size_t size, u16 mv) {
    const char *format = panel_words(TEXT_USE);
    if (!is_use_format(format)) {
        format = panel_texts[TEXT_USE].english;
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    snprintf(out, size, format, mv / 1000u, mv % 1000u / 10);
#pragma GCC diagnostic pop
}
