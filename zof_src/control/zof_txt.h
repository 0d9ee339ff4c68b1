// Texts that records keep. Graphics thread, or under dis_mutex.
#ifndef ZOF_TXT_H
#define ZOF_TXT_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Puts a copy of `text` into a slot and frees what it held. Returns 0, or -1 for null and for a text equal to the
// stored one, which then stays.
s32 zof_txt_change(char **slot, const char *text);

ZOF_C_END

#endif
