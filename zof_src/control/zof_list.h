// Lists: a column of buttons, each with an icon and a text. Clicks on a button reach the list's event function; the
// button is then the target of LVGL's event.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Indexes count from 0.
#ifndef ZOF_LIST_H
#define ZOF_LIST_H

#include "control/zof_ctrl.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef struct {
    char *image_num;
    char *txt;
} zof_list_btn_t;

// The texts of a list button as they were set, possibly language keys; both may be null.
typedef struct {
    char *image;
    char *txt;
} zof_list_item_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u16 list_count;
    zof_list_btn_t *btns_t;
    u16 anim_time;
    db_list *opt_list; // no key: of zof_list_item_t, one per button
} zof_list_attr_t;

extern const reflect_item_t zof_list_btn_t_tbl[];
extern const reflect_item_t zof_list_attr_t_tbl[];

s32 zof_list_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds a button at the end, without an icon for a null image. Returns the button, which is a handle, or null.
zof_ctrl_t *zof_list_add_btn(zof_ctrl_t *ctrl, const char *image, const char *text); // adds a button
s32 zof_list_del_btn(zof_ctrl_t *ctrl, u32 index);                                   // removes a button
s32 zof_list_remove_all(zof_ctrl_t *ctrl);                                           // removes all buttons

// Returns a button, or its child 0, which is the icon if it has one, else the label; or null.
zof_ctrl_t *zof_list_get_index_btn(zof_ctrl_t *ctrl, u32 index);   // a button by its index
zof_ctrl_t *zof_list_get_index_label(zof_ctrl_t *ctrl, u32 index); // its first child

// Checks this button of the list, by its handle, and no other. The getter returns something else: the index of the
// first button that has the focus, or -1.
s32 zof_list_set_select_index(zof_ctrl_t *ctrl, zof_ctrl_t *button); // checks one button
s32 zof_list_get_select_index(zof_ctrl_t *ctrl);                     // the button that has the focus

// The text of a button: set as a text or key, read as shown. The getter returns (char *)-1 when there is no such
// button.
s32 zof_list_set_index_str(zof_ctrl_t *ctrl, u32 index, const char *text); // changes a button's text
const char *zof_list_get_index_str(zof_ctrl_t *ctrl, u32 index);           // text of a button

// Scrolls to a button, animated.
s32 zof_list_focus(zof_ctrl_t *ctrl, u32 index);

// Sets a local style of one button under an LVGL selector: background 0xRRGGBB, radius, opacity of the whole button.
s32 zof_list_add_btns_style(zof_ctrl_t *ctrl, u32 index, u32 selector, zof_color_t bg_color, u32 radius, u8 opa);
s32 zof_list_update_txt(zof_ctrl_t *ctrl); // translates keys again

// Releases what the record keeps of the list's buttons, and the buttons if they still exist. Returns 0, or -1 for a
// record without the attributes of a list.
s32 zof_list_del(para_t *record);

ZOF_C_END

#endif
