// Resource paths, drive letters, and files. Graphics thread only. Paths are built in one shared buffer: a path lasts
// until the next call that gives one, and who needs it longer copies it with zof_res_path_zof_malloc. A path that does
// not fit its buffer is never cut: the result is null, with one line.
//
//     char *keep = zof_res_path_zof_malloc(zof_res_path_check("logo.png", "image/"));
#ifndef ZOF_RES_H
#define ZOF_RES_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Makes the shared buffer for paths of up to `n` bytes, in place of the former one. 0, or -1 for 0 or without memory.
s32 zof_res_set_path_cache(u32 n);

// The first of the candidate folders (each with its "/") below which res/config/project/zofprj.g can be opened for
// writing: "<candidate>./res/", or null. Null candidates are passed over.
const char *zof_res_check_prj_path(const char *const *candidates, u32 count);

// a, b and c joined as they are; null parts are skipped. Null for a null `a` or without a buffer.
char *zof_res_file_path(const char *a, const char *b, const char *c);

// The current project's folder with its "/", owned by the project; null without one.
const char *zof_res_get_prj_path(void);

// Project folder + dir + name. Null without a project, and, with a line, for a name that has control characters or
// leads out of the project, by ".." or through links, unless the project file says "allow_outside": 1.
char *zof_res_get_prjfile_path(const char *dir, const char *name);

// Project folder + dir + name + ".g"; null too for a null name, and for one of more than 47 bytes.
char *zof_res_get_g_file_path(const char *dir, const char *name);

// The theme file of a control type; null for a null theme or an unknown type.
char *zof_res_get_theme_path(const char *theme, u32 type);

// The entry for every resource that a project or a host names: "D:x" and its like through the drives, anything else
// from the folder of its kind, for instance "image/". Null for null, and, with a line, for a name that leads out of the
// project and the drive's folder or names an unknown drive, as above.
char *zof_res_path_check(const char *name, const char *dir);

// The same for what LVGL opens as a picture, a GIF or a folder of pictures; every such source passes here. Null too for
// a path that LVGL would take for a picture in memory or a symbol, which it does by the first byte.
const char *zof_res_picture_path(const char *name);

// True for what LVGL takes for a path: its first byte is printing ASCII.
zof_bool zof_res_is_picture_path(const char *path);

// True when a picture of a folder that zof_res_picture_path found is in it, not behind a link that leads elsewhere.
zof_bool zof_res_picture_in(const char *folder, const char *path);

// Makes every backslash a "/", in place.
void zof_res_check_path(char *text);

// What is left of `full` behind as many bytes as project folder and `dir` have; it does not look at what it skips. Null
// when nothing is left, and for null.
const char *zof_res_get_file_name(const char *dir, const char *full);

// A copy to keep, for zof_res_path_free; null for null.
char *zof_res_path_zof_malloc(const char *text);
void zof_res_path_free(void *copy);
void zof_res_update(void); // nothing to do

// File names of the themes, by control type.
extern const char *const themeFileName[30];

// 0 when the second character is a colon, else -1.
s32 zof_fs_path_check(const char *path);

// Where a drive path really lies: "D:x" is ../disk/D/x beside the project folder, and so are E, T and U; "P:x" is x in
// the folder above. Naming a drive makes its folder. Any other path comes back as it is. Another buffer than the paths
// above, 500 bytes; null, with a line, when that is too small: whoever opens files has to expect it.
const char *zof_fs_get_real_path(const char *path);

// The folder of a drive, in the shared path buffer; null for a letter that is not a drive.
const char *zof_fs_drive_base(char letter);

// Files through LVGL's file layer, on plain and drive paths. Opened handles are released by the close. Open gives null
// on failure; read and write give the bytes done, tell the position, the others 0; failures are negative. Closing null
// is 0.
lv_fs_file_t *zof_fs_open(const char *path, lv_fs_mode_t mode);
s32 zof_fs_close(lv_fs_file_t *f);
s32 zof_fs_read(lv_fs_file_t *f, void *buf, u32 n);
s32 zof_fs_write(lv_fs_file_t *f, const void *buf, u32 n);
s32 zof_fs_seek(lv_fs_file_t *f, u32 pos, lv_fs_whence_t whence);
s32 zof_fs_tell(lv_fs_file_t *f);
lv_fs_dir_t *zof_fs_dir_open(const char *path);
s32 zof_fs_dir_read(lv_fs_dir_t *d, char *name); // `name` has room for 256 bytes; empty at the end
s32 zof_fs_dir_close(lv_fs_dir_t *d);

// True when the file can be opened for reading and writing: a read-only file does not exist.
zof_bool FileExist(const char *path);

// True for a folder.
zof_bool PathExist(const char *path);

// Bytes; -1 when there is no such file, and for more than fits the result.
s32 zof_file_get_size(const char *path);

// Writes a whole file: beside it first, then renamed over it, so that a power cut leaves the old one or the new one.
// 0, or -1 with nothing changed.
s32 zof_file_write(const char *path, const void *data, size_t size);

// Reads the whole file into `buf`, which has room for zof_file_get_size bytes; the count read, 0 on failure.
u32 get_file_content(const char *path, void *buf);

// By what stands behind the last dot, in upper or lower case.
zof_bool IsBinFile(const char *name);
zof_bool IsMp3File(const char *name);
zof_bool IsMp4File(const char *name);
zof_bool IsTTFFile(const char *name);
zof_bool IsPNGFile(const char *name);
zof_bool IsBMPFile(const char *name);
zof_bool IsJPGFile(const char *name); // ".jpeg" is not one

ZOF_C_END

#endif
