// Reads a view's file again and replaces everything that was made from it, for tools that show a change at once.
#include "control/zof_ctrl_again.h"

#include "control/zof_ctrl_create.h"
#include "project/base/zof_hold_in.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "project/view/zof_view_layer.h"
#include "zof_lib/zof_stdio.h"

// Events of controls that are deleted may delete others, so the first one is looked for each time.
static void controls_remove(zof_view_node_t *view) {
    while (!is_list_empty(view->ctrl_list)) {
        auto *record = (para_t *)view->ctrl_list->head->prev->data;
        u32 id = record->id;
        __db_list_search_and_pop(view->ctrl_list, &id);
        zof_ctrl_obj_del(record);
    }
    if (view->bg_obj) {
        lv_obj_del(view->bg_obj);
        view->bg_obj = nullptr;
    }
    view->ctrl_ready = 0;
}

static void view_attr_replace(zof_view_node_t *view, zof_view_attr_t *attr) {
    FreeViewStruct(view->attr);
    zof_free(view->attr);
    view->attr = attr;
}

s32 zof_view_again(u32 id) {
    zof_view_node_t *view = zof_view_list_get(id);
    const char *name = zof_view_name_get(id);
    if (!view || !view->obj || !name || view->displaying || view->leaving) {
        return -1;
    }
    cJSON *file = nullptr;
    zof_view_attr_t *attr = zof_j2s_view_open(zof_res_get_prjfile_path("config/view/", name), &file);
    const bool same = attr && attr->v_id == id && attr->layer == view->attr->layer;
    if (!same) {
        cJSON_Delete(file);
        FreeViewStruct(attr);
        zof_free(attr);
        return -1;
    }
    zof_hold hold;
    const u32 layer = zof_view_layer_showing(view);
    controls_remove(view);
    view_attr_replace(view, attr);
    view->file = file;
    view->displaying = layer < ZOF_LAYER_COUNT;
    zof_ctrl_list_create(view);
    view->displaying = 0;
    if (layer < ZOF_LAYER_COUNT) {
        zof_view_dress(view);
    }
    return 0;
}
