// The checker of project folders: reads every file as text and reports all mistakes with their places. It creates no
// controls and writes nothing. LVGL must be initialised (lv_init), because its decoders open pictures and fonts. Call
// it on the graphics thread or under dis_mutex.
#ifndef ZOF_CHECK_H
#define ZOF_CHECK_H

#include <stddef.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// A rule, as `zof check --rules` lists it.
typedef struct {
    const char *name; // shown in brackets after a finding: "key-unknown"
    zof_bool error;   // false for a warning: the project runs, but probably not as intended
    const char *help; // one sentence
} zof_check_rule_t;

// All rules, terminated by a rule without a name.
extern const zof_check_rule_t zof_check_rules[];

// The rules of `zof lint`, which draws the views. They are listed here because zof-check.ignore may name them.
extern const zof_check_rule_t zof_lint_rules[];

typedef struct {
    const zof_check_rule_t *rule;
    char *file;    // path below the project folder: "config/view/main.g"
    u32 line, col; // place of the key or the value, from 1, in bytes
    char *key;     // key path of the value, "controls[0].property.txt"; "" for the whole file
    char *text;
} zof_finding_t;

typedef struct {
    zof_finding_t *findings; // sorted by file and place
    u32 count;
    u32 errors; // number of findings that are errors
} zof_check_t;

// Checks the project in `folder`, which contains config/. Returns 0, or -1 if the folder has no readable project file
// or memory is short. Release the result with zof_check_free in either case.
s32 zof_check_project(const char *folder, zof_check_t *out);
void zof_check_free(zof_check_t *check);

// Adds a finding to a list, which is initially {}; the texts are copied. Returns 0, or -1 if memory is short.
s32 zof_check_add(zof_check_t *check, const zof_finding_t *finding);

// Sorts the findings of `zof lint` and removes those listed in the folder's zof-check.ignore. If `whole`, the findings
// are those of all views, languages and themes, and lines that name a rule of `zof lint` but match no finding are
// reported.
void zof_lint_settle(const char *folder, zof_bool whole, zof_check_t *check);

// Finds the project folder: `named` itself or its subfolder `res`. Returns 0 and the folder, which ends in "/", or -1
// if there is no project or the path does not fit.
s32 zof_check_find(const char *named, char *folder, size_t size);

// If ZOF_STRICT=1 is set in the environment, checks the project and logs its findings. Returns false if there is an
// error, so that the program does not start. Returns true at once if ZOF_STRICT is not set.
zof_bool zof_check_start(const char *folder);

// Writes "FILE:LINE:COLUMN: error: TEXT [RULE]"; `strict` reports warnings as errors. Returns its length.
s32 zof_check_line(const zof_finding_t *finding, zof_bool strict, char *out, size_t size);

ZOF_C_END

#endif
