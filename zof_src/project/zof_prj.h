// The project object: the one root of a running system. Graphics thread only.
#ifndef ZOF_PRJ_H
#define ZOF_PRJ_H

#include "drv/zof_drv_up.h"
#include "lvgl.h"
#include "project/zof_event.h"
#include "project/zof_prj_attr.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef enum { ZOF_LAYER_UI, ZOF_LAYER_STATE, ZOF_LAYER_TOP, ZOF_LAYER_BG, ZOF_LAYER_COUNT } zof_layer_se;

struct cJSON;

// A view that exists. `obj` is the first field, as in a control, so that a node can stand as parent of a control.
typedef struct {
    lv_obj_t *obj;
    const zof_view_fun_t *view_fun;
    zof_view_attr_t *attr;
    db_list *ctrl_list; // of para_t
    lv_obj_t *bg_obj;
    const zof_ctrl_fun_t *ctrl_fun;
    u32 ctrl_fun_cnt;
    struct cJSON *file; // parsed; from the node's creation to the walk over its controls, or the end of its init
    u8 displaying;      // being brought up by zof_view_set_dis_view_anim
    u8 ctrl_ready;      // the control list is complete for display
    u8 del_on_unload;   // `pub` controls go when the screen is unloaded
    u8 leaving;         // its exit function runs: a view that is shown by it does not leave it once more
} zof_view_node_t;

typedef struct {
    u32 id;
    char *name;
} zof_view_name_t;

// Everything in it is its own, but for the view table. It lives to the end of the process.
typedef struct {
    zof_prj_attr_t *attr;
    char *path;                     // with its trailing "/"
    const zof_view_fun_t *view_fun; // the application's view table; not owned
    u32 view_fun_cnt;
    zof_view_node_t *cur_view[ZOF_LAYER_COUNT]; // on display, by layer; null for none
    db_list *view_names;                        // of zof_view_name_t
    db_list *view_list;                         // of zof_view_node_t
    db_list *font_list;                         // of zof_font_t
    char *lang_name;
    struct cJSON *lang_root; // null while there is no language
    u8 lang_dirty;           // the table has changes that are not in its file
} zof_prj_t;

// Reads the project in a folder and makes it the current one: record, view names, language. Null, with a line, when
// there is none to read; then no project is current.
zof_prj_t *zof_prj_obj_create(const char *path);

// Brings the current project up: touch, image cache, logo, start view, and the other views when the project asks for
// them. `views` is kept. 0, or -1 without a project; a start view that does not exist leaves the screen as it is.
s32 zof_prj_create(const zof_view_fun_t *views, u32 count);

void zof_prj_set_cur(zof_prj_t *prj);
zof_prj_t *zof_prj_get_cur(void);

// Lets touches through when the project has touch enabled. 0, or -1 without a project.
s32 zof_prj_hw_init(void);

// Draws image/logo.png in the middle of the screen, at once; it stays there until something else is drawn.
void zof_prj_show_power_on_logo(void);

// 0 when the design's area fits the panel's, 1 when it does not, -1 without a project. The first answer but -1 stays.
s32 zof_prj_check_wh_avlid(void);

// What the display asks of the project. 0, or -1 without one; `facts` is then as it was.
s32 zof_prj_facts(zof_prj_facts_t *facts);

// Looks for the project folder, near where the program was started, and makes the project object of it; says which, or
// "No work path found".
void zof_drv_set_prj_path(void);

// Looks only: the folder, in the shared path buffer, or null.
const char *zof_drv_get_prj_path(void);

ZOF_C_END

#endif
