// Names that stand for numbers in project files, such as "pressed+checked" for 33.
#ifndef ZOF_NAMES_H
#define ZOF_NAMES_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// A row of a table; the table ends with a row without a name. Names are lower case ASCII; words in a name are separated
// by one space, except in tables whose numbers are added up: there a name is one word. A number may have several names:
// all are read, the first one is written.
typedef struct zof_name {
    const char *name;
    s64 value;
} zof_name_t;

#define ZOF_NAMES_END \
    { 0, 0 }

// Reads a name without regard to case. With `sum`, names separated by '+' or spaces are added up; a bit that is given
// twice counts once. Returns 0, or -1 for a text that is not made of these names, with *value unchanged.
s32 zof_names_read(const zof_name_t *names, zof_bool sum, const char *text, s64 *value);

// Writes a number as names; with `sum` joined by '+'. Returns the length, or -1 with an empty text if the number has no
// names or the text does not fit.
s32 zof_names_write(const zof_name_t *names, zof_bool sum, s64 value, char *text, size_t size);

// Writes the first name of each number, separated by ", ", for messages and documents; what does not fit is cut off.
void zof_names_list(const zof_name_t *names, char *text, size_t size);

// Writes why a text is not made of these names, with the name that the writer may have meant, or all names. `size` is
// at least 64.
void zof_names_fault(const zof_name_t *names, zof_bool sum, const char *text, char *out, size_t size);

// Reads "#RRGGBB" or "#RGB". Returns 0, or -1 with *value unchanged.
s32 zof_color_read(const char *text, s64 *value);

// Why a text is not accepted as a colour.
#define ZOF_COLOR_FAULT "a colour is \"#RRGGBB\" or \"#RGB\", in hexadecimal digits, or \"$name\""

ZOF_C_END

#endif
