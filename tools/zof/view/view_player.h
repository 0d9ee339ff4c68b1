// A player as a child process: JSON lines over pipes, the picture in shared memory; see docs/player.md. Or a running
// program, over a connection and without shared memory. Functions do not wait unless documented, so that a window never
// hangs because of its player. All calls must come from one thread.
#ifndef VIEW_PLAYER_H
#define VIEW_PLAYER_H

#include <functional>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "../../system/stream.h"

struct view_player_t {
    child_t child;   // of a program only its streams, which are one connection
    shared_t shared; // the picture
    std::string unsent, unread;
    s32 next_id;
    std::string ended; // why it ended, such as "signal 11"; empty while it runs
};

// Called for each line. The callee must not delete the value.
typedef std::function<void(const cJSON *)> view_line_fn;

// Starts a player. If `loud`, its log appears on our error stream. Returns an error, or an empty text.
std::string view_player_start(view_player_t *player, bool live, bool loud);

// Connects to the port of a running program. Returns an error, or an empty text. The first command is then
// view_player_hello.
std::string view_player_attach(view_player_t *player, u32 port);

// Returns the command that shows the program at a port the token of its file, or an empty one if there is no such file.
cJSON *view_player_hello(u32 port);

// Returns true while the player runs, or the connection is open.
bool view_player_runs(const view_player_t *player);

// Kills the player, or closes the connection, and releases everything.
void view_player_stop(view_player_t *player);

// Sends a command and takes ownership of it. Returns the id that the reply will have.
s32 view_player_send(view_player_t *player, cJSON *command);

// Reads available lines and sends pending ones, without waiting. Returns false and sets `ended` if the player has
// ended.
bool view_player_poll(view_player_t *player, const view_line_fn &line);

// Waits until one of the players is ready, or the handle `other` unless it is -1, or `wake` unless it is null, for at
// most `ms`.
void view_player_wait(const std::vector<view_player_t *> &players, intptr_t other, s32 ms, stream_t *wake = nullptr);

// Sends a command and waits for its reply, which the caller deletes. Returns null if the player has ended or does not
// answer for 60 seconds. Events received meanwhile are passed to `event`.
cJSON *view_player_call(view_player_t *player, cJSON *command, const view_line_fn &event);

// Copies the picture in shared memory, 0xFFRRGGBB. Returns false before the first frame.
bool view_player_picture(view_player_t *player, std::vector<u32> *pixels, s32 *width, s32 *height);

// Returns a new command: {"do": name}.
cJSON *view_command(const char *name);

#endif
