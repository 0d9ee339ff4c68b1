// Drive letters, resources that may be on a drive, and files through LVGL's file layer. The media of a device, D, E, T
// and U, are folders beside the project here, and P is the parent of the project folder.
#include <cstring>

#include "drv/zof_drv.h"
#include "project/path/zof_path_in.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static char fs_path[500]; // the latest drive path

s32 zof_fs_path_check(const char *path) {
    return path && path[0] != '\0' && path[1] == ':' ? 0 : -1;
}

const char *zof_fs_drive_base(char letter) {
    switch (letter) {
    case 'D':
        return zof_res_get_prjfile_path("../disk/", "D/");
    case 'E':
        return zof_res_get_prjfile_path("../disk/", "E/");
    case 'T':
        return zof_res_get_prjfile_path("../disk/", "T/");
    case 'U':
        return zof_res_get_prjfile_path("../disk/", "U/");
    case 'P':
        return zof_res_get_prj_path();
    default:
        return nullptr;
    }
}

// Creates every folder in the first `length` bytes of fs_path, which it temporarily cuts at each separator.
static void folders_make(size_t length) {
    for (size_t i = 1; i < length; i++) {
        char separator = fs_path[i];
        if (separator != '/' && separator != '\\') {
            continue;
        }
        fs_path[i] = '\0';
        s32 made = zof_mkdir(fs_path);
        fs_path[i] = separator;
        if (made < 0) {
            return;
        }
    }
}

const char *zof_fs_get_real_path(const char *path) {
    // Check for the colon first: building the base overwrites the path buffer, which may contain a plain path.
    const char *base = zof_fs_path_check(path) == 0 ? zof_fs_drive_base(path[0]) : nullptr;
    if (!base) {
        return path;
    }
    char whole[sizeof fs_path];
    if (!zof_text_join(whole, sizeof whole, base, path[0] == 'P' ? "/../" : "", path + 2)) {
        zof_printf("path too long: %.80s...\n", path);
        return nullptr;
    }
    std::memcpy(fs_path, whole, std::strlen(whole) + 1);
    folders_make(std::strlen(base));
    return fs_path;
}

// P is the parent of the project folder.
static char *drive_path(const char *name) {
    char letter[3] = {name[0], ':', '\0'};
    if (!path_name_passes(nullptr, letter) || !path_name_passes(letter, name + 2)) {
        return nullptr;
    }
    auto *path = (char *)zof_fs_get_real_path(name);
    const char *base = zof_fs_drive_base(name[0]);
    if (!base && !path_outside_allowed()) {
        zof_printf("%s: no such drive", name);
        return nullptr;
    }
    const char *folder = base && name[0] == 'P' ? zof_res_file_path(base, "..", nullptr) : base;
    return path_linked_inside(path, folder);
}

char *zof_res_path_check(const char *name, const char *dir) {
    if (!name) {
        return nullptr;
    }
    return zof_fs_path_check(name) == 0 ? drive_path(name) : zof_res_get_prjfile_path(dir, name);
}

const char *zof_res_picture_path(const char *name) {
    const char *path = zof_res_path_check(name, "image/");
    return zof_res_is_picture_path(path) ? path : nullptr;
}

zof_bool zof_res_is_picture_path(const char *path) {
    return path && path[0] >= ' ' && path[0] < 0x7F;
}

zof_bool zof_res_picture_in(const char *folder, const char *path) {
    return path_stays_inside(path, folder);
}

static s32 done_or_error(lv_fs_res_t result) {
    return -(s32)result; // LV_FS_RES_OK is 0
}

static s32 count_or_error(lv_fs_res_t result, const u32 *count) {
    return result == LV_FS_RES_OK ? (s32)(*count) : done_or_error(result);
}

lv_fs_file_t *zof_fs_open(const char *path, lv_fs_mode_t mode) {
    auto *f = path ? (lv_fs_file_t *)(zof_malloc(sizeof(lv_fs_file_t))) : nullptr;
    if (f && lv_fs_open(f, path, mode) != LV_FS_RES_OK) {
        zof_free(f);
        f = nullptr;
    }
    return f;
}

s32 zof_fs_close(lv_fs_file_t *f) {
    if (!f) {
        return 0;
    }
    lv_fs_res_t result = lv_fs_close(f);
    zof_free(f);
    return done_or_error(result);
}

s32 zof_fs_read(lv_fs_file_t *f, void *buf, u32 n) {
    u32 count = 0;
    return f && buf ? count_or_error(lv_fs_read(f, buf, n, &count), &count) : -1;
}

s32 zof_fs_write(lv_fs_file_t *f, const void *buf, u32 n) {
    u32 count = 0;
    return f && buf ? count_or_error(lv_fs_write(f, buf, n, &count), &count) : -1;
}

s32 zof_fs_seek(lv_fs_file_t *f, u32 pos, lv_fs_whence_t whence) {
    return f ? done_or_error(lv_fs_seek(f, pos, whence)) : -1;
}

s32 zof_fs_tell(lv_fs_file_t *f) {
    u32 pos = 0;
    return f ? count_or_error(lv_fs_tell(f, &pos), &pos) : -1;
}

lv_fs_dir_t *zof_fs_dir_open(const char *path) {
    auto *d = path ? (lv_fs_dir_t *)(zof_malloc(sizeof(lv_fs_dir_t))) : nullptr;
    if (d && lv_fs_dir_open(d, path) != LV_FS_RES_OK) {
        zof_free(d);
        d = nullptr;
    }
    return d;
}

s32 zof_fs_dir_read(lv_fs_dir_t *d, char *name) {
    return d && name ? done_or_error(lv_fs_dir_read(d, name)) : -1;
}

s32 zof_fs_dir_close(lv_fs_dir_t *d) {
    if (!d) {
        return 0;
    }
    lv_fs_res_t result = lv_fs_dir_close(d);
    zof_free(d);
    return done_or_error(result);
}
