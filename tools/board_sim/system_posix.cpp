#include "system.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

std::vector<int> system_end_signals() {
    return {SIGINT, SIGTERM, SIGHUP};
}

long system_process_id() {
    return getpid();
}

bool system_process_runs(long id) {
    return kill((pid_t)id, 0) == 0 || errno != ESRCH;
}

FILE *system_file_create(const std::string &path) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    return fd < 0 ? nullptr : fdopen(fd, "w");
}

bool system_file_sync(FILE *f) {
    return fsync(fileno(f)) == 0;
}
