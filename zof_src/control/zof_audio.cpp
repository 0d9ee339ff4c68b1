// Sound: turns names into paths; the driver does the rest.
#include "control/zof_audio.h"

#include "drv/zof_drv_audio.h"
#include "project/path/zof_res.h"

s32 zof_audio_set_src(const char *name) {
    return zof_drv_audio_set_src(zof_res_path_check(name, "sound/"));
}

s32 zof_audio_set_state(u32 state) {
    return zof_drv_audio_set_state(state);
}

s32 zof_audio_get_state(void) {
    return zof_drv_audio_get_state();
}

s32 zof_audio_set_volum(u8 volume) {
    return zof_drv_audio_set_volum(volume);
}
