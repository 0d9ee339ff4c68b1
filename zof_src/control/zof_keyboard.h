// Keyboards. Typed text goes to the text box that is set, until either is deleted. zof_keyboard_set_txtbox returns -1
// for a null on either side and for anything but a text box.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_KEYBOARD_H
#define ZOF_KEYBOARD_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    zof_bool keyboard_spell;
    u32 mode;
    zof_bool popovers;
    char *cn_font_lib;
    u32 cn_font_size;
    lv_obj_t *pinyin; // no key: LVGL's input method, null after its deletion
} zof_keyboard_attr_t;

extern const reflect_item_t zof_keyboard_attr_t_tbl[];

s32 zof_keyboard_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_keyboard_set_txtbox(zof_ctrl_t *ctrl, zof_ctrl_t *txtbox); // types into this text box from now on

// The text box that receives the keys; null for none.
lv_obj_t *zof_keyboard_get_txtbox(zof_ctrl_t *ctrl);

// As for button matrices.
s32 zof_keyboard_get_selected_btn(zof_ctrl_t *ctrl);             // the key pressed last
const char *zof_keyboard_get_btn_text(zof_ctrl_t *ctrl, u32 id); // caption of a key

ZOF_C_END

#endif
