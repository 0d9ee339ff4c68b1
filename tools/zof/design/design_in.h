// Shared by the files of `zof design`. Everything runs on the main thread; only design_net.cpp has another one.
#ifndef DESIGN_IN_H
#define DESIGN_IN_H

#include <functional>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "check/zof_check.h"
#include "design.h"
#include "design_files.h"
#include "view_draw.h"
#include "view_session.h"

// A request of a page, which is answered once.
struct design_request_t {
    u32 page;
    double id;
};

struct design_t {
    std::string dir;       // as it was named
    std::string folder;    // of the project; ends in "/"
    design_files_t *files; // its texts; null while the folder has no project
    stream_t *wake;
    bool loud;
};
extern design_t design;

// design_main.cpp
// ------------------------------------------------------------------------------------------------------ Opens the
// project of a folder. Returns an error or an empty text.
std::string design_open(const std::string &dir);

// design_new.cpp: a folder without a project
// -------------------------------------------------------------------------------------------------------
bool design_new_may(const std::string &dir); // it is empty, or does not exist
cJSON *design_new_empty();                   // `Empty` of the protocol
void design_new_draft(const design_request_t &request, const cJSON *args);
void design_new_make(const design_request_t &request, const cJSON *args);

// design_page.cpp: messages to pages
// ----------------------------------------------------------------------------------- Take ownership of the JSON value.
void design_answer(const design_request_t &request, cJSON *reply); // adds id and ok
void design_refuse(const design_request_t &request, const std::string &error);
void design_event(cJSON *event); // to all pages
cJSON *design_event_make(const char *name);
std::vector<u32> design_pages(); // those that are open
s64 design_now_ms();             // since 1970
void design_page_opened(u32 page);
void design_page_closed(u32 page);

// design_request.cpp
// --------------------------------------------------------------------------------------------------- Executes a
// request, which it answers at once or later.
void design_request_run(u32 page, const std::string &text);

// Reports the files of a gesture to all pages, and shows them. `cause` is edit, undo, redo or elsewhere; `origin` is
// the page that asked, or 0.
void design_gesture_report(const design_gesture_t *gesture, const char *cause, u32 origin);

// design_canvas.cpp: what the pages show
// ------------------------------------------------------------------------------- Starts the player. Returns an error
// or an empty text.
std::string design_canvas_start();

// Waits for events of players, pages and files, for at most `ms`, and handles those of the canvas.
void design_canvas_step(s32 ms);

// A page has opened: the next picture is sent to it as a whole.
void design_canvas_show(u32 page);

// A file has another text. The canvas follows in place if it is a view, else with a new player.
void design_canvas_file(const std::string &file);

// Sends a command to the player. Its reply answers the request, with the members of the player's reply.
void design_canvas_ask(const design_request_t &request, cJSON *command);

// Shows edits that are not written, and answers when they are seen; an empty list shows the files again.
void design_canvas_try(const design_request_t &request, const std::vector<design_splice_t> &splices);

// Changes the view, the language, the theme: the arguments of the request `show`.
void design_canvas_choose(const design_request_t &request, const cJSON *args);
// Shows a control in a state until the view changes: the arguments of the request `state`.
void design_canvas_pose(const design_request_t &request, const cJSON *args);
void design_canvas_mode(const design_request_t &request, const cJSON *args);
cJSON *design_canvas_shown(); // `Shown` of the protocol

// Returns the last reply of the player to `load`, null before the first; its folder is that of the project.
const cJSON *design_canvas_project();

// design_values.cpp: the values of a panel that runs
// -----------------------------------------------------------------------------------------------------
void design_values_all();                         // another panel, or another page: all values are sent
void design_values_step(view_session_t *session); // asks for those written since
bool design_values_take(const cJSON *line);       // returns whether the line was the answer

// design_project.cpp
// ---------------------------------------------------------------------------------------------------
cJSON *design_project(); // `Project` of the protocol

// Adds the files in the folder `below` of `folder`, and below that, by their paths from `folder`.
void design_files_below(std::vector<std::string> *names, const std::string &folder, const std::string &below);

// design_assets.cpp: pictures and fonts
// ---------------------------------------------------------------------------------------------------
void design_assets_ask(const design_request_t &request, const cJSON *args);   // the files of a folder
void design_asset_ask(const design_request_t &request, const cJSON *args);    // a picture of one, as a tile
void design_specimen_ask(const design_request_t &request, const cJSON *args); // a line in a font, as a tile
void design_import_ask(const design_request_t &request, const cJSON *args);   // copies a file in

// design_tile.cpp: pictures of views, drawn by a player of their own
// -----------------------------------------------------
void design_tile_ask(const design_request_t &request, const cJSON *args);

// Draws a view of the project in a temporary folder, which is removed then, and answers with `reply`. Takes ownership
// of both values.
void design_tile_draft(const design_request_t &request, cJSON *args, const std::string &folder, cJSON *reply);
void design_tile_step();

// Scales a picture down to fit a box.
view_image_t design_tile_fitted(const view_image_t &picture, s32 width, s32 height);

// Draws a view in a language and passes the player's reply to `review`, null if it cannot be drawn.
typedef std::function<void(const cJSON *)> design_review_fn;
void design_tile_review(const std::string &view, const std::string &language, const design_review_fn &fn);
void design_tile_file(const std::string &file); // a file has another text
view_player_t *design_tile_player();

// design_check.cpp
// -----------------------------------------------------------------------------------------------------
void design_check_ask(); // soon, when no change has followed
void design_check_step();

// design_fix.cpp: what can be done about a finding, as an array of `Fix`.
cJSON *design_fixes(const zof_finding_t &finding);

// design_texts.cpp
// -----------------------------------------------------------------------------------------------------
void design_texts_ask(const design_request_t &request, const cJSON *args);

#endif
