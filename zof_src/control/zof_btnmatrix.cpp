// Button matrices: rows of captions in one object. The record keeps the captions as they were given, a second map what
// LVGL shows; both have the same slots.
#include "control/zof_btnmatrix.h"

#include "control/zof_btn_map_in.h"
#include "control/zof_ctrl_in.h"
#include "control/zof_txt.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_btnmatrix_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_btnmatrix_attr_t),
    CSON_INT(zof_btnmatrix_attr_t, btnmatrix_num),
    CSON_ARR(zof_btnmatrix_attr_t, btnmatrix_txt, stringReflectTbl, sizeof(char *), "btnmatrix_num"),
    CSON_END,
};

const zof_ctrl_class_t zof_btnmatrix_class = {
    .type = ZOF_CTRL_BTNMATRIX,
    .name = "btnmatrix",
    .attr = zof_btnmatrix_attr_t_tbl,
    .attr_size = sizeof(zof_btnmatrix_attr_t),
    .create = zof_btnmatrix_create,
    .del = zof_btnmatrix_del,
    .value = zof_value_element<zof_btnmatrix_get_selected_btn, zof_btnmatrix_get_btn_text>,
};

enum { BTN_WIDTH_MAX = 7 };

static zof_btnmatrix_attr_t *matrix_attr(const zof_ctrl_t *ctrl) {
    return zof_ctrl_attr<zof_btnmatrix_attr_t>(ctrl, ZOF_CTRL_BTNMATRIX);
}

s32 zof_btnmatrix_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_btnmatrix_attr_t *matrix = (zof_btnmatrix_attr_t *)attr;
    if (!record || !matrix) {
        return -1;
    }
    zof_btn_map_free(&matrix->txt_map);
    matrix->txt_map = zof_btn_map_create(matrix->btnmatrix_txt, matrix->btnmatrix_num);
    if (!matrix->txt_map) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_btnmatrix_create(parent);
    if (!obj) {
        return 0;
    }
    zof_ctrl_pub_attr(record, &matrix->pub_t);
    lv_btnmatrix_set_map(obj, (const char **)matrix->txt_map);
    zof_btn_map_press_fresh(obj);
    zof_ctrl_style_add(record, matrix->pub_t.style_list, matrix->pub_t.style_num, 0);
    zof_ctrl_style_add(record, matrix->pub_t.style_list, matrix->pub_t.style_num, 1);
    return 0;
}

s32 zof_btnmatrix_del(para_t *record) {
    auto *attr = zof_record_attr<zof_btnmatrix_attr_t>(record, ZOF_CTRL_BTNMATRIX);
    if (!attr || !record->is_created) {
        return -1;
    }
    if (record->obj) {
        lv_btnmatrix_set_map(record->obj, zof_btn_map_empty);
    }
    zof_btn_map_free(&attr->txt_map);
    return 0;
}

// LVGL counts buttons in 16 bits and uses the last number for "no button".
static u16 id_to_lv(u32 id) {
    return (u16)LV_MIN(id, LV_BTNMATRIX_BTN_NONE - 1u);
}

s32 zof_btnmatrix_set_selected_btn(zof_ctrl_t *ctrl, u32 id) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        lv_btnmatrix_set_selected_btn(obj, id == LV_BTNMATRIX_BTN_NONE ? (u16)id : id_to_lv(id));
    });
}

s32 zof_btnmatrix_get_selected_btn(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_btnmatrix_class, lv_btnmatrix_get_selected_btn);
}

s32 zof_btnmatrix_set_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_set_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_clear_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_clear_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_set_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_set_btn_ctrl_all(obj, (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_clear_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class,
                  [=](lv_obj_t *obj) { lv_btnmatrix_clear_btn_ctrl_all(obj, (lv_btnmatrix_ctrl_t)flags); });
}

s32 zof_btnmatrix_has_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        return lv_btnmatrix_has_btn_ctrl(obj, id_to_lv(id), (lv_btnmatrix_ctrl_t)flags);
    });
}

s32 zof_btnmatrix_set_btn_width(zof_ctrl_t *ctrl, u32 id, u32 width) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) {
        lv_btnmatrix_set_btn_width(obj, id_to_lv(id), (u8)LV_MIN(width, (u32)BTN_WIDTH_MAX));
    });
}

s32 zof_btnmatrix_set_one_checked(zof_ctrl_t *ctrl, zof_bool on) {
    return zof_on(ctrl, &lv_btnmatrix_class, [=](lv_obj_t *obj) { lv_btnmatrix_set_one_checked(obj, on); });
}

s32 zof_btnmatrix_get_one_checked(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_btnmatrix_class, lv_btnmatrix_get_one_checked);
}

const char *zof_btnmatrix_get_btn_text(zof_ctrl_t *ctrl, u32 id) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_btnmatrix_class);
    if (!obj) {
        return nullptr;
    }
    const char **map = lv_btnmatrix_get_map(obj);
    s32 slot = zof_btn_map_slot(map, id);
    return slot < 0 ? nullptr : map[slot];
}

s32 zof_btnmatrix_set_btn_txt(zof_ctrl_t *ctrl, u32 id, const char *text) {
    zof_btnmatrix_attr_t *attr = zof_obj_of(ctrl, &lv_btnmatrix_class) ? matrix_attr(ctrl) : nullptr;
    if (!attr || !text || zof_btn_map_is_break(text)) {
        return -1;
    }
    s32 slot = zof_btn_map_slot(attr->txt_map, id);
    if (slot < 0) {
        return -1;
    }
    zof_txt_change(&attr->btnmatrix_txt[slot], text[0] ? text : " "); // an empty one would end the map
    if (zof_btn_map_put(attr->txt_map, (u32)slot, attr->btnmatrix_txt[slot]) != 0) {
        return -1;
    }
    lv_btnmatrix_set_map(zof_ctrl_obj(ctrl), (const char **)attr->txt_map);
    return 0;
}
