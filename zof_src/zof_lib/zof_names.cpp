// Names of numbers, and colours as texts. Tables are short, so they are searched row by row.
#include "zof_lib/zof_names.h"

#include <cctype>
#include <cstdio>
#include <cstring>

#include "zof_lib/zof_util.h"

static bool same_word(const char *name, const char *text, size_t length) {
    size_t i = 0;
    while (i < length && name[i] && std::tolower((u8)text[i]) == name[i]) {
        i++;
    }
    return i == length && !name[i];
}

static const zof_name_t *name_find(const zof_name_t *names, const char *text, size_t length) {
    for (; names->name; names++) {
        if (same_word(names->name, text, length)) {
            return names;
        }
    }
    return nullptr;
}

static const zof_name_t *value_find(const zof_name_t *names, s64 value) {
    for (; names->name; names++) {
        if (names->value == value) {
            return names;
        }
    }
    return nullptr;
}

static const char *spaces_end(const char *text) {
    return text + std::strspn(text, " ");
}

static s32 sum_read(const zof_name_t *names, const char *text, s64 *value) {
    s64 sum = 0;
    for (text = spaces_end(text);;) {
        const size_t length = std::strcspn(text, "+ ");
        const zof_name_t *name = name_find(names, text, length);
        if (!name) {
            return -1;
        }
        sum |= name->value;
        text = spaces_end(text + length);
        if (!*text) {
            *value = sum;
            return 0;
        }
        text = *text == '+' ? spaces_end(text + 1) : text;
    }
}

s32 zof_names_read(const zof_name_t *names, zof_bool sum, const char *text, s64 *value) {
    if (sum) {
        return sum_read(names, text, value);
    }
    const zof_name_t *name = name_find(names, text, std::strlen(text));
    if (!name) {
        return -1;
    }
    *value = name->value;
    return 0;
}

// Appends a name; the length so far, or -1 once something did not fit.
static s32 name_append(char *text, size_t size, s32 length, const char *separator, const char *name) {
    if (length < 0) {
        return -1;
    }
    const size_t room = size - (size_t)length;
    const s32 added = std::snprintf(text + length, room, "%s%s", length ? separator : "", name);
    return (size_t)added < room ? length + added : -1;
}

static s32 sum_write(const zof_name_t *names, s64 value, char *text, size_t size) {
    s32 length = 0;
    for (; names->name && length >= 0 && value; names++) {
        if (names->value && (names->value & ~value) == 0) {
            length = name_append(text, size, length, "+", names->name);
            value &= ~names->value;
        }
    }
    return value ? -1 : length;
}

s32 zof_names_write(const zof_name_t *names, zof_bool sum, s64 value, char *text, size_t size) {
    const zof_name_t *name = value_find(names, value);
    s32 length = -1;
    if (size && name) {
        length = name_append(text, size, 0, "", name->name);
    } else if (size && sum && value) {
        length = sum_write(names, value, text, size);
    }
    if (length < 0 && size) {
        text[0] = 0;
    }
    return length;
}

void zof_names_list(const zof_name_t *names, char *text, size_t size) {
    s32 length = 0;
    text[0] = 0;
    for (const zof_name_t *row = names; row->name; row++) {
        if (value_find(names, row->value) == row) {
            length = name_append(text, size, length, ", ", row->name);
        }
    }
}

s32 zof_color_read(const char *text, s64 *value) {
    const size_t digits = text[0] == '#' ? std::strlen(text + 1) : 0;
    if ((digits != 3 && digits != 6) || std::strspn(text + 1, "0123456789abcdefABCDEF") != digits) {
        return -1;
    }
    s64 color = 0;
    for (const char *c = text + 1; *c; c++) {
        const s64 digit = *c <= '9' ? *c - '0' : (*c | 0x20) - 'a' + 10;
        color = digits == 6 ? color << 4 | digit : color << 8 | digit << 4 | digit;
    }
    *value = color;
    return 0;
}

void zof_names_fault(const zof_name_t *names, zof_bool sum, const char *text, char *out, size_t size) {
    const char *meant = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (const zof_name_t *name = names; name->name; name++) {
        meant = zof_text_nearer(text, name->name, &least) ? name->name : meant;
    }
    if (sum && std::strpbrk(text, "|,&")) {
        std::snprintf(out, size, "names are joined by +");
    } else if (meant) {
        std::snprintf(out, size, "unknown name; did you mean %s?", meant);
    } else {
        const int used = std::snprintf(out, size, "unknown name; the names are ");
        zof_names_list(names, out + used, size - (size_t)used);
    }
}
