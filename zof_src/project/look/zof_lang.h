// Languages: texts that begin with "#" are references to entries of the current table. Graphics thread only.
#ifndef ZOF_LANG_H
#define ZOF_LANG_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

struct cJSON;

// The folder of saved texts, below that of the program's state (zof_file_state_path).
#define ZOF_LANG_KEPT "languages/"

// Makes config/languages/<name>.g the current language, with the texts that were saved in place of its own, and updates
// every text on the screen. Unsaved changes of the old table are lost. Returns 0, or -1 if the file cannot be read:
// there is no table then, and references are shown as they are.
s32 zof_lang_set(const char *name);

// Sets the language of a project that is opened, in place of the one that the project file names; copied. Before the
// project is opened. Returns 0, or -1 for a name that is too long. The second returns it, or null.
s32 zof_lang_start_set(const char *name);
const char *zof_lang_start(void);

// Returns 1 for a reference, otherwise 0.
s32 zof_lang_check_str(const char *text);

// Returns the text to show: for a reference that of the table, `text` itself if it is not a reference or the table does
// not have it; valid until the table changes. A text with names of icons becomes a copy, valid until the fourth further
// call. Keys are not case-sensitive.
const char *zof_lang_get_cur_str(const char *text);

// Changes an entry in memory; controls show it after their next update. Returns 0, also when it does nothing: without a
// table, if `reference` is not one, for a null value, and for one of 256 bytes or more. Returns -1 for an entry that
// the table does not have.
s32 zof_lang_set_cur_str(const char *reference, const char *value);

// Saves the texts that differ from the project's file, which is not changed, in languages/<name>.g of the program's
// state. Returns 1 if all changes are saved, 0 without a table, -1 after a message on failure.
s32 zof_lang_save_cur_to_flash(void);

void zof_lang_del(struct cJSON *root);

// Installs a function that runs at the end of every successful zof_lang_set, after the update of all controls, because
// an application must write the texts it formats itself ("Use 12.04 V") again. Null removes it. Graphics thread.
void zof_lang_on_change(void (*fn)(void));

ZOF_C_END

#endif
