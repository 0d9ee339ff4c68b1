// The four layers of the display, and the backgrounds of views. A layer is a root object of the display; showing a view
// on a layer replaces that root by the view's object.
#include "project/view/zof_view_layer.h"

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_lock.h"
#include "project/look/zof_picture.h"
#include "project/look/zof_style.h"
#include "project/path/zof_res.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

lv_obj_t *g_init_layer_view[ZOF_LAYER_COUNT];

void zof_view_layers_capture(void) {
    lv_disp_t *disp = lv_disp_get_default();
    if (!disp) {
        return;
    }
    g_init_layer_view[ZOF_LAYER_UI] = lv_disp_get_scr_act(disp);
    g_init_layer_view[ZOF_LAYER_STATE] = lv_disp_get_layer_top(disp);
    g_init_layer_view[ZOF_LAYER_TOP] = lv_disp_get_layer_sys(disp);
    g_init_layer_view[ZOF_LAYER_BG] = lv_disp_get_layer_bg(disp);
}

zof_layer_se zof_view_layer_of(const zof_view_node_t *node) {
    return node->attr->layer < ZOF_LAYER_COUNT ? (zof_layer_se)node->attr->layer : ZOF_LAYER_UI;
}

void zof_view_layer_set_root(zof_layer_se layer, lv_obj_t *root) {
    lv_disp_t *disp = lv_disp_get_default();
    if (!disp || !root) {
        return;
    }
    if (layer == ZOF_LAYER_STATE) {
        disp->top_layer = root;
    }
    if (layer == ZOF_LAYER_TOP) {
        disp->sys_layer = root;
    }
    if (layer == ZOF_LAYER_BG) {
        disp->bg_layer = root;
    }
    lv_obj_invalidate(root);
}

u32 zof_view_layer_showing(const zof_view_node_t *node) {
    const zof_prj_t *prj = zof_prj_get_cur();
    u32 layer = 0;
    while (layer < ZOF_LAYER_COUNT && (!prj || prj->cur_view[layer] != node)) {
        layer++;
    }
    return layer;
}

s32 zof_view_hide_layer(u32 layer) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || layer >= ZOF_LAYER_COUNT || !g_init_layer_view[layer]) {
        return -1;
    }
    if (layer == ZOF_LAYER_UI) {
        lv_disp_load_scr(g_init_layer_view[layer]);
    } else {
        zof_view_layer_set_root((zof_layer_se)layer, g_init_layer_view[layer]);
    }
    prj->cur_view[layer] = nullptr;
    return 0;
}

s32 zof_view_get_cur_id(u32 layer) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || layer >= ZOF_LAYER_COUNT || !prj->cur_view[layer]) {
        return -1;
    }
    return (s32)prj->cur_view[layer]->attr->v_id;
}

s32 zof_view_set_layer(u32 id, u32 layer) {
    (void)layer; // a view's layer is that of its file
    const zof_view_node_t *node = zof_view_list_get(id);
    return node && node->obj ? 0 : -1;
}

void zof_view_set_bg_img(zof_view_node_t *node, const char *image) {
    const char *path = zof_res_picture_path(image);
    if (image && !path) {
        return;
    }
    if (IsJPGFile(image) || IsPNGFile(image)) {
        if (!node->bg_obj) {
            node->bg_obj = lv_img_create(node->obj);
        }
        if (!node->bg_obj) {
            return;
        }
        lv_img_set_src(node->bg_obj, path);
        if (((lv_img_t *)node->bg_obj)->w == 0) {
            zof_img_missing(path);
        }
        lv_obj_align(node->bg_obj, LV_ALIGN_TOP_LEFT, 0, 0);
        lv_obj_move_to_index(node->bg_obj, 0);
        return;
    }
    if (zof_drv_disp_set_bg(path) != 0 || !node->bg_obj) {
        return;
    }
    lv_obj_del(node->bg_obj);
    node->bg_obj = nullptr;
}

s32 zof_view_set_bg(u32 id, const char *image) {
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node || !node->obj || !node->attr) {
        return -1;
    }
    char *former = node->attr->bg_image; // released last: it may be the new name
    node->attr->bg_image = zof_text_copy(image);
    zof_free(former);
    u32 layer = zof_view_layer_showing(node);
    if (layer == ZOF_LAYER_UI || layer == ZOF_LAYER_BG) {
        zof_view_set_bg_img(node, node->attr->bg_image);
    }
    return 0;
}

void zof_view_bg_paint(zof_view_node_t *node) {
    lv_obj_set_style_bg_opa(node->obj, node->attr->bg_scale, LV_PART_MAIN);
    lv_obj_set_style_bg_color(node->obj, zof_color_to_lv(node->attr->bg_color), LV_PART_MAIN);
}

s32 zof_view_set_bgcolor(u32 id, u32 argb) {
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node || !node->obj) {
        return -1;
    }
    node->attr->bg_scale = (u8)(argb >> 24);
    node->attr->bg_color = argb;
    zof_view_bg_paint(node);
    return 0;
}

s32 zof_view_set_bg_opa(u32 id, u8 opa) {
    zof_view_node_t *node = zof_view_list_get(id);
    if (!node || !node->obj) {
        return -1;
    }
    node->attr->bg_scale = opa;
    zof_view_bg_paint(node);
    return 0;
}

s32 zof_view_get_dis_wh(zof_size_t *out) {
    const zof_prj_t *prj = zof_prj_get_cur();
    if (out && prj && prj->attr) {
        *out = {prj->attr->width, prj->attr->height};
    }
    return -1;
}

s32 zof_view_force_refresh(void) {
    {
        zof_lock lock(dis_mutex);
        lv_disp_t *disp = lv_disp_get_default();
        lv_timer_t *refresh = disp ? _lv_disp_get_refr_timer(disp) : nullptr;
        if (refresh) {
            lv_timer_ready(refresh); // otherwise the refresh waits for its period, and the screen is still empty
        }
        lv_timer_handler();
    }
    zof_delay(5);
    return 0;
}

s32 zof_view_all_set_rotate(u32 rotation) {
    zof_prj_t *prj = zof_prj_get_cur();
    if (!prj || !prj->attr) {
        return -1;
    }
    prj->attr->rotate = rotation;
    return 0;
}
