// Files of the desktop, on the host's; here a test may let any change of the disk fail, or stop the program at it.
#include <errno.h>

#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "port/zof_host.h"

static std::atomic<zof_file_fault_t> g_fault{nullptr};

void zof_file_fault_set(zof_file_fault_t fault) {
    g_fault = fault;
}

// True when the test wants this change to fail, as on a disk that is full.
static bool fails(const char *what, const char *path) {
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
    return path ? zof_host_file_write_open(path, keep) : nullptr;
}

FILE *zof_file_open(const char *path) {
    return path ? zof_host_file_open(path) : nullptr;
}

FILE *zof_file_create(const char *path) {
    return path && !fails("create", path) ? zof_host_file_create(path) : nullptr;
}

// A write that fails has often written a part.
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

const char *zof_file_error(void) {
    return zof_host_error();
}

s32 zof_mkdir(const char *path) {
    return path && !fails("mkdir", path) ? zof_host_mkdir(path) : -1;
}

s32 zof_rename(const char *from, const char *to) {
    return from && to && !fails("rename", to) ? zof_host_rename(from, to) : -1;
}

s64 zof_file_size(const char *path) {
    return path ? zof_host_file_size(path) : -1;
}
