// Files are written beside and renamed into place.
#include <stdio.h>
#include <string.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "project/zof_res.h"
#include "zof_lib/zof_stdio.h"

s32 zof_file_write(const char *path, const void *data, size_t size) {
    char beside[520];
    if (!path || (!data && size) || (size_t)snprintf(beside, sizeof(beside), "%s.new", path) >= sizeof(beside)) {
        return -1;
    }
    FILE *f = fopen(beside, "wb");
    if (!f) {
        return -1;
    }
    bool good = fwrite(data, 1, size, f) == size;
    good = zof_file_finish(f) == 0 && good; // else a power cut could leave the new name without its content
    if (!good || zof_rename(beside, path) != 0) {
        remove(beside);
        return -1;
    }
    return 0;
}
