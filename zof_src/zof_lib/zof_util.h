// Bytes and text.
#ifndef ZOF_UTIL_H
#define ZOF_UTIL_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void byte_rev(u8 *buf, u32 len);
u32 zof_rev16(u32 v);
u32 zof_rev32(u32 v);
u32 charCount(const char *text, char c);
s32 zof_atoi(const char *text);

ZOF_C_END

#endif
