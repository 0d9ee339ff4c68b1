// Views: one node per view, four layers, init, entry and exit in a fixed order. Graphics thread only.
#ifndef ZOF_VIEW_H
#define ZOF_VIEW_H

#include "project/base/zof_prj_cur.h"

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

// Returns LVGL's path function of a number; null for ZOF_ANIM_PATH_NONE and numbers above the table.
lv_anim_path_cb_t zof_anim_path_get(u32 path);

// Loads a screen with a transition, its time and delay in milliseconds, along a path. This replaces LVGL's function,
// whose numbers differ and which has neither the path nor the zooms. With time and delay 0 the screen is shown
// immediately, whatever the transition; numbers above the table wait for the delay and show it. A running transition is
// completed first. The old screen gets LV_EVENT_SCREEN_UNLOADED at the end; input is off while both are visible. Does
// nothing with a null screen or path, or with the screen that is already shown.
void zof_scr_load_anim(lv_obj_t *scr, u32 transition, u32 time, u32 delay, lv_anim_path_cb_t path);

// Returns the file name of a view, in config/view/; null for an id that the project file does not have.
const char *zof_view_name_get(u32 id);

// Decodes the `view` object of the view's file; the caller owns the result. Returns null for an unknown id or an
// invalid file.
zof_view_attr_t *zof_view_attr_get(u32 id);

// Returns the view's row in the program's table, or null.
const zof_view_fun_t *zof_view_fun_get(u32 id);

// The list of nodes, searched by view id; a node stays in it from its first load on.
db_list *zof_view_list_create(void);
zof_view_node_t *zof_view_list_get(u32 id);
db_list *zof_view_list_get_ctrl_list(u32 id);

// Reads the view's file and creates its node, without object. The node has the id in the file, and keeps the parsed
// file until its controls are created from it or its init function returns, so the file is parsed once. Returns null,
// after a message, for an id that is not in the project file, an invalid view file, or an id without functions.
zof_view_node_t *zof_view_node_create(u32 id);

// Loads a view without showing it: runs its init function and creates all its controls except the `pub` ones. Returns
// 0, also if it is loaded already; -1 for id 0, an unknown id, and a view that is shown.
s32 zof_view_load(u32 id);

// For init functions: creates the view's object and its controls, with the table of event functions, which the caller
// must keep. Returns 0, or -1 if the view has no node, or already has an object.
s32 zof_view_create(u32 id, const zof_ctrl_fun_t *ctrls, u32 count);

// Deletes the view's `pub` controls; controls that stay are moved to the view when their parent is deleted. Returns 0,
// or -1 if the view is unknown (after a message) or its controls are already deleted.
s32 zof_view_delete(u32 id);

// Shows a view on the layer of its file. In this order: calls the exit function of the old view; deletes its `pub`
// controls, immediately if transition, time and delay are all 0, otherwise when its screen is unloaded; calls the init
// function, the first time only; creates the missing controls; changes the layer; calls the entry function. On the UI
// layer the screen is loaded with `transition` (zof_scr_load_anim_t) in `time` after `delay` (milliseconds) along
// `path` (zof_anim_path_e); with path 0 or one above the table it is not loaded, but everything else happens. Returns
// 0, also for a view that is shown already (nothing happens) and for one without an entry function (it is not shown);
// -1 for id 0 or an unknown view.
s32 zof_view_set_dis_view_anim(u32 id, u32 transition, u32 time, u32 delay, u32 path);

// The same without a transition, with the same results.
s32 zof_view_set_dis_view(u32 id); // shows a view at once

// Restores the display's own object on a layer. Calls no exit function and deletes no controls. Returns 0, or -1 for a
// layer above 3 or before any view was loaded.
s32 zof_view_hide_layer(u32 layer);

// Returns the id of the view on a layer, or -1.
s32 zof_view_get_cur_id(u32 layer);

// Changes nothing, because a view's layer is that of its file. Returns 0 if the view has its object, otherwise -1.
s32 zof_view_set_layer(u32 id, u32 layer);

// Sets the background image to a copy of the name, or to none for null; takes effect immediately if the view is on the
// UI or the background layer, the only ones that draw it. Names other than .png or .jpg, and null, are passed to the
// display's driver; if that draws no pictures, as on a desktop, the old image stays. Returns 0, or -1 without the
// view's object.
s32 zof_view_set_bg(u32 id, const char *image);

// Set the background of a view immediately: opacity (top byte) and colour, or only the opacity. Return 0, or -1 without
// the view's object.
s32 zof_view_set_bgcolor(u32 id, u32 argb); // opacity (top byte) and colour of the background
s32 zof_view_set_bg_opa(u32 id, u8 opa);

// Sets `out` to the project's width and height in pixels. Always returns -1; ignore the result.
s32 zof_view_get_dis_wh(zof_size_t *out);

// Takes dis_mutex, draws everything that is pending, then pauses for 5 ms. Returns 0. The caller may hold dis_mutex.
s32 zof_view_force_refresh(void);

// Sets the project's rotation in quarter turns. Returns 0, or -1 without a project.
s32 zof_view_all_set_rotate(u32 rotation);

ZOF_C_END

#endif
