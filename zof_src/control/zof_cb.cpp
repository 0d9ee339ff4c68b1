// Check boxes.
#include "control/zof_cb.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_cb_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_cb_attr_t),
    CSON_TEXT(zof_cb_attr_t, txt),
    CSON_END,
};

const zof_ctrl_class_t zof_cb_class = {
    .type = ZOF_CTRL_CB,
    .name = "cb",
    .attr = zof_cb_attr_t_tbl,
    .attr_size = sizeof(zof_cb_attr_t),
    .create = zof_cb_create,
    .update_txt = zof_cb_update_txt,
    .value = zof_value_number<zof_cb_is_checked>,
};

s32 zof_cb_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_cb_attr_t *cb = (zof_cb_attr_t *)attr;
    if (!record || !cb) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_checkbox_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &cb->pub_t);
    zof_cb_set_txt(record, cb->txt);
    lv_obj_set_size(obj, LV_SIZE_CONTENT, LV_SIZE_CONTENT); // always as large as its text
    zof_ctrl_style_add(record, cb->pub_t.style_list, cb->pub_t.style_num, 0);
    return 0;
}

s32 zof_cb_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return zof_on(ctrl, &lv_checkbox_class, [=](lv_obj_t *obj) {
        if (!zof_txt_show(obj, text, lv_checkbox_set_text)) {
            return;
        }
        zof_cb_attr_t *attr = zof_ctrl_attr<zof_cb_attr_t>(ctrl, ZOF_CTRL_CB);
        if (attr) {
            zof_txt_change(&attr->txt, text);
        }
    });
}

s32 zof_cb_set_checked(zof_ctrl_t *ctrl, u32 on) {
    return zof_obj_state_set(ctrl, LV_STATE_CHECKED, on);
}

u32 zof_cb_is_checked(zof_ctrl_t *ctrl) {
    return zof_ctrl_state_judge(ctrl, LV_STATE_CHECKED) == 1;
}

s32 zof_cb_set_disable(zof_ctrl_t *ctrl, u32 on) {
    return zof_obj_state_set(ctrl, LV_STATE_DISABLED, on);
}

s32 zof_cb_is_inactive(zof_ctrl_t *ctrl) {
    return zof_ctrl_state_judge(ctrl, LV_STATE_DISABLED);
}

s32 zof_cb_update_txt(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [=](lv_obj_t *) {
        const zof_cb_attr_t *attr = zof_ctrl_attr<zof_cb_attr_t>(ctrl, ZOF_CTRL_CB);
        if (attr && zof_lang_check_str(attr->txt)) {
            zof_cb_set_txt(ctrl, attr->txt);
        }
    });
}
