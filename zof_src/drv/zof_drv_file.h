// Every file that the runtime opens is opened here: regular files only, so that a pipe or a device in the place of a
// file can neither stop the program nor be switched on by it. Paths are the host's own, a folder's with or without a
// separator at its end. Any thread. A null path or file is a failure.
#ifndef ZOF_DRV_FILE_H
#define ZOF_DRV_FILE_H

#include <stdio.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// A regular file for reading; links are followed, and opening never waits. The caller closes it with fclose. Null for
// anything else: errno is EINVAL for what is not a regular file.
FILE *zof_file_read_open(const char *path);

// A whole regular file of 1 to `most` bytes in memory for zof_free, with its size; null with *why, for a log line.
u8 *zof_file_read_all(const char *path, u32 most, u32 *size, const char **why);

// As zof_file_read_open, for writing: with `keep` an existing file is opened for reading and writing as it is, without
// it the file is made or emptied. For files that a person named; whatever must survive a power cut is written by
// zof_file_write.
FILE *zof_file_write_open(const char *path, zof_bool keep);

// Where a path leads when all links are followed, without "." and ".."; 0, or -1 when nothing is there or it does not
// fit.
s32 zof_file_real_path(const char *path, char *out, size_t size);

// The functions below are for media that strangers made, and follow no link.

// ZOF_FILE_*: the kind of what has this name. Links, pipes, devices and sockets are ZOF_FILE_OTHER. A path that ends in
// a separator asks for what a link leads to.
enum { ZOF_FILE_NONE = 0, ZOF_FILE_PLAIN = 1, ZOF_FILE_FOLDER = 2, ZOF_FILE_OTHER = 3 };
u32 zof_file_kind(const char *path);

// As zof_file_read_open, and null for a link.
FILE *zof_file_open(const char *path);

// A new file for writing, for zof_file_finish; null also when the name exists already.
FILE *zof_file_create(const char *path);

// A temporary name in the folder of `path`: `prefix`, which is to begin with a dot, '~', and numbers that no other name
// of this process has, and no other process that runs. One separator at the end of `path` does not count. 0, or -1 when
// it does not fit.
s32 zof_file_temp_name(char *out, size_t size, const char *path, const char *prefix);

// The prefix of the files that are renamed over others once they are complete.
#define ZOF_FILE_TEMP ".zof_file.new"

// True for a name, without folder, that zof_file_temp_name made with this prefix, or the bare prefix. With `dead` only
// when no other process that runs can have made it.
zof_bool zof_file_is_temp(const char *name, const char *prefix, zof_bool dead);

// Removes the temporary files that killed processes left in a folder, which ends with a separator.
void zof_file_temp_clear(const char *folder);

// Locks a folder against other callers, of this process too, until it is unlocked or the process ends. Returns the
// lock, 0 when somebody else holds it, who is then named in `holder`, and -1 when there is no such folder or its medium
// knows no locks.
s32 zof_folder_lock(const char *path, char *holder, size_t size);
void zof_folder_unlock(s32 lock); // 0 and -1 are ignored

// Writes all of it: 0 or -1.
s32 zof_file_put(FILE *f, const void *data, size_t size);

// Waits until the content is on the medium and closes the file in any case: 0, or -1 when the content may be missing.
s32 zof_file_finish(FILE *f);

// Waits until the names in a folder are on the medium, as far as the system can do it.
void zof_file_finish_folder(const char *path);

// Lets two names, both there, change places in one step. 0, or -1 with nothing changed: not every medium can.
s32 zof_file_exchange(const char *a, const char *b);

// Removes a file, a link (not what it leads to), or an empty folder: 0 or -1.
s32 zof_file_remove(const char *path);

// Tells one state of a file from another: its size in bytes, the time of its last change and which file it is, all 0
// when there is none. Compare with memcmp. 0 or -1. Links are followed.
typedef struct {
    u64 size;
    s64 changed_ns;
    u64 device, number;
} zof_file_stamp_t;
s32 zof_file_stamp(const char *path, zof_file_stamp_t *out);

// Why the latest call on this thread failed, in words.
const char *zof_file_error(void);

ZOF_C_END

#endif
