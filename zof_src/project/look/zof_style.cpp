// Converts style records into LVGL styles. A record is complete: it sets every property, including those that its file
// left at 0, so the look of a control depends on its project and not on LVGL's built-in theme.
#include "project/look/zof_style.h"

#include "project/base/zof_para.h"
#include "project/look/zof_font.h"
#include "project/look/zof_picture.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

lv_color_t zof_color_to_lv(zof_color_t color) {
    return lv_color_hex(color & 0xFFFFFF);
}

// The path of the background image is our copy; the LVGL style only points to it.
static void path_release(lv_style_t *lv_style) {
    lv_style_value_t value;
    if (lv_style_get_prop(lv_style, LV_STYLE_BG_IMG_SRC, &value) == LV_STYLE_RES_FOUND) {
        zof_free((void *)value.ptr);
    }
}

// LVGL first renders a shadow in memory, in a square of its width.
enum { LENGTH_MAX = 4095, SHADOW_MAX = 255 };

lv_coord_t zof_length_to_lv(u32 pixels) {
    return LV_CLAMP(-LENGTH_MAX, (s32)pixels, LENGTH_MAX);
}

lv_coord_t zof_coord_to_lv(s32 pixels) {
    enum { FARTHEST = 1 << 22 };
    return LV_COORD_IS_SPEC(pixels) ? pixels : LV_CLAMP(-FARTHEST, pixels, FARTHEST);
}

static void body_fill(lv_style_t *lv, const zof_body_dis_t *body) {
    lv_style_set_bg_color(lv, zof_color_to_lv(body->main_color));
    lv_style_set_bg_grad_color(lv, zof_color_to_lv(body->grad_color));
    lv_style_set_bg_grad_dir(lv, (lv_grad_dir_t)body->grad_dir_e);
    lv_style_set_radius(lv, (lv_coord_t)LV_MIN(body->radius, (u32)LV_RADIUS_CIRCLE));
    lv_style_set_bg_opa(lv, body->opa);
    lv_style_set_border_color(lv, zof_color_to_lv(body->border.color));
    lv_style_set_border_width(lv, zof_length_to_lv(body->border.width));
    lv_style_set_border_side(lv, (lv_border_side_t)body->border.part);
    lv_style_set_border_opa(lv, body->border.opa);
    lv_style_set_shadow_color(lv, zof_color_to_lv(body->shadow.color));
    lv_style_set_shadow_width(lv, (lv_coord_t)LV_MIN(body->shadow.width, (u32)SHADOW_MAX));
    lv_style_set_pad_top(lv, zof_length_to_lv(body->padding.top));
    lv_style_set_pad_bottom(lv, zof_length_to_lv(body->padding.bottom));
    lv_style_set_pad_left(lv, zof_length_to_lv(body->padding.left));
    lv_style_set_pad_right(lv, zof_length_to_lv(body->padding.right));
}

static void text_fill(lv_style_t *lv, const zof_text_dis_t *text) {
    lv_font_t *font = text->font_lib ? zof_font_create_lvfont(text->font_lib, text->font_size) : nullptr;
    if (font) {
        lv_style_set_text_font(lv, font);
    }
    lv_style_set_text_color(lv, zof_color_to_lv(text->color));
    lv_style_set_text_opa(lv, text->opa);
}

static void image_fill(lv_style_t *lv, const zof_img_dis_t *image) {
    if (!image->bg_img) {
        return;
    }
    char *copy = zof_img_path_copy(image->bg_img);
    if (copy) {
        lv_style_set_bg_img_src(lv, copy);
    }
}

// What LVGL's own theme does to a control in a state: it darkens a pressed one and lets it grow, greys a disabled one,
// and outlines one that has the focus. A written look shows as it is written.
static void theme_effects_remove(lv_style_t *lv) {
    lv_style_set_color_filter_opa(lv, LV_OPA_TRANSP);
    lv_style_set_transform_width(lv, 0);
    lv_style_set_transform_height(lv, 0);
    lv_style_set_outline_width(lv, 0);
}

s32 zof_style_get_lv_value(zof_style_attr_t *style, lv_style_t *lv_style) {
    if (!style || !lv_style) {
        return -1;
    }
    if (lv_style == style->lv_style) {
        path_release(lv_style);
        lv_style_reset(lv_style);
    }
    lv_style_init(lv_style);
    body_fill(lv_style, &style->body_t);
    text_fill(lv_style, &style->txt_t);
    image_fill(lv_style, &style->img_t);
    if (style->style_state != LV_STATE_DEFAULT) {
        theme_effects_remove(lv_style);
    }
    return 0;
}

lv_style_t *zof_style_create(zof_style_attr_t *style) {
    if (!style) {
        return nullptr;
    }
    if (!style->lv_style) {
        style->lv_style = (lv_style_t *)zof_malloc(sizeof(lv_style_t));
        if (!style->lv_style) {
            return nullptr;
        }
        lv_style_init(style->lv_style);
    }
    zof_style_get_lv_value(style, style->lv_style);
    return style->lv_style;
}

zof_style_attr_t *zof_style_get_default(void) {
    return nullptr;
}

static lv_obj_tree_walk_res_t detach(lv_obj_t *obj, void *style) {
    lv_obj_remove_style(obj, (lv_style_t *)style, (u32)LV_PART_ANY | LV_STATE_ANY);
    return LV_OBJ_TREE_WALK_NEXT;
}

s32 zof_style_del(zof_ctrl_t *ctrl, zof_style_attr_t *style) {
    if (!style || !style->lv_style) {
        return -1;
    }
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (obj && style->style_sect == 0) {
        lv_obj_remove_style(obj, style->lv_style, style->style_part | style->style_state);
    } else if (obj) {
        // The objects of other sections are known only to their control, and some are outside its tree (the open list
        // of a drop list is on the screen), so the style is removed from all objects.
        lv_obj_tree_walk(nullptr, detach, style->lv_style);
    }
    path_release(style->lv_style);
    lv_style_reset(style->lv_style);
    zof_free(style->lv_style);
    style->lv_style = nullptr;
    return 0;
}

s32 zof_ctrl_style_add(zof_ctrl_t *ctrl, zof_style_attr_t **styles, u8 count, u32 sect) {
    lv_obj_t *obj = zof_ctrl_obj(ctrl);
    if (!obj || !styles) {
        return -1;
    }
    for (u32 i = 0; i < count; i++) {
        zof_style_attr_t *style = styles[i];
        if (!style || style->style_sect != sect) {
            continue;
        }
        if (!style->lv_style && !zof_style_create(style)) {
            continue;
        }
        lv_obj_add_style(obj, style->lv_style, style->style_part | style->style_state);
    }
    return 0;
}
