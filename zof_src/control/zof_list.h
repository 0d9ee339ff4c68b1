// Lists of texts to choose from: list (a column of buttons), drop list and roller list. Each keeps its texts as they
// were given, keys of the language included; what is shown is made from them after every change and at every change of
// language. Graphics thread, or under dis_mutex. 0, or -1 without an object of the kind. Indexes count from 0.
#ifndef ZOF_LIST_H
#define ZOF_LIST_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Option lists: private copies of texts in `list`, and in `*slot`, on the heap too, what a widget shows: the texts in
// the current language, one a line. A new string replaces the slot's, and is the result; it stays the slot's. Null, and
// the slot as it was, for null arguments and when no text is left. No more than ZOF_LISTTXT_LINES lines are shown.
enum { ZOF_LISTTXT_LINES = 4096 };

// Replaces the list by the lines of `text`. The last line counts too when it is empty.
void zof_listtxt_str2list(const char *text, db_list *list);
char *zof_listtxt_list2str(db_list *list, char **slot);

// For a widget that is being made: its list, made of the slot's lines. Where there is a list already the widget went
// with its parent and is made again; the slot then holds translations, and the list stays. What to show, or null.
char *zof_listtxt_start(db_list **list, char **slot);

// Puts a copy ahead of the element at `position`; at or beyond the end it is appended. Refused when as many as are
// shown are there already.
char *zof_listtxt_add_option(db_list *list, char **slot, const char *text, u32 position);

// Both refuse a position that has no element.
char *zof_listtxt_modify_option(db_list *list, char **slot, const char *text, u32 position);
char *zof_listtxt_del_option(db_list *list, char **slot, u32 position);

// Replaces all. Null texts are left out.
char *zof_listtxt_change_option(db_list *list, char **slot, const char *const *texts, u32 count);

// Releases texts and list; the pointer becomes null.
void zof_listtxt_destroy(db_list **list);

// Lists. Clicks on a button reach the list's event function; the button is then the target of LVGL's event.
s32 zof_list_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds a button at the end; without icon for a null image. The button, which is a handle, or null.
zof_ctrl_t *zof_list_add_btn(zof_ctrl_t *ctrl, const char *image, const char *text);
s32 zof_list_del_btn(zof_ctrl_t *ctrl, u32 index);
s32 zof_list_remove_all(zof_ctrl_t *ctrl);

// A button, and its child 0, which is the label, or the icon if it has one; null when there is none.
zof_ctrl_t *zof_list_get_index_btn(zof_ctrl_t *ctrl, u32 index);
zof_ctrl_t *zof_list_get_index_label(zof_ctrl_t *ctrl, u32 index);

// Checks this button of the list, by its handle, and no other. The getter gives another thing: the index of the first
// button that has the focus, or -1.
s32 zof_list_set_select_index(zof_ctrl_t *ctrl, zof_ctrl_t *button);
s32 zof_list_get_select_index(zof_ctrl_t *ctrl);

// The text of a button: set as a text or key, read as shown. The getter gives (char *)-1 when there is no such button.
s32 zof_list_set_index_str(zof_ctrl_t *ctrl, u32 index, const char *text);
const char *zof_list_get_index_str(zof_ctrl_t *ctrl, u32 index);

// Scrolls to a button, in an animation.
s32 zof_list_focus(zof_ctrl_t *ctrl, u32 index);

// Local style of one button under an LVGL selector: background 0xRRGGBB, radius, opacity of the whole button.
s32 zof_list_add_btns_style(zof_ctrl_t *ctrl, u32 index, u32 selector, zof_color_t bg_color, u32 radius, u8 opa);
s32 zof_list_update_txt(zof_ctrl_t *ctrl);

// Releases what the record keeps of the list's buttons, and these if there still are any. So do the two below.
s32 zof_list_del(para_t *record);

// Drop lists. Every change of options selects the first one and renews an open list. -1, and what was shown stays, for
// a null text, a position that has no element, and when no option is left.
s32 zof_droplist_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_droplist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_droplist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_droplist_del_option(zof_ctrl_t *ctrl, u32 position);
s32 zof_droplist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count);

// An index beyond the end selects the last option.
s32 zof_droplist_set_selected(zof_ctrl_t *ctrl, u32 index);
s32 zof_droplist_get_selected(zof_ctrl_t *ctrl);

// Copies the selected text as shown, cut to `size` bytes with its zero; -1 for a null or empty buffer.
s32 zof_droplist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size);
s32 zof_droplist_open(zof_ctrl_t *ctrl);
s32 zof_droplist_close(zof_ctrl_t *ctrl);
s32 zof_droplist_update_txt(zof_ctrl_t *ctrl);
s32 zof_droplist_del(para_t *record);

// Roller lists, with the rules of drop lists.
s32 zof_rollist_create(para_t *record, lv_obj_t *parent, void *attr);

// Pixels between the lines; the roller grows with them.
s32 zof_rollist_set_line_space(zof_ctrl_t *ctrl, s32 space);
s32 zof_rollist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_rollist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_rollist_del_option(zof_ctrl_t *ctrl, u32 position);

// `mode`: 0 ends at both ends, 1 goes round; it is kept for later changes.
s32 zof_rollist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count, u32 mode);

// Turns to an option, in half a second or, for `animate` 0, at once; from then on touches turn it in half a second too.
s32 zof_rollist_set_selected(zof_ctrl_t *ctrl, u32 index, u32 animate);
s32 zof_rollist_get_selected(zof_ctrl_t *ctrl);
s32 zof_rollist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size);
s32 zof_rollist_update_txt(zof_ctrl_t *ctrl);
s32 zof_rollist_del(para_t *record);

ZOF_C_END

#endif
