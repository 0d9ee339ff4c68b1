// Changes of one value in the text of a document; every other byte stays as it is.
#include <cstdio>
#include <cstring>

#include "zof_lib/zof_jdoc_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

struct part_t {
    const char *text;
    size_t size;
};

// Puts parts in place of the bytes from `at` to `end`.
template <size_t N>
static char *splice(const zof_jdoc_t *doc, u32 at, u32 end, const part_t (&parts)[N], size_t *size) {
    size_t whole = doc->size - (end - at);
    for (const part_t &part : parts) {
        whole += part.size;
    }
    auto *made = (char *)zof_malloc(whole + 1);
    if (!made) {
        return nullptr;
    }
    char *out = (char *)std::memcpy(made, doc->text, at) + at;
    for (const part_t &part : parts) {
        out = (char *)std::memcpy(out, part.text, part.size) + part.size;
    }
    std::memcpy(out, doc->text + end, doc->size - end);
    *size = whole;
    return made;
}

// Finds the value in a text of one valid JSON value.
static bool value_trim(const char *json, part_t *out) {
    zof_jdoc_t doc;
    const s32 faults = zof_jdoc_read(&doc, json, std::strlen(json));
    if (faults == 0) {
        *out = {json + doc.nodes[0].at, doc.nodes[0].end - doc.nodes[0].at};
    }
    if (faults >= 0) {
        zof_jdoc_free(&doc);
    }
    return faults == 0;
}

char *zof_jdoc_replace(const zof_jdoc_t *doc, u32 node, const char *json, size_t *size) {
    part_t value;
    if (node >= doc->count || !value_trim(json, &value)) {
        return nullptr;
    }
    return splice(doc, doc->nodes[node].at, doc->nodes[node].end, {value}, size);
}

static u32 start_of(const zof_jnode_t *node) {
    return node->key == ZOF_J_NONE ? node->at : node->key;
}

// Returns the child before the last one, and sets the last one; ZOF_J_NONE for those that do not exist.
static u32 last_two(const zof_jdoc_t *doc, u32 parent, u32 *last) {
    u32 before = ZOF_J_NONE;
    *last = ZOF_J_NONE;
    for (u32 at = doc->nodes[parent].child; at != ZOF_J_NONE; at = doc->nodes[at].next) {
        before = *last;
        *last = at;
    }
    return before;
}

static bool is_blank(part_t part) {
    for (size_t i = 0; i < part.size; i++) {
        if ((u8)part.text[i] > ' ') {
            return false;
        }
    }
    return true;
}

// Returns the blanks in front of the last child.
static part_t blanks_of(const zof_jdoc_t *doc, u32 parent, u32 before, u32 last) {
    const u32 start = start_of(&doc->nodes[last]);
    const u32 least = before == ZOF_J_NONE ? doc->nodes[parent].at + 1 : doc->nodes[before].end;
    u32 from = start;
    while (from > least && (u8)doc->text[from - 1] <= ' ') {
        from--;
    }
    const part_t blanks = {doc->text + from, start - from};
    return before == ZOF_J_NONE && blanks.size == 0 ? part_t{" ", 1} : blanks;
}

// What stands between a key and its value, as at the last member.
static part_t colon_of(const zof_jdoc_t *doc, u32 last) {
    const part_t usual = {": ", 2};
    if (last == ZOF_J_NONE) {
        return usual;
    }
    const zof_jnode_t *node = &doc->nodes[last];
    const part_t colon = {doc->text + node->key_end, node->at - node->key_end};
    const char *sign = (const char *)std::memchr(colon.text, ':', colon.size);
    const auto left = (size_t)(sign - colon.text);
    const bool plain = is_blank({colon.text, left}) && is_blank({sign + 1, colon.size - left - 1});
    return plain ? colon : usual;
}

// Returns a key in quotes, to be released; null if it is not UTF-8 or memory is short.
static char *key_quote(const char *key) {
    const size_t size = std::strlen(key);
    char *out = zof_utf8_bad(key, size) ? nullptr : (char *)zof_malloc(6 * size + 3);
    if (!out) {
        return nullptr;
    }
    char *to = out;
    *to++ = '"';
    for (const char *c = key; *c; c++) {
        if ((u8)*c < ' ') {
            to += std::snprintf(to, 7, "\\u%04x", (unsigned)(u8)*c);
            continue;
        }
        if (*c == '"' || *c == '\\') {
            *to++ = '\\';
        }
        *to++ = *c;
    }
    *to = '"';
    return out;
}

char *zof_jdoc_insert(const zof_jdoc_t *doc, u32 parent, const char *key, const char *json, size_t *size) {
    const zof_jkind_e kind = key ? ZOF_J_OBJECT : ZOF_J_ARRAY;
    part_t value;
    if (parent >= doc->count || doc->nodes[parent].kind != kind || !value_trim(json, &value)) {
        return nullptr;
    }
    char *quoted = key ? key_quote(key) : nullptr;
    if (key && !quoted) {
        return nullptr;
    }
    u32 last;
    const u32 before = last_two(doc, parent, &last);
    const bool empty = last == ZOF_J_NONE;
    const u32 at = empty ? doc->nodes[parent].at + 1 : doc->nodes[last].end;
    const part_t nothing = {"", 0};
    char *made =
        splice(doc, at, at,
               {empty ? nothing : part_t{",", 1}, empty ? nothing : blanks_of(doc, parent, before, last),
                key ? part_t{quoted, std::strlen(quoted)} : nothing, key ? colon_of(doc, last) : nothing, value},
               size);
    zof_free(quoted);
    return made;
}

char *zof_jdoc_remove(const zof_jdoc_t *doc, u32 node, size_t *size) {
    if (node == 0 || node >= doc->count) {
        return nullptr;
    }
    const zof_jnode_t *gone = &doc->nodes[node];
    u32 at = start_of(gone), end = gone->end;
    if (gone->next != ZOF_J_NONE) {
        end = start_of(&doc->nodes[gone->next]);
    } else {
        u32 last;
        const u32 before = last_two(doc, gone->parent, &last);
        at = before == ZOF_J_NONE ? at : doc->nodes[before].end;
    }
    return splice(doc, at, end, {part_t{"", 0}}, size);
}
