// Tables, as large as their rows and columns. Every cell has its own colour, in the order of the cells.
// Graphics thread, or under dis_mutex. Functions return 0, or the value that a getter's name says; -1 without an object
// of the kind. Colours are 0xRRGGBB. Rows and columns count from 0.
#ifndef ZOF_TABLE_H
#define ZOF_TABLE_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u16 row_cnt;
    u16 col_cnt;
    u32 align_table;
    u32 *cell_colors;  // no key: one 0xRRGGBB per cell, row by row
    u32 default_color; // no key: colour of all other cells
} zof_table_attr_t;

extern const reflect_item_t zof_table_attr_t_tbl[];

// Maximum number of cells of a table.
enum { ZOF_TABLE_CELLS = 65535 };

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
s32 zof_table_get_selected_cell(zof_ctrl_t *ctrl, u16 *row, u16 *col); // the cell that is being pressed

// Marks what is being pressed, or removes the mark where there is one: the cell (`mode` 0), its row (1) or its column
// (2). Cells in a third colour stay. Does not redraw. Without a pressed cell, the first one counts.
s32 zof_table_set_value_changed_color(zof_ctrl_t *ctrl, zof_color_t color, u32 mode);

// Returns the colour of a cell, the default colour if it has no colour of its own.
s32 zof_table_get_cell_color(zof_ctrl_t *ctrl, u32 row, u32 col);
s32 zof_table_get_row_cnt(zof_ctrl_t *ctrl); // number of rows
s32 zof_table_get_col_cnt(zof_ctrl_t *ctrl); // number of columns

// Frees the colours of a table, once its object is gone. Returns 0, or -1 for a record that was not created.
s32 zof_table_del(para_t *record);

// LVGL callback that sets the colour of each cell; its user data is the attribute record.
void table_draw_part_event_cb(lv_event_t *e);

ZOF_C_END

#endif
