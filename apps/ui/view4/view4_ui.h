#ifndef VIEW4_UI_H
#define VIEW4_UI_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void view4_init(void);
void view4_entry(void);
void view4_exit(void);

ZOF_C_END

#endif
