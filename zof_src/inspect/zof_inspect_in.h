// The inspector: executes commands, which are lines of JSON, on the project that runs, and reports what happens as
// events; docs/player.md is its manual. The lines come from peers: the parent of a player, or a client of a program's
// port. Internal: C++ only.
#ifndef ZOF_INSPECT_IN_H
#define ZOF_INSPECT_IN_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "hmi/zof_hmi_cmd.h"
#include "lvgl.h"
#include "project/base/zof_para.h"
#include "project/base/zof_prj_cur.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_type.h"

// All functions run on the graphics thread under dis_mutex, unless noted otherwise.

// zof_inspect_line.cpp -----------------------------------------------------------------------------------------------
enum { INSPECT_LINE_MAX = 1 << 20 }; // bytes of a command

// Collects the bytes of lines. Any thread may use its own.
struct inspect_reader_t {
    std::string line; // what has been read of it, without its end
    bool cut;         // it is too long: the rest is skipped
};

// Adds a byte. Returns true if it ends the line, which the caller uses and then clears with inspect_reader_clear.
bool inspect_reader_put(inspect_reader_t *reader, char byte);
void inspect_reader_clear(inspect_reader_t *reader);

// A line for a peer. Pictures are kept as pixels, so that the thread that sends the line can encode them.
struct inspect_line_t {
    std::string text;        // one object, without a line end
    std::vector<u32> pixels; // become the member "png", 0x??RRGGBB; empty for a line without a picture
    s32 width, height;
};

// Returns the text of a line with its picture as the member "png", in base64. Any thread.
std::string inspect_line_text(const inspect_line_t *line);

// What a command may do: look, change what a program shows, or what only a player does.
enum inspect_may_e { INSPECT_READ, INSPECT_WRITE, INSPECT_PLAYER };

// A peer sends commands and receives events.
struct inspect_peer_t {
    inspect_may_e may;
    void (*put)(const inspect_line_t *line); // takes a reply or an event; never waits
};

// Adds a peer, which then receives all events. There are two at most: a player's parent and the client of a port.
void inspect_peer_add(const inspect_peer_t *peer);

// Returns an object {"event": name}, which the caller completes and sends.
cJSON *inspect_event(const char *name);

// Sends an event to all peers and deletes it.
void inspect_send(cJSON *event);

// Return an argument: a text or null, and an integer or `absent`.
const char *inspect_text(const cJSON *args, const char *name);
s32 inspect_number(const cJSON *args, const char *name, s32 absent);

// Returns [x, y, width, height].
cJSON *inspect_box(const lv_area_t *area);

// zof_inspect_command.cpp --------------------------------------------------------------------------------------------
// Adds members to the reply and returns an error text, empty on success.
typedef std::string (*inspect_run_t)(const cJSON *args, cJSON *reply);

// What a player supplies.
struct inspect_player_t {
    inspect_run_t load, advance, link, quit;
};

// Supplies the commands of a player; without them no peer can use these.
void inspect_player_set(const inspect_player_t *player);

// Executes a line of a peer and sends its events and one reply.
void inspect_line_run(const inspect_peer_t *peer, const inspect_reader_t *line);

// Adds the available views, languages and themes, and the current ones.
void inspect_project_describe(cJSON *out);

// Applies the optional arguments language, theme and view, in this order.
std::string inspect_choose(const cJSON *args);

// zof_inspect_project.cpp --------------------------------------------------------------------------------------------
bool inspect_started(); // a project is loaded, and its first view is chosen

// Requests a theme. A theme can be set only once a control with a theme exists, so the request is repeated when a view
// is shown. Returns an error text, empty on success.
std::string inspect_theme_set(const char *name);
std::string inspect_theme(); // empty if the themes of the view files are used
std::string inspect_lang_set(const char *name);

std::string inspect_view_show(u32 id);

// Hides the views that inspect_view_show has put on layers other than that of the screen. Views that the program or a
// host has put there stay.
void inspect_layers_clear();

// Returns the sorted names of a project folder's subfolders if `folders`, otherwise of its ".g" files without ".g".
std::vector<std::string> inspect_names(const char *folder, bool folders);

// Returns the views that are shown, topmost layer first.
std::vector<zof_view_node_t *> inspect_views_shown();

// zof_inspect_name.cpp -----------------------------------------------------------------------------------------------
// The path of a control is "home/brew", or "home/#12" if its name is missing or not unique.
std::string inspect_view_name(u32 id);
u32 inspect_view_find(const cJSON *name); // by id, or by file name with or without ".g"; 0 if there is no such view
std::string inspect_view_none(const cJSON *name); // the error for a view that does not exist, with the nearest name
std::string inspect_path(u32 view, u32 ctrl);
para_t *inspect_control(const char *path, u32 *view); // loads the view; returns null if there is no such control

// zof_inspect_frame.cpp ----------------------------------------------------------------------------------------------
// Starts to note what is drawn. `copy`, if not null, gets the changed part of each frame. There must be a display. Only
// the first call counts.
void inspect_frames_start(void (*copy)(const lv_area_t *area));

// Reports everything drawn since the last call as one frame, after another view if that is shown.
void inspect_frame_publish();

// zof_inspect_tree.cpp -----------------------------------------------------------------------------------------------
cJSON *inspect_tree(zof_view_node_t *view);
cJSON *inspect_hit(s32 x, s32 y);

// zof_inspect_review.cpp ---------------------------------------------------------------------------------------------
// Adds "views" and "texts" to a reply, see zof_inspect_review_in.h.
void inspect_review(cJSON *reply);

// zof_inspect_value.cpp: values by rows of the host protocol, "label.text" -------------------------------------------
std::string inspect_set(const cJSON *args);
std::string inspect_row_of(const char *type); // returns "slider.value" for "slider"; empty if there is no row
// Returns "text" or "number" for a row that one such value can be written to, otherwise "".
const char *inspect_row_takes(const char *row);
void inspect_write_keep(const zof_hmi_cmd_type_t *type, const zof_hmi_param_type_t *param, const void *type_param,
                        const void *req_param, const void *value_param); // for the snapshot
cJSON *inspect_snapshot(); // views, language, theme, scroll positions, written values
std::string inspect_restore(const cJSON *state);

// zof_inspect_writes.cpp ---------------------------------------------------------------------------------------------
enum inspect_writer_e { INSPECT_BY_NONE, INSPECT_BY_HOST, INSPECT_BY_INSPECTOR, INSPECT_BY_USER, INSPECT_BY_PROGRAM };

// A value of a control was written, perhaps with the value that it had.
void inspect_written(u32 view, u32 ctrl, inspect_writer_e writer);

// Starts to keep the values that a host writes, and to note that it has written them.
void inspect_writes_watch();

// Starts to send an event for what a user does with a control.
void inspect_events_start();

// Adds "values", those of all controls that are shown, or, if `since` is not negative, only those written after that
// change and those read for the first time; and "change", the number of the last one.
void inspect_values(s32 since, cJSON *reply);

// zof_inspect_edit.cpp -----------------------------------------------------------------------------------------------
std::string inspect_edit(const cJSON *args);

// zof_inspect_message.cpp: faults of files become events. With `log` they are logged, too. Only the first call counts.
void inspect_messages_start(bool log);

// zof_inspect_place.cpp ----------------------------------------------------------------------------------------------
// Adds "place" and "styles" to a control: where they are in the project's files.
void inspect_places_add(cJSON *out, const zof_view_node_t *view, const para_t *record);

// Forgets what was read of a file, because it has changed.
void inspect_places_forget(const char *path);

#endif
