// Views: one node a view, four layers, init, entry and exit in a fixed order. Graphics thread only.
#ifndef ZOF_VIEW_H
#define ZOF_VIEW_H

#include "project/zof_prj.h"

ZOF_C_BEGIN

typedef enum {
    ZOF_SCR_LOAD_ANIM_NONE,
    ZOF_SCR_LOAD_ANIM_OVER_LEFT,
    ZOF_SCR_LOAD_ANIM_OVER_RIGHT,
    ZOF_SCR_LOAD_ANIM_OVER_TOP,
    ZOF_SCR_LOAD_ANIM_OVER_BOTTOM,
    ZOF_SCR_LOAD_ANIM_MOVE_LEFT,
    ZOF_SCR_LOAD_ANIM_MOVE_RIGHT,
    ZOF_SCR_LOAD_ANIM_MOVE_TOP,
    ZOF_SCR_LOAD_ANIM_MOVE_BOTTOM,
    ZOF_SCR_LOAD_ANIM_FADE_IN,
    ZOF_SCR_LOAD_ANIM_FADE_ON,
    ZOF_SCR_LOAD_ANIM_FADE_OUT,
    ZOF_SCR_LOAD_ANIM_OUT_LEFT,
    ZOF_SCR_LOAD_ANIM_OUT_RIGHT,
    ZOF_SCR_LOAD_ANIM_OUT_TOP,
    ZOF_SCR_LOAD_ANIM_OUT_BOTTOM,
    ZOF_SCR_LOAD_ANIM_IN_ZOOM,
    ZOF_SCR_LOAD_ANIM_IN_ZOOM_WITH_BG,
    ZOF_SCR_LOAD_ANIM_OUT_ZOOM,
    ZOF_SCR_LOAD_ANIM_COUNT
} zof_scr_load_anim_t;

typedef enum {
    ZOF_ANIM_PATH_NONE,
    ZOF_ANIM_PATH_LINEAR,
    ZOF_ANIM_PATH_START_SLOW,
    ZOF_ANIM_PATH_END_SLOW,
    ZOF_ANIM_PATH_START_END_SLOW,
    ZOF_ANIM_PATH_BOUNCE,
    ZOF_ANIM_PATH_END_BREAK,
    ZOF_ANIM_PATH_OVERSHOOT,
    ZOF_ANIM_PATH_COUNT
} zof_anim_path_e;

// The LVGL path function of a number; null for ZOF_ANIM_PATH_NONE and numbers above the table.
lv_anim_path_cb_t zof_anim_path_get(u32 path);

// Loads a screen with a transition, its time and delay in milliseconds, along a path. Our own: LVGL's numbers differ,
// and it has neither the path nor the zooms. With time and delay 0 the screen is there at once, whatever the transition;
// numbers above the table wait the delay and show it. A transition that is under way is brought to its end first.
// LV_EVENT_SCREEN_UNLOADED goes to the old screen when it has gone; input is off while both are seen. Nothing happens
// with a null screen or path, nor with the screen that is shown already.
void zof_scr_load_anim(lv_obj_t *scr, u32 transition, u32 time, u32 delay, lv_anim_path_cb_t path);

db_list *zof_view_name_list_get(void *arg);
s32 zof_view_name_list_add(db_list *list, zof_view_name_t *entry);
const char *zof_view_name_get(u32 id);
zof_view_attr_t *zof_view_attr_get(u32 id);
const zof_view_fun_t *zof_view_fun_get(u32 id);
db_list *zof_view_list_create(void);
zof_view_node_t *zof_view_list_get(u32 id);
db_list *zof_view_list_get_ctrl_list(u32 id);

zof_view_node_t *zof_view_node_create(u32 id);
s32 zof_view_load(u32 id);
s32 zof_view_create(u32 id, const zof_ctrl_fun_t *ctrls, u32 count);
s32 zof_view_delete(u32 id);
s32 zof_view_set_dis_view_anim(u32 id, u32 transition, u32 time, u32 delay, u32 path);
s32 zof_view_set_dis_view(u32 id);

s32 zof_view_hide_layer(u32 layer);
s32 zof_view_get_cur_id(u32 layer);
s32 zof_view_set_layer(u32 id, u32 layer);

s32 zof_view_set_bg(u32 id, const char *image);
s32 zof_view_set_bgcolor(u32 id, u32 argb);
s32 zof_view_set_bg_opa(u32 id, u8 opa);
s32 zof_view_get_dis_wh(zof_size_t *out);
s32 zof_view_force_refresh(void);
s32 zof_view_all_set_rotate(u32 rotation);

ZOF_C_END

#endif
