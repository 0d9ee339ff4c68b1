// Buttons: an LVGL button with a label as its child 0.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Colours are 0xRRGGBB.
#ifndef ZOF_BTN_H
#define ZOF_BTN_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u8 mode;
    char *txt;
} zof_btn_attr_t;

extern const reflect_item_t zof_btn_attr_t_tbl[];

s32 zof_btn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_btn_set_txt(zof_ctrl_t *ctrl, const char *text); // sets the caption, as zof_label_set_txt
s32 zof_btn_update_txt(zof_ctrl_t *ctrl);
s32 zof_btn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_btn_set_txt_size(zof_ctrl_t *ctrl, u32 size);

// Not 0: the button toggles, and stays down at every other click.
s32 zof_btn_set_mode(zof_ctrl_t *ctrl, u32 mode);

// LVGL's states. Setting first clears checked, pressed and disabled.
s32 zof_btn_get_state(zof_ctrl_t *ctrl);            // 1 checked, 32 pressed, 128 disabled
s32 zof_btn_set_state(zof_ctrl_t *ctrl, u32 state); // checks, presses or disables the button

ZOF_C_END

#endif
