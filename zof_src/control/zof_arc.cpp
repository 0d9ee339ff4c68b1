// Arcs: a background arc, an indicator arc that shows the value, and a knob to turn it with.
#include "control/zof_arc.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_picture.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_angle_t_tbl[] = {
    CSON_INT(zof_angle_t, start_angle),
    CSON_INT(zof_angle_t, end_angle),
    CSON_END,
};

const reflect_item_t zof_range_t_tbl[] = {
    CSON_ENDS(zof_range_t, minValue, maxValue),
    CSON_END,
};

static const zof_name_t mode_names[] = {
    {"start", LV_ARC_MODE_NORMAL}, {"middle", LV_ARC_MODE_SYMMETRICAL}, {"end", LV_ARC_MODE_REVERSE}, ZOF_NAMES_END};

const reflect_item_t zof_arc_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_arc_attr_t),
    CSON_OBJ(zof_arc_attr_t, angle_t, zof_angle_t_tbl),
    CSON_INT(zof_arc_attr_t, arc_value),
    CSON_ENUM(zof_arc_attr_t, mode_e, LV_ARC_MODE_REVERSE + 1, mode_names),
    CSON_OBJ(zof_arc_attr_t, range_t, zof_range_t_tbl),
    CSON_BOOL(zof_arc_attr_t, know_dis_en),
    CSON_TEXT(zof_arc_attr_t, arc_main_img),
    CSON_OBJ(zof_arc_attr_t, arc_t_main, zof_line_disp_t_tbl),
    CSON_TEXT(zof_arc_attr_t, arc_inc_img),
    CSON_OBJ(zof_arc_attr_t, arc_t_inc, zof_line_disp_t_tbl),
    CSON_END,
};

const zof_ctrl_class_t zof_arc_class = {
    .type = ZOF_CTRL_ARC,
    .name = "arc",
    .attr = zof_arc_attr_t_tbl,
    .attr_size = sizeof(zof_arc_attr_t),
    .create = zof_arc_create,
    .del = zof_arc_del,
    .value = zof_value_number<zof_arc_get_value>,
};

// A narrow range needs a higher rate, or dragging the knob would be sluggish.
static void change_rate_set(lv_obj_t *obj, s32 span) {
    if (span >= 1 && span <= 9) {
        lv_arc_set_change_rate(obj, 6000);
    }
    if (span >= 10 && span <= 20) {
        lv_arc_set_change_rate(obj, 2000);
    }
}

static void paths_free(zof_arc_attr_t *arc) {
    zof_free(arc->main_img_path);
    zof_free(arc->inc_img_path);
    arc->main_img_path = nullptr;
    arc->inc_img_path = nullptr;
}

s32 zof_arc_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_arc_attr_t *arc = (zof_arc_attr_t *)attr;
    if (!record || !arc) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_arc_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &arc->pub_t);
    zof_arc_set_angles(record, (u16)arc->angle_t.start_angle, (u16)arc->angle_t.end_angle);
    lv_arc_set_mode(obj, (lv_arc_mode_t)arc->mode_e);
    lv_arc_set_range(obj, arc->range_t.minValue, arc->range_t.maxValue);
    lv_arc_set_value(obj, (s16)LV_CLAMP(INT16_MIN, arc->arc_value, INT16_MAX));
    zof_arc_set_dis(record, 0, &arc->arc_t_main);
    zof_arc_set_dis(record, 1, &arc->arc_t_inc);
    paths_free(arc); // the control may be recreated after it was deleted with its parent
    arc->main_img_path = zof_img_path_copy(arc->arc_main_img);
    arc->inc_img_path = zof_img_path_copy(arc->arc_inc_img);
    lv_obj_set_style_arc_img_src(obj, arc->main_img_path, LV_PART_MAIN);
    lv_obj_set_style_arc_img_src(obj, arc->inc_img_path, LV_PART_INDICATOR);
    lv_obj_add_flag(obj, LV_OBJ_FLAG_ADV_HITTEST);
    change_rate_set(obj, arc->range_t.maxValue - arc->range_t.minValue);
    zof_ctrl_style_add(record, arc->pub_t.style_list, arc->pub_t.style_num, 0);
    if (!arc->know_dis_en) {
        lv_obj_remove_style(obj, nullptr, LV_PART_KNOB); // without styles the knob is not drawn
    }
    return 0;
}

s32 zof_arc_del(para_t *record) {
    auto *attr = zof_record_attr<zof_arc_attr_t>(record, ZOF_CTRL_ARC);
    if (!attr || !record->is_created) {
        return -1;
    }
    paths_free(attr);
    return 0;
}

s32 zof_arc_set_dis(zof_ctrl_t *ctrl, u32 part, const zof_line_disp_t *dis) {
    if (!dis) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        if (part > 1) {
            return;
        }
        u32 selector = part == 0 ? LV_PART_MAIN : LV_PART_INDICATOR;
        lv_obj_set_style_arc_color(obj, zof_color_to_lv(dis->color), selector);
        lv_obj_set_style_arc_width(obj, zof_length_to_lv(dis->width), selector);
        lv_obj_set_style_arc_rounded(obj, dis->rounded != 0, selector);
        lv_obj_set_style_arc_opa(obj, dis->opa, selector);
    });
}

s32 zof_arc_set_knob(zof_ctrl_t *ctrl, zof_color_t color) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { lv_obj_set_style_bg_color(obj, zof_color_to_lv(color), LV_PART_KNOB); });
}

s32 zof_arc_set_value_range(zof_ctrl_t *ctrl, s16 min, s16 max) {
    return zof_on(ctrl, &lv_arc_class, [=](lv_obj_t *obj) { lv_arc_set_range(obj, min, max); });
}

s32 zof_arc_set_value(zof_ctrl_t *ctrl, s16 value) {
    return zof_on(ctrl, &lv_arc_class, [=](lv_obj_t *obj) { lv_arc_set_value(obj, value); });
}

s32 zof_arc_get_value(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_arc_class, lv_arc_get_value);
}

s32 zof_arc_set_rotation(zof_ctrl_t *ctrl, u16 angle) {
    return zof_on(ctrl, &lv_arc_class, [=](lv_obj_t *obj) { lv_arc_set_rotation(obj, angle); });
}

s32 zof_arc_set_angles(zof_ctrl_t *ctrl, u16 start, u16 end) {
    return zof_on(ctrl, &lv_arc_class, [=](lv_obj_t *obj) {
        lv_arc_set_angles(obj, start, end);
        lv_arc_set_bg_angles(obj, start, end);
    });
}
