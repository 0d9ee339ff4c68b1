// Styles and themes: converts records of the files into LVGL styles. Graphics thread.
#ifndef ZOF_STYLE_H
#define ZOF_STYLE_H

#include "project/base/zof_prj_attr.h"

ZOF_C_BEGIN

extern const char *const zof_theme_name[2];

// Returns the theme record of a control type, which is read at the first call for the type and kept for the life of the
// process: the first theme named for a type applies to all its controls. Returns null for images, GIFs, QR codes, types
// above the table, a null name, and as long as the file is missing.
zof_pub_attr_t *zof_theme_get_ctrl(const char *theme, u32 type);

// Set while the controls of a view are read: each missing theme file is then searched for once per view, not once per
// control. Switching either way discards the list of missing files.
void zof_theme_remember_missing(zof_bool on);

// Changes the theme of every control of the running project, existing or created later; theme keys of view files no
// longer have an effect. Styles are matched by part, state and section: the old theme decides which of them a type has.
// A control keeps the values of its own file that differ from its old theme, and a type that the new theme does not
// have keeps its look. A control with a named look changes to that look in the new theme, also to styles that only the
// new theme has. Returns 0; -1 for null, without a project, and for a theme that has neither looks nor any of the types
// in use. Graphics thread.
s32 zof_theme_set(const char *theme);

// Copies the style records of `src` over those of the same index in `dst`. A shallow copy: font, picture and LVGL style
// are shared. Returns 0, or -1 for null.
s32 zof_theme_style_copy(zof_pub_attr_t *dst, const zof_pub_attr_t *src);

// Allocates style records for `dst`, whose list must be empty, and copies into them. Returns 0, or -1 when there is
// nothing to copy.
s32 zof_theme_style_copy_new(zof_pub_attr_t *dst, const zof_pub_attr_t *src);

// Returns the style record with this part, state and section, or appends a zeroed one, in which the caller sets these
// three. Returns null for null, and, after a message, if the record has 255 styles already.
zof_style_attr_t *zof_theme_style_check(u32 part, u32 state, u32 sect, zof_pub_attr_t *record);

// Sets every property of an LVGL style from a record. The record's own LVGL style is reset first; any other must be
// empty. The style gets a copy of the background image's path. Returns 0, or -1 for null.
s32 zof_style_get_lv_value(zof_style_attr_t *style, lv_style_t *lv_style);

// Creates the record's LVGL style if needed, fills it and returns it. The record owns it until zof_style_del. Returns
// null without memory.
lv_style_t *zof_style_create(zof_style_attr_t *style);

// Returns null: there is no default style.
zof_style_attr_t *zof_style_get_default(void);

// Removes the record's LVGL style from all objects that have it, if `ctrl` still has its object, and releases it.
// Returns 0, or -1 without a style.
s32 zof_style_del(zof_ctrl_t *ctrl, zof_style_attr_t *style);

// Adds all style records of one section to the object, each for its part and state; creates LVGL styles as needed. The
// main object of a control has section 0, the second object of a compound control section 1. Returns 0, or -1 for null.
s32 zof_ctrl_style_add(zof_ctrl_t *ctrl, zof_style_attr_t **styles, u8 count, u32 sect);

// Converts 0xRRGGBB to an opaque LVGL colour.
lv_color_t zof_color_to_lv(zof_color_t color);

// Converts a width or padding from a file for LVGL, limited to 4095, because LVGL writes beyond its buffers with much
// larger values. Paddings may be negative, stored in the unsigned field.
lv_coord_t zof_length_to_lv(u32 pixels);

// Converts a position or distance for LVGL, which adds and multiplies them in 32 bits: limited to +-4194304, far beyond
// any screen. Percentages and LV_SIZE_CONTENT are unchanged. Style properties have the same bounds in LVGL itself.
lv_coord_t zof_coord_to_lv(s32 pixels);

ZOF_C_END

#endif
