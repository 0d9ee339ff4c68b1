// The project object: the one root of a running system. Graphics thread only.
#ifndef ZOF_PRJ_CUR_H
#define ZOF_PRJ_CUR_H

#include "drv/zof_drv_up.h"
#include "lvgl.h"
#include "project/base/zof_event.h"
#include "project/base/zof_prj_attr.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef enum { ZOF_LAYER_UI, ZOF_LAYER_STATE, ZOF_LAYER_TOP, ZOF_LAYER_BG, ZOF_LAYER_COUNT } zof_layer_se;

struct cJSON;

// A loaded view. `obj` is the first field, as in a control, so a node can be the parent of a control.
typedef struct {
    lv_obj_t *obj;
    const zof_view_fun_t *view_fun;
    zof_view_attr_t *attr;
    db_list *ctrl_list; // of para_t
    lv_obj_t *bg_obj;
    const zof_ctrl_fun_t *ctrl_fun;
    u32 ctrl_fun_cnt;
    struct cJSON *file; // parsed; from the node's creation to the walk over its controls, or the end of its init
    u8 displaying;      // being shown by zof_view_set_dis_view_anim
    u8 ctrl_ready;      // the control list is complete for display
    u8 del_on_unload;   // delete `pub` controls when the screen is unloaded
    u8 leaving;         // its exit function is running: a view shown by that function does not leave this one again
} zof_view_node_t;

typedef struct {
    u32 id;
    char *name;
} zof_view_name_t;

// Owns everything in it except the view table. Lives until the end of the process.
typedef struct {
    zof_prj_attr_t *attr;
    char *path;                     // with its trailing "/"
    const zof_view_fun_t *view_fun; // the application's view table; not owned
    u32 view_fun_cnt;
    zof_view_node_t *cur_view[ZOF_LAYER_COUNT]; // shown on each layer, or null
    db_list *view_names;                        // of zof_view_name_t
    db_list *view_list;                         // of zof_view_node_t
    db_list *font_list;                         // of zof_font_t
    char *lang_name;
    struct cJSON *lang_root; // null without a language
    u8 lang_dirty;           // the table has unsaved changes
    struct cJSON *icons;     // names of icons in texts; null if the project has no icons
} zof_prj_t;

// The current project; null before one is created, and after one that could not be read.
void zof_prj_set_cur(zof_prj_t *prj);
zof_prj_t *zof_prj_get_cur(void);

// Returns 0 if the area of the design fits that of the panel, 1 if not, -1 without a project. The first result other
// than -1 is cached.
s32 zof_prj_check_wh_avlid(void);

// Fills `facts` for the display. Returns 0, or -1 without a project, which leaves `facts` unchanged.
s32 zof_prj_facts(zof_prj_facts_t *facts);

ZOF_C_END

#endif
