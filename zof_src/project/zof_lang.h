// Languages: texts that begin with "#" are keys into the current table. Graphics thread only.
#ifndef ZOF_LANG_H
#define ZOF_LANG_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

struct cJSON;

// Makes config/languages/<name>.g the current language and renews every text on the screen. Changes of the former table
// that were not saved are lost. -1, and no table at all, when the file is not to be had: references then show as they
// are.
s32 zof_lang_set(const char *name);

// 1 for a reference, else 0.
s32 zof_lang_check_str(const char *text);

// The text to show: that of the table for a reference, which lasts until the table changes; `text` itself when it is no
// reference, or the table does not know it. Keys match without regard to case.
const char *zof_lang_get_cur_str(const char *text);

// Changes an entry in memory; whoever wants to see it renews the controls. 0 when done, and when there is nothing to do
// it with: no reference, no table, a null value or one of 256 bytes or more. -1 for an entry that the table does not
// have.
s32 zof_lang_set_cur_str(const char *reference, const char *value);

// Writes the table back into its file. 1 when the file is as the table, 0 without a table, -1 with a line on failure.
s32 zof_lang_save_cur_to_flash(void);

void zof_lang_del(struct cJSON *root);

// Installs a function that runs at the end of every successful zof_lang_set, behind the sweep over all controls: an
// application formats texts itself ("Use 12.04 V") and has to say them again. Null removes it. Graphics thread.
void zof_lang_on_change(void (*fn)(void));

ZOF_C_END

#endif
