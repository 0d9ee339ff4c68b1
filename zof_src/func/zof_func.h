// What the runtime does for itself at power-on: size limit, overlay of diagnostic values.
#ifndef ZOF_FUNC_H
#define ZOF_FUNC_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void zof_func_pwon(void);
void zof_func_show_prj_para(void);
s32 zof_func_check_wh_vaild(void);
void zof_monitor_refr_buy_time(u32 ms);

ZOF_C_END

#endif
