#include "stream.h"

#include <cerrno>
#include <cstdlib>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "drv/zof_drv_file.h"

extern char **environ;

enum { SHARED_FD = 3, OUR_FD = 16 }; // of the memory: in the child, and the lowest one in this process

struct stream_t {
    int fd;
};

static stream_t *stream_make(int fd) {
    fcntl(fd, F_SETFL, O_NONBLOCK);
    return new stream_t{fd};
}

stream_t *stream_connect(u32 port) {
    sockaddr_in at = {};
    at.sin_family = AF_INET;
    at.sin_port = htons((u16)port);
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    signal(SIGPIPE, SIG_IGN);
    if (fd >= 0 && connect(fd, (sockaddr *)&at, sizeof(at)) == 0) {
        return stream_make(fd);
    }
    const int fault = errno;
    close(fd);
    errno = fault;
    return nullptr;
}

stream_t *stream_wake_make() {
    return new stream_t{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
}

void stream_wake(stream_t *stream) {
    const u64 one = 1;
    (void)!write(stream->fd, &one, sizeof(one));
}

void stream_wake_clear(stream_t *stream) {
    u64 count = 0;
    (void)!read(stream->fd, &count, sizeof(count));
}

void stream_close(stream_t *stream) {
    if (stream) {
        close(stream->fd);
        delete stream;
    }
}

static bool is_patience() {
    return errno == EAGAIN || errno == EINTR;
}

s32 stream_read(stream_t *stream, void *out, u32 size) {
    const ssize_t n = read(stream->fd, out, size);
    return n > 0 ? (s32)n : n < 0 && is_patience() ? 0 : -1;
}

s32 stream_write(stream_t *stream, const void *data, u32 size) {
    const ssize_t n = write(stream->fd, data, size);
    return n > 0 ? (s32)n : is_patience() ? 0 : -1;
}

void stream_wait(const std::vector<stream_wait_t> &streams, intptr_t other, s32 ms) {
    std::vector<pollfd> files;
    files.reserve(streams.size() + 1);
    for (const auto &[stream, write] : streams) {
        files.push_back({stream->fd, (short)(write ? POLLOUT : POLLIN), 0});
    }
    if (other >= 0) {
        files.push_back({(int)other, POLLIN, 0});
    }
    poll(files.data(), files.size(), ms);
}

// Starts a program with the open files below `kept` alone; those of libraries, such as the sockets of a server, stay
// with this process. Returns 0 with errno if the program cannot be started.
static pid_t spawn(const std::vector<std::string> &words, posix_spawn_file_actions_t *files, s32 kept) {
    std::vector<char *> argv;
    argv.reserve(words.size() + 1);
    for (const std::string &word : words) {
        argv.push_back((char *)word.c_str());
    }
    argv.push_back(nullptr);
    pid_t process = 0;
    posix_spawn_file_actions_addclosefrom_np(files, kept);
    errno = posix_spawnp(&process, argv[0], files, nullptr, argv.data(), environ);
    return errno ? 0 : process;
}

// Our ends of the pipes are not inherited by the next child, which would keep this one's input open.
std::string child_start(child_t *child, const std::vector<std::string> &words, const shared_t *shared, bool quiet) {
    *child = {};
    int in[2];
    int out[2];
    signal(SIGPIPE, SIG_IGN); // a write to a child that has ended must not kill us; its end is noticed when reading
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) {
        return zof_file_error();
    }
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, out[1], STDOUT_FILENO);
    if (shared) {
        posix_spawn_file_actions_adddup2(&files, (int)shared->handle, SHARED_FD);
    }
    if (quiet) {
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    child->process = spawn(words, &files, shared ? SHARED_FD + 1 : SHARED_FD);
    std::string fault = child->process ? "" : words[0] + ": " + zof_file_error();
    posix_spawn_file_actions_destroy(&files);
    close(in[0]);
    close(out[1]);
    child->input = stream_make(in[1]);
    child->output = stream_make(out[0]);
    if (!fault.empty()) {
        child_kill(child);
    }
    return fault;
}

s32 child_end(child_t *child, std::string *text) {
    int status = 0;
    if (child->process && waitpid((pid_t)child->process, &status, 0) == child->process) {
        child->process = 0;
    }
    *text = WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                : "status " + std::to_string(WEXITSTATUS(status));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

void child_kill(child_t *child) {
    if (child->process) {
        kill((pid_t)child->process, SIGKILL);
        waitpid((pid_t)child->process, nullptr, 0);
    }
    stream_close(child->input);
    if (child->output != child->input) {
        stream_close(child->output);
    }
    *child = {};
}

// The arguments are those that most editors understand.
void editor_start(const std::string &command, const std::string &file, s32 line) {
    static std::vector<pid_t> started;
    const bool colons = command.find("code") != std::string::npos;
    const std::string number = std::to_string(line);
    const std::string place = colons ? "-g '" + file + ":" + number + "'" : "+" + number + " '" + file + "'";
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const pid_t process = spawn({"/bin/sh", "-c", command + " " + place}, &files, STDERR_FILENO + 1);
    posix_spawn_file_actions_destroy(&files);
    std::erase_if(started, [](pid_t editor) { return waitpid(editor, nullptr, WNOHANG) != 0; });
    if (process) {
        started.push_back(process);
    }
}

void browser_open(const std::string &address) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    spawn({"xdg-open", address}, &files, STDERR_FILENO + 1);
    posix_spawn_file_actions_destroy(&files);
}

FILE *output_take() {
    FILE *out = fdopen(dup(STDOUT_FILENO), "w");
    dup2(STDERR_FILENO, STDOUT_FILENO);
    return out;
}

void variable_set(const char *name, const char *value) {
    setenv(name, value, 1); // NOLINT(concurrency-mt-unsafe): by contract no other thread runs
}

// The number is high, so that it does not collide with those that a child's files get.
bool shared_start(shared_t *shared) {
    const int low = memfd_create("zof picture", MFD_CLOEXEC);
    *shared = {.handle = fcntl(low, F_DUPFD_CLOEXEC, OUR_FD), .name = "/proc/self/fd/" + std::to_string(SHARED_FD)};
    close(low);
    return shared->handle >= 0;
}

const void *shared_map(shared_t *shared) {
    struct stat st = {};
    if (!shared->map && fstat((int)shared->handle, &st) == 0 && st.st_size > 0) {
        void *map = mmap(nullptr, (size_t)st.st_size, PROT_READ, MAP_SHARED, (int)shared->handle, 0);
        shared->map = map == MAP_FAILED ? nullptr : map;
        shared->size = (size_t)st.st_size;
    }
    return shared->map;
}

void shared_stop(shared_t *shared) {
    if (shared->map) {
        munmap((void *)shared->map, shared->size);
    }
    if (shared->handle > 0) {
        close((int)shared->handle);
    }
    *shared = {};
}

void *shared_create(const char *name, size_t size) {
    const int fd = open(name, O_RDWR | O_CLOEXEC);
    void *memory = MAP_FAILED;
    if (fd >= 0 && ftruncate(fd, (off_t)size) == 0) {
        memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
    }
    if (fd >= 0) {
        close(fd);
    }
    return memory == MAP_FAILED ? nullptr : memory;
}
