// What is common to every control: record, registry, event bridge, common operations, animation, deletion.
// All of it belongs to the graphics thread, or to a caller that holds dis_mutex.
#ifndef ZOF_CTRL_H
#define ZOF_CTRL_H

#include "project/zof_ctrl_attr.h"
#include "project/zof_para.h"
#include "project/zof_view.h"

ZOF_C_BEGIN

typedef struct {
    u32 time, delay, playback_time, playback_delay;
    u32 repeat_cnt; // 16 bits used
    u32 repeat_delay;
    s32 start_value, end_value;
    lv_anim_exec_xcb_t exec_cb;
    lv_anim_start_cb_t start_cb;
    lv_anim_ready_cb_t ready_cb;
    zof_anim_path_e path;
} zof_anim_dsc_t;

typedef void (*zof_all_event_fn)(u32 view_id, u32 ctrl_id, u8 event);

db_list *zof_ctrl_list_init(void);
s32 zof_ctrl_list_search_compare(void *record, void *key);
para_t *zof_ctrl_get_form_id(u32 view_id, u32 ctrl_id);
void *zof_ctrl_get_attr_from_ctrl(zof_ctrl_t *ctrl);
s32 zof_ctrl_get_id_form_ctrl(zof_ctrl_t *ctrl);

void zof_event_cb_t(lv_event_t *e);
u8 zof_event_send(zof_ctrl_t *ctrl, u32 code, void *param);
void zof_ctrl_set_event_all(zof_all_event_fn fn);

s32 zof_ctrl_set_pos(zof_ctrl_t *ctrl, s32 x, s32 y);
s32 zof_ctrl_set_x(zof_ctrl_t *ctrl, s32 x);
s32 zof_ctrl_set_y(zof_ctrl_t *ctrl, s32 y);
s32 zof_ctrl_get_x(zof_ctrl_t *ctrl);
s32 zof_ctrl_get_y(zof_ctrl_t *ctrl);
s32 zof_ctrl_set_size(zof_ctrl_t *ctrl, s32 width, s32 height);
s32 zof_ctrl_get_width(zof_ctrl_t *ctrl);
s32 zof_ctrl_get_height(zof_ctrl_t *ctrl);
s32 zof_ctrl_set_hidden(zof_ctrl_t *ctrl, zof_bool hidden);
s32 zof_ctrl_get_hidden(zof_ctrl_t *ctrl);
s32 zof_ctrl_set_alpha(zof_ctrl_t *ctrl, u8 alpha);
s32 zof_ctrl_set_touch(zof_ctrl_t *ctrl, u32 touch);
s32 zof_ctrl_set_ext_click_area(zof_ctrl_t *ctrl, s32 pixels);
s32 zof_ctrl_set_align(zof_ctrl_t *ctrl, zof_ctrl_t *base, u32 align, s32 x, s32 y);
s32 zof_ctrl_move_forground(zof_ctrl_t *ctrl);
s32 zof_ctrl_move_background(zof_ctrl_t *ctrl);
s32 zof_ctrl_set_scrollbar(zof_ctrl_t *ctrl, const zof_scrollbar_t *sb);
s32 zof_ctrl_get_child_sum(zof_ctrl_t *ctrl);
zof_ctrl_t *zof_ctrl_get_child(zof_ctrl_t *ctrl, s32 index);
s32 zof_ctrl_get_coords(zof_ctrl_t *ctrl, lv_area_t *area);
s32 zof_ctrl_set_scroll_dir_x(zof_ctrl_t *ctrl, u32 snap);
s32 zof_ctrl_set_scroll_dir_y(zof_ctrl_t *ctrl, u32 snap);
s32 zof_ctrl_set_scroll_dir(zof_ctrl_t *ctrl, u32 dir);
s32 zof_ctrl_scroll_view(zof_ctrl_t *ctrl, u32 animate);
s32 zof_ctrl_scroll_set(zof_ctrl_t *ctrl, s32 x, s32 y, u32 animate);
s32 zof_ctrl_scroll_get_x(zof_ctrl_t *ctrl);
s32 zof_ctrl_scroll_get_y(zof_ctrl_t *ctrl);
s32 zof_ctrl_child_not_scroll(zof_ctrl_t *ctrl);
s32 zof_ctrl_child_get_scroll(zof_ctrl_t *ctrl);
s32 zof_ctrl_update_location(zof_ctrl_t *ctrl);
s32 zof_ctrl_force_refresh(zof_ctrl_t *ctrl);
s32 zof_ctrl_rotate_angel(zof_ctrl_t *ctrl, s32 x, s32 y, u16 angle);
s32 zof_ctrl_translate_x(zof_ctrl_t *ctrl, s32 x);
s32 zof_ctrl_translate_y(zof_ctrl_t *ctrl, s32 y);
s32 zof_ctrl_zoom_set(zof_ctrl_t *ctrl, u32 zoom);
s32 zof_ctrl_zoom_pivot(zof_ctrl_t *ctrl, s32 x, s32 y);
s32 zof_ctrl_state_judge(zof_ctrl_t *ctrl, u32 state);
s32 zof_ctrl_add_state(zof_ctrl_t *ctrl, u32 state);
s32 zof_ctrl_clear_state(zof_ctrl_t *ctrl, u32 state);
s32 zof_ctrl_get_state(zof_ctrl_t *ctrl);
s32 zof_ctrl_set_child_clip_corner(zof_ctrl_t *ctrl, zof_bool clip);
s32 zof_ctrl_set_gesture_bubble(zof_ctrl_t *ctrl, zof_bool bubble);
s32 zof_ctrl_gesture_check(zof_ctrl_t *ctrl);

s32 zof_square_root(u32 x, lv_sqrt_res_t *result);
s32 zof_map_relation(s32 x, s32 min_in, s32 max_in, s32 min_out, s32 max_out);

s32 zof_animation_set(zof_ctrl_t *ctrl, zof_anim_dsc_t *dsc);
u8 zof_animation_del(zof_ctrl_t *ctrl, lv_anim_exec_xcb_t exec_cb);
s32 zof_animation_del_all(void);
s32 zof_animation_count_running(void);

s32 zof_ctrl_delete(para_t *record);
s32 zof_ctrl_del(u32 view_id, u32 ctrl_id);
void zof_ctrl_obj_del(para_t *record);

ZOF_C_END

#endif
