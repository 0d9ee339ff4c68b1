// Pictures of controls: their files and the log of missing ones.
#include "control/zof_picture.h"

#include "project/look/zof_lang.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// A picture that changes all the time, such as a sequence's, must not fill the log.
void zof_img_missing(const char *path) {
    enum { LOGGED_MAX = 64 };
    static struct {
        u32 hash[LOGGED_MAX];
        u32 count;
    } logged;
    const char *text = path ? path : "a picture without a name";
    u32 hash = 2166136261u; // FNV-1a
    for (const char *c = text; *c; c++) {
        hash = (hash ^ (u8)*c) * 16777619u;
    }
    for (u32 known : logged.hash) {
        if (known == hash) {
            return;
        }
    }
    logged.hash[logged.count++ % LOGGED_MAX] = hash;
    zof_printf("%s: cannot be read", text);
}

char *zof_img_path_copy(const char *name) {
    char *copy = zof_text_copy(zof_res_picture_path(zof_lang_get_cur_str(name)));
    if (copy && zof_file_get_size(copy) < 0) {
        zof_img_missing(copy);
    }
    return copy;
}
