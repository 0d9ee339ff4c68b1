// Roller lists: a wheel of texts, of which the one in the middle is selected.
#include "control/zof_rollist.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_listtxt.h"
#include "project/look/zof_style.h"

static const zof_name_t mode_names[] = {
    {"stops", LV_ROLLER_MODE_NORMAL}, {"endless", LV_ROLLER_MODE_INFINITE}, ZOF_NAMES_END};

const reflect_item_t zof_rollist_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_rollist_attr_t),
    CSON_TEXT(zof_rollist_attr_t, options),
    CSON_ENUM(zof_rollist_attr_t, rol_mode, 0, mode_names),
    CSON_INT(zof_rollist_attr_t, row_cnt),
    CSON_INT(zof_rollist_attr_t, anim_time),
    CSON_ENUM(zof_rollist_attr_t, txt_align_e, LV_TEXT_ALIGN_RIGHT + 1, zof_text_align_names),
    CSON_INT(zof_rollist_attr_t, ext_sel_width),
    CSON_END,
};

const zof_ctrl_class_t zof_rollist_class = {
    .type = ZOF_CTRL_ROLLIST,
    .name = "rollist",
    .attr = zof_rollist_attr_t_tbl,
    .attr_size = sizeof(zof_rollist_attr_t),
    .create = zof_rollist_create,
    .update_txt = zof_rollist_update_txt,
    .del = zof_rollist_del,
    .value = zof_value_option<zof_rollist_get_selected, zof_rollist_get_selected_str>,
};

enum { TURN_MS = 500 };

static zof_rollist_attr_t *roll_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_rollist_attr_t>(ctrl, ZOF_CTRL_ROLLIST);
}

static s32 options_show(lv_obj_t *obj, const zof_rollist_attr_t *roll, const char *options) {
    if (!options) {
        return -1;
    }
    lv_roller_set_options(obj, options, roll->rol_mode ? LV_ROLLER_MODE_INFINITE : LV_ROLLER_MODE_NORMAL);
    return 0;
}

// A roller without a row count keeps the height of its file.
static void rows_show(lv_obj_t *obj, const zof_rollist_attr_t *roll) {
    if (roll->row_cnt) {
        lv_roller_set_visible_row_count(obj, roll->row_cnt);
    }
}

s32 zof_rollist_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_rollist_attr_t *roll = (zof_rollist_attr_t *)attr;
    if (!record || !roll) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_roller_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &roll->pub_t);
    options_show(obj, roll, zof_listtxt_start(&roll->opt_list, &roll->options));
    zof_ctrl_style_add(record, roll->pub_t.style_list, roll->pub_t.style_num, 0);
    lv_obj_set_style_anim_time(obj, roll->anim_time, LV_PART_MAIN);
    lv_obj_set_style_text_align(obj, (lv_text_align_t)roll->txt_align_e, LV_PART_MAIN);
    rows_show(obj, roll);
    ((lv_roller_t *)obj)->ext_sel_width = (lv_coord_t)roll->ext_sel_width;
    return 0;
}

s32 zof_rollist_del(para_t *record) {
    auto *attr = zof_record_attr<zof_rollist_attr_t>(record, ZOF_CTRL_ROLLIST);
    if (!attr) {
        return -1;
    }
    zof_listtxt_destroy(&attr->opt_list);
    return 0;
}

s32 zof_rollist_set_line_space(zof_ctrl_t *ctrl, s32 space) {
    return zof_on(ctrl, &lv_roller_class, [=](lv_obj_t *obj) {
        // LVGL divides by the height of a line with its space.
        s32 line = lv_font_get_line_height(lv_obj_get_style_text_font(obj, LV_PART_MAIN));
        lv_obj_set_style_text_line_space(obj, LV_MAX(zof_length_to_lv((u32)space), 1 - line), LV_PART_MAIN);
        const zof_rollist_attr_t *attr = roll_attr(ctrl);
        if (attr) {
            rows_show(obj, attr);
        }
    });
}

// Runs `change` on the control's options and shows the result.
template <typename F> static s32 options_change(zof_ctrl_t *ctrl, F &&change, ZOF_CALLER) {
    const auto run = [&](lv_obj_t *obj) {
        zof_rollist_attr_t *attr = roll_attr(ctrl);
        return attr ? options_show(obj, attr, change(attr->opt_list, &attr->options)) : -1;
    };
    return zof_on(ctrl, &lv_roller_class, run, function, site);
}

s32 zof_rollist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position) {
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_add_option(list, slot, text, position); });
}

s32 zof_rollist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position) {
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_modify_option(list, slot, text, position); });
}

s32 zof_rollist_del_option(zof_ctrl_t *ctrl, u32 position) {
    return options_change(ctrl,
                          [=](db_list *list, char **slot) { return zof_listtxt_del_option(list, slot, position); });
}

s32 zof_rollist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count, u32 mode) {
    zof_rollist_attr_t *attr = roll_attr(ctrl);
    if (attr && texts && count) {
        attr->rol_mode = mode;
    }
    return options_change(
        ctrl, [=](db_list *list, char **slot) { return zof_listtxt_change_option(list, slot, texts, count); });
}

s32 zof_rollist_set_selected(zof_ctrl_t *ctrl, u32 index, u32 animate) {
    return zof_on(ctrl, &lv_roller_class, [=](lv_obj_t *obj) {
        lv_obj_set_style_anim_time(obj, TURN_MS, LV_PART_MAIN);
        // On an endless roller LVGL takes an index beyond its options for one of their copies.
        u32 last = lv_roller_get_option_cnt(obj) - 1u;
        lv_roller_set_selected(obj, (u16)LV_MIN(index, last), animate ? LV_ANIM_ON : LV_ANIM_OFF);
    });
}

s32 zof_rollist_get_selected(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_roller_class, lv_roller_get_selected);
}

s32 zof_rollist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size) {
    if (!buffer || !size) {
        return -1;
    }
    return zof_on(ctrl, &lv_roller_class, [=](lv_obj_t *obj) { lv_roller_get_selected_str(obj, buffer, size); });
}

s32 zof_rollist_update_txt(zof_ctrl_t *ctrl) {
    s32 selected = zof_rollist_get_selected(ctrl);
    if (selected < 0) {
        return -1;
    }
    options_change(ctrl, zof_listtxt_list2str);
    return zof_rollist_set_selected(ctrl, (u32)selected, 0);
}
