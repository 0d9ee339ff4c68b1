// Buttons with a text: an LVGL button and, as its first child, the label that shows the text.
#include "control/zof_btn.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_btn_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_btn_attr_t),
    CSON_ENUM(zof_btn_attr_t, mode, 0, zof_press_names),
    CSON_TEXT(zof_btn_attr_t, txt),
    CSON_END,
};

const zof_ctrl_class_t zof_btn_class = {
    .type = ZOF_CTRL_BTN,
    .name = "button",
    .attr = zof_btn_attr_t_tbl,
    .attr_size = sizeof(zof_btn_attr_t),
    .create = zof_btn_create,
    .update_txt = zof_btn_update_txt,
    .value = zof_value_number<zof_ctrl_checked>,
};

s32 zof_btn_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_btn_attr_t *btn = (zof_btn_attr_t *)attr;
    if (!record || !btn) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_btn_create(parent);
    if (!obj) {
        return -1;
    }
    zof_obj_press_unlock(obj);
    zof_ctrl_pub_attr(record, &btn->pub_t);
    zof_obj_layout(obj);
    zof_btn_set_mode(record, btn->mode);
    lv_obj_t *label = zof_txt_inner_create(obj, btn->txt);
    zof_ctrl_style_add(record, btn->pub_t.style_list, btn->pub_t.style_num, 0);
    if (label) {
        zof_obj_layout(label);
    }
    return 0;
}

s32 zof_btn_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return zof_on_inner(ctrl, [=](lv_obj_t *label) {
        if (!zof_txt_show(label, text, lv_label_set_text)) {
            return;
        }
        zof_btn_attr_t *attr = zof_ctrl_attr<zof_btn_attr_t>(ctrl, ZOF_CTRL_BTN);
        if (attr) {
            zof_txt_change(&attr->txt, text);
        }
    });
}

s32 zof_btn_update_txt(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [=](lv_obj_t *) {
        const zof_btn_attr_t *attr = zof_ctrl_attr<zof_btn_attr_t>(ctrl, ZOF_CTRL_BTN);
        if (attr && zof_lang_check_str(attr->txt)) {
            zof_btn_set_txt(ctrl, attr->txt);
        }
    });
}

s32 zof_btn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_text_color(obj, zof_color_to_lv(color), selector); });
}

s32 zof_btn_set_txt_size(zof_ctrl_t *ctrl, u32 size) {
    return zof_txt_inner_set_size(ctrl, size);
}

s32 zof_btn_set_mode(zof_ctrl_t *ctrl, u32 mode) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { zof_obj_flag_set(obj, LV_OBJ_FLAG_CHECKABLE, mode != 0); });
}

s32 zof_btn_get_state(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, lv_obj_get_state);
}

s32 zof_btn_set_state(zof_ctrl_t *ctrl, u32 state) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        for (lv_state_t old : {LV_STATE_CHECKED, LV_STATE_PRESSED, LV_STATE_DISABLED}) {
            if (lv_obj_has_state(obj, old)) {
                lv_obj_clear_state(obj, old);
            }
        }
        lv_obj_add_state(obj, (lv_state_t)state);
    });
}
