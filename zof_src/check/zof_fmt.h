// Conversion between numbers and names in project files. Any thread may call it.
#ifndef ZOF_FMT_H
#define ZOF_FMT_H

#include <stddef.h>

#include "catalogue/zof_cat.h"
#include "zof_lib/zof_jdoc.h"

ZOF_C_BEGIN

// Converts values that may be written as names or colours: if `names`, numbers become texts, otherwise texts become
// numbers. Layout and order are kept, and so are values without a name. `path` determines the kind of file: it ends in
// a path of the project folder, such as "config/view/main.g". Returns the new text, null-terminated, which may equal
// the old one; free it with zof_free. Returns null if a project folder has no such file below config/, for invalid
// JSON, or if memory is short.
char *zof_fmt(const char *path, const char *text, size_t size, zof_bool names, size_t *out_size);

// Returns the catalogue's row of a JSON file below config/, by the end of its path; null if a project has no such file.
const zof_cat_file_t *zof_fmt_file(const char *path);

// Returns the record of what a member contains, of kind OBJECT or ARRAY; `object` is the node that has the member,
// which decides the record of `property` by its `type`. Null for values without a record, and for an unknown type.
const zof_cat_record_t *zof_fmt_record(const zof_jdoc_t *doc, u32 object, const zof_cat_key_t *key);

// Writes the name or the colour that stands for a number of this row, in quotes. Returns false if no name or colour
// stands for it.
zof_bool zof_fmt_name(const reflect_item_t *row, double number, char *out, size_t size);

ZOF_C_END

#endif
