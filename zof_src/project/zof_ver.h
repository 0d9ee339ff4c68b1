// Version strings. The caller does not own them.
#ifndef ZOF_VER_H
#define ZOF_VER_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Returns "version" of the project file, which is located and read at the first call; null without one.
const char *zof_fw_get_version(void);

// Return the version of the runtime.
const char *zof_sdk_get_version(void);
const char *zof_ver_get_str(void);

// Prints the banner.
void zof_ver_printf(void);

// Return values of the current project; null without a project or without the key.
const char *zof_user_app_version(void);
const char *zof_user_app_comp_time(void);

ZOF_C_END

#endif
