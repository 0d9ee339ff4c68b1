#ifndef VIEW2_UI_H
#define VIEW2_UI_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void view2_init(void);
void view2_entry(void);
void view2_exit(void);

ZOF_C_END

#endif
