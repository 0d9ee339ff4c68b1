// The start of a project. Its object is created when the work path is found, before the display, which takes its size
// and title from it; its views start with the application's view table.
#include "project/zof_prj.h"

#include <cstring>

#include "drv/zof_drv.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_touch.h"
#include "project/look/zof_font.h"
#include "project/look/zof_icons.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_look_in.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { IMG_CACHE_MAX = 100, PATH_SIZE = 520 };

// All paths are this text followed by a name, so it must end in a separator.
static char *folder_copy(const char *path) {
    const size_t length = path ? std::strlen(path) : 0;
    char *copy = length ? zof_text_copy_n(path, length + 1) : nullptr; // with room for the separator
    if (copy) {
        zof_file_path_take(copy);
    }
    if (copy && copy[length - 1] != '/' && copy[length - 1] != '\\') {
        copy[length] = '/';
    }
    return copy;
}

static zof_prj_t *prj_give_up(zof_prj_t *prj) {
    zof_prj_set_cur(nullptr);
    zof_free(prj->path);
    zof_free(prj);
    return nullptr;
}

// Removes temporary files that killed processes left in the folders where the program keeps files.
static void left_overs_clear() {
    char path[PATH_SIZE];
    static constexpr const char *written[] = {"", ZOF_LANG_KEPT};
    for (const char *folder : written) {
        if (zof_file_state_path(path, sizeof(path), folder, ZOF_FALSE) == 0) {
            zof_file_temp_clear(path);
        }
    }
}

zof_prj_t *zof_prj_obj_create(const char *path) {
    auto *prj = (zof_prj_t *)(zof_malloc(sizeof(zof_prj_t)));
    if (!prj) {
        return nullptr;
    }
    prj->path = folder_copy(path);
    if (!prj->path) {
        zof_free(prj);
        return nullptr;
    }
    zof_look_init();
    zof_prj_set_cur(prj); // first: all paths are relative to the current project
    prj->attr = zof_j2s_get_prj_attr(zof_prj_file_path());
    if (!prj->attr) {
        return prj_give_up(prj);
    }
    prj->view_list = zof_view_list_create();
    prj->view_names = zof_view_name_list_get(nullptr);
    prj->font_list = zof_font_list_create();
    prj->icons = zof_icons_load();
    const char *language = zof_lang_start() ? zof_lang_start() : prj->attr->language;
    if (language) {
        zof_lang_set(language);
    }
    zof_win_mem_total_set(prj->attr->win_mem);
    return prj;
}

s32 zof_prj_hw_init(void) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->attr) {
        return -1;
    }
    if (prj->attr->hw_t.touch_t.th_en & 1) {
        zof_drv_touch_pause(0);
    }
    return 0;
}

static void all_views_load(zof_prj_t *prj) {
    zof_view_name_t *name = nullptr;
    for (s32 i = 0; (name = (zof_view_name_t *)__db_list_visit(prj->view_names, i)); i++) {
        zof_view_load(name->id);
    }
}

s32 zof_prj_create(const zof_view_fun_t *views, u32 count) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || zof_prj_hw_init() != 0) {
        return -1;
    }
    prj->view_fun = views;
    prj->view_fun_cnt = views ? count : 0;
    u8 cache = prj->attr->cacheImg;
    if (cache) {
        lv_img_cache_set_size(cache < IMG_CACHE_MAX ? cache : (u8)IMG_CACHE_MAX);
    }
    zof_prj_show_power_on_logo();
    zof_view_set_dis_view(prj->attr->start_page);
    if (prj->attr->init_allview) {
        all_views_load(prj);
    }
    left_overs_clear();
    lv_timer_handler();
    return 0;
}

// The logo object exists only during the forced refresh; its pixels stay on the panel until the first view is drawn.
// The screen is black as the panel was before, because LVGL's own color would flash.
void zof_prj_show_power_on_logo(void) {
    const char *logo = zof_res_path_check("logo.png", "image/");
    if (!logo || zof_file_kind(logo) == ZOF_FILE_NONE || !lv_disp_get_default()) {
        return;
    }
    lv_obj_set_style_bg_color(lv_scr_act(), lv_color_black(), LV_PART_MAIN);
    lv_obj_t *img = lv_img_create(lv_scr_act());
    lv_img_set_src(img, logo);
    lv_obj_center(img);
    zof_view_force_refresh();
    lv_obj_del(img);
}
