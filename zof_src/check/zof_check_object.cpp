// The keys of an object: reports unknown, misplaced, repeated and missing keys.
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "project/base/zof_prj_names.h"
#include "zof_lib/zof_util.h"

enum { KEY_SIZE = 128, KEYS_MAX = 64 };

// Returns the key of `record` whose object has the key `name`, at most `depth` levels deeper, or null if no object has
// it.
static const zof_cat_key_t *key_around(const zof_cat_record_t *record, const char *name, u32 depth) {
    for (u32 i = 0; record && i < record->count; i++) {
        const zof_cat_key_t *key = &record->keys[i];
        const bool deeper = depth > 0 && key->kind == ZOF_CAT_OBJECT && key->record;
        if (deeper && (zof_cat_key(key->record, name) || key_around(key->record, name, depth - 1))) {
            return key;
        }
    }
    return nullptr;
}

static const char *key_near(const zof_cat_record_t *record, const char *name) {
    const char *meant = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (u32 i = 0; i < record->count; i++) {
        meant = zof_text_nearer(name, record->keys[i].key, &least) ? record->keys[i].key : meant;
    }
    const bool look = zof_cat_key_of(record, "pressed") != nullptr; // in a look, the names of parts and states are keys
    for (const zof_name_t *names : {zof_part_names, zof_state_names}) {
        for (; look && names->name; names++) {
            meant = zof_text_nearer(name, names->name, &least) ? names->name : meant;
        }
    }
    return meant;
}

// Returns the object to which a key belongs that was written in an entry of `controls`, beside the type. Returns null
// if no control has the key.
static const char *entry_place(const char *name) {
    const zof_cat_record_t *first = zof_cat_types[0].record;
    if (zof_cat_key(zof_cat_key(first, "pub_t")->record, name)) {
        return "property.pub_t";
    }
    for (const zof_cat_type_t &type : zof_cat_types) {
        if (zof_cat_key(type.record, name)) {
            return "property";
        }
    }
    return nullptr;
}

// Returns the key that was probably intended, or null if unknown.
static const char *unknown_report(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                                  const zof_cat_record_t *outer, const char *name) {
    const zof_cat_key_t *around = key_around(record, name, 1);
    const char *meant = key_near(record, name);
    const char *place = std::strcmp(record->name, "entry") == 0 ? entry_place(name) : nullptr;
    if (place) {
        check_report_key(c, file, node, CHECK_KEY_PLACE, "the key %s belongs in %s", name, place);
    } else if (around) {
        check_report_key(c, file, node, CHECK_KEY_PLACE, "the key %s belongs in %s", name, around->key);
    } else if (outer && zof_cat_key(outer, name)) {
        check_report_key(c, file, node, CHECK_KEY_PLACE, "the key %s belongs in the object around this one", name);
    } else if (outer && key_around(outer, name, 1)) {
        check_report_key(c, file, node, CHECK_KEY_PLACE, "the key %s belongs in %s, beside this object", name,
                         key_around(outer, name, 1)->key);
    } else if (meant) {
        check_report_key(c, file, node, CHECK_KEY_UNKNOWN, "unknown key %s; did you mean %s?", name, meant);
        c->broken = true;
        return meant;
    } else {
        check_report_key(c, file, node, CHECK_KEY_UNKNOWN, "unknown key %s in %s", name, record->name);
    }
    return nullptr;
}

const zof_cat_record_t *check_root(const char *path) {
    u32 i = 0;
    while (i + 1 < zof_cat_file_count && strcmp(zof_cat_files[i].path, path) != 0) {
        i++;
    }
    return zof_cat_files[i].root;
}

// Returns the first sentence of the catalogue's help without Markdown, plus the next one if it begins in bold. The help
// is written for documents.
static const char *plain(const char *help, char *out, size_t size) {
    size_t length = 0;
    for (; *help && (std::strncmp(help, ". ", 2) != 0 || help[2] == '*') && length + 1 < size; help++) {
        help += std::strncmp(help, "](", 2) == 0 ? std::strcspn(help, ")") : 0;
        if (*help && !std::strchr("*`[)", *help)) {
            out[length++] = *help;
        }
    }
    out[length] = 0;
    return out;
}

// Reports missing keys without which the object has no effect. A missing number counts as 0; where 0 matters, other
// rules report it.
static void missing_check(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                          u64 seen) {
    for (u32 i = 0; i < record->count && i < KEYS_MAX; i++) {
        const zof_cat_key_t *key = &record->keys[i];
        if (!(key->flags & ZOF_CAT_NEEDED) || seen >> i & 1 || strcmp(key->key, "alpha") == 0 ||
            (strcmp(key->key, "opa") == 0 && check_has_look(file, node))) {
            continue;
        }
        char help[200];
        check_report_key(c, file, node, key->call ? CHECK_INCOMPLETE : CHECK_MISSING, "%s is missing: %s", key->key,
                         plain(key->help, help, sizeof help));
    }
}

static void element_check(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *outer,
                          const zof_cat_key_t *key) {
    const zof_cat_record_t *record = key->record;
    if (record && record->count && record->keys[0].key[0] == '0') { // an array of plain values
        check_value(c, file, node, record, &record->keys[0]);
    } else if (file->doc.nodes[node].kind != ZOF_J_OBJECT) {
        check_report(c, file, node, CHECK_KIND, "expected an object");
    } else if (record) {
        check_object(c, file, node, record, outer);
    }
}

void check_value(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                 const zof_cat_key_t *key) {
    if (!check_kind(c, file, node, record, key)) {
        return;
    }
    const zof_jkind_e kind = file->doc.nodes[node].kind;
    if (kind == ZOF_J_OBJECT && key->record) {
        check_object(c, file, node, key->record, record);
    } else if (kind == ZOF_J_ARRAY) {
        for (u32 at = file->doc.nodes[node].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
            element_check(c, file, at, record, key);
        }
    } else {
        check_scalar(c, file, node, record, key);
    }
}

static u64 key_bit(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    return (u64)1 << ((key - record->keys) % KEYS_MAX);
}

void check_object(check_run_t *c, const check_file_t *file, u32 node, const zof_cat_record_t *record,
                  const zof_cat_record_t *outer) {
    u64 seen = 0;
    for (u32 at = file->doc.nodes[node].child; at != ZOF_J_NONE; at = file->doc.nodes[at].next) {
        char name[KEY_SIZE];
        zof_jdoc_key(&file->doc, at, name, sizeof name);
        const zof_cat_key_t *key = zof_cat_key_of(record, name);
        if (!key) { // the intended key is not reported as missing
            const char *meant = unknown_report(c, file, at, record, outer, name);
            seen |= meant ? key_bit(record, zof_cat_key_of(record, meant)) : 0;
            continue;
        }
        const u64 bit = key_bit(record, key);
        const bool free = key->key[0] == '*'; // one row stands for all names
        if (free ? zof_jdoc_get(&file->doc, node, name) != at : (seen & bit) != 0) {
            check_report_key(c, file, at, CHECK_KEY_TWICE, "%s is given twice; the first one is used", name);
            continue;
        }
        seen |= bit;
        check_value(c, file, at, record, key);
    }
    missing_check(c, file, node, record, seen);
}
