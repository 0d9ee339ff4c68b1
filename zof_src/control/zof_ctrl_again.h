// Internal, for tools. Graphics thread, or under dis_mutex.
#ifndef ZOF_CTRL_AGAIN_H
#define ZOF_CTRL_AGAIN_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// Reads the file of a loaded view again and creates its controls again. No function of the program is called, and the
// rows of event functions stay. Handles of its controls are invalid afterwards. Returns 0; -1 with nothing changed for
// a view that is not loaded or is being shown or left, a file that is invalid, and one with another id or layer.
s32 zof_view_again(u32 id);

ZOF_C_END

#endif
