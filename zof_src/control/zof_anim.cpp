// Animations of a control: passes the descriptor's numbers to LVGL, and the descriptor itself as the animation's user
// data.
#include "control/zof_ctrl_in.h"

// LVGL multiplies the distance of the two values by 1024 in 32 bits.
static s32 value_to_lv(s32 value) {
    enum { FARTHEST = (1 << 20) - 1 };
    return LV_CLAMP(-FARTHEST, value, FARTHEST);
}

s32 zof_animation_set(zof_ctrl_t *ctrl, zof_anim_dsc_t *dsc) {
    if (!dsc) {
        return -1;
    }
    return zof_on(ctrl, [=](lv_obj_t *obj) {
        lv_anim_t a;
        lv_anim_init(&a);
        lv_anim_set_var(&a, obj);
        lv_anim_set_time(&a, dsc->time);
        lv_anim_set_delay(&a, dsc->delay);
        lv_anim_set_playback_time(&a, dsc->playback_time);
        lv_anim_set_playback_delay(&a, dsc->playback_delay);
        lv_anim_set_repeat_count(&a, (u16)dsc->repeat_cnt);
        lv_anim_set_repeat_delay(&a, dsc->repeat_delay);
        lv_anim_set_values(&a, value_to_lv(dsc->start_value), value_to_lv(dsc->end_value));
        lv_anim_set_exec_cb(&a, dsc->exec_cb);
        lv_anim_set_start_cb(&a, dsc->start_cb);
        lv_anim_set_ready_cb(&a, dsc->ready_cb);
        lv_anim_set_user_data(&a, dsc);
        lv_anim_path_cb_t path = zof_anim_path_get(dsc->path);
        if (path) {
            lv_anim_set_path_cb(&a, path);
        }
        lv_anim_start(&a);
    });
}

u8 zof_animation_del(zof_ctrl_t *ctrl, lv_anim_exec_xcb_t exec_cb) {
    return (u8)zof_on(ctrl, [=](lv_obj_t *obj) { return lv_anim_del(obj, exec_cb); });
}

s32 zof_animation_del_all(void) {
    lv_anim_del_all();
    return 0;
}

s32 zof_animation_count_running(void) {
    return lv_anim_count_running();
}
