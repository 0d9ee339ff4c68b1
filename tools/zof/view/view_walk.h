// Shows a project in all views, languages and themes, or in those that the options choose. Messages of players, and
// failures, go to the error stream.
#ifndef VIEW_WALK_H
#define VIEW_WALK_H

#include <functional>
#include <string>
#include <vector>

#include "view_player.h"

struct view_plan_t {
    std::vector<std::string> views, languages, themes; // never empty: without languages or themes, one ""
    s32 width, height;                                 // of the project, in pixels
    bool whole;                                        // the options have not chosen a view, language or theme
};

// A place in a plan: one view in one language and theme.
struct view_cell_t {
    std::string view, language, theme;
    size_t row, column; // rows are views, columns are pairs of theme and language
    bool shown;         // false if the view cannot be shown
};

// Starts a player and loads the project of the options; if `choices`, with their view, language and theme. Or connects
// to the program of the options. Returns the reply, which the caller deletes, or null after a message.
cJSON *view_load(view_player_t *player, bool choices);

// Sends a command, taking ownership of it, and waits for the reply. Returns the reply, which the caller deletes, or
// null after a message if the command fails.
cJSON *view_ask(view_player_t *player, cJSON *command);

// Like view_ask, for commands whose reply is not needed. Returns false after a message if it fails.
bool view_tell(view_player_t *player, cJSON *command);

// Shows a view in place of those shown before, on any layer, and changes the language unless it is empty. Returns false
// after a message.
bool view_show(view_player_t *player, const std::string &view, const std::string &language);

// Makes a plan from the reply to `load`.
view_plan_t view_plan(const cJSON *project);

// Shows each cell and calls `fn` for it. Returns false after a message if the project cannot be loaded.
bool view_walk(const view_plan_t &plan, const std::function<void(view_player_t *, const view_cell_t &)> &fn);

// Writes a file; "-" means the standard output. Returns false after a message.
bool view_file_write(const std::string &path, const std::string &bytes);

#endif
