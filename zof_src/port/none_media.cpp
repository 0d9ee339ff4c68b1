// Clips and compressed sounds in a build without FFmpeg: players stay empty, sounds silent, and the log names each file
// once. WAV files, tones and pictures do not need FFmpeg.
#include <mutex>

#include "drv/zof_drv_media.h"
#include "port/win_sound.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

static void report(const char *path) {
    static zof_seen_t reported;
    static std::mutex lock; // the thread of the sound reports, too
    const std::lock_guard<std::mutex> guard(lock);
    if (zof_seen_add(&reported, path)) {
        zof_printf("media %s: clips and compressed sounds are not built in", path);
    }
}

int mythread_others(void *) {
    report(sound.audio_file);
    sound.play_state = 0;
    return 0;
}

const char *zof_media_fault(const char *path) {
    return zof_suffix_is(path, ".wav") ? sound_wav_fault(path) : nullptr;
}

zof_bool zof_media_built_in(const char *path) {
    return !zof_suffix_is(path, ".mp4") && !zof_suffix_is(path, ".mp3") && !zof_suffix_is(path, ".aac");
}

u32 zof_media_ffmpeg(void) {
    return ZOF_FFMPEG_NOT_BUILT_IN;
}

const lv_obj_class_t lv_ffmpeg_player_class = {
    .base_class = &lv_img_class,
    .instance_size = sizeof(lv_img_t),
};

lv_obj_t *lv_ffmpeg_player_create(lv_obj_t *parent) {
    lv_obj_t *obj = lv_obj_class_create_obj(&lv_ffmpeg_player_class, parent);
    if (obj) {
        lv_obj_class_init_obj(obj);
    }
    return obj;
}

u32 lv_ffmpeg_player_set_src(lv_obj_t *, const char *path) {
    if (path && *path) {
        report(path);
    }
    return 0;
}

void lv_ffmpeg_player_set_cmd(lv_obj_t *, u32) {
}

void lv_ffmpeg_player_set_auto_restart(lv_obj_t *, zof_bool) {
}

zof_bool lv_ffmpeg_player_runs(lv_obj_t *) {
    return ZOF_FALSE;
}

s32 lv_ffmpeg_get_frame_num(const char *) {
    return -1;
}
