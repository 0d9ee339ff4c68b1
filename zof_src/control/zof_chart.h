// Charts. A series is LVGL's, and exists until it is removed or the chart is deleted; -1 for a series of another chart.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind. Colours are 0xRRGGBB. Points count from 0.
#ifndef ZOF_CHART_H
#define ZOF_CHART_H

#include "control/zof_ctrl.h"
#include "control/zof_line.h"

ZOF_C_BEGIN

typedef struct {
    u32 t_en, color_t;
} zof_chart_test_t;

typedef struct {
    u8 major_tick_len;
    u8 minor_tick_len;
    u8 major_cnt;
    u8 minor_cnt;
    u8 draw_size;
    zof_bool last_mark_en;
} zof_chart_marks_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u32 dis_type_e;
    u32 dis_mode_e;
    s32 y_min;
    s32 y_max;
    s32 x_min;
    s32 x_max;
    u16 point_cnt;
    u16 divline_hdiv;
    u16 divline_vdiv;
    zof_chart_marks_t x_mark;
    zof_chart_marks_t y_mark;
    zof_line_disp_t chart_line_style;
    zof_line_disp_t chart_line_tick_style;
} zof_chart_attr_t;

extern const reflect_item_t zof_chart_test_tbl[];
extern const reflect_item_t zof_chart_marks_t_tbl[];
extern const reflect_item_t zof_chart_attr_t_tbl[];

s32 zof_chart_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds a series whose points are not set yet. `axis`: LVGL's, 0 for the primary ones. Returns the series, or null.
lv_chart_series_t *zof_chart_add_series(zof_ctrl_t *ctrl, zof_color_t color, u32 axis);
s32 zof_chart_series_remove(zof_ctrl_t *ctrl, lv_chart_series_t *series); // removes a series

// Returns the series with this number, counted from 0 in the order in which they were added, or null.
lv_chart_series_t *zof_chart_series_at(zof_ctrl_t *ctrl, u32 number);
u32 zof_chart_series_count(zof_ctrl_t *ctrl); // number of series; 0 without a chart

s32 zof_chart_set_series_color(zof_ctrl_t *ctrl, lv_chart_series_t *series, zof_color_t color); // changes its colour
s32 zof_chart_clear(zof_ctrl_t *ctrl, lv_chart_series_t *series);      // removes the series' values, not the series
s32 zof_chart_set_range(zof_ctrl_t *ctrl, u32 axis, s32 min, s32 max); // sets the ends of an axis (LVGL's number)

// Shows the caller's values, one for each point of the chart, for as long as the series exists. LV_CHART_POINT_NONE is
// a gap. The others copy a value: after the last one written, or to a point; a point that the chart does not have is
// ignored. Two values are for scatter charts only.
s32 zof_chart_set_points(zof_ctrl_t *ctrl, lv_chart_series_t *series, lv_coord_t *y); // shows an array of the program
s32 zof_chart_set_next(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 value);       // adds a value after the last one
s32 zof_chart_set_next_value2(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 x, s32 y);      // adds a point
s32 zof_chart_set_value_by_id(zof_ctrl_t *ctrl, lv_chart_series_t *series, u32 id, s32 value); // changes a point

// Shows values that changed in the caller's array.
s32 zof_chart_refresh(zof_ctrl_t *ctrl);

// Always 0 for a series of the chart, wherever it starts.
s32 zof_chart_get_x_start_point(zof_ctrl_t *ctrl, lv_chart_series_t *series);

// Sets the width of the points, and of the lines between them, in pixels.
s32 zof_chart_set_line_width(zof_ctrl_t *ctrl, u32 point_size, u32 line_width);

// Fits the primary Y axis to the series' values, with a fifth of them as an outward margin. The first point always
// counts, others not when they are -32768 or 32767; points that are not set yet never do.
s32 zof_chart_set_range_auto(zof_ctrl_t *ctrl, lv_chart_series_t *series);

ZOF_C_END

#endif
