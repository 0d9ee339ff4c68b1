// Lines. The application supplies the points at run time and keeps them.
#include "control/zof_line.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_line_disp_t_tbl[] = {
    CSON_COLOR(zof_line_disp_t, color),
    CSON_INT(zof_line_disp_t, width),
    CSON_INT(zof_line_disp_t, opa),
    CSON_INT(zof_line_disp_t, rounded),
    CSON_END,
};

const reflect_item_t zof_line_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_line_attr_t),
    CSON_OBJ(zof_line_attr_t, dis_t, zof_line_disp_t_tbl),
    CSON_END,
};

const zof_ctrl_class_t zof_line_class = {
    .type = ZOF_CTRL_LINE,
    .name = "line",
    .attr = zof_line_attr_t_tbl,
    .attr_size = sizeof(zof_line_attr_t),
    .create = zof_line_create,
};

s32 zof_line_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_line_attr_t *line = (zof_line_attr_t *)attr;
    if (!record || !line) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_line_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &line->pub_t);
    lv_obj_set_size(obj, LV_SIZE_CONTENT, LV_SIZE_CONTENT); // as large as its points
    return zof_line_set_dis(record, &line->dis_t);
}

s32 zof_line_set_dash(zof_ctrl_t *ctrl, u32 width, u32 gap) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_style_line_dash_width(obj, zof_length_to_lv(width), LV_PART_MAIN);
        lv_obj_set_style_line_dash_gap(obj, zof_length_to_lv(gap), LV_PART_MAIN);
    });
}

s32 zof_line_set_dis(zof_ctrl_t *ctrl, const zof_line_disp_t *dis) {
    if (!dis) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_style_line_color(obj, zof_color_to_lv(dis->color), LV_PART_MAIN);
        lv_obj_set_style_line_width(obj, zof_length_to_lv(dis->width), LV_PART_MAIN);
        lv_obj_set_style_line_rounded(obj, dis->rounded != 0, LV_PART_MAIN);
        lv_obj_set_style_line_opa(obj, dis->opa, LV_PART_MAIN);
    });
}

s32 zof_line_set_points(zof_ctrl_t *ctrl, const lv_point_t *points, u32 count) {
    if (!points && count > 0) {
        return -1;
    }
    return zof_on(ctrl, &lv_line_class,
                  [=](lv_obj_t *obj) { lv_line_set_points(obj, points, (u16)LV_MIN(count, UINT16_MAX)); });
}
