// What decoding finds wrong in JSON: values of the wrong kind, numbers out of range, unknown keys.
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "zof_lib/zof_cson_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { CSON_FAULT_SIZE = 512 }; // holds the longest list of names

static thread_local struct {
    cson_fault_fn fn;
    s32 quiet; // peeks that are running
} faults;

cson_fault_fn csonFaultTo(cson_fault_fn fn) {
    const cson_fault_fn before = faults.fn;
    faults.fn = fn;
    return before;
}

void cson_fault(const void *value, const char *key, const char *fmt, ...) {
    if (faults.quiet) {
        return;
    }
    char text[CSON_FAULT_SIZE];
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(text, sizeof text, fmt, args);
    va_end(args);
    if (faults.fn) {
        faults.fn(value, text);
    } else {
        zof_printf("%s: %s", key, text);
    }
}

void cson_fault_quiet(zof_bool on) {
    faults.quiet += on ? 1 : -1;
}

void cson_kind_fault(const void *value, const reflect_item_t *row, const char *effect) {
    static const char *const kinds[CSON_TYPE_COUNT] = {
        "an object", "an array", "a text", "a number", "a number", "true", "false", "null",
    };
    const bool yes_no = row->type == CSON_TRUE || row->type == CSON_FALSE;
    cson_fault(value, row->key, "expected %s, found %s; %s", yes_no ? "true or false" : kinds[row->type],
               kinds[csomImpl.type_of(value)], effect);
}

void csonNameFault(const void *value, const reflect_item_t *row, const char *effect) {
    const char *text = csomImpl.string_value(value);
    if (row->flags & CSON_COLORS && text[0] == '$') {
        cson_fault(value, row->key, "there is no colour %.40s; %s", text + 1, effect);
        return;
    }
    if (row->flags & CSON_COLORS) {
        cson_fault(value, row->key, ZOF_COLOR_FAULT "; %s", effect);
        return;
    }
    char fault[CSON_FAULT_SIZE - 96];
    zof_names_fault(row->names, (row->flags & CSON_ADDS) != 0, text, fault, sizeof fault);
    const bool asks = fault[std::strlen(fault) - 1] == '?';
    cson_fault(value, row->key, "%s%s%s", fault, asks ? "" : "; ", asks ? "" : effect);
}

// Returns the key of the table that the writer may have meant; null if none is near.
static const char *near_key(const reflect_item_t *table, const char *key) {
    const char *nearest = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (; table->key; table++) {
        if (zof_text_nearer(key, table->key, &least)) {
            nearest = table->key;
        }
    }
    return nearest;
}

static const reflect_item_t *row_of(const reflect_item_t *table, const char *key) {
    for (; table->key; table++) {
        if (cson_same_key(table->key, key)) {
            return table;
        }
    }
    return nullptr;
}

// Returns the row of the object that this key belongs in; null if none does.
static const reflect_item_t *row_around(const reflect_item_t *table, const char *key) {
    for (; table->key; table++) {
        if (table->type == CSON_OBJECT && row_of(table->table, key)) {
            return table;
        }
    }
    return nullptr;
}

static void member_check(const void *json, const void *member, const char *key, const reflect_item_t *table) {
    if (row_of(table, key)) {
        if (csomImpl.object_get(json, key) != member) {
            cson_fault(member, key, "%s is given twice; the first one is used", key);
        }
        return;
    }
    const char *meant = near_key(table, key);
    const reflect_item_t *around = row_around(table, key);
    if (around) {
        cson_fault(member, key, "the key %s belongs in %s", key, around->key);
    } else if (meant) {
        cson_fault(member, key, "unknown key %s; did you mean %s?", key, meant);
    } else {
        cson_fault(member, key, "unknown key %s", key);
    }
}

void cson_members_check(const void *json, const reflect_item_t *table) {
    for (const void *at = csomImpl.member_next(json, nullptr); at; at = csomImpl.member_next(json, at)) {
        member_check(json, at, csomImpl.member_key(at), table);
    }
}

void csonKeys(const void *json, const reflect_item_t *table) {
    if (csomImpl.type_of(json) != CSON_OBJECT) {
        return;
    }
    size_t found = 0;
    for (const reflect_item_t *row = table; row->key; row++) {
        found += csomImpl.object_get(json, row->key) != nullptr;
    }
    if (found != csomImpl.array_size(json)) {
        cson_members_check(json, table);
    }
}
