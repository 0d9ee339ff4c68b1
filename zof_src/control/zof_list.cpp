// Lists: a column of buttons, each with a label and perhaps an icon before it. The record keeps what each button was
// given, in the order of the buttons, because a label does not know its key.
#include "control/zof_list.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_img.h"
#include "control/zof_label.h"
#include "control/zof_txt_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_picture.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_list_btn_t_tbl[] = {
    CSON_TEXT(zof_list_btn_t, image_num),
    CSON_TEXT(zof_list_btn_t, txt),
    CSON_END,
};

const reflect_item_t zof_list_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_list_attr_t),
    CSON_INT(zof_list_attr_t, list_count),
    CSON_ARR(zof_list_attr_t, btns_t, zof_list_btn_t_tbl, sizeof(zof_list_btn_t), "list_count"),
    CSON_INT(zof_list_attr_t, anim_time),
    CSON_END,
};

const zof_ctrl_class_t zof_list_class = {
    .type = ZOF_CTRL_LIST,
    .name = "list",
    .attr = zof_list_attr_t_tbl,
    .attr_size = sizeof(zof_list_attr_t),
    .create = zof_list_create,
    .update_txt = zof_list_update_txt,
    .del = zof_list_del,
    .value = zof_value_element<zof_list_get_select_index, zof_list_get_index_str>,
};

static zof_list_attr_t *list_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_list_attr_t>(ctrl, ZOF_CTRL_LIST);
}

static void item_free(void *data) {
    zof_list_item_t *item = (zof_list_item_t *)data;
    if (!item) {
        return;
    }
    zof_free(item->image);
    zof_free(item->txt);
    zof_free(item);
}

static s32 item_append(db_list *items, const char *image, const char *text) {
    zof_list_item_t *item = (zof_list_item_t *)zof_malloc(sizeof(zof_list_item_t));
    if (!item) {
        return -1;
    }
    *item = {};
    zof_txt_change(&item->image, image);
    zof_txt_change(&item->txt, text);
    if (__db_list_put_tail(items, item) == 0) {
        return 0;
    }
    item_free(item);
    return -1;
}

static void items_clear(zof_list_attr_t *attr) {
    __db_list_travel(attr->opt_list, item_free);
    __db_list_clear(attr->opt_list);
}

static zof_list_item_t *item_at(const zof_ctrl_t *ctrl, u32 index) {
    zof_list_attr_t *attr = list_attr(ctrl);
    return attr ? (zof_list_item_t *)__db_list_visit(attr->opt_list, (s32)index) : nullptr;
}

static lv_obj_t *btn_at(lv_obj_t *list, u32 index) {
    return index < lv_obj_get_child_cnt(list) ? lv_obj_get_child(list, (s32)index) : nullptr;
}

static lv_obj_t *btn_part(lv_obj_t *btn, const lv_obj_class_t *kind) {
    for (u32 i = 0; i < lv_obj_get_child_cnt(btn); i++) {
        lv_obj_t *child = lv_obj_get_child(btn, (s32)i);
        if (lv_obj_check_type(child, kind)) {
            return child;
        }
    }
    return nullptr;
}

static lv_obj_t *btn_create(lv_obj_t *list, const char *image, const char *text) {
    char *icon = zof_img_get_src_type(image) == 1 ? zof_img_path_copy(image) : nullptr;
    const char *shown = zof_lang_get_cur_str(text);
    lv_obj_t *btn = lv_list_add_btn(list, icon, shown ? shown : "");
    if (btn && icon) {
        lv_obj_set_flex_align(btn, LV_FLEX_ALIGN_CENTER, LV_FLEX_ALIGN_CENTER, LV_FLEX_ALIGN_CENTER);
    }
    zof_free(icon);
    return btn;
}

// Adds a button, with what it needs when the list is a control.
static lv_obj_t *btn_add(lv_obj_t *list, zof_list_attr_t *attr, const char *image, const char *text) {
    lv_obj_t *btn = btn_create(list, image, text);
    if (!btn || !attr || !attr->opt_list) {
        return btn;
    }
    if (item_append(attr->opt_list, image, text) != 0) {
        lv_obj_del(btn);
        return nullptr;
    }
    zof_obj_press_unlock(btn);
    lv_obj_add_flag(btn, LV_OBJ_FLAG_EVENT_BUBBLE);
    lv_obj_set_style_transform_width(btn, 0, LV_STATE_PRESSED); // LVGL's theme widens it across the list's border
    zof_ctrl_style_add(btn, attr->pub_t.style_list, attr->pub_t.style_num, 1);
    lv_obj_refresh_ext_draw_size(btn); // while a view is built only controls refresh their styles
    return btn;
}

s32 zof_list_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_list_attr_t *list = (zof_list_attr_t *)attr;
    if (!record || !list) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_list_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &list->pub_t);
    items_clear(list); // the control may be recreated after it was deleted with its parent
    if (!list->opt_list) {
        list->opt_list = db_list_create();
    }
    lv_obj_set_style_anim_time(obj, list->anim_time, LV_PART_MAIN);
    zof_ctrl_style_add(record, list->pub_t.style_list, list->pub_t.style_num, 0);
    for (u32 i = 0; list->btns_t && i < list->list_count; i++) {
        btn_add(obj, list, list->btns_t[i].image_num, list->btns_t[i].txt);
    }
    return 0;
}

zof_ctrl_t *zof_list_add_btn(zof_ctrl_t *ctrl, const char *image, const char *text) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_list_class);
    return obj ? btn_add(obj, list_attr(ctrl), image, text) : nullptr;
}

s32 zof_list_del_btn(zof_ctrl_t *ctrl, u32 index) {
    return zof_on(ctrl, &lv_list_class, [=](lv_obj_t *obj) {
        lv_obj_t *btn = btn_at(obj, index);
        zof_list_attr_t *attr = list_attr(ctrl);
        if (!btn) {
            return -1;
        }
        if (attr) {
            item_free(__db_list_visit_and_pop(attr->opt_list, (s32)index));
        }
        lv_obj_del(btn);
        return 0;
    });
}

s32 zof_list_remove_all(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_list_class, [=](lv_obj_t *obj) {
        zof_list_attr_t *attr = list_attr(ctrl);
        lv_obj_clean(obj);
        if (attr) {
            items_clear(attr);
        }
    });
}

s32 zof_list_del(para_t *record) {
    auto *attr = zof_record_attr<zof_list_attr_t>(record, ZOF_CTRL_LIST);
    if (!attr) {
        return -1;
    }
    if (record->obj) { // else it has been deleted, with its buttons
        zof_list_remove_all(record);
    }
    items_clear(attr);
    __db_list_destory(attr->opt_list, nullptr);
    attr->opt_list = nullptr;
    return 0;
}

zof_ctrl_t *zof_list_get_index_btn(zof_ctrl_t *ctrl, u32 index) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_list_class);
    return obj ? btn_at(obj, index) : nullptr;
}

// Runs `fn` on a button of a list.
template <typename F> static s32 on_btn(zof_ctrl_t *ctrl, u32 index, F &&fn, ZOF_CALLER) {
    const auto run = [&](lv_obj_t *obj) {
        lv_obj_t *btn = btn_at(obj, index);
        return btn ? zof_on(btn, std::forward<F>(fn)) : -1;
    };
    return zof_on(ctrl, &lv_list_class, run, function, site);
}

zof_ctrl_t *zof_list_get_index_label(zof_ctrl_t *ctrl, u32 index) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_list_class);
    lv_obj_t *btn = obj ? btn_at(obj, index) : nullptr;
    return btn ? lv_obj_get_child(btn, 0) : nullptr;
}

s32 zof_list_set_select_index(zof_ctrl_t *ctrl, zof_ctrl_t *button) {
    return zof_on(ctrl, &lv_list_class, [=](lv_obj_t *obj) {
        lv_obj_t *chosen = zof_ctrl_obj(button);
        if (!chosen || lv_obj_get_parent(chosen) != obj) {
            return -1;
        }
        for (u32 i = 0; i < lv_obj_get_child_cnt(obj); i++) {
            lv_obj_t *btn = lv_obj_get_child(obj, (s32)i);
            if (btn == chosen) {
                lv_obj_add_state(btn, LV_STATE_CHECKED);
            } else {
                lv_obj_clear_state(btn, LV_STATE_CHECKED);
            }
        }
        return 0;
    });
}

s32 zof_list_get_select_index(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_list_class, [](lv_obj_t *obj) {
        for (u32 i = 0; i < lv_obj_get_child_cnt(obj); i++) {
            if (lv_obj_has_state(lv_obj_get_child(obj, (s32)i), LV_STATE_FOCUSED)) {
                return (s32)i;
            }
        }
        return -1;
    });
}

s32 zof_list_set_index_str(zof_ctrl_t *ctrl, u32 index, const char *text) {
    return on_btn(ctrl, index, [=](lv_obj_t *btn) {
        zof_list_item_t *item = item_at(ctrl, index);
        lv_obj_t *label = btn_part(btn, &lv_label_class);
        if (label && item) {
            zof_txt_change(&item->txt, text); // first, because `text` may be the label's own
        }
        return label ? zof_label_set_txt(label, text) : -1;
    });
}

const char *zof_list_get_index_str(zof_ctrl_t *ctrl, u32 index) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_list_class);
    lv_obj_t *btn = obj ? btn_at(obj, index) : nullptr;
    return btn ? lv_list_get_btn_text(obj, btn) : (const char *)(intptr_t)-1;
}

s32 zof_list_focus(zof_ctrl_t *ctrl, u32 index) {
    return on_btn(ctrl, index, [](lv_obj_t *btn) { lv_obj_scroll_to_view(btn, LV_ANIM_ON); });
}

s32 zof_list_add_btns_style(zof_ctrl_t *ctrl, u32 index, u32 selector, zof_color_t bg_color, u32 radius, u8 opa) {
    return on_btn(ctrl, index, [=](lv_obj_t *btn) {
        lv_obj_set_style_bg_color(btn, zof_color_to_lv(bg_color), selector);
        lv_obj_set_style_radius(btn, (lv_coord_t)LV_MIN(radius, (u32)LV_RADIUS_CIRCLE), selector);
        lv_obj_set_style_opa(btn, opa, selector);
    });
}

static void btn_update(lv_obj_t *btn, const zof_list_item_t *item) {
    if (zof_lang_check_str(item->txt)) {
        zof_label_set_txt(btn_part(btn, &lv_label_class), item->txt);
    }
    if (zof_lang_check_str(item->image)) {
        zof_img_set_src(btn_part(btn, &lv_img_class), item->image);
    }
}

s32 zof_list_update_txt(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_list_class, [=](lv_obj_t *obj) {
        const zof_list_attr_t *attr = list_attr(ctrl);
        const db_node *head = attr && attr->opt_list ? attr->opt_list->head : nullptr;
        const db_node *at = head ? head->next : nullptr;
        for (u32 i = 0; at != head && i < lv_obj_get_child_cnt(obj); i++, at = at->next) {
            btn_update(lv_obj_get_child(obj, (s32)i), (const zof_list_item_t *)at->data);
        }
    });
}
