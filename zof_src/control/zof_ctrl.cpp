// The registry of controls, and the bridge from LVGL's events to the application's functions. A record stays in its
// view's list; its object and attributes come and go, and every function accepts a record without them.
#include "control/zof_ctrl.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_ctrl_up.h"
#include "project/base/zof_prj_up.h"

// The application's hook for all events of all controls.
static zof_all_event_fn zof_all_event_cb;

s32 zof_ctrl_list_search_compare(void *record, void *key) {
    return record && key && ((const para_t *)record)->id == *(const u32 *)key ? 0 : 1;
}

static u32 id_of(const void *record) {
    return ((const para_t *)record)->id;
}

db_list *zof_ctrl_list_init(void) {
    db_list *list = db_list_create();
    if (list) {
        list->compare = zof_ctrl_list_search_compare;
        list->number = id_of;
    }
    return list;
}

para_t *zof_ctrl_get_form_id(u32 view_id, u32 ctrl_id) {
    auto *record = (para_t *)__db_list_search_node(zof_view_list_get_ctrl_list(view_id), &ctrl_id);
    zof_refuse_lookup(view_id, ctrl_id, record != nullptr);
    return record;
}

void *zof_ctrl_get_attr_from_ctrl(zof_ctrl_t *ctrl) {
    if (!zof_ctrl_obj(ctrl)) {
        return (void *)(intptr_t)-1;
    }
    const para_t *record = zof_ctrl_record(ctrl);
    return record ? record->attr : nullptr;
}

s32 zof_ctrl_get_id_form_ctrl(zof_ctrl_t *ctrl) {
    const para_t *record = zof_ctrl_record(ctrl);
    return record ? record->id : -1;
}

static const zof_ctrl_class_t *class_of(const para_t *record) {
    return record && record->obj && record->attr ? zof_prj_up.ctrl_class(record->attr->ctrl_type) : nullptr;
}

zof_bool zof_ctrl_has_value(const para_t *record) {
    const zof_ctrl_class_t *row = class_of(record);
    return row && row->value ? ZOF_TRUE : ZOF_FALSE;
}

s32 zof_ctrl_get_value(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    para_t *record = zof_ctrl_record(ctrl);
    if (!out || !zof_ctrl_has_value(record)) {
        return -1;
    }
    *out = {.number = 0, .text = ""};
    return class_of(record)->value(record, out);
}

void zof_event_cb_t(lv_event_t *e) {
    para_t *record = e ? (para_t *)lv_event_get_user_data(e) : nullptr;
    if (!record) {
        return;
    }
    lv_event_code_t code = lv_event_get_code(e);
    if (record->attr) {
        u32 view_id = record->attr->view_id;
        u32 id = record->attr->id;
        if (zof_all_event_cb) {
            zof_all_event_cb(view_id, id, (u8)code);
        }
        if (zof_ctrl_up.ctrl_all_event) {
            zof_ctrl_up.ctrl_all_event(view_id, id, code);
        }
    }
    if (e->deleted) { // by the hook
        return;
    }
    if (record->attr && record->attr->zof_ctrl_event) {
        lv_obj_enable_style_refresh(true); // off while a control is created, and this may be one of its events
        const zof_bool former = zof_refuse_quiet(ZOF_FALSE); // it may be a host's doing
        record->attr->zof_ctrl_event(record, (zof_event_e)code);
        zof_refuse_quiet(former);
    }
}

u8 zof_event_send(zof_ctrl_t *ctrl, u32 code, void *param) {
    return (u8)zof_on(ctrl, [=](lv_obj_t *obj) { return lv_event_send(obj, (lv_event_code_t)code, param); });
}

void zof_ctrl_set_event_all(zof_all_event_fn fn) {
    zof_all_event_cb = fn;
}
