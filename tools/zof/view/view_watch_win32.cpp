// One handle for each folder, because not all file systems report changes below a folder that is watched.
#include "view_watch.h"

#include "port/host_win32.h"

#include <filesystem>

namespace fs = std::filesystem;

enum : u32 {
    CHANGES = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
              FILE_NOTIFY_CHANGE_LAST_WRITE
};

static bool folder_add(view_watch_t *watch, const std::string &folder) {
    wchar_t path[HOST_PATH_MOST];
    if (watch->folders.contains(folder) || !host_path_wide(folder.c_str(), path)) {
        return false;
    }
    const HANDLE handle = FindFirstChangeNotificationW(path, FALSE, CHANGES);
    if (handle != INVALID_HANDLE_VALUE) {
        watch->folders[folder] = (intptr_t)handle;
    }
    return handle != INVALID_HANDLE_VALUE;
}

static void folders_below_add(view_watch_t *watch) {
    std::error_code fault;
    for (fs::recursive_directory_iterator at(watch->top, fault), end; !fault && at != end; at.increment(fault)) {
        if (at->is_directory(fault)) {
            folder_add(watch, at->path().string());
        }
    }
}

std::string view_watch_start(view_watch_t *watch, const std::string &folder) {
    watch->top = folder;
    if (!folder_add(watch, folder)) {
        return folder + ": it cannot be watched";
    }
    folders_below_add(watch);
    return "";
}

// Asks a folder for its next change. Forgets one that has been removed.
static bool folder_again(intptr_t handle) {
    if (FindNextChangeNotification((HANDLE)handle)) {
        return true;
    }
    FindCloseChangeNotification((HANDLE)handle);
    return false;
}

bool view_watch_changed(view_watch_t *watch) {
    bool changed = false;
    for (auto at = watch->folders.begin(); at != watch->folders.end();) {
        const bool now = WaitForSingleObject((HANDLE)at->second, 0) == WAIT_OBJECT_0;
        changed = changed || now;
        at = now && !folder_again(at->second) ? watch->folders.erase(at) : std::next(at);
    }
    if (changed) {
        folders_below_add(watch);
    }
    return changed;
}
