// JSON with places: the tree of a text with the bytes of every key and value, for tools that report positions or change
// a file without touching the rest of it. The project itself is loaded by zof_cson, which keeps no places. Any thread
// may use it on its own documents.
#ifndef ZOF_JDOC_H
#define ZOF_JDOC_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef enum { ZOF_J_OBJECT, ZOF_J_ARRAY, ZOF_J_TEXT, ZOF_J_NUMBER, ZOF_J_TRUE, ZOF_J_FALSE, ZOF_J_NULL } zof_jkind_e;

enum { ZOF_J_NONE = 0xFFFFFFFF }; // no node, no key

// A value. Nodes stand in the order of the text; the root is the first one. Places are byte offsets; an end is after
// the last byte. Keys and texts include their quotes.
typedef struct {
    zof_jkind_e kind;
    u32 key, key_end; // ZOF_J_NONE in an array and at the root
    u32 at, end;
    u32 parent;
    u32 child; // the first one, or ZOF_J_NONE
    u32 next;  // sibling, or ZOF_J_NONE
    u32 line;  // of `at`, from 1
} zof_jnode_t;

// A fault in a text. Comments, trailing commas, a byte order mark, and what cJSON reads although it is not JSON
// ("strict") are reported, and reading goes on; any other fault stops the reader, and open objects and arrays end
// there.
typedef struct {
    u32 at;
    const char *rule; // "comment", "comma", "encoding", "syntax", ...
    char text[96];    // "expected \",\" or \"}\""
} zof_jfault_t;

typedef struct {
    const char *text; // the caller's; must stay valid
    size_t size;
    zof_jnode_t *nodes;
    u32 count; // 0 if there is no value at all
    zof_jfault_t *faults;
    u32 fault_count; // at most 64 are kept
    zof_bool ended;  // a fault has ended reading, so nodes are missing
} zof_jdoc_t;

// Reads a text of less than 4 GiB. Returns the number of faults, 0 for valid JSON; -1 if memory is short, with nothing
// to free. Release with zof_jdoc_free, also after faults.
s32 zof_jdoc_read(zof_jdoc_t *doc, const char *text, size_t size);
void zof_jdoc_free(zof_jdoc_t *doc);

// Sets line and column, from 1; columns count bytes. A place after the end counts as the end.
void zof_jdoc_place(const zof_jdoc_t *doc, u32 at, u32 *line, u32 *col);

// Returns the first member with this key, ignoring case; ZOF_J_NONE if the node has no such member or is not an object.
u32 zof_jdoc_get(const zof_jdoc_t *doc, u32 object, const char *key);

// Follows a path such as "controls[3].property.txt" from a node; ZOF_J_NONE if it leads nowhere.
u32 zof_jdoc_find(const zof_jdoc_t *doc, u32 from, const char *path);

// Writes the decoded key, or the decoded text of a value, as UTF-8, cut off to fit and terminated. Returns the length
// of the whole; -1 for a node without a key, or that is not a text.
s32 zof_jdoc_key(const zof_jdoc_t *doc, u32 node, char *out, size_t size);
s32 zof_jdoc_text(const zof_jdoc_t *doc, u32 node, char *out, size_t size);

// Sets a number. Returns 0, or -1 for a node that is not a number.
s32 zof_jdoc_number(const zof_jdoc_t *doc, u32 node, double *out);

// Changes of one place: each returns the whole new text, terminated, to be released with zof_free; null if the node
// does not fit or memory is short. The document keeps its places in the old text. `json` must be one valid JSON value.
// An inserted member or element goes after the last one, laid out like the one before it.
char *zof_jdoc_replace(const zof_jdoc_t *doc, u32 node, const char *json, size_t *size);
char *zof_jdoc_insert(const zof_jdoc_t *doc, u32 parent, const char *key, const char *json, size_t *size);
char *zof_jdoc_remove(const zof_jdoc_t *doc, u32 node, size_t *size);

ZOF_C_END

#endif
