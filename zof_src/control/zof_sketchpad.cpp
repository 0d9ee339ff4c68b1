// The control around the sketchpad.
#include "control/zof_sketchpad.h"

#include <string.h>

#include "control/lv_sketchpad.h"
#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_sketchpad_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_sketchpad_attr_t),
    CSON_INT(zof_sketchpad_attr_t, toolbar),
    CSON_INT(zof_sketchpad_attr_t, line_width),
    CSON_END,
};

const zof_ctrl_class_t zof_sketchpad_class = {
    .type = ZOF_CTRL_SKETCHPAD,
    .name = "sketchpad",
    .attr = zof_sketchpad_attr_t_tbl,
    .attr_size = sizeof(zof_sketchpad_attr_t),
    .create = zof_sketchpad_create,
};

enum { SIDE_MAX = 2047 }; // LVGL's limit for a picture

// More than two bits a pixel need, because the size has always been computed this way.
static void *pixels_new(const zof_size_t *size) {
    const size_t bytes = (((size_t)size->width >> 2) + 1) * (size_t)size->height * 4;
    void *pixels = zof_malloc((u32)bytes);
    if (pixels) {
        memset(pixels, 0, bytes);
    }
    return pixels;
}

static void toolbar_refresh(lv_obj_t *obj) {
    lv_obj_t *toolbar = lv_obj_get_child(obj, 0);
    if (toolbar) {
        lv_event_send(toolbar, LV_EVENT_REFRESH, nullptr); // when it is drawn it would be too late
    }
}

s32 zof_sketchpad_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *pad = (zof_sketchpad_attr_t *)attr;
    if (!record || !pad) {
        return -1;
    }
    zof_pub_attr_t *pub = &pad->pub_t;
    if (LV_MIN(pub->size.width, pub->size.height) < 1 || LV_MAX(pub->size.width, pub->size.height) > SIDE_MAX) {
        zof_printf("control %u: a sketchpad has 1 to %d pixels on a side, not %d x %d", pub->id, SIDE_MAX,
                   pub->size.width, pub->size.height);
        return -1;
    }
    void *pixels = pixels_new(&pub->size);
    if (!pixels) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_sketchpad_create(parent);
    if (!obj) {
        zof_free(pixels);
        return 0;
    }
    zof_ctrl_pub_attr(record, pub);
    lv_canvas_set_buffer(obj, pixels, pub->size.width, pub->size.height, LV_IMG_CF_ALPHA_2BIT);
    ((lv_sketchpad_t *)obj)->line_rect_dsc.width = pad->line_width;
    ((lv_sketchpad_t *)obj)->toolbar_en = pad->toolbar;
    toolbar_refresh(obj);
    zof_ctrl_style_add(record, pub->style_list, pub->style_num, 0);
    lv_obj_add_event_cb(obj, zof_sketchpad_del_event, LV_EVENT_DELETE, record);
    return 0;
}

s32 zof_sketchpad_set_width(zof_ctrl_t *ctrl, u8 width) {
    return zof_on(ctrl, &lv_sketchpad_class, [=](lv_obj_t *obj) { lv_sketchpad_set_width(obj, width); });
}

s32 zof_sketchpad_clean_bg(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_sketchpad_class, lv_sketchpad_clean_bg);
}

s32 zof_sketchpad_set_transp(zof_ctrl_t *ctrl, zof_bool on) {
    return zof_on(ctrl, &lv_sketchpad_class, [=](lv_obj_t *obj) { lv_sketchpad_set_transp(obj, on); });
}

void zof_sketchpad_del_event(lv_event_t *e) {
    lv_img_dsc_t *dsc = lv_canvas_get_img(lv_event_get_current_target(e));
    zof_free((void *)dsc->data);
    dsc->data = nullptr;
}
