#include "words.h"

#include <cstring>

#include "project/base/zof_prj_names.h"

enum { NAMES_LISTED = 15, STATES_ALL = 0xFFFF }; // longer lists do not fit into a table

std::vector<cat_name_t> cat_names(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    std::vector<cat_name_t> names;
    const reflect_item_t *row = zof_cat_row(record, key);
    for (const zof_name_t *name = row ? row->names : nullptr; name && name->name; name++) {
        bool first = true;
        for (const cat_name_t &other : names) {
            first = first && other.value != name->value;
        }
        if (first) {
            names.push_back({name->name, (long long)name->value});
        }
    }
    return names;
}

std::string cat_kind(const zof_cat_key_t *key) {
    std::string kind = zof_cat_kinds[key->kind].name;
    const char *unit = key->unit ? key->unit : zof_cat_kinds[key->kind].unit;
    if (key->kind == ZOF_CAT_ARRAY && key->record) {
        const bool bare = key->record->keys[0].key[0] == '0';
        return kind + " of " + (bare ? zof_cat_kinds[key->record->keys[0].kind].name : "objects");
    }
    return *unit ? kind + ", " + unit : kind;
}

static std::string range_words(const zof_cat_key_t *key) {
    if (key->low == 0 && key->high == 0) {
        return "";
    }
    const std::string low = std::to_string(key->low);
    return key->high == ZOF_CAT_ANY ? "from " + low : low + " to " + std::to_string(key->high);
}

std::string cat_values(const zof_cat_record_t *record, const zof_cat_key_t *key, const char *ticks, bool all) {
    const std::vector<cat_name_t> names = cat_names(record, key);
    if (names.empty() || (!all && names.size() > NAMES_LISTED)) {
        return range_words(key);
    }
    std::string words;
    for (const cat_name_t &name : names) {
        words += (words.empty() ? "" : ", ") + std::to_string(name.value) + " " + ticks + name.name + ticks;
    }
    return words;
}

std::string cat_meaning(const zof_cat_key_t *key) {
    std::string text = key->help;
    if (key->when) {
        text += std::string("; only if ") + key->when;
    }
    text += key->absent ? std::string("; absent or 0: ") + key->absent : "";
    return key->flags & ZOF_CAT_NEEDED ? text + ". Needed" : text;
}

static std::vector<std::string> chosen(const zof_name_t *names, u32 bits, u32 (*bit)(s64)) {
    std::vector<std::string> words;
    for (; names->name; names++) {
        if (bits & bit(names->value)) {
            words.push_back(names->name);
        }
    }
    return words;
}

std::vector<std::string> cat_parts(const zof_cat_type_t *type) {
    return chosen(zof_part_names, type->parts, [](s64 part) { return 1u << (part >> 16); });
}

std::vector<std::string> cat_states(const zof_cat_type_t *type) {
    return chosen(zof_state_names, type->states, [](s64 state) { return state ? (u32)state : (u32)STATES_ALL; });
}

std::vector<std::string> cat_own_events(const zof_cat_type_t *type) {
    std::vector<std::string> events;
    for (const char *const *event = type->events; *event; event++) {
        if (strstr(*event, "VALUE") || strstr(*event, "SCROLL")) {
            events.push_back(*event);
        }
    }
    return events;
}

std::vector<std::string> cat_list(const char *const *texts) {
    std::vector<std::string> list;
    for (; *texts; texts++) {
        list.push_back(*texts);
    }
    return list;
}

std::string cat_join(const std::vector<std::string> &words, const char *ticks) {
    std::string text;
    for (const std::string &word : words) {
        text += (text.empty() ? "" : ", ") + (ticks + word) + ticks;
    }
    return text;
}

const zof_cat_type_t *cat_type_of(const zof_cat_record_t *record) {
    for (const zof_cat_type_t &type : zof_cat_types) {
        if (type.record == record) {
            return &type;
        }
    }
    return nullptr;
}

const zof_cat_record_t *cat_record(const std::string &name) {
    for (u32 i = 0; zof_cat_records[i]->name; i++) {
        if (name == zof_cat_records[i]->name) {
            return zof_cat_records[i];
        }
    }
    return nullptr;
}

bool cat_is_listed(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    return !cat_type_of(record) || (strcmp(key->key, "pub_t") != 0 && strcmp(key->key, "styles") != 0);
}
