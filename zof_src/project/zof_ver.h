// Version strings.
#ifndef ZOF_VER_H
#define ZOF_VER_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

const char *zof_fw_get_version(void);
const char *zof_sdk_get_version(void);
const char *zof_ver_get_str(void);
void zof_ver_printf(void);
const char *zof_user_app_version(void);
const char *zof_user_app_comp_time(void);

ZOF_C_END

#endif
