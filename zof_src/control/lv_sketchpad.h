// A widget in LVGL's manner: a canvas to draw on with the finger, with a toolbar above it. The creator supplies the
// pixels, as for LVGL's canvas. Graphics thread, or under dis_mutex.
#ifndef LV_SKETCHPAD_H
#define LV_SKETCHPAD_H

#include "lvgl.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

// The numbers may be written at any time; `toolbar_en` takes effect at the toolbar's next event.
typedef struct {
    lv_canvas_t canvas;
    lv_draw_line_dsc_t line_rect_dsc;
    lv_draw_arc_dsc_t arc_dsc; // of a dot: a finger that does not move
    u8 toolbar_en;             // not 0: the toolbar is shown
    u8 popup_open;             // 1 while the slider for the width is there
} lv_sketchpad_t;

extern const lv_obj_class_t lv_sketchpad_class;
extern const lv_obj_class_t lv_sketchpad_toolbar_class;

// Creates the widget. It draws while it is clickable, which its first button toggles. Null without memory.
lv_obj_t *lv_sketchpad_create(lv_obj_t *parent);

// Sets the width of lines in pixels; dots have half of it as radius.
void lv_sketchpad_set_width(lv_obj_t *obj, u8 width);
void lv_sketchpad_clean_bg(lv_obj_t *obj);

// Makes strokes translucent.
void lv_sketchpad_set_transp(lv_obj_t *obj, zof_bool on);

ZOF_C_END

#endif
