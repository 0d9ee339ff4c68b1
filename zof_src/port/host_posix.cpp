// Linux and browsers: clock and folders.
#include <dirent.h>
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>

#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

struct zof_dir {
    DIR *dir;
    zof_dirent_t entry;
};

u64 zof_host_time_ms(void) {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (u64)now.tv_sec * 1000 + (u64)now.tv_nsec / 1000000;
}

void zof_host_sleep(u32 ms) {
    timespec left = {(time_t)(ms / 1000), (long)(ms % 1000) * 1000000};
    while (nanosleep(&left, &left) != 0 && errno == EINTR) {
    }
}

s32 win_rtc_get_stamp(zof_rtc_stamp_t *out) {
    timespec now;
    tm local;
    if (clock_gettime(CLOCK_REALTIME, &now) != 0 || !localtime_r(&now.tv_sec, &local)) {
        return -1;
    }
    out->time = {(u16)(local.tm_year + 1900), (u8)(local.tm_mon + 1), (u8)local.tm_mday,
                 (u8)local.tm_hour,           (u8)local.tm_min,       (u8)local.tm_sec};
    out->ms = (u16)(now.tv_nsec / 1000000);
    out->zone = (s16)(local.tm_gmtoff / 60);
    return 0;
}

zof_dir_t *zof_opendir(const char *path) {
    auto *d = path ? (zof_dir_t *)zof_malloc(sizeof(zof_dir_t)) : nullptr;
    if (d) {
        d->dir = opendir(path);
    }
    if (d && !d->dir) {
        zof_free(d);
        return nullptr;
    }
    return d;
}

const zof_dirent_t *zof_readdir(zof_dir_t *dir) {
    const dirent *found = dir ? readdir(dir->dir) : nullptr;
    if (!found) {
        return nullptr;
    }
    struct stat st = {};
    const bool known = fstatat(dirfd(dir->dir), found->d_name, &st, 0) == 0;
    dir->entry = {known && S_ISDIR(st.st_mode), known && S_ISREG(st.st_mode) ? (u32)st.st_size : 0, found->d_name};
    return &dir->entry;
}

void zof_closedir(zof_dir_t *dir) {
    if (dir) {
        closedir(dir->dir);
        zof_free(dir);
    }
}

s32 zof_host_mkdir(const char *path) {
    if (mkdir(path, 0777) == 0) {
        return 0;
    }
    return errno == EEXIST ? 1 : -1;
}

s64 zof_file_size(const char *path) {
    struct stat st;
    return path && stat(path, &st) == 0 ? (s64)st.st_size : -1;
}

s32 zof_host_rename(const char *from, const char *to) {
    return rename(from, to) == 0 ? 0 : -1;
}
