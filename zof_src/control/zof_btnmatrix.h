// Button matrices: rows of captions. Keyboards are button matrices too. Flags are LVGL's lv_btnmatrix_ctrl_t. Buttons
// count from 0, row by row, without the row breaks.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_BTNMATRIX_H
#define ZOF_BTNMATRIX_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u16 btnmatrix_num;
    char **btnmatrix_txt;
    char **txt_map; // no key: the button map as shown
} zof_btnmatrix_attr_t;

extern const reflect_item_t zof_btnmatrix_attr_t_tbl[];

s32 zof_btnmatrix_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_btnmatrix_set_selected_btn(zof_ctrl_t *ctrl, u32 id); // selects a button, as a key would

// Returns the button pressed last, 65535 for none.
s32 zof_btnmatrix_get_selected_btn(zof_ctrl_t *ctrl);
s32 zof_btnmatrix_set_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags);   // adds LVGL's flags
s32 zof_btnmatrix_clear_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags); // removes flags
s32 zof_btnmatrix_set_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags);       // adds flags to all buttons
s32 zof_btnmatrix_clear_btn_ctrl_all(zof_ctrl_t *ctrl, u32 flags);     // removes flags from all

// Returns 1 when the button has all of the flags, else 0.
s32 zof_btnmatrix_has_btn_ctrl(zof_ctrl_t *ctrl, u32 id, u32 flags);

// Makes a button 1 to 7 times as wide as others of its row.
s32 zof_btnmatrix_set_btn_width(zof_ctrl_t *ctrl, u32 id, u32 width);

// Sets whether checking a button unchecks the others.
s32 zof_btnmatrix_set_one_checked(zof_ctrl_t *ctrl, zof_bool on);
s32 zof_btnmatrix_get_one_checked(zof_ctrl_t *ctrl); // 1 if it does

// The caption of a button: set as a text or key, read as shown; null when there is no such button. A language change
// does not update captions. A row break is not a caption.
s32 zof_btnmatrix_set_btn_txt(zof_ctrl_t *ctrl, u32 id, const char *text); // changes a caption
const char *zof_btnmatrix_get_btn_text(zof_ctrl_t *ctrl, u32 id);          // caption as shown

// Releases the translated captions; a matrix that still exists loses them.
s32 zof_btnmatrix_del(para_t *record);

ZOF_C_END

#endif
