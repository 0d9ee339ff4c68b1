// Tables and charts. Graphics thread, or under dis_mutex. Colours are 0xRRGGBB. Functions return 0, or the value that a
// getter's name says; -1 without an object of the kind. Rows, columns and points count from 0.
#ifndef ZOF_TABLE_CHART_H
#define ZOF_TABLE_CHART_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

// Maximum number of cells of a table.
enum { ZOF_TABLE_CELLS = 65535 };

// Tables, as large as their rows and columns. Every cell has its own colour, in the order of the cells.
s32 zof_table_create(para_t *record, lv_obj_t *parent, void *attr);

// Shows a text, or the translation of a key, which does not follow the language. A cell beyond the end makes the table
// larger. If it is more than one beyond, the colours are reset to the default, for as many rows, or columns, as the
// cell has before it; a cell just beyond the end leaves the colours as they are and gets none. -1 for too many cells.
s32 zof_table_set_cell_value(zof_ctrl_t *ctrl, u32 row, u32 col, const char *text);

// Returns the text as shown, "" beyond the end; (const char *)-1 for a handle that is not a table control.
const char *zof_table_get_cell_value(zof_ctrl_t *ctrl, u32 row, u32 col);

// Pixels, up to 4095. A column beyond the end makes the table larger.
s32 zof_table_set_col_width(zof_ctrl_t *ctrl, u32 col, u32 width);

// Merges a cell with the one to its right, or splits them again. zof_ctrl_force_refresh shows it.
s32 zof_table_set_cell_merge_right(zof_ctrl_t *ctrl, u32 row, u32 col);

// Sets the look of all cells: their borders, and one background, which becomes the default colour.
s32 zof_table_set_cell_wrap(zof_ctrl_t *ctrl, zof_color_t border_color, u32 border_width, u8 border_opa, u8 bg_opa,
                            zof_color_t bg_color);

// The cell that is being pressed; 65535 for none. Returns 0, or -1 for null.
s32 zof_table_get_selected_cell(zof_ctrl_t *ctrl, u16 *row, u16 *col);

// Marks what is being pressed, or removes the mark where there is one: the cell (`mode` 0), its row (1) or its column
// (2). Cells in a third colour stay. Does not redraw. Without a pressed cell, the first one counts.
s32 zof_table_set_value_changed_color(zof_ctrl_t *ctrl, zof_color_t color, u32 mode);

// Returns the colour of a cell, the default one if it has none of its own.
s32 zof_table_get_cell_color(zof_ctrl_t *ctrl, u32 row, u32 col);
s32 zof_table_get_row_cnt(zof_ctrl_t *ctrl);
s32 zof_table_get_col_cnt(zof_ctrl_t *ctrl);

// Frees the colours of a table, once its object is gone. Returns 0, or -1 for a record that was not created.
s32 zof_table_del(para_t *record);

// LVGL callback that gives each cell its colour; its user data is the attribute record.
void table_draw_part_event_cb(lv_event_t *e);

// Charts. A series is LVGL's, and exists until it is removed or the chart is deleted; -1 for a series of another chart.
s32 zof_chart_create(para_t *record, lv_obj_t *parent, void *attr);

// Adds a series whose points are not set yet. `axis`: LVGL's, 0 for the primary ones. Returns the series, or null.
lv_chart_series_t *zof_chart_add_series(zof_ctrl_t *ctrl, zof_color_t color, u32 axis);
s32 zof_chart_series_remove(zof_ctrl_t *ctrl, lv_chart_series_t *series);

// Shows the caller's values, one for each point of the chart, for as long as the series exists. LV_CHART_POINT_NONE is
// a gap. The others copy a value: after the last one written, or to a point; a point that the chart does not have is
// ignored. Two values are for scatter charts only.
s32 zof_chart_set_points(zof_ctrl_t *ctrl, lv_chart_series_t *series, lv_coord_t *y);
s32 zof_chart_set_next(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 value);
s32 zof_chart_set_next_value2(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 x, s32 y);
s32 zof_chart_set_value_by_id(zof_ctrl_t *ctrl, lv_chart_series_t *series, u32 id, s32 value);

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
