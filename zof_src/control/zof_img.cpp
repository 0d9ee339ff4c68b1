// Images: one file, shown at its own size, once in the middle of a box, or repeated over the box.
#include "control/zof_img.h"

#include "control/zof_ctrl_in.h"
#include "control/zof_txt.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_picture.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"

static const zof_name_t mode_names[] = {{"own size", 0}, {"center", 1}, {"tile", 2}, ZOF_NAMES_END};

const reflect_item_t zof_img_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_img_attr_t),
    CSON_TEXT(zof_img_attr_t, init_img),
    CSON_OBJ(zof_img_attr_t, rotate_pt, zof_point_t_tbl),
    CSON_INT(zof_img_attr_t, init_angel),
    CSON_ENUM(zof_img_attr_t, img_mode_e, 0, mode_names),
    CSON_END,
};

const zof_ctrl_class_t zof_img_class = {
    .type = ZOF_CTRL_IMG,
    .name = "img",
    .attr = zof_img_attr_t_tbl,
    .attr_size = sizeof(zof_img_attr_t),
    .create = zof_img_create,
    .update_txt = zof_img_update_src,
    .no_theme = ZOF_TRUE,
    .value = zof_value_text<zof_img_get_src>,
};

enum { IMG_NATURAL, IMG_CENTRED, IMG_TILED };

static void shown_set(lv_obj_t *obj, const zof_img_attr_t *img) {
    if (img->img_mode_e > IMG_TILED) {
        return;
    }
    if (img->img_mode_e == IMG_NATURAL) {
        lv_obj_set_size(obj, LV_SIZE_CONTENT, LV_SIZE_CONTENT);
    } else {
        lv_obj_set_size(obj, img->pub_t.size.width, img->pub_t.size.height);
    }
    if (img->img_mode_e != IMG_CENTRED) {
        kvy_img_set_flatten(obj, 1);
    }
    zof_img_set_src(obj, img->init_img);
    if (img->img_mode_e != IMG_CENTRED) {
        return;
    }
    zof_obj_layout(obj);
    KVY_img_set_center(obj);
}

s32 zof_img_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_img_attr_t *img = (zof_img_attr_t *)attr;
    if (!record || !img) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_img_create(parent);
    if (!obj) {
        return -1;
    }
    zof_obj_press_unlock(obj);
    zof_ctrl_pub_attr(record, &img->pub_t);
    shown_set(obj, img);
    zof_img_set_pivot(record, img->rotate_pt.x, img->rotate_pt.y);
    zof_img_set_rotate_angel(obj, img->init_angel);
    return 0;
}

s32 zof_img_set_src(zof_ctrl_t *ctrl, const char *name) {
    return zof_on(ctrl, &lv_img_class, [=](lv_obj_t *obj) {
        const char *shown = zof_lang_get_cur_str(name);
        zof_img_attr_t *img = zof_ctrl_attr<zof_img_attr_t>(ctrl, ZOF_CTRL_IMG);
        if (img && zof_lang_check_str(name) && shown != name) {
            zof_txt_change(&img->init_img, name); // a key that the next language looks up
        }
        const char *path = zof_res_picture_path(shown);
        lv_img_set_src(obj, path);
        if (path && ((lv_img_t *)obj)->w == 0) {
            zof_img_missing(path);
        }
        if (path) {
            return;
        }
        // Without an image LVGL keeps the old size, and paints "No data" there.
        ((lv_img_t *)obj)->w = 0;
        ((lv_img_t *)obj)->h = 0;
        lv_obj_refresh_self_size(obj);
    });
}

const char *zof_img_get_src(zof_ctrl_t *ctrl) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_img_class);
    if (!obj || ((lv_img_t *)obj)->src_type != LV_IMG_SRC_FILE) {
        return nullptr; // a GIF's source is not a text
    }
    return zof_res_get_file_name("image/", (const char *)lv_img_get_src(obj));
}

s32 zof_img_update_src(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_img_class, [=](lv_obj_t *obj) {
        const zof_img_attr_t *img = zof_ctrl_attr<zof_img_attr_t>(ctrl, ZOF_CTRL_IMG);
        if (img && zof_lang_check_str(img->init_img)) {
            shown_set(obj, img);
        }
    });
}

s32 zof_img_recolor(zof_ctrl_t *ctrl, zof_color_t color, u8 opa) {
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_obj_set_style_img_recolor(obj, zof_color_to_lv(color), LV_PART_MAIN);
        lv_obj_set_style_img_recolor_opa(obj, opa, LV_PART_MAIN);
    });
}

s32 zof_img_set_rotate_angel(zof_ctrl_t *ctrl, s32 angle) {
    return zof_on(ctrl, &lv_img_class,
                  [=](lv_obj_t *obj) { lv_img_set_angle(obj, (s16)((angle % 3600 + 3600) % 3600)); });
}

s32 zof_img_zoom_setting(zof_ctrl_t *ctrl, u32 zoom) {
    return zof_on(ctrl, &lv_img_class, [=](lv_obj_t *obj) { lv_img_set_zoom(obj, (u16)LV_MIN(zoom, UINT16_MAX)); });
}

// A picture is zoomed up to 256 times around its pivot, and the product must fit a coordinate too.
static lv_coord_t pivot_to_lv(s32 pixels) {
    enum { FARTHEST = 1 << 14 };
    return LV_CLAMP(-FARTHEST, pixels, FARTHEST);
}

s32 zof_img_set_pivot(zof_ctrl_t *ctrl, s32 x, s32 y) {
    return zof_on(ctrl, &lv_img_class, [=](lv_obj_t *obj) { lv_img_set_pivot(obj, pivot_to_lv(x), pivot_to_lv(y)); });
}

s32 zof_img_get_src_type(const char *text) {
    return zof_res_is_picture_path(text);
}
