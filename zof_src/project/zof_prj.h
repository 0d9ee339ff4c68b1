// The project object: the one root of a running system.
#ifndef ZOF_PRJ_H
#define ZOF_PRJ_H

#include "lvgl.h"
#include "project/zof_event.h"
#include "project/zof_prj_attr.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef enum { ZOF_LAYER_UI, ZOF_LAYER_STATE, ZOF_LAYER_TOP, ZOF_LAYER_BG, ZOF_LAYER_COUNT } zof_layer_se;

// A view that exists. `obj` is the first field, as in a control, so that a node can stand as parent of a control.
typedef struct {
    lv_obj_t *obj;
    const zof_view_fun_t *view_fun;
    zof_view_attr_t *attr;
    db_list *ctrl_list; // of para_t
    lv_obj_t *bg_obj;
    const zof_ctrl_fun_t *ctrl_fun;
    u32 ctrl_fun_cnt;
    u8 displaying;    // being brought up by zof_view_set_dis_view_anim
    u8 ctrl_ready;    // the control list is complete for display
    u8 del_on_unload; // `pub` controls go when the screen is unloaded
} zof_view_node_t;

typedef struct {
    u32 id;
    char *name;
} zof_view_name_t;

struct cJSON;

typedef struct {
    zof_prj_attr_t *attr;
    char *path; // with its trailing "/"
    const zof_view_fun_t *view_fun;
    u32 view_fun_cnt;
    zof_view_node_t *cur_view[ZOF_LAYER_COUNT];
    db_list *view_names; // of zof_view_name_t
    db_list *view_list;  // of zof_view_node_t
    db_list *font_list;
    char *lang_name;
    struct cJSON *lang_root;
    u8 lang_dirty;
} zof_prj_t;

zof_prj_t *zof_prj_obj_create(const char *path);
s32 zof_prj_create(const zof_view_fun_t *views, u32 count);
void zof_prj_set_cur(zof_prj_t *prj);
zof_prj_t *zof_prj_get_cur(void);
s32 zof_prj_hw_init(void);
void zof_prj_show_power_on_logo(void);
s32 zof_prj_check_wh_avlid(void);

// The search for the work path at start, and what the display asks of the project.
void zof_drv_set_prj_path(void);
const char *zof_drv_get_prj_path(void);

ZOF_C_END

#endif
