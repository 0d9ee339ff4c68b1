// Option lists of drop lists and roller lists: `list` has private copies of the texts as they were given, language keys
// included; `*slot`, on the heap too, what a widget shows: the texts in the current language, one to a line. A change
// replaces the slot's string and returns it; the slot owns it. Null, with the slot unchanged, for null arguments and
// when no text is left. At most ZOF_LISTTXT_LINES lines are shown.
// Graphics thread, or under dis_mutex.
#ifndef ZOF_LISTTXT_H
#define ZOF_LISTTXT_H

#include "zof_lib/dblist/db_list.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

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

ZOF_C_END

#endif
