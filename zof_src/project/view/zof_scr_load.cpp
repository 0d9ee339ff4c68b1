// Screen transitions. LVGL's own have different numbers, no path and no zoom, and an interrupted one leaves the old
// screen drawn and the input off forever. Here an interrupted transition always reaches its end state.
#include <initializer_list>

#include "project/view/zof_view.h"

enum scr_move : u8 { STAY, MOVE_X, MOVE_Y, FADE, ZOOM };

// `from` and `to` in whole screens for MOVE_X and MOVE_Y, in 0 (nothing) and 1 (full) for FADE and ZOOM.
struct scr_side {
    scr_move move;
    s8 from, to;
};

struct scr_row {
    zof_scr_load_anim_t transition;
    scr_side in, out;
    bool out_over; // the outgoing screen is drawn over the incoming one
    bool out_hide; // the outgoing screen disappears when the animation starts
};

static constexpr scr_row rows[] = {
    {ZOF_SCR_LOAD_ANIM_NONE, {MOVE_X, 0, 0}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_OVER_LEFT, {MOVE_X, 1, 0}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_OVER_RIGHT, {MOVE_X, -1, 0}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_OVER_TOP, {MOVE_Y, 1, 0}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_OVER_BOTTOM, {MOVE_Y, -1, 0}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_MOVE_LEFT, {MOVE_X, 1, 0}, {MOVE_X, 0, -1}},
    {ZOF_SCR_LOAD_ANIM_MOVE_RIGHT, {MOVE_X, -1, 0}, {MOVE_X, 0, 1}},
    {ZOF_SCR_LOAD_ANIM_MOVE_TOP, {MOVE_Y, 1, 0}, {MOVE_Y, 0, -1}},
    {ZOF_SCR_LOAD_ANIM_MOVE_BOTTOM, {MOVE_Y, -1, 0}, {MOVE_Y, 0, 1}},
    {ZOF_SCR_LOAD_ANIM_FADE_IN, {FADE, 0, 1}, {STAY}, false, true},
    {ZOF_SCR_LOAD_ANIM_FADE_ON, {FADE, 0, 1}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_FADE_OUT, {STAY}, {FADE, 1, 0}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_LEFT, {STAY}, {MOVE_X, 0, -1}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_RIGHT, {STAY}, {MOVE_X, 0, 1}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_TOP, {STAY}, {MOVE_Y, 0, -1}, true},
    {ZOF_SCR_LOAD_ANIM_OUT_BOTTOM, {STAY}, {MOVE_Y, 0, 1}, true},
    {ZOF_SCR_LOAD_ANIM_IN_ZOOM, {ZOOM, 0, 1}, {STAY}},
    {ZOF_SCR_LOAD_ANIM_IN_ZOOM_WITH_BG, {ZOOM, 0, 1}, {STAY}, false, true},
    {ZOF_SCR_LOAD_ANIM_OUT_ZOOM, {STAY}, {ZOOM, 1, 0}, true},
};
static_assert(sizeof(rows) / sizeof(rows[0]) == ZOF_SCR_LOAD_ANIM_COUNT);

// A screen of the running transition, and its original opacity.
struct scr_saved {
    lv_obj_t *obj;
    bool has_opa;
    lv_style_value_t opa;
};

// The waiting or running transition; there is only one at a time.
static struct {
    bool active;
    bool started; // false while the delay lasts
    const scr_row *row;
    scr_saved in, out;
    bool pivot_known; // the zoom's fixed point is read once and kept until the end
    lv_point_t pivot;
} tr;

lv_anim_path_cb_t zof_anim_path_get(u32 path) {
    static constexpr lv_anim_path_cb_t paths[] = {
        nullptr,
        lv_anim_path_linear,
        lv_anim_path_ease_in,
        lv_anim_path_ease_out,
        lv_anim_path_ease_in_out,
        lv_anim_path_bounce,
        lv_anim_path_step,
        lv_anim_path_overshoot,
    };
    static_assert(sizeof(paths) / sizeof(paths[0]) == ZOF_ANIM_PATH_COUNT);
    return path < ZOF_ANIM_PATH_COUNT ? paths[path] : nullptr;
}

static scr_saved scr_save(lv_obj_t *obj) {
    scr_saved saved = {obj, false, {}};
    saved.has_opa = lv_obj_get_local_style_prop(obj, LV_STYLE_OPA, &saved.opa, LV_PART_MAIN) == LV_RES_OK;
    return saved;
}

static void scr_restore(const scr_saved *saved) {
    lv_obj_t *obj = saved->obj;
    lv_obj_set_pos(obj, 0, 0);
    if (saved->has_opa) {
        lv_obj_set_local_style_prop(obj, LV_STYLE_OPA, saved->opa, LV_PART_MAIN);
    } else {
        lv_obj_remove_local_style_prop(obj, LV_STYLE_OPA, LV_PART_MAIN);
    }
    lv_obj_remove_local_style_prop(obj, LV_STYLE_TRANSFORM_ZOOM, LV_PART_MAIN);
    lv_obj_remove_local_style_prop(obj, LV_STYLE_TRANSFORM_PIVOT_X, LV_PART_MAIN);
    lv_obj_remove_local_style_prop(obj, LV_STYLE_TRANSFORM_PIVOT_Y, LV_PART_MAIN);
    lv_obj_update_layout(obj); // LVGL does not lay out a hidden screen by itself
}

static void move_x(void *obj, s32 v) {
    lv_obj_set_x((lv_obj_t *)obj, v);
}

static void move_y(void *obj, s32 v) {
    lv_obj_set_y((lv_obj_t *)obj, v);
}

// Paths that overshoot temporarily leave the range.
static void fade(void *obj, s32 v) {
    lv_obj_set_style_opa((lv_obj_t *)obj, (lv_opa_t)LV_CLAMP(LV_OPA_TRANSP, v, LV_OPA_COVER), LV_PART_MAIN);
}

// Outside an input event there is no active device; use the last touch point.
static void pivot_find() {
    if (tr.pivot_known) {
        return;
    }
    tr.pivot_known = true;
    lv_indev_t *indev = lv_indev_get_act() ? lv_indev_get_act() : lv_indev_get_next(nullptr);
    tr.pivot = {0, 0};
    if (indev) {
        lv_indev_get_point(indev, &tr.pivot);
    }
}

static void zoom(void *obj, s32 v) {
    pivot_find();
    lv_obj_set_style_transform_pivot_x((lv_obj_t *)obj, tr.pivot.x, LV_PART_MAIN);
    lv_obj_set_style_transform_pivot_y((lv_obj_t *)obj, tr.pivot.y, LV_PART_MAIN);
    lv_obj_set_style_transform_zoom((lv_obj_t *)obj, (s16)LV_CLAMP(1, v, 1024), LV_PART_MAIN);
}

static s32 side_value(lv_disp_t *disp, scr_move move, s8 at) {
    switch (move) {
    case MOVE_X:
        return at * lv_disp_get_hor_res(disp);
    case MOVE_Y:
        return at * lv_disp_get_ver_res(disp);
    case FADE:
        return at ? LV_OPA_COVER : LV_OPA_TRANSP;
    case ZOOM:
        return at ? LV_IMG_ZOOM_NONE : 1;
    default:
        return 0;
    }
}

static lv_anim_t side_anim(lv_disp_t *disp, lv_obj_t *obj, const scr_side *side) {
    static constexpr lv_anim_exec_xcb_t exec[] = {nullptr, move_x, move_y, fade, zoom};
    lv_anim_t a;
    lv_anim_init(&a);
    lv_anim_set_var(&a, obj);
    lv_anim_set_exec_cb(&a, exec[side->move]);
    lv_anim_set_values(&a, side_value(disp, side->move, side->from), side_value(disp, side->move, side->to));
    return a;
}

static void load_now(lv_disp_t *disp, lv_obj_t *scr) {
    lv_obj_t *old = disp->act_scr;
    lv_event_send(old, LV_EVENT_SCREEN_UNLOAD_START, nullptr);
    lv_event_send(scr, LV_EVENT_SCREEN_LOAD_START, nullptr);
    disp->act_scr = scr;
    lv_obj_invalidate(scr);
    lv_event_send(scr, LV_EVENT_SCREEN_LOADED, nullptr);
    lv_event_send(old, LV_EVENT_SCREEN_UNLOADED, nullptr);
}

static void tr_start(lv_anim_t *) {
    lv_disp_t *disp = lv_obj_get_disp(tr.in.obj);
    tr.started = true;
    disp->prev_scr = tr.out.obj;
    disp->act_scr = tr.in.obj;
    disp->draw_prev_over_act = tr.row->out_over;
    if (tr.row->out_hide) {
        fade(tr.out.obj, LV_OPA_TRANSP);
    }
    lv_obj_invalidate(tr.in.obj);
    lv_event_send(tr.in.obj, LV_EVENT_SCREEN_LOAD_START, nullptr);
}

// The incoming screen's animation was deleted, at its end or by an interruption. The state is updated before the
// events, because their handlers may start the next transition.
static void tr_end(lv_anim_t *) {
    if (!tr.active) {
        return;
    }
    tr.active = false;
    const auto done = tr;
    lv_disp_t *disp = lv_obj_get_disp(done.in.obj);
    scr_restore(&done.in);
    scr_restore(&done.out);
    if (!done.started) {
        if (disp->act_scr != done.in.obj) {
            disp->scr_to_load = nullptr; // otherwise LVGL has just loaded it itself, and still uses this field
            load_now(disp, done.in.obj);
        }
        return;
    }
    disp->scr_to_load = nullptr;
    disp->prev_scr = nullptr;
    disp->draw_prev_over_act = false;
    lv_obj_invalidate(done.in.obj);
    lv_event_send(done.in.obj, LV_EVENT_SCREEN_LOADED, nullptr);
    lv_event_send(done.out.obj, LV_EVENT_SCREEN_UNLOADED, nullptr);
}

static void tr_cut_short() {
    if (tr.active) {
        lv_anim_del(tr.out.obj, nullptr);
        lv_anim_del(tr.in.obj, nullptr); // ends in tr_end
    }
}

static void tr_begin(lv_disp_t *disp, lv_obj_t *scr, const scr_row *row) {
    tr = {};
    tr.active = true;
    tr.row = row;
    tr.in = scr_save(scr);
    tr.out = scr_save(disp->act_scr);
    disp->scr_to_load = scr;
    disp->del_prev = false;
}

void zof_scr_load_anim(lv_obj_t *scr, u32 transition, u32 time, u32 delay, lv_anim_path_cb_t path) {
    lv_disp_t *disp = scr ? lv_obj_get_disp(scr) : nullptr;
    if (!disp || !path) {
        return;
    }
    tr_cut_short();
    if (disp->act_scr == scr) {
        lv_obj_invalidate(scr); // already shown: no transition
        return;
    }
    lv_anim_del(scr, nullptr);
    lv_anim_del(disp->act_scr, nullptr);
    lv_obj_set_pos(scr, 0, 0);
    if (time == 0 && delay == 0) {
        load_now(disp, scr);
        return;
    }
    const scr_row *row = &rows[transition < ZOF_SCR_LOAD_ANIM_COUNT ? transition : (u32)ZOF_SCR_LOAD_ANIM_NONE];
    tr_begin(disp, scr, row);
    lv_anim_t in = side_anim(disp, scr, &row->in);
    lv_anim_t out = side_anim(disp, tr.out.obj, &row->out);
    lv_anim_set_start_cb(&in, tr_start);
    lv_anim_set_deleted_cb(&in, tr_end);
    for (lv_anim_t *a : {&in, &out}) { // the later one runs first, so the outgoing screen is finished when `in` ends
        lv_anim_set_time(a, LV_MIN(time, INT32_MAX));
        lv_anim_set_delay(a, LV_MIN(delay, INT32_MAX));
        lv_anim_set_path_cb(a, path);
        if (a->exec_cb || a == &in) {
            lv_anim_start(a);
        }
    }
    lv_event_send(disp->act_scr, LV_EVENT_SCREEN_UNLOAD_START, nullptr);
}
