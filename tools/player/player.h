// The player: runs a project folder with the real runtime and no application, draws into shared memory, and executes
// lines of JSON from its standard input. A process loads one project; to reload it, start a new player.
#ifndef PLAYER_H
#define PLAYER_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "hmi/zof_hmi_cmd.h"
#include "player_frame.h"
#include "project/base/zof_para.h"
#include "project/base/zof_prj_cur.h"

// All functions run on the main thread, under dis_mutex once a project is loaded, unless noted otherwise.

// Command line options.
struct player_options_t {
    bool live;          // real time and the serial link; if false, only commands advance the time
    std::string shared; // file of the shared memory; empty for none
};
extern player_options_t player_options;

// player_io.cpp ------------------------------------------------------------------------------------------------------
enum { PLAYER_LINE_MAX = 1 << 20 }; // bytes of a line

// Reserves the standard output for the protocol; other output goes to the error stream. Call it first.
void player_io_init();

// Waits for a line and stores it without its line end. Returns 1, 0 at the end of the input, or -1 for a line that is
// too long, whose rest is skipped. Call it from one thread only.
int player_line_read(std::string *line);

// Prints a value as a line and deletes it. Any thread may call it.
void player_send(cJSON *value);

// Returns an object {"event": name}, which the caller completes and sends.
cJSON *player_event(const char *name);

// player_command.cpp -------------------------------------------------------------------------------------------------
// A command. `run` adds members to the reply and returns an error text, empty on success.
struct player_command_t {
    const char *name;
    const char *args; // names separated by spaces; a trailing "?" marks an optional one
    const char *help; // one line
    std::string (*run)(const cJSON *args, cJSON *reply);
    bool early; // allowed before a project is loaded
};
extern const player_command_t player_commands[];
extern const size_t player_command_count;

// Executes a line and sends its events and one reply.
void player_line_run(const std::string &line);

// Returns true after `quit` was executed.
bool player_ended();

// Return an argument: a text or null, and an integer or `absent`.
const char *player_text(const cJSON *args, const char *name);
s32 player_number(const cJSON *args, const char *name, s32 absent);

// player_start.cpp ---------------------------------------------------------------------------------------------------
// Starts the runtime with the project folder `dir` or its subfolder `res`. Returns an error text, empty on success.
std::string player_start(const char *dir);
bool player_started();

// Advances the virtual clock in the steps of the main loop.
void player_clock_advance(u32 ms);
void player_clock_init();

// Requests a theme. A theme can be set only once a control with a theme exists, so the request is repeated when a view
// is shown. Returns an error text, empty on success.
std::string player_theme_set(const char *name);
const std::string &player_theme(); // empty if the themes of the view files are used
std::string player_lang_set(const char *name);

std::string player_view_show(u32 id);

// Sends an event if another view is shown than at the last call, for example because a host has changed it.
void player_view_note();

// Returns the sorted names of a project folder's subfolders if `folders`, otherwise of its ".g" files without ".g".
std::vector<std::string> player_names(const char *folder, bool folders);

// Returns the views that are shown, topmost layer first.
std::vector<zof_view_node_t *> player_views_shown();

// player_name.cpp ----------------------------------------------------------------------------------------------------
// The path of a control is "home/brew", or "home/#12" if its name is missing or not unique.
std::string player_view_name(u32 id);
u32 player_view_find(const cJSON *name); // by id, or by file name with or without ".g"; 0 if there is no such view
std::string player_path(u32 view, u32 ctrl);
para_t *player_control(const char *path, u32 *view); // loads the view; returns null if there is no such control

// player_tree.cpp ----------------------------------------------------------------------------------------------------
cJSON *player_tree(zof_view_node_t *view);
cJSON *player_hit(s32 x, s32 y);

// player_review.cpp --------------------------------------------------------------------------------------------------
// Adds "views" and "texts" to a reply, see player_review.h.
void player_review(cJSON *reply);

// player_value.cpp: values by rows of the host protocol, "label.text" ------------------------------------------------
std::string player_set(const cJSON *args);
std::string player_row_of(const char *type); // returns "slider.value" for "slider"; empty if there is no row
void player_writes_watch();                  // starts to keep the values that a host writes
cJSON *player_snapshot();                    // views, language, theme, scroll positions, written values
std::string player_restore(const cJSON *state);

// player_message.cpp: faults of files become events ------------------------------------------------------------------
void player_messages_init();

// player_place.cpp ---------------------------------------------------------------------------------------------------
// Adds "place" and "styles" to a control: where they are in the project's files.
void player_places_add(cJSON *out, const zof_view_node_t *view, const para_t *record);

#endif
