// Image, image button, tile view and tile. Graphics thread, or under dis_mutex.
#ifndef ZOF_IMAGE_H
#define ZOF_IMAGE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Images. Names are those of a project: a file under image/, a drive path, or a language key. A missing file shows
// nothing. Functions return 0, or -1 without an object.
s32 zof_img_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_img_set_src(zof_ctrl_t *ctrl, const char *name);

// Returns the part of the image's path after the project folder and "image/"; it points into the path. Null without
// one.
const char *zof_img_get_src(zof_ctrl_t *ctrl);

// Shows the picture again when its name is a language key.
s32 zof_img_update_src(zof_ctrl_t *ctrl);
s32 zof_img_recolor(zof_ctrl_t *ctrl, zof_color_t color, u8 opa);

// Tenths of a degree; zoom, 256 is 100 %.
s32 zof_img_set_rotate_angel(zof_ctrl_t *ctrl, s32 angle);
s32 zof_img_zoom_setting(zof_ctrl_t *ctrl, u32 zoom);
s32 zof_img_set_pivot(zof_ctrl_t *ctrl, s32 x, s32 y);

// Returns 1 for a text that can be a path: its first character is printable ASCII.
s32 zof_img_get_src_type(const char *text);

// Image buttons. `state`: 0 released, 1 pressed, 2 disabled, 3 checked, 4 checked pressed, 5 checked disabled; others
// return -1. Texts work as on buttons.
s32 zof_imgbtn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_imgbtn_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_imgbtn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 state);
s32 zof_imgbtn_set_txt_size(zof_ctrl_t *ctrl, u32 size);
s32 zof_imgbtn_set_mode(zof_ctrl_t *ctrl, u32 state);
s32 zof_imgbtn_get_state(zof_ctrl_t *ctrl);
s32 zof_imgbtn_set_image(zof_ctrl_t *ctrl, u32 state, const char *name);
s32 zof_imgbtn_update_txt(zof_ctrl_t *ctrl);

// Centres the picture that is shown on the declared box.
s32 zof_imgbtn_pos_reset(lv_obj_t *object, zof_imgbtn_attr_t *attr);

// Tile views. Rows and columns count from 0; the getter returns those of the active tile. -1 for null, or without a
// tile.
s32 zof_tileview_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tile_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tileview_set_tile_id(zof_ctrl_t *ctrl, u32 row, u32 col, u32 animate);
s32 zof_tileview_get_tile_id(zof_ctrl_t *ctrl, u32 *row, u32 *col);

// Additions of the patched LVGL, under their names.
void kvy_img_set_flatten(lv_obj_t *obj, u8 value);
void KVY_img_set_center(lv_obj_t *obj);
void kvy_lv_img_cache_max_life_set(s32 n);

ZOF_C_END

#endif
