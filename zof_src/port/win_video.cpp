// The video driver: a player's picture, and the device's one sound for it.

#include "drv/zof_drv_video.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

// What the driver keeps for a player; released with the object.
struct player_record {
    char *path; // of the loaded clip, or null
    u32 state;  // as requested, except that a second pause is a stop
};

static void player_gone(lv_event_t *e) {
    auto *r = (player_record *)lv_event_get_user_data(e);
    if (win_audio_src_is(r->path)) {
        zof_drv_audio_set_state(ZOF_MEDIA_STOP); // a deleted clip must not be heard either
    }
    zof_free(r->path);
    zof_free(r);
}

static lv_obj_t *win_drv_video_create(lv_obj_t *parent) {
    auto *r = (player_record *)zof_malloc(sizeof(player_record));
    lv_obj_t *player = r ? lv_ffmpeg_player_create(parent) : nullptr;
    if (!player) {
        zof_free(r);
        return nullptr;
    }
    r->state = ZOF_MEDIA_STOP;
    lv_obj_add_event_cb(player, player_gone, LV_EVENT_DELETE, r);
    return player;
}

// Returns null for anything but a player.
static player_record *record_of(lv_obj_t *player) {
    const bool is = player && lv_obj_check_type(player, &lv_ffmpeg_player_class);
    return is ? (player_record *)lv_obj_get_event_user_data(player, player_gone) : nullptr;
}

static s32 win_video_get_state(lv_obj_t *player) {
    const player_record *r = record_of(player);
    if (!r) {
        return -1;
    }
    if (lv_ffmpeg_player_runs(player)) {
        return ZOF_MEDIA_PLAY;
    }
    return r->state == ZOF_MEDIA_PAUSE ? ZOF_MEDIA_PAUSE : ZOF_MEDIA_STOP;
}

static s32 win_drv_video_set_state(lv_obj_t *player, u32 state) {
    player_record *r = record_of(player);
    if (!r) {
        return -1;
    }
    const bool again = state == ZOF_MEDIA_PAUSE && !lv_ffmpeg_player_runs(player);
    r->state = again ? (u32)ZOF_MEDIA_STOP : state;
    lv_ffmpeg_player_set_cmd(player, state);
    return zof_drv_audio_set_state(state);
}

static s32 win_drv_video_set_src(lv_obj_t *player, const char *path) {
    player_record *r = record_of(player);
    if (!r) {
        return -1;
    }
    char *copy = zof_text_copy(path);
    zof_free(r->path); // after the copy: they may be the same
    r->path = copy;
    lv_ffmpeg_player_set_src(player, copy);
    return zof_drv_audio_set_src(copy);
}

// The picture is created again at its new size, so the clip restarts too, in the state that was last requested.
static s32 win_video_set_pos(lv_obj_t *player, s32 x, s32 y, u32 width, u32 height) {
    player_record *r = record_of(player);
    if (!r || width > LV_COORD_MAX || height > LV_COORD_MAX) {
        return -1;
    }
    lv_obj_set_pos(player, (lv_coord_t)x, (lv_coord_t)y);
    lv_obj_set_size(player, (lv_coord_t)width, (lv_coord_t)height);
    if (!r->path) {
        return 0;
    }
    lv_ffmpeg_player_set_src(player, r->path);
    zof_drv_audio_set_src(r->path);
    const u32 state = r->state;
    lv_ffmpeg_player_set_cmd(player, state);
    zof_drv_audio_set_state(state);
    return 0;
}

static s32 win_video_set_one_replay(lv_obj_t *player, u32 replay) {
    if (!record_of(player)) {
        return -1;
    }
    lv_ffmpeg_player_set_auto_restart(player, replay != 0);
    return zof_drv_audio_set_one_replay(replay);
}

static s32 win_video_set_volum(lv_obj_t *, u8 volume) {
    return zof_drv_audio_set_volum(volume);
}

void win_video_init(void) {
    static const zof_drv_video_ops_t _drv_video_t = {
        .create = win_drv_video_create,
        .set_pos = win_video_set_pos,
        .set_src = win_drv_video_set_src,
        .set_state = win_drv_video_set_state,
        .get_state = win_video_get_state,
        .set_one_replay = win_video_set_one_replay,
        .set_volum = win_video_set_volum,
    };
    zof_drv_video_reg(&_drv_video_t);
}
