// A project without a program: all views of the project file, which a host and the actions in their files drive.
#ifndef ZOF_PLAIN_H
#define ZOF_PLAIN_H

#include "project/base/zof_prj_cur.h"

ZOF_C_BEGIN

// Registers all views of the current project and shows the first one, as zof_prj_create does for a program. Each
// control calls `event`; null for none. Graphics thread, once. Returns 0, or -1 without a project or its views.
s32 zof_plain_create(zof_ctrl_event_fn event);

ZOF_C_END

#endif
