// Opens pictures, fonts, sounds and clips with the decoders that the runtime uses.
#include <cstdio>
#include <cstring>
#include <initializer_list>

#include "check/zof_check_in.h"
#include "drv/zof_drv_media.h"
#include "lvgl.h"
#include "project/look/zof_font.h"
#include "project/look/zof_picture.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_util.h"

// Returns the reason why a picture cannot be shown, or null if it can.
static const char *picture_fault(const char *path) {
    const char *fault = zof_img_fault(path);
    if (fault || zof_suffix_is(path, ".gif")) {
        return fault;
    }
    zof_image_init();
    lv_img_decoder_dsc_t picture = {};
    if (lv_img_decoder_open(&picture, path, lv_color_black(), 0) != LV_RES_OK) {
        return "cannot be decoded: damaged, or too large";
    }
    lv_img_decoder_close(&picture);
    return nullptr;
}

static bool is_picture(const char *path) {
    for (const char *suffix : {".png", ".jpg", ".jpeg", ".gif"}) {
        if (zof_suffix_is(path, suffix)) {
            return true;
        }
    }
    return false;
}

static bool is_font(const char *path) {
    return IsOutlineFontFile(path) || IsBinFile(path);
}

void check_media(check_run_t *c) {
    for (u32 i = 0; i < c->files.count; i++) {
        const check_file_t *file = &c->files.at[i];
        char path[1024];
        std::snprintf(path, sizeof path, "%s%s", c->folder, file->path);
        if (file->refused) {
            continue;
        }
        const bool media = check_begins(file->path, "sound/") || check_begins(file->path, "video/");
        const char *fault = check_begins(file->path, "image/") && is_picture(path) ? picture_fault(path)
                            : check_begins(file->path, "font/") && is_font(path)   ? zof_font_fault(path)
                            : media                                                ? zof_media_fault(path)
                                                                                   : nullptr;
        if (media && !zof_media_built_in(path)) {
            check_report(c, file, ZOF_J_NONE, CHECK_NOT_BUILT_IN, "not built in: it is not played");
        }
        if (fault) {
            check_report(c, file, ZOF_J_NONE, CHECK_FILE_DAMAGED, "%s", fault);
        }
    }
}
