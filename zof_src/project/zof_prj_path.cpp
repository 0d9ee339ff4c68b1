// Finds the project folder in a few places relative to the working directory, unless the program names one.
#include <cstring>

#include "project/path/zof_res.h"
#include "project/zof_prj.h"
#include "zof_lib/zof_stdio.h"

enum { PATH_SIZE = 500 };

static const char *const candidates[] = {"../../", "./", "./zof_src/zof_test/", "../zof_src/zof_test/"};

static char given[PATH_SIZE]; // empty: search

s32 zof_prj_folder_set(const char *folder) {
    const size_t length = folder ? std::strlen(folder) : 0;
    if (length >= sizeof(given)) {
        return -1;
    }
    std::memcpy(given, folder ? folder : "", length + 1);
    return 0;
}

const char *zof_drv_get_prj_path(void) {
    zof_res_set_path_cache(PATH_SIZE);
    if (given[0]) {
        return zof_res_file_path(given, nullptr, nullptr);
    }
    return zof_res_check_prj_path(candidates, sizeof(candidates) / sizeof(candidates[0]));
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
