// Label, button, switch and check box, the rule for replacing texts, and the update after a language change. Graphics
// thread, or under dis_mutex.
#ifndef ZOF_TEXT_H
#define ZOF_TEXT_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Puts a copy of `text` into a slot and frees what it held. Returns 0, or -1 for null and for a text equal to the
// stored one, which then stays.
s32 zof_txt_change(char **slot, const char *text);

// Updates all texts and pictures that are language keys, on all views, shown or not. Returns 0, or -1 without a
// project.
s32 zof_ctrl_txt_update(void);

// Labels. `align_e`: the low half is LVGL's text alignment, the high half 0x10 top, 0x20 middle, 0x30 bottom, for
// labels with a fixed height (auto_hight 1). The height of the stored text counts, not that of the one shown.
s32 zof_label_create(para_t *record, lv_obj_t *parent, void *attr);

// Shows a text or, for a text "#key", the translation, and keeps the key, so that the text follows the language. A key
// without a translation is shown as it is and not kept: the next language change brings the stored key back. Null shows
// nothing. These rules hold for all controls with a text. Returns 0 or -1.
s32 zof_label_set_txt(zof_ctrl_t *ctrl, const char *text);

// Returns the text shown, which the label owns; (char *)-1 without a label.
char *zof_label_get_text(zof_ctrl_t *ctrl);
s32 zof_label_set_align(zof_ctrl_t *ctrl, u32 align_e);

// Colours are 0xRRGGBB. A size applies to the font file of the control's first style.
s32 zof_label_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_label_set_txt_size(zof_ctrl_t *ctrl, u32 size);

// LVGL's long mode, and the speed of the scrolling modes in pixels per second.
s32 zof_label_set_dis_mode(zof_ctrl_t *ctrl, u32 mode);
s32 zof_label_set_anim_speed(zof_ctrl_t *ctrl, u32 speed);

// Shows the stored key's translation again; does nothing for a plain text.
s32 zof_label_update_txt(zof_ctrl_t *ctrl);

// Buttons: an LVGL button with a label as its child 0.
s32 zof_btn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_btn_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_btn_update_txt(zof_ctrl_t *ctrl);
s32 zof_btn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_btn_set_txt_size(zof_ctrl_t *ctrl, u32 size);

// Not 0: the button toggles, and stays down at every other click.
s32 zof_btn_set_mode(zof_ctrl_t *ctrl, u32 mode);

// LVGL's states. Setting first clears checked, pressed and disabled.
s32 zof_btn_get_state(zof_ctrl_t *ctrl);
s32 zof_btn_set_state(zof_ctrl_t *ctrl, u32 state);

// Switches. A square one is made a pixel wider, in the record too. The getter returns 1 or 0.
s32 zof_sw_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_sw_set_state(zof_ctrl_t *ctrl, u32 on);
u32 zof_sw_get_state(zof_ctrl_t *ctrl);

// Check boxes, always as large as their text. zof_cb_is_inactive returns 1 when disabled, 0 when not, -1 without an
// object.
s32 zof_cb_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_cb_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_cb_set_checked(zof_ctrl_t *ctrl, u32 on);
u32 zof_cb_is_checked(zof_ctrl_t *ctrl);
s32 zof_cb_set_disable(zof_ctrl_t *ctrl, u32 on);
s32 zof_cb_is_inactive(zof_ctrl_t *ctrl);
s32 zof_cb_update_txt(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
