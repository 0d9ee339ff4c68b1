// A widget of this runtime in LVGL's manner: numbered pictures of one folder, shown one after the other. It has the
// name of LVGL's own animated image, which keeps all pictures in memory and is not built. Only one picture is in memory
// at a time, whatever the length of the series. Graphics thread, or under dis_mutex.
#ifndef LV_ANIMIMG_H
#define LV_ANIMIMG_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum { LV_ANIMIMG_PATH_SIZE = 150 };

// The numbers and `repeat_open` may be written before the source is set.
typedef struct {
    lv_img_t img;
    lv_timer_t *timer;
    char *path; // folder, an allocated copy; null until the source is set
    u32 now;    // next picture
    u32 start;
    u32 end;
    u16 repeat_count; // passes left
    u8 type;          // 1 JPG, 2 PNG
    u8 repeat_open;   // not 0: plays forever
} lv_animimg_t;

extern const lv_obj_class_t lv_animimg_class;

// Creates the widget, paused and with nothing to show. Null without memory.
lv_obj_t *lv_animimg_create(lv_obj_t *parent);

// Shows the first picture, the one with the number `now`, and plays: "<folder>/<number>.jpg" if the first one exists,
// else .png for all. A second folder is ignored. For a null folder, or one whose names would not fit, shows nothing and
// logs that.
void lv_animimg_set_src(lv_obj_t *obj, const char *folder, u32 count);

// Milliseconds for each picture; this and the next two resume a paused series.
void lv_animimg_set_duration(lv_obj_t *obj, u32 ms);
void lv_animimg_set_repeat_open(lv_obj_t *obj, u8 on);
void lv_animimg_set_repeat_count(lv_obj_t *obj, u16 n);
void lv_animimg_set_pause(lv_obj_t *obj);
void lv_animimg_set_resume(lv_obj_t *obj);

// Plays from the first picture, 65535 times.
void lv_animimg_set_restart(lv_obj_t *obj);

ZOF_C_END

#endif
