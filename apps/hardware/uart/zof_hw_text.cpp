#include <stdio.h>
#include <string.h>

#include "hardware/uart/zof_hw_text.h"
#include "zof.h"

static constexpr struct {
    panel_text_e id;
    const char *key;
    const char *english;
} texts[] = {
    {TEXT_OUT_ON, "#turn_on", "Turn output on"},
    {TEXT_OUT_OFF, "#turn_off", "Turn output off"},
    {TEXT_SELECT, "#select", "Select a rail"},
    {TEXT_USE, "#use", "Use %u.%02u V"},
    {TEXT_APPLIED, "#applied", "Applied"},
    {TEXT_FIXED, "#fixed_rail", "Fixed rail"},
    {TEXT_ADJUSTABLE, "#adjustable_rail", "Adjustable rail"},
};
static_assert(sizeof(texts) / sizeof(texts[0]) == TEXT_COUNT);

const char *panel_text(panel_text_e id) {
    const char *key = texts[id].key;
    return zof_lang_get_cur_str(key) == key ? texts[id].english : key;
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
        format = texts[TEXT_USE].english;
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    snprintf(out, size, format, mv / 1000u, mv % 1000u / 10);
#pragma GCC diagnostic pop
}
