// Image sequences: numbered pictures of a folder, "1.png", "2.png" and so on, without styles.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_ANIMIMG_H
#define ZOF_ANIMIMG_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *img_dsc_t;
    u32 frame_rate;
    u8 repeat_open;
    u16 repeat_count;
    u16 start_id;
    u16 end_id;
    u32 play_mark; // no key: 2 while paused by the program, else 0
} zof_animimg_attr_t;

extern const reflect_item_t zof_animimg_attr_t_tbl[];

s32 zof_animimg_create(para_t *record, lv_obj_t *parent, void *attr);

// Plays from the first picture, 65535 times.
s32 zof_animimg_reset_play(zof_ctrl_t *ctrl);
s32 zof_animimg_pause(zof_ctrl_t *ctrl);  // stops at the current picture
s32 zof_animimg_resume(zof_ctrl_t *ctrl); // goes on

// Milliseconds for each picture.
s32 zof_animimg_set_frame_rate(zof_ctrl_t *ctrl, u32 ms);
s32 zof_animimg_set_repeat_count(zof_ctrl_t *ctrl, u16 n);                // number of times
s32 zof_animimg_get_repeat_count(zof_ctrl_t *ctrl);                       // passes left
s32 zof_animimg_set_repeat_infinite(zof_ctrl_t *ctrl, zof_bool infinite); // repeats without end, or not

// 0 playing, 1 stopped by itself, 2 paused by zof_animimg_pause.
s32 zof_animimg_get_state(zof_ctrl_t *ctrl);

ZOF_C_END

#endif
