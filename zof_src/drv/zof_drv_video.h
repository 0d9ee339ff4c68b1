// Video players: objects on the screen, made by the driver and owned by it. Graphics thread.
#ifndef ZOF_DRV_VIDEO_H
#define ZOF_DRV_VIDEO_H

#include "drv/zof_drv_audio.h"
#include "lvgl.h"

ZOF_C_BEGIN

typedef struct {
    lv_obj_t *(*create)(lv_obj_t *parent); // MANDATORY: null without memory; goes with its parent
    // MANDATORY: the place in the parent and the size of the picture, to which the clip is scaled; loads it again.
    s32 (*set_pos)(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height);
    s32 (*set_src)(lv_obj_t *player, const char *path);  // MANDATORY: a real path; its sound starts with it
    s32 (*set_state)(lv_obj_t *player, u32 state);       // MANDATORY: ZOF_MEDIA_*, picture and sound
    s32 (*get_state)(lv_obj_t *player);                  // MANDATORY: ZOF_MEDIA_PLAY, STOP or PAUSE
    s32 (*set_one_replay)(lv_obj_t *player, u32 replay); // OPTIONAL: not 0: from the end on to the start again
    s32 (*set_volum)(lv_obj_t *player, u8 volume);       // OPTIONAL: as for sound
} zof_drv_video_ops_t;

extern const zof_drv_video_ops_t *drv_video_t;

// Publishes the table, which stays the port's; null removes video. Returns 0.
s32 zof_drv_video_reg(const zof_drv_video_ops_t *ops);

// The operation's result; -1 without one, and for what is not a player, except for the volume, which is the device's.
// Create returns null then.
lv_obj_t *zof_drv_video_create(lv_obj_t *parent);
s32 zof_drv_video_set_pos(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height);
s32 zof_drv_video_set_src(lv_obj_t *player, const char *path);
s32 zof_drv_video_set_state(lv_obj_t *player, u32 state);
s32 zof_drv_video_get_state(lv_obj_t *player);
s32 zof_drv_video_set_one_replay(lv_obj_t *player, u32 replay);
s32 zof_drv_video_set_volum(lv_obj_t *player, u8 volume);

ZOF_C_END

#endif
