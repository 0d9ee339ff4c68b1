// Labels. `align_e`: the low half is LVGL's text alignment, the high half 0x10 top, 0x20 middle, 0x30 bottom, for
// labels with a fixed height (auto_hight 1). The height of the stored text counts, not that of the one shown.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Colours are 0xRRGGBB.
#ifndef ZOF_LABEL_H
#define ZOF_LABEL_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u8 auto_hight;
    u32 dis_mode_e;
    u16 animspeed;
    u32 align_e;
    char *txt;
    u32 align_label;
    s32 txt_y; // no key: distance of the text from the top in pixels
} zof_label_attr_t;

extern const reflect_item_t zof_label_attr_t_tbl[];

s32 zof_label_create(para_t *record, lv_obj_t *parent, void *attr);

// Shows a text or, for a text "#key", the translation, and keeps the key, so that the text follows the language. A key
// without a translation is shown as it is and not kept: the next language change brings the stored key back. Null shows
// nothing. These rules hold for all controls with a text. Returns 0 or -1.
s32 zof_label_set_txt(zof_ctrl_t *ctrl, const char *text);

// Returns the text shown, which the label owns; (char *)-1 without a label.
char *zof_label_get_text(zof_ctrl_t *ctrl);
s32 zof_label_set_align(zof_ctrl_t *ctrl, u32 align_e); // 0 by the text, 1 left, 2 centre, 3 right

// Colours are 0xRRGGBB. A size applies to the font file of the control's first style.
s32 zof_label_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color); // colour of the text
s32 zof_label_set_txt_size(zof_ctrl_t *ctrl, u32 size);           // size of the letters, in pixels

// LVGL's long mode, and the speed of the scrolling modes in pixels per second.
s32 zof_label_set_dis_mode(zof_ctrl_t *ctrl, u32 mode);    // what happens to a long text
s32 zof_label_set_anim_speed(zof_ctrl_t *ctrl, u32 speed); // how fast it scrolls

// Shows the stored key's translation again; does nothing for a plain text.
s32 zof_label_update_txt(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
