// Version strings. None is the caller's to release.
#ifndef ZOF_VER_H
#define ZOF_VER_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// "version" of the project file, which is looked for and read when it is first asked for; null when there is none.
const char *zof_fw_get_version(void);

// The runtime's own.
const char *zof_sdk_get_version(void);
const char *zof_ver_get_str(void);

// The banner.
void zof_ver_printf(void);

// From the current project; null without one, or when it does not tell.
const char *zof_user_app_version(void);
const char *zof_user_app_comp_time(void);

ZOF_C_END

#endif
