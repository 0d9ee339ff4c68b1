// Sound files: one sound at a time, for the whole device. Graphics thread.
#ifndef ZOF_DRV_AUDIO_H
#define ZOF_DRV_AUDIO_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// States to set. Only the first three are ever returned.
enum { ZOF_MEDIA_PLAY = 0, ZOF_MEDIA_STOP = 1, ZOF_MEDIA_PAUSE = 2, ZOF_MEDIA_RESUME = 3 };

typedef struct {
    s32 (*set_src)(const char *path);  // MANDATORY: a real path; starts playing it. 0, or -1 for an unusable path
    s32 (*set_state)(u32 state);       // MANDATORY: ZOF_MEDIA_*; 0, also before the first source; -1 for others
    s32 (*get_state)(void);            // MANDATORY
    s32 (*set_volum)(u8 volume);       // OPTIONAL: 128 is the file's own, 0 silent
    s32 (*set_one_replay)(u32 replay); // OPTIONAL: not 0: starts again at the end
} zof_drv_audio_ops_t;

extern const zof_drv_audio_ops_t *drv_audio_t;

// Publishes the table, which must stay valid; null removes the sound. Returns 0.
s32 zof_drv_audio_reg(const zof_drv_audio_ops_t *ops);

// Returns the operation's result; without one -1, and 0 for the volume. A null path returns -1 too.
s32 zof_drv_audio_set_src(const char *path);
s32 zof_drv_audio_set_state(u32 state);
s32 zof_drv_audio_get_state(void);
s32 zof_drv_audio_set_volum(u8 volume);
s32 zof_drv_audio_set_one_replay(u32 replay);

ZOF_C_END

#endif
