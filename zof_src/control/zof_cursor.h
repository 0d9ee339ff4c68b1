// The look of a text cursor, for the controls whose text can be edited.
#ifndef ZOF_CURSOR_H
#define ZOF_CURSOR_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    u32 cursor_e;
    u32 color;
    u8 zof_cursor_width;
    u8 zof_cursor_opa;
    u32 zof_cursor_animtime;
} zof_cursor_style_attr_t;

extern const reflect_item_t zof_cursor_style_attr_t_tbl[];

// Sets border side, colour, width, opacity and blink time of the cursor on `selector`, an LVGL part with state; with
// `with_bg` also its background colour. Returns 0, or -1 without an object or description.
s32 zof_cursor_style_set(lv_obj_t *obj, const zof_cursor_style_attr_t *cursor, u32 selector, zof_bool with_bg);

ZOF_C_END

#endif
