// The console log. What a message inserts often comes from hosts, projects and media. Control characters in it are
// escaped here, in one place, so that no name can move a terminal's cursor or fake a line. The line ends of the
// message's own format are kept.
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>

#include "zof_lib/zof_stdio.h"

namespace {

enum { SHORT_MESSAGE = 512 };

std::mutex print; // keeps lines whole
bool to_errors;   // in place of the standard output; set before threads start

FILE *out() {
    return to_errors ? stderr : stdout;
}

// Returns the bytes of the control character at this place, 0 for any other character: ASCII ones, and those of two
// bytes in UTF-8.
size_t control_size(const char *at) {
    const auto *c = (const u8 *)at;
    if (c[0] == 0xC2 && c[1] >= 0x80 && c[1] < 0xA0) {
        return 2;
    }
    return c[0] < ' ' || c[0] == 0x7F ? 1 : 0;
}

u32 controls_count(const char *text) {
    u32 count = 0;
    for (; *text; text++) {
        count += control_size(text) > 0;
    }
    return count;
}

// Returns a control character that the text does not contain; 0 when it contains all of them.
char unused_control(const char *text) {
    for (char c = 1; c < ' '; c++) {
        if (c != '\n' && !std::strchr(text, c)) {
            return c;
        }
    }
    return 0;
}

void escaped_print(const char *text, char line_end) {
    while (*text) {
        if (line_end && *text == line_end) {
            std::fputc('\n', out());
            text++;
            continue;
        }
        size_t size = control_size(text);
        if (!size) {
            std::fputc(*text++, out());
        }
        for (; size > 0; size--) {
            std::fprintf(out(), "\\x%02x", (u8)(*text++));
        }
    }
}

// Formats once more, with a mark for each line end of the format, to distinguish them from inserted ones.
void mixed_print(char *text, size_t room, const char *fmt, va_list args) {
    char *marked = strdup(fmt);
    const char mark = unused_control(text);
    for (char *c = marked; mark && c && *c; c++) {
        *c = *c == '\n' ? mark : *c;
    }
    if (marked && mark) {
        std::vsnprintf(text, room, marked, args);
    }
    escaped_print(text, marked ? mark : '\0');
    std::free(marked);
}

} // namespace

void zof_printf_to_errors(void) {
    to_errors = true;
}

s32 zof_printf(const char *fmt, ...) {
    if (!fmt) {
        return -1;
    }
    char brief[SHORT_MESSAGE];
    va_list args, again;
    va_start(args, fmt);
    va_copy(again, args);
    const s32 count = std::vsnprintf(brief, sizeof brief, fmt, args);
    va_end(args);
    const size_t room = count < 0 ? sizeof brief : (size_t)count + 1;
    char *text = room <= sizeof brief ? brief : (char *)std::malloc(room);
    if (text && text != brief) {
        va_list once;
        va_copy(once, again);
        std::vsnprintf(text, room, fmt, once);
        va_end(once);
    }
    std::lock_guard<std::mutex> guard(print);
    if (!text) {
        std::fprintf(out(), "%s... (cut, no memory)", brief);
    } else if (count >= 0 && controls_count(text) == controls_count(fmt)) {
        std::fputs(text, out());
    } else if (count >= 0) {
        mixed_print(text, room, fmt, again);
    }
    va_end(again);
    std::fputc('\n', out());
    std::fflush(out());
    if (text != brief) {
        std::free(text);
    }
    return count;
}
