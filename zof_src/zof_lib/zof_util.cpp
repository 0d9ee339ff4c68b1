// Byte order and small text helpers. zof_atoi is our own because the C library's is undefined where this one saturates.
#include "zof_lib/zof_util.h"

#include <string.h>

#include "zof_lib/zof_stdio.h"

void byte_rev(u8 *buf, u32 len) {
    if (!buf || len < 2) {
        return;
    }
    for (u32 a = 0, b = len - 1; a < b; a++, b--) {
        u8 t = buf[a];
        buf[a] = buf[b];
        buf[b] = t;
    }
}

u32 zof_rev16(u32 v) {
    return (v & 0xFFFF0000u) | (v & 0xFFu) << 8 | (v >> 8 & 0xFFu);
}

u32 zof_rev32(u32 v) {
    return v << 24 | (v & 0xFF00u) << 8 | (v >> 8 & 0xFF00u) | v >> 24;
}

u32 charCount(const char *text, char c) {
    u32 count = 0;
    for (; text && *text; text++) {
        count += *text == c;
    }
    return count;
}

char *zof_text_copy_n(const char *text, size_t size) {
    auto *copy = text ? (char *)zof_malloc(size + 1) : nullptr;
    return copy ? (char *)memcpy(copy, text, size) : nullptr; // the memory is zeroed
}

char *zof_text_copy(const char *text) {
    return zof_text_copy_n(text, text ? strlen(text) : 0);
}

zof_bool zof_text_join(char *out, size_t size, const char *a, const char *b, const char *c) {
    const char *const parts[] = {a ? a : "", b ? b : "", c ? c : ""};
    if (strlen(parts[0]) + strlen(parts[1]) + strlen(parts[2]) >= size) {
        return ZOF_FALSE;
    }
    for (const char *part : parts) {
        const size_t length = strlen(part);
        memcpy(out, part, length);
        out += length;
    }
    *out = '\0';
    return ZOF_TRUE;
}

size_t zof_path_parent(const char *path) {
    size_t n = strlen(path);
    n -= n > 0 ? 1 : 0;
    while (n > 0 && path[n - 1] != '/' && path[n - 1] != '\\') {
        n--;
    }
    return n;
}

static char lower(char c) {
    return c >= 'A' && c <= 'Z' ? (char)(c - 'A' + 'a') : c;
}

zof_bool zof_suffix_is(const char *text, const char *suffix) {
    const char *at = text ? strrchr(text, '.') : nullptr;
    if (!at || !suffix) {
        return ZOF_FALSE;
    }
    for (; *at && lower(*at) == lower(*suffix); at++, suffix++) {
    }
    return !*at && !*suffix;
}

zof_bool zof_seen_add(zof_seen_t *seen, const char *text) {
    u32 hash = 2166136261u; // FNV-1a
    for (const char *c = text; *c; c++) {
        hash = (hash ^ (u8)*c) * 16777619u;
    }
    for (u32 known : seen->hash) {
        if (known == hash) {
            return ZOF_FALSE;
        }
    }
    seen->hash[seen->count++ % ZOF_SEEN_MOST] = hash;
    return ZOF_TRUE;
}

s32 zof_atoi(const char *text) {
    if (!text) {
        return 0;
    }
    bool negative = *text == '-';
    if (*text == '-' || *text == '+') {
        text++;
    }
    s32 value = 0;
    for (; *text >= '0' && *text <= '9'; text++) {
        s32 digit = *text - '0';
        if (value > (INT32_MAX - digit) / 10) {
            return negative ? INT32_MIN : INT32_MAX;
        }
        value = value * 10 + digit;
    }
    return negative ? -value : value;
}

size_t zof_utf8_size(const char *text, size_t left) {
    const u8 *c = (const u8 *)text;
    if (left == 0 || c[0] < 0x80) {
        return left != 0;
    }
    const size_t size = c[0] >= 0xF0 ? 4 : c[0] >= 0xE0 ? 3 : 2;
    u32 code = c[0] & (0x7Fu >> size);
    for (size_t i = 1; i < size; i++) {
        if (i >= left || (c[i] & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (c[i] & 0x3F);
    }
    static const u32 least[] = {0x80, 0x800, 0x10000};
    const zof_bool valid =
        c[0] >= 0xC2 && code >= least[size - 2] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return valid ? size : 0;
}

const char *zof_utf8_bad(const char *text, size_t size) {
    for (const char *c = text, *end = text + size; c < end;) {
        u64 eight = 0;
        if (end - c >= 8) {
            memcpy(&eight, c, 8);
        }
        if (end - c >= 8 && !(eight & 0x8080808080808080u)) {
            c += 8;
            continue;
        }
        const size_t bytes = zof_utf8_size(c, (size_t)(end - c));
        if (!bytes) {
            return c;
        }
        c += bytes;
    }
    return 0;
}

static bool differ(char a, char b) {
    return (a | 0x20) != (b | 0x20);
}

// The number of single characters to insert, delete, replace or exchange with the next one, without regard to case, to
// make one key of the other. Keys that are too long to be anyone's typing error are infinitely far apart.
static u32 distance(const char *a, const char *b) {
    enum { KEY_MAX = 31 };
    const size_t m = strlen(a), n = strlen(b);
    if (m > KEY_MAX || n > KEY_MAX) {
        return UINT32_MAX;
    }
    u32 d[KEY_MAX + 1][KEY_MAX + 1]; // of the first i characters of `a` and the first k of `b`
    for (u32 i = 0; i <= m; i++) {
        d[i][0] = i;
        for (u32 k = 1; k <= n; k++) {
            if (i == 0) {
                d[i][k] = k;
                continue;
            }
            const u32 other = (d[i - 1][k] < d[i][k - 1] ? d[i - 1][k] : d[i][k - 1]) + 1;
            const u32 replaced = d[i - 1][k - 1] + differ(a[i - 1], b[k - 1]);
            d[i][k] = replaced < other ? replaced : other;
            const bool crossed = i > 1 && k > 1 && !differ(a[i - 1], b[k - 2]) && !differ(a[i - 2], b[k - 1]);
            if (crossed && d[i - 2][k - 2] + 1 < d[i][k]) {
                d[i][k] = d[i - 2][k - 2] + 1;
            }
        }
    }
    return d[m][n];
}

zof_bool zof_text_nearer(const char *typed, const char *name, u32 *least) {
    const u32 apart = distance(typed, name);
    if (apart >= *least || 2 * apart >= strlen(name)) {
        return ZOF_FALSE;
    }
    *least = apart;
    return ZOF_TRUE;
}
