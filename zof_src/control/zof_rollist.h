// Roller lists, with the rules of drop lists.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Indexes count from 0.
#ifndef ZOF_ROLLIST_H
#define ZOF_ROLLIST_H

#include "control/zof_ctrl.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *options;
    u32 rol_mode;
    u8 row_cnt;
    u8 anim_time;
    u32 txt_align_e;
    u32 ext_sel_width;
    db_list *opt_list; // no key: as in a drop list
} zof_rollist_attr_t;

extern const reflect_item_t zof_rollist_attr_t_tbl[];

s32 zof_rollist_create(para_t *record, lv_obj_t *parent, void *attr);

// Sets the space between lines in pixels; the roller grows with it.
s32 zof_rollist_set_line_space(zof_ctrl_t *ctrl, s32 space);                     // sets the space between lines
s32 zof_rollist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);    // inserts an option
s32 zof_rollist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position); // changes an option
s32 zof_rollist_del_option(zof_ctrl_t *ctrl, u32 position);                      // removes an option

// `mode`: 0 stops at both ends, 1 wraps around; it is kept for later changes.
s32 zof_rollist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count, u32 mode); // replaces all options

// Turns to an option, in half a second, or at once if `animate` is 0; from then on touches turn it in half a second
// too.
s32 zof_rollist_set_selected(zof_ctrl_t *ctrl, u32 index, u32 animate);     // turns to an option
s32 zof_rollist_get_selected(zof_ctrl_t *ctrl);                             // index of the selected option
s32 zof_rollist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size); // copies the option's text
s32 zof_rollist_update_txt(zof_ctrl_t *ctrl);                               // translates keys again

// Releases the options. Returns 0, or -1 for a record without the attributes of a roller list.
s32 zof_rollist_del(para_t *record);

ZOF_C_END

#endif
