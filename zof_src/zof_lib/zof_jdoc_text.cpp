// Places, keys, texts and numbers of a document that has been read.
#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

#include "zof_lib/zof_jdoc_in.h"

static const struct {
    char name;
    char code;
} escapes[] = {{'b', '\b'}, {'f', '\f'}, {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'"', '"'}, {'\\', '\\'}, {'/', '/'}};

// Returns the value of four hexadecimal digits; 0 if they are not.
static u32 hex_read(const char *c) {
    u32 code = 0;
    const std::from_chars_result result = std::from_chars(c, c + 4, code, 16);
    return result.ptr == c + 4 ? code : 0;
}

static u32 unicode_read(const char *c, u32 left, u32 *code) {
    const u32 first = left < 6 ? 0xDC00 : hex_read(c + 2);
    *code = first;
    if (first < 0xD800 || first > 0xDFFF) {
        return 6;
    }
    const u32 second = left < 12 || c[6] != '\\' || c[7] != 'u' ? 0 : hex_read(c + 8);
    if (first >= 0xDC00 || second < 0xDC00 || second > 0xDFFF) {
        return 0;
    }
    *code = 0x10000 + ((first & 0x3FF) << 10 | (second & 0x3FF));
    return 12;
}

u32 zof_jdoc_escape_read(const char *c, u32 left, u32 *code) {
    if (left >= 2 && c[1] == 'u') {
        return unicode_read(c, left, code);
    }
    for (const auto &row : escapes) {
        if (left >= 2 && c[1] == row.name) {
            *code = (u8)row.code;
            return 2;
        }
    }
    return 0;
}

zof_bool zof_jdoc_same(const char *text, const char *word, size_t size) {
    for (size_t i = 0; i < size; i++) {
        if (text[i] != word[i] && std::tolower((u8)text[i]) != std::tolower((u8)word[i])) {
            return ZOF_FALSE;
        }
    }
    return ZOF_TRUE;
}

void zof_jdoc_place(const zof_jdoc_t *doc, u32 at, u32 *line, u32 *col) {
    const char *end = doc->text + (at < doc->size ? at : doc->size);
    const zof_jnode_t *after = std::upper_bound(doc->nodes, doc->nodes + doc->count, at,
                                                [](u32 place, const zof_jnode_t &n) { return place < n.at; });
    const zof_jnode_t *known = after == doc->nodes ? nullptr : after - 1; // counting begins there
    *line = (known ? known->line : 1) + (u32)std::count(doc->text + (known ? known->at : 0), end, '\n');
    const char *c = end;
    while (c > doc->text && c[-1] != '\n') {
        c--;
    }
    *col = (u32)(end - c) + 1;
}

// Decoding ---------------------------------------------------------------------------------------------------------

static u32 utf8_write(u32 code, char out[4]) {
    const u32 size = code < 0x80 ? 1 : code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    static const u8 head[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (u32 i = size; i-- > 1; code >>= 6) {
        out[i] = (char)(0x80 | (code & 0x3F));
    }
    out[0] = (char)(head[size] | code);
    return size;
}

// Decodes a text between its quotes.
static s32 decode(const zof_jdoc_t *doc, u32 from, u32 end, char *out, size_t size) {
    u32 length = 0;
    while (from < end) {
        u32 code = 1, taken = 1, made = 1;
        char bytes[4] = {doc->text[from]};
        if (bytes[0] == '\\') {
            taken = zof_jdoc_escape_read(doc->text + from, end - from, &code);
            made = utf8_write(code, bytes);
        }
        if (code == 0 || taken == 0) {
            break;
        }
        for (u32 i = 0; i < made; i++, length++) {
            if (length + 1 < size) {
                out[length] = bytes[i];
            }
        }
        from += taken;
    }
    if (size) {
        out[length < size ? length : size - 1] = 0;
    }
    return (s32)length;
}

s32 zof_jdoc_key(const zof_jdoc_t *doc, u32 node, char *out, size_t size) {
    if (node >= doc->count || doc->nodes[node].key == ZOF_J_NONE) {
        return -1;
    }
    return decode(doc, doc->nodes[node].key + 1, doc->nodes[node].key_end - 1, out, size);
}

s32 zof_jdoc_text(const zof_jdoc_t *doc, u32 node, char *out, size_t size) {
    if (node >= doc->count || doc->nodes[node].kind != ZOF_J_TEXT) {
        return -1;
    }
    return decode(doc, doc->nodes[node].at + 1, doc->nodes[node].end - 1, out, size);
}

// Returns false for a number that is too large or too small.
static bool number_read(const char *text, const char *end, double *out) {
#ifdef __cpp_lib_to_chars
    return std::from_chars(text, end, *out).ec != std::errc::result_out_of_range;
#else // a C++ library without it; systems with one have no locales either
    const std::string copy(text, end);
    *out = std::strtod(copy.c_str(), nullptr);
    return std::isfinite(*out);
#endif
}

s32 zof_jdoc_number(const zof_jdoc_t *doc, u32 node, double *out) {
    if (node >= doc->count || doc->nodes[node].kind != ZOF_J_NUMBER) {
        return -1;
    }
    const char *text = doc->text + doc->nodes[node].at, *end = doc->text + doc->nodes[node].end;
    if (!number_read(text, end, out)) {
        const char *e = (const char *)std::memchr(text, 'e', (size_t)(end - text));
        e = e ? e : (const char *)std::memchr(text, 'E', (size_t)(end - text));
        *out = e && e[1] == '-' ? 0 : HUGE_VAL;
        *out = text[0] == '-' ? -*out : *out;
    }
    return 0;
}

// Finding ----------------------------------------------------------------------------------------------------------

// A key without escapes, which is nearly every key, is compared where it stands.
static bool key_is(const zof_jdoc_t *doc, const zof_jnode_t *node, const char *key, size_t size) {
    const char *at = doc->text + node->key + 1;
    const size_t length = node->key_end - node->key - 2;
    if (!std::memchr(at, '\\', length)) {
        return length == size && zof_jdoc_same(at, key, size);
    }
    char decoded[128];
    const s32 decoded_size = decode(doc, node->key + 1, node->key_end - 1, decoded, sizeof decoded);
    return (size_t)decoded_size == size && size < sizeof decoded && zof_jdoc_same(decoded, key, size);
}

static u32 member_find(const zof_jdoc_t *doc, u32 object, const char *key, size_t size) {
    if (object >= doc->count || doc->nodes[object].kind != ZOF_J_OBJECT) {
        return ZOF_J_NONE;
    }
    u32 at = doc->nodes[object].child;
    while (at != ZOF_J_NONE && !key_is(doc, &doc->nodes[at], key, size)) {
        at = doc->nodes[at].next;
    }
    return at;
}

u32 zof_jdoc_get(const zof_jdoc_t *doc, u32 object, const char *key) {
    return member_find(doc, object, key, std::strlen(key));
}

static u32 element_find(const zof_jdoc_t *doc, u32 array, unsigned long index) {
    if (array >= doc->count || doc->nodes[array].kind != ZOF_J_ARRAY) {
        return ZOF_J_NONE;
    }
    u32 at = doc->nodes[array].child;
    while (at != ZOF_J_NONE && index-- > 0) {
        at = doc->nodes[at].next;
    }
    return at;
}

u32 zof_jdoc_find(const zof_jdoc_t *doc, u32 from, const char *path) {
    u32 at = from < doc->count ? from : ZOF_J_NONE;
    while (*path && at != ZOF_J_NONE) {
        if (*path == '[') {
            char *end;
            const unsigned long index = std::strtoul(path + 1, &end, 10);
            at = *end == ']' && end > path + 1 ? element_find(doc, at, index) : ZOF_J_NONE;
            path = *end ? end + 1 : end;
        } else {
            path += *path == '.';
            const size_t size = std::strcspn(path, ".[");
            at = member_find(doc, at, path, size);
            path += size;
        }
    }
    return at;
}
