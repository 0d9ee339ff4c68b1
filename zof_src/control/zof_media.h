// Moving pictures, codes and sound: GIF, QR code, image sequence, video, and the one sound channel. They have no
// styles. Graphics thread, or under dis_mutex. Functions return 0, or the driver's result; -1 without an object of the
// kind.
#ifndef ZOF_MEDIA_H
#define ZOF_MEDIA_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// GIFs, as large as the file's pictures. A name is one of a project's images. Without a picture, for example when the
// file cannot be read, all functions do nothing and return 0.
s32 zof_gif_create(para_t *record, lv_obj_t *parent, void *attr);

// Plays from the first picture, paused or not, as often as was last asked for: by the control's file, by
// zof_gif_play_count, or by the GIF itself.
s32 zof_gif_reset_play(zof_ctrl_t *ctrl);

// Resuming a GIF that has finished does nothing.
s32 zof_gif_pause(zof_ctrl_t *ctrl);
s32 zof_gif_resume(zof_ctrl_t *ctrl);

// Plays n times from the first picture, paused or not; 0 plays forever.
s32 zof_gif_play_count(zof_ctrl_t *ctrl, u16 n);

// Shows another file, which plays at once, as often as the file says.
s32 zof_gif_set_src(zof_ctrl_t *ctrl, const char *name);

// QR codes: squares of 1 to 2047 pixels.
s32 zof_QR_code_create(para_t *record, lv_obj_t *parent, void *attr);

// Null is the empty text. Returns -1, and no code is shown, for a text that does not fit into the square.
s32 zof_qrcode_updata_data(zof_ctrl_t *ctrl, const char *text);

// Image sequences: numbered pictures of a folder, "1.png", "2.png" and so on.
s32 zof_animimg_create(para_t *record, lv_obj_t *parent, void *attr);

// Plays from the first picture, 65535 times.
s32 zof_animimg_reset_play(zof_ctrl_t *ctrl);
s32 zof_animimg_pause(zof_ctrl_t *ctrl);
s32 zof_animimg_resume(zof_ctrl_t *ctrl);

// Milliseconds for each picture.
s32 zof_animimg_set_frame_rate(zof_ctrl_t *ctrl, u32 ms);
s32 zof_animimg_set_repeat_count(zof_ctrl_t *ctrl, u16 n);
s32 zof_animimg_get_repeat_count(zof_ctrl_t *ctrl); // passes left
s32 zof_animimg_set_repeat_infinite(zof_ctrl_t *ctrl, zof_bool infinite);

// 0 playing, 1 stopped by itself, 2 paused by zof_animimg_pause.
s32 zof_animimg_get_state(zof_ctrl_t *ctrl);

// Video players. The driver owns the object, which is deleted with its parent only; see drv/zof_drv_video.h for states
// and volumes. A source is a project's file under video/, -1 unless it ends in ".mp4" or ".MP4"; its sound starts at
// once, its picture with the next state that plays.
s32 zof_video_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_video_set_src(zof_ctrl_t *ctrl, const char *name);
s32 zof_video_set_pos(zof_ctrl_t *ctrl, u16 x, u16 y, u16 width, u16 height);
s32 zof_video_set_volum(zof_ctrl_t *ctrl, u8 volume);
s32 zof_video_set_state(zof_ctrl_t *ctrl, u32 state);
s32 zof_video_set_one_replay(zof_ctrl_t *ctrl, zof_bool replay);
s32 zof_video_get_state(zof_ctrl_t *ctrl);

// Sound: a project's file under sound/ plays at once; see drv/zof_drv_audio.h.
s32 zof_audio_set_src(const char *name);
s32 zof_audio_set_state(u32 state);
s32 zof_audio_get_state(void);
s32 zof_audio_set_volum(u8 volume);

ZOF_C_END

#endif
