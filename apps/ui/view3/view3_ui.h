#ifndef VIEW3_UI_H
#define VIEW3_UI_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void view3_init(void);
void view3_entry(void);
void view3_exit(void);

ZOF_C_END

#endif
