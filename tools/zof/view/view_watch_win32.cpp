#include "view_watch.h"

#include "port/host_win32.h"

enum : u32 {
    CHANGES = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
              FILE_NOTIFY_CHANGE_LAST_WRITE
};

std::string view_watch_start(view_watch_t *watch, const std::string &folder) {
    wchar_t path[HOST_PATH_MOST];
    if (host_path_wide(folder.c_str(), path)) {
        watch->handle = (intptr_t)FindFirstChangeNotificationW(path, TRUE, CHANGES);
    }
    return watch->handle == -1 ? folder + ": it cannot be watched" : "";
}

// The handle stays ready until it is asked for the next change.
bool view_watch_changed(view_watch_t *watch) {
    const HANDLE handle = (HANDLE)watch->handle;
    bool changed = false;
    while (handle != INVALID_HANDLE_VALUE && WaitForSingleObject(handle, 0) == WAIT_OBJECT_0) {
        changed = true;
        if (!FindNextChangeNotification(handle)) {
            watch->handle = -1; // the folder has been removed
            break;
        }
    }
    return changed;
}
