// Label, button, switch and check box, the rule for replacing texts, and the sweep after a language change.
#ifndef ZOF_TEXT_H
#define ZOF_TEXT_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

s32 zof_txt_change(char **slot, const char *text);
s32 zof_ctrl_txt_update(void);

s32 zof_label_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_label_set_txt(zof_ctrl_t *ctrl, const char *text);
char *zof_label_get_text(zof_ctrl_t *ctrl);
s32 zof_label_set_align(zof_ctrl_t *ctrl, u32 align_e);
s32 zof_label_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color);
s32 zof_label_set_txt_size(zof_ctrl_t *ctrl, u32 size);
s32 zof_label_set_dis_mode(zof_ctrl_t *ctrl, u32 mode);
s32 zof_label_set_anim_speed(zof_ctrl_t *ctrl, u32 speed);
s32 zof_label_update_txt(zof_ctrl_t *ctrl);

s32 zof_btn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_btn_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_btn_update_txt(zof_ctrl_t *ctrl);
s32 zof_btn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 selector);
s32 zof_btn_set_txt_size(zof_ctrl_t *ctrl, u32 size);
s32 zof_btn_set_mode(zof_ctrl_t *ctrl, u32 mode);
s32 zof_btn_get_state(zof_ctrl_t *ctrl);
s32 zof_btn_set_state(zof_ctrl_t *ctrl, u32 state);

s32 zof_sw_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_sw_set_state(zof_ctrl_t *ctrl, u32 on);
u32 zof_sw_get_state(zof_ctrl_t *ctrl);

s32 zof_cb_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_cb_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_cb_set_checked(zof_ctrl_t *ctrl, u32 on);
u32 zof_cb_is_checked(zof_ctrl_t *ctrl);
s32 zof_cb_set_disable(zof_ctrl_t *ctrl, u32 on);
s32 zof_cb_is_inactive(zof_ctrl_t *ctrl);
s32 zof_cb_update_txt(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
