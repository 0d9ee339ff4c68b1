// QR codes: LVGL's, with the sizes and texts that it can take.
#include "control/zof_qrcode.h"

#include <string.h>

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_qrcode_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_qrcode_attr_t),
    CSON_COLOR(zof_qrcode_attr_t, bg_color),
    CSON_COLOR(zof_qrcode_attr_t, color),
    CSON_TEXT(zof_qrcode_attr_t, txt),
    CSON_INT(zof_qrcode_attr_t, width),
    CSON_COLOR(zof_qrcode_attr_t, border_color),
    CSON_END,
};

const zof_ctrl_class_t zof_qrcode_class = {
    .type = ZOF_CTRL_QRCODE,
    .name = "qrcode",
    .attr = zof_qrcode_attr_t_tbl,
    .attr_size = sizeof(zof_qrcode_attr_t),
    .create = zof_QR_code_create,
    .no_theme = ZOF_TRUE,
};

enum { SIDE_MAX = 2047 }; // LVGL's limit for a picture

s32 zof_QR_code_create(para_t *record, lv_obj_t *parent, void *attr) {
    const auto *code = (const zof_qrcode_attr_t *)attr;
    if (!record || !code) {
        return -1;
    }
    const s32 side = code->pub_t.size.height;
    if (side < 1 || side > SIDE_MAX) {
        zof_printf("control %u: a QR code is 1 to %d pixels high, not %d", code->pub_t.id, SIDE_MAX, side);
        return -1;
    }
    lv_obj_t *obj = record->obj =
        lv_qrcode_create(parent, side, zof_color_to_lv(code->color), zof_color_to_lv(code->bg_color));
    if (!obj) {
        return -1;
    }
    if (zof_qrcode_updata_data(obj, code->txt) != 0) {
        zof_printf("control %u: its text does not fit into a QR code of %d pixels", code->pub_t.id, side);
    }
    lv_obj_set_pos(obj, code->pub_t.pt.x, code->pub_t.pt.y);
    zof_ctrl_set_hidden(obj, code->pub_t.hidden);
    lv_obj_set_style_border_color(obj, zof_color_to_lv(code->border_color), LV_PART_MAIN);
    lv_obj_set_style_border_width(obj, (lv_coord_t)LV_MIN(code->width, SIDE_MAX), LV_PART_MAIN);
    return 0;
}

s32 zof_qrcode_updata_data(zof_ctrl_t *ctrl, const char *text) {
    return zof_on(ctrl, &lv_qrcode_class, [=](lv_obj_t *obj) {
        const char *shown = text ? text : "";
        const lv_res_t result = lv_qrcode_update(obj, shown, (u32)strlen(shown));
        lv_obj_invalidate(obj); // LVGL does not redraw a changed code by itself
        return result == LV_RES_OK ? 0 : -1;
    });
}
