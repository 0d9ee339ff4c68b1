// Sound files: one sound at a time, for the whole device. Graphics thread.
#ifndef ZOF_DRV_AUDIO_H
#define ZOF_DRV_AUDIO_H

#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// What sound and video are asked for. Read back, only the first three.
enum { ZOF_MEDIA_PLAY = 0, ZOF_MEDIA_STOP = 1, ZOF_MEDIA_PAUSE = 2, ZOF_MEDIA_RESUME = 3 };

typedef struct {
    s32 (*set_src)(const char *path);  // MANDATORY: a real path; starts playing it. 0, or -1 for a path it cannot take
    s32 (*set_state)(u32 state);       // MANDATORY: ZOF_MEDIA_*; 0, also before the first source; -1 for others
    s32 (*get_state)(void);            // MANDATORY
    s32 (*set_volum)(u8 volume);       // OPTIONAL: 128 is the file's own, 0 silent
    s32 (*set_one_replay)(u32 replay); // OPTIONAL: not 0: from the end on to the start again
} zof_drv_audio_ops_t;

extern const zof_drv_audio_ops_t *drv_audio_t;

// Publishes the table, which lives on; null takes the sound away. 0.
s32 zof_drv_audio_reg(const zof_drv_audio_ops_t *ops);

// The operation's result; without one -1, and 0 for the volume. A null path is -1 too.
s32 zof_drv_audio_set_src(const char *path);
s32 zof_drv_audio_set_state(u32 state);
s32 zof_drv_audio_get_state(void);
s32 zof_drv_audio_set_volum(u8 volume);
s32 zof_drv_audio_set_one_replay(u32 replay);

ZOF_C_END

#endif
