// Drop lists. Every change of options selects the first one and refreshes an open list; it returns -1 and changes
// nothing for a null text, a position that has no element, and when no option would be left.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Indexes count from 0.
#ifndef ZOF_DROPLIST_H
#define ZOF_DROPLIST_H

#include "control/zof_ctrl.h"
#include "zof_lib/dblist/db_list.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *options;
    u32 dir_t;
    u16 anim_time;
    u32 txt_align_e;
    db_list *opt_list; // no key: of the texts as they were set; `options` becomes the displayed text
} zof_droplist_attr_t;

extern const reflect_item_t zof_droplist_attr_t_tbl[];

s32 zof_droplist_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_droplist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);       // inserts an option
s32 zof_droplist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position);    // changes an option
s32 zof_droplist_del_option(zof_ctrl_t *ctrl, u32 position);                         // removes an option
s32 zof_droplist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count); // replaces all options

// An index beyond the end selects the last option.
s32 zof_droplist_set_selected(zof_ctrl_t *ctrl, u32 index); // selects an option
s32 zof_droplist_get_selected(zof_ctrl_t *ctrl);            // index of the selected option

// Copies the selected text as shown, cut to `size` bytes including its zero; -1 for a null or empty buffer.
s32 zof_droplist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size);
s32 zof_droplist_open(zof_ctrl_t *ctrl);       // opens the list
s32 zof_droplist_close(zof_ctrl_t *ctrl);      // closes the list
s32 zof_droplist_update_txt(zof_ctrl_t *ctrl); // translates keys again

// Releases the options. Returns 0, or -1 for a record without the attributes of a drop list.
s32 zof_droplist_del(para_t *record);

ZOF_C_END

#endif
