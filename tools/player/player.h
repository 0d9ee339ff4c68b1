// The player: runs a project folder with the real runtime and no application, draws into shared memory, and does what
// lines of JSON on its standard input say. One project per process: whoever wants a fresh look starts a fresh player.
#ifndef PLAYER_H
#define PLAYER_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "hmi/zof_hmi_cmd.h"
#include "player_frame.h"
#include "project/base/zof_para.h"
#include "project/base/zof_prj_cur.h"

// Everything here belongs to the main thread, under dis_mutex once a project is loaded, except where it says otherwise.

// What the command line said.
struct player_options_t {
    bool live;          // real time and the serial link; otherwise time passes by commands alone
    std::string shared; // file of the picture; empty: none
};
extern player_options_t player_options;

// player_io.cpp ------------------------------------------------------------------------------------------------------
enum { PLAYER_LINE_MAX = 1 << 20 }; // bytes of a line

// Keeps standard output for lines of the protocol; whatever prints there goes to the error stream. Before anything
// else.
void player_io_init();

// Waits for a line, without its end. Returns 1; 0 at the end of the input; -1 for a line that is too long, whose rest
// is skipped. One thread.
int player_line_read(std::string *line);

// Prints a value as a line and deletes it. Any thread.
void player_send(cJSON *value);

// Returns an object {"event": name}, to which the caller adds and which it sends.
cJSON *player_event(const char *name);

// player_command.cpp -------------------------------------------------------------------------------------------------
// A command. It adds to the reply, and returns what is wrong, or an empty text.
struct player_command_t {
    const char *name;
    const char *args; // names, separated by spaces; "?" behind one that may be left out
    const char *help; // one line
    std::string (*run)(const cJSON *args, cJSON *reply);
    bool early; // needs no project
};
extern const player_command_t player_commands[];
extern const size_t player_command_count;

// Executes a line, and sends the events that it causes and one reply.
void player_line_run(const std::string &line);

// Whether `quit` was executed.
bool player_ended();

// Argument access: a text, or null; an integer, or `absent`.
const char *player_text(const cJSON *args, const char *name);
s32 player_number(const cJSON *args, const char *name, s32 absent);

// player_start.cpp ---------------------------------------------------------------------------------------------------
// Starts the runtime with a project folder: `dir`, or its `res`. Returns what is wrong, or an empty text.
std::string player_start(const char *dir);
bool player_started();

// Advances the virtual clock, in steps as the main loop would make.
void player_clock_advance(u32 ms);
void player_clock_init();

// Requests a theme; a theme can only be chosen once a control is there that has one, so it is tried again after a view
// was shown. Returns what is wrong.
std::string player_theme_set(const char *name);
const std::string &player_theme(); // empty: those of the view files
std::string player_lang_set(const char *name);

std::string player_view_show(u32 id);

// Sends an event if another view is shown than at the last call: a host may have changed it.
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

// player_value.cpp: values by the rows of the host protocol, "label.text"
// --------------------------------------------------
std::string player_set(const cJSON *args);
std::string player_row_of(const char *type); // "slider": "slider.value"; empty for null and types without rows
void player_writes_watch();                  // from now on, what a host writes is kept
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
