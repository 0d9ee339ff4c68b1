// Queries about files on the host, by plain paths.
#include <cstdio>
#include <cstring>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_util.h"

zof_bool FileExist(const char *path) {
    FILE *file = zof_file_read_open(path);
    if (!file) {
        return ZOF_FALSE;
    }
    std::fclose(file);
    return ZOF_TRUE;
}

zof_bool PathExist(const char *path) {
    zof_dir_t *dir = path ? zof_opendir(path) : nullptr;
    if (!dir) {
        return ZOF_FALSE;
    }
    zof_closedir(dir);
    return ZOF_TRUE;
}

s32 zof_file_get_size(const char *path) {
    s64 size = path ? zof_file_size(path) : -1;
    return size > INT32_MAX ? -1 : (s32)size;
}

u32 get_file_content(const char *path, void *buf) {
    FILE *file = buf ? zof_file_read_open(path) : nullptr;
    if (!file) {
        return 0;
    }
    u32 count = 0;
    u8 part[4096]; // `buf` may be no larger than the file, and fread may use all of the size that it is given
    for (size_t n; (n = std::fread(part, 1, sizeof(part), file)) > 0;) {
        std::memcpy((u8 *)buf + count, part, n);
        count += (u32)n;
    }
    std::fclose(file);
    return count;
}

zof_bool IsBinFile(const char *name) {
    return zof_suffix_is(name, ".bin");
}

zof_bool IsMp3File(const char *name) {
    return zof_suffix_is(name, ".mp3");
}

zof_bool IsMp4File(const char *name) {
    return zof_suffix_is(name, ".mp4");
}

zof_bool IsTTFFile(const char *name) {
    return zof_suffix_is(name, ".ttf");
}

zof_bool IsOutlineFontFile(const char *name) {
    return IsTTFFile(name) || zof_suffix_is(name, ".otf") || zof_suffix_is(name, ".ttc") ||
           zof_suffix_is(name, ".woff");
}

zof_bool IsPNGFile(const char *name) {
    return zof_suffix_is(name, ".png");
}

zof_bool IsBMPFile(const char *name) {
    return zof_suffix_is(name, ".bmp");
}

// ".jpeg" deliberately does not match: the device's decoder checks the three letters.
zof_bool IsJPGFile(const char *name) {
    return zof_suffix_is(name, ".jpg");
}
