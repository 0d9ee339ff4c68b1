// Linux and browsers: opening files, and changes that must survive a power cut.
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "port/zof_host.h"

u32 zof_host_file_kind(const char *path) {
    struct stat st;
    if (lstat(path, &st) != 0) {
        return errno == ENOENT || errno == ENOTDIR ? ZOF_FILE_NONE : ZOF_FILE_OTHER;
    }
    if (S_ISREG(st.st_mode)) {
        return ZOF_FILE_PLAIN;
    }
    return S_ISDIR(st.st_mode) ? ZOF_FILE_FOLDER : ZOF_FILE_OTHER;
}

static FILE *stream(int fd, const char *mode) {
    FILE *f = fd >= 0 ? fdopen(fd, mode) : nullptr;
    if (!f && fd >= 0) {
        close(fd);
    }
    return f;
}

// Checked before the file is opened, because opening a device may start it (a watchdog, a tape), and again afterwards,
// because the name may refer to something else by then. O_NONBLOCK only matters for a pipe that appears in between.
static int regular_open(const char *path, int flags) {
    struct stat st;
    if (stat(path, &st) == 0 && !S_ISREG(st.st_mode)) {
        errno = EINVAL;
        return -1;
    }
    const int fd = open(path, flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (fd >= 0 && (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode))) {
        close(fd);
        errno = EINVAL;
        return -1;
    }
    return fd;
}

FILE *zof_host_file_read_open(const char *path) {
    return stream(regular_open(path, O_RDONLY), "rb");
}

// Emptied only when it is known to be a regular file.
FILE *zof_host_file_write_open(const char *path, zof_bool keep) {
    const int fd = regular_open(path, O_RDWR | (keep ? 0 : O_CREAT));
    if (fd >= 0 && !keep && ftruncate(fd, 0) != 0) {
        close(fd);
        return nullptr;
    }
    return stream(fd, keep ? "rb+" : "wb");
}

FILE *zof_host_file_open(const char *path) {
    return stream(regular_open(path, O_RDONLY | O_NOFOLLOW), "rb");
}

FILE *zof_host_file_create(const char *path) {
    FILE *f = stream(open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666), "wb");
    if (f) {
        setvbuf(f, nullptr, _IONBF, 0); // a failing write must fail in its own call
    }
    return f;
}

void zof_file_path_take(char *path) {
    (void)path; // it has that form
}

zof_bool zof_host_is_absolute(const char *path) {
    return path[0] == '/' ? ZOF_TRUE : ZOF_FALSE;
}

u32 zof_host_process_id(void) {
    return (u32)getpid();
}

zof_bool zof_host_process_runs(u32 id) {
    return kill((pid_t)id, 0) == 0 || errno == EPERM;
}

// The next write follows at the new end.
s32 zof_host_file_cut(FILE *f, u64 size) {
    return ftruncate(fileno(f), (off_t)size) == 0 && fseek(f, (long)size, SEEK_SET) == 0 ? 0 : -1;
}

s32 zof_host_remove(const char *path) {
    return remove(path) == 0 ? 0 : -1;
}

s32 zof_host_file_stamp(const char *path, zof_file_stamp_t *out) {
    struct stat st;
    if (stat(path, &st) != 0) {
        return -1;
    }
    *out = {(u64)st.st_size, (s64)st.st_mtim.tv_sec * 1000000000 + st.st_mtim.tv_nsec, st.st_dev, st.st_ino};
    return 0;
}
