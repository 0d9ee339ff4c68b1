// The one sound channel: a project's file under sound/ plays at once; see drv/zof_drv_audio.h.
// Graphics thread, or under dis_mutex. Functions return the driver's result.
#ifndef ZOF_AUDIO_H
#define ZOF_AUDIO_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

s32 zof_audio_set_src(const char *name); // plays a sound
s32 zof_audio_set_state(u32 state);
s32 zof_audio_get_state(void);
s32 zof_audio_set_volum(u8 volume);

ZOF_C_END

#endif
