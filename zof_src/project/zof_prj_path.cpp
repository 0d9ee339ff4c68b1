// Finds the project folder: the one that the command line names, or else the first with a project file beside the
// program, in the data folders of the system, and in a few places relative to the working directory.
#include <cstdlib>
#include <cstring>

#include "drv/zof_drv_file.h"
#include "project/path/zof_res.h"
#include "project/zof_prj.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define PRJ_FILE "config/project/zofprj.g"

enum { PATH_SIZE = 500 };

static const char *const candidates[] = {"../../", "./", "./zof_src/zof_test/", "../zof_src/zof_test/"};

static char given[PATH_SIZE]; // empty: search

s32 zof_prj_folder_set(const char *folder) {
    size_t length = folder ? std::strlen(folder) : 0;
    if (length >= sizeof(given)) {
        return -1;
    }
    std::memcpy(given, folder ? folder : "", length + 1);
    zof_file_path_take(given);
    while (length > 1 && given[length - 1] == '/') {
        given[--length] = '\0';
    }
    return 0;
}

// Writes the folder of the program with its "/", or an empty text if it is not known.
static void program_folder(char *out) {
    const bool known = zof_program_path(out, PATH_SIZE) == 0;
    out[known ? zof_path_parent(out) : 0] = '\0';
}

// Writes the data folder of the prefix in which the program is installed, PREFIX/share for PREFIX/bin/NAME, or an empty
// text.
static void prefix_data(char *out) {
    char folder[PATH_SIZE];
    program_folder(folder);
    folder[folder[0] ? zof_path_parent(folder) : 0] = '\0';
    if (!folder[0] || !zof_text_join(out, PATH_SIZE, folder, "share", nullptr)) {
        out[0] = '\0';
    }
}

// Writes entry `n` of the system's data folders. Returns false after the last one.
static bool data_folder(u32 n, char *out) {
    const char *list = std::getenv("XDG_DATA_DIRS");
    const char *at = list && *list ? list : "/usr/local/share:/usr/share";
    for (; n && at; n--) {
        at = std::strchr(at, ':');
        at += at ? 1 : 0;
    }
    const size_t length = at ? std::strcspn(at, ":") : 0;
    out[0] = '\0';
    if (length < PATH_SIZE && length && at[0] == '/') { // a relative one would depend on the working directory
        std::memcpy(out, at, length);
        out[length] = '\0';
    }
    return at != nullptr;
}

// Writes the project folder of an installed program in data folder `n`, the prefix's first; an empty text if there is
// no such folder or it comes twice. Returns false after the last one.
static bool installed_place(u32 n, char *out) {
    char prefix[PATH_SIZE], data[PATH_SIZE];
    out[0] = '\0';
    prefix_data(prefix);
    const bool more = n == 0 || data_folder(n - 1, data);
    const char *folder = n == 0 ? prefix : data;
    char named[PATH_SIZE];
    const bool again = n > 0 && std::strcmp(data, prefix) == 0;
    if (more && folder[0] && !again && zof_text_join(named, PATH_SIZE, folder, "/", zof_program_name())) {
        zof_text_join(out, PATH_SIZE, named, "/res", nullptr);
    }
    return more;
}

// Writes the place with number `n`; an empty text if it does not apply. Returns false after the last one.
static bool place_write(u32 n, char *out) {
    char folder[PATH_SIZE];
    out[0] = '\0';
    if (given[0]) {
        zof_text_join(out, PATH_SIZE, given, n ? "/res" : "", nullptr);
        return n < 2;
    }
    if (n > 0) {
        return installed_place(n - 1, out);
    }
    program_folder(folder);
    if (folder[0]) {
        zof_text_join(out, PATH_SIZE, folder, "res", nullptr);
    }
    return true;
}

// Returns whether a folder has a project file that can be read; prints the reason if not, on request.
static bool place_try(const char *folder, bool report) {
    const char *path = zof_res_file_path(folder, "/", PRJ_FILE);
    FILE *file = zof_file_read_open(path);
    if (file) {
        fclose(file);
    } else if (path && report) {
        zof_printf("%s: %s: %s", folder, PRJ_FILE, zof_file_error());
    }
    return file != nullptr;
}

static const char *search(bool report) {
    char folder[PATH_SIZE];
    for (u32 n = 0; place_write(n, folder); n++) {
        if (folder[0] && place_try(folder, report)) {
            return zof_res_file_path(folder, "/", nullptr);
        }
    }
    if (given[0]) {
        return nullptr;
    }
    for (u32 i = 0; report && i < sizeof(candidates) / sizeof(candidates[0]); i++) {
        zof_text_join(folder, sizeof(folder), candidates[i], "res", nullptr);
        place_try(folder, true);
    }
    return zof_res_check_prj_path(candidates, sizeof(candidates) / sizeof(candidates[0]));
}

const char *zof_drv_get_prj_path(void) {
    zof_res_set_path_cache(PATH_SIZE);
    return search(false);
}

void zof_prj_places_print(void) {
    if (!zof_drv_get_prj_path()) {
        search(true);
    }
}

void zof_drv_set_prj_path(void) {
    const char *path = zof_drv_get_prj_path();
    if (!path) {
        zof_printf("No work path found\n");
        return;
    }
    zof_printf("find work path , %s\n", path);
    zof_prj_obj_create(path);
}
