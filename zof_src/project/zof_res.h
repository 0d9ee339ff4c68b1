// Resource paths, drive letters, and files. Paths are built in one shared buffer: a result lasts until the next call.
#ifndef ZOF_RES_H
#define ZOF_RES_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

s32 zof_res_set_path_cache(u32 n);
const char *zof_res_check_prj_path(const char *const *candidates, u32 count);
char *zof_res_file_path(const char *a, const char *b, const char *c);
const char *zof_res_get_prj_path(void);
char *zof_res_get_prjfile_path(const char *dir, const char *name);
char *zof_res_get_g_file_path(const char *dir, const char *name);
char *zof_res_get_theme_path(const char *theme, u32 type);
char *zof_res_path_check(const char *name, const char *dir);
void zof_res_check_path(char *text);
const char *zof_res_get_file_name(const char *dir, const char *full);
char *zof_res_path_zof_malloc(const char *text);
void zof_res_path_free(void *copy);
void zof_res_update(void);
extern const char *const themeFileName[30];

s32 zof_fs_path_check(const char *path);
const char *zof_fs_get_real_path(const char *path);
lv_fs_file_t *zof_fs_open(const char *path, lv_fs_mode_t mode);
s32 zof_fs_close(lv_fs_file_t *f);
s32 zof_fs_read(lv_fs_file_t *f, void *buf, u32 n);
s32 zof_fs_write(lv_fs_file_t *f, const void *buf, u32 n);
s32 zof_fs_seek(lv_fs_file_t *f, u32 pos, lv_fs_whence_t whence);
s32 zof_fs_tell(lv_fs_file_t *f);
lv_fs_dir_t *zof_fs_dir_open(const char *path);
s32 zof_fs_dir_read(lv_fs_dir_t *d, char *name);
s32 zof_fs_dir_close(lv_fs_dir_t *d);

zof_bool FileExist(const char *path);
zof_bool PathExist(const char *path);
s32 zof_file_get_size(const char *path);
u32 get_file_content(const char *path, void *buf);
zof_bool IsBinFile(const char *name);
zof_bool IsMp3File(const char *name);
zof_bool IsMp4File(const char *name);
zof_bool IsTTFFile(const char *name);
zof_bool IsPNGFile(const char *name);
zof_bool IsBMPFile(const char *name);
zof_bool IsJPGFile(const char *name);

ZOF_C_END

#endif
