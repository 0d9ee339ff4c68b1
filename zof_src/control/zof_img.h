// Images. Names are those of a project: a file under image/, a drive path, or a language key. A missing file shows
// nothing.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object.
#ifndef ZOF_IMG_H
#define ZOF_IMG_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *init_img;
    zof_point_t rotate_pt;
    s16 init_angel;
    u32 img_mode_e;
} zof_img_attr_t;

extern const reflect_item_t zof_img_attr_t_tbl[];

s32 zof_img_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_img_set_src(zof_ctrl_t *ctrl, const char *name); // shows another picture

// Returns the part of the image's path after the project folder and "image/"; it points into the path. Null without
// one.
const char *zof_img_get_src(zof_ctrl_t *ctrl);

// Shows the picture again when its name is a language key.
s32 zof_img_update_src(zof_ctrl_t *ctrl);                         // loads the picture again
s32 zof_img_recolor(zof_ctrl_t *ctrl, zof_color_t color, u8 opa); // mixes a colour into it; opa 255 covers it

// Tenths of a degree; zoom, 256 is 100 %.
s32 zof_img_set_rotate_angel(zof_ctrl_t *ctrl, s32 angle); // turns it clockwise by tenths of a degree
s32 zof_img_zoom_setting(zof_ctrl_t *ctrl, u32 zoom);      // scales it; 256 is 100 %
s32 zof_img_set_pivot(zof_ctrl_t *ctrl, s32 x, s32 y);     // the point that turning and scaling leave in place

// Returns 1 for a text that can be a path: its first character is printable ASCII.
s32 zof_img_get_src_type(const char *text);

// Additions of the patched LVGL, under their names.
void kvy_img_set_flatten(lv_obj_t *obj, u8 value);
void KVY_img_set_center(lv_obj_t *obj);
void kvy_lv_img_cache_max_life_set(s32 n);

ZOF_C_END

#endif
