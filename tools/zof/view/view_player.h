// A player as a child process: lines of JSON by pipes, the picture in shared memory. See docs/player.md. Nothing here
// waits for the child unless it says so, so that a window stays alive whatever its player does. One thread.
#ifndef VIEW_PLAYER_H
#define VIEW_PLAYER_H

#include <functional>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "zof_lib/zof_type.h"

struct view_player_t {
    s32 process;       // 0: none
    s32 input, output; // our ends of its pipes
    s32 shared;        // the file of the picture
    const void *map;   // the mapped picture, null before the first frame
    size_t map_size;
    std::string unsent, unread;
    s32 next_id;
    std::string ended; // why it has ended, "signal 11"; empty while it runs
};

// Called for each line; the value is the caller's.
typedef std::function<void(const cJSON *)> view_line_fn;

// Starts a player; with `loud` its log appears on our error stream. Returns what is wrong.
std::string view_player_start(view_player_t *player, bool live, bool loud);

// Ends it at once, and releases everything.
void view_player_stop(view_player_t *player);

// Sends a command, which becomes the player's; returns the id that its reply will have.
s32 view_player_send(view_player_t *player, cJSON *command);

// Reads what has come, without waiting, and sends what could not be sent before. Returns false, with `ended`, when the
// player has ended.
bool view_player_poll(view_player_t *player, const view_line_fn &line);

// Waits until one of these players has something to read, or one of the further files has, at most so long.
void view_player_wait(const std::vector<view_player_t *> &players, s32 other, s32 ms);

// Sends a command and waits for its reply, which the caller deletes; null when the player has ended, or has not
// answered for 60 seconds. Events on the way are passed on.
cJSON *view_player_call(view_player_t *player, cJSON *command, const view_line_fn &event);

// Copies the picture, 0xFFRRGGBB. Returns false if there is none.
bool view_player_picture(view_player_t *player, std::vector<u32> *pixels, s32 *width, s32 *height);

// Starts a program without waiting for it.
void view_run(const std::vector<std::string> &words);

// Makes a command: {"do": name}.
cJSON *view_command(const char *name);

#endif
