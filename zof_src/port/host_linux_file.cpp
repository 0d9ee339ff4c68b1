// Linux: paths as the kernel resolves them, and locks.
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

s32 zof_host_exchange(const char *a, const char *b) {
    return renameat2(AT_FDCWD, a, AT_FDCWD, b, RENAME_EXCHANGE) == 0 ? 0 : -1;
}

s32 zof_host_file_sync(FILE *f) {
    return fflush(f) == 0 && fsync(fileno(f)) == 0 ? 0 : -1;
}

void zof_host_folder_sync(const char *path) {
    const int fd = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        fsync(fd); // some file systems do not support it for folders
        close(fd);
    }
}

const char *zof_file_error(void) {
    static thread_local char text[96];
    return strerror_r(errno, text, sizeof(text));
}
