// GIFs. The decoder counts its loop count down and so loses it; how often a GIF plays is kept here, and so is what its
// timer does at the end.
#include "control/zof_gif.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_picture.h"
#include "project/path/zof_res.h"

const reflect_item_t zof_gif_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_gif_attr_t),
    CSON_TEXT(zof_gif_attr_t, init_gif),
    CSON_BOOL(zof_gif_attr_t, play_en),
    CSON_INT(zof_gif_attr_t, num),
    CSON_END,
};

const zof_ctrl_class_t zof_gif_class = {
    .type = ZOF_CTRL_GIF,
    .name = "gif",
    .attr = zof_gif_attr_t_tbl,
    .attr_size = sizeof(zof_gif_attr_t),
    .create = zof_gif_create,
    .no_theme = ZOF_TRUE,
};

// Runs `fn` on the decoder and timer of a GIF that has a picture. Without one there is nothing to do.
template <typename F> static s32 on_gif(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    const auto run = [&](lv_obj_t *obj) {
        lv_gif_t *gif = (lv_gif_t *)obj;
        if (gif->gif) {
            fn(gif);
        }
        return 0;
    };
    return zof_on(ctrl, &lv_gif_class, run, function, site);
}

// 0 plays forever, as in the decoder. The decoder reads a file's count only once, so this replaces it.
static void plays_set(lv_gif_t *gif, u16 plays) {
    gif->gif->loop_count = plays;
    gif->gif->loop_known = 1;
}

static void rewind_and_play(lv_gif_t *gif) {
    lv_gif_restart(&gif->img.obj);
    gif->gif->gce.delay = 0; // show the first picture now, not after the current one's delay
    lv_timer_resume(gif->timer);
    lv_timer_reset(gif->timer);
}

static void event_played_out(lv_event_t *e) {
    lv_gif_t *gif = (lv_gif_t *)lv_event_get_current_target(e);
    lv_timer_pause(gif->timer);
}

// Takes the count of a source that has just been set as the control's.
static void src_set(lv_obj_t *obj, const char *name) {
    const char *path = zof_res_picture_path(name);
    lv_gif_t *gif = (lv_gif_t *)obj;
    lv_gif_set_src(obj, path);
    if (!gif->gif) {
        zof_img_missing(path);
        return;
    }
    zof_gif_attr_t *attr = zof_ctrl_attr<zof_gif_attr_t>(obj, ZOF_CTRL_GIF);
    if (attr) {
        attr->plays = gif->gif->loop_count;
    }
}

s32 zof_gif_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *own = (zof_gif_attr_t *)attr;
    if (!record || !own) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_gif_create(parent);
    if (!obj) {
        return -1;
    }
    lv_obj_add_event_cb(obj, event_played_out, LV_EVENT_READY, nullptr);
    src_set(obj, own->init_gif);
    lv_obj_set_pos(obj, own->pub_t.pt.x, own->pub_t.pt.y);
    zof_ctrl_set_hidden(obj, own->pub_t.hidden);
    zof_obj_flag_set(obj, LV_OBJ_FLAG_CLICKABLE, own->pub_t.t_mode != 0);
    return on_gif(obj, [&](lv_gif_t *gif) {
        own->plays = own->num ? own->num : gif->gif->loop_count;
        plays_set(gif, own->plays);
        if (!own->play_en) {
            lv_timer_pause(gif->timer);
        }
    });
}

s32 zof_gif_reset_play(zof_ctrl_t *ctrl) {
    const auto *attr = zof_ctrl_attr<zof_gif_attr_t>(ctrl, ZOF_CTRL_GIF);
    return on_gif(ctrl, [=](lv_gif_t *gif) {
        if (attr) {
            plays_set(gif, attr->plays);
        }
        rewind_and_play(gif);
    });
}

s32 zof_gif_pause(zof_ctrl_t *ctrl) {
    return on_gif(ctrl, [](lv_gif_t *gif) { lv_timer_pause(gif->timer); });
}

s32 zof_gif_resume(zof_ctrl_t *ctrl) {
    return on_gif(ctrl, [](lv_gif_t *gif) { lv_timer_resume(gif->timer); });
}

s32 zof_gif_play_count(zof_ctrl_t *ctrl, u16 n) {
    auto *attr = zof_ctrl_attr<zof_gif_attr_t>(ctrl, ZOF_CTRL_GIF);
    return on_gif(ctrl, [=](lv_gif_t *gif) {
        if (attr) {
            attr->plays = n;
        }
        plays_set(gif, n);
        rewind_and_play(gif);
    });
}

s32 zof_gif_set_src(zof_ctrl_t *ctrl, const char *name) {
    return zof_on(ctrl, &lv_gif_class, [=](lv_obj_t *obj) { src_set(obj, name); });
}
