// Watches a folder for changes: view_watch_posix.cpp and view_watch_win32.cpp.
#ifndef VIEW_WATCH_H
#define VIEW_WATCH_H

#include <map>
#include <string>

#include "zof_lib/zof_type.h"

struct view_watch_t {
    intptr_t handle = -1; // to wait for; -1 for none: then view_watch_changed has to be called often
    std::string top;
    std::map<std::string, intptr_t> folders; // the system's number of each watched folder
};

// Starts to watch a folder and all folders in it. Returns an error, or an empty text.
std::string view_watch_start(view_watch_t *watch, const std::string &folder);

// Returns true if anything has changed since the last call. New folders are watched from then on. Never blocks.
bool view_watch_changed(view_watch_t *watch);

#endif
