// Video players: objects on the screen, created and owned by the driver. Graphics thread.
#ifndef ZOF_DRV_VIDEO_H
#define ZOF_DRV_VIDEO_H

#include "drv/zof_drv_audio.h"
#include "lvgl.h"

ZOF_C_BEGIN

typedef struct {
    lv_obj_t *(*create)(lv_obj_t *parent); // MANDATORY: null without memory; deleted with its parent
    // MANDATORY: the position in the parent and the size of the picture, to which the clip is scaled; loads it again.
    s32 (*set_pos)(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height);
    s32 (*set_src)(lv_obj_t *player, const char *path);  // MANDATORY: a real path; its sound starts at once
    s32 (*set_state)(lv_obj_t *player, u32 state);       // MANDATORY: ZOF_MEDIA_*, picture and sound
    s32 (*get_state)(lv_obj_t *player);                  // MANDATORY: ZOF_MEDIA_PLAY, STOP or PAUSE
    s32 (*set_one_replay)(lv_obj_t *player, u32 replay); // OPTIONAL: not 0: starts again at the end
    s32 (*set_volum)(lv_obj_t *player, u8 volume);       // OPTIONAL: as for sound
} zof_drv_video_ops_t;

extern const zof_drv_video_ops_t *drv_video_t;

// Publishes the table, which stays the port's; null removes video. Returns 0.
s32 zof_drv_video_reg(const zof_drv_video_ops_t *ops);

// Returns the operation's result; -1 without one, and for anything but a player, except for the volume, which is the
// device's. Create returns null in these cases.
lv_obj_t *zof_drv_video_create(lv_obj_t *parent);
s32 zof_drv_video_set_pos(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height);
s32 zof_drv_video_set_src(lv_obj_t *player, const char *path);
s32 zof_drv_video_set_state(lv_obj_t *player, u32 state);
s32 zof_drv_video_get_state(lv_obj_t *player);
s32 zof_drv_video_set_one_replay(lv_obj_t *player, u32 replay);
s32 zof_drv_video_set_volum(lv_obj_t *player, u8 volume);

ZOF_C_END

#endif
