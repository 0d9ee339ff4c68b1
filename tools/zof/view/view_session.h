// The project that a window shows: a player, and a new player for each change of the folder. The picture is replaced
// when the new player has drawn its first frame; until then, and if loading fails, the old one stays. No function
// blocks.
#ifndef VIEW_SESSION_H
#define VIEW_SESSION_H

#include <functional>
#include <string>

#include "view_draw.h"
#include "view_player.h"
#include "view_watch.h"

struct view_session_t {
    std::string dir;
    u32 port; // of a running program, which is shown in place of `dir`; 0 for none
    bool live, loud;
    cJSON *first;     // arguments of the first load: view, language, theme
    cJSON *project;   // reply to the last successful load; null before
    cJSON *state;     // snapshot that the next player receives; null before the first one
    cJSON *restored;  // snapshot of the player on screen just after loading
    std::string note; // the current error or warning; empty while all is well
    bool note_grave;  // the picture is outdated
    view_image_t picture;
    bool drawn;                              // set when the picture has changed; the window clears it
    std::function<void(const cJSON *)> tell; // receives events and replies of the player on screen; may be empty

    std::function<bool()> changed_fn;  // whether a change of the folder needs a new player; empty: each does
    std::vector<view_player_t *> also; // players and a stream that end the wait of a step, too
    stream_t *wake;

    view_player_t shown, next, spare;
    view_watch_t watch;
    std::string message; // first message of the player that is loading
    bool broken;         // it is about a file that cannot be used at all
    s32 load_id;         // id of the `load` command of `next`; 0 while nothing loads
    s32 state_id;        // id of the pending `snapshot` command; 0 if no reply is pending
    s32 picture_id;      // likewise, of `picture`, for a program
    u32 picture_at;
    bool outdated; // the program has drawn since
    u32 changed_at, first_changed_at, load_at;
    bool changed;
    u32 loads; // finished loads
};

// Starts to load the project and, if `watch`, to watch its folder, or connects to the program. Returns an error, or an
// empty text.
std::string view_session_start(view_session_t *session, bool watch);
void view_session_stop(view_session_t *session);

// Waits for events, for at most `ms`, and handles them.
void view_session_step(view_session_t *session, s32 ms);

// Loads the project again, as after a change of its folder.
void view_session_reload(view_session_t *session);

// Sends a command to the player on screen and takes ownership of it. Returns its id, or 0 if there is no player.
s32 view_session_send(view_session_t *session, cJSON *command);

#endif
