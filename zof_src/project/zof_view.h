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
// and it has neither the path nor the zooms. With time and delay 0 the screen is there at once, whatever the
// transition; numbers above the table wait the delay and show it. A transition that is under way is brought to its end
// first. LV_EVENT_SCREEN_UNLOADED goes to the old screen when it has gone; input is off while both are seen. Nothing
// happens with a null screen or path, nor with the screen that is shown already.
void zof_scr_load_anim(lv_obj_t *scr, u32 transition, u32 time, u32 delay, lv_anim_path_cb_t path);

// The list of view names in the order of the project file; `arg` is not used. Null without memory.
db_list *zof_view_name_list_get(void *arg);

// Appends; the list owns the entry then. 0 or -1.
s32 zof_view_name_list_add(db_list *list, zof_view_name_t *entry);

// The file name of a view, under config/view/; null for an id that the project file does not have.
const char *zof_view_name_get(u32 id);

// The `view` object of the view's file, decoded anew; the caller releases it. Null for an unknown id or a faulty file.
zof_view_attr_t *zof_view_attr_get(u32 id);

// The view's row in the program's table, or null.
const zof_view_fun_t *zof_view_fun_get(u32 id);

// The list of nodes, searched by view id; a node is in it from its first load on, for ever.
db_list *zof_view_list_create(void);
zof_view_node_t *zof_view_list_get(u32 id);
db_list *zof_view_list_get_ctrl_list(u32 id);

// Reads the view's file and makes its node, without object. The node has the id that the file says, and keeps the
// parsed file until its controls are made from it or its init function returns, so that the file is parsed once. Null,
// with a line, for an id without name, a file that gives no view, or an id without functions.
zof_view_node_t *zof_view_node_create(u32 id);

// Makes a view ready without showing it: its init function runs, all its controls but the `pub` ones are made. 0, also
// for one that is loaded; -1 for id 0, an id without a view, and a view on display.
s32 zof_view_load(u32 id);

// For init functions: makes the view's object and its controls, with the table of event functions, which the caller
// keeps. 0, or -1 when the view has no node, or an object already.
s32 zof_view_create(u32 id, const zof_ctrl_fun_t *ctrls, u32 count);

// The view's `pub` controls go; controls that stay are parked on the view when their parent goes. 0, or -1 when the
// view is unknown (with a line) or its controls are gone already.
s32 zof_view_delete(u32 id);

// Shows a view on the layer of its file. In this order: exit function of the view that leaves; its `pub` controls go,
// at once if transition, time and delay are all 0, else when its screen is unloaded; init function, the first time
// only; the controls that are still missing; the layer changes; entry function. On the UI layer the screen is loaded
// with `transition` (zof_scr_load_anim_t) in `time` after `delay` (milliseconds) along `path` (zof_anim_path_e); with
// path 0 or one above the table it is not, though everything else happens. 0, also for a view on display (nothing
// happens then) and for one without entry function (it is not shown); -1 for id 0 or no such view.
s32 zof_view_set_dis_view_anim(u32 id, u32 transition, u32 time, u32 delay, u32 path);

// The same at once, with the same results.
s32 zof_view_set_dis_view(u32 id);

// Puts the display's own object back onto a layer. No exit function runs and no controls go. 0, or -1 above 3 or before
// any view was loaded.
s32 zof_view_hide_layer(u32 layer);

// The id of the view on a layer, or -1.
s32 zof_view_get_cur_id(u32 layer);

// Changes nothing: a view's layer is that of its file. 0 when the view has its object, else -1.
s32 zof_view_set_layer(u32 id, u32 layer);

// Replaces the background image by a copy of the name, or none for null; shown at once if the view is on the UI or the
// background layer, the only ones that draw it. A name that is no .png or .jpg, and null, go to the display's driver;
// where that draws no pictures, as on a desktop, the former image stays. 0, or -1 without the view's object.
s32 zof_view_set_bg(u32 id, const char *image);

// Background of a view, shown at once: opacity from the top byte and colour, or the opacity alone. 0, or -1 without the
// view's object.
s32 zof_view_set_bgcolor(u32 id, u32 argb);
s32 zof_view_set_bg_opa(u32 id, u8 opa);

// The project's width and height, in pixels. The result is -1 in every case: do not read it.
s32 zof_view_get_dis_wh(zof_size_t *out);

// Takes dis_mutex and draws what waits to be drawn, then pauses for 5 ms; 0. The caller may hold dis_mutex.
s32 zof_view_force_refresh(void);

// Sets the project's rotation in quarter turns; 0, or -1 without a project.
s32 zof_view_all_set_rotate(u32 rotation);

ZOF_C_END

#endif
