// Message box, text box, keyboard and button matrix. Graphics thread, or under dis_mutex. Functions return 0, or -1
// without an object of the kind. Buttons count from 0, row by row, without the row breaks.
#ifndef ZOF_INPUT_H
#define ZOF_INPUT_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Message boxes. A click on a button reaches the box's event function as ZOF_EVENT_VALUE_CHANGED. The functions accept
// controls only, no child objects, except zof_mbox_s_open.
s32 zof_mbox_create(para_t *record, lv_obj_t *parent, void *attr);

// Texts work as in labels; a missing title or text is added.
s32 zof_title_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_mbox_set_txt(zof_ctrl_t *ctrl, const char *text);

// Returns the button that was clicked last: 65535 for none, all bits set without a box.
u32 zof_mbox_get_clicked_btn_num(zof_ctrl_t *ctrl);

// Hides the box after so many milliseconds; it can be opened again.
s32 zof_mbox_start_auto_close(zof_ctrl_t *ctrl, u32 delay_ms);
s32 zof_mbox_s_close(zof_ctrl_t *ctrl);
s32 zof_mbox_s_open(zof_ctrl_t *ctrl);

// Translates title and text again where they are keys. Captions stay as they were created.
s32 zof_mbox_update_txt(zof_ctrl_t *ctrl);

// Releases the translated captions; a box that still exists loses them.
s32 zof_mbox_del(para_t *record);

// Text boxes. Texts are shown as they are, keys too. From any text a box takes whole UTF-8 characters that it accepts,
// no line breaks if it has one line, and no more than its maximum length, or 32767 characters; the rest is left out.
s32 zof_txtbox_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds at the cursor. A character is its UTF-8 bytes, the first one lowest: 'a', 0xA9C3. Anything else returns -1.
s32 zof_txtbox_add_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_txtbox_add_char(zof_ctrl_t *ctrl, u32 character);

// Deletes the character before the cursor, or the one after it.
s32 zof_txtbox_del_char(zof_ctrl_t *ctrl);
s32 zof_txtbox_del_char_forward(zof_ctrl_t *ctrl);
s32 zof_txtbox_set_text(zof_ctrl_t *ctrl, const char *text);

// Returns the text, also of a password; the box owns it. (char *)-1 without a box.
const char *zof_txtbox_get_text(zof_ctrl_t *ctrl);
s32 zof_txtbox_pwd_mode(zof_ctrl_t *ctrl, zof_bool on);

// Moves the cursor: 0 right, 1 left, 2 down, 3 up; other values do nothing.
s32 zof_txtbox_cursor_move(zof_ctrl_t *ctrl, u32 where);

// Sets border side (LVGL's), colour 0xRRGGBB, width in pixels, opacity and blink time in milliseconds of a cursor,
// under an LVGL selector; `with_bg` also fills it with the colour. Spin boxes have such a cursor too.
s32 zof_txtbox_set_cursor_type(zof_ctrl_t *ctrl, u32 cursor_e, zof_color_t color, u8 width, u8 opa, u32 animtime,
                               u32 selector, zof_bool with_bg);

// Keyboards. Typed text goes to the text box that is set, until either is deleted. -1 for a null on either side and for
// anything but a text box.
s32 zof_keyboard_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_keyboard_set_txtbox(zof_ctrl_t *ctrl, zof_ctrl_t *txtbox);

// As for button matrices.
s32 zof_keyboard_get_selected_btn(zof_ctrl_t *ctrl);
const char *zof_keyboard_get_btn_text(zof_ctrl_t *ctrl, u32 id);

// Button matrices; keyboards are such too. Flags are LVGL's lv_btnmatrix_ctrl_t.
s32 zof_btnmatrix_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_btnmatrix_set_selected_btn(zof_ctrl_t *ctrl, u32 id);

// Returns the button pressed last, 65535 for none.
s32 zof_btnmatrix_get_selected_btn(zof_ctrl_t *ctrl);
s32 zof_btnmatrix_set_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags);
s32 zof_btnmatrix_clear_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags);
s32 zof_btnmatrix_set_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags);
s32 zof_btnmatrix_clear_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags);

// Returns 1 when the button has all of the flags, else 0.
s32 zof_btnmatrix_has_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags);

// Makes a button 1 to 7 times as wide as others of its row.
s32 zof_btnmatrix_set_btn_width(zof_ctrl_t *ctrl, u32 id, u32 width);

// Sets whether checking a button unchecks the others.
s32 zof_btnmatrix_set_one_checked(zof_ctrl_t *ctrl, zof_bool on);
s32 zof_btnmatrix_get_one_checked(zof_ctrl_t *ctrl);

// The caption of a button: set as a text or key, read as shown; null when there is no such button. A language change
// does not update captions. A row break is not a caption.
s32 zof_btnmatrix_set_btn_txt(zof_ctrl_t *ctrl, u32 id, const char *text);
const char *zof_btnmatrix_get_btn_text(zof_ctrl_t *ctrl, u32 id);

// Releases the translated captions; a matrix that still exists loses them.
s32 zof_btnmatrix_del(para_t *record);

ZOF_C_END

#endif
