// Keys of controls that choose from several: lists, roller, chart, table.
#include "catalogue/zof_cat_in.h"
#include "control/zof_chart.h"
#include "control/zof_droplist.h"
#include "control/zof_line.h"
#include "control/zof_list.h"
#include "control/zof_rollist.h"
#include "control/zof_table.h"

// clang-format off
static const zof_cat_key_t list_btn_keys[] = {
    {.key = "txt", .label = "text", .kind = ZOF_CAT_WORDS, .group = ZOF_CAT_CONTENT, .help = "its text",
     .row = "list.text",
     .call = "zof_list_set_index_str"},
    {.key = "image_num", .label = "picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "a picture before the text"},
};
ZOF_CAT_RECORD(zof_cat_list_btn, "list button", nullptr, zof_list_btn_t_tbl, list_btn_keys);

static const zof_cat_key_t list_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "btns_t", .label = "buttons", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_CONTENT,
     .start = "[{\"txt\": \"One\"}, {\"txt\": \"Two\"}]", .help = "the buttons", .record = &zof_cat_list_btn},
    {.key = "list_count", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .help = "not needed: the array counts",
     .flags = ZOF_CAT_COUNTED},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .help = "duration of scrolling to a button"},
};
ZOF_CAT_RECORD(zof_cat_list, "list", nullptr, zof_list_attr_t_tbl, list_keys);

static const zof_cat_key_t droplist_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "options", .kind = ZOF_CAT_OPTIONS, .group = ZOF_CAT_CONTENT, .start = "\"One\\nTwo\"",
     .help = "the options, one per line (separated by `\\n`); each may be a language key. At most 4096 lines are "
         "shown", .call = "zof_droplist_set_options", .flags = ZOF_CAT_NEEDED},
    {.key = "dir_t", .label = "opens", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_PLACE, .absent = "8",
     .help = "where the list opens"},
    {.key = "txt_align_e", .label = "text alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "alignment in the open list; `auto`: by text direction"},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .help = "duration of the selection's state changes"},
};
ZOF_CAT_RECORD(zof_cat_droplist, "drop list", nullptr, zof_droplist_attr_t_tbl, droplist_keys);

static const zof_cat_key_t rollist_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "options", .kind = ZOF_CAT_OPTIONS, .group = ZOF_CAT_CONTENT, .start = "\"One\\nTwo\\nThree\"",
     .help = "as in a [drop list](#droplist)", .call = "zof_rollist_set_options", .flags = ZOF_CAT_NEEDED},
    {.key = "rol_mode", .label = "ends", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_MOTION,
     .help = "`stops` at both ends, or is `endless`", .call = "zof_rollist_set_options"},
    {.key = "row_cnt", .label = "rows", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_PLACE, .high = UINT8_MAX, .start = "3",
     .help = "number of visible rows, which determines the height. 0: the height of `size`"},
    {.key = "ext_sel_width", .label = "wider band", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK,
     .help = "extends the selected band above and below by this much"},
    {.key = "txt_align_e", .label = "text alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .start = "\"center\"",
     .help = "alignment of the texts; `auto`: by text direction"},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT8_MAX,
     .start = "200",
     .help = "duration of a turn; after a call that turns it, or a language change, 500"},
};
ZOF_CAT_RECORD(zof_cat_rollist, "roller", nullptr, zof_rollist_attr_t_tbl, rollist_keys);

static const zof_cat_key_t marks_keys[] = {
    {.key = "major_cnt", .label = "major ticks", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .help = "major ticks, at least two"},
    {.key = "minor_cnt", .label = "steps between", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .absent = "1",
     .help = "steps from one major tick to the next, 1 for no minor ticks"},
    {.key = "major_tick_len", .label = "major tick length", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK,
     .high = UINT8_MAX,
     .help = "length of major ticks"},
    {.key = "minor_tick_len", .label = "minor tick length", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK,
     .high = UINT8_MAX,
     .help = "length of minor ticks"},
    {.key = "last_mark_en", .label = "numbers", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_LOOK,
     .help = "true: numbers at the major ticks"},
    {.key = "draw_size", .label = "room for ticks", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = UINT8_MAX,
     .help = "space around the chart for ticks and numbers"},
};
ZOF_CAT_RECORD(zof_cat_marks, "marks", "ticks of an axis, drawn outside the chart", zof_chart_marks_t_tbl, marks_keys);

static const zof_cat_key_t chart_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "dis_type_e", .label = "drawn as", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT, .start = "\"lines\"",
     .help = "how series are drawn: not at all, as lines, bars, or separate points", .flags = ZOF_CAT_NEEDED},
    {.key = "dis_mode_e", .label = "new values", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "a new value shifts the series to the left, or overwrites the oldest value in place"},
    {.key = "y_min", .label = "Y minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE,
     .help = "low end of the Y axis"},
    {.key = "y_max", .label = "Y maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .start = "100",
     .help = "its high end"},
    {.key = "x_min", .label = "X minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE,
     .help = "low end of the X axis of a scatter chart; the numbers at its ticks count from 0"},
    {.key = "x_max", .label = "X maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .start = "100",
     .help = "its high end"},
    {.key = "point_cnt", .label = "points", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = 1,
     .high = UINT16_MAX, .start = "20",
     .help = "points per series", .flags = ZOF_CAT_NEEDED},
    {.key = "divline_hdiv", .label = "horizontal lines", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = 255,
     .start = "5",
     .help = "horizontal division lines"},
    {.key = "divline_vdiv", .label = "vertical lines", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = 255,
     .start = "5",
     .help = "vertical division lines"},
    {.key = "y_mark", .label = "Y ticks", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "ticks of the Y axis, below",
     .record = &zof_cat_marks},
    {.key = "x_mark", .label = "X ticks", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "ticks of the X axis",
     .record = &zof_cat_marks},
    {.key = "chart_line_style", .label = "division lines", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}",
     .help = "appearance of division lines, as of a [line](#line)", .call = "zof_line_set_dis",
     .record = &zof_cat_line_look},
    {.key = "chart_line_tick_style", .label = "tick lines", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "appearance of ticks, as of a line", .record = &zof_cat_line_look},
};
ZOF_CAT_RECORD(zof_cat_chart, "chart", nullptr, zof_chart_attr_t_tbl, chart_keys);

static const zof_cat_key_t table_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "row_cnt", .label = "rows", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT16_MAX,
     .start = "3",
     .help = "rows; at most 65535 cells", .flags = ZOF_CAT_NEEDED},
    {.key = "col_cnt", .label = "columns", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT16_MAX,
     .start = "3",
     .help = "columns, which share the width of `size` equally", .flags = ZOF_CAT_NEEDED},
    {.key = "align_table", .label = "alignment", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "alignment of the texts; `auto`: by text direction"},
};
ZOF_CAT_RECORD(zof_cat_table, "table", nullptr, zof_table_attr_t_tbl, table_keys);
// clang-format on
