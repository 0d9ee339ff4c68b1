// A widget in LVGL's manner: a canvas that is drawn on with the finger, with a toolbar above it. Who makes one gives it
// its pixels, as for LVGL's canvas. Graphics thread, or under dis_mutex.
#ifndef LV_SKETCHPAD_H
#define LV_SKETCHPAD_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The numbers may be written at any time; `toolbar_en` shows at the toolbar's next event.
typedef struct {
    lv_canvas_t canvas;
    lv_draw_line_dsc_t line_rect_dsc;
    lv_draw_arc_dsc_t arc_dsc; // of a dot: a finger that does not move
    u8 toolbar_en;             // not 0: the toolbar is shown
    u8 popup_open;             // 1 while the slider for the width is there
} lv_sketchpad_t;

extern const lv_obj_class_t lv_sketchpad_class;
extern const lv_obj_class_t lv_sketchpad_toolbar_class;

// Draws while it is clickable, which its first button changes. Null without memory.
lv_obj_t *lv_sketchpad_create(lv_obj_t *parent);

// Width of lines in pixels, and half of it for dots.
void lv_sketchpad_set_width(lv_obj_t *obj, u8 width);
void lv_sketchpad_clean_bg(lv_obj_t *obj);

// Strokes that let what is behind them through.
void lv_sketchpad_set_transp(lv_obj_t *obj, zof_bool on);

ZOF_C_END

#endif
