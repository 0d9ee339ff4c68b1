// Lists of texts to choose from: list (a column of buttons), drop list and roller list. Each keeps its texts as they
// were given, language keys included, and makes the shown text from them after every change and at every language
// change. Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind. Indexes count
// from 0.
#ifndef ZOF_LIST_H
#define ZOF_LIST_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Option lists: private copies of texts in `list`, and in `*slot`, on the heap too, what a widget shows: the texts in
// the current language, one to a line. A change replaces the slot's string and returns it; the slot owns it. Null, with
// the slot unchanged, for null arguments and when no text is left. At most ZOF_LISTTXT_LINES lines are shown.
enum { ZOF_LISTTXT_LINES = 4096 };

// Replaces the list by the lines of `text`. The last line counts even when it is empty.
void zof_listtxt_str2list(const char *text, db_list *list);
char *zof_listtxt_list2str(db_list *list, char **slot);

// For a widget that is being created: makes its list from the slot's lines. If there is already a list, the widget was
// deleted with its parent and is being recreated; the slot then holds translations, and the list stays. Returns the
// text to show, or null.
char *zof_listtxt_start(db_list **list, char **slot);

// Inserts a copy before the element at `position`, or appends it at or beyond the end. Refused when ZOF_LISTTXT_LINES
// texts are there already.
char *zof_listtxt_add_option(db_list *list, char **slot, const char *text, u32 position);

// Both refuse a position that has no element.
char *zof_listtxt_modify_option(db_list *list, char **slot, const char *text, u32 position);
char *zof_listtxt_del_option(db_list *list, char **slot, u32 position);

// Replaces all texts. Null texts are left out.
char *zof_listtxt_change_option(db_list *list, char **slot, const char *const *texts, u32 count);

// Releases texts and list and sets the pointer to null.
void zof_listtxt_destroy(db_list **list);

// Lists. Clicks on a button reach the list's event function; the button is then the target of LVGL's event.
s32 zof_list_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds a button at the end, without an icon for a null image. Returns the button, which is a handle, or null.
zof_ctrl_t *zof_list_add_btn(zof_ctrl_t *ctrl, const char *image, const char *text);
s32 zof_list_del_btn(zof_ctrl_t *ctrl, u32 index);
s32 zof_list_remove_all(zof_ctrl_t *ctrl);

// Returns a button, or its child 0, which is the icon if it has one, else the label; null when there is none.
zof_ctrl_t *zof_list_get_index_btn(zof_ctrl_t *ctrl, u32 index);
zof_ctrl_t *zof_list_get_index_label(zof_ctrl_t *ctrl, u32 index);

// Checks this button of the list, by its handle, and no other. The getter returns something else: the index of the
// first button that has the focus, or -1.
s32 zof_list_set_select_index(zof_ctrl_t *ctrl, zof_ctrl_t *button);
s32 zof_list_get_select_index(zof_ctrl_t *ctrl);

// The text of a button: set as a text or key, read as shown. The getter returns (char *)-1 when there is no such
// button.
s32 zof_list_set_index_str(zof_ctrl_t *ctrl, u32 index, const char *text);
const char *zof_list_get_index_str(zof_ctrl_t *ctrl, u32 index);

// Scrolls to a button, animated.
s32 zof_list_focus(zof_ctrl_t *ctrl, u32 index);

// Sets a local style of one button under an LVGL selector: background 0xRRGGBB, radius, opacity of the whole button.
s32 zof_list_add_btns_style(zof_ctrl_t *ctrl, u32 index, u32 selector, zof_color_t bg_color, u32 radius, u8 opa);
s32 zof_list_update_txt(zof_ctrl_t *ctrl);

// Releases what the record keeps of the list's buttons, and the buttons if they still exist. So do the two below.
s32 zof_list_del(para_t *record);

// Drop lists. Every change of options selects the first one and refreshes an open list. Returns -1 and changes nothing
// for a null text, a position that has no element, and when no option would be left.
s32 zof_droplist_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_droplist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_droplist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_droplist_del_option(zof_ctrl_t *ctrl, u32 position);
s32 zof_droplist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count);

// An index beyond the end selects the last option.
s32 zof_droplist_set_selected(zof_ctrl_t *ctrl, u32 index);
s32 zof_droplist_get_selected(zof_ctrl_t *ctrl);

// Copies the selected text as shown, cut to `size` bytes including its zero; -1 for a null or empty buffer.
s32 zof_droplist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size);
s32 zof_droplist_open(zof_ctrl_t *ctrl);
s32 zof_droplist_close(zof_ctrl_t *ctrl);
s32 zof_droplist_update_txt(zof_ctrl_t *ctrl);
s32 zof_droplist_del(para_t *record);

// Roller lists, with the rules of drop lists.
s32 zof_rollist_create(para_t *record, lv_obj_t *parent, void *attr);

// Sets the space between lines in pixels; the roller grows with it.
s32 zof_rollist_set_line_space(zof_ctrl_t *ctrl, s32 space);
s32 zof_rollist_add_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_rollist_modify_option(zof_ctrl_t *ctrl, const char *text, u32 position);
s32 zof_rollist_del_option(zof_ctrl_t *ctrl, u32 position);

// `mode`: 0 stops at both ends, 1 wraps around; it is kept for later changes.
s32 zof_rollist_set_options(zof_ctrl_t *ctrl, const char *const *texts, u32 count, u32 mode);

// Turns to an option, in half a second, or at once if `animate` is 0; from then on touches turn it in half a second
// too.
s32 zof_rollist_set_selected(zof_ctrl_t *ctrl, u32 index, u32 animate);
s32 zof_rollist_get_selected(zof_ctrl_t *ctrl);
s32 zof_rollist_get_selected_str(zof_ctrl_t *ctrl, char *buffer, u32 size);
s32 zof_rollist_update_txt(zof_ctrl_t *ctrl);
s32 zof_rollist_del(para_t *record);

ZOF_C_END

#endif
