// Styles and themes: records of the files become LVGL styles.
#ifndef ZOF_STYLE_H
#define ZOF_STYLE_H

#include "project/zof_ctrl_attr.h"

ZOF_C_BEGIN

extern const char *const zof_theme_name[2];

zof_pub_attr_t *zof_theme_get_ctrl(const char *theme, u32 type);
s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src);
s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src);
zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record);

s32 zof_style_get_lv_value(zof_style_attr_t *style, lv_style_t *lv_style);
lv_style_t *zof_style_create(zof_style_attr_t *style);
zof_style_attr_t *zof_style_get_default(void);
s32 zof_style_del(zof_ctrl_t *ctrl, zof_style_attr_t *style);

s32 zof_ctrl_style_add(zof_ctrl_t *ctrl, zof_style_attr_t **styles, u8 count, u32 sect);
s32 zof_ctrl_style_set_bg_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_grad_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_opa(zof_ctrl_t *ctrl, u8 opa, u32 selector);
s32 zof_ctrl_style_set_bg_grad_dir(zof_ctrl_t *ctrl, u32 dir, u32 selector);

// 0xRRGGBB to LVGL, full alpha.
lv_color_t zof_color_to_lv(zof_color_t color);

ZOF_C_END

#endif
