// Languages: texts that begin with "#" are keys into the current table.
#ifndef ZOF_LANG_H
#define ZOF_LANG_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

struct cJSON;

s32 zof_lang_set(const char *name);
s32 zof_lang_check_str(const char *text);
const char *zof_lang_get_cur_str(const char *text);
s32 zof_lang_set_cur_str(const char *reference, const char *value);
s32 zof_lang_save_cur_to_flash(void);
void zof_lang_del(struct cJSON *root);

ZOF_C_END

#endif
