// Files of lines that grow while something is recorded. A thread writes them, so a slow medium never stops the caller.
//
// Whenever the process is killed, the file ends with a whole line: each line is one write, and blanks at the end of
// some lines keep every line within one page, because the system may stop a write between two pages. Lines end in CR LF
// and are on the medium within a second.
#ifndef ZOF_DRV_LINES_H
#define ZOF_DRV_LINES_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

typedef struct zof_lines zof_lines_t;

enum { ZOF_LINES_MAX = 200 }; // bytes of a line without its end

typedef enum {
    ZOF_LINES_OPEN,
    ZOF_LINES_DONE,   // ended, and all is on the medium
    ZOF_LINES_FULL,   // the medium is full, or the file may not grow; the file has what was written until then
    ZOF_LINES_FAILED, // another error, or the medium is far behind
} zof_lines_state_e;

// Creates a file, or takes the standard output for "-", and starts its thread. Null with errno set when the name exists
// already or cannot be created.
zof_lines_t *zof_lines_open(const char *path);

// Adds a line, without its end. Never waits. Returns 0, or -1 for a longer line and after the end or a failure.
s32 zof_lines_put(zof_lines_t *lines, const char *line);

// Ends the file once all lines are written; does not wait for it: the state then is ZOF_LINES_DONE or a failure.
void zof_lines_end(zof_lines_t *lines);

// Any thread. After a failure nothing is written any more, and `why` (may be null) is the system's reason; it is valid
// until the file is freed.
zof_lines_state_e zof_lines_state(zof_lines_t *lines, const char **why);

// Ends it, waits for the thread, and frees the record.
void zof_lines_free(zof_lines_t *lines);

ZOF_C_END

#endif
