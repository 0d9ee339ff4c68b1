// Copies folders so that a power cut at any moment tears nothing. A file is written beside its target and renamed over it.
// A folder that is to be replaced is built beside the old one, gets what the old one has to keep, and changes places with
// it. What is built beside has a temporary name that begins with a dot, which no copied file can have. The target is
// locked meanwhile: two programs that copied into one folder would rename each other's files into place.
#include "func/zof_dir_copy.h"

#include <stdio.h>
#include <string.h>

#include <atomic>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "project/zof_res.h"
#include "zof_lib/zof_stdio.h"

#define NEW_FILE ZOF_FILE_TEMP
#define NEW_DIR ".zof_dir.new"
#define OLD_DIR ".zof_dir.old~" // and the folder's name: where no two names can change places in one step

// Our own walks also meet paths that are longer by such a name.
enum { PATH_SIZE = 256, OWN_PATH = PATH_SIZE + 64, SHOWN_SIZE = 2 * PATH_SIZE, BLOCK = 2048, BLOCK_MOST = 1 << 20 };
enum { ENTRY_TOO_LONG = 100 }; // beside ZOF_FILE_*

// The memory through which a file is copied.
struct copy_block {
    u8 *data;
    u32 size;
    bool dots; // one on the log for each block
};

// One copy, from its first folder to its last.
struct copy_run {
    u8 *block;
    u32 left;                // files that were counted and not reported yet
    const char *stage;       // the folder that is built beside, while there is one ...
    const char *place;       // ... and where it will stand
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

static bool join(char *out, size_t size, const char *a, const char *b, const char *c) {
    const int length = snprintf(out, size, "%s%s%s", a, b, c);
    return length >= 0 && (size_t)length < size;
}

static bool is_dots(const char *name) {
    return strcmp(name, ".") == 0 || strcmp(name, "..") == 0;
}

static void copy_say(const char *path, const char *what) {
    zof_printf("%s: %s: %s\n", path, what, zof_file_error());
}

// False for a name that could be taken for more than one component of a path, here or on another system, and for one with
// control characters.
static bool is_plain_name(const char *name) {
    for (; *name; name++) {
        if ((u8)*name < ' ' || *name == 0x7F || *name == '/' || *name == '\\') {
            return false;
        }
    }
    return true;
}

// What an entry of a source is to the copy: ZOF_FILE_NONE to pass over, or ENTRY_TOO_LONG, which counts as one file
// that fails. The count and the copy both go by this. Makes its path, a folder's with a slash.
static u32 source_entry(char *path, const char *dir, const char *name, bool tell) {
    if (name[0] == '.' || strcmp(name, "System Volume Information") == 0) {
        return ZOF_FILE_NONE;
    }
    if (!is_plain_name(name)) {
        if (tell) {
            zof_printf("%s: a name with a separator or control characters is skipped: %s\n", dir, name);
        }
        return ZOF_FILE_NONE;
    }
    if (!join(path, PATH_SIZE - 1, dir, name, "")) { // one byte for the slash
        if (tell) {
            zof_printf("path too long, not copied: %.80s...%.80s\n", dir, name);
        }
        return ENTRY_TOO_LONG;
    }
    const u32 kind = zof_file_kind(path);
    if (kind == ZOF_FILE_FOLDER) {
        strcat(path, "/");
    } else if (kind == ZOF_FILE_OTHER && tell) {
        zof_printf("%s: neither file nor folder, skipped\n", path);
    }
    return kind == ZOF_FILE_OTHER ? (u32)ZOF_FILE_NONE : kind;
}

u32 zof_dir_get_fileNum(const char *path) {
    zof_dir_t *dir = zof_opendir(path);
    u32 count = 0;
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[PATH_SIZE];
        const u32 kind = source_entry(below, path, entry->name, false);
        if (kind == ZOF_FILE_FOLDER) {
            count += zof_dir_get_fileNum(below);
        } else if (kind != ZOF_FILE_NONE) {
            count++;
        }
    }
    zof_closedir(dir);
    return count;
}

// What a copy that was killed leaves. Only asked while the target is locked, so nobody else's copy can be running.
static bool is_left_over(const char *name) {
    return zof_file_is_temp(name, NEW_FILE, ZOF_FALSE) || zof_file_is_temp(name, NEW_DIR, ZOF_FALSE);
}

// With `all`, quietly and names with a dot too.
static void folder_empty(const char *path, bool all) {
    zof_dir_t *dir = zof_opendir(path);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[OWN_PATH];
        if (is_dots(entry->name) || (!all && entry->name[0] == '.') ||
            !join(below, sizeof(below) - 1, path, entry->name, "")) {
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
    if (path && *path && join(whole, sizeof(whole), path, path[strlen(path) - 1] == '/' ? "" : "/", "")) {
        folder_empty(whole, false);
    }
}

// Removes whatever stands under this name; `path` is without a slash at its end.
static void clear_away(const char *path) {
    const u32 kind = zof_file_kind(path);
    char whole[OWN_PATH];
    if (kind == ZOF_FILE_FOLDER && join(whole, sizeof(whole), path, "/", "")) {
        folder_empty(whole, true);
    }
    if (kind != ZOF_FILE_NONE) {
        zof_file_remove(path);
    }
}

// How many bytes of the path stand before its last component. One slash at the end does not count.
static size_t parent_length(const char *path) {
    size_t n = strlen(path);
    n -= n > 0 ? 1 : 0;
    while (n > 0 && path[n - 1] != '/' && path[n - 1] != '\\') {
        n--;
    }
    return n;
}

static bool beside(char *out, size_t size, const char *path, const char *name, const char *more) {
    const int length = snprintf(out, size, "%.*s%s%s", (int)parent_length(path), path, name, more);
    return length >= 0 && (size_t)length < size;
}

// The size of an open file; -1 when it is unknown. It is at its beginning again.
static long size_of(FILE *f) {
    const long size = fseek(f, 0, SEEK_END) == 0 ? ftell(f) : -1;
    rewind(f);
    return size;
}

// Copies as many bytes as the file has when it begins: a file that keeps growing would fill the disk. Returns true when all
// of them are written; a read error or an early end is a failure.
static bool pour(FILE *in, FILE *out, u8 *block, u32 size, bool dots) {
    for (long left = size_of(in); left >= 0;) {
        const size_t wanted = left < (long)size ? (size_t)left : size;
        const size_t n = fread(block, 1, wanted, in);
        if (n != wanted || zof_file_put(out, block, n) != 0) {
            return false;
        }
        if (dots) {
            zof_printf(".");
        }
        left -= (long)n;
        if (n < size) {
            return true;
        }
    }
    return false;
}

// False, with a line that says why; `fresh` is gone then.
static bool file_place(FILE *in, FILE *out, const char *fresh, const char *dst, const char *shown, copy_block block) {
    bool good = pour(in, out, block.data, block.size, block.dots);
    if (!good) {
        copy_say(shown, "not written");
    }
    const bool finished = zof_file_finish(out) == 0;
    if (good && (!finished || zof_rename(fresh, dst) != 0)) {
        copy_say(shown, "not put in place");
        good = false;
    }
    if (!good) {
        zof_file_remove(fresh);
    }
    return good;
}

// False, with a line that says why, and the target as it was.
static bool file_replace(const char *dst, const char *src, const char *shown, copy_block block) {
    FILE *in = zof_file_open(src);
    if (!in) {
        zof_printf("creat file fail srcfile=%s\n", src);
        copy_say(src, "not opened");
        return false;
    }
    char fresh[OWN_PATH];
    const bool named = zof_file_temp_name(fresh, sizeof(fresh), dst, NEW_FILE) == 0;
    FILE *out = named ? zof_file_create(fresh) : nullptr;
    if (!out) {
        zof_printf("creat file fail destfp=%s\n", shown);
        copy_say(shown, "not made");
    }
    const bool good = out && file_place(in, out, fresh, dst, shown, block);
    fclose(in);
    return good;
}

s32 zof_file_copy(const char *dst, const char *src, u32 blocksize) {
    if (!dst || !src || blocksize == 0 || blocksize > BLOCK_MOST) {
        return -1;
    }
    auto *block = (u8 *)zof_malloc(blocksize);
    if (!block) {
        zof_printf("srcdata=null\n");
        return -1;
    }
    zof_printf("copy %s to %s  ", src, dst);
    const bool good = file_replace(dst, src, dst, {block, blocksize, true});
    if (good) {
        zof_printf(" succeed\n");
    }
    zof_free(block);
    return good ? 0 : -1;
}

// Reports a file. While its folder is not in place, this one is held back and the one before is reported.
static void file_told(copy_run *r, const char *name, bool ok) {
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

// All files of a folder fail with it.
static void folder_refuse(copy_run *r, const char *src) {
    for (u32 left = zof_dir_get_fileNum(src); left > 0; left--) {
        file_told(r, src, false);
    }
}

// The path as people know it: where a folder that is made beside will stand.
static void show(const copy_run *r, char *shown, const char *path) {
    snprintf(shown, SHOWN_SIZE, "%s%s", r->stage ? r->place : "", r->stage ? path + strlen(r->stage) : path);
}

static void file_copy_into(copy_run *r, const char *into, const char *src, const char *name) {
    char dst[PATH_SIZE];
    if (!join(dst, sizeof(dst), into, name, "")) {
        zof_printf("path too long, not copied: %.80s...%.80s\n", into, name);
        file_told(r, name, false);
        return;
    }
    char shown[SHOWN_SIZE];
    show(r, shown, dst);
    zof_printf("copy %s to %s ", src, shown);
    const bool ok = file_replace(dst, src, shown, {r->block, BLOCK, false});
    if (ok) {
        zof_printf("success \n"); // the new name reaches the disk with its folder, at the folder's end
    }
    file_told(r, name, ok);
}

static void folder_copy(copy_run *r, const char *target, const char *src, bool remove);

// False with a line.
static bool source_exists(const char *src) {
    const bool there = PathExist(src);
    if (!there) {
        zof_printf("src dir %s does not exist\n", src);
    }
    return there;
}

// `name` as it is, never a part of it: it comes from the medium.
static void folder_copy_into(copy_run *r, const char *into, const char *src, const char *name, bool remove) {
    char target[PATH_SIZE];
    if (!source_exists(src)) {
        return;
    }
    if (join(target, sizeof(target), into, name, "/")) {
        folder_copy(r, target, src, remove);
    } else {
        zof_printf("path too long, not copied: %.80s...%.80s\n", into, name);
        folder_refuse(r, src);
    }
}

static void entries_copy(copy_run *r, const char *into, const char *from, bool remove) {
    zof_dir_t *dir = zof_opendir(from);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char src[PATH_SIZE];
        const u32 kind = source_entry(src, from, entry->name, true);
        if (kind == ZOF_FILE_FOLDER) {
            folder_copy_into(r, into, src, entry->name, remove);
        } else if (kind == ZOF_FILE_PLAIN) {
            file_copy_into(r, into, src, entry->name);
        } else if (kind == ENTRY_TOO_LONG) {
            file_told(r, entry->name, false);
        }
    }
    zof_closedir(dir);
    zof_file_finish_folder(into);
}

// Copies what the old folder has to hand on to the new one: hidden names, which an update never touches, and what the
// update would have renewed but could not. All three end with a slash.
static bool keep_old(copy_run *r, const char *fresh, const char *old, const char *src, bool all) {
    zof_dir_t *dir = zof_opendir(old);
    bool good = true;
    for (const zof_dirent_t *entry; good && (entry = zof_readdir(dir));) {
        const char *name = entry->name;
        char from[OWN_PATH], to[OWN_PATH], update[OWN_PATH];
        if (is_dots(name) || is_left_over(name)) {
            continue;
        }
        if (!join(from, sizeof(from) - 1, old, name, "") || !join(to, sizeof(to) - 1, fresh, name, "") ||
            !join(update, sizeof(update) - 1, src, name, "")) {
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
            good = file_replace(to, from, from, {r->block, BLOCK, false});
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

// Lets the two change places; afterwards the old one is where the new one was. Neither name ends in a slash.
static bool swap(const char *fresh, const char *target) {
    if (zof_file_exchange(fresh, target) == 0) {
        return true;
    }
    char aside[OWN_PATH];
    const char *name = target + parent_length(target);
    if (!beside(aside, sizeof(aside), target, OLD_DIR, name) || zof_rename(target, aside) != 0) {
        return false;
    }
    if (zof_rename(fresh, target) != 0) {
        const s32 back = zof_rename(aside, target);
        if (back != 0) {
            copy_say(aside, "stays under this name until the next start");
        }
        return false;
    }
    zof_rename(aside, fresh);
    return true;
}

// Reports the file that was held back. Without the folder in place, what was reported as copied is not.
static void stage_told(copy_run *r, bool placed) {
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
    if (zof_file_temp_name(fresh, sizeof(fresh), target, NEW_DIR) != 0 || !join(stage, sizeof(stage), fresh, "/", "")) {
        zof_printf("path too long, not copied: %.80s...\n", target);
        folder_refuse(r, src);
        return;
    }
    if (zof_mkdir(fresh) != 0) {
        copy_say(target, "not made");
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
        copy_say(target, "stays as it was");
    } else {
        char parent[PATH_SIZE];
        beside(parent, sizeof(parent), target, "", "");
        zof_file_finish_folder(parent);
    }
    stage_told(r, placed);
    clear_away(fresh);
}

// `dst`, a slash if it has none, and the last component of `src`; ends with a slash.
static bool target_of(char *out, const char *dst, const char *src) {
    const size_t parent = parent_length(src);
    const char *name = parent > 0 ? src + parent : "";
    const size_t n = strlen(dst);
    const bool slash = n > 0 && (dst[n - 1] == '/' || dst[n - 1] == '\\');
    if (!join(out, PATH_SIZE - 1, dst, slash ? "" : "/", name)) {
        zof_printf("path too long, not copied: %.80s...%.80s\n", dst, name);
        return false;
    }
    if (out[strlen(out) - 1] != '/') {
        strcat(out, "/");
    }
    return true;
}

// Makes the target if it is not there. False, with a line, when nothing may be written into it: what is in the folder
// that was named at the start may not lead out of it, while that folder itself ("./") may be a link.
static bool folder_ready(const copy_run *r, const char *target, bool itself) {
    char plain[PATH_SIZE], shown[SHOWN_SIZE];
    show(r, shown, target);
    snprintf(plain, sizeof(plain), "%.*s", (int)strlen(target) - (itself ? 2 : 1), target);
    if (!PathExist(target)) {
        zof_printf("mkdir %s \n", shown);
        if (zof_mkdir(plain) != 0) {
            copy_say(shown, "not made");
            return false;
        }
    } else if (!itself && zof_file_kind(plain) != ZOF_FILE_FOLDER) {
        zof_printf("%s: a link, not copied into\n", shown);
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

// Makes the folder that is copied into, if it is not there, and locks it: 0, with a line, when somebody else copies into
// it. A medium without locks is copied to all the same.
static s32 target_lock(const char *dst) {
    char holder[64];
    if (!PathExist(dst)) {
        zof_printf("mkdir %s \n", dst);
        zof_mkdir(dst);
    }
    const s32 lock = zof_folder_lock(dst, holder, sizeof(holder));
    if (lock == 0) {
        zof_printf("%s: in use by %s, nothing is copied\n", dst, holder);
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
    char whole[PATH_SIZE];
    const size_t n = strlen(src);
    if (!join(whole, sizeof(whole), src, n > 0 && src[n - 1] != '/' ? "/" : "", "")) {
        zof_printf("path too long, not copied: %.80s...\n", src);
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
    for (; run.left > 0; run.left--) { // refused, or the disk was pulled out
        zof_dir_schedule_dis(whole, ZOF_COPY_FAILED);
    }
    zof_free(run.block);
    return 0;
}

// A folder that was set aside goes back to its place if that is empty; everything else that is temporary goes.
static void entry_mend(const char *path, const char *entry) {
    char left[OWN_PATH], name[OWN_PATH];
    const size_t prefix = sizeof(OLD_DIR) - 1;
    const bool old = strncmp(entry, OLD_DIR, prefix) == 0 && entry[prefix];
    if ((!old && !is_left_over(entry)) || !join(left, sizeof(left), path, entry, "") ||
        (old && !join(name, sizeof(name), path, entry + prefix, ""))) {
        return;
    }
    if (!old || zof_file_kind(name) != ZOF_FILE_NONE) {
        clear_away(left);
    } else if (zof_rename(left, name) == 0) {
        zof_printf("%s: was set aside by a copy that did not end, and is back\n", name);
    }
}

static void folder_mend(const char *path) {
    zof_dir_t *dir = zof_opendir(path);
    while (const zof_dirent_t *entry = zof_readdir(dir)) {
        char below[OWN_PATH];
        if (entry->name[0] == '.') {
            entry_mend(path, entry->name);
        } else if (entry->is_dir && join(below, sizeof(below) - 1, path, entry->name, "") &&
                   zof_file_kind(below) == ZOF_FILE_FOLDER) {
            strcat(below, "/");
            folder_mend(below);
        }
    }
    zof_closedir(dir);
}

void zof_dir_copy_mend(const char *path) {
    char holder[64];
    const s32 lock = zof_folder_lock(path, holder, sizeof(holder));
    if (lock == 0) {
        zof_printf("%s: in use by %s, left as it is\n", path, holder);
        return;
    }
    folder_mend(path);
    zof_folder_unlock(lock);
}
