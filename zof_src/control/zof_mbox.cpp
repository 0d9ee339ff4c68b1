// Message boxes: title, text and a row of buttons, each of which may be missing.
#include "control/zof_mbox.h"

#include "control/zof_btn_map_in.h"
#include "control/zof_ctrl_in.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_mbox_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_mbox_attr_t),
    CSON_TEXT(zof_mbox_attr_t, title),
    CSON_TEXT(zof_mbox_attr_t, txt),
    CSON_INT(zof_mbox_attr_t, btn_num),
    CSON_ARR(zof_mbox_attr_t, btn_txt, stringReflectTbl, sizeof(char *), "btn_num"),
    CSON_INT(zof_mbox_attr_t, anim_time),
    CSON_END,
};

// The caption of the button that was clicked last.
static const char *clicked_caption(zof_ctrl_t *ctrl, u32) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_msgbox_class);
    return obj && lv_msgbox_get_btns(obj) ? lv_msgbox_get_active_btn_text(obj) : nullptr;
}

const zof_ctrl_class_t zof_mbox_class = {
    .type = ZOF_CTRL_MBOX,
    .name = "mbox",
    .attr = zof_mbox_attr_t_tbl,
    .attr_size = sizeof(zof_mbox_attr_t),
    .create = zof_mbox_create,
    .update_txt = zof_mbox_update_txt,
    .del = zof_mbox_del,
    .value = zof_value_element<zof_mbox_get_clicked_btn_num, clicked_caption>,
};

static zof_mbox_attr_t *mbox_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_mbox_attr_t>(ctrl, ZOF_CTRL_MBOX);
}

// Runs `fn` on the box of a control. An object's own address is not a control; its first word is itself.
template <typename F> static s32 on_mbox(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    const lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (!obj || (const void *)obj == (const void *)ctrl || !((const para_t *)ctrl)->is_created || !mbox_attr(ctrl)) {
        return zof_refuse(ctrl, function, site);
    }
    return zof_on(ctrl, &lv_msgbox_class, std::forward<F>(fn), function, site);
}

static void label_center(lv_obj_t *label) {
    if (label) {
        lv_obj_set_style_text_align(label, LV_TEXT_ALIGN_CENTER, LV_PART_MAIN);
    }
}

// Makes a label as LVGL does for a box that is created with the text.
static lv_obj_t *label_add(lv_obj_t *parent, lv_label_long_mode_t mode) {
    lv_obj_t *label = lv_label_create(parent);
    if (!label) {
        return nullptr;
    }
    lv_label_set_long_mode(label, mode);
    lv_obj_set_width(label, LV_PCT(100));
    label_center(label);
    return label;
}

static lv_obj_t *title_add(lv_msgbox_t *box) {
    box->title = label_add(&box->obj, LV_LABEL_LONG_SCROLL_CIRCULAR);
    if (box->title) {
        lv_obj_move_to_index(box->title, 0);
    }
    return box->title;
}

static lv_obj_t *text_add(lv_msgbox_t *box) {
    return box->text = label_add(box->content, LV_LABEL_LONG_WRAP);
}

s32 zof_mbox_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_mbox_attr_t *mbox = (zof_mbox_attr_t *)attr;
    if (!record || !mbox || !parent) {
        return -1;
    }
    zof_btn_map_free(&mbox->btn_map);
    mbox->btn_map = zof_btn_map_create(mbox->btn_txt, mbox->btn_num);
    if (!mbox->btn_map) {
        return -1;
    }
    // For a map without captions LVGL would leave room for buttons.
    const char **map = mbox->btn_map[0][0] ? (const char **)mbox->btn_map : nullptr;
    lv_obj_t *obj = record->obj =
        lv_msgbox_create(parent, zof_lang_get_cur_str(mbox->title), zof_lang_get_cur_str(mbox->txt), map, false);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &mbox->pub_t);
    lv_obj_set_style_anim_time(obj, mbox->anim_time, LV_PART_MAIN);
    label_center(lv_msgbox_get_title(obj));
    label_center(lv_msgbox_get_text(obj));
    lv_obj_set_flex_align(obj, LV_FLEX_ALIGN_CENTER, LV_FLEX_ALIGN_START, LV_FLEX_ALIGN_START); // the buttons as well
    zof_ctrl_style_add(record, mbox->pub_t.style_list, mbox->pub_t.style_num, 0);
    lv_obj_t *btns = lv_msgbox_get_btns(obj);
    if (btns) {
        zof_btn_map_press_fresh(btns);
        zof_ctrl_style_add(btns, mbox->pub_t.style_list, mbox->pub_t.style_num, 1);
    }
    return 0;
}

s32 zof_mbox_del(para_t *record) {
    auto *attr = zof_record_attr<zof_mbox_attr_t>(record, ZOF_CTRL_MBOX);
    if (!attr || !record->is_created) {
        return -1;
    }
    lv_obj_t *btns = record->obj ? lv_msgbox_get_btns(record->obj) : nullptr;
    if (btns) {
        lv_btnmatrix_set_map(btns, zof_btn_map_empty);
    }
    zof_btn_map_free(&attr->btn_map);
    return 0;
}

// Adds a missing label when there is a text to show.
static s32 text_set(lv_msgbox_t *box, lv_obj_t *label, lv_obj_t *(*add)(lv_msgbox_t *), char **slot, const char *text) {
    const char *shown = zof_lang_get_cur_str(text);
    if (!label && shown && shown[0]) {
        label = add(box);
    }
    if (label ? zof_txt_show(label, text, lv_label_set_text) : shown != text) {
        zof_txt_change(slot, text);
    }
    return 0;
}

s32 zof_title_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return on_mbox(ctrl, [=](lv_obj_t *obj) {
        return text_set((lv_msgbox_t *)obj, lv_msgbox_get_title(obj), title_add, &mbox_attr(ctrl)->title, text);
    });
}

s32 zof_mbox_set_txt(zof_ctrl_t *ctrl, const char *text) {
    return on_mbox(ctrl, [=](lv_obj_t *obj) {
        return text_set((lv_msgbox_t *)obj, lv_msgbox_get_text(obj), text_add, &mbox_attr(ctrl)->txt, text);
    });
}

s32 zof_mbox_update_txt(zof_ctrl_t *ctrl) {
    return on_mbox(ctrl, [=](lv_obj_t *) {
        const zof_mbox_attr_t *attr = mbox_attr(ctrl);
        if (zof_lang_check_str(attr->title)) {
            zof_title_set_txt(ctrl, attr->title);
        }
        if (zof_lang_check_str(attr->txt)) {
            zof_mbox_set_txt(ctrl, attr->txt);
        }
    });
}

u32 zof_mbox_get_clicked_btn_num(zof_ctrl_t *ctrl) {
    return (u32)on_mbox(ctrl, [](lv_obj_t *obj) -> s32 {
        return lv_msgbox_get_btns(obj) ? lv_msgbox_get_active_btn(obj) : LV_BTNMATRIX_BTN_NONE;
    });
}

static void mbox_del_delay_cb(lv_anim_t *anim) {
    lv_obj_add_flag((lv_obj_t *)anim->var, LV_OBJ_FLAG_HIDDEN);
}

s32 zof_mbox_start_auto_close(zof_ctrl_t *ctrl, u32 delay_ms) {
    return on_mbox(ctrl, [=](lv_obj_t *obj) {
        lv_anim_t anim;
        lv_anim_init(&anim);
        lv_anim_set_var(&anim, obj);
        lv_anim_set_time(&anim, 1);
        lv_anim_set_delay(&anim, LV_MIN(delay_ms, (u32)INT32_MAX));
        lv_anim_set_ready_cb(&anim, mbox_del_delay_cb);
        lv_anim_start(&anim);
    });
}

s32 zof_mbox_s_close(zof_ctrl_t *ctrl) {
    return on_mbox(ctrl, [](lv_obj_t *obj) { lv_obj_add_flag(obj, LV_OBJ_FLAG_HIDDEN); });
}

s32 zof_mbox_s_open(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_msgbox_class, [](lv_obj_t *obj) { lv_obj_clear_flag(obj, LV_OBJ_FLAG_HIDDEN); });
}
