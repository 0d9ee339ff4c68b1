// Files of the desktop, on top of the host's. Null paths are refused here, so that no host needs to, and a test can
// make any disk change fail here, or stop the program at it.
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "port/zof_host.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static std::atomic<zof_file_fault_t> g_fault{nullptr};
static std::atomic<bool> g_read_only;

void zof_file_read_only(void) {
    g_read_only = true;
}

void zof_file_fault_set(zof_file_fault_t fault) {
    g_fault = fault;
}

// Returns true when this change must fail: nothing may be written, or a test wants it, as on a full disk.
static bool fails(const char *what, const char *path) {
    if (g_read_only) {
        errno = EROFS;
        return true;
    }
    const zof_file_fault_t fault = g_fault;
    if (!fault || !fault(what, path)) {
        return false;
    }
    errno = ENOSPC;
    return true;
}

u32 zof_file_kind(const char *path) {
    return path ? zof_host_file_kind(path) : (u32)ZOF_FILE_NONE;
}

FILE *zof_file_read_open(const char *path) {
    return path ? zof_host_file_read_open(path) : nullptr;
}

FILE *zof_file_write_open(const char *path, zof_bool keep) {
    if (g_read_only) {
        errno = EROFS;
        return keep ? zof_file_read_open(path) : nullptr;
    }
    return path ? zof_host_file_write_open(path, keep) : nullptr;
}

// If the file shrinks meanwhile, its size is what was read.
static u8 *content_read(FILE *f, u32 most, u32 *size, const char **why) {
    fseek(f, 0, SEEK_END);
    const long length = ftell(f);
    rewind(f);
    *why = "is empty or too large";
    if (length <= 0 || (u64)length > most) {
        return nullptr;
    }
    auto *content = (u8 *)zof_malloc((size_t)length);
    *size = content ? (u32)fread(content, 1, (size_t)length, f) : 0;
    *why = content ? nullptr : "no memory";
    return content;
}

u8 *zof_file_read_all(const char *path, u32 most, u32 *size, const char **why) {
    FILE *f = zof_file_read_open(path);
    *why = "cannot be opened";
    u8 *content = f ? content_read(f, most, size, why) : nullptr;
    if (f) {
        fclose(f);
    }
    return content;
}

s32 zof_file_real_path(const char *path, char *out, size_t size) {
    return path && out && size ? zof_host_real_path(path, out, size) : -1;
}

FILE *zof_file_open(const char *path) {
    return path ? zof_host_file_open(path) : nullptr;
}

FILE *zof_file_create(const char *path) {
    return path && !fails("create", path) ? zof_host_file_create(path) : nullptr;
}

s32 zof_file_temp_name(char *out, size_t size, const char *path, const char *prefix) {
    static std::atomic<u32> number{0};
    if (!path) {
        return -1;
    }
    const int length =
        snprintf(out, size, "%.*s%s~%u-%u", (int)zof_path_parent(path), path, prefix, zof_host_process_id(), ++number);
    return length >= 0 && (size_t)length < size ? 0 : -1;
}

zof_bool zof_file_is_temp(const char *name, const char *prefix, zof_bool dead) {
    const size_t n = name ? strlen(prefix) : 0;
    unsigned process = 0;
    unsigned number = 0;
    int end = 0;
    if (!name || strncmp(name, prefix, n) != 0) {
        return ZOF_FALSE;
    }
    if (!name[n]) {
        return ZOF_TRUE;
    }
    if (sscanf(name + n, "~%u-%u%n", &process, &number, &end) != 2 || name[n + (size_t)end]) {
        return ZOF_FALSE;
    }
    return !dead || process == zof_host_process_id() || !zof_host_process_runs(process);
}

void zof_file_temp_clear(const char *folder) {
    zof_dir_t *dir = zof_opendir(folder);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char path[520];
        if (zof_file_is_temp(entry->name, ZOF_FILE_TEMP, ZOF_TRUE) &&
            zof_text_join(path, sizeof(path), folder, entry->name, nullptr)) {
            zof_file_remove(path);
        }
    }
    zof_closedir(dir);
}

// A relative folder would depend on where a program is started.
static bool state_join(char *out, size_t size, const char *folder, const char *below) {
    return folder && zof_file_is_absolute(folder) && zof_text_join(out, size, folder, below, nullptr);
}

// Creates the folders that a path needs.
static void parents_make(char *path) {
    for (char *at = strchr(path + 1, '/'); at; at = strchr(at + 1, '/')) {
        *at = '\0';
        zof_mkdir(path);
        *at = '/';
    }
}

static bool name_read(char *path, size_t size) {
    if (zof_program_path(path, size) != 0) {
        return false;
    }
    if (zof_suffix_is(path, ".exe")) {
        path[strlen(path) - strlen(".exe")] = '\0';
    }
    return true;
}

static const char *name_given;

void zof_program_name_set(const char *name) {
    name_given = name;
}

const char *zof_program_name(void) {
    if (name_given) {
        return name_given;
    }
    static char path[400];
    static const bool known = name_read(path, sizeof(path));
    return known ? path + zof_path_parent(path) : "zof";
}

zof_bool zof_file_is_absolute(const char *path) {
    return path && zof_host_is_absolute(path) ? ZOF_TRUE : ZOF_FALSE;
}

s32 zof_file_state_path(char *out, size_t size, const char *name, zof_bool make) {
    return zof_file_state_path_of(zof_program_name(), out, size, name, make);
}

s32 zof_file_state_path_of(const char *program, char *out, size_t size, const char *name, zof_bool make) {
    const char *given = getenv("ZOF_STATE");
    static const struct {
        const char *variable, *below;
    } rows[] = {{"XDG_STATE_HOME", "/"}, {"LOCALAPPDATA", "/"}, {"HOME", "/.local/state/"}};
    char folder[400], below[200];
    if (!out || !name || !zof_text_join(below, sizeof(below), given ? "" : program, "/", name)) {
        return -1;
    }
    bool found = given && state_join(folder, sizeof(folder), given, "");
    for (size_t i = 0; !given && !found && i < sizeof(rows) / sizeof(rows[0]); i++) {
        found = state_join(folder, sizeof(folder), getenv(rows[i].variable), rows[i].below);
    }
    if (!found || !zof_text_join(out, size, folder, below, nullptr)) {
        return -1;
    }
    if (make) {
        parents_make(out);
    }
    return 0;
}

zof_bool zof_folder_writable(const char *path) {
    char name[520], inside[400];
    if (zof_mkdir(path) < 0 || !zof_text_join(inside, sizeof(inside), path, "/", "new") ||
        zof_file_temp_name(name, sizeof(name), inside, ZOF_FILE_TEMP) != 0) {
        return ZOF_FALSE;
    }
    FILE *f = zof_file_create(name);
    if (!f) {
        return ZOF_FALSE;
    }
    fclose(f);
    zof_file_remove(name);
    return ZOF_TRUE;
}

s32 zof_folder_lock(const char *path, char *holder, size_t size) {
    return path && holder && size ? zof_host_folder_lock(path, holder, size) : -1;
}

// A failed write has often written a part.
s32 zof_file_put(FILE *f, const void *data, size_t size) {
    if (!f || (!data && size)) {
        return -1;
    }
    const bool torn = fails("write", nullptr);
    const size_t wanted = torn ? size / 2 : size;
    const bool good = fwrite(data, 1, wanted, f) == wanted && !torn;
    return good ? 0 : -1;
}

s32 zof_file_finish(FILE *f) {
    if (!f) {
        return -1;
    }
    const bool good = !fails("sync", nullptr) && zof_host_file_sync(f) == 0;
    const int why = errno;
    const bool closed = fclose(f) == 0;
    if (!good) {
        errno = why;
    }
    return good && closed ? 0 : -1;
}

s32 zof_file_sync(FILE *f) {
    return f && !fails("sync", nullptr) ? zof_host_file_sync(f) : -1;
}

s32 zof_file_cut(FILE *f, u64 size) {
    return f ? zof_host_file_cut(f, size) : -1;
}

void zof_file_finish_folder(const char *path) {
    if (path && !fails("sync", path)) {
        zof_host_folder_sync(path);
    }
}

s32 zof_file_exchange(const char *a, const char *b) {
    return a && b && !fails("exchange", b) ? zof_host_exchange(a, b) : -1;
}

s32 zof_file_remove(const char *path) {
    return path && !fails("remove", path) ? zof_host_remove(path) : -1;
}

s32 zof_file_stamp(const char *path, zof_file_stamp_t *out) {
    if (!out) {
        return -1;
    }
    *out = {};
    return path ? zof_host_file_stamp(path, out) : -1;
}

s32 zof_mkdir(const char *path) {
    return path && !fails("mkdir", path) ? zof_host_mkdir(path) : -1;
}

s32 zof_rename(const char *from, const char *to) {
    return from && to && !fails("rename", to) ? zof_host_rename(from, to) : -1;
}
