// From attribute records to LVGL objects: the walk over a view's file.
#include "control/zof_ctrl_create.h"

#include <string.h>

#include "control/zof_ctrl_in.h"
#include "control/zof_ctrl_up.h"
#include "project/look/zof_j2s_ctrl.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "project/view/zof_view_layer.h"
#include "zof_lib/zof_stdio.h"

s32 zof_ctrl_create(lv_obj_t *parent_obj, para_t *record, void *attr, u32 ctrl_type) {
    const zof_ctrl_class_t *row = zof_ctrl_class_get(ctrl_type);
    return record && attr && row ? row->create(record, parent_obj, attr) : -1;
}

static para_t *created_record(zof_view_node_t *view, s32 id) {
    if (id < 1) {
        return nullptr;
    }
    para_t *record = (para_t *)__db_list_search_node(view->ctrl_list, &id);
    return record && record->is_created && record->obj ? record : nullptr;
}

// An object that is deleted with its parent leaves a record that must not refer to it.
static void event_deleted(lv_event_t *e) {
    para_t *record = (para_t *)lv_event_get_user_data(e);
    if (record->obj != lv_event_get_target(e)) {
        return;
    }
    record->obj = nullptr;
    record->parent = nullptr;
    record->is_created = 0;
}

static void event_watched(lv_event_t *e) {
    auto *record = (para_t *)lv_event_get_user_data(e);
    if (record->attr) {
        zof_ctrl_up.ctrl_happened(record, lv_event_get_code(e));
    }
}

// Before the program's function, which may delete the control.
static void watch_add(para_t *record) {
    static const zof_event_e watched[] = {ZOF_EVENT_CLICKED,       ZOF_EVENT_LONG_PRESSED, ZOF_EVENT_FOCUSED,
                                          ZOF_EVENT_VALUE_CHANGED, ZOF_EVENT_READY,        ZOF_EVENT_CANCEL};
    for (zof_event_e code : watched) {
        lv_obj_add_event_cb(record->obj, event_watched, (lv_event_code_t)code, record);
    }
}

static void events_add(para_t *record) {
    static const u8 passed_on[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 28, 46, 47, 48};
    lv_obj_add_event_cb(record->obj, event_deleted, LV_EVENT_DELETE, record);
    if (zof_ctrl_up.ctrl_watched(record)) {
        watch_add(record);
    }
    if (!record->attr->zof_ctrl_event) {
        return;
    }
    for (u8 code : passed_on) {
        lv_obj_add_event_cb(record->obj, zof_event_cb_t, (lv_event_code_t)code, record);
    }
}

// Connects the events again, in the order of a new control.
static void events_renew(zof_view_node_t *, para_t *record) {
    if (!record->obj) {
        return;
    }
    for (lv_event_cb_t old : {event_deleted, event_watched, zof_event_cb_t}) {
        while (lv_obj_remove_event_cb(record->obj, old)) {
        }
    }
    events_add(record);
}

s32 zof_ctrl_watch_update(void) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->view_list) {
        return -1;
    }
    zof_hold hold;
    __db_list_travel(prj->view_list,
                     [](void *view) { zof_view_ctrls_each((zof_view_node_t *)view, false, events_renew); });
    return 0;
}

// Controls compute with their attributes, so these are limited first.
static void coords_limit(zof_pub_attr_t *attr) {
    for (s32 *at : {&attr->pt.x, &attr->pt.y, &attr->size.width, &attr->size.height, &attr->click_area}) {
        *at = zof_coord_to_lv(*at);
    }
    attr->size.width = LV_MAX(attr->size.width, 0);
    attr->size.height = LV_MAX(attr->size.height, 0);
}

static bool nested_too_deep(const zof_view_node_t *view, const para_t *parent) {
    u32 depth = 1;
    for (; parent && (const void *)parent != view; parent = (const para_t *)parent->parent) {
        depth++;
    }
    return depth > ZOF_CTRL_NEST_MAX;
}

// The parent that the attributes name; null for the view itself.
static para_t *parent_of(zof_view_node_t *view, const para_t *record) {
    para_t *parent = created_record(view, record->attr->parent_id);
    if (parent && nested_too_deep(view, parent)) {
        zof_printf("control %u: nested more than %d deep; it is put on the view", record->id, ZOF_CTRL_NEST_MAX);
        return nullptr;
    }
    return parent;
}

// Calls the creator. Returns false when there is no object: it failed, or an event deleted control or parent.
static bool object_make(para_t *record) {
    const zof_pub_attr_t *attr = record->attr;
    lv_obj_t *parent = *(lv_obj_t **)record->parent;
    record->making = 1;
    const s32 result = parent ? zof_ctrl_create(parent, record, record->attr, attr->ctrl_type) : -1;
    record->making = 0;
    lv_obj_enable_style_refresh(true);
    if (result != -1 && record->obj && !record->obj->deleted && record->attr == attr) {
        return true;
    }
    if (record->obj) {
        lv_obj_del(record->obj);
    }
    record->obj = nullptr;
    if (record->attr == attr) {
        zof_printf("err: create ctrl[%s,%d] fail\n", attr->name ? attr->name : "", attr->id);
    }
    return false;
}

s32 zof_ctrl_create_from_attr(zof_view_node_t *view, para_t *record) {
    if (!view || !record || !record->attr || record->making) {
        return -1;
    }
    zof_hold hold;
    para_t *parent = parent_of(view, record);
    record->parent = parent ? (void *)parent : (void *)view;
    record->attr->view_id = (u16)view->attr->v_id;
    coords_limit(record->attr);
    if (!object_make(record)) {
        return -1;
    }
    record->is_created = 1;
    lv_obj_set_user_data(record->obj, record);
    events_add(record);
    if (zof_obj_building()) {
        lv_obj_refresh_style(record->obj, LV_PART_ANY, LV_STYLE_PROP_ANY);
    }
    return 0;
}

static zof_ctrl_event_fn event_fn_find(const zof_view_node_t *view, u32 ctrl_id) {
    for (u32 i = 0; i < view->ctrl_fun_cnt; i++) {
        if (view->ctrl_fun[i].ctrl_id == ctrl_id) {
            return view->ctrl_fun[i].zof_ctrl_event;
        }
    }
    return nullptr;
}

static para_t *record_new(zof_view_node_t *view, u32 id) {
    para_t *record = (para_t *)zof_malloc(sizeof(para_t));
    if (!record) {
        zof_printf("para_t zof_malloc fail");
        return nullptr;
    }
    memset(record, 0, sizeof(*record));
    record->id = (u16)id;
    if (__db_list_put_tail(view->ctrl_list, record) == 0) {
        return record;
    }
    zof_free(record);
    return nullptr;
}

static bool lies_within(const lv_obj_t *obj, const lv_obj_t *tree) {
    while (obj && obj != tree) {
        obj = lv_obj_get_parent(obj);
    }
    return obj != nullptr;
}

// Restores the drawing order of the file, and takes back a control that was parked on the view when its parent went.
static void restack(zof_view_node_t *view, para_t *record) {
    para_t *parent = nullptr;
    if (record->parent == view) {
        parent = created_record(view, record->attr->parent_id);
    }
    if (parent && lies_within(parent->obj, record->obj)) {
        zof_printf("control %u: its parent %u is inside it", record->id, parent->id);
        parent = nullptr;
    }
    if (parent) {
        lv_obj_set_parent(record->obj, parent->obj);
        record->parent = parent;
    } else if (!zof_ctrl_classes[record->attr->ctrl_type]->own_order) {
        lv_obj_move_foreground(record->obj);
    }
}

// Removes the record of a control that could not be created. A record that is not in the list belongs to its taker.
static void record_drop(zof_view_node_t *view, para_t *record) {
    u32 id = record->id;
    if (__db_list_search_node(view->ctrl_list, &id) != record) {
        return;
    }
    __db_list_search_and_pop(view->ctrl_list, &id);
    zof_ctrl_obj_del(record);
}

// Builds the control at the cursor; false at an entry that ends the walk.
static bool control_build(zof_view_node_t *view, para_t *record, zof_j2s_walk_t *walk) {
    zof_ctrl_release(record); // left over when its object was deleted with its parent
    record->attr = zof_j2s_walk_get(walk);
    if (!record->attr) {
        return false;
    }
    record->attr->zof_ctrl_event = event_fn_find(view, record->attr->id);
    zof_ctrl_create_from_attr(view, record);
    if (!record->obj) {
        record_drop(view, record);
    }
    return true;
}

// Creates the control with an id, or moves it into its place; false at an entry that ends the walk.
static bool control_visit(zof_view_node_t *view, u32 id, bool pub, zof_j2s_walk_t *walk) {
    para_t *record = (para_t *)__db_list_search_node(view->ctrl_list, &id);
    if (record && record->is_created) {
        restack(view, record);
        zof_j2s_walk_next(walk);
        return true;
    }
    record = record ? record : record_new(view, id);
    if (!record) {
        return false;
    }
    const bool later = pub && !view->displaying;
    if (!later && !record->making) {
        return control_build(view, record, walk);
    }
    view->ctrl_ready = later ? 0 : view->ctrl_ready;
    zof_j2s_walk_next(walk);
    return true;
}

static void controls_walk(zof_view_node_t *view, zof_j2s_walk_t *walk) {
    u32 id = 0;
    u32 pub = 0;
    bool more = true;
    while (more && zof_j2s_walk_para(walk, &id, &pub) == 0) {
        more = control_visit(view, (u16)id, pub == 1, walk); // as wide as the record's
    }
}

// Starts at the file that the view's node was made from when that is still there.
static s32 walk_open(zof_view_node_t *view, zof_j2s_walk_t *walk) {
    cJSON *file = view->file;
    view->file = nullptr;
    const char *name = zof_view_name_get(view->attr->v_id);
    const char *path = name ? zof_res_get_prjfile_path("config/view/", name) : nullptr;
    if (file && path) {
        return zof_j2s_walk_over(walk, path, file);
    }
    cJSON_Delete(file);
    return zof_j2s_walk_start(walk, path);
}

s32 zof_ctrl_list_create(zof_view_node_t *view) {
    if (!view || !view->attr) {
        return -1;
    }
    if (view->ctrl_ready) {
        return 0;
    }
    zof_j2s_walk_t walk = {};
    if (walk_open(view, &walk) != 0) {
        return -1;
    }
    zof_hold hold;
    view->ctrl_ready = 1;
    zof_obj_build_begin();
    controls_walk(view, &walk);
    zof_obj_build_end();
    zof_j2s_walk_end(&walk);
    if (view->obj) {
        lv_obj_update_layout(view->obj);
    }
    return 0;
}

para_t *zof_ctrl_show(u32 view_id, u32 ctrl_id) {
    zof_hold hold;
    zof_view_node_t *view = zof_view_list_get(view_id);
    para_t *record = zof_ctrl_get_form_id(view_id, ctrl_id);
    if (!view || !record) {
        return nullptr;
    }
    if (!record->obj && record->attr) {
        zof_ctrl_create_from_attr(view, record);
    }
    if (record->obj) {
        zof_ctrl_set_hidden(record, ZOF_FALSE);
    }
    return record;
}
