// The ring is in the topmost layer and ignores touches. A control can have the focus if it has an event function and a
// finger on its centre would reach it. This file knows nothing else about pages and controls, so a key can do nothing
// that a finger could not.
#include "ui/focus.h"

#include <stdlib.h>

#include <algorithm>

#include "ui/ui.h"

enum { IDS = 158, GAP = 2, RING = 3, DRAG_PX = 8 };

struct spot_t {
    para_t *ctrl;
    lv_area_t box;
    lv_point_t at; // where a finger presses the control
};

static struct {
    lv_obj_t *ring; // null: nothing has the focus
    lv_area_t box;  // area of the ring
    para_t *ctrl;
    lv_point_t at; // point of the last focus; kept after the focus is cleared
    bool pressed;
    u32 landings;
} focus;

// Controls --------------------------------------------------------------------------------------------------------
// Returns the object that a finger at this point touches.
static lv_obj_t *touched(lv_point_t at) {
    lv_obj_t *hit = nullptr;
    for (lv_obj_t *layer : {lv_layer_sys(), lv_layer_top(), lv_scr_act()}) {
        hit = hit ? hit : lv_indev_search_obj(layer, &at);
    }
    return hit;
}

static bool spot_find(para_t *ctrl, spot_t *out) {
    if (!ctrl || !ctrl->obj || !ctrl->attr || ctrl->attr->zof_ctrl_event == no_event) {
        return false;
    }
    lv_obj_t *obj = ctrl->obj;
    *out = {.ctrl = ctrl, .box = obj->coords};
    out->at.x = (lv_coord_t)((out->box.x1 + out->box.x2 + 1) / 2);
    out->at.y = (lv_coord_t)((out->box.y1 + out->box.y2 + 1) / 2);
    if (lv_obj_check_type(obj, &lv_slider_class)) {
        const s32 low = lv_slider_get_min_value(obj), range = LV_MAX(lv_slider_get_max_value(obj) - low, 1);
        out->at.x = (lv_coord_t)(out->box.x1 + lv_obj_get_width(obj) * (lv_slider_get_value(obj) - low) / range);
    }
    return touched(out->at) == obj;
}

// Finds the controls of the page in reading order: a row consists of the highest remaining control and all controls
// whose centre is above its lower edge.
static u32 spots_find(spot_t *out) {
    const u32 view = (u32)zof_view_get_cur_id(ZOF_LAYER_UI);
    u32 count = 0;
    for (u32 id = 1; id <= IDS; id++) {
        count += spot_find(zof_ctrl_get_form_id(view, id), &out[count]);
    }
    std::sort(out, out + count, [](const spot_t &a, const spot_t &b) { return a.box.y1 < b.box.y1; });
    for (spot_t *row = out, *end; row < out + count; row = end) {
        end = std::find_if(row, out + count, [row](const spot_t &spot) { return spot.at.y > row->box.y2; });
        std::sort(row, end, [](const spot_t &a, const spot_t &b) { return a.at.x < b.at.x; });
    }
    return count;
}

// Moving ----------------------------------------------------------------------------------------------------------
static s32 distance(lv_point_t a, lv_point_t b, s32 aside) {
    return abs(a.y - b.y) + aside * abs(a.x - b.x);
}

// Up and down prefer controls that are straight above or below.
static u32 nearest(const spot_t *spots, u32 count, s32 down) {
    u32 best = count;
    for (u32 i = 0; i < count; i++) {
        const bool fits = down == 0 || (spots[i].at.y - focus.at.y) * down > 0;
        const s32 aside = down == 0 ? 1 : 2;
        if (fits &&
            (best == count || distance(spots[i].at, focus.at, aside) < distance(spots[best].at, focus.at, aside))) {
            best = i;
        }
    }
    return best;
}

static u32 next(const spot_t *spots, u32 count, focus_way_e way) {
    if (!focus_shown() || way == FOCUS_UP || way == FOCUS_DOWN) {
        return nearest(spots, count, !focus_shown() ? 0 : way == FOCUS_UP ? -1 : 1);
    }
    for (u32 i = 0; i < count; i++) {
        if (spots[i].ctrl == focus.ctrl) {
            return (i + (way == FOCUS_RIGHT ? 1 : count - 1)) % count;
        }
    }
    return nearest(spots, count, 0);
}

static void drag(focus_way_e way) {
    static constexpr lv_point_t steps[] = {{-DRAG_PX, 0}, {DRAG_PX, 0}, {0, -DRAG_PX}, {0, DRAG_PX}};
    focus.at.x = (lv_coord_t)std::clamp(focus.at.x + steps[way].x, 0, LV_HOR_RES - 1);
    focus.at.y = (lv_coord_t)std::clamp(focus.at.y + steps[way].y, 0, LV_VER_RES - 1);
    zof_touch_key((u16)focus.at.x, (u16)focus.at.y, ZOF_TRUE);
}

void focus_move(focus_way_e way) {
    if (focus.pressed) {
        drag(way);
        return;
    }
    spot_t spots[IDS];
    const u32 count = spots_find(spots);
    const u32 to = next(spots, count, way);
    if (to < count) {
        focus.ctrl = spots[to].ctrl;
        focus.at = spots[to].at;
        focus.landings = zof_touch_landings();
    }
}

void focus_press(bool down) {
    if (down && focus_shown() && zof_touch_key((u16)focus.at.x, (u16)focus.at.y, ZOF_TRUE) == 0) {
        focus.pressed = true;
    } else if (!down && focus.pressed) {
        zof_touch_key((u16)focus.at.x, (u16)focus.at.y, ZOF_FALSE);
        focus.pressed = false;
    }
}

bool focus_shown() {
    return focus.ctrl != nullptr;
}

// Painting --------------------------------------------------------------------------------------------------------
static void ring_make() {
    focus.ring = lv_obj_create(lv_layer_sys());
    lv_obj_remove_style_all(focus.ring);
    lv_obj_clear_flag(focus.ring, LV_OBJ_FLAG_CLICKABLE);
    lv_obj_set_style_border_width(focus.ring, RING, 0);
    lv_obj_set_style_border_color(focus.ring, lv_color_hex(COLOR_AMBER_HI & 0xFFFFFF), 0);
}

// Places the ring around the control, clipped to the screen.
static void ring_place(const spot_t &spot) {
    const lv_area_t screen = {0, 0, (lv_coord_t)(LV_HOR_RES - 1), (lv_coord_t)(LV_VER_RES - 1)};
    lv_area_t box = spot.box;
    lv_area_increase(&box, GAP + RING, GAP + RING);
    _lv_area_intersect(&box, &box, &screen);
    if (_lv_area_is_equal(&box, &focus.box)) {
        return;
    }
    focus.box = box;
    lv_obj_set_pos(focus.ring, box.x1, box.y1);
    lv_obj_set_size(focus.ring, lv_area_get_width(&box), lv_area_get_height(&box));
    const lv_coord_t radius = lv_obj_get_style_radius(spot.ctrl->obj, LV_PART_MAIN);
    lv_obj_set_style_radius(focus.ring, (lv_coord_t)(radius == 0 ? 0 : radius + GAP + RING), 0);
}

static void ring_remove() {
    lv_obj_del(focus.ring);
    focus.ring = nullptr;
    focus.ctrl = nullptr;
    focus.box = {};
}

void focus_paint() {
    if (!focus.ctrl) {
        return;
    }
    if (!focus.ring) {
        ring_make();
    }
    lv_obj_update_layout(lv_scr_act());
    spot_t spot;
    if (focus.landings != zof_touch_landings() || !spot_find(focus.ctrl, &spot)) {
        ring_remove();
        return;
    }
    ring_place(spot);
    focus.at = focus.pressed ? focus.at : spot.at;
}
