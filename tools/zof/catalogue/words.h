// The catalogue in words, for the manual, the command line, schemas and the JSON form.
#ifndef ZOF_CAT_WORDS_H
#define ZOF_CAT_WORDS_H

#include <string>
#include <vector>

#include "catalogue/zof_cat.h"

// Returns each name with its number; only the first name of each number.
struct cat_name_t {
    std::string name;
    long long value;
};

// Returns the names of a key's numbers; empty if it has no names.
std::vector<cat_name_t> cat_names(const zof_cat_record_t *record, const zof_cat_key_t *key);

// "length, px", "array of words".
std::string cat_kind(const zof_cat_key_t *key);

// "0 to 255", "`left` 1, `right` 2", or nothing. Unless `all`, lists of names that are too long
// for a table are left out; `ticks` encloses names.
std::string cat_values(const zof_cat_record_t *record, const zof_cat_key_t *key, const char *ticks, bool all);

// Returns a sentence with the key's condition and its value when absent.
std::string cat_meaning(const zof_cat_key_t *key);

// Parts and states of a control type, by name.
std::vector<std::string> cat_parts(const zof_cat_type_t *type);
std::vector<std::string> cat_states(const zof_cat_type_t *type);

// Events that the type sends besides those of touches.
std::vector<std::string> cat_own_events(const zof_cat_type_t *type);

// The list ends with null.
std::vector<std::string> cat_list(const char *const *texts);

std::string cat_join(const std::vector<std::string> &words, const char *ticks);

// Returns the control type that a record belongs to; null for other records.
const zof_cat_type_t *cat_type_of(const zof_cat_record_t *record);

// Returns a record by its name; null if there is no such record.
const zof_cat_record_t *cat_record(const std::string &name);

// Returns true if a key belongs in its record's table; keys that all types share are described only once.
bool cat_is_listed(const zof_cat_record_t *record, const zof_cat_key_t *key);

#endif
