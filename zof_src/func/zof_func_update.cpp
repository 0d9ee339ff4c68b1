// The watch for an update disk, and its progress screen. The copy itself runs on its own thread and touches no control.
#include "func/zof_func_update.h"

#include <stdio.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_file.h"
#include "func/zof_dir_copy.h"
#include "lvgl.h"
#include "project/look/zof_lang.h"
#include "project/path/zof_res.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_task.h"

#define MEDIA "../disk/"

enum { PERIOD_MS = 200, WATCH_MS = 60000, BAR_HEIGHT = 50, PATH_SIZE = 256, RESULT_SIZE = 300, NOTHING_PAINTED = 255 };

static struct {
    zof_task_t *schedule_task;
    u32 schedule_time; // ms the watch has run
    u8 down_start;     // a copy was started; the program never starts a second one
    u8 ended;          // its result is on the screen
    u32 filesum;       // files to copy; 0: not counted, and no progress is painted
    u32 last_schedule; // percent last painted
} watch = {.last_schedule = NOTHING_PAINTED};

static struct {
    lv_obj_t *sch_screen;
    lv_obj_t *bar1;
    lv_obj_t *label1; // percent, on the bar
    lv_obj_t *label2; // what is being updated
    lv_obj_t *label3; // result
    lv_obj_t *reason; // why files failed, below the bar
} screen;

static lv_obj_t *red_label(lv_obj_t *parent) {
    lv_obj_t *label = lv_label_create(parent);
    lv_obj_set_style_text_color(label, lv_color_hex(0xFFFF0000), LV_PART_MAIN);
    return label;
}

static void screen_build() {
    const s32 width = lv_disp_get_hor_res(nullptr);
    const s32 height = lv_disp_get_ver_res(nullptr);
    screen.sch_screen = lv_obj_create(nullptr);
    screen.bar1 = lv_bar_create(screen.sch_screen);
    lv_obj_set_size(screen.bar1, (lv_coord_t)(2 * (width / 3)), BAR_HEIGHT);
    lv_obj_set_pos(screen.bar1, (lv_coord_t)(width / 6), (lv_coord_t)(height / 2 - BAR_HEIGHT / 2));
    lv_bar_set_range(screen.bar1, 0, 100);
    lv_obj_set_style_radius(screen.bar1, LV_RADIUS_CIRCLE, LV_PART_MAIN);
    lv_obj_set_style_radius(screen.bar1, LV_RADIUS_CIRCLE, LV_PART_INDICATOR);
    screen.label1 = red_label(screen.bar1);
    lv_obj_center(screen.label1);
    screen.label2 = red_label(screen.sch_screen);
    lv_obj_align_to(screen.label2, screen.bar1, LV_ALIGN_OUT_TOP_LEFT, 0, -40);
    screen.label3 = red_label(screen.sch_screen);
    lv_obj_align_to(screen.label3, screen.bar1, LV_ALIGN_OUT_TOP_LEFT, 0, -20);
    screen.reason = red_label(screen.sch_screen);
    lv_obj_set_width(screen.reason, (lv_coord_t)(2 * (width / 3)));
    lv_obj_align_to(screen.reason, screen.bar1, LV_ALIGN_OUT_BOTTOM_LEFT, 0, 10);
}

// Returns the project's own text in the current language, or `fixed` if the project has no such text.
static const char *words(const char *key, const char *fixed) {
    const char *own = zof_lang_get_cur_str(key);
    return own == key ? fixed : own;
}

static void views_hide() {
    zof_view_hide_layer(ZOF_LAYER_BG);
    zof_view_hide_layer(ZOF_LAYER_STATE);
    zof_view_hide_layer(ZOF_LAYER_TOP);
}

void zof_func_bar_show(const char *name) {
    if (!screen.sch_screen) {
        screen_build();
    }
    lv_scr_load(screen.sch_screen);
    lv_label_set_text(screen.label1, "");
    lv_label_set_text(screen.label3, "");
    lv_label_set_text(screen.reason, "");
    char fixed[PATH_SIZE];
    snprintf(fixed, sizeof(fixed), "upgrading %s,pls don't turn off the power", name ? name : "");
    lv_label_set_text(screen.label2, words("#update_running", fixed));
    lv_bar_set_value(screen.bar1, 0, LV_ANIM_OFF);
    watch.last_schedule = 0;
    views_hide();
}

static void bar_paint(u32 percent) {
    lv_bar_set_value(screen.bar1, (s32)percent, LV_ANIM_OFF);
    lv_label_set_text_fmt(screen.label1, "%d %%", (s32)percent);
    lv_scr_load(screen.sch_screen);
    watch.last_schedule = percent;
    views_hide();
}

// Writes the result with its counts in place of "%1" and "%2". A language file is data, so its text is not a format.
static void result_text(char *out, size_t size, u32 suc, u32 fail) {
    size_t len = 0;
    for (const char *at = words("#update_done", "upgraded,success %1 , fail %2,pls restart power"); *at; at++) {
        const bool count = at[0] == '%' && (at[1] == '1' || at[1] == '2');
        const s32 n = count ? snprintf(out + len, size - len, "%d", (s32)(at[1] == '1' ? suc : fail))
                            : snprintf(out + len, size - len, "%c", *at);
        len += (size_t)n < size - len ? (size_t)n : 0;
        at += count;
    }
}

// Asking to restart, the screen no longer asks to leave the power on.
static void result_paint(u32 suc, u32 fail) {
    char result[RESULT_SIZE] = "";
    char reason[ZOF_COPY_REASON_SIZE] = "";
    if (fail) {
        zof_dir_copy_get_reason(reason, sizeof(reason));
    }
    result_text(result, sizeof(result), suc, fail);
    lv_label_set_text(screen.label2, "");
    lv_label_set_text(screen.label3, result);
    lv_label_set_text(screen.reason, reason);
}

void zof_func_bar_set_value(u32 suc, u32 fail, u32 sum) {
    if (!screen.bar1 || sum == 0) {
        return;
    }
    const u64 done = (u64)suc + fail;
    const u32 percent = (u32)(done * 100 / sum);
    zof_printf("filenum=%d sucnum=%d sumnum=%d \n", (s32)fail, (s32)suc, (s32)sum);
    if (percent == watch.last_schedule) {
        return;
    }
    if (done == sum) {
        result_paint(suc, fail);
    }
    bar_paint(percent);
}

char *zof_func_check_res_exist(const char *dir, const char *file) {
    static const char *const media[] = {"T/", "U/"};
    if (!dir && !file) {
        return nullptr;
    }
    for (const char *medium : media) {
        char *path = zof_res_file_path(zof_res_get_prjfile_path(MEDIA, medium), dir, file);
        if (file ? FileExist(path) : PathExist(path)) {
            return path;
        }
    }
    return nullptr;
}

// Returns true if the medium can be written. Logs once that it cannot, because the watch asks every 200 ms.
static bool target_usable(const char *src, const char *target) {
    static bool logged;
    const char *path = zof_res_get_prjfile_path(MEDIA, target);
    const bool usable = path && zof_folder_writable(path);
    if (!usable && !logged) {
        zof_printf("no update from %s: it needs a folder that can be written: %s: %s", src, path ? path : target,
                   zof_file_error());
        logged = true;
    }
    return usable;
}

// Starts copying a folder of one medium over another medium, if there is such a folder; links do not count.
static void update_try(const char *medium, const char *folder, const char *target, bool counted) {
    char src[PATH_SIZE];
    const char *disk = zof_res_get_prjfile_path(MEDIA, medium);
    const s32 n = disk ? snprintf(src, sizeof(src), "%s%s", disk, folder) : -1;
    if (n + 4 >= PATH_SIZE) {
        static bool logged; // the watch gets here every 200 ms
        if (!logged) {
            zof_printf("path too long, no update from there: %.80s...\n", disk);
        }
        logged = true;
        return;
    }
    if (n < 0 || zof_file_kind(src) != ZOF_FILE_FOLDER) {
        return;
    }
    if (watch.down_start) { // even when that copy has finished
        zof_printf("%s is ignored: another medium came first\n", src);
        return;
    }
    if (!target_usable(src, target)) {
        return;
    }
    // The third element makes the copy go into the target itself.
    snprintf(src + n, sizeof(src) - (size_t)n, "/./");
    zof_func_bar_show("./");
    if (counted) {
        watch.filesum = zof_dir_get_fileNum(src);
    }
    zof_dir_copy_async(zof_res_get_prjfile_path(MEDIA, target), src, ZOF_TRUE);
    zof_dir_copy_async_start();
    watch.down_start = 1;
}

static void media_look() {
    update_try("T/", "zof_update", "D/", false);
    update_try("U/", "zof_update", "D/", true);
    if (PathExist(zof_res_get_prjfile_path(MEDIA, "T/"))) {
        update_try("U/", "zof_update_t", "T/", true);
    }
}

static void progress_paint() {
    u32 suc = 0;
    u32 fail = 0;
    zof_dir_copy_get_progress(&suc, &fail);
    zof_func_bar_set_value(suc, fail, watch.filesum);
}

// Uses the number of files that were really there: after a copy that was not counted, of an empty folder, or of a disk
// that changed meanwhile, progress alone would never reach its end.
static void result_show() {
    u32 suc = 0;
    u32 fail = 0;
    zof_dir_copy_get_progress(&suc, &fail);
    if (!watch.ended) {
        result_paint(suc, fail);
        bar_paint(100);
        watch.ended = 1;
    }
    zof_func_bar_set_value(suc, fail, suc + fail);
    zof_printf("wait reboot\n");
    zof_delay(100);
}

// Keeps watching a copy that takes longer than the watch: until it ends the screen asks not to turn off the power.
static void zof_func_schedule_udisk(zof_task_t *task) {
    const bool copying = zof_dir_copy_async_statue() == 0;
    watch.schedule_time += watch.schedule_time <= WATCH_MS ? PERIOD_MS : 0;
    if (copying) {
        progress_paint();
    } else if (!watch.down_start) {
        media_look();
    } else {
        result_show();
    }
    if (watch.schedule_time > WATCH_MS && !copying && (watch.ended || !watch.down_start)) {
        zof_task_del(task);
        watch.schedule_task = nullptr;
    }
}

static void media_repair(const char *medium) {
    const char *path = zof_res_get_prjfile_path(MEDIA, medium);
    if (path && PathExist(path)) {
        zof_dir_copy_repair(path);
    }
}

s32 zof_func_schedule(void) {
    static bool started;
    if (!started) {
        started = true;
        media_repair("D/");
        media_repair("T/");
        watch.schedule_task = zof_task_create(zof_func_schedule_udisk, PERIOD_MS, nullptr);
    }
    return 0;
}
