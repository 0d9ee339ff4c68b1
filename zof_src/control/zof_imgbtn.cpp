// Image buttons: a picture for each state and, as the first child, a label over it.
#include "control/zof_imgbtn.h"

#include "control/zof_btn.h"
#include "control/zof_ctrl_in.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_picture.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

static const zof_name_t pos_names[] = {{"corner", 0}, {"center", 1}, ZOF_NAMES_END};

const reflect_item_t zof_imgbtn_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_imgbtn_attr_t),
    CSON_ENUM(zof_imgbtn_attr_t, mode, 0, zof_press_names),
    CSON_ENUM(zof_imgbtn_attr_t, pos_mode_e, 0, pos_names),
    CSON_TEXT(zof_imgbtn_attr_t, txt),
    CSON_TEXT(zof_imgbtn_attr_t, img_rel),
    CSON_TEXT(zof_imgbtn_attr_t, img_pr),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_pr),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_rel),
    CSON_TEXT(zof_imgbtn_attr_t, img_ina),
    CSON_TEXT(zof_imgbtn_attr_t, img_tgl_ina),
    CSON_END,
};

const zof_ctrl_class_t zof_imgbtn_class = {
    .type = ZOF_CTRL_IMGBTN,
    .name = "image_button",
    .attr = zof_imgbtn_attr_t_tbl,
    .attr_size = sizeof(zof_imgbtn_attr_t),
    .create = zof_imgbtn_create,
    .update_txt = zof_imgbtn_update_txt,
    .value = zof_value_number<zof_ctrl_checked>,
};

// The pictures in the order in which they are set, each with LVGL's number of its state.
static const struct {
    char *zof_imgbtn_attr_t::*name;
    lv_imgbtn_state_t state;
} images[] = {
    {&zof_imgbtn_attr_t::img_rel, LV_IMGBTN_STATE_RELEASED},
    {&zof_imgbtn_attr_t::img_pr, LV_IMGBTN_STATE_PRESSED},
    {&zof_imgbtn_attr_t::img_tgl_pr, LV_IMGBTN_STATE_CHECKED_PRESSED},
    {&zof_imgbtn_attr_t::img_tgl_rel, LV_IMGBTN_STATE_CHECKED_RELEASED},
    {&zof_imgbtn_attr_t::img_ina, LV_IMGBTN_STATE_DISABLED},
    {&zof_imgbtn_attr_t::img_tgl_ina, LV_IMGBTN_STATE_CHECKED_DISABLED},
};
static_assert(sizeof(images) / sizeof(images[0]) == _LV_IMGBTN_STATE_NUM);

// The style states of LVGL's image button states, by their number.
static const u32 state_selectors[] = {
    LV_STATE_DEFAULT,
    LV_STATE_PRESSED,
    LV_STATE_DISABLED,
    LV_STATE_CHECKED,
    LV_STATE_PRESSED | LV_STATE_CHECKED,
    LV_STATE_DISABLED | LV_STATE_CHECKED,
};

// LVGL only refers to the path. It is a copy, freed when another one replaces it or the button is deleted.
static void image_set(lv_obj_t *obj, lv_imgbtn_state_t state, const char *name) {
    void *former = (void *)lv_imgbtn_get_src_middle(obj, state);
    lv_imgbtn_set_src(obj, state, nullptr, zof_img_path_copy(name), nullptr);
    zof_free(former);
}

static zof_imgbtn_attr_t *imgbtn_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_imgbtn_attr_t>(ctrl, ZOF_CTRL_IMGBTN);
}

// Pictures of different states may differ in size, so the position is computed again at each state change.
static void zof_imgbtn_pos_event(lv_event_t *e) {
    lv_event_code_t code = lv_event_get_code(e);
    if (code != LV_EVENT_PRESSED && code != LV_EVENT_PRESS_LOST && code != LV_EVENT_RELEASED) {
        return;
    }
    zof_imgbtn_pos_reset(lv_event_get_target(e), (zof_imgbtn_attr_t *)lv_event_get_user_data(e));
}

static void zof_imgbtn_del_event(lv_event_t *e) {
    lv_obj_t *obj = lv_event_get_target(e);
    for (const auto &image : images) {
        zof_free((void *)lv_imgbtn_get_src_middle(obj, image.state));
        ((lv_imgbtn_t *)obj)->img_src_mid[image.state] = nullptr;
    }
}

static void label_add(lv_obj_t *obj, const zof_imgbtn_attr_t *btn) {
    lv_obj_t *label = zof_txt_inner_create(obj, btn->txt);
    if (!label) {
        return;
    }
    for (u32 state : {LV_STATE_DEFAULT, LV_STATE_PRESSED, LV_STATE_CHECKED, LV_STATE_DISABLED}) {
        lv_obj_set_style_bg_opa(label, LV_OPA_TRANSP, state);
    }
}

s32 zof_imgbtn_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_imgbtn_attr_t *btn = (zof_imgbtn_attr_t *)attr;
    if (!record || !btn) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_imgbtn_create(parent);
    if (!obj) {
        return -1;
    }
    lv_obj_add_event_cb(obj, zof_imgbtn_del_event, LV_EVENT_DELETE, record);
    zof_obj_press_unlock(obj);
    zof_ctrl_pub_attr(record, &btn->pub_t);
    lv_obj_set_size(obj, LV_SIZE_CONTENT, LV_SIZE_CONTENT);
    for (const auto &image : images) {
        image_set(obj, image.state, btn->*image.name);
    }
    zof_btn_set_mode(record, btn->mode);
    if (btn->pos_mode_e == 1) {
        zof_imgbtn_pos_reset(obj, btn);
        lv_obj_add_event_cb(obj, zof_imgbtn_pos_event, LV_EVENT_ALL, btn);
    }
    zof_obj_layout(obj);
    label_add(obj, btn);
    zof_ctrl_style_add(record, btn->pub_t.style_list, btn->pub_t.style_num, 0);
    lv_obj_t *label = zof_txt_inner_label(record);
    if (label) {
        zof_obj_layout(label);
    }
    return 0;
}

s32 zof_imgbtn_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return zof_on_inner(ctrl, [=](lv_obj_t *label) {
        if (!zof_txt_show(label, text, lv_label_set_text)) {
            return;
        }
        zof_imgbtn_attr_t *attr = imgbtn_attr(ctrl);
        if (attr) {
            zof_txt_change(&attr->txt, text);
        }
    });
}

s32 zof_imgbtn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 state) {
    if (state >= _LV_IMGBTN_STATE_NUM) {
        return -1;
    }
    return zof_on(
        ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_text_color(obj, zof_color_to_lv(color), state_selectors[state]); });
}

s32 zof_imgbtn_set_txt_size(zof_ctrl_t *ctrl, u32 size) {
    return zof_txt_inner_set_size(ctrl, size);
}

s32 zof_imgbtn_set_mode(zof_ctrl_t *ctrl, u32 state) {
    if (state >= _LV_IMGBTN_STATE_NUM) {
        return -1;
    }
    return zof_on(ctrl, &lv_imgbtn_class, [=](lv_obj_t *obj) { lv_imgbtn_set_state(obj, (lv_imgbtn_state_t)state); });
}

s32 zof_imgbtn_get_state(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_imgbtn_class, [](lv_obj_t *obj) {
        lv_state_t now = lv_obj_get_state(obj) & (LV_STATE_PRESSED | LV_STATE_DISABLED | LV_STATE_CHECKED);
        if (now & LV_STATE_DISABLED) {
            now &= ~LV_STATE_PRESSED;
        }
        s32 state = 0;
        while (state_selectors[state] != now) {
            state++;
        }
        return state;
    });
}

s32 zof_imgbtn_set_image(zof_ctrl_t *ctrl, u32 state, const char *name) {
    if (state >= _LV_IMGBTN_STATE_NUM) {
        return -1;
    }
    return zof_on(ctrl, &lv_imgbtn_class, [=](lv_obj_t *obj) { image_set(obj, (lv_imgbtn_state_t)state, name); });
}

s32 zof_imgbtn_update_txt(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_imgbtn_class, [=](lv_obj_t *obj) {
        zof_imgbtn_attr_t *btn = imgbtn_attr(ctrl);
        if (!btn) {
            return;
        }
        if (zof_lang_check_str(btn->txt)) {
            zof_imgbtn_set_txt(ctrl, btn->txt);
        }
        for (const auto &image : images) {
            if (zof_lang_check_str(btn->*image.name)) {
                image_set(obj, image.state, btn->*image.name);
            }
        }
        if (btn->pos_mode_e == 1) {
            zof_imgbtn_pos_reset(obj, btn);
        }
    });
}

s32 zof_imgbtn_pos_reset(lv_obj_t *object, zof_imgbtn_attr_t *attr) {
    if (!object || !attr) {
        return -1;
    }
    zof_obj_layout(object);
    s32 x = (s32)((u32)attr->pub_t.size.width >> 1) + attr->pub_t.pt.x - lv_obj_get_width(object) / 2;
    s32 y = (s32)((u32)attr->pub_t.size.height >> 1) + attr->pub_t.pt.y - lv_obj_get_height(object) / 2;
    lv_obj_set_pos(object, x, y);
    lv_obj_invalidate(object);
    return 0;
}
