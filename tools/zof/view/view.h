// `zof view`: its options, and its two modes: writing files without a display, and a window.
#ifndef VIEW_H
#define VIEW_H

#include <string>
#include <vector>

#include <cjson/cJSON.h>

struct view_options_t {
    const char *command = "view"; // of `zof`, for messages
    std::string dir, view, language, theme;
    std::vector<std::string> states; // "home/brew=pressed"
    std::string shot, sheet, tree;   // files; empty: none, "-": standard output
    bool watch = false, loud = false;
};
extern view_options_t view_options;

// Writes the files that the options ask for. Returns an exit status.
int view_files_write();

// Runs the window until it is closed. Returns an exit status.
int view_window_run();

// Returns a player's message as "home.g:7:9: text", with the file's name without its folder.
std::string view_message_text(const cJSON *message);

// Sets the arguments of `load`, or of `show`, that the options name.
void view_choice_add(cJSON *command);

// Returns the texts of an array of a reply.
std::vector<std::string> view_texts(const cJSON *reply, const char *array, const char *member);

#endif
