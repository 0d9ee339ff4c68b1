// Resource paths, drive letters, and files. Graphics thread only. Paths are built in one shared buffer: a path is valid
// until the next call that returns one; callers that keep it copy it with zof_res_path_zof_malloc. A path that does not
// fit the buffer is never truncated: the result is null, after a message.
//
//     char *keep = zof_res_path_zof_malloc(zof_res_path_check("logo.png", "image/"));
#ifndef ZOF_RES_H
#define ZOF_RES_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Replaces the shared buffer by one for paths of up to `n` bytes. Returns 0, or -1 for 0 or without memory.
s32 zof_res_set_path_cache(u32 n);

// Returns "<candidate>./res/" of the first candidate folder (each with its "/") in which res/config/project/zofprj.g
// can be read, or null. Null candidates are skipped.
const char *zof_res_check_prj_path(const char *const *candidates, u32 count);

// Returns a, b and c concatenated; null parts are skipped. Returns null for a null `a` or without a buffer.
char *zof_res_file_path(const char *a, const char *b, const char *c);

// Returns the current project's folder with its "/", owned by the project; null without a project.
const char *zof_res_get_prj_path(void);

// Returns project folder + dir + name. Returns null without a project, and, after a message, for a name that has
// control characters or leads out of the project, by ".." or through links, unless the project file has
// "allow_outside": 1.
char *zof_res_get_prjfile_path(const char *dir, const char *name);

// Returns project folder + dir + name + ".g"; also null for a null name, and for one of more than 47 bytes.
char *zof_res_get_g_file_path(const char *dir, const char *name);

// Returns the path of a control type's theme file; null for a null theme or an unknown type.
char *zof_res_get_theme_path(const char *theme, u32 type);

// Returns the path of a resource named by a project or a host: names such as "D:x" are resolved through the drives, all
// others in the folder of their kind, such as "image/". Returns null for null, and, after a message, for a name that
// leads out of the project or the drive's folder, as above, and for an unknown drive.
char *zof_res_path_check(const char *name, const char *dir);

// The same for everything that LVGL opens as a picture, a GIF or a folder of pictures. Also returns null for a path
// that LVGL would take for a picture in memory or a symbol, which it decides by the first byte.
const char *zof_res_picture_path(const char *name);

// Returns true if LVGL takes the text for a path: its first byte is printable ASCII.
zof_bool zof_res_is_picture_path(const char *path);

// Returns true if a picture in a folder returned by zof_res_picture_path is really in it, and not reached through a
// link that leads elsewhere.
zof_bool zof_res_picture_in(const char *folder, const char *path);

// Replaces every backslash by "/", in place.
void zof_res_check_path(char *text);

// Returns the path of the current project's file, in the shared path buffer; null without a project.
const char *zof_prj_file_path(void);

// Returns `full` without its first bytes, as many as project folder and `dir` have; does not check what it skips.
// Returns null if nothing is left, and for null.
const char *zof_res_get_file_name(const char *dir, const char *full);

// Returns a copy, to be released with zof_res_path_free; null for null.
char *zof_res_path_zof_malloc(const char *text);
void zof_res_path_free(void *copy);
void zof_res_update(void); // does nothing

// Returns 0 if the second character is a colon, otherwise -1.
s32 zof_fs_path_check(const char *path);

// Returns the real path of a drive path: "D:x" is ../disk/D/x beside the project folder, likewise E, T and U; "P:x" is
// x in the parent of the project folder. Creates the folder of the drive. Returns any other path as it is. Uses a
// buffer of its own of 500 bytes; returns null, after a message, if that is too small.
const char *zof_fs_get_real_path(const char *path);

// Returns the folder of a drive, in the shared path buffer; null for a letter that is not a drive.
const char *zof_fs_drive_base(char letter);

// File functions of LVGL's file layer, for plain and drive paths. Closing releases the handle. Open returns null on
// failure; read and write return the number of bytes, tell the position, the others 0; failures are negative. Closing
// null returns 0.
lv_fs_file_t *zof_fs_open(const char *path, lv_fs_mode_t mode);
s32 zof_fs_close(lv_fs_file_t *f);
s32 zof_fs_read(lv_fs_file_t *f, void *buf, u32 n);
s32 zof_fs_write(lv_fs_file_t *f, const void *buf, u32 n);
s32 zof_fs_seek(lv_fs_file_t *f, u32 pos, lv_fs_whence_t whence);
s32 zof_fs_tell(lv_fs_file_t *f);
lv_fs_dir_t *zof_fs_dir_open(const char *path);
s32 zof_fs_dir_read(lv_fs_dir_t *d, char *name); // `name` has room for 256 bytes; empty at the end
s32 zof_fs_dir_close(lv_fs_dir_t *d);

// Returns true if there is a regular file that can be read.
zof_bool FileExist(const char *path);

// Returns true for a folder.
zof_bool PathExist(const char *path);

// Returns the size in bytes; -1 for a missing file, and for a size that does not fit the result.
s32 zof_file_get_size(const char *path);

// Writes a whole file. Writes a temporary file and renames it, so a power failure leaves the old or the new file.
// Returns 0, or -1 with nothing changed.
s32 zof_file_write(const char *path, const void *data, size_t size);

// Reads the whole file into `buf`, which must have room for zof_file_get_size bytes. Returns the number of bytes read,
// 0 on failure.
u32 get_file_content(const char *path, void *buf);

// Check the suffix after the last dot, in upper or lower case.
zof_bool IsBinFile(const char *name);
zof_bool IsMp3File(const char *name);
zof_bool IsMp4File(const char *name);
zof_bool IsTTFFile(const char *name);
zof_bool IsOutlineFontFile(const char *name); // .ttf, .otf, .ttc or .woff
zof_bool IsPNGFile(const char *name);
zof_bool IsBMPFile(const char *name);
zof_bool IsJPGFile(const char *name); // ".jpeg" is not one

ZOF_C_END

#endif
