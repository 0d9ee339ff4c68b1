// QR codes: squares of 1 to 2047 pixels, without styles.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_QRCODE_H
#define ZOF_QRCODE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u32 bg_color;
    u32 color;
    char *txt;
    u32 width;
    u32 border_color;
} zof_qrcode_attr_t;

extern const reflect_item_t zof_qrcode_attr_t_tbl[];

s32 zof_QR_code_create(para_t *record, lv_obj_t *parent, void *attr);

// Null is the empty text. Returns -1, and no code is shown, for a text that does not fit into the square.
s32 zof_qrcode_updata_data(zof_ctrl_t *ctrl, const char *text); // shows the code of a text

ZOF_C_END

#endif
