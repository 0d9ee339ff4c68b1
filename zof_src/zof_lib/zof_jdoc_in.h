// Internal header of JSON with positions.
#ifndef ZOF_JDOC_IN_H
#define ZOF_JDOC_IN_H

#include "zof_lib/zof_jdoc.h"

ZOF_C_BEGIN

// Reads the escape at `c`, a backslash `left` bytes before the text's closing quote. Sets *code; 0 for "\u0000" and for
// "\u" without four hexadecimal digits, where cJSON ends the text. Returns its bytes, or 0 for one that cJSON refuses.
u32 zof_jdoc_escape_read(const char *c, u32 left, u32 *code);

// Compares `size` bytes with a word of that length, without regard to case.
zof_bool zof_jdoc_same(const char *text, const char *word, size_t size);

ZOF_C_END

#endif
