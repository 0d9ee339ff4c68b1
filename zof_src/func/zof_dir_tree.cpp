// Names and walks of the folder copy: which entries of a source count, what is removed, and what is repaired at start.
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv.h"
#include "func/zof_dir_copy.h"
#include "func/zof_dir_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

bool dir_is_dots(const char *name) {
    return strcmp(name, ".") == 0 || strcmp(name, "..") == 0;
}

// Returns false for a name that could be taken for more than one component of a path, here or on another system, and
// for one with control characters.
static bool is_plain_name(const char *name) {
    for (; *name; name++) {
        if ((u8)*name < ' ' || *name == 0x7F || *name == '/' || *name == '\\') {
            return false;
        }
    }
    return true;
}

u32 dir_source_entry(char *path, const char *dir, const char *name, bool say) {
    if (name[0] == '.' || strcmp(name, "System Volume Information") == 0) {
        return ZOF_FILE_NONE;
    }
    if (!is_plain_name(name)) {
        if (say) {
            zof_printf("%s: a name with a separator or control characters is skipped: %s\n", dir, name);
        }
        return ZOF_FILE_NONE;
    }
    if (!zof_text_join(path, PATH_SIZE - 1, dir, name, "")) { // one byte for the slash
        if (say) {
            dir_too_long(dir, name);
        }
        return ENTRY_TOO_LONG;
    }
    const u32 kind = zof_file_kind(path);
    if (kind == ZOF_FILE_FOLDER) {
        strcat(path, "/");
    } else if (kind == ZOF_FILE_OTHER && say) {
        zof_printf("%s: neither file nor folder, skipped\n", path);
    }
    return kind == ZOF_FILE_OTHER ? (u32)ZOF_FILE_NONE : kind;
}

u32 zof_dir_get_fileNum(const char *path) {
    zof_dir_t *dir = zof_opendir(path);
    u32 count = 0;
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[PATH_SIZE];
        const u32 kind = dir_source_entry(below, path, entry->name, false);
        if (kind == ZOF_FILE_FOLDER) {
            count += zof_dir_get_fileNum(below);
        } else if (kind != ZOF_FILE_NONE) {
            count++;
        }
    }
    zof_closedir(dir);
    return count;
}

bool dir_is_left_over(const char *name) {
    return zof_file_is_temp(name, NEW_FILE, ZOF_FALSE) || zof_file_is_temp(name, NEW_DIR, ZOF_FALSE);
}

// With `all`, silently and including names with a dot.
static void folder_empty(const char *path, bool all) {
    zof_dir_t *dir = zof_opendir(path);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[OWN_PATH];
        if (dir_is_dots(entry->name) || (!all && entry->name[0] == '.') ||
            !zof_text_join(below, sizeof(below) - 1, path, entry->name, "")) {
            continue;
        }
        if (!all) {
            zof_printf("remove dirName = %s\n", below);
        }
        const bool folder = zof_file_kind(below) == ZOF_FILE_FOLDER;
        if (folder) {
            strcat(below, "/");
            folder_empty(below, all);
        }
        zof_file_remove(below);
    }
    zof_closedir(dir);
}

void zof_dir_remove(const char *path) {
    char whole[PATH_SIZE];
    if (path && *path && zof_text_join(whole, sizeof(whole), path, path[strlen(path) - 1] == '/' ? "" : "/", "")) {
        folder_empty(whole, false);
    }
}

void dir_clear_away(const char *path) {
    const u32 kind = zof_file_kind(path);
    char whole[OWN_PATH];
    if (kind == ZOF_FILE_FOLDER && zof_text_join(whole, sizeof(whole), path, "/", "")) {
        folder_empty(whole, true);
    }
    if (kind != ZOF_FILE_NONE) {
        zof_file_remove(path);
    }
}

bool dir_beside(char *out, size_t size, const char *path, const char *name, const char *more) {
    const int length = snprintf(out, size, "%.*s%s%s", (int)zof_path_parent(path), path, name, more);
    return length >= 0 && (size_t)length < size;
}

// Moves a folder that was set aside back if its place is empty; removes everything else that is temporary.
static void entry_repair(const char *path, const char *entry) {
    char left[OWN_PATH], name[OWN_PATH];
    const size_t prefix = sizeof(OLD_DIR) - 1;
    const bool old = strncmp(entry, OLD_DIR, prefix) == 0 && entry[prefix];
    if ((!old && !dir_is_left_over(entry)) || !zof_text_join(left, sizeof(left), path, entry, "") ||
        (old && !zof_text_join(name, sizeof(name), path, entry + prefix, ""))) {
        return;
    }
    if (!old || zof_file_kind(name) != ZOF_FILE_NONE) {
        dir_clear_away(left);
    } else if (zof_rename(left, name) == 0) {
        zof_printf("%s: was set aside by an unfinished copy, and is back\n", name);
    }
}

static void folder_mend(const char *path) {
    zof_dir_t *dir = zof_opendir(path);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[OWN_PATH];
        if (entry->name[0] == '.') {
            entry_repair(path, entry->name);
        } else if (entry->is_dir && zof_text_join(below, sizeof(below) - 1, path, entry->name, "") &&
                   zof_file_kind(below) == ZOF_FILE_FOLDER) {
            strcat(below, "/");
            folder_mend(below);
        }
    }
    zof_closedir(dir);
}

void zof_dir_copy_repair(const char *path) {
    char holder[64];
    const s32 lock = zof_folder_lock(path, holder, sizeof(holder));
    if (lock == 0) {
        zof_printf("%s: in use by %s, left as it is\n", path, holder);
        return;
    }
    folder_mend(path);
    zof_folder_unlock(lock);
}
