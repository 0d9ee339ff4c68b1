// Scroll containers. The order of the children makes the wheel endless: whenever a scroll ends on an item, that item is
// moved back to the middle index and the scroll position follows, which is invisible. The look of the wheel is computed
// for every child at every step, so nothing has to be kept.
#include "control/zof_scrollcont.h"

#include <math.h>

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

enum { DIR_HORIZONTAL, DIR_VERTICAL, DIR_COUNT };

static const zof_name_t dir_names[] = {{"horizontal", DIR_HORIZONTAL}, {"vertical", DIR_VERTICAL}, ZOF_NAMES_END};
static const zof_name_t zoom_names[] = {{"radius", 0}, {"pixels", 1}, ZOF_NAMES_END};
static const zof_name_t arc_names[] = {{"down", 0}, {"up", 1}, ZOF_NAMES_END};

const reflect_item_t zof_scrollcont_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_scrollcont_attr_t),
    CSON_INT(zof_scrollcont_attr_t, child_cnt),
    CSON_INT(zof_scrollcont_attr_t, display_count),
    CSON_ENUM(zof_scrollcont_attr_t, dir, DIR_COUNT, dir_names),
    CSON_INT(zof_scrollcont_attr_t, pad),
    CSON_INT(zof_scrollcont_attr_t, zoom),
    CSON_ENUM(zof_scrollcont_attr_t, zoom_mode, 0, zoom_names),
    CSON_INT(zof_scrollcont_attr_t, arc_r),
    CSON_ENUM(zof_scrollcont_attr_t, arc_dir, 0, arc_names),
    CSON_INT(zof_scrollcont_attr_t, opa_mode),
    CSON_END,
};

const reflect_item_t zof_scrollcont_obj_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_scrollcont_obj_attr_t),
    CSON_INT(zof_scrollcont_obj_attr_t, create_num),
    CSON_END,
};

const zof_ctrl_class_t zof_scrollcont_class = {
    .type = ZOF_CTRL_SCROLLCONT,
    .name = "scrollcont",
    .attr = zof_scrollcont_attr_t_tbl,
    .attr_size = sizeof(zof_scrollcont_attr_t),
    .create = zof_scrollcont_create,
};

const zof_ctrl_class_t zof_scrollcont_obj_class = {
    .type = ZOF_CTRL_SCROLLCONT_OBJ,
    .name = "scrollcont_obj",
    .attr = zof_scrollcont_obj_attr_t_tbl,
    .attr_size = sizeof(zof_scrollcont_obj_attr_t),
    .create = zof_scrollcont_obj_create,
    .own_order = ZOF_TRUE,
};

enum { ZOOM_BY_ARC, ZOOM_BY_PIXELS };
enum { FULL_SIZE = LV_IMG_ZOOM_NONE, MIDDLE_ONLY = 1 };

// A container along its axis.
typedef struct {
    lv_obj_t *obj;
    const zof_scrollcont_attr_t *attr;
    bool vertical;
    s32 count;  // of children
    s32 middle; // of the container, on the screen
    s32 half;   // of its length
} wheel_t;

static s32 area_middle(const lv_area_t *area, bool vertical) {
    return vertical ? lv_area_get_height(area) / 2 + area->y1 : lv_area_get_width(area) / 2 + area->x1;
}

static wheel_t wheel_of(lv_obj_t *obj, const zof_scrollcont_attr_t *attr) {
    const bool vertical = attr->dir == DIR_VERTICAL;
    return {obj,
            attr,
            vertical,
            (s32)lv_obj_get_child_cnt(obj),
            area_middle(&obj->coords, vertical),
            (vertical ? lv_obj_get_height(obj) : lv_obj_get_width(obj)) / 2};
}

// Writes a style only when it changes: most of a wheel stays the same from step to step, and each write is a redraw.
static void dress(lv_obj_t *item, lv_style_prop_t prop, s32 value) {
    lv_style_value_t now = {};
    if (lv_obj_get_local_style_prop(item, prop, &now, LV_PART_MAIN) == LV_RES_OK && now.num == value) {
        return;
    }
    lv_obj_set_local_style_prop(item, prop, {.num = value}, LV_PART_MAIN);
}

static void pivot_set(lv_obj_t *item) {
    dress(item, LV_STYLE_TRANSFORM_PIVOT_X, lv_obj_get_width(item) / 2);
    dress(item, LV_STYLE_TRANSFORM_PIVOT_Y, lv_obj_get_height(item) / 2);
}

static s32 middle_child(const wheel_t *wheel) {
    for (s32 i = 0; i < wheel->count; i++) {
        if (area_middle(&lv_obj_get_child(wheel->obj, i)->coords, wheel->vertical) == wheel->middle) {
            return i;
        }
    }
    return -1;
}

static void order_centre(const wheel_t *wheel) {
    lv_obj_t *obj = wheel->obj;
    const s32 index = middle_child(wheel);
    const s32 mid = (wheel->count - 1) >> 1;
    if (index < 0) {
        return;
    }
    for (s32 i = index; i < mid; i++) {
        lv_obj_move_to_index(lv_obj_get_child(obj, wheel->count - 1), 0);
    }
    for (s32 i = index; i > mid; i--) {
        lv_obj_move_to_index(lv_obj_get_child(obj, 0), wheel->count - 1);
    }
    lv_obj_scroll_to_view(lv_obj_get_child(obj, mid), LV_ANIM_OFF);
}

// What changes while LVGL draws is not redrawn, and a handler of the scrolling may do anything. So this runs before the
// first frame, not during it.
void scroll_init_event_cb(lv_event_t *e) {
    auto *attr = (zof_scrollcont_attr_t *)lv_event_get_user_data(e);
    lv_obj_t *obj = lv_event_get_current_target(e);
    if (!attr || attr->need_init != 1) {
        return;
    }
    attr->need_init = 0;
    lv_obj_t *first = lv_obj_get_child(obj, 0);
    if (first) {
        lv_obj_scroll_to_view(first, LV_ANIM_OFF);
    }
    lv_event_send(obj, LV_EVENT_SCROLL_END, nullptr);
    lv_event_send(obj, LV_EVENT_SCROLL, nullptr);
}

void scroll_infinite_event_cb(lv_event_t *e) {
    const auto *attr = (const zof_scrollcont_attr_t *)lv_event_get_user_data(e);
    if (!attr) {
        return;
    }
    const wheel_t wheel = wheel_of(lv_event_get_current_target(e), attr);
    order_centre(&wheel);
}

s32 scroll_inf(zof_ctrl_t *ctrl) {
    const auto *attr = zof_ctrl_attr<zof_scrollcont_attr_t>(ctrl, ZOF_CTRL_SCROLLCONT);
    if (!attr) {
        return zof_refuse(ctrl);
    }
    if (attr->dir != DIR_HORIZONTAL) {
        return -1;
    }
    const wheel_t wheel = wheel_of(zof_ctrl_obj(ctrl), attr);
    order_centre(&wheel);
    return 0;
}

// How far a point at distance `d` drops on a circle of radius `r`. LVGL's own root is limited to a radius of 4095.
static s32 sagitta(s64 r, s64 d) {
    return (s32)(r > d ? r - (s64)sqrt((double)(r * r - d * d)) : r);
}

static void arc_sink(const wheel_t *wheel, lv_obj_t *item, s32 sunk) {
    const lv_style_prop_t across = wheel->vertical ? LV_STYLE_TRANSLATE_X : LV_STYLE_TRANSLATE_Y;
    if (wheel->attr->arc_r == 0) {
        dress(item, across, 0);
    } else if (wheel->attr->arc_dir <= 1) {
        dress(item, across, wheel->attr->arc_dir ? -sunk : sunk);
    }
}

static void arc_dress(const wheel_t *wheel, lv_obj_t *item) {
    const zof_scrollcont_attr_t *attr = wheel->attr;
    const s32 r = attr->arc_r;
    const s32 d = LV_ABS(area_middle(&item->coords, wheel->vertical) - wheel->middle);
    const s32 reach = wheel->half < r || r == 0 ? wheel->half : r; // where fading and zooming are complete
    pivot_set(item);
    if (attr->zoom != 0 && attr->zoom_mode == ZOOM_BY_ARC) {
        dress(item, LV_STYLE_TRANSFORM_ZOOM, lv_map(d, reach, 0, attr->zoom, FULL_SIZE));
    }
    arc_sink(wheel, item, sagitta(r, d));
    if (r != 0 && d > r) {
        dress(item, LV_STYLE_OPA, LV_OPA_TRANSP);
    } else {
        dress(item, LV_STYLE_OPA, attr->opa_mode == 1 ? LV_OPA_COVER - lv_map(d, 0, reach, 0, 255) : LV_OPA_COVER);
    }
}

void scroll_arc_event_cb(lv_event_t *e) {
    const auto *attr = (const zof_scrollcont_attr_t *)lv_event_get_user_data(e);
    if (!attr) {
        return;
    }
    const wheel_t wheel = wheel_of(lv_event_get_current_target(e), attr);
    for (s32 i = 0; i < wheel.count; i++) {
        arc_dress(&wheel, lv_obj_get_child(wheel.obj, i));
    }
}

static s32 pixels_off(const wheel_t *wheel, lv_obj_t *item) {
    lv_obj_t *obj = wheel->obj;
    if (wheel->vertical) {
        const s32 scrolled = lv_obj_get_scroll_top(obj) - lv_obj_get_style_pad_top(obj, LV_PART_MAIN);
        return LV_ABS(lv_obj_get_y(item) - scrolled + lv_obj_get_height(item) / 2 - lv_obj_get_height(obj) / 2);
    }
    const s32 scrolled = lv_obj_get_scroll_left(obj) - lv_obj_get_style_pad_left(obj, LV_PART_MAIN);
    return LV_ABS(lv_obj_get_x(item) - scrolled + lv_obj_get_width(item) / 2 - lv_obj_get_width(obj) / 2);
}

void scroll_zoom_event_cb(lv_event_t *e) {
    const auto *attr = (const zof_scrollcont_attr_t *)lv_event_get_user_data(e);
    if (!attr) {
        return;
    }
    const wheel_t wheel = wheel_of(lv_event_get_current_target(e), attr);
    const s32 most = FULL_SIZE - attr->zoom;
    for (s32 i = 0; i < wheel.count; i++) {
        lv_obj_t *item = lv_obj_get_child(wheel.obj, i);
        pivot_set(item);
        zof_obj_flag_set(item, LV_OBJ_FLAG_CLICKABLE, true);
        if (attr->zoom != 0) {
            dress(item, LV_STYLE_TRANSFORM_ZOOM, FULL_SIZE - LV_MIN(pixels_off(&wheel, item), most));
        }
    }
}

s32 zof_scrollcont_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *cont = (zof_scrollcont_attr_t *)attr;
    if (!record || !cont) {
        return -1;
    }
    if (cont->display_count == 0) {
        zof_printf("control %u: display_count is 0; a scroll container shows at least one item", cont->pub_t.id);
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_obj_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &cont->pub_t);
    zof_ctrl_style_add(record, cont->pub_t.style_list, cont->pub_t.style_num, 0);
    cont->need_init = 1;
    zof_obj_layout(obj);
    return 0;
}

// The wheel that is being started. A handler that recreates its items would start it again, endlessly.
static const void *starting;

static void wheel_start(void *obj) {
    starting = obj;
    lv_event_send((lv_obj_t *)obj, LV_EVENT_REFRESH, nullptr);
    starting = nullptr;
}

// LVGL frees a call twice that is cancelled while it runs; what it started may end up here.
static void start_cancel(lv_obj_t *obj, const zof_scrollcont_attr_t *attr) {
    if (attr->need_init == 1) {
        lv_async_call_cancel(wheel_start, obj);
    }
}

static void event_deleted(lv_event_t *e) {
    start_cancel(lv_event_get_current_target(e), (const zof_scrollcont_attr_t *)lv_event_get_user_data(e));
}

static void events_add(lv_obj_t *obj, zof_scrollcont_attr_t *attr) {
    const struct {
        lv_event_cb_t fn;
        lv_event_code_t code;
    } rows[] = {{scroll_infinite_event_cb, LV_EVENT_SCROLL_END},
                {scroll_arc_event_cb, LV_EVENT_SCROLL},
                {scroll_zoom_event_cb, LV_EVENT_SCROLL},
                {scroll_init_event_cb, LV_EVENT_REFRESH},
                {event_deleted, LV_EVENT_DELETE}};
    for (const auto &row : rows) {
        lv_obj_remove_event_cb(obj, row.fn); // already there when the last item is recreated
        if (row.fn != scroll_zoom_event_cb || attr->zoom_mode == ZOOM_BY_PIXELS) {
            lv_obj_add_event_cb(obj, row.fn, row.code, attr);
        }
    }
}

static void wheel_complete(lv_obj_t *obj, zof_scrollcont_attr_t *attr) {
    lv_obj_enable_style_refresh(true); // off while a view is being built, but the container was complete before
    if (attr->dir == DIR_HORIZONTAL) {
        lv_obj_set_scroll_snap_x(obj, LV_SCROLL_SNAP_CENTER);
        lv_obj_set_flex_flow(obj, LV_FLEX_FLOW_ROW);
        lv_obj_set_style_pad_column(obj, attr->pad, LV_PART_MAIN);
    } else if (attr->dir == DIR_VERTICAL) {
        lv_obj_set_scroll_snap_y(obj, LV_SCROLL_SNAP_CENTER);
        lv_obj_set_flex_flow(obj, LV_FLEX_FLOW_COLUMN);
        lv_obj_set_style_pad_row(obj, attr->pad, LV_PART_MAIN);
    }
    events_add(obj, attr);
    if (obj == starting) {
        return;
    }
    start_cancel(obj, attr);
    attr->need_init = 1;
    lv_async_call(wheel_start, obj);
}

s32 zof_scrollcont_obj_create(para_t *record, lv_obj_t *parent, void *attr) {
    auto *item = (zof_scrollcont_obj_attr_t *)attr;
    auto *cont = zof_ctrl_attr<zof_scrollcont_attr_t>(parent, ZOF_CTRL_SCROLLCONT);
    if (!record || !item || !cont) {
        return -1; // only a scroll container has items
    }
    lv_obj_t *obj = record->obj = lv_obj_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &item->pub_t);
    const s32 width = lv_obj_get_width(parent);
    const s32 height = lv_obj_get_height(parent);
    if (cont->dir != DIR_HORIZONTAL) {
        lv_obj_set_size(obj, width, height / cont->display_count);
    } else {
        lv_obj_set_size(obj, width / cont->display_count, height);
    }
    zof_ctrl_style_add(record, item->pub_t.style_list, item->pub_t.style_num, 0);
    zof_obj_layout(obj);
    if (lv_obj_get_index(obj) + 1 == cont->child_cnt) {
        wheel_complete(parent, cont);
    }
    return 0;
}

s32 zof_scrollcont_get_display_index(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, [](lv_obj_t *obj) {
        const s32 count = (s32)lv_obj_get_child_cnt(obj);
        lv_obj_t *child = count > 0 ? lv_obj_get_child(obj, (count - 1) >> 1) : nullptr;
        const auto *item = zof_ctrl_attr<zof_scrollcont_obj_attr_t>(child, ZOF_CTRL_SCROLLCONT_OBJ);
        return item ? item->create_num : -1;
    });
}
