#include "drv/zof_drv_video.h"

const zof_drv_video_ops_t *drv_video_t;

s32 zof_drv_video_reg(const zof_drv_video_ops_t *ops) {
    drv_video_t = ops;
    return 0;
}

lv_obj_t *zof_drv_video_create(lv_obj_t *parent) {
    return drv_video_t && drv_video_t->create ? drv_video_t->create(parent) : nullptr;
}

s32 zof_drv_video_set_pos(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height) {
    return drv_video_t && drv_video_t->set_pos ? drv_video_t->set_pos(player, x, y, width, height) : -1;
}

s32 zof_drv_video_set_src(lv_obj_t *player, const char *path) {
    return drv_video_t && drv_video_t->set_src ? drv_video_t->set_src(player, path) : -1;
}

s32 zof_drv_video_set_state(lv_obj_t *player, u32 state) {
    return drv_video_t && drv_video_t->set_state ? drv_video_t->set_state(player, state) : -1;
}

s32 zof_drv_video_get_state(lv_obj_t *player) {
    return drv_video_t && drv_video_t->get_state ? drv_video_t->get_state(player) : -1;
}

s32 zof_drv_video_set_one_replay(lv_obj_t *player, u32 replay) {
    return drv_video_t && drv_video_t->set_one_replay ? drv_video_t->set_one_replay(player, replay) : -1;
}

s32 zof_drv_video_set_volum(lv_obj_t *player, u8 volume) {
    return drv_video_t && drv_video_t->set_volum ? drv_video_t->set_volum(player, volume) : -1;
}
