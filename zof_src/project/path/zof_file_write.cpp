// Files are written to a temporary file and renamed. The temporary file is created exclusively under a unique name, so
// a link placed there is not followed, and two programs do not write to one file.
#include <stdio.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "project/path/zof_res.h"

s32 zof_file_write(const char *path, const void *data, size_t size) {
    char beside[520];
    if (!path || (!data && size) || zof_file_temp_name(beside, sizeof(beside), path, ZOF_FILE_TEMP) != 0) {
        return -1;
    }
    FILE *f = zof_file_create(beside);
    if (!f) {
        return -1;
    }
    bool good = zof_file_put(f, data, size) == 0;
    good = zof_file_finish(f) == 0 && good; // otherwise a power failure could leave the new name without its content
    if (!good || zof_rename(beside, path) != 0) {
        zof_file_remove(beside);
        return -1;
    }
    return 0;
}
