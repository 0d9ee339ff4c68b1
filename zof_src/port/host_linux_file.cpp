// Linux: opening files, and changes that must survive a power cut.
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include "port/host_linux_line.h"
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

s32 zof_program_path(char *out, size_t size) {
    return zof_host_real_path("/proc/self/exe", out, size);
}

// The kernel has resolved the path once it is open: three calls for any length.
s32 zof_host_real_path(const char *path, char *out, size_t size) {
    const int fd = open(path, O_PATH | O_CLOEXEC);
    char link[40];
    snprintf(link, sizeof(link), "/proc/self/fd/%d", fd);
    const ssize_t n = fd >= 0 ? readlink(link, out, size) : -1;
    if (fd >= 0) {
        close(fd);
    }
    if (n < 0 || (size_t)n >= size) {
        return -1;
    }
    out[n] = '\0';
    return 0;
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

// The kernel's table names the process that holds each lock: "1: FLOCK ADVISORY WRITE 4711 08:01:131 0 EOF".
u32 host_lock_holder(const struct stat *file) {
    FILE *locks = fopen("/proc/locks", "re");
    char line[160];
    unsigned holder = 0;
    while (locks && fgets(line, sizeof(line), locks)) {
        unsigned process, major, minor;
        unsigned long inode;
        if (sscanf(line, "%*s FLOCK %*s %*s %u %x:%x:%lu", &process, &major, &minor, &inode) == 4 &&
            inode == file->st_ino && makedev(major, minor) == file->st_dev) {
            holder = process;
        }
    }
    if (locks) {
        fclose(locks);
    }
    return holder;
}

static void holder_find(int fd, char *holder, size_t size) {
    struct stat st;
    const u32 process = fstat(fd, &st) == 0 ? host_lock_holder(&st) : 0;
    if (process) {
        snprintf(holder, size, "process %u", process);
    } else {
        snprintf(holder, size, "another program");
    }
}

// Locks the folder itself: a file created for the lock would stay on the medium.
s32 zof_host_folder_lock(const char *path, char *holder, size_t size) {
    const int fd = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0 || flock(fd, LOCK_EX | LOCK_NB) == 0) {
        return fd > 0 ? fd : -1;
    }
    const bool held = errno == EWOULDBLOCK;
    if (held) {
        holder_find(fd, holder, size);
    }
    close(fd);
    return held ? 0 : -1;
}

void zof_folder_unlock(s32 lock) {
    if (lock > 0) {
        close(lock);
    }
}

s32 zof_host_file_sync(FILE *f) {
    return fflush(f) == 0 && fsync(fileno(f)) == 0 ? 0 : -1;
}

// The next write follows at the new end.
s32 zof_host_file_cut(FILE *f, u64 size) {
    return ftruncate(fileno(f), (off_t)size) == 0 && fseek(f, (long)size, SEEK_SET) == 0 ? 0 : -1;
}

void zof_host_folder_sync(const char *path) {
    const int fd = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        fsync(fd); // some file systems do not support it for folders
        close(fd);
    }
}

s32 zof_host_exchange(const char *a, const char *b) {
    return renameat2(AT_FDCWD, a, AT_FDCWD, b, RENAME_EXCHANGE) == 0 ? 0 : -1;
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

const char *zof_file_error(void) {
    static thread_local char text[96];
    return strerror_r(errno, text, sizeof(text));
}
