// The sketchpad. Each read of the finger draws a line from its previous position, so that a stroke has no gaps.
#include "control/lv_sketchpad.h"

enum { OPA_CLEAR = 100, OPA_FULL = 255, TEXT_OPA_CLEAR = 120 };
enum { WIDTH_FIRST = 2, WIDTH_MIN = 1, WIDTH_MAX = 40, SLIDER_LENGTH = 120, TOOLBAR_HEIGHT = 20 };
enum { NO_POINT = INT16_MIN };
enum { TAG_DRAW = 1, TAG_WIDTH, TAG_OPA, TAG_CLEAN }; // as user data

#define BUTTON_TEXT(symbol) "   " symbol "   "

// One finger draws at a time, on any pad.
static struct {
    lv_coord_t x, y; // the stroke's last point; NO_POINT in either: none
} last = {0, NO_POINT};

static void last_forget(void) {
    last = {NO_POINT, NO_POINT};
}

static bool is_on_pad(const lv_img_header_t *header, const lv_point_t *p) {
    return p->x >= 0 && p->y >= 0 && p->x < (lv_coord_t)header->w && p->y < (lv_coord_t)header->h;
}

static void dot_draw(lv_sketchpad_t *pad, const lv_point_t *p) {
    lv_obj_t *obj = &pad->canvas.img.obj;
    if (pad->line_rect_dsc.width >= 2) {
        lv_canvas_draw_arc(obj, p->x, p->y, pad->line_rect_dsc.width / 2, 0, 360, &pad->arc_dsc);
    } else if (is_on_pad(&pad->canvas.dsc.header, p)) {
        lv_canvas_set_px_color(obj, p->x, p->y, lv_color_white());
        lv_canvas_set_px_opa(obj, p->x, p->y, LV_OPA_COVER);
    }
}

static void stroke_on(lv_sketchpad_t *pad) {
    lv_indev_t *indev = lv_indev_get_act();
    lv_obj_t *obj = &pad->canvas.img.obj;
    if (!indev || !pad->canvas.dsc.data) {
        return;
    }
    lv_point_t points[2] = {{last.x, last.y}, {}};
    lv_point_t *p = &points[1];
    lv_indev_get_point(indev, p);
    p->x -= obj->coords.x1;
    p->y -= obj->coords.y1;
    last = {p->x, p->y};
    if (points[0].x == NO_POINT || points[0].y == NO_POINT) {
        return;
    }
    if (points[0].x == p->x && points[0].y == p->y) {
        dot_draw(pad, p);
    } else {
        lv_canvas_draw_line(obj, points, 2, &pad->line_rect_dsc);
    }
}

// The pixels say how opaque they are; LVGL takes the colour from the object. Here that is the style's text colour, so
// strokes are visible in every theme.
static void colour_follow(lv_obj_t *obj) {
    const lv_color_t text = lv_obj_get_style_text_color(obj, LV_PART_MAIN);
    if (text.full != lv_obj_get_style_img_recolor(obj, LV_PART_MAIN).full) {
        lv_obj_set_style_img_recolor(obj, text, LV_PART_MAIN);
    }
}

// LVGL places picture and children within border and padding. But strokes must appear under the finger, and the toolbar
// must stay above the pad without covering it.
static void places_follow(lv_obj_t *obj) {
    const lv_coord_t border = lv_obj_get_style_border_width(obj, LV_PART_MAIN);
    const lv_coord_t left = border + lv_obj_get_style_pad_left(obj, LV_PART_MAIN);
    const lv_coord_t top = border + lv_obj_get_style_pad_top(obj, LV_PART_MAIN);
    ((lv_img_t *)obj)->offset = {-left, -top}; // LVGL's setters divide by the size, which may still be 0
    lv_obj_t *toolbar = lv_obj_get_child(obj, 0);
    if (!toolbar || !lv_obj_check_type(toolbar, &lv_sketchpad_toolbar_class)) { // a child was moved after it
        return;
    }
    if (lv_obj_get_style_y(toolbar, LV_PART_MAIN) != -TOOLBAR_HEIGHT - top) {
        lv_obj_align(toolbar, LV_ALIGN_TOP_MID, 0, -TOOLBAR_HEIGHT - top);
    }
}

static void lv_sketchpad_event(const lv_obj_class_t *, lv_event_t *e) {
    if (lv_obj_event_base(&lv_sketchpad_class, e) != LV_RES_OK) {
        return;
    }
    switch (lv_event_get_code(e)) {
    case LV_EVENT_PRESSING:
        stroke_on((lv_sketchpad_t *)lv_event_get_target(e));
        break;
    case LV_EVENT_STYLE_CHANGED:
        colour_follow(lv_event_get_target(e));
        places_follow(lv_event_get_target(e));
        break;
    case LV_EVENT_PRESSED: // the last stroke may not have ended, if its pad or view went away
    case LV_EVENT_RELEASED:
        last_forget();
        break;
    default:
        break;
    }
}

static void opa_set(lv_sketchpad_t *pad, lv_opa_t opa) {
    pad->line_rect_dsc.opa = opa;
    pad->arc_dsc.opa = opa;
}

static void width_set(lv_sketchpad_t *pad, s32 width) {
    pad->line_rect_dsc.width = width;
    pad->arc_dsc.width = width / 2;
}

static void toolbar_set_event_cb(lv_event_t *e) {
    lv_obj_t *popup = lv_event_get_target(e);
    lv_sketchpad_t *pad = (lv_sketchpad_t *)lv_obj_get_parent(popup);
    if (lv_event_get_code(e) == LV_EVENT_RELEASED) {
        pad->popup_open = 0;
        lv_obj_del(popup);
    } else if (lv_event_get_code(e) == LV_EVENT_VALUE_CHANGED) {
        width_set(pad, lv_bar_get_value(popup));
    }
}

static void popup_make(lv_sketchpad_t *pad, lv_obj_t *label) {
    lv_obj_t *popup = lv_slider_create(&pad->canvas.img.obj);
    if (!popup) {
        return;
    }
    lv_bar_set_value(popup, pad->line_rect_dsc.width, LV_ANIM_OFF);
    lv_obj_set_width(popup, SLIDER_LENGTH);
    lv_bar_set_range(popup, WIDTH_MIN, WIDTH_MAX);
    lv_obj_align_to(popup, label, LV_ALIGN_OUT_BOTTOM_MID, 20, 10);
    lv_obj_add_event_cb(popup, toolbar_set_event_cb, LV_EVENT_ALL, nullptr);
    pad->popup_open = 1;
}

static void drawing_toggle(lv_obj_t *pad, lv_obj_t *label) {
    if (lv_obj_has_flag(pad, LV_OBJ_FLAG_CLICKABLE)) {
        lv_obj_clear_flag(pad, LV_OBJ_FLAG_CLICKABLE);
        lv_label_set_text_static(label, BUTTON_TEXT(LV_SYMBOL_CLOSE));
    } else {
        lv_obj_add_flag(pad, LV_OBJ_FLAG_CLICKABLE);
        lv_label_set_text_static(label, BUTTON_TEXT(LV_SYMBOL_OK));
    }
}

static void opa_toggle(lv_sketchpad_t *pad, lv_obj_t *label) {
    const lv_opa_t opa = pad->line_rect_dsc.opa;
    if (opa == OPA_FULL || opa == OPA_CLEAR) {
        opa_set(pad, (lv_opa_t)(OPA_FULL + OPA_CLEAR - opa));
    }
    lv_obj_set_style_text_opa(label, pad->line_rect_dsc.opa == OPA_FULL ? OPA_FULL : TEXT_OPA_CLEAR, LV_PART_MAIN);
}

static void sketchpad_toolbar_event_cb(lv_event_t *e) {
    if (lv_event_get_code(e) != LV_EVENT_CLICKED) {
        return;
    }
    lv_obj_t *label = lv_event_get_target(e);
    lv_obj_t *obj = lv_obj_get_parent(lv_obj_get_parent(label));
    lv_sketchpad_t *pad = (lv_sketchpad_t *)obj;
    switch ((intptr_t)lv_event_get_user_data(e)) {
    case TAG_DRAW:
        drawing_toggle(obj, label);
        break;
    case TAG_WIDTH:
        if (!pad->popup_open) {
            popup_make(pad, label);
        }
        break;
    case TAG_OPA:
        opa_toggle(pad, label);
        break;
    default:
        lv_sketchpad_clean_bg(obj);
        break;
    }
}

static void lv_sketchpad_toolbar_event(const lv_obj_class_t *, lv_event_t *e) {
    if (lv_obj_event_base(&lv_sketchpad_toolbar_class, e) != LV_RES_OK) {
        return;
    }
    lv_obj_t *toolbar = lv_event_get_target(e);
    const bool hidden = !((lv_sketchpad_t *)lv_obj_get_parent(toolbar))->toolbar_en;
    if (hidden == lv_obj_has_flag(toolbar, LV_OBJ_FLAG_HIDDEN)) {
        return;
    }
    if (hidden) {
        lv_obj_add_flag(toolbar, LV_OBJ_FLAG_HIDDEN);
    } else {
        lv_obj_clear_flag(toolbar, LV_OBJ_FLAG_HIDDEN);
    }
}

// A toolbar inherits its text style from the pad, and must be visible whatever that is.
static void toolbar_dress(lv_obj_t *obj) {
    lv_obj_set_style_bg_color(obj, lv_color_hex(0xE8E8E8), LV_PART_MAIN);
    lv_obj_set_style_bg_opa(obj, LV_OPA_COVER, LV_PART_MAIN);
    lv_obj_set_style_radius(obj, 4, LV_PART_MAIN);
    lv_obj_set_style_pad_top(obj, 2, LV_PART_MAIN);
    lv_obj_set_style_text_color(obj, lv_color_hex(0x202020), LV_PART_MAIN);
    lv_obj_set_style_text_opa(obj, LV_OPA_COVER, LV_PART_MAIN);
    lv_obj_set_style_text_font(obj, LV_FONT_DEFAULT, LV_PART_MAIN); // it has the symbols
}

static void lv_sketchpad_toolbar_constructor(const lv_obj_class_t *, lv_obj_t *obj) {
    static const struct {
        const char *text;
        intptr_t tag;
    } buttons[] = {{BUTTON_TEXT(LV_SYMBOL_OK), TAG_DRAW},
                   {BUTTON_TEXT(LV_SYMBOL_EJECT), TAG_WIDTH},
                   {BUTTON_TEXT(LV_SYMBOL_EDIT), TAG_OPA},
                   {BUTTON_TEXT(LV_SYMBOL_TRASH), TAG_CLEAN}};
    lv_obj_add_flag(obj, LV_OBJ_FLAG_CLICKABLE);
    lv_obj_clear_flag(obj, LV_OBJ_FLAG_SCROLLABLE);
    lv_obj_set_height(obj, TOOLBAR_HEIGHT);
    lv_obj_set_flex_grow(obj, 1);
    lv_obj_set_flex_flow(obj, LV_FLEX_FLOW_ROW);
    toolbar_dress(obj);
    for (const auto &button : buttons) {
        lv_obj_t *label = lv_label_create(obj);
        if (!label) {
            return;
        }
        lv_label_set_text_static(label, button.text);
        lv_obj_add_flag(label, LV_OBJ_FLAG_CLICKABLE);
        lv_obj_add_event_cb(label, sketchpad_toolbar_event_cb, LV_EVENT_ALL, (void *)button.tag);
    }
}

const lv_obj_class_t lv_sketchpad_toolbar_class = {
    .base_class = &lv_obj_class,
    .constructor_cb = lv_sketchpad_toolbar_constructor,
    .event_cb = lv_sketchpad_toolbar_event,
    .width_def = LV_SIZE_CONTENT,
    .height_def = LV_SIZE_CONTENT,
    .instance_size = sizeof(lv_obj_t),
};

static void descriptors_init(lv_sketchpad_t *pad) {
    lv_draw_line_dsc_init(&pad->line_rect_dsc);
    pad->line_rect_dsc.color = lv_color_white();
    pad->line_rect_dsc.round_start = 1;
    pad->line_rect_dsc.round_end = 1;
    lv_draw_arc_dsc_init(&pad->arc_dsc);
    pad->arc_dsc.color = lv_color_white();
    pad->arc_dsc.rounded = 1;
    width_set(pad, WIDTH_FIRST);
    opa_set(pad, OPA_FULL);
}

static void lv_sketchpad_constructor(const lv_obj_class_t *, lv_obj_t *obj) {
    lv_sketchpad_t *pad = (lv_sketchpad_t *)obj;
    descriptors_init(pad);
    pad->toolbar_en = 1;
    pad->canvas.dsc.header.cf = LV_IMG_CF_ALPHA_2BIT;
    lv_img_set_src(obj, &pad->canvas.dsc);
    lv_obj_add_flag(obj, (lv_obj_flag_t)(LV_OBJ_FLAG_CLICKABLE | LV_OBJ_FLAG_OVERFLOW_VISIBLE));
    lv_obj_set_style_img_recolor_opa(obj, LV_OPA_COVER, LV_PART_MAIN); // otherwise LVGL ignores the colour
    lv_obj_clear_flag(obj, LV_OBJ_FLAG_SCROLLABLE); // a stroke must not scroll, though the toolbar is outside
    lv_obj_t *toolbar = lv_obj_class_create_obj(&lv_sketchpad_toolbar_class, obj);
    if (toolbar) {
        lv_obj_class_init_obj(toolbar);
    }
    places_follow(obj);
}

static void lv_sketchpad_destructor(const lv_obj_class_t *, lv_obj_t *obj) {
    lv_img_cache_invalidate_src(&((lv_sketchpad_t *)obj)->canvas.dsc);
}

const lv_obj_class_t lv_sketchpad_class = {
    .base_class = &lv_canvas_class,
    .constructor_cb = lv_sketchpad_constructor,
    .destructor_cb = lv_sketchpad_destructor,
    .event_cb = lv_sketchpad_event,
    .instance_size = sizeof(lv_sketchpad_t),
};

lv_obj_t *lv_sketchpad_create(lv_obj_t *parent) {
    lv_obj_t *obj = lv_obj_class_create_obj(&lv_sketchpad_class, parent);
    if (obj) {
        lv_obj_class_init_obj(obj);
    }
    return obj;
}

void lv_sketchpad_set_width(lv_obj_t *obj, u8 width) {
    if (obj) {
        width_set((lv_sketchpad_t *)obj, width);
    }
}

void lv_sketchpad_clean_bg(lv_obj_t *obj) {
    if (obj && ((lv_canvas_t *)obj)->dsc.data) {
        lv_canvas_fill_bg(obj, lv_color_white(), LV_OPA_TRANSP);
    }
}

void lv_sketchpad_set_transp(lv_obj_t *obj, zof_bool on) {
    if (obj) {
        opa_set((lv_sketchpad_t *)obj, on ? OPA_CLEAR : OPA_FULL);
    }
}
