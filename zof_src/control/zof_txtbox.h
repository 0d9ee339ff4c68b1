// Text boxes. Texts are shown as they are, keys too. From any text a box takes whole UTF-8 characters that it accepts,
// no line breaks if it has one line, and no more than its maximum length, or 32767 characters; the rest is left out.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_TXTBOX_H
#define ZOF_TXTBOX_H

#include "control/zof_ctrl.h"
#include "control/zof_cursor.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u32 line_mode;
    u32 txt_align_e;
    u32 holder_txt_align_e;
    char *accept_txt;
    u16 max_txt_len;
    char *p_holder_txt;
    char *init_txt;
    zof_bool pwd_mode_en;
    u16 pwd_char_show_time;
    zof_cursor_style_attr_t cursor_style_t;
} zof_txtbox_attr_t;

extern const reflect_item_t zof_txtbox_attr_t_tbl[];

s32 zof_txtbox_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds at the cursor. A character is its UTF-8 bytes, the first one lowest: 'a', 0xA9C3. Anything else returns -1.
s32 zof_txtbox_add_txt(zof_ctrl_t *ctrl, const char *text); // inserts a text
s32 zof_txtbox_add_char(zof_ctrl_t *ctrl, u32 character);   // inserts a character

// Deletes the character before the cursor, or the one after it.
s32 zof_txtbox_del_char(zof_ctrl_t *ctrl);                   // deletes the character before the cursor
s32 zof_txtbox_del_char_forward(zof_ctrl_t *ctrl);           // deletes the one after the cursor
s32 zof_txtbox_set_text(zof_ctrl_t *ctrl, const char *text); // replaces the text

// Returns the text, also of a password; the box owns it. (char *)-1 without a box.
const char *zof_txtbox_get_text(zof_ctrl_t *ctrl);      // the text in the box
s32 zof_txtbox_pwd_mode(zof_ctrl_t *ctrl, zof_bool on); // shows dots instead of letters, or letters again

// Moves the cursor: 0 right, 1 left, 2 down, 3 up; other values do nothing.
s32 zof_txtbox_cursor_move(zof_ctrl_t *ctrl, u32 where);

// Sets border side (LVGL's), colour 0xRRGGBB, width in pixels, opacity and blink time in milliseconds of a cursor,
// under an LVGL selector; `with_bg` also fills it with the colour. Spin boxes have such a cursor too.
s32 zof_txtbox_set_cursor_type(zof_ctrl_t *ctrl, u32 cursor_e, zof_color_t color, u8 width, u8 opa, u32 animtime,
                               u32 selector, zof_bool with_bg);

ZOF_C_END

#endif
