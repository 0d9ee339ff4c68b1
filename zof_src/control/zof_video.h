// Video players, without styles. The driver owns the object, which is deleted with its parent only; see
// drv/zof_drv_video.h for states and volumes. A source is a project's file under video/, -1 unless it ends in ".mp4" or
// ".MP4"; its sound starts at once, its picture with the next state that plays.
// Graphics thread, or under dis_mutex. Functions return 0, or the driver's result; -1 without an object.
#ifndef ZOF_VIDEO_H
#define ZOF_VIDEO_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    zof_bool play_en;
    char *txt;
    u8 volume;
    u32 state;
} zof_video_attr_t;

extern const reflect_item_t zof_video_attr_t_tbl[];

s32 zof_video_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_video_set_src(zof_ctrl_t *ctrl, const char *name);
s32 zof_video_set_pos(zof_ctrl_t *ctrl, u16 x, u16 y, u16 width, u16 height);
s32 zof_video_set_volum(zof_ctrl_t *ctrl, u8 volume);
s32 zof_video_set_state(zof_ctrl_t *ctrl, u32 state);
s32 zof_video_set_one_replay(zof_ctrl_t *ctrl, zof_bool replay);
s32 zof_video_get_state(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
