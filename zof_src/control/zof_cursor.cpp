// The look of a text cursor.
#include "control/zof_cursor.h"

#include "project/look/zof_style.h"

const reflect_item_t zof_cursor_style_attr_t_tbl[] = {
    CSON_SUM(zof_cursor_style_attr_t, cursor_e, 2 * LV_BORDER_SIDE_INTERNAL, zof_side_names),
    CSON_COLOR(zof_cursor_style_attr_t, color),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_width),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_opa),
    CSON_INT(zof_cursor_style_attr_t, zof_cursor_animtime),
    CSON_END,
};

s32 zof_cursor_style_set(lv_obj_t *obj, const zof_cursor_style_attr_t *cursor, u32 selector, zof_bool with_bg) {
    if (!obj || !cursor) {
        return -1;
    }
    lv_color_t color = zof_color_to_lv(cursor->color);
    lv_obj_set_style_border_side(obj, (lv_border_side_t)cursor->cursor_e, selector);
    lv_obj_set_style_border_color(obj, color, selector);
    lv_obj_set_style_border_width(obj, cursor->zof_cursor_width, selector);
    lv_obj_set_style_opa(obj, cursor->zof_cursor_opa, selector);
    if (with_bg) {
        lv_obj_set_style_bg_color(obj, color, selector);
    }
    lv_obj_set_style_anim_time(obj, cursor->zof_cursor_animtime, selector);
    return 0;
}
