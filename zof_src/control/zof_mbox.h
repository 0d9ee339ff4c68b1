// Message boxes. A click on a button reaches the box's event function as ZOF_EVENT_VALUE_CHANGED. Buttons count from 0,
// row by row, without the row breaks. The functions accept controls only, no child objects, except zof_mbox_s_open.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_MBOX_H
#define ZOF_MBOX_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *title;
    char *txt;
    u32 btn_num;
    char **btn_txt;
    u32 anim_time;
    char **btn_map; // no key: the button map as shown
} zof_mbox_attr_t;

extern const reflect_item_t zof_mbox_attr_t_tbl[];

s32 zof_mbox_create(para_t *record, lv_obj_t *parent, void *attr);

// Texts work as in labels; a missing title or text is added.
s32 zof_title_set_txt(zof_ctrl_t *ctrl, const char *text); // sets the title
s32 zof_mbox_set_txt(zof_ctrl_t *ctrl, const char *text);  // sets the text

// Returns the button that was clicked last: 65535 for none, all bits set without a box.
u32 zof_mbox_get_clicked_btn_num(zof_ctrl_t *ctrl);

// Hides the box after so many milliseconds; it can be opened again.
s32 zof_mbox_start_auto_close(zof_ctrl_t *ctrl, u32 delay_ms); // hides the box after a time
s32 zof_mbox_s_close(zof_ctrl_t *ctrl);                        // hides the box
s32 zof_mbox_s_open(zof_ctrl_t *ctrl);                         // shows the box

// Translates title and text again where they are keys. Captions stay as they were created.
s32 zof_mbox_update_txt(zof_ctrl_t *ctrl);

// Releases the translated captions; a box that still exists loses them.
s32 zof_mbox_del(para_t *record);

ZOF_C_END

#endif
