// Walks a file along the catalogue and replaces single values in its text.
#include "check/zof_fmt.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "catalogue/zof_cat.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

enum { VALUE_SIZE = 160 };

// The new text is written from left to right; nodes are in the order of the text.
struct fmt_t {
    const zof_jdoc_t *doc;
    bool names;
    char *out;
    size_t length, room;
    u32 copied; // bytes of the old text copied so far
    bool no_memory;
};

static void append(fmt_t *f, const char *text, size_t size) {
    if (f->length + size + 1 > f->room) {
        const size_t room = 2 * (f->length + size) + 1;
        auto *out = (char *)zof_realloc(f->out, room);
        f->no_memory = f->no_memory || !out;
        if (!out) {
            return;
        }
        f->out = out;
        f->room = room;
    }
    std::memcpy(f->out + f->length, text, size);
    f->length += size;
    f->out[f->length] = 0;
}

static void value_put(fmt_t *f, u32 node, const char *text) {
    const zof_jnode_t *at = &f->doc->nodes[node];
    append(f, f->doc->text + f->copied, at->at - f->copied);
    append(f, text, std::strlen(text));
    f->copied = at->end;
}

zof_bool zof_fmt_name(const reflect_item_t *row, double number, char *out, size_t size) {
    char name[VALUE_SIZE - 2];
    s64 again = 0;
    if (number != std::trunc(number) || std::fabs(number) > UINT32_MAX || number == INT32_MAX) {
        return false;
    }
    const s64 value = (s64)number;
    if (row->flags & CSON_COLORS) {
        std::snprintf(name, sizeof name, "#%06llX", (unsigned long long)value);
    } else if (!row->names ||
               zof_names_write(row->names, (row->flags & CSON_ADDS) != 0, value, name, sizeof name) < 0) {
        return false;
    }
    std::snprintf(out, size, "\"%s\"", name);
    return csonTextRead(row, name, &again) == 0 && again == value;
}

static void scalar_convert(fmt_t *f, u32 node, const reflect_item_t *row) {
    char text[VALUE_SIZE];
    double number = 0;
    s64 value = 0;
    if (f->names && zof_jdoc_number(f->doc, node, &number) == 0) {
        if (zof_fmt_name(row, number, text, sizeof text)) {
            value_put(f, node, text);
        }
    } else if (!f->names && zof_jdoc_text(f->doc, node, text, sizeof text) >= 0 &&
               csonTextRead(row, text, &value) == 0) {
        std::snprintf(text, sizeof text, "%lld", (long long)value);
        value_put(f, node, text);
    }
}

// Returns the record that the `type` of an entry of `controls` decides.
static const zof_cat_record_t *property_record(const zof_jdoc_t *doc, u32 entry) {
    const u32 node = zof_jdoc_get(doc, entry, "type");
    char text[64];
    double number = 0;
    s64 type = 0;
    if (zof_jdoc_number(doc, node, &number) == 0) {
        type = number >= 0 && number <= INT32_MAX ? (s64)number : -1;
    } else if (node != ZOF_J_NONE &&
               (zof_jdoc_text(doc, node, text, sizeof text) < 0 || csonTextRead(zof_entry_t_tbl, text, &type) != 0)) {
        type = -1;
    }
    return type >= 0 && type < ZOF_CTRL_TYPE_COUNT ? zof_cat_types[type].record : nullptr;
}

const zof_cat_record_t *zof_fmt_record(const zof_jdoc_t *doc, u32 object, const zof_cat_key_t *key) {
    return key->record || key->kind != ZOF_CAT_OBJECT ? key->record : property_record(doc, object);
}

static void object_convert(fmt_t *f, u32 node, const zof_cat_record_t *record);

// Converts a member. The recursion is only as deep as the catalogue.
static void member_convert(fmt_t *f, u32 node, const zof_cat_record_t *record, const zof_cat_key_t *key) {
    const zof_jnode_t *at = &f->doc->nodes[node];
    const reflect_item_t *row = zof_cat_row(record, key);
    if (at->kind == ZOF_J_OBJECT && key->kind == ZOF_CAT_OBJECT) {
        object_convert(f, node, zof_fmt_record(f->doc, at->parent, key));
    } else if (at->kind == ZOF_J_ARRAY && key->kind == ZOF_CAT_ARRAY) {
        for (u32 child = at->child; child != ZOF_J_NONE; child = f->doc->nodes[child].next) {
            object_convert(f, child, key->record);
        }
    } else if (row) {
        scalar_convert(f, node, row);
    }
}

static void object_convert(fmt_t *f, u32 node, const zof_cat_record_t *record) {
    if (!record || f->doc->nodes[node].kind != ZOF_J_OBJECT) {
        return;
    }
    for (u32 at = f->doc->nodes[node].child; at != ZOF_J_NONE; at = f->doc->nodes[at].next) {
        char name[64];
        zof_jdoc_key(f->doc, at, name, sizeof name);
        const zof_cat_key_t *key = zof_cat_key_of(record, name);
        if (key) {
            member_convert(f, at, record, key);
        }
    }
}

// Returns true if a path fits a pattern, in which '*' stands for one component of the path.
static bool path_fits(const char *path, const char *pattern) {
    while (*pattern) {
        if (*pattern == '*') {
            pattern++;
            while (*path && *path != '/' && !(pattern[0] == '.' && std::strcmp(path, pattern) == 0)) {
                path++;
            }
        } else if (*path++ != *pattern++) {
            return false;
        }
    }
    return *path == 0;
}

const zof_cat_file_t *zof_fmt_file(const char *path) {
    for (const char *at = path; at; at = std::strchr(at, '/') ? std::strchr(at, '/') + 1 : nullptr) {
        for (u32 i = 0; i < zof_cat_file_count; i++) {
            const zof_cat_file_t *file = &zof_cat_files[i];
            if (std::strncmp(file->path, "config/", 7) == 0 && path_fits(at, file->path)) {
                return file;
            }
        }
    }
    return nullptr;
}

char *zof_fmt(const char *path, const char *text, size_t size, zof_bool names, size_t *out_size) {
    const zof_cat_file_t *file = zof_fmt_file(path);
    zof_jdoc_t doc;
    const s32 faults = file ? zof_jdoc_read(&doc, text, size) : -1;
    if (faults < 0) {
        return nullptr;
    }
    fmt_t f = {&doc, names != ZOF_FALSE, nullptr, 0, 0, 0, false};
    if (faults == 0) {
        object_convert(&f, 0, file->root);
        append(&f, text + f.copied, size - f.copied);
    }
    zof_jdoc_free(&doc);
    if (f.no_memory) {
        zof_free(f.out);
        return nullptr;
    }
    *out_size = f.length;
    return f.out;
}
