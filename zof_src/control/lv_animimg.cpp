// The image sequence. A timer shows the next picture by its name; what stays decoded is up to the image cache.
#include "control/lv_animimg.h"

#include <stdio.h>
#include <string.h>

#include "project/look/zof_picture.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

enum { TYPE_JPG = 1, TYPE_PNG = 2 };
enum { NAME_SIZE = LV_ANIMIMG_PATH_SIZE + 16 }; // "/4294967295.jpg"
enum { PERIOD_MS = 50, REPEATS = 65535 };

static void name_make(char *name, const lv_animimg_t *anim, u8 type, u32 number) {
    snprintf(name, NAME_SIZE, "%s/%u.%s", anim->path, number, type == TYPE_JPG ? "jpg" : "png");
}

static void picture_show(lv_animimg_t *anim, u32 number) {
    char name[NAME_SIZE];
    name_make(name, anim, anim->type, number);
    lv_img_set_src(&anim->img.obj, zof_res_picture_in(anim->path, name) ? name : nullptr);
    if (anim->img.w == 0) {
        zof_img_missing(name);
    }
}

static void play(lv_animimg_t *anim) {
    lv_timer_resume(anim->timer);
    lv_timer_reset(anim->timer);
}

// The picture of this tick; false when the tick only ends a pass.
static bool number_next(lv_animimg_t *anim, u32 *number) {
    const u32 past = anim->end + 1;
    *number = past ? anim->now % past : anim->now;
    if (*number != 0) {
        return true;
    }
    anim->now = anim->start;
    if (!anim->repeat_open) {
        anim->repeat_count--;
        return false;
    }
    *number = past ? anim->start % past : anim->start;
    return true;
}

static void animing_timer_cb(lv_timer_t *timer) {
    lv_animimg_t *anim = (lv_animimg_t *)timer->user_data;
    u32 number = 0;
    if (anim->repeat_count == 0) {
        lv_timer_pause(timer);
    } else if (number_next(anim, &number)) {
        if (anim->path) {
            picture_show(anim, number);
        }
        anim->now++;
    }
}

static void lv_animimg_constructor(const lv_obj_class_t *, lv_obj_t *obj) {
    lv_animimg_t *anim = (lv_animimg_t *)obj;
    anim->timer = lv_timer_create(animing_timer_cb, PERIOD_MS, obj);
    lv_timer_pause(anim->timer);
    anim->path = nullptr;
    anim->repeat_count = REPEATS;
    anim->now = 1;
}

static void lv_animimg_destructor(const lv_obj_class_t *, lv_obj_t *obj) {
    lv_animimg_t *anim = (lv_animimg_t *)obj;
    lv_timer_del(anim->timer);
    zof_free(anim->path);
    anim->timer = nullptr;
    anim->path = nullptr;
}

const lv_obj_class_t lv_animimg_class = {
    .base_class = &lv_img_class,
    .constructor_cb = lv_animimg_constructor,
    .destructor_cb = lv_animimg_destructor,
    .instance_size = sizeof(lv_animimg_t),
};

lv_obj_t *lv_animimg_create(lv_obj_t *parent) {
    lv_obj_t *obj = lv_obj_class_create_obj(&lv_animimg_class, parent);
    if (obj) {
        lv_obj_class_init_obj(obj);
    }
    return obj;
}

// A copy of the series' folder; null if it is absent or too long.
static char *path_copy(const char *folder) {
    const bool usable = zof_res_is_picture_path(folder);
    if (!usable || strlen(folder) >= LV_ANIMIMG_PATH_SIZE) {
        zof_printf("image sequence: %s", usable ? "the path of its folder is too long" : "no folder is given");
        return nullptr;
    }
    return zof_text_copy(folder);
}

void lv_animimg_set_src(lv_obj_t *obj, const char *folder, u32) {
    if (!obj) {
        return;
    }
    lv_animimg_t *anim = (lv_animimg_t *)obj;
    if (!anim->path) {
        anim->path = path_copy(folder);
    }
    if (!anim->path) {
        return;
    }
    char name[NAME_SIZE];
    lv_timer_resume(anim->timer);
    anim->start = anim->now;
    name_make(name, anim, TYPE_JPG, anim->start);
    anim->type = FileExist(name) ? TYPE_JPG : TYPE_PNG;
    picture_show(anim, anim->start);
}

void lv_animimg_set_duration(lv_obj_t *obj, u32 ms) {
    if (!obj) {
        return;
    }
    lv_timer_set_period(((lv_animimg_t *)obj)->timer, ms);
    play((lv_animimg_t *)obj);
}

void lv_animimg_set_repeat_open(lv_obj_t *obj, u8 on) {
    if (!obj) {
        return;
    }
    ((lv_animimg_t *)obj)->repeat_open = on;
    play((lv_animimg_t *)obj);
}

void lv_animimg_set_repeat_count(lv_obj_t *obj, u16 n) {
    if (!obj) {
        return;
    }
    ((lv_animimg_t *)obj)->repeat_count = n;
    play((lv_animimg_t *)obj);
}

void lv_animimg_set_pause(lv_obj_t *obj) {
    if (obj) {
        lv_timer_pause(((lv_animimg_t *)obj)->timer);
    }
}

void lv_animimg_set_resume(lv_obj_t *obj) {
    if (obj) {
        lv_timer_resume(((lv_animimg_t *)obj)->timer);
    }
}

void lv_animimg_set_restart(lv_obj_t *obj) {
    if (!obj) {
        return;
    }
    lv_animimg_t *anim = (lv_animimg_t *)obj;
    anim->repeat_count = REPEATS;
    anim->now = anim->start;
    play(anim);
}
