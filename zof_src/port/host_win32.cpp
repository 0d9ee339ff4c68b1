// Windows: clock, folders and the desktop's size. Files are in host_win32_file.cpp, the serial line in
// host_win32_serial.cpp.
#include "port/host_win32.h"

#include <errno.h>
#include <stdio.h>
#include <string.h>

#include <new>

#include <SDL.h>

#include "drv/zof_drv_device.h"
#include "drv/zof_drv_wdt.h"

struct zof_dir {
    HANDLE find;
    WIN32_FIND_DATAW found;
    bool ready; // `found` has not been read yet
    char name[3 * MAX_PATH + 1];
    zof_dirent_t entry;
};

// A drive without a medium, or a fault, ends a call with an error and not in a box that waits for a click.
void zof_system_start(void) {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

const char *zof_system_get_name(void) {
    return "windows";
}

u64 zof_host_time_ms(void) {
    static const u64 rate = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return (u64)frequency.QuadPart;
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return (u64)now.QuadPart / rate * 1000 + (u64)now.QuadPart % rate * 1000 / rate;
}

void zof_host_sleep(u32 ms) {
    Sleep(ms);
}

s32 win_rtc_get_stamp(zof_rtc_stamp_t *out) {
    SYSTEMTIME now;
    TIME_ZONE_INFORMATION zone;
    GetLocalTime(&now);
    const DWORD season = GetTimeZoneInformation(&zone);
    const LONG bias = season == TIME_ZONE_ID_INVALID    ? 0
                      : season == TIME_ZONE_ID_DAYLIGHT ? zone.Bias + zone.DaylightBias
                      : season == TIME_ZONE_ID_STANDARD ? zone.Bias + zone.StandardBias
                                                        : zone.Bias;
    out->time = {now.wYear, (u8)now.wMonth, (u8)now.wDay, (u8)now.wHour, (u8)now.wMinute, (u8)now.wSecond};
    out->ms = now.wMilliseconds;
    out->zone = (s16)-bias;
    return 0;
}

// The search pattern of a folder is its path and a star.
static HANDLE find_first(const char *path, WIN32_FIND_DATAW *found) {
    wchar_t pattern[HOST_PATH_MOST];
    if (!path || !host_path_wide(path, pattern)) {
        return INVALID_HANDLE_VALUE;
    }
    const size_t length = wcslen(pattern);
    const bool separated = length && pattern[length - 1] == L'\\';
    if (length + 3 > HOST_PATH_MOST) {
        errno = ENAMETOOLONG;
        return INVALID_HANDLE_VALUE;
    }
    wcscpy(pattern + length, separated ? L"*" : L"\\*");
    const HANDLE find = FindFirstFileW(pattern, found);
    if (find == INVALID_HANDLE_VALUE) {
        host_errno_take();
    }
    return find;
}

zof_dir_t *zof_opendir(const char *path) {
    auto *d = new (std::nothrow) zof_dir_t{};
    if (!d) {
        return nullptr;
    }
    d->find = find_first(path, &d->found);
    if (d->find == INVALID_HANDLE_VALUE) {
        delete d;
        return nullptr;
    }
    d->ready = true;
    return d;
}

const zof_dirent_t *zof_readdir(zof_dir_t *dir) {
    if (!dir || (!dir->ready && !FindNextFileW(dir->find, &dir->found))) {
        return nullptr;
    }
    dir->ready = false;
    host_text_narrow(dir->found.cFileName, dir->name, sizeof(dir->name)); // three bytes for each unit: it fits
    const bool folder = dir->found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    dir->entry = {folder ? ZOF_TRUE : ZOF_FALSE, folder ? 0 : (u32)dir->found.nFileSizeLow, dir->name};
    return &dir->entry;
}

void zof_closedir(zof_dir_t *dir) {
    if (dir) {
        FindClose(dir->find);
        delete dir;
    }
}

zof_bool zof_host_scales(void) {
    return ZOF_FALSE;
}

void zof_host_events_take(void) {
}

void zof_host_screen_size(s32 *w, s32 *h) {
    SDL_Rect bounds = {};
    const bool known = SDL_GetDisplayBounds(0, &bounds) == 0;
    *w = known ? bounds.w : 0;
    *h = known ? bounds.h : 0;
}

// No driver of Windows offers its watchdog to programs.
s32 win_wdt_init(void) {
    return -1;
}

// The desktop owns displays and input devices.
u32 zof_device_list(zof_device_e, zof_device_t *, u32) {
    return 0;
}

zof_bool zof_host_light_find(void) {
    return ZOF_FALSE;
}

s32 zof_host_light_set(u8) {
    return -1;
}

s32 zof_host_display_power(SDL_Window *, zof_bool) {
    return -1;
}

s32 zof_host_service_report(const char *) {
    return -1;
}

u32 zof_host_service_period(void) {
    return 0;
}
