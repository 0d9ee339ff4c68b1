// Resolves resource names into paths. All paths are built in one shared buffer, so a lookup never allocates; callers
// that keep a path copy it. Paths are assembled in a second half of the buffer first, because a name may itself be in
// the buffer, and a path that does not fit must leave the previous one intact.
#include "project/path/zof_res.h"

#include <cstring>

#include "project/base/zof_prj_cur.h"
#include "project/base/zof_prj_up.h"
#include "project/path/zof_path_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define PRJ_FILE "config/project/zofprj.g"

enum { LOCAL_NAME_SIZE = 50 };

static struct {
    char *res_path_buf; // twice the size: the path, and the half in which it is assembled
    u32 res_path_len;   // bytes of one half
} res;

s32 zof_res_set_path_cache(u32 n) {
    if (n == 0) {
        return -1;
    }
    auto *buffer = (char *)(zof_malloc(2 * ((size_t)n + 1)));
    if (!buffer) {
        return -1;
    }
    zof_free(res.res_path_buf);
    res.res_path_buf = buffer;
    res.res_path_len = n + 1;
    return 0;
}

// Null parts are skipped. Returns null, after a message, if the path does not fit.
static char *join(const char *a, const char *b, const char *c) {
    if (!res.res_path_buf) {
        return nullptr;
    }
    char *whole = res.res_path_buf + res.res_path_len;
    if (!zof_text_join(whole, res.res_path_len, a, b, c)) {
        zof_printf("path too long: %.80s...%.80s\n", a ? a : "", c ? c : "");
        return nullptr;
    }
    return (char *)std::memcpy(res.res_path_buf, whole, std::strlen(whole) + 1);
}

char *zof_res_file_path(const char *a, const char *b, const char *c) {
    return a ? join(a, b, c) : nullptr;
}

const char *zof_res_check_prj_path(const char *const *candidates, u32 count) {
    for (u32 i = 0; candidates && i < count; i++) {
        if (candidates[i] && FileExist(zof_res_file_path(candidates[i], "./", "res/" PRJ_FILE))) {
            return zof_res_file_path(candidates[i], "./", "res/");
        }
    }
    return nullptr;
}

const char *zof_res_get_prj_path(void) {
    zof_prj_t *prj = zof_prj_get_cur();
    return prj ? prj->path : nullptr;
}

// Folders set by the runtime that are outside the project, such as those of the drives, are not checked for links.
char *zof_res_get_prjfile_path(const char *dir, const char *name) {
    if (!path_name_passes(dir, name)) {
        return nullptr;
    }
    const char *project = zof_res_get_prj_path();
    char *path = zof_res_file_path(project, dir, name);
    const bool ours = dir && std::strncmp(dir, "../", 3) == 0;
    return ours ? path : path_linked_inside(path, project);
}

const char *zof_prj_file_path(void) {
    return zof_res_get_prjfile_path(nullptr, PRJ_FILE);
}

// Returns true if the parts fit the local buffer, otherwise false after a message.
static bool local_name(char *out, const char *a, const char *b, const char *c) {
    if (zof_text_join(out, LOCAL_NAME_SIZE, a, b, c)) {
        return true;
    }
    zof_printf("name too long: %.80s%s%s\n", a, b, c);
    return false;
}

char *zof_res_get_g_file_path(const char *dir, const char *name) {
    char file[LOCAL_NAME_SIZE];
    return name && local_name(file, name, ".g", "") ? zof_res_get_prjfile_path(dir, file) : nullptr;
}

char *zof_res_get_theme_path(const char *theme, u32 type) {
    char file[LOCAL_NAME_SIZE];
    const zof_ctrl_class_t *row = zof_prj_up.ctrl_class(type);
    if (!theme || !row || !local_name(file, theme, "/", row->name)) {
        return nullptr;
    }
    char whole[LOCAL_NAME_SIZE];
    return local_name(whole, file, ".g", "") ? zof_res_get_prjfile_path("config/theme/", whole) : nullptr;
}

void zof_res_check_path(char *text) {
    for (; text && *text; text++) {
        if (*text == '\\') {
            *text = '/';
        }
    }
}

const char *zof_res_get_file_name(const char *dir, const char *full) {
    const char *path = zof_res_get_prj_path();
    if (!path || !dir || !full) {
        return nullptr;
    }
    size_t skip = std::strlen(path) + std::strlen(dir);
    return std::strlen(full) > skip ? full + skip : nullptr;
}

char *zof_res_path_zof_malloc(const char *text) {
    return zof_text_copy(text);
}

void zof_res_path_free(void *copy) {
    zof_free(copy);
}

void zof_res_update(void) {
}
