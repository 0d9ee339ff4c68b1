// Starts the hardware of the box.
#ifndef ZOF_HW_H
#define ZOF_HW_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

void zof_hw_init(void);

ZOF_C_END

#endif
