#include "view_player.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>

#include "drv/zof_drv_file.h"
#include "drv/zof_drv_net.h"
#include "inspect/zof_inspect.h"
#include "zof_lib/zof_stdio.h"

#include "../../player/player_frame.h"

enum { CALL_MS = 60000, TRIES = 100, TOKEN_MAX = 64 };

// Returns the path of the player, which is beside this program in the build tree and when installed.
static std::string program() {
    const char *given = getenv("ZOF_PLAYER");
    char self[1024] = "";
    zof_program_path(self, sizeof(self));
    const std::string path = self;
    const size_t name = path.find_last_of('/') + 1;
    const std::string suffix = path.ends_with(".exe") ? ".exe" : "";
    return given ? given : path.substr(0, name) + "zof_player" + suffix;
}

std::string view_player_start(view_player_t *player, bool live, bool loud) {
    *player = {};
    if (!shared_start(&player->shared)) {
        return zof_file_error();
    }
    std::vector<std::string> words = {program(), "--shared", player->shared.name};
    if (live) {
        words.push_back("--live");
    }
    player->ended = child_start(&player->child, words, &player->shared, !loud);
    return player->ended;
}

std::string view_player_attach(view_player_t *player, u32 port) {
    *player = {};
    player->child.input = player->child.output = stream_connect(port);
    if (!player->child.input) {
        player->ended = "127.0.0.1:" + std::to_string(port) + ": " + zof_file_error();
    }
    return player->ended;
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
    return player->child.output && player->ended.empty();
}

void view_player_stop(view_player_t *player) {
    child_kill(&player->child);
    shared_stop(&player->shared);
    *player = {};
}

// Sends as much as fits. If the player has ended, the lines stay unsent; its output reports the end.
static void unsent_send(view_player_t *player) {
    s32 n = 1;
    while (n > 0 && player->child.input && !player->unsent.empty()) {
        n = stream_write(player->child.input, player->unsent.data(), (u32)player->unsent.size());
        player->unsent.erase(0, (size_t)std::max(n, 0));
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
    if (player->child.process) {
        child_end(&player->child, &player->ended);
    } else {
        player->ended = "it closed the connection";
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
    s32 n = 0;
    while ((n = stream_read(player->child.output, piece, sizeof(piece))) > 0) {
        player->unread.append(piece, (size_t)n);
    }
    lines_take(player, fn);
    if (n < 0) {
        end_note(player);
    }
    return n == 0;
}

void view_player_wait(const std::vector<view_player_t *> &players, intptr_t other, s32 ms, stream_t *wake) {
    std::vector<stream_wait_t> streams;
    if (wake) {
        streams.push_back({wake, false});
    }
    for (const view_player_t *player : players) {
        if (view_player_runs(player)) {
            streams.push_back({player->child.output, false});
        }
        if (view_player_runs(player) && !player->unsent.empty()) {
            streams.push_back({player->child.input, true});
        }
    }
    stream_wait(streams, other, ms);
}

cJSON *view_player_call(view_player_t *player, cJSON *command, const view_line_fn &event) {
    using clock = std::chrono::steady_clock;
    const auto end = clock::now() + std::chrono::milliseconds(CALL_MS);
    const s32 id = view_player_send(player, command);
    cJSON *reply = nullptr;
    const auto take = [&](const cJSON *line) {
        const cJSON *of = cJSON_GetObjectItem(line, "id");
        const bool refused = !player->child.process && !of && cJSON_GetObjectItem(line, "error"); // by a program
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
    const auto *head = (const player_frame_t *)shared_map(&player->shared);
    const size_t size = player->shared.size;
    const bool good = head && size > sizeof(*head) && head->magic == PLAYER_MAGIC &&
                      head->offset + (size_t)head->stride * head->height <= size;
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
