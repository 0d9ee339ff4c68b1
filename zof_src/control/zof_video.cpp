// Video players: turns names into paths; the driver does the rest.
#include "control/zof_video.h"

#include <string.h>

#include "control/zof_ctrl_in.h"
#include "drv/zof_drv_audio.h"
#include "drv/zof_drv_video.h"
#include "project/path/zof_res.h"

static const zof_name_t state_names[] = {{"play", ZOF_MEDIA_PLAY},
                                         {"stop", ZOF_MEDIA_STOP},
                                         {"pause", ZOF_MEDIA_PAUSE},
                                         {"resume", ZOF_MEDIA_RESUME},
                                         ZOF_NAMES_END};

const reflect_item_t zof_video_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_video_attr_t),
    CSON_BOOL(zof_video_attr_t, play_en),
    CSON_TEXT(zof_video_attr_t, txt),
    CSON_INT(zof_video_attr_t, volume),
    CSON_ENUM(zof_video_attr_t, state, ZOF_MEDIA_RESUME + 1, state_names),
    CSON_END,
};

const zof_ctrl_class_t zof_video_class = {
    .type = ZOF_CTRL_VIDEO,
    .name = "video",
    .attr = zof_video_attr_t_tbl,
    .attr_size = sizeof(zof_video_attr_t),
    .create = zof_video_create,
    .driver_object = ZOF_TRUE,
};

// The attributes keep what was asked for, except that a pause while nothing plays is a stop.
static s32 state_set(zof_video_attr_t *video, lv_obj_t *obj, u32 state) {
    const bool idle = zof_drv_video_get_state(obj) != ZOF_MEDIA_PLAY;
    if (video) {
        video->state = state == ZOF_MEDIA_PAUSE && idle ? (u32)ZOF_MEDIA_STOP : state;
    }
    return zof_drv_video_set_state(obj, state);
}

s32 zof_video_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *video = (zof_video_attr_t *)attr;
    if (!record || !video) {
        return -1;
    }
    lv_obj_t *obj = record->obj = zof_drv_video_create(parent);
    if (!obj) {
        return -1;
    }
    const zof_pub_attr_t *pub = &video->pub_t;
    memset(&obj->coords, 0, sizeof(obj->coords));
    lv_obj_set_user_data(obj, record);
    zof_drv_video_set_pos(obj, pub->pt.x, pub->pt.y, (u32)pub->size.width, (u32)pub->size.height);
    zof_drv_video_set_volum(obj, video->volume);
    state_set(video, obj, video->state);
    zof_drv_video_set_one_replay(obj, video->play_en);
    return 0;
}

s32 zof_video_set_src(zof_ctrl_t *ctrl, const char *name) {
    if (!IsMp4File(name)) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) { return zof_drv_video_set_src(obj, zof_res_path_check(name, "video/")); });
}

s32 zof_video_set_pos(zof_ctrl_t *ctrl, u16 x, u16 y, u16 width, u16 height) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { return zof_drv_video_set_pos(obj, x, y, width, height); });
}

s32 zof_video_set_volum(zof_ctrl_t *ctrl, u8 volume) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { return zof_drv_video_set_volum(obj, volume); });
}

s32 zof_video_set_state(zof_ctrl_t *ctrl, u32 state) {
    auto *video = zof_ctrl_attr<zof_video_attr_t>(ctrl, ZOF_CTRL_VIDEO);
    return zof_on(ctrl, [=](lv_obj_t *obj) { return state_set(video, obj, state); });
}

s32 zof_video_set_one_replay(zof_ctrl_t *ctrl, zof_bool replay) {
    return zof_on(ctrl, [=](lv_obj_t *obj) { return zof_drv_video_set_one_replay(obj, replay); });
}

s32 zof_video_get_state(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, zof_drv_video_get_state);
}
