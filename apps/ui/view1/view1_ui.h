#ifndef VIEW1_UI_H
#define VIEW1_UI_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void view1_init(void);
void view1_entry(void);
void view1_exit(void);

ZOF_C_END

#endif
