// Image, image button, tile view and tile. Graphics thread, or under dis_mutex.
#ifndef ZOF_IMAGE_H
#define ZOF_IMAGE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Images. Names are those of a project: a file under image/, a drive path, or a language key. A file that is not there
// shows nothing. 0, or -1 without an object.
s32 zof_img_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_img_set_src(zof_ctrl_t *ctrl, const char *name);

// The name behind project folder and "image/", within the image's own path; null without one.
const char *zof_img_get_src(zof_ctrl_t *ctrl);

// Shows the picture again when its name is a language key.
s32 zof_img_update_src(zof_ctrl_t *ctrl);
s32 zof_img_recolor(zof_ctrl_t *ctrl, zof_color_t color, u8 opa);

// Tenths of a degree; zoom, 256 is 100 %.
s32 zof_img_set_rotate_angel(zof_ctrl_t *ctrl, s32 angle);
s32 zof_img_zoom_setting(zof_ctrl_t *ctrl, u32 zoom);
s32 zof_img_set_pivot(zof_ctrl_t *ctrl, s32 x, s32 y);

// 1 for a text that can be a path: its first character is printing ASCII.
s32 zof_img_get_src_type(const char *text);

// Says once of each path that there is no picture behind it; with null, that none is named.
void zof_img_missing(const char *path);

// Image buttons. `state`: 0 released, 1 pressed, 2 disabled, 3 checked, 4 checked pressed, 5 checked disabled; others
// give -1. Texts as for buttons.
s32 zof_imgbtn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_imgbtn_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_imgbtn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 state);
s32 zof_imgbtn_set_txt_size(zof_ctrl_t *ctrl, u32 size);
s32 zof_imgbtn_set_mode(zof_ctrl_t *ctrl, u32 state);
s32 zof_imgbtn_get_state(zof_ctrl_t *ctrl);
s32 zof_imgbtn_set_image(zof_ctrl_t *ctrl, u32 state, const char *name);
s32 zof_imgbtn_update_txt(zof_ctrl_t *ctrl);

// Puts the middle of the picture that is shown onto the middle of the declared box.
s32 zof_imgbtn_pos_reset(lv_obj_t *object, zof_imgbtn_attr_t *attr);

// Tile views. Rows and columns count from 0; the getter's is the tile that is active. -1 for null, or without a tile.
s32 zof_tileview_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tile_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tileview_set_tile_id(zof_ctrl_t *ctrl, u32 row, u32 col, u32 animate);
s32 zof_tileview_get_tile_id(zof_ctrl_t *ctrl, u32 *row, u32 *col);

// The patched LVGL's additions, under their names.
void kvy_img_set_flatten(lv_obj_t *obj, u8 value);
void KVY_img_set_center(lv_obj_t *obj);
void kvy_lv_img_cache_max_life_set(s32 n);

ZOF_C_END

#endif
