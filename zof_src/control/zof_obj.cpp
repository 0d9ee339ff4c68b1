// Plain containers.
#include "control/zof_obj.h"

#include "control/zof_ctrl_create.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_obj_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_obj_attr_t),
    CSON_END,
};

const zof_ctrl_class_t zof_obj_class = {
    .type = ZOF_CTRL_OBJ,
    .name = "container",
    .attr = zof_obj_attr_t_tbl,
    .attr_size = sizeof(zof_obj_attr_t),
    .create = zof_obj_create,
};

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
