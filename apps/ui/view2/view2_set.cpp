// The minus and plus buttons and the sliders. They change only what the tray shows.
#include <algorithm>

#include "ui/view2/view2.h"

enum { REPEAT_AFTER_MS = 400, REPEAT_MS = 125, FAST_AFTER_MS = 2000, FAST_STEPS = 5, TURN_MS = 25 };

static constexpr struct {
    u32 slider, knob, less, more;
    u16 coarse;
} axes[AXES] = {
    {VIEW2_SLIDER0_ID, VIEW2_VOLTS_KNOB_ID, VIEW2_VOLTS_LESS_ID, VIEW2_VOLTS_MORE_ID, GRID_COARSE_MV},
    {VIEW2_SLIDER1_ID, VIEW2_AMPERES_KNOB_ID, VIEW2_AMPERES_LESS_ID, VIEW2_AMPERES_MORE_ID, GRID_COARSE_MA},
};

// The button that is held down, and the knob that is being dragged.
static struct {
    lv_timer_t *timer; // repeats the button; null if none is held
    axis_e axis;
    int way;
    u64 since, next;
} step;
static struct {
    bool running;
    axis_e axis;
    lv_coord_t x; // of the finger when it landed; `value` is the value at that time
    u16 value;
} drag;

// Painting --------------------------------------------------------------------------------------------------------
static void step_paint(u32 id, bool shown, bool can) {
    paint_shown(view2(id), shown);
    paint_look(view2(id), can ? 0 : LOOK_DEAD);
    paint_touch(view2(id), can);
}

// A slider holds signed 16-bit values, so it works in hundredths.
static void slider_paint(axis_e axis, grid_t grid, u16 value) {
    enum { HUNDREDTH = 10 };
    para_t *slider = view2(axes[axis].slider), *knob = view2(axes[axis].knob);
    zof_slider_set_range(slider, (s16)(grid.low / HUNDREDTH), (s16)(grid.high / HUNDREDTH));
    if (zof_slider_get_value(slider) != value / HUNDREDTH) {
        zof_slider_set_value(slider, (s16)(value / HUNDREDTH));
    }
    const s32 way = grid.high > grid.low ? zof_ctrl_get_width(slider) * (value - grid.low) / (grid.high - grid.low) : 0;
    const s32 size = zof_ctrl_get_width(knob);
    paint_place(knob, zof_ctrl_get_x(slider) + way - size / 2,
                zof_ctrl_get_y(slider) + zof_ctrl_get_height(slider) / 2 - size / 2, size, zof_ctrl_get_height(knob));
}

void set_paint(bool shown) {
    const bool settable = tray_is_settable();
    for (axis_e axis : {VOLTS, AMPERES}) {
        const auto &row = axes[axis];
        const grid_t grid = shown ? axis_grid(axis) : grid_t{};
        const u16 value = shown ? axis_value(axis) : (u16)0;
        step_paint(row.less, shown, settable && value > grid.low);
        step_paint(row.more, shown, settable && value < grid.high);
        paint_shown(view2(row.slider), shown);
        paint_shown(view2(row.knob), shown);
        paint_touch(view2(row.knob), settable);
        if (shown) {
            slider_paint(axis, grid, value);
        }
    }
    if (!settable) {
        set_cancel();
    }
}

void set_cancel() {
    if (step.timer) {
        lv_timer_del(step.timer);
    }
    step = {};
    drag = {};
}

// Minus and plus --------------------------------------------------------------------------------------------------
static void step_by(s32 count) {
    axis_set(step.axis, grid_step(axis_grid(step.axis), axis_value(step.axis), step.way * count));
}

// Repeats at most once per turn, so that the value does not jump after a stall.
static void step_turn(lv_timer_t *) {
    bench_tick();
    if (!tray_is_settable()) {
        set_cancel();
    } else if (bench.now >= step.next) {
        step_by(bench.now - step.since >= FAST_AFTER_MS ? FAST_STEPS : 1);
        step.next = std::max(step.next + REPEAT_MS, bench.now);
        ui_paint();
    }
}

template <axis_e AXIS, int WAY> void step_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST) {
        set_cancel();
    }
    if (!ui_takes(event) || event != ZOF_EVENT_PRESSED || !tray_is_settable()) {
        return;
    }
    set_cancel();
    step = {lv_timer_create(step_turn, TURN_MS, nullptr), AXIS, WAY, bench.now, bench.now + REPEAT_AFTER_MS};
    step_by(1);
    ui_paint();
}

template void step_event<VOLTS, -1>(zof_ctrl_t *, zof_event_e);
template void step_event<VOLTS, 1>(zof_ctrl_t *, zof_event_e);
template void step_event<AMPERES, -1>(zof_ctrl_t *, zof_event_e);
template void step_event<AMPERES, 1>(zof_ctrl_t *, zof_event_e);

// Knobs -----------------------------------------------------------------------------------------------------------
static void drag_to(lv_coord_t x) {
    const grid_t grid = axis_grid(drag.axis);
    const s32 width = zof_ctrl_get_width(view2(axes[drag.axis].slider));
    const s32 value = drag.value + (x - drag.x) * (grid.high - grid.low) / width;
    const u16 on_grid = grid_coarse(grid, (u32)std::clamp<s32>(value, grid.low, grid.high), axes[drag.axis].coarse);
    const u16 next = x == drag.x ? drag.value : on_grid;
    if (next != axis_value(drag.axis)) {
        axis_set(drag.axis, next);
        ui_paint();
    }
}

// A knob keeps the finger wherever it moves, and follows its horizontal movement.
template <axis_e AXIS> void knob_event(zof_ctrl_t *ctrl, zof_event_e event) {
    lv_point_t finger;
    lv_indev_get_point(touch_indev, &finger);
    if (event == ZOF_EVENT_RELEASED || event == ZOF_EVENT_PRESS_LOST) {
        set_cancel();
    }
    if (!ui_takes(event) || !tray_is_settable()) {
        return;
    }
    if (event == ZOF_EVENT_PRESSED) {
        paint_keeps_finger((para_t *)ctrl, true);
        drag = {true, AXIS, finger.x, axis_value(AXIS)};
    } else if (event == ZOF_EVENT_PRESSING && drag.running) {
        drag_to(finger.x);
    }
}

template void knob_event<VOLTS>(zof_ctrl_t *, zof_event_e);
template void knob_event<AMPERES>(zof_ctrl_t *, zof_event_e);
