#include "view_watch.h"

#include <algorithm>
#include <filesystem>

#include <sys/inotify.h>
#include <unistd.h>

#include "drv/zof_drv_file.h"

// Events that change contents or names. Writing counts before the file is closed, because some editors keep it open.
enum : u32 {
    CHANGES =
        IN_MODIFY | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_ATTRIB
};

static void folder_add(view_watch_t *watch, const std::string &folder) {
    const s32 number = inotify_add_watch((int)watch->handle, folder.c_str(), CHANGES | IN_ONLYDIR);
    if (number < 0) {
        return; // the folder has disappeared again
    }
    watch->folders[folder] = number;
    std::error_code fault;
    for (const auto &entry : std::filesystem::directory_iterator(folder, fault)) {
        if (entry.is_directory(fault) && !entry.is_symlink(fault)) {
            folder_add(watch, entry.path());
        }
    }
}

std::string view_watch_start(view_watch_t *watch, const std::string &folder) {
    watch->handle = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch->handle < 0) {
        return zof_file_error();
    }
    folder_add(watch, folder);
    return watch->folders.empty() ? folder + ": " + zof_file_error() : "";
}

static void event_take(view_watch_t *watch, const inotify_event *event) {
    const auto folder = std::find_if(watch->folders.begin(), watch->folders.end(),
                                     [&](const auto &one) { return one.second == event->wd; });
    if (folder == watch->folders.end()) {
        return;
    }
    if (event->len && (event->mask & IN_ISDIR) && (event->mask & (IN_CREATE | IN_MOVED_TO))) {
        folder_add(watch, folder->first + "/" + event->name);
    }
    if (event->mask & IN_IGNORED) {
        watch->folders.erase(folder);
    }
}

bool view_watch_changed(view_watch_t *watch) {
    alignas(inotify_event) char events[16384];
    bool changed = false;
    ssize_t n = 0;
    while (watch->handle >= 0 && (n = read((int)watch->handle, events, sizeof(events))) > 0) {
        for (const char *at = events; at < events + n;) {
            const auto *event = (const inotify_event *)(const void *)at;
            event_take(watch, event);
            at += sizeof(*event) + event->len;
        }
        changed = true;
    }
    return changed;
}
