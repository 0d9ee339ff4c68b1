// What the folder copy logs about what it could not copy. The first reason is kept for the screen.
#include <stdio.h>

#include <mutex>

#include "func/zof_dir_copy.h"
#include "func/zof_dir_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static struct {
    std::mutex lock;
    char text[ZOF_COPY_REASON_SIZE]; // empty: nothing has failed
} first;

void dir_reason_clear() {
    std::lock_guard guard(first.lock);
    first.text[0] = '\0';
}

// The screen has no room for whole paths: users know the files of their update by name.
static void reason_keep(const char *path, const char *what, const char *why) {
    std::lock_guard guard(first.lock);
    if (!first.text[0]) {
        snprintf(first.text, sizeof(first.text), "%s: %s%s%s", path + zof_path_parent(path), what, why ? ": " : "",
                 why ? why : "");
    }
}

void dir_refuse(const char *path, const char *what) {
    zof_printf("%s: %s\n", path, what);
    reason_keep(path, what, nullptr);
}

void dir_say(const char *path, const char *what) {
    const char *why = zof_file_error();
    zof_printf("%s: %s: %s\n", path, what, why);
    reason_keep(path, what, why);
}

void dir_too_long(const char *dir, const char *name) {
    zof_printf("path too long, not copied: %.80s...%.80s\n", dir, name);
    reason_keep(*name ? name : dir, "its path is too long", nullptr);
}

void zof_dir_copy_get_reason(char *out, size_t size) {
    std::lock_guard guard(first.lock);
    snprintf(out, size, "%s", first.text);
}
