// Bytes and text. Any thread.
#ifndef ZOF_UTIL_H
#define ZOF_UTIL_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Reverses `len` bytes in place; does nothing for null or a length below 2.
void byte_rev(u8 *buf, u32 len);

// Swaps the two low bytes; the high half stays as it is.
u32 zof_rev16(u32 v);

// Swaps all four bytes.
u32 zof_rev32(u32 v);

// Returns how many bytes of the text equal `c`; 0 for null.
u32 charCount(const char *text, char c);

// Return an allocated copy of a text, or of its first `size` bytes, which need no terminator. The copy has one; release
// it with zof_free. Null for null, and without memory.
char *zof_text_copy(const char *text);
char *zof_text_copy_n(const char *text, size_t size);

// Writes a, b and c, one after the other, to `out`, which has room for `size` bytes; null parts are skipped, and none
// may be in `out`. Returns false, with `out` unchanged, when they do not fit.
zof_bool zof_text_join(char *out, size_t size, const char *a, const char *b, const char *c);

// Returns how many bytes of a path come before its last component. One separator, of any system, at the end is ignored.
size_t zof_path_parent(const char *path);

// Returns true when the text ends with `suffix`, which begins with a dot, in upper or lower case. False for null.
zof_bool zof_suffix_is(const char *text, const char *suffix);

// Returns the bytes of the UTF-8 character at the start of a text of `left` bytes; 0 if it starts with no valid one.
size_t zof_utf8_size(const char *text, size_t left);

// Returns the first byte that is not UTF-8; null if all are.
const char *zof_utf8_bad(const char *text, size_t size);

// The last texts that were added, by their hashes; all zero: none. For lines of the log that must not repeat.
enum { ZOF_SEEN_MOST = 64 };
typedef struct {
    u32 hash[ZOF_SEEN_MOST];
    u32 count;
} zof_seen_t;

// Adds a text. Returns false when it is one of the last ZOF_SEEN_MOST texts. The caller guards `seen`.
zof_bool zof_seen_add(zof_seen_t *seen, const char *text);

// Finds the name that was meant by a mistyped one: returns true if `name` is near it and nearer than *least, which is
// then set. *least begins with ZOF_TEXT_NEAR.
enum { ZOF_TEXT_NEAR = 3 };
zof_bool zof_text_nearer(const char *typed, const char *name, u32 *least);

// Returns a decimal number with an optional sign, up to the first character that is not a digit. Blanks are not
// skipped: like any other first character, they yield 0. Saturates at the ends of s32. 0 for null.
s32 zof_atoi(const char *text);

ZOF_C_END

#endif
