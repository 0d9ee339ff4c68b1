// `zof view`: its options and its two modes, which write files without a display or show a window.
#ifndef VIEW_H
#define VIEW_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "zof_lib/zof_type.h"

struct view_options_t {
    const char *command = "view"; // subcommand of `zof`, for messages
    std::string dir, view, language, theme;
    u32 port = 0;                    // of a running program, in place of `dir`; 0 for none
    std::vector<std::string> states; // "home/brew=pressed"
    std::string shot, sheet, tree;   // output files; empty for none, "-" for the standard output
    bool watch = false, loud = false;
};
extern view_options_t view_options;

// Writes the requested files. Returns an exit status.
int view_files_write();

// Runs the window until it is closed. Returns an exit status.
int view_window_run();

// Returns a player's message as "home.g:7:9: text", with the file's name but not its folder.
std::string view_message_text(const cJSON *message);

// Adds the view, language and theme that the options name to a `load` or `show` command.
void view_choice_add(cJSON *command);

// Returns the texts in an array of a reply, or those of a member of its objects.
std::vector<std::string> view_texts(const cJSON *reply, const char *array, const char *member);

#endif
