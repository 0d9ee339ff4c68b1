// Names are checked twice: by their text, which is cheap and refuses most bad names, and by resolving links.
#include "project/path/zof_path_in.h"

#include <cstring>

#include "drv/zof_drv_file.h"
#include "project/base/zof_prj_cur.h"
#include "zof_lib/zof_stdio.h"

enum { PATH_SIZE = 4096 };

bool path_outside_allowed(void) {
    const zof_prj_t *prj = zof_prj_get_cur();
    return !prj || !prj->attr || prj->attr->allow_outside;
}

static bool has_controls(const char *name) {
    for (; *name; name++) {
        if ((u8)(*name) < ' ' || *name == 0x7F) {
            return true;
        }
    }
    return false;
}

static bool is_separator(char c) {
    return c == '/' || c == '\\'; // both, so a project is equally safe on all systems
}

// Returns the depth at which a path ends, relative to its start; `lowest` gets the smallest depth on the way.
static int depth_of(const char *path, int depth, int *lowest) {
    for (const char *end; *path; path = *end ? end + 1 : end) {
        for (end = path; *end && !is_separator(*end); end++) {
        }
        const auto length = end - path;
        const bool up = length == 2 && path[0] == '.' && path[1] == '.';
        const bool same = length == 0 || (length == 1 && path[0] == '.');
        depth += up ? -1 : same ? 0 : 1;
        *lowest = depth < *lowest ? depth : *lowest;
    }
    return depth;
}

bool path_name_passes(const char *dir, const char *name) {
    dir = dir ? dir : "";
    name = name ? name : "";
    if (has_controls(name)) {
        zof_printf("%s%s: contains control characters, not opened", dir, name);
        return false;
    }
    int lowest = 0;
    const int start = depth_of(dir, 0, &lowest);
    const size_t n = std::strlen(dir);
    const bool is_base = lowest < 0 || (n > 0 && dir[n - 1] == ':');
    const int floor = is_base ? start : 0;
    lowest = start;
    depth_of(name, start, &lowest);
    if (lowest >= floor || path_outside_allowed()) {
        return true;
    }
    zof_printf("%s%s: leads out of the project, not opened", dir, name);
    return false;
}

bool path_stays_inside(const char *path, const char *base) {
    char real[PATH_SIZE], root[PATH_SIZE];
    if (!path || path_outside_allowed() || zof_file_real_path(path, real, sizeof real) != 0) {
        return true;
    }
    if (zof_file_real_path(base, root, sizeof root) == 0) {
        const size_t n = std::strlen(root);
        if (std::strncmp(real, root, n) == 0 && (real[n] == '/' || real[n] == '\0' || root[n - 1] == '/')) {
            return true;
        }
    }
    return false;
}

char *path_linked_inside(char *path, const char *folder) {
    if (path_stays_inside(path, folder)) {
        return path;
    }
    zof_printf("%s: a link leads out of the project, not opened", path);
    return nullptr;
}
