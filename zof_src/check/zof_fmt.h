// Conversion between numbers and names in project files. Any thread may call it.
#ifndef ZOF_FMT_H
#define ZOF_FMT_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Converts values that may be written as names or colours: if `names`, numbers become texts, otherwise texts become
// numbers. Layout and order are kept, and so are values without a name. `path` determines the kind of file: it ends in
// a path of the project folder, such as "config/view/main.g". Returns the new text, null-terminated, which may equal
// the old one; free it with zof_free. Returns null if a project folder has no such file below config/, for invalid
// JSON, or if memory is short.
char *zof_fmt(const char *path, const char *text, size_t size, zof_bool names, size_t *out_size);

ZOF_C_END

#endif
