// Drop lists: a button that shows the selected option, and a list of all options that is on the screen while open.
#include "control/zof_droplist.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_listtxt.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

static const zof_name_t side_names[] = {
    {"left", LV_DIR_LEFT}, {"right", LV_DIR_RIGHT}, {"up", LV_DIR_TOP}, {"down", LV_DIR_BOTTOM}, ZOF_NAMES_END};

const reflect_item_t zof_droplist_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_droplist_attr_t),
    CSON_TEXT(zof_droplist_attr_t, options),
    CSON_ENUM(zof_droplist_attr_t, dir_t, LV_DIR_BOTTOM + 1, side_names),
    CSON_INT(zof_droplist_attr_t, anim_time),
    CSON_ENUM(zof_droplist_attr_t, txt_align_e, LV_TEXT_ALIGN_RIGHT + 1, zof_text_align_names),
    CSON_END,
};

const zof_ctrl_class_t zof_droplist_class = {
    .type = ZOF_CTRL_DROPLIST,
    .name = "droplist",
    .attr = zof_droplist_attr_t_tbl,
    .attr_size = sizeof(zof_droplist_attr_t),
    .create = zof_droplist_create,
    .update_txt = zof_droplist_update_txt,
    .del = zof_droplist_del,
    .value = zof_value_option<zof_droplist_get_selected, zof_droplist_get_selected_str>,
};

static zof_droplist_attr_t *drop_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_droplist_attr_t>(ctrl, ZOF_CTRL_DROPLIST);
}

// The open list's label shows LVGL's own text in place. It would keep referring to the freed one, even when closed,
// because a style change reads it again.
static s32 options_show(lv_obj_t *obj, const char *options) {
    lv_obj_t *list = lv_dropdown_get_list(obj);
    if (!options || !list) {
        return -1;
    }
    lv_dropdown_set_options(obj, options);
    lv_label_set_text_static(lv_obj_get_child(list, 0), lv_dropdown_get_options(obj));
    if (lv_dropdown_is_open(obj)) {
        lv_dropdown_open(obj); // its size follows the options
    }
    return 0;
}

static lv_dir_t dir_of(const zof_droplist_attr_t *drop) {
    switch (drop->dir_t) {
    case LV_DIR_LEFT:
    case LV_DIR_RIGHT:
    case LV_DIR_TOP:
    case LV_DIR_BOTTOM:
        return (lv_dir_t)drop->dir_t;
    default:
        if (drop->dir_t) {
            zof_printf("drop list %u: invalid direction %u; it opens downwards", drop->pub_t.id, drop->dir_t);
        }
        return LV_DIR_BOTTOM;
    }
}

s32 zof_droplist_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_droplist_attr_t *drop = (zof_droplist_attr_t *)attr;
    if (!record || !drop) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_dropdown_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &drop->pub_t);
    options_show(obj, zof_listtxt_start(&drop->opt_list, &drop->options));
    lv_dropdown_set_dir(obj, dir_of(drop));
    lv_obj_set_style_anim_time(obj, drop->anim_time, LV_PART_SELECTED);
    lv_dropdown_set_symbol(obj, nullptr);
    zof_ctrl_style_add(record, drop->pub_t.style_list, drop->pub_t.style_num, 0);
    lv_obj_t *list = lv_dropdown_get_list(obj);
    zof_ctrl_style_add(list, drop->pub_t.style_list, drop->pub_t.style_num, 1);
    lv_obj_set_style_text_align(list, (lv_text_align_t)drop->txt_align_e, LV_PART_MAIN);
    lv_obj_refresh_ext_draw_size(list); // while a view is built only controls refresh their styles
    return 0;
}

s32 zof_droplist_del(para_t *record) {
    auto *attr = zof_record_attr<zof_droplist_attr_t>(record, ZOF_CTRL_DROPLIST);
    if (!attr) {
        return -1;
    }
    zof_listtxt_destroy(&attr->opt_list);
    return 0;
}

// Runs `change` on the control's options and shows the result.
template <typename F> static s32 options_change(zof_ctrl_t *ctrl, F &&change, ZOF_CALLER) {
    const auto run = [&](lv_obj_t *obj) {
        zof_droplist_attr_t *attr = drop_attr(ctrl);
        return attr ? options_show(obj, change(attr->opt_list, &attr->options)) : -1;
    };
    return zof_on(ctrl, &lv_dropdown_class, run, function, site);
}

s32 zof_droplist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position) {
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_add_option(list, slot, text, position); });
}

s32 zof_droplist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position) {
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_modify_option(list, slot, text, position); });
}

s32 zof_droplist_del_option(zof_ctrl_t *ctrl, u32 position) {
    return options_change(ctrl,
                          [=](db_list *list, char **slot) { return zof_listtxt_del_option(list, slot, position); });
}

s32 zof_droplist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count) {
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_change_option(list, slot, texts, count); });
}

s32 zof_droplist_set_selected(zof_ctrl_t *ctrl, u32 index) {
    return zof_on(ctrl, &lv_dropdown_class, [=](lv_obj_t *obj) {
        lv_dropdown_set_selected(obj, (u16)LV_MIN(index, UINT16_MAX));
        if (lv_dropdown_is_open(obj)) {
            lv_dropdown_open(obj); // it scrolls to the selected one
        }
    });
}

s32 zof_droplist_get_selected(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_dropdown_class, lv_dropdown_get_selected);
}

s32 zof_droplist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size) {
    if (!buffer || !size) {
        return -1;
    }
    return zof_on(ctrl, &lv_dropdown_class, [=](lv_obj_t *obj) { lv_dropdown_get_selected_str(obj, buffer, size); });
}

s32 zof_droplist_open(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_dropdown_class, lv_dropdown_open);
}

s32 zof_droplist_close(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_dropdown_class, lv_dropdown_close);
}

s32 zof_droplist_update_txt(zof_ctrl_t *ctrl) {
    s32 selected = zof_droplist_get_selected(ctrl);
    if (selected < 0) {
        return -1;
    }
    options_change(ctrl, zof_listtxt_list2str);
    return zof_droplist_set_selected(ctrl, (u32)selected);
}
