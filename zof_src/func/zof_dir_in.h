// The parts of the folder copy: names and walks are in zof_dir_tree.cpp, one file's copy is in zof_dir_file.cpp.
#ifndef ZOF_DIR_IN_H
#define ZOF_DIR_IN_H

#include <stddef.h>

#include "drv/zof_drv_file.h"
#include "zof_lib/zof_type.h"

#define NEW_FILE ZOF_FILE_TEMP
#define NEW_DIR ".zof_dir.new"
#define OLD_DIR ".zof_dir.old~" // and the folder's name: for media that cannot exchange two names in one step

// Our own walks also meet paths that are longer by such a name.
enum { PATH_SIZE = 256, OWN_PATH = PATH_SIZE + 64, SHOWN_SIZE = 2 * PATH_SIZE, BLOCK = 2048, BLOCK_MOST = 1 << 20 };
enum { ENTRY_TOO_LONG = 100 }; // beside ZOF_FILE_*

// The memory through which a file is copied.
struct copy_block {
    u8 *data;
    u32 size;
    bool dots; // log one for each block
};

// Makes a path in the folder of `path`: `name` followed by `more`.
bool dir_beside(char *out, size_t size, const char *path, const char *name, const char *more);

// True for "." and "..".
bool dir_is_dots(const char *name);

// Log what failed; the first of these in a copy is its reason, which zof_dir_copy_get_reason returns: a path, and what
// is wrong with it; the same, and why the latest call on this thread failed; a name that does not fit behind its
// folder.
void dir_refuse(const char *path, const char *what);
void dir_say(const char *path, const char *what);
void dir_too_long(const char *dir, const char *name);

// Forgets the reason, at the start of a copy.
void dir_reason_clear();

// Classifies an entry of a source: ZOF_FILE_NONE to skip, ZOF_FILE_PLAIN, ZOF_FILE_FOLDER, or ENTRY_TOO_LONG, which
// counts as one failed file. The count and the copy both use this. Writes its path of PATH_SIZE bytes; a folder's ends
// with a slash. With `say` logs what is skipped.
u32 dir_source_entry(char *path, const char *dir, const char *name, bool say);

// Returns true for the temporary name of a killed copy; called only while the target is locked, so no other copy is
// running.
bool dir_is_left_over(const char *name);

// Removes whatever has this name; `path` does not end with a slash.
void dir_clear_away(const char *path);

// Replaces one file in one step. `shown` is its name in the log. Returns false, logs why, and leaves the target
// unchanged on failure.
bool dir_file_replace(const char *dst, const char *src, const char *shown, copy_block block);

#endif
