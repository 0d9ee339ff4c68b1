// Pictures of controls and views: their files, and the log of those that cannot be shown.
#include "project/look/zof_picture.h"

#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_file.h"
#include "project/look/zof_lang.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// The first bytes of a file, by its suffix.
static const struct {
    const char *suffix, *begin, *fault;
} kinds[] = {
    {".png", "\x89PNG", "not a PNG picture"},
    {".jpg", "\xFF\xD8\xFF", "not a JPEG picture"},
    {".jpeg", "\xFF\xD8\xFF", "not a JPEG picture"},
    {".gif", "GIF8", "not a GIF picture"},
};

const char *zof_img_fault(const char *path) {
    char begin[4] = "";
    FILE *file = zof_file_read_open(path);
    if (!file) {
        return "cannot be opened";
    }
    const size_t size = fread(begin, 1, sizeof(begin), file);
    fclose(file);
    for (const auto &kind : kinds) {
        const size_t need = strlen(kind.begin);
        if (zof_suffix_is(path, kind.suffix) && (size < need || memcmp(begin, kind.begin, need) != 0)) {
            return kind.fault;
        }
    }
    return nullptr;
}

// A picture that changes all the time, such as a sequence's, must not fill the log.
void zof_img_missing(const char *path) {
    static zof_seen_t logged;
    const char *text = path ? path : "a picture without a name";
    if (!zof_seen_add(&logged, text)) {
        return;
    }
    const char *fault = path ? zof_img_fault(path) : "cannot be opened";
    zof_printf("%s: %s", text, fault ? fault : "cannot be decoded: damaged, or too large");
}

char *zof_img_path_copy(const char *name) {
    char *copy = zof_text_copy(zof_res_picture_path(zof_lang_get_cur_str(name)));
    if (copy && zof_img_fault(copy)) {
        zof_img_missing(copy);
    }
    return copy;
}
