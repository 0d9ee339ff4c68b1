// The catalogue as text, for the manual, the command line, schemas and the JSON form.
#ifndef ZOF_CAT_WORDS_H
#define ZOF_CAT_WORDS_H

#include <string>
#include <vector>

#include "catalogue/zof_cat.h"

// A name and its number.
struct cat_name_t {
    std::string name;
    long long value;
};

// Returns the names of a key's numbers, the first name of each number; empty if it has no names.
std::vector<cat_name_t> cat_names(const zof_cat_record_t *record, const zof_cat_key_t *key);

// Returns the kind with its unit or elements: "length, px", "array of words".
std::string cat_kind(const zof_cat_key_t *key);

// Returns the accepted values: "0 to 255", "1 `left`, 2 `right`", or an empty text. Unless `all`, lists of names that
// are too long for a table are omitted. `ticks` encloses names.
std::string cat_values(const zof_cat_record_t *record, const zof_cat_key_t *key, const char *ticks, bool all);

// Returns the help of a key, with its condition and its value when absent.
std::string cat_meaning(const zof_cat_key_t *key);

// Return the names of the parts and states of a control type.
std::vector<std::string> cat_parts(const zof_cat_type_t *type);
std::vector<std::string> cat_states(const zof_cat_type_t *type);

// Returns the events that the type sends in addition to touch events.
std::vector<std::string> cat_own_events(const zof_cat_type_t *type);

// Converts a null-terminated list.
std::vector<std::string> cat_list(const char *const *texts);

std::string cat_join(const std::vector<std::string> &words, const char *ticks);

// Returns the control type to which a record belongs, or null for other records.
const zof_cat_type_t *cat_type_of(const zof_cat_record_t *record);

// Returns the record with this name, or null if no record has it.
const zof_cat_record_t *cat_record(const std::string &name);

// Returns true if a key belongs in its record's table; keys that all types share are described only once.
bool cat_is_listed(const zof_cat_record_t *record, const zof_cat_key_t *key);

#endif
