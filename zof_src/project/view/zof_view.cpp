// Shows and leaves views. The order of the calls is a contract with the application: exit of the old view, deletion of
// its short-lived controls, init of the new one (once), its controls, the screen, entry.
#include "project/view/zof_view.h"

#include <cjson/cJSON.h>

#include "project/base/zof_hold_in.h"
#include "project/base/zof_para.h"
#include "project/base/zof_prj_up.h"
#include "project/view/zof_view_layer.h"
#include "zof_lib/zof_stdio.h"

static void init_run(zof_view_node_t *node) {
    if (node->view_fun->zof_view_init) {
        node->view_fun->zof_view_init();
    } else {
        zof_printf("view %u: the program has no init function for it", node->attr->v_id);
    }
    cJSON_Delete(node->file); // the init function created no controls
    node->file = nullptr;
}

static bool view_is_current(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    for (const zof_view_node_t *node : prj->cur_view) {
        if (node && node->obj && node->attr->v_id == id) {
            return true;
        }
    }
    return false;
}

// The display's own roots are available only until a view replaces one.
static bool views_ready(u32 id) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (id == 0 || !prj || !prj->view_list) {
        return false;
    }
    if (is_list_empty(prj->view_list)) {
        zof_view_layers_capture();
    }
    return true;
}

s32 zof_view_load(u32 id) {
    if (!views_ready(id) || view_is_current(id)) {
        return -1;
    }
    if (zof_view_list_get(id)) {
        return 0;
    }
    zof_hold hold;
    zof_view_node_t *node = zof_view_node_create(id);
    if (!node) {
        return -1;
    }
    node->displaying = 0;
    if (!node->obj) {
        init_run(node);
    }
    return 0;
}

static void event_del_view(lv_event_t *e) {
    const zof_view_node_t *node = (const zof_view_node_t *)lv_event_get_user_data(e);
    if (node->del_on_unload) {
        zof_view_delete(node->attr->v_id);
    }
}

s32 zof_view_create(u32 id, const zof_ctrl_fun_t *ctrls, u32 count) {
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node || node->obj) {
        return -1;
    }
    node->obj = lv_obj_create(nullptr);
    if (!node->obj) {
        return -1;
    }
    lv_obj_add_event_cb(node->obj, event_del_view, LV_EVENT_SCREEN_UNLOADED, node);
    lv_obj_set_scroll_dir(node->obj, LV_DIR_NONE);
    lv_obj_set_scrollbar_mode(node->obj, LV_SCROLLBAR_MODE_OFF); // otherwise each new control measures all others
    lv_obj_clear_flag(node->obj, LV_OBJ_FLAG_HIDDEN);
    node->ctrl_fun = ctrls;
    node->ctrl_fun_cnt = ctrls ? count : 0;
    zof_prj_up.ctrl_list_create(node);
    return 0;
}

// Moves a control that stays to the view's own object; otherwise it would be deleted with its parent.
static void park(zof_view_node_t *node, para_t *record) {
    const para_t *parent = (const para_t *)record->parent;
    if (record->attr->parent_id < 1 || !parent || record->parent == node) {
        return;
    }
    if (!parent->obj || !parent->attr || !parent->attr->pub) {
        return;
    }
    lv_obj_set_parent(record->obj, node->obj);
    record->parent = node;
}

static void leave_or_park(zof_view_node_t *node, para_t *record) {
    if (record->attr->pub) {
        node->ctrl_ready = 0;
        zof_prj_up.ctrl_delete(record);
    } else if (record->is_created) {
        park(node, record);
    }
}

s32 zof_view_delete(u32 id) {
    zof_hold hold;
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node) {
        zof_printf("view %u: nothing to delete, it was never loaded", id);
        return -1;
    }
    if (!node->ctrl_ready || !node->ctrl_list) {
        return -1;
    }
    if (zof_view_ctrls_each(node, true, leave_or_park) != 0) { // in this order children precede their parents
        return -1;
    }
    if (!node->ctrl_ready && node->bg_obj) {
        lv_obj_del(node->bg_obj);
        node->bg_obj = nullptr;
    }
    return 0;
}

static void leave(zof_view_node_t *node, bool at_once) {
    if (!node || !node->obj || !node->view_fun || !node->view_fun->zof_view_exit || node->leaving) {
        return;
    }
    node->leaving = 1;
    node->view_fun->zof_view_exit();
    node->leaving = 0;
    node->del_on_unload = !at_once;
    if (at_once) {
        zof_view_delete(node->attr->v_id);
    }
}

static void show_on_screen(zof_view_node_t *node, u32 transition, u32 time, u32 delay, u32 path) {
    zof_prj_t *prj = zof_prj_get_cur();
    u8 opa = prj->cur_view[ZOF_LAYER_BG] ? node->attr->bg_scale : 255;
    lv_obj_set_style_bg_opa(node->obj, opa, LV_PART_MAIN);
    zof_view_set_bg_img(node, node->attr->bg_image);
    lv_anim_path_cb_t path_cb = zof_anim_path_get(path);
    if (path_cb) {
        zof_scr_load_anim(node->obj, transition, time, delay, path_cb);
    }
}

static void show_on_layer(zof_view_node_t *node, zof_layer_se layer) {
    if (layer == ZOF_LAYER_BG || !node->attr->model_en) {
        lv_obj_clear_flag(node->obj, LV_OBJ_FLAG_CLICKABLE);
    }
    if (layer == ZOF_LAYER_BG) {
        lv_obj_set_style_bg_opa(node->obj, LV_OPA_COVER, LV_PART_MAIN);
        zof_view_set_bg_img(node, node->attr->bg_image);
    }
    zof_view_layer_set_root(layer, node->obj);
}

void zof_view_dress(zof_view_node_t *node) {
    const zof_layer_se layer = zof_view_layer_of(node);
    zof_view_bg_paint(node);
    lv_obj_set_scrollbar_mode(node->obj, LV_SCROLLBAR_MODE_OFF);
    if (layer == ZOF_LAYER_UI) {
        show_on_screen(node, 0, 0, 0, ZOF_ANIM_PATH_NONE);
    } else {
        show_on_layer(node, layer);
    }
}

s32 zof_view_set_dis_view_anim(u32 id, u32 transition, u32 time, u32 delay, u32 path) {
    if (!views_ready(id)) {
        return -1;
    }
    if (view_is_current(id)) {
        return 0;
    }
    zof_hold hold;
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node) {
        node = zof_view_node_create(id);
    }
    if (!node) {
        return -1;
    }

    zof_prj_t *prj = zof_prj_get_cur();
    zof_layer_se layer = zof_view_layer_of(node);
    leave(prj->cur_view[layer], transition == 0 && time == 0 && delay == 0);

    const u8 displaying = node->displaying; // an event function may show this view again while it is being built
    node->displaying = 1;
    node->del_on_unload =
        0; // still set if the view is shown again before its screen was unloaded: its controls must stay
    if (!node->obj) {
        init_run(node);
    } else if (!node->ctrl_ready) {
        zof_prj_up.ctrl_list_create(node);
    }
    if (node->view_fun->zof_view_entry) {
        if (node->obj) {
            zof_view_bg_paint(node);
            lv_obj_set_scrollbar_mode(node->obj, LV_SCROLLBAR_MODE_OFF);
            if (layer == ZOF_LAYER_UI) {
                show_on_screen(node, transition, time, delay, path);
            } else {
                show_on_layer(node, layer);
            }
            prj->cur_view[layer] = node;
            zof_prj_up.view_shown(id);
        }
        node->view_fun->zof_view_entry();
    }
    node->displaying = displaying;
    return 0;
}

s32 zof_view_set_dis_view(u32 id) {
    return zof_view_set_dis_view_anim(id, ZOF_SCR_LOAD_ANIM_NONE, 0, 0, ZOF_ANIM_PATH_LINEAR);
}
