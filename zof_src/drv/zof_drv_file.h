// Every file that the runtime opens is opened here: regular files only, so that a pipe or a device in place of a file
// can neither hang the program nor be switched on by it. Paths are the host's own; a folder's may end in a separator or
// not. Any thread. A null path or file is a failure.
#ifndef ZOF_DRV_FILE_H
#define ZOF_DRV_FILE_H

#include <stdio.h>

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Opens a regular file for reading; follows links and never waits. The caller closes it with fclose. Returns null for
// anything else; errno is EINVAL for anything but a regular file.
FILE *zof_file_read_open(const char *path);

// Reads a whole regular file of 1 to `most` bytes into memory for zof_free, and its size. Null on failure, with the
// reason for a log line in *why.
u8 *zof_file_read_all(const char *path, u32 most, u32 *size, const char **why);

// Like zof_file_read_open, for writing. With `keep` an existing file is opened for reading and writing as it is;
// without it the file is created or emptied. For files that a person named; zof_file_write writes what must survive a
// power cut.
FILE *zof_file_write_open(const char *path, zof_bool keep);

// Returns where a path leads when all links are followed, without "." and "..": 0, or -1 when nothing is there or it
// does not fit.
s32 zof_file_real_path(const char *path, char *out, size_t size);

// The functions below are for untrusted media and follow no link.

// Returns the kind of what has this name (ZOF_FILE_*). Links, pipes, devices and sockets are ZOF_FILE_OTHER. A path
// that ends in a separator asks for what a link leads to.
enum { ZOF_FILE_NONE = 0, ZOF_FILE_PLAIN = 1, ZOF_FILE_FOLDER = 2, ZOF_FILE_OTHER = 3 };
u32 zof_file_kind(const char *path);

// Like zof_file_read_open, but returns null for a link.
FILE *zof_file_open(const char *path);

// Creates a file for writing, for zof_file_finish; null also when the name exists already.
FILE *zof_file_create(const char *path);

// From now on nothing on any medium is changed: every function here and in zof_drv.h that creates, writes, renames or
// removes fails, and zof_file_write_open with `keep` opens for reading alone. For programs that only look at a project.
void zof_file_read_only(void);

// Makes a temporary name in the folder of `path`: `prefix`, which must begin with a dot, '~', and numbers that no other
// name of this process has, and no other running process. One separator at the end of `path` is ignored. Returns 0, or
// -1 when it does not fit.
s32 zof_file_temp_name(char *out, size_t size, const char *path, const char *prefix);

// The prefix of the files that are renamed over others once they are complete.
#define ZOF_FILE_TEMP ".zof_file.new"

// Returns true for a name, without folder, that zof_file_temp_name made with this prefix, or the bare prefix. With
// `dead` only when no other running process can have made it.
zof_bool zof_file_is_temp(const char *name, const char *prefix, zof_bool dead);

// Removes the temporary files that killed processes left in a folder, which ends with a separator.
void zof_file_temp_clear(const char *folder);

// Locks a folder against other callers, also of this process, until it is unlocked or the process ends. Returns the
// lock; 0 when another caller holds it, who is then named in `holder`; -1 when there is no such folder or its medium
// has no locks.
s32 zof_folder_lock(const char *path, char *holder, size_t size);
void zof_folder_unlock(s32 lock); // 0 and -1 are ignored

// Writes all of it. Returns 0 or -1.
s32 zof_file_put(FILE *f, const void *data, size_t size);

// Waits until the content is on the medium and always closes the file. Returns 0, or -1 when the content may be
// missing.
s32 zof_file_finish(FILE *f);

// Waits until the content is on the medium, and leaves the file open. Returns 0 or -1.
s32 zof_file_sync(FILE *f);

// Cuts a file to a size, so that what a failed write has left goes. Returns 0 or -1.
s32 zof_file_cut(FILE *f, u64 size);

// Waits until the names in a folder are on the medium, as far as the system can do it.
void zof_file_finish_folder(const char *path);

// Exchanges two existing names in one step. Returns 0, or -1 with nothing changed: not every medium can do it.
s32 zof_file_exchange(const char *a, const char *b);

// Removes a file, a link (not what it leads to), or an empty folder. Returns 0 or -1.
s32 zof_file_remove(const char *path);

// Identifies one state of a file: its size in bytes, the time of its last change and which file it is, all 0 if the
// file does not exist. Compare with memcmp. Returns 0 or -1. Follows links.
typedef struct {
    u64 size;
    s64 changed_ns;
    u64 device, number;
} zof_file_stamp_t;
s32 zof_file_stamp(const char *path, zof_file_stamp_t *out);

// Writes the path of the running program's file, with links followed. Returns 0, or -1 if the system does not know it
// or it does not fit.
s32 zof_program_path(char *out, size_t size);

// Returns the name of the program's file without its folder and ".exe", "zof" if it is not known. Never freed.
const char *zof_program_name(void);

// Brings a path that the system or a person gave into the form in which the runtime uses paths, in place. On Windows
// separators become "/" and the letter of a drive a small one, because capitals are the drives of a project ("D:x").
void zof_file_path_take(char *path);

// Replaces that name, for a program that shows projects of others. The caller keeps it. Main thread, before the start.
void zof_program_name_set(const char *name);

// Returns true for a path that does not depend on the current folder; false for null.
zof_bool zof_file_is_absolute(const char *path);

// Makes the path of a file that the program keeps from one start to the next: `name` in the folder ZOF_STATE of the
// environment; without it, in a folder with the program's name in XDG_STATE_HOME, LOCALAPPDATA (on Windows), or in
// .local/state of the home folder. With `make`, missing folders are created. Returns 0, or -1 if ZOF_STATE is empty, so
// that nothing is kept, if none of these folders is known, and if the path does not fit.
s32 zof_file_state_path(char *out, size_t size, const char *name, zof_bool make);

// The same with another program's name in place of this one's, to take over what was kept there.
s32 zof_file_state_path_of(const char *program, char *out, size_t size, const char *name, zof_bool make);

// Returns true if a file can be created in a folder, which is created if it is missing. False with the reason in
// zof_file_error.
zof_bool zof_folder_writable(const char *path);

// Returns why the latest call on this thread failed, as text.
const char *zof_file_error(void);

ZOF_C_END

#endif
