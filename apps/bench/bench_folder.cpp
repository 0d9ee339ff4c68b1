#include "bench/bench_folder.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "zof.h"

static const char *variable(const char *name) {
    const char *value = getenv(name);
    return value ? value : "";
}

// The second is set on Windows alone.
static const char *home() {
    const char *folder = variable("HOME");
    return *folder ? folder : variable("USERPROFILE");
}

// Writes the path if it is a folder, possibly through links. Returns false otherwise.
static bool folder_take(char *out, size_t size, const char *path, const char *more) {
    const int n = snprintf(out, size, "%s%s/", path, more);
    if (!zof_file_is_absolute(path) || n < 0 || (size_t)n >= size || zof_file_kind(out) != ZOF_FILE_FOLDER) {
        return false;
    }
    out[n - 1] = '\0';
    return true;
}

// Reads a line of the user's configuration: XDG_DOCUMENTS_DIR="$HOME/Documents", or an absolute path.
static bool line_take(char *out, size_t size, char *line) {
    static constexpr char KEY[] = "XDG_DOCUMENTS_DIR=\"", HOME[] = "$HOME";
    char *end = strrchr(line, '"');
    if (strncmp(line, KEY, sizeof(KEY) - 1) != 0 || end < line + sizeof(KEY) - 1) {
        return false;
    }
    *end = '\0';
    const char *path = line + sizeof(KEY) - 1;
    const bool at_home = strncmp(path, HOME, sizeof(HOME) - 1) == 0;
    return at_home ? folder_take(out, size, home(), path + sizeof(HOME) - 1) : folder_take(out, size, path, "");
}

static bool configured(char *out, size_t size) {
    char path[512], line[512];
    const char *config = variable("XDG_CONFIG_HOME");
    const bool own = zof_file_is_absolute(config);
    const int n = snprintf(path, sizeof(path), "%s%s/user-dirs.dirs", own ? config : home(), own ? "" : "/.config");
    FILE *f = n >= 0 && (size_t)n < sizeof(path) ? zof_file_read_open(path) : nullptr;
    bool found = false;
    while (f && !found && fgets(line, sizeof(line), f)) {
        found = line_take(out, size, line);
    }
    if (f) {
        fclose(f);
    }
    return found;
}

// A panel that runs as a service has no home folder.
static bool state_take(char *out, size_t size) {
    char path[512];
    return zof_file_state_path(path, sizeof(path), "recordings", ZOF_TRUE) == 0 && zof_mkdir(path) >= 0 &&
           folder_take(out, size, path, "");
}

void folder_documents(char *out, size_t size) {
    if (!folder_take(out, size, variable("XDG_DOCUMENTS_DIR"), "") && !configured(out, size) &&
        !folder_take(out, size, home(), "/Documents") && !folder_take(out, size, home(), "") &&
        !state_take(out, size)) {
        snprintf(out, size, ".");
    }
}
