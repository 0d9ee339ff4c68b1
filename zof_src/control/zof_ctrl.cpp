// The registry of controls, the bridge from LVGL's events to the application's functions, and deletion. A record stays
// in its view's list; its object and attributes come and go, and every function accepts a record without them.
#include "control/zof_ctrl.h"

#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_in.h"
#include "control/zof_ctrl_up.h"
#include "control/zof_image.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "project/read/zof_j2s.h"
#include "zof_lib/zof_stdio.h"

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
    return (para_t *)__db_list_search_node(zof_view_list_get_ctrl_list(view_id), &ctrl_id);
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
        record->attr->zof_ctrl_event(record, (zof_event_e)code);
    }
}

u8 zof_event_send(zof_ctrl_t *ctrl, u32 code, void *param) {
    return (u8)zof_on(ctrl, [=](lv_obj_t *obj) { return lv_event_send(obj, (lv_event_code_t)code, param); });
}

void zof_ctrl_set_event_all(zof_all_event_fn fn) {
    zof_all_event_cb = fn;
}

// Whether sliding on may become a scroll or gesture that an ancestor handles.
static bool slide_is_wanted(const lv_obj_t *obj) {
    for (; obj; obj = lv_obj_get_parent(obj)) {
        if (lv_obj_has_flag(obj, LV_OBJ_FLAG_SCROLLABLE) && lv_obj_get_scroll_dir(obj) != LV_DIR_NONE) {
            return true;
        }
        if (lv_obj_get_parent(obj) && !lv_obj_has_flag(obj, LV_OBJ_FLAG_GESTURE_BUBBLE)) {
            return true;
        }
    }
    return false;
}

// LVGL would press whatever the pointer slides onto. A user who slides off a control to cancel must not trigger its
// neighbour, so the press ends here unless it can still become a scroll or a gesture.
static void press_lost(lv_event_t *e) {
    lv_indev_t *indev = lv_indev_get_act();
    if (!indev || indev->proc.state != LV_INDEV_STATE_PRESSED || indev->proc.wait_until_release) {
        return;
    }
    if (slide_is_wanted(lv_event_get_target(e))) {
        return;
    }
    indev->proc.reset_query =
        1; // lv_indev_reset would also forget the focused control, which would then keep the focus
    lv_indev_wait_release(indev);
}

void zof_obj_press_unlock(lv_obj_t *obj) {
    lv_obj_clear_flag(obj, LV_OBJ_FLAG_PRESS_LOCK);
    lv_obj_add_event_cb(obj, press_lost, LV_EVENT_PRESS_LOST, nullptr);
}

char *zof_img_path_copy(const char *name) {
    char *copy = zof_res_path_zof_malloc(zof_res_picture_path(zof_lang_get_cur_str(name)));
    if (copy && zof_file_get_size(copy) < 0) {
        zof_img_missing(copy);
    }
    return copy;
}

// Releases the attributes of a deleted record. `gone` is a copy; the record itself may have others by now.
static void attr_free(para_t *gone) {
    zof_pub_attr_t *attr = gone->attr;
    const u32 type = attr->ctrl_type;
    if (type < ZOF_CTRL_TYPE_COUNT && zof_ctrl_classes[type].del) {
        zof_ctrl_classes[type].del(gone);
    }
    for (u32 i = 0; i < attr->style_num; i++) {
        zof_style_del(nullptr, attr->style_list[i]);
    }
    zof_j2s_ctrl_delete(attr, type);
}

// Copies of records that wait for the outermost hold to end, linked through their `parent`.
static para_t *gone_head;

static void gone_free(void) {
    while (gone_head) {
        para_t *gone = gone_head;
        gone_head = (para_t *)gone->parent;
        if (gone->attr) {
            attr_free(gone);
        }
        zof_free(gone);
    }
}

static void gone_add(para_t *gone) {
    zof_hold hold;
    lv_obj_del_set_released_cb(gone_free);
    gone->parent = gone_head;
    gone_head = gone;
}

void zof_ctrl_release(para_t *record) {
    if (!record->attr) {
        return;
    }
    para_t *gone = (para_t *)zof_malloc(sizeof(para_t));
    if (gone) {
        *gone = {.obj = nullptr, .parent = nullptr, .attr = record->attr, .id = record->id, .is_created = 1};
        gone_add(gone);
    } else {
        zof_printf("control %u: no memory to release its attributes; they are kept", record->id);
    }
    record->parent = nullptr;
    record->attr = nullptr;
    record->is_created = 0;
}

s32 zof_ctrl_delete(para_t *record) {
    if (!record) {
        return -1;
    }
    zof_hold hold;
    lv_obj_t *obj = record->obj;
    if (!obj) {
        zof_ctrl_release(record); // its object went with a parent's
        return -1;
    }
    if (record->attr && record->attr->ctrl_type == ZOF_CTRL_VIDEO) {
        return 0; // the object is the driver's
    }
    record->obj = nullptr;
    record->parent = nullptr;
    record->is_created = 0;
    lv_obj_del(obj);
    if (!record->obj) { // else an event function recreated the control
        zof_ctrl_release(record);
    }
    return 0;
}

s32 zof_ctrl_del(u32 view_id, u32 ctrl_id) {
    return zof_ctrl_delete((para_t *)__db_list_search_and_pop(zof_view_list_get_ctrl_list(view_id), &ctrl_id));
}

void zof_ctrl_obj_del(para_t *record) {
    if (!record) {
        return;
    }
    zof_hold hold;
    if (record->obj) { // a video's
        lv_obj_del(record->obj);
        record->obj = nullptr;
    }
    zof_ctrl_release(record);
    gone_add(record);
}
