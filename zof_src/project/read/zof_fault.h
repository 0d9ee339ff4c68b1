// The faults of project files. Whatever a reader finds wrong in a file is reported here, with its place.
#ifndef ZOF_FAULT_H
#define ZOF_FAULT_H

#include <cjson/cJSON.h>

#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct {
    const char *file; // its path
    u32 line, col;    // from 1, in bytes, of the key, or of an array's element; 0 if the file cannot be read again
    const char *key;  // the way to it, "controls[0].property.txt"; "" for the whole file
    const char *text; // what is wrong
    zof_bool broken;  // the text of the file is invalid, so nothing in it is used
} zof_fault_t;

typedef void (*zof_fault_fn)(const zof_fault_t *fault);

// Sets who receives the faults that the calling thread's readers find; null: the log, which shows only the first ones
// of each file. The texts are valid during the call.
void zof_fault_to(zof_fault_fn fn);

// Prints a fault, for a receiver that the log should not lose.
void zof_fault_log(const zof_fault_t *fault);

// Reports a fault of a value in the file that is being decoded, see zof_fault_scope.
void zof_fault_at(const cJSON *value, const char *fmt, ...) ZOF_PRINTF_LIKE(2, 3);

// Reports a fault of a key at the root of a file that is not in memory any more.
void zof_fault_of_key(const char *path, const char *key, const char *fmt, ...) ZOF_PRINTF_LIKE(3, 4);

// Reports why the text of a file is invalid, at a place in it, or without a place for null.
void zof_fault_in_text(const char *path, const char *text, const char *at, const char *fmt, ...) ZOF_PRINTF_LIKE(4, 5);

// Starts a file: the log shows the first faults again.
void zof_fault_file_begin(void);

ZOF_C_END

#ifdef __cplusplus
#include "zof_lib/zof_cson.h"

// While it exists, the calling thread decodes values of this tree, whose faults are those of the file at `path`. Path
// and tree must stay valid. Scopes nest: a theme is read while a view is.
struct zof_fault_scope {
    zof_fault_scope(const char *file, const cJSON *tree);
    ~zof_fault_scope();
    zof_fault_scope(const zof_fault_scope &) = delete;
    zof_fault_scope &operator=(const zof_fault_scope &) = delete;

    const char *path;
    const cJSON *root;
    const zof_fault_scope *outer;
    cson_fault_fn former;
};
#endif

#endif
