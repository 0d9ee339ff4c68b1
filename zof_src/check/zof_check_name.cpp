// File names in project files: whether the runtime opens them, and whether the files exist.
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "check/zof_check_in.h"
#include "drv/zof_drv_file.h"
#include "zof_lib/zof_util.h"

enum { PATH_SIZE = 1024 };

static bool file_before(const check_file_t &a, const check_file_t &b) {
    return std::strcmp(a.path, b.path) < 0;
}

check_file_t *check_file_find(check_run_t *c, const char *path, bool any_case) {
    const check_file_t key = {.path = (char *)path};
    check_file_t *end = c->files.at + c->files.count;
    check_file_t *found = std::lower_bound(c->files.at, end, key, file_before);
    if (found != end && std::strcmp(found->path, path) == 0) {
        return found;
    }
    found = c->files.at;
    while (any_case && found != end && !check_same(found->path, path)) {
        found++;
    }
    return any_case && found != end ? found : nullptr;
}

// Returns the name of the file in the folder that is nearest to `name` or equals it with a suffix added, or null if no
// name is near.
static const char *name_near(check_run_t *c, const char *folder, const char *name) {
    const char *nearest = nullptr;
    u32 least = ZOF_TEXT_NEAR;
    for (u32 i = 0; i < c->files.count; i++) {
        const char *path = c->files.at[i].path;
        if (!check_begins(path, folder)) {
            continue;
        }
        const char *other = path + std::strlen(folder);
        if (check_begins(other, name) && other[std::strlen(name)] == '.') {
            return other;
        }
        nearest = zof_text_nearer(name, other, &least) ? other : nearest;
    }
    return nearest;
}

// Returns the reason why the runtime does not open a name, or null if it does.
static const char *name_fault(const char *name) {
    for (const char *c = name; *c; c++) {
        if ((u8)*c < ' ' || *c == 0x7F) {
            return "a name with control characters is not opened";
        }
        if (std::strchr("\\<>|\"?*", *c)) {
            return "a name with \\ < > | \" ? or * is not valid on all systems";
        }
    }
    return nullptr;
}

// Writes folder + name with "." and ".." resolved. Returns false if the path leads out of the project.
static bool path_resolve(const char *folder, const char *name, char *out, size_t size) {
    char whole[PATH_SIZE];
    size_t length = 0;
    std::snprintf(whole, sizeof whole, "%s%s", folder, name);
    out[0] = 0;
    for (const char *at = whole; *at;) {
        const size_t part = std::strcspn(at, "/");
        if (part == 2 && at[0] == '.' && at[1] == '.') {
            if (length == 0) {
                return false;
            }
            out[length] = 0;
            const char *slash = std::strrchr(out, '/');
            length = slash ? (size_t)(slash - out) : 0;
        } else if (part > 1 || (part == 1 && at[0] != '.')) {
            length += (size_t)std::snprintf(out + length, size - length, "%s%.*s", length ? "/" : "", (int)part, at);
        }
        at += part + (at[part] == '/');
    }
    out[length] = 0;
    return true;
}

// Returns true for a name on a drive, after a report if the drive does not exist. Fonts are not read from drives.
static bool is_on_drive(check_run_t *c, const check_file_t *file, u32 node, const char *folder, const char *name) {
    if (!name[0] || name[1] != ':' || std::strcmp(folder, "font/") == 0) {
        return false;
    }
    if (!std::strchr("DETUP", name[0]) && !c->outside) {
        check_report(c, file, node, CHECK_FILE_NAME, "there is no drive %c:; the drives are D, E, T, U and P", name[0]);
    }
    return true;
}

static void missing_report(check_run_t *c, const check_file_t *file, u32 node, const char *folder, const char *name,
                           const char *path) {
    char whole[2 * PATH_SIZE];
    std::snprintf(whole, sizeof whole, "%s%s", c->folder, path);
    const char *meant = name_near(c, folder, name);
    if (zof_file_kind(whole) == ZOF_FILE_FOLDER) {
        check_report(c, file, node, CHECK_FILE_MISSING, "%s is a folder", path);
    } else {
        check_report(c, file, node, CHECK_FILE_MISSING, "there is no %s%s%s%s", path, meant ? "; did you mean " : "",
                     meant ? meant : "", meant ? "?" : "");
    }
}

check_file_t *check_file_named(check_run_t *c, const check_file_t *file, u32 node, const char *folder,
                               const char *name) {
    const char *fault = name_fault(name);
    if (fault) {
        check_report(c, file, node, CHECK_FILE_NAME, "%s", fault);
    }
    if (fault || is_on_drive(c, file, node, folder, name)) {
        return nullptr;
    }
    char path[PATH_SIZE];
    if (!path_resolve(folder, name, path, sizeof path)) {
        if (!c->outside) {
            check_report(c, file, node, CHECK_FILE_NAME, "leads out of the project");
        }
        return nullptr;
    }
    check_file_t *found = check_file_find(c, path, true);
    if (!found) {
        missing_report(c, file, node, folder, name, path);
    } else if (std::strcmp(found->path, path) != 0) {
        check_report(c, file, node, CHECK_FILE_CASE, "the file is %s", found->path);
    }
    return found;
}
