// A full redraw of each view, compared with the same widgets created by plain LVGL calls.
#include "measure.h"

#include "zof_main.h"

// Copies an object and its children with LVGL's own calls: class, position, size, flags, and style values.
static lv_obj_t *plain_copy(lv_obj_t *from, lv_obj_t *parent) {
    lv_obj_t *to = lv_obj_class_create_obj(from->class_p, parent);
    lv_obj_class_init_obj(to);
    lv_obj_remove_style_all(to);
    for (u32 i = from->style_cnt; i-- > 0;) { // the last one added takes precedence
        if (!from->styles[i].is_local && !from->styles[i].is_trans) {
            lv_obj_add_style(to, from->styles[i].style, from->styles[i].selector);
        }
    }
    for (lv_style_prop_t prop :
         {LV_STYLE_BG_COLOR, LV_STYLE_BG_OPA, LV_STYLE_TEXT_COLOR, LV_STYLE_TEXT_ALIGN, LV_STYLE_OPA,
          LV_STYLE_ARC_COLOR, LV_STYLE_ARC_WIDTH, LV_STYLE_ARC_OPA, LV_STYLE_ARC_ROUNDED}) {
        for (lv_style_selector_t part : {(u32)LV_PART_MAIN, (u32)LV_PART_INDICATOR}) {
            lv_style_value_t value;
            if (lv_obj_get_local_style_prop(from, prop, &value, part) == LV_RES_OK) {
                lv_obj_set_local_style_prop(to, prop, value, part);
            }
        }
    }
    lv_obj_set_pos(to, lv_obj_get_x(from), lv_obj_get_y(from));
    lv_obj_set_size(to, lv_obj_get_width(from), lv_obj_get_height(from));
    to->flags = from->flags;
    if (lv_obj_check_type(from, &lv_label_class)) {
        lv_label_set_long_mode(to, lv_label_get_long_mode(from));
        lv_label_set_text(to, lv_label_get_text(from));
        ((lv_label_t *)to)->offset = ((lv_label_t *)from)->offset;
    } else if (lv_obj_check_type(from, &lv_img_class)) {
        lv_img_set_src(to, lv_img_get_src(from));
    } else if (lv_obj_check_type(from, &lv_slider_class)) {
        lv_slider_set_range(to, lv_slider_get_min_value(from), lv_slider_get_max_value(from));
        lv_slider_set_value(to, lv_slider_get_value(from), LV_ANIM_OFF);
    } else if (lv_obj_check_type(from, &lv_arc_class)) {
        lv_arc_set_bg_angles(to, lv_arc_get_bg_angle_start(from), lv_arc_get_bg_angle_end(from));
        lv_arc_set_range(to, lv_arc_get_min_value(from), lv_arc_get_max_value(from));
        lv_arc_set_value(to, lv_arc_get_value(from));
    }
    for (u32 i = 0; !lv_obj_check_type(from, &lv_label_class) && i < lv_obj_get_child_cnt(from); i++) {
        plain_copy(lv_obj_get_child(from, (s32)i), to);
    }
    return to;
}

// A separate function with a fixed name, so an instruction counter can measure it alone.
extern "C" __attribute__((noinline)) void full_redraw(lv_obj_t *screen) {
    lv_obj_invalidate(screen);
    lv_refr_now(nullptr);
}

static double redraw_ms(lv_obj_t *screen) {
    lv_disp_load_scr(screen);
    lv_refr_now(nullptr);
    return median_ms(60, [screen] { full_redraw(screen); });
}

static lv_obj_t *view_up(u32 view) {
    zof_view_set_dis_view(view);
    lv_refr_now(nullptr);
    return zof_view_list_get(view)->obj;
}

// One full redraw of a view or of its plain copy, everything warm.
void measure_count(u32 view, bool plain) {
    panel_up();
    lv_obj_t *screen = view_up(view);
    if (plain) {
        screen = plain_copy(screen, nullptr);
        lv_disp_load_scr(screen);
        lv_refr_now(nullptr);
    }
    full_redraw(screen);
}

void measure_redraw() {
    panel_up();
    for (u32 view = 1; view <= ZOF_VIEW_COUNT; view++) {
        lv_obj_t *ours = view_up(view);
        lv_obj_t *plain = plain_copy(ours, nullptr);
        double us = 1e9;
        double them = 1e9;
        for (int turn = 0; turn < 5; turn++) { // in turns, so a busy machine affects both
            us = std::min(us, redraw_ms(ours));
            them = std::min(them, redraw_ms(plain));
        }
        printf("| full redraw of view %u | %.2f ms | %.2f ms, the same widgets in plain LVGL | %.3f |\n", view, us,
               them, us / them);
    }
}
