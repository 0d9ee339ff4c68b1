// Styles and themes: records of the files become LVGL styles. Graphics thread.
#ifndef ZOF_STYLE_H
#define ZOF_STYLE_H

#include "project/zof_ctrl_attr.h"

ZOF_C_BEGIN

extern const char *const zof_theme_name[2];

// The theme record of a control type, read at the first call for the type and kept for ever: the theme named first
// fixes the type's look. Null for images, GIFs, QR codes, types above the table, a null name, and as long as the file
// is not there.
zof_pub_attr_t *zof_theme_get_ctrl(const char *theme, u32 type);

// Set while the controls of a view are read: each theme file that is not there is then looked for once a view, not once
// a control. Switching either way forgets what was missing.
void zof_theme_remember_missing(zof_bool on);

// Changes the look of every control of the running project, made or yet to be made, to another theme's; theme keys of
// view files no longer count. Styles are matched by part, state and section: the theme before decides which of them a
// type has. A control keeps what its own file says differently from its old theme, and a type that the new theme does
// not have keeps its look. 0; -1 for null, without a
// project, and for a theme that has none of the types in use. Graphics thread.
s32 zof_theme_set(const char *theme);

// Copies the style records of `src` over those of the same index in `dst`. Flat: font, picture and LVGL style are
// shared. 0, or -1 for null.
s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src);

// Gives `dst`, which must be without styles, zeroed records of its own and copies into them. 0, or -1 when there is
// nothing to copy.
s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src);

// The style record with this part, state and section, or a new zeroed one behind the others, whose triple the caller
// sets. Null for null, and with a line when the record has 255 already.
zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record);

// Fills an LVGL style from a record, every property of it. The record's own LVGL style is emptied first; any other must
// hold nothing. The path of the background image becomes a copy in the style. 0, or -1 for null.
s32 zof_style_get_lv_value(zof_style_attr_t *style, lv_style_t *lv_style);

// The record's LVGL style, filled (again); made when there is none. The record owns it until zof_style_del. Null
// without memory.
lv_style_t *zof_style_create(zof_style_attr_t *style);

// Null: there is no default style.
zof_style_attr_t *zof_style_get_default(void);

// Takes the record's LVGL style off the objects that wear it, as far as `ctrl` still has its object, and releases it.
// 0, or -1 when there is none.
s32 zof_style_del(zof_ctrl_t *ctrl, zof_style_attr_t *style);

// Puts on the object all style records of one section, each under its part and state; LVGL styles are made as needed.
// The main object of a control takes section 0, the second object of a compound control section 1. 0, or -1 for null.
s32 zof_ctrl_style_add(zof_ctrl_t *ctrl, zof_style_attr_t **styles, u8 count, u32 sect);

// Local styles of the object under an LVGL selector (part or-ed with state); 0, or -1 without an object. Colours are
// 0xRRGGBB; a gradient direction that LVGL does not have is taken as none.
s32 zof_ctrl_style_set_bg_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_grad_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_ctrl_style_set_bg_opa(zof_ctrl_t *ctrl, u8 opa, u32 selector);
s32 zof_ctrl_style_set_bg_grad_dir(zof_ctrl_t *ctrl, u32 dir, u32 selector);

// 0xRRGGBB to LVGL, full alpha.
lv_color_t zof_color_to_lv(zof_color_t color);

// A width or padding from a file to LVGL, which reckons with them as if they were small and writes beyond its buffers
// with others: what no screen could show is cut to 4095. Paddings may be negative, which the unsigned field holds too.
lv_coord_t zof_length_to_lv(u32 pixels);

// A place or distance to LVGL, which adds and multiplies them in 32 bits: kept within 4194304 to either side, far
// beyond any screen. Percents and LVGL's sizes of the content stay. Style properties have these bounds of their own.
lv_coord_t zof_coord_to_lv(s32 pixels);

ZOF_C_END

#endif
