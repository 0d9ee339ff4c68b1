// The control around the image sequence.
#include "control/zof_animimg.h"

#include "control/lv_animimg.h"
#include "control/zof_ctrl_in.h"
#include "project/path/zof_res.h"

const reflect_item_t zof_animimg_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_animimg_attr_t),          CSON_TEXT(zof_animimg_attr_t, img_dsc_t),
    CSON_INT(zof_animimg_attr_t, frame_rate),   CSON_INT(zof_animimg_attr_t, repeat_open),
    CSON_INT(zof_animimg_attr_t, repeat_count), CSON_INT(zof_animimg_attr_t, start_id),
    CSON_INT(zof_animimg_attr_t, end_id),       CSON_END,
};

const zof_ctrl_class_t zof_animimg_class = {
    .type = ZOF_CTRL_ANIMIMG,
    .name = "animimg",
    .attr = zof_animimg_attr_t_tbl,
    .attr_size = sizeof(zof_animimg_attr_t),
    .create = zof_animimg_create,
};

enum { PLAYING, STOPPED, PAUSED };

static void series_set(lv_obj_t *obj, const zof_animimg_attr_t *series) {
    lv_animimg_t *anim = (lv_animimg_t *)obj;
    anim->now = series->start_id;
    anim->end = series->end_id;
    anim->repeat_open = series->repeat_open;
    lv_animimg_set_src(obj, zof_res_picture_path(series->img_dsc_t), (u32)series->end_id + 1 - series->start_id);
    lv_animimg_set_duration(obj, series->frame_rate);
    lv_animimg_set_repeat_count(obj, series->repeat_count);
}

s32 zof_animimg_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *series = (zof_animimg_attr_t *)attr;
    if (!record || !series) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_animimg_create(parent);
    if (!obj) {
        return 0;
    }
    const zof_pub_attr_t *pub = &series->pub_t;
    lv_obj_set_pos(obj, pub->pt.x, pub->pt.y);
    zof_ctrl_set_ext_click_area(obj, pub->click_area);
    zof_ctrl_set_touch(obj, pub->t_mode);
    zof_ctrl_set_hidden(obj, pub->hidden);
    zof_ctrl_set_alpha(obj, pub->alpha);
    zof_ctrl_set_scrollbar(obj, &pub->scrollbar_t);
    series->play_mark = PLAYING;
    series_set(obj, series);
    return 0;
}

static void mark_set(zof_ctrl_t *ctrl, u32 mark) {
    auto *series = zof_ctrl_attr<zof_animimg_attr_t>(ctrl, ZOF_CTRL_ANIMIMG);
    if (series) {
        series->play_mark = mark;
    }
}

s32 zof_animimg_reset_play(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_animimg_class, lv_animimg_set_restart);
}

s32 zof_animimg_pause(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) {
        lv_animimg_set_pause(obj);
        mark_set(ctrl, PAUSED);
    });
}

s32 zof_animimg_resume(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) {
        lv_animimg_set_resume(obj);
        mark_set(ctrl, PLAYING);
    });
}

s32 zof_animimg_set_frame_rate(zof_ctrl_t *ctrl, u32 ms) {
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) { lv_animimg_set_duration(obj, ms); });
}

s32 zof_animimg_set_repeat_count(zof_ctrl_t *ctrl, u16 n) {
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) { lv_animimg_set_repeat_count(obj, n); });
}

s32 zof_animimg_get_repeat_count(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_animimg_class, [](lv_obj_t *obj) { return ((lv_animimg_t *)obj)->repeat_count; });
}

s32 zof_animimg_set_repeat_infinite(zof_ctrl_t *ctrl, zof_bool infinite) {
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) { lv_animimg_set_repeat_open(obj, infinite != 0); });
}

s32 zof_animimg_get_state(zof_ctrl_t *ctrl) {
    const auto *series = zof_ctrl_attr<zof_animimg_attr_t>(ctrl, ZOF_CTRL_ANIMIMG);
    return zof_on(ctrl, &lv_animimg_class, [=](lv_obj_t *obj) {
        if (!((lv_animimg_t *)obj)->timer->paused) {
            return PLAYING;
        }
        return series && series->play_mark == PAUSED ? PAUSED : STOPPED;
    });
}
