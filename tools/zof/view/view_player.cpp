#include "view_player.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "drv/zof_drv_file.h"
#include "drv/zof_drv_net.h"
#include "inspect/zof_inspect.h"
#include "zof_lib/zof_stdio.h"

#include "../../player/player_frame.h"

extern char **environ;

enum { CALL_MS = 60000, SHARED_FD = 3, TRIES = 100, TOKEN_MAX = 64 };

// Returns the path of the player, which is beside this program in the build tree and when installed.
static std::string program() {
    const char *given = getenv("ZOF_PLAYER");
    char self[512];
    const ssize_t n = readlink("/proc/self/exe", self, sizeof(self) - 1);
    const std::string path(self, n > 0 ? (size_t)n : 0);
    return given ? given : path.substr(0, path.find_last_of('/') + 1) + "zof_player";
}

static s32 spawn(const std::string &path, bool live, bool loud, s32 in, s32 out, s32 shared) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_adddup2(&files, in, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&files, out, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, shared, SHARED_FD);
    if (!loud) {
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    const char *words[] = {path.c_str(), "--shared", "/proc/self/fd/3", live ? "--live" : nullptr, nullptr};
    pid_t process = 0;
    const int fault = posix_spawn(&process, path.c_str(), &files, nullptr, (char *const *)words, environ);
    posix_spawn_file_actions_destroy(&files);
    errno = fault;
    return fault ? 0 : process;
}

// Starts a player. Our ends of the pipes do not block. They are not inherited by the next player, which would keep this
// one's input open.
std::string view_player_start(view_player_t *player, bool live, bool loud) {
    *player = {};
    int in[2];
    int out[2];
    signal(SIGPIPE, SIG_IGN); // a write to a player that has ended must not kill us; its end is noticed when reading
    if (pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) {
        return zof_file_error();
    }
    // Moves the descriptor to a high number, so that it does not collide with those that the child's files get.
    const int low = memfd_create("zof picture", MFD_CLOEXEC);
    player->shared = fcntl(low, F_DUPFD_CLOEXEC, 16);
    close(low);
    const std::string path = program();
    player->process = spawn(path, live, loud, in[0], out[1], player->shared);
    std::string fault = player->process ? "" : path + ": " + zof_file_error();
    close(in[0]);
    close(out[1]);
    player->input = in[1];
    player->output = out[0];
    fcntl(player->input, F_SETFL, O_NONBLOCK);
    fcntl(player->output, F_SETFL, O_NONBLOCK);
    player->ended = fault;
    return fault;
}

std::string view_player_attach(view_player_t *player, u32 port) {
    *player = {};
    sockaddr_in at = {};
    at.sin_family = AF_INET;
    at.sin_port = htons((u16)port);
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    signal(SIGPIPE, SIG_IGN);
    if (fd < 0 || connect(fd, (sockaddr *)&at, sizeof(at)) != 0) {
        player->ended = "127.0.0.1:" + std::to_string(port) + ": " + zof_file_error();
        close(fd);
        return player->ended;
    }
    player->input = fd;
    player->output = fcntl(fd, F_DUPFD_CLOEXEC, 0);
    fcntl(fd, F_SETFL, O_NONBLOCK);
    return "";
}

cJSON *view_player_hello(u32 port) {
    char name[32];
    char path[512];
    u32 size = 0;
    const char *why = nullptr;
    cJSON *command = view_command("hello");
    snprintf(name, sizeof(name), ZOF_INSPECT_FILE, port);
    const bool known = zof_net_private_path(path, sizeof(path), name, ZOF_FALSE) == 0;
    u8 *token = known ? zof_file_read_all(path, TOKEN_MAX, &size, &why) : nullptr;
    cJSON_AddStringToObject(command, "token", std::string((const char *)token, size).c_str());
    zof_free(token);
    return command;
}

bool view_player_runs(const view_player_t *player) {
    return player->output > 0 && player->ended.empty();
}

void view_player_stop(view_player_t *player) {
    if (player->map) {
        munmap((void *)player->map, player->map_size);
    }
    if (player->process) {
        kill(player->process, SIGKILL);
        waitpid(player->process, nullptr, 0);
    }
    for (const s32 fd : {player->input, player->output, player->shared}) {
        if (fd > 0) {
            close(fd);
        }
    }
    *player = {};
}

// Sends as much as fits. If the player has ended, the lines stay unsent; its output reports the end.
static void unsent_send(view_player_t *player) {
    while (!player->unsent.empty()) {
        const ssize_t n = write(player->input, player->unsent.data(), player->unsent.size());
        if (n <= 0) {
            return;
        }
        player->unsent.erase(0, (size_t)n);
    }
}

cJSON *view_command(const char *name) {
    cJSON *command = cJSON_CreateObject();
    cJSON_AddStringToObject(command, "do", name);
    return command;
}

s32 view_player_send(view_player_t *player, cJSON *command) {
    const s32 id = ++player->next_id;
    cJSON_AddNumberToObject(command, "id", id);
    char *text = cJSON_PrintUnformatted(command);
    player->unsent += std::string(text) + "\n";
    cJSON_free(text);
    cJSON_Delete(command);
    unsent_send(player);
    return id;
}

static void end_note(view_player_t *player) {
    int status = 0;
    if (!player->process) {
        player->ended = "it has closed the connection";
    } else if (waitpid(player->process, &status, 0) == player->process) {
        player->process = 0;
        player->ended = WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                            : "status " + std::to_string(WEXITSTATUS(status));
    }
}

static void lines_take(view_player_t *player, const view_line_fn &fn) {
    size_t end = 0;
    while ((end = player->unread.find('\n')) != std::string::npos) {
        cJSON *line = cJSON_ParseWithLength(player->unread.data(), end);
        player->unread.erase(0, end + 1);
        if (line) {
            fn(line);
        }
        cJSON_Delete(line);
    }
}

bool view_player_poll(view_player_t *player, const view_line_fn &fn) {
    char piece[65536];
    if (!view_player_runs(player)) {
        return false;
    }
    unsent_send(player);
    ssize_t n = 0;
    while ((n = read(player->output, piece, sizeof(piece))) > 0) {
        player->unread.append(piece, (size_t)n);
    }
    const bool over = n == 0 || (errno != EAGAIN && errno != EINTR);
    lines_take(player, fn);
    if (over) {
        end_note(player);
    }
    return !over;
}

void view_player_wait(const std::vector<view_player_t *> &players, s32 other, s32 ms) {
    std::vector<pollfd> files;
    for (const view_player_t *player : players) {
        if (view_player_runs(player)) {
            files.push_back({player->output, POLLIN, 0});
        }
        if (view_player_runs(player) && !player->unsent.empty()) {
            files.push_back({player->input, POLLOUT, 0});
        }
    }
    if (other >= 0) {
        files.push_back({other, POLLIN, 0});
    }
    poll(files.data(), files.size(), ms);
}

cJSON *view_player_call(view_player_t *player, cJSON *command, const view_line_fn &event) {
    using clock = std::chrono::steady_clock;
    const auto end = clock::now() + std::chrono::milliseconds(CALL_MS);
    const s32 id = view_player_send(player, command);
    cJSON *reply = nullptr;
    const auto take = [&](const cJSON *line) {
        const cJSON *of = cJSON_GetObjectItem(line, "id");
        const bool refused = !player->process && !of && cJSON_GetObjectItem(line, "error"); // by a program
        if (refused || (cJSON_IsNumber(of) && of->valueint == id)) {
            cJSON_Delete(reply);
            reply = cJSON_Duplicate(line, 1);
        } else if (event) {
            event(line);
        }
    };
    while (!reply && view_player_poll(player, take) && clock::now() < end) {
        if (!reply) {
            view_player_wait({player}, -1, 1000);
        }
    }
    return reply;
}

static const player_frame_t *head_map(view_player_t *player) {
    struct stat st = {};
    if (!player->map && player->shared > 0 && fstat(player->shared, &st) == 0 &&
        (size_t)st.st_size > sizeof(player_frame_t)) {
        void *map = mmap(nullptr, (size_t)st.st_size, PROT_READ, MAP_SHARED, player->shared, 0);
        player->map = map == MAP_FAILED ? nullptr : map;
        player->map_size = (size_t)st.st_size;
    }
    const auto *head = (const player_frame_t *)player->map;
    const bool good =
        head && head->magic == PLAYER_MAGIC && head->offset + (size_t)head->stride * head->height <= player->map_size;
    return good ? head : nullptr;
}

bool view_player_picture(view_player_t *player, std::vector<u32> *pixels, s32 *width, s32 *height) {
    const player_frame_t *head = head_map(player);
    if (!head) {
        return false;
    }
    *width = (s32)head->width;
    *height = (s32)head->height;
    pixels->resize((size_t)*width * (size_t)*height);
    const std::atomic_ref<uint32_t> sequence(const_cast<player_frame_t *>(head)->sequence);
    // If the player never stops drawing, the picture is torn; the next one replaces it.
    for (s32 i = 0; i < TRIES; i++) {
        const uint32_t before = sequence.load();
        memcpy(pixels->data(), (const u8 *)head + head->offset, pixels->size() * sizeof(u32));
        if (before % 2 == 0 && sequence.load() == before) {
            break;
        }
    }
    return true;
}

void view_run(const std::vector<std::string> &words) {
    std::vector<char *> argv;
    argv.reserve(words.size() + 1);
    for (const std::string &word : words) {
        argv.push_back((char *)word.c_str());
    }
    argv.push_back(nullptr);
    pid_t process = 0;
    posix_spawnp(&process, argv[0], nullptr, nullptr, argv.data(), environ);
    while (waitpid(-1, nullptr, WNOHANG) > 0) { // reap programs that were started earlier
    }
}
