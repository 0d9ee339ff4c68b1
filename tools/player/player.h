// The player: runs a project folder with the real runtime and no application, draws into shared memory, and does what
// lines of JSON on its standard input say. A process loads one project; to reload it, start a new player.
#ifndef PLAYER_H
#define PLAYER_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "hmi/zof_hmi_cmd.h"
#include "player_frame.h"
#include "project/base/zof_para.h"
#include "project/base/zof_prj_cur.h"

// Main thread, under dis_mutex once a project is loaded, unless noted otherwise.

// Options of the command line.
struct player_options_t {
    bool live;          // real time and the serial link; otherwise only commands advance the time
    std::string shared; // file of the shared memory; empty without one
};
extern player_options_t player_options;

// player_io.cpp ------------------------------------------------------------------------------------------------------
enum { PLAYER_LINE_MAX = 1 << 20 }; // bytes of a line

// Reserves standard output for the protocol; other output goes to the error stream. Call first.
void player_io_init();

// Waits for a line and stores it without its line end. Returns 1; 0 at the end of the input; -1 for a line that is too
// long, the rest of which is skipped. Call from one thread only.
int player_line_read(std::string *line);

// Prints a value as a line and deletes it. Any thread.
void player_send(cJSON *value);

// Returns an object {"event": name} for the caller to complete and send.
cJSON *player_event(const char *name);

// player_command.cpp -------------------------------------------------------------------------------------------------
// A command. Adds members to the reply. Returns an error text, empty on success.
struct player_command_t {
    const char *name;
    const char *args; // names separated by spaces; a trailing "?" marks an optional one
    const char *help; // one line
    std::string (*run)(const cJSON *args, cJSON *reply);
    bool early; // allowed before a project is loaded
};
extern const player_command_t player_commands[];
extern const size_t player_command_count;

// Executes a line, and sends the events that it causes and one reply.
void player_line_run(const std::string &line);

// Returns whether `quit` was executed.
bool player_ended();

// Argument access: a text, or null; an integer, or `absent`.
const char *player_text(const cJSON *args, const char *name);
s32 player_number(const cJSON *args, const char *name, s32 absent);

// player_start.cpp ---------------------------------------------------------------------------------------------------
// Starts the runtime with a project folder: `dir`, or its `res`. Returns an error text, empty on success.
std::string player_start(const char *dir);
bool player_started();

// Advances the virtual clock in the steps of the main loop.
void player_clock_advance(u32 ms);
void player_clock_init();

// Requests a theme. A theme can only be chosen once a control with a theme exists, so the request is repeated when a
// view is shown. Returns an error text, empty on success.
std::string player_theme_set(const char *name);
const std::string &player_theme(); // empty: those of the view files
std::string player_lang_set(const char *name);

std::string player_view_show(u32 id);

// Sends an event if the view has changed since the last call, for example by a host.
void player_view_note();

// Names of the files of a folder of the project without their ".g", or of its folders, sorted.
std::vector<std::string> player_names(const char *folder, bool folders);

// The views that are shown, the topmost layer first.
std::vector<zof_view_node_t *> player_views_shown();

// player_name.cpp: controls have paths, "home/brew", or "home/#12" when the name is missing or not unique
// --------------
std::string player_view_name(u32 id);
u32 player_view_find(const cJSON *name); // by id, file name with or without ".g"; 0 if there is no such view
std::string player_path(u32 view, u32 ctrl);
para_t *player_control(const char *path, u32 *view); // loads its view; null if there is no such control

// player_tree.cpp ----------------------------------------------------------------------------------------------------
cJSON *player_tree(zof_view_node_t *view);
cJSON *player_hit(s32 x, s32 y);

// player_review.cpp: adds "views" and "texts", see player_review.h ---------------------------------------------------
void player_review(cJSON *reply);

// player_value.cpp: values by rows of the host protocol, "label.text"
// --------------------------------------------------
std::string player_set(const cJSON *args);
std::string player_row_of(const char *type); // "slider": "slider.value"; empty for null and types without rows
void player_writes_watch();                  // from now on, keeps what a host writes
cJSON *player_snapshot();                    // views, language, theme, scroll positions, what was written
std::string player_restore(const cJSON *state);

// player_message.cpp: faults of files become events
// --------------------------------------------------------------------
void player_messages_init();

// player_place.cpp: places in files
// ------------------------------------------------------------------------------------ Adds "place" and "styles" to a
// control.
void player_places_add(cJSON *out, const zof_view_node_t *view, const para_t *record);

#endif
