// Plain containers.
#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

s32 zof_obj_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_pub_attr_t *pub = (zof_pub_attr_t *)attr;
    if (!record || !pub) {
        return -1;
    }
    record->obj = lv_obj_create(parent);
    if (!record->obj) {
        return -1;
    }
    zof_obj_press_unlock(record->obj);
    zof_ctrl_pub_attr(record, pub);
    zof_ctrl_style_add(record, pub->style_list, pub->style_num, 0);
    return 0;
}
