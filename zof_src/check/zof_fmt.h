// Numbers of project files as names, and back. Any thread.
#ifndef ZOF_FMT_H
#define ZOF_FMT_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Converts the values of a file that may be names or colours: with `names` numbers become texts, otherwise texts become
// numbers. Layout, order and everything else stay as they are, and so do values without a name. `path` says what the
// file holds: it ends in a path of the project folder, such as "config/view/main.g". Returns the new text, terminated,
// for zof_free, which may be equal to the old one; null for a file that holds no records, for invalid JSON, and without
// memory.
char *zof_fmt(const char *path, const char *text, size_t size, zof_bool names, size_t *out_size);

ZOF_C_END

#endif
