#include "drv/zof_drv_audio.h"

const zof_drv_audio_ops_t *drv_audio_t;

s32 zof_drv_audio_reg(const zof_drv_audio_ops_t *ops) {
    drv_audio_t = ops;
    return 0;
}

s32 zof_drv_audio_set_src(const char *path) {
    return path && drv_audio_t && drv_audio_t->set_src ? drv_audio_t->set_src(path) : -1;
}

s32 zof_drv_audio_set_state(u32 state) {
    return drv_audio_t && drv_audio_t->set_state ? drv_audio_t->set_state(state) : -1;
}

s32 zof_drv_audio_get_state(void) {
    return drv_audio_t && drv_audio_t->get_state ? drv_audio_t->get_state() : -1;
}

s32 zof_drv_audio_set_volum(u8 volume) {
    return drv_audio_t && drv_audio_t->set_volum ? drv_audio_t->set_volum(volume) : 0;
}

s32 zof_drv_audio_set_one_replay(u32 replay) {
    return drv_audio_t && drv_audio_t->set_one_replay ? drv_audio_t->set_one_replay(replay) : -1;
}
