// Copies folders from untrusted media, on a thread of its own or at once. After a power cut each file, and each folder
// that is replaced as a whole, is either old or new. Links, pipes and devices are skipped, and so are "System Volume
// Information" and names that begin with a dot or contain a separator or control characters; a path of more than 255
// bytes is refused with a log line. The folder that is copied into is locked: a second program, or a second copy, logs
// who holds it and copies nothing.
#ifndef ZOF_DIR_COPY_H
#define ZOF_DIR_COPY_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Copies the folder `src` into the folder `dst` under its own name; "a/./" as source copies what is in "a" into `dst`
// itself. With `remove` an existing folder is replaced whole, except `dst` itself and names that end in a dot; a file
// in it that could not be copied stays as it was. Without it, and in those two cases, files are replaced one by one.
// `dst` is created if it does not exist. Any thread. Returns 0, whatever happened to the files; -1 for null, or if the
// source does not exist. Each file is reported to the callback once; a file whose size changes is copied with the size
// it had.
s32 zof_dir_copyfile(const char *dst, const char *src, zof_bool remove);

// Returns how many files such a copy reports, including folders below. `path` ends with a slash.
u32 zof_dir_get_fileNum(const char *path);

// Removes the contents of a folder, with a log line for each entry, except names that begin with a dot. Links are
// removed, not followed.
void zof_dir_remove(const char *path);

// Removes what a power cut left of a copy into this folder, which ends with a slash, and into the folders below it; a
// folder that was set aside is moved back. While another copy uses the folder, only logs that.
void zof_dir_copy_repair(const char *path);

// Copies one file in blocks of so many bytes, up to a megabyte, and prints a dot for each block. Returns 0, or -1 with
// the target unchanged.
s32 zof_file_copy(const char *dst, const char *src, u32 blocksize);

// Receives each file, on the copying thread. UNDONE: a file that was reported as copied is in a folder, named then,
// that could not be put in place; it counts as failed. Null removes the callback.
enum { ZOF_COPY_FAILED = 0, ZOF_COPY_DONE = 1, ZOF_COPY_UNDONE = 2 };
typedef void (*zof_schedule_fun_t)(const char *name, u8 ok);
void zof_dir_set_schedule_cbfun(zof_schedule_fun_t fn);
void zof_dir_schedule_dis(const char *name, u8 ok);

// Starts the copy on a thread, "zof copy". The paths are copied. Returns -1 for a null `src`, and while a copy runs.
// Main thread, like the start below.
s32 zof_dir_copy_async(const char *dst, const char *src, zof_bool remove);

// Returns 0, or -1: paths are missing, a copy is running, or no thread is available. Uses the callback for its counts.
s32 zof_dir_copy_async_start(void);

// Returns 0 while a copy runs, -1 otherwise. Any thread.
s32 zof_dir_copy_async_statue(void);

// Returns the files copied and not copied by the latest copy. They reach the sum only when all is in place. Main
// thread.
void zof_dir_copy_get_progress(u32 *suc, u32 *fail);

// Writes why the latest copy refused its first file, or all of them: a name, and the words of the log, cut off at
// `size` bytes with the terminator. Empty when nothing was refused. Any thread.
enum { ZOF_COPY_REASON_SIZE = 160 };
void zof_dir_copy_get_reason(char *out, size_t size);

ZOF_C_END

#endif
