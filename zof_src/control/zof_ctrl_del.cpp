// Deletion of controls. The object leaves the screen at once; what an event function or a call may still be using is
// freed when the outermost of them has returned.
#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_j2s_ctrl.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

// Releases the attributes of a deleted record. `gone` is a copy; the record itself may have others by now.
static void attr_free(para_t *gone) {
    zof_pub_attr_t *attr = gone->attr;
    const zof_ctrl_class_t *row = zof_ctrl_class_get(attr->ctrl_type);
    if (row && row->del) {
        row->del(gone);
    }
    for (u32 i = 0; i < attr->style_num; i++) {
        zof_style_del(nullptr, attr->style_list[i]);
    }
    zof_j2s_ctrl_delete(attr, attr->ctrl_type);
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
    const zof_ctrl_class_t *row = record->attr ? zof_ctrl_class_get(record->attr->ctrl_type) : nullptr;
    if (row && row->driver_object) {
        return 0;
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
