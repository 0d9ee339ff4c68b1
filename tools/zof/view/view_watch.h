// Watches a folder for changes.
#ifndef VIEW_WATCH_H
#define VIEW_WATCH_H

#include <map>
#include <string>

#include "zof_lib/zof_type.h"

struct view_watch_t {
    s32 file = -1; // descriptor to wait for; -1 if the system cannot watch
    std::map<s32, std::string> folders;
};

// Starts to watch a folder and all folders in it. Returns an error, or an empty text.
std::string view_watch_start(view_watch_t *watch, const std::string &folder);

// Returns true if anything has changed since the last call. New folders are watched from then on. Never blocks.
bool view_watch_changed(view_watch_t *watch);

#endif
