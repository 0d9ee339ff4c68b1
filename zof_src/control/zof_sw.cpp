// Switches.
#include "control/zof_sw.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_sw_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_sw_attr_t),
    CSON_INT(zof_sw_attr_t, anim_time),
    CSON_END,
};

const zof_ctrl_class_t zof_sw_class = {
    .type = ZOF_CTRL_SW,
    .name = "sw",
    .attr = zof_sw_attr_t_tbl,
    .attr_size = sizeof(zof_sw_attr_t),
    .create = zof_sw_create,
    .value = zof_value_number<zof_sw_get_state>,
};

s32 zof_sw_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_sw_attr_t *sw = (zof_sw_attr_t *)attr;
    if (!record || !sw) {
        return -1;
    }
    record->obj = lv_switch_create(parent);
    if (!record->obj) {
        return -1;
    }
    zof_size_t *size = &sw->pub_t.size;
    if (size->width == size->height && !LV_COORD_IS_SPEC(size->width)) {
        size->width++; // LVGL's switch must not be square
    }
    zof_ctrl_pub_attr(record, &sw->pub_t);
    lv_obj_set_style_anim_time(record->obj, sw->anim_time, LV_PART_MAIN);
    zof_ctrl_style_add(record, sw->pub_t.style_list, sw->pub_t.style_num, 0);
    return 0;
}

s32 zof_sw_set_state(zof_ctrl_t *ctrl, u32 on) {
    return zof_obj_state_set(ctrl, LV_STATE_CHECKED, on);
}

u32 zof_sw_get_state(zof_ctrl_t *ctrl) {
    return zof_ctrl_state_judge(ctrl, LV_STATE_CHECKED) == 1;
}
