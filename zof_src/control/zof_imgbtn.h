// Image buttons: a picture for each state, and a label over it. `state`: 0 released, 1 pressed, 2 disabled, 3 checked,
// 4 checked pressed, 5 checked disabled; others return -1. Texts work as on buttons.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_IMGBTN_H
#define ZOF_IMGBTN_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u8 mode;
    u32 pos_mode_e;
    char *txt;
    char *img_rel;
    char *img_pr;
    char *img_tgl_pr;
    char *img_tgl_rel;
    char *img_ina;
    char *img_tgl_ina;
} zof_imgbtn_attr_t;

extern const reflect_item_t zof_imgbtn_attr_t_tbl[];

s32 zof_imgbtn_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_imgbtn_set_txt(zof_ctrl_t *ctrl, const char *text);
s32 zof_imgbtn_set_txt_color(zof_ctrl_t *ctrl, zof_color_t color, u32 state);
s32 zof_imgbtn_set_txt_size(zof_ctrl_t *ctrl, u32 size);
s32 zof_imgbtn_set_mode(zof_ctrl_t *ctrl, u32 state);
s32 zof_imgbtn_get_state(zof_ctrl_t *ctrl);
s32 zof_imgbtn_set_image(zof_ctrl_t *ctrl, u32 state, const char *name); // sets the picture of a state
s32 zof_imgbtn_update_txt(zof_ctrl_t *ctrl);

// Centres the picture that is shown on the declared box.
s32 zof_imgbtn_pos_reset(lv_obj_t *object, zof_imgbtn_attr_t *attr);

ZOF_C_END

#endif
