// Copies folders from media that strangers made, on a thread of its own or at once. A power cut leaves each file, and
// each folder that is replaced as a whole, either old or new. Links, pipes and devices are skipped, and so are
// "System Volume Information" and names that begin with a dot or hold a separator or control characters; a path of more
// than 255 bytes is refused with a line. The folder that is copied into is locked: a second program, or a second copy,
// logs who holds it and copies nothing.
#ifndef ZOF_DIR_COPY_H
#define ZOF_DIR_COPY_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Copies the folder `src` into the folder `dst` under its own name; "a/./" as source copies what is in "a" into `dst`
// itself. With `remove` a folder that is there already is replaced whole, except `dst` itself and names that end in a
// dot; a file of it that could not be copied stays as it was. Without, and there, files are replaced one by one. Any
// thread. `dst` is made if it is not there. Returns 0, whatever became of the files; -1 for null, or without such a
// source. Each file is reported to the callback once, a file whose size changes with the size it had.
s32 zof_dir_copyfile(const char *dst, const char *src, zof_bool remove);

// How many files such a copy reports, folders below included. `path` ends with a slash.
u32 zof_dir_get_fileNum(const char *path);

// Removes what a folder holds, with a line for each, except names that begin with a dot. Links are removed, not
// followed.
void zof_dir_remove(const char *path);

// Removes what a power cut left of a copy into this folder, which ends with a slash, and into the folders below it; a
// folder that was set aside goes back to its place. While somebody copies into it, nothing happens, with a line.
void zof_dir_copy_mend(const char *path);

// Copies one file in blocks of so many bytes, up to a megabyte, with a dot a block on the log. 0, or -1 with the target
// as it was.
s32 zof_file_copy(const char *dst, const char *src, u32 blocksize);

// Receives each file, on the copying thread. UNDONE: one that was reported as copied lies in a folder, named then, that
// could not be put in place; it counts as failed. Null for none.
enum { ZOF_COPY_FAILED = 0, ZOF_COPY_DONE = 1, ZOF_COPY_UNDONE = 2 };
typedef void (*zof_schedule_fun_t)(const char *name, u8 ok);
void zof_dir_set_schedule_cbfun(zof_schedule_fun_t fn);
void zof_dir_schedule_dis(const char *name, u8 ok);

// The copy on a thread, "zof copy". The paths are copied; -1 for a null `src`, and while a copy runs. Main thread, as
// the start is.
s32 zof_dir_copy_async(const char *dst, const char *src, zof_bool remove);

// 0, or -1: paths are missing, a copy is running, or there is no thread. Takes the callback for its counts.
s32 zof_dir_copy_async_start(void);

// 0 while a copy runs, -1 when none does. Any thread.
s32 zof_dir_copy_async_statue(void);

// Files copied and not copied by the latest copy. They reach the sum only when all is in place. Main thread.
void zof_dir_copy_get_progress(u32 *suc, u32 *fail);

ZOF_C_END

#endif
