// GIFs, as large as the file's pictures, without styles. A name is one of a project's images. Without a picture, for
// example when the file cannot be read, all functions do nothing and return 0.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 without an object of the kind.
#ifndef ZOF_GIF_H
#define ZOF_GIF_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    char *init_gif;
    zof_bool play_en;
    u16 num;
    u16 plays; // no key: number of plays after a restart, 0 for endless
} zof_gif_attr_t;

extern const reflect_item_t zof_gif_attr_t_tbl[];

s32 zof_gif_create(para_t *record, lv_obj_t *parent, void *attr);

// Plays from the first picture, paused or not, as often as was last asked for: by the control's file, by
// zof_gif_play_count, or by the GIF itself.
s32 zof_gif_reset_play(zof_ctrl_t *ctrl);

// Resuming a GIF that has finished does nothing.
s32 zof_gif_pause(zof_ctrl_t *ctrl);
s32 zof_gif_resume(zof_ctrl_t *ctrl); // goes on after a pause

// Plays n times from the first picture, paused or not; 0 plays forever.
s32 zof_gif_play_count(zof_ctrl_t *ctrl, u16 n);

// Shows another file, which plays at once, as often as the file says.
s32 zof_gif_set_src(zof_ctrl_t *ctrl, const char *name);

ZOF_C_END

#endif
