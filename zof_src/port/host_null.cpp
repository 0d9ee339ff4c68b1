// The host layer in standard C++ alone: it builds everywhere, is the file to copy for another system, and shows what a
// system has to add. It has no serial lines; links, pipes and power cuts are treated as
// well as the standard library can. What else is missing is in host_null_device.cpp. CMake takes both with
// -DZOF_HOST=null.
#include <errno.h>
#include <stdio.h>
#include <string.h>
#include <time.h>

#include <chrono>
#include <filesystem>
#include <new>
#include <string>
#include <thread>

#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"

namespace fs = std::filesystem;

struct zof_dir {
    zof_dirent_t entry;
    fs::directory_iterator at;
    u32 dots; // entries "." and ".." that have been read
    std::string name;
};

u64 zof_host_time_ms(void) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return (u64)std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void zof_host_sleep(u32 ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

void zof_system_start(void) {
}

const char *zof_system_get_name(void) {
    return "null";
}

s32 zof_program_path(char *, size_t) {
    return -1;
}

// Without a local time zone by thread the time is UTC.
s32 win_rtc_get_stamp(zof_rtc_stamp_t *out) {
    const auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    const auto day = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(now - day);
    out->time = {(u16)(int)date.year(),     (u8)(unsigned)date.month(),  (u8)(unsigned)date.day(),
                 (u8)clock.hours().count(), (u8)clock.minutes().count(), (u8)clock.seconds().count()};
    out->ms = (u16)clock.subseconds().count();
    out->zone = 0;
    return 0;
}

// 0, or -1 with errno as the system's calls leave it.
static s32 done(const std::error_code &error) {
    if (error) {
        errno = error.default_error_condition().value();
    }
    return error ? -1 : 0;
}

zof_dir_t *zof_opendir(const char *path) {
    std::error_code error;
    fs::directory_iterator at(path ? path : "", error);
    return done(error) == 0 ? new (std::nothrow) zof_dir_t{{}, std::move(at), 0, {}} : nullptr;
}

const zof_dirent_t *zof_readdir(zof_dir_t *dir) {
    if (!dir) {
        return nullptr;
    }
    if (dir->dots < 2) {
        dir->name.assign(++dir->dots, '.');
        dir->entry = {ZOF_TRUE, 0, dir->name.c_str()};
        return &dir->entry;
    }
    if (dir->at == fs::directory_iterator()) {
        return nullptr;
    }
    std::error_code error;
    const bool plain = dir->at->is_regular_file(error);
    dir->name = dir->at->path().filename().string();
    dir->entry = {dir->at->is_directory(error) ? ZOF_TRUE : ZOF_FALSE, plain ? (u32)dir->at->file_size(error) : 0,
                  dir->name.c_str()};
    dir->at.increment(error);
    return &dir->entry;
}

void zof_closedir(zof_dir_t *dir) {
    delete dir;
}

s32 zof_host_mkdir(const char *path) {
    std::error_code error;
    if (fs::create_directory(path, error)) {
        return 0;
    }
    return fs::exists(path, error) ? 1 : -1;
}

s64 zof_file_size(const char *path) {
    std::error_code error;
    const auto size = fs::file_size(path ? path : "", error);
    return done(error) == 0 ? (s64)size : -1;
}

s32 zof_host_rename(const char *from, const char *to) {
    std::error_code error;
    fs::rename(from, to, error);
    return done(error);
}

u32 zof_host_file_kind(const char *path) {
    std::error_code error;
    const size_t size = strlen(path);
    const bool follow = size && (path[size - 1] == '/' || path[size - 1] == '\\');
    const fs::file_status status = follow ? fs::status(path, error) : fs::symlink_status(path, error);
    switch (status.type()) {
    case fs::file_type::not_found:
        return ZOF_FILE_NONE;
    case fs::file_type::regular:
        return ZOF_FILE_PLAIN;
    case fs::file_type::directory:
        return ZOF_FILE_FOLDER;
    default:
        return ZOF_FILE_OTHER;
    }
}

// Looked at before it is opened: the standard library cannot ask an open file what it is.
static FILE *plain_open(const char *path, bool plain, const char *mode) {
    if (!plain) {
        errno = EINVAL;
    }
    return plain ? fopen(path, mode) : nullptr;
}

FILE *zof_host_file_read_open(const char *path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return plain_open(path, !fs::exists(status) || fs::is_regular_file(status), "rb");
}

FILE *zof_host_file_write_open(const char *path, zof_bool keep) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    return plain_open(path, !fs::exists(status) || fs::is_regular_file(status), keep ? "r+b" : "wb");
}

FILE *zof_host_file_open(const char *path) {
    return plain_open(path, zof_host_file_kind(path) == ZOF_FILE_PLAIN, "rb");
}

s32 zof_host_real_path(const char *path, char *out, size_t size) {
    std::error_code error;
    const std::string real = fs::canonical(path, error).string();
    if (done(error) != 0 || real.size() >= size) {
        return -1;
    }
    memcpy(out, real.c_str(), real.size() + 1);
    return 0;
}

FILE *zof_host_file_create(const char *path) {
    FILE *f = fopen(path, "wbx");
    if (f) {
        setvbuf(f, nullptr, _IONBF, 0); // a write that fails is to fail where it is made
    }
    return f;
}

void zof_file_path_take(char *path) {
    (void)path;
}

zof_bool zof_host_is_absolute(const char *path) {
    return fs::path(path).is_absolute() ? ZOF_TRUE : ZOF_FALSE;
}

// One process cannot tell others from itself here, so none of their temporary files is removed.
u32 zof_host_process_id(void) {
    return 1;
}

zof_bool zof_host_process_runs(u32 id) {
    (void)id;
    return ZOF_TRUE;
}

s32 zof_host_file_sync(FILE *f) {
    return fflush(f) == 0 ? 0 : -1;
}

// The standard library cuts no open file.
s32 zof_host_file_cut(FILE *f, u64 size) {
    (void)f;
    (void)size;
    errno = ENOSYS;
    return -1;
}

void zof_host_folder_sync(const char *path) {
    (void)path;
}

s32 zof_host_remove(const char *path) {
    return remove(path) == 0 ? 0 : -1;
}

s32 zof_host_file_stamp(const char *path, zof_file_stamp_t *out) {
    *out = {};
    std::error_code error;
    const auto changed = fs::last_write_time(path, error);
    const auto size = error ? 0 : fs::file_size(path, error);
    if (done(error) != 0) {
        return -1;
    }
    out->size = size;
    out->changed_ns = std::chrono::duration_cast<std::chrono::nanoseconds>(changed.time_since_epoch()).count();
    return 0;
}

const char *zof_file_error(void) {
    static thread_local std::string text;
    text = std::generic_category().message(errno);
    return text.c_str();
}

zof_bool zof_host_scales(void) {
    return ZOF_FALSE;
}

void zof_host_events_take(void) {
}

zof_drv_t *zof_host_serial_open(s32 port, const char *path, const zof_host_line_t *line) {
    (void)path;
    (void)line;
    zof_printf("serial port %d: this host has no serial lines", port);
    return nullptr;
}

s32 zof_host_serial_set(zof_drv_t *handle, const zof_host_line_t *line) {
    (void)handle;
    (void)line;
    return -1;
}

s32 win_uart_send(zof_drv_t *handle, const u8 *data, u32 size) {
    (void)handle;
    (void)data;
    (void)size;
    return -1;
}

s32 win_uart_receive(zof_drv_t *handle, u8 *buffer, u32 size) {
    (void)handle;
    (void)buffer;
    (void)size;
    return 0;
}

s32 win_uart_close(zof_drv_t *handle) {
    (void)handle;
    return 0;
}

void win_uart_info(zof_drv_t *handle, zof_uart_info_t *out) {
    (void)handle;
    *out = {};
}

s32 win_uart_path_set(zof_drv_t *handle, const char *path) {
    (void)handle;
    (void)path;
    return -1;
}

u32 zof_drv_uart_list(zof_uart_info_t *out, u32 most) {
    (void)out;
    (void)most;
    return 0;
}
