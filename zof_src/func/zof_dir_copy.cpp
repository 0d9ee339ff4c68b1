// Copies folders so that a power cut at any moment does no damage. A file is written beside its target and renamed over
// it. A folder that is replaced is built beside the old one, receives what must be kept of the old one, and is
// exchanged with it. Temporary names begin with a dot, which no copied file can have. The target is locked meanwhile:
// two programs copying into one folder would rename each other's files into place.
#include "func/zof_dir_copy.h"

#include <stdio.h>
#include <string.h>

#include <atomic>

#include "drv/zof_drv.h"
#include "func/zof_dir_in.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// One copy, from its first folder to its last.
struct copy_run {
    u8 *block;
    u32 left;                // files that were counted but not reported yet
    const char *stage;       // the folder that is built beside the old one, while there is one ...
    const char *place;       // ... and where it will be
    u32 good;                // files in it that were reported as copied
    char waiting[PATH_SIZE]; // its latest file, which is reported when the folder is in place; empty for none
    bool waiting_ok;
};

static std::atomic<zof_schedule_fun_t> zof_schedule_fun{nullptr};

void zof_dir_set_schedule_cbfun(zof_schedule_fun_t fn) {
    zof_schedule_fun = fn;
}

void zof_dir_schedule_dis(const char *name, u8 ok) {
    const zof_schedule_fun_t fn = zof_schedule_fun;
    if (fn) {
        fn(name, ok);
    }
}

// Reports a file. Until its folder is in place, the latest file is held back and the one before is reported.
static void file_report(copy_run *r, const char *name, bool ok) {
    r->left -= r->left > 0;
    if (!r->stage) {
        zof_dir_schedule_dis(name, ok);
        return;
    }
    if (r->waiting[0]) {
        zof_dir_schedule_dis(r->waiting, r->waiting_ok);
        r->good += r->waiting_ok;
    }
    snprintf(r->waiting, sizeof(r->waiting), "%s", name);
    r->waiting_ok = ok;
}

// Reports all files of a folder as failed.
static void folder_refuse(copy_run *r, const char *src) {
    for (u32 left = zof_dir_get_fileNum(src); left > 0; left--) {
        file_report(r, src, false);
    }
}

// Makes the path as users know it: the final place of a folder that is built beside it.
static void show(const copy_run *r, char *shown, const char *path) {
    snprintf(shown, SHOWN_SIZE, "%s%s", r->stage ? r->place : "", r->stage ? path + strlen(r->stage) : path);
}

static void file_copy_into(copy_run *r, const char *into, const char *src, const char *name) {
    char dst[PATH_SIZE];
    if (!zof_text_join(dst, sizeof(dst), into, name, "")) {
        dir_too_long(into, name);
        file_report(r, name, false);
        return;
    }
    char shown[SHOWN_SIZE];
    show(r, shown, dst);
    zof_printf("copy %s to %s ", src, shown);
    const bool ok = dir_file_replace(dst, src, shown, {r->block, BLOCK, false});
    if (ok) {
        zof_printf("success \n"); // the new name reaches the disk with its folder, at the end
    }
    file_report(r, name, ok);
}

static void folder_copy(copy_run *r, const char *target, const char *src, bool remove);

// Returns false, after a message, if the source does not exist.
static bool source_exists(const char *src) {
    const bool there = PathExist(src);
    if (!there) {
        zof_printf("src dir %s does not exist\n", src);
    }
    return there;
}

// Uses `name` whole, never a part of it, because it comes from the medium.
static void folder_copy_into(copy_run *r, const char *into, const char *src, const char *name, bool remove) {
    char target[PATH_SIZE];
    if (!source_exists(src)) {
        return;
    }
    if (zof_text_join(target, sizeof(target), into, name, "/")) {
        folder_copy(r, target, src, remove);
    } else {
        dir_too_long(into, name);
        folder_refuse(r, src);
    }
}

static void entries_copy(copy_run *r, const char *into, const char *from, bool remove) {
    zof_dir_t *dir = zof_opendir(from);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char src[PATH_SIZE];
        const u32 kind = dir_source_entry(src, from, entry->name, true);
        if (kind == ZOF_FILE_FOLDER) {
            folder_copy_into(r, into, src, entry->name, remove);
        } else if (kind == ZOF_FILE_PLAIN) {
            file_copy_into(r, into, src, entry->name);
        } else if (kind == ENTRY_TOO_LONG) {
            file_report(r, entry->name, false);
        }
    }
    zof_closedir(dir);
    zof_file_finish_folder(into);
}

// Copies from the old folder to the new one what must be kept: hidden names, which an update never touches, and what
// the update should have replaced but could not. All three end with a slash.
static bool keep_old(copy_run *r, const char *fresh, const char *old, const char *src, bool all) {
    zof_dir_t *dir = zof_opendir(old);
    bool good = true;
    for (const zof_dirent_t *entry; good && (entry = zof_readdir(dir));) {
        const char *name = entry->name;
        char from[OWN_PATH], to[OWN_PATH], update[OWN_PATH];
        if (dir_is_dots(name) || dir_is_left_over(name)) {
            continue;
        }
        if (!zof_text_join(from, sizeof(from) - 1, old, name, "") ||
            !zof_text_join(to, sizeof(to) - 1, fresh, name, "") ||
            !zof_text_join(update, sizeof(update) - 1, src, name, "")) {
            zof_printf("path too long to be kept: %.80s...%.80s\n", old, name);
            good = false;
            continue;
        }
        const u32 kind = zof_file_kind(from);
        const u32 renewed = zof_file_kind(update);
        const bool there = zof_file_kind(to) != ZOF_FILE_NONE;
        const bool whole = all || name[0] == '.' || (renewed != ZOF_FILE_NONE && renewed != kind && !there);
        const bool wanted = whole || renewed == kind;
        if (kind == ZOF_FILE_PLAIN && wanted && !there) {
            good = dir_file_replace(to, from, from, {r->block, BLOCK, false});
        } else if (kind == ZOF_FILE_FOLDER && wanted) {
            good = zof_mkdir(to) >= 0;
            strcat(from, "/");
            strcat(to, "/");
            strcat(update, "/");
            good = good && keep_old(r, to, from, update, whole);
        }
    }
    zof_closedir(dir);
    zof_file_finish_folder(fresh);
    return good;
}

// Exchanges the two; afterwards the old one has the new one's name. Neither name ends in a slash.
static bool swap(const char *fresh, const char *target) {
    if (zof_file_exchange(fresh, target) == 0) {
        return true;
    }
    char aside[OWN_PATH];
    const char *name = target + zof_path_parent(target);
    if (!dir_beside(aside, sizeof(aside), target, OLD_DIR, name) || zof_rename(target, aside) != 0) {
        return false;
    }
    if (zof_rename(fresh, target) != 0) {
        const s32 back = zof_rename(aside, target);
        if (back != 0) {
            dir_say(aside, "stays under this name until the next start");
        }
        return false;
    }
    zof_rename(aside, fresh);
    return true;
}

// Reports the file that was held back. If the folder is not in place, what was reported as copied is undone.
static void stage_report(copy_run *r, bool placed) {
    for (; !placed && r->good > 0; r->good--) {
        zof_dir_schedule_dis(r->place, ZOF_COPY_UNDONE);
    }
    if (r->waiting[0]) {
        zof_dir_schedule_dis(r->waiting, placed && r->waiting_ok);
    }
    r->stage = nullptr;
    r->waiting[0] = '\0';
    r->good = 0;
}

// `target` ends with a slash.
static void folder_replace(copy_run *r, const char *target, const char *src) {
    char fresh[PATH_SIZE], stage[PATH_SIZE], place[PATH_SIZE];
    snprintf(place, sizeof(place), "%.*s", (int)strlen(target) - 1, target);
    if (zof_file_temp_name(fresh, sizeof(fresh), target, NEW_DIR) != 0 ||
        !zof_text_join(stage, sizeof(stage), fresh, "/", "")) {
        dir_too_long(target, "");
        folder_refuse(r, src);
        return;
    }
    if (zof_mkdir(fresh) != 0) {
        dir_say(target, "not created");
        folder_refuse(r, src);
        return;
    }
    r->stage = stage;
    r->place = target;
    entries_copy(r, stage, src, true);
    const bool kept = zof_file_kind(place) != ZOF_FILE_FOLDER || keep_old(r, stage, target, src, false);
    const bool pulled = !PathExist(src); // the source vanished during the copy, so a missing file proves nothing
    const bool placed = kept && !pulled && swap(fresh, place);
    if (!placed) {
        dir_say(target, "stays as it was");
    } else {
        char parent[PATH_SIZE];
        dir_beside(parent, sizeof(parent), target, "", "");
        zof_file_finish_folder(parent);
    }
    stage_report(r, placed);
    dir_clear_away(fresh);
}

// Makes `dst`, with a slash, and the last component of `src`; ends with a slash.
static bool target_of(char *out, const char *dst, const char *src) {
    const size_t parent = zof_path_parent(src);
    const char *name = parent > 0 ? src + parent : "";
    const size_t n = strlen(dst);
    const bool slash = n > 0 && (dst[n - 1] == '/' || dst[n - 1] == '\\');
    if (!zof_text_join(out, PATH_SIZE - 1, dst, slash ? "" : "/", name)) {
        dir_too_long(dst, name);
        return false;
    }
    if (out[strlen(out) - 1] != '/') {
        strcat(out, "/");
    }
    return true;
}

// Creates the target if it does not exist. Returns false, with a log line, when nothing may be written to it: what is
// in the folder named at the start must not lead out of it, while that folder itself ("./") may be a link.
static bool folder_ready(const copy_run *r, const char *target, bool itself) {
    char plain[PATH_SIZE], shown[SHOWN_SIZE];
    show(r, shown, target);
    snprintf(plain, sizeof(plain), "%.*s", (int)strlen(target) - (itself ? 2 : 1), target);
    if (!PathExist(target)) {
        zof_printf("mkdir %s \n", shown);
        if (zof_mkdir(plain) != 0) {
            dir_say(shown, "not created");
            return false;
        }
    } else if (!itself && zof_file_kind(plain) != ZOF_FILE_FOLDER) {
        dir_refuse(shown, "a link, not copied into");
        return false;
    }
    return true;
}

// Both paths end with a slash.
static void folder_copy(copy_run *r, const char *target, const char *src, bool remove) {
    const size_t n = strlen(target);
    const bool ends_in_dot = n > 1 && target[n - 2] == '.';
    const bool itself = ends_in_dot && (n == 2 || target[n - 3] == '/');
    if (remove && !ends_in_dot && !r->stage && PathExist(target)) {
        folder_replace(r, target, src);
    } else if (folder_ready(r, target, itself)) {
        entries_copy(r, target, src, remove);
    } else {
        folder_refuse(r, src);
    }
    zof_printf("copy dir end \n");
}

// Creates the folder to copy into if it does not exist, and locks it. Returns 0, with a log line, when another copy
// uses it. A medium without locks is copied to all the same.
static s32 target_lock(const char *dst) {
    char holder[64];
    if (!PathExist(dst)) {
        zof_printf("mkdir %s \n", dst);
        zof_mkdir(dst);
    }
    const s32 lock = zof_folder_lock(dst, holder, sizeof(holder));
    if (lock == 0) {
        char why[sizeof(holder) + 40];
        snprintf(why, sizeof(why), "in use by %s, nothing is copied", holder);
        dir_refuse(dst, why);
    }
    return lock;
}

static void run_copy(copy_run *r, const char *dst, const char *src, bool remove) {
    char target[PATH_SIZE];
    const s32 lock = target_lock(dst);
    if (lock != 0 && target_of(target, dst, src)) {
        folder_copy(r, target, src, remove);
    }
    zof_folder_unlock(lock);
}

s32 zof_dir_copyfile(const char *dst, const char *src, zof_bool remove) {
    if (!dst || !src) {
        zof_printf("dir %s name is NULL\n", dst ? "src" : "dst");
        return -1;
    }
    dir_reason_clear();
    char whole[PATH_SIZE];
    const size_t n = strlen(src);
    if (!zof_text_join(whole, sizeof(whole), src, n > 0 && src[n - 1] != '/' ? "/" : "", "")) {
        dir_too_long(src, "");
        return -1;
    }
    if (!source_exists(whole)) {
        return -1;
    }
    copy_run run = {};
    run.left = zof_dir_get_fileNum(whole);
    run.block = (u8 *)zof_malloc(BLOCK);
    if (run.block) {
        run_copy(&run, dst, whole, remove);
    } else {
        zof_printf("srcdata=null\n");
    }
    for (; run.left > 0; run.left--) { // refused, or the disk was removed
        zof_dir_schedule_dis(whole, ZOF_COPY_FAILED);
    }
    zof_free(run.block);
    return 0;
}
