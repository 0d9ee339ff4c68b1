// Linux: clock, folders, files and the desktop's size. The serial line is in host_linux_serial.cpp.
#include <dirent.h>
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <time.h>

#include <SDL.h>

#include "port/host_linux_line.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

struct zof_dir {
    DIR *dir;
    zof_dirent_t entry;
};

// Makes a write to a pipe without a reader, or beyond the largest size of a file, fail instead of ending the process.
void zof_system_start(void) {
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

const char *zof_system_get_name(void) {
    return "linux";
}

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

void *zof_host_library_open(const char *name, s32 major) {
    char file[64];
    snprintf(file, sizeof(file), "lib%s.so.%d", name, major);
    return dlopen(file, RTLD_NOW);
}

void *zof_host_library_symbol(void *library, const char *name) {
    return dlsym(library, name);
}

void zof_host_screen_size(s32 *w, s32 *h) {
    SDL_Rect bounds = {};
    const bool known = SDL_GetDisplayBounds(0, &bounds) == 0;
    *w = known ? bounds.w : 0;
    *h = known ? bounds.h : 0;
}
