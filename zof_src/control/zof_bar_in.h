// What a slider shares with a bar. Internal.
#ifndef ZOF_BAR_IN_H
#define ZOF_BAR_IN_H

#include "control/zof_bar.h"
#include "control/zof_ctrl_in.h"

// Ends the animation of a value that slides.
void zof_bar_slide_end(lv_obj_t *obj);

// Sets up a bar or slider that has just been created: common attributes, range, animation time in milliseconds, styles.
// Returns 0, or -1 without an object.
s32 zof_bar_set_up(para_t *record, zof_pub_attr_t *pub, s32 min, s32 max, u32 anim_time);

// The setters of both. They report an unusable handle in the name of the public function.
s32 zof_bar_color_apply(zof_ctrl_t *ctrl, zof_color_t color, ZOF_CALLER);
s32 zof_bar_value_apply(zof_ctrl_t *ctrl, s16 value, ZOF_CALLER);
s32 zof_bar_range_apply(zof_ctrl_t *ctrl, s16 min, s16 max, ZOF_CALLER);

#endif
