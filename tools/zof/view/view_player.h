// A player as a child process: JSON lines over pipes, the picture in shared memory; see docs/player.md. Functions do
// not wait for the child unless documented, so that a window never hangs because of its player. All calls must come
// from one thread.
#ifndef VIEW_PLAYER_H
#define VIEW_PLAYER_H

#include <functional>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "zof_lib/zof_type.h"

struct view_player_t {
    s32 process;       // 0 if none is running
    s32 input, output; // our ends of its pipes
    s32 shared;        // file that holds the picture
    const void *map;   // the mapped picture, null before the first frame
    size_t map_size;
    std::string unsent, unread;
    s32 next_id;
    std::string ended; // why it ended, such as "signal 11"; empty while it runs
};

// Called for each line. The callee must not delete the value.
typedef std::function<void(const cJSON *)> view_line_fn;

// Starts a player. If `loud`, its log appears on our error stream. Returns an error, or an empty text.
std::string view_player_start(view_player_t *player, bool live, bool loud);

// Kills the player and releases everything.
void view_player_stop(view_player_t *player);

// Sends a command and takes ownership of it. Returns the id that the reply will have.
s32 view_player_send(view_player_t *player, cJSON *command);

// Reads available lines and sends pending ones, without waiting. Returns false and sets `ended` if the player has
// ended.
bool view_player_poll(view_player_t *player, const view_line_fn &line);

// Waits until one of the players, or the file `other` unless it is -1, is ready, for at most `ms`.
void view_player_wait(const std::vector<view_player_t *> &players, s32 other, s32 ms);

// Sends a command and waits for its reply, which the caller deletes. Returns null if the player has ended or does not
// answer for 60 seconds. Events received meanwhile are passed to `event`.
cJSON *view_player_call(view_player_t *player, cJSON *command, const view_line_fn &event);

// Copies the picture, 0xFFRRGGBB. Returns false if there is no picture yet.
bool view_player_picture(view_player_t *player, std::vector<u32> *pixels, s32 *width, s32 *height);

// Starts a program without waiting for it.
void view_run(const std::vector<std::string> &words);

// Returns a new command: {"do": name}.
cJSON *view_command(const char *name);

#endif
