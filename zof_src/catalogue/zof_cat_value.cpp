// Keys of controls that show a value: line, arc, bar, slider, switch, spin box.
#include "catalogue/zof_cat_in.h"
#include "control/zof_arc.h"
#include "control/zof_bar.h"
#include "control/zof_cursor.h"
#include "control/zof_line.h"
#include "control/zof_slider.h"
#include "control/zof_spinbox.h"
#include "control/zof_sw.h"

// clang-format off
static const zof_cat_key_t line_look_keys[] = {
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 4095, .start = "4", .help = "width"},
    {.key = "opa", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity"},
    {.key = "rounded", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_LOOK, .help = "not 0: round ends"},
};
ZOF_CAT_RECORD(zof_cat_line_look, "line look", nullptr, zof_line_disp_t_tbl, line_look_keys);

static const zof_cat_key_t line_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "dis_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}", .help = "appearance, below",
     .row = "line.look", .call = "zof_line_set_dis", .record = &zof_cat_line_look, .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_line, "line", nullptr, zof_line_attr_t_tbl, line_keys);

static const zof_cat_key_t angles_keys[] = {
    {.key = "start_angle", .kind = ZOF_CAT_ANGLE, .group = ZOF_CAT_VALUE, .high = 360, .start = "135",
     .help = "start, clockwise from the right"},
    {.key = "end_angle", .kind = ZOF_CAT_ANGLE, .group = ZOF_CAT_VALUE, .high = 360, .start = "45", .help = "end"},
};
ZOF_CAT_RECORD(zof_cat_angles, "angle_t", nullptr, zof_angle_t_tbl, angles_keys);

static const zof_cat_key_t range_keys[] = {
    {.key = "minValue", .label = "minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .help = "value at the start"},
    {.key = "maxValue", .label = "maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .start = "100", .help = "value at the end"},
};
ZOF_CAT_RECORD(zof_cat_range, "range_t", nullptr, zof_range_t_tbl, range_keys);

static const zof_cat_key_t arc_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "angle_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_VALUE, .start = "{}",
     .help = "where it starts and ends", .row = "arc.angles", .call = "zof_arc_set_angles",
     .record = &zof_cat_angles, .flags = ZOF_CAT_NEEDED},
    {.key = "range_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_VALUE, .start = "{}", .help = "range of the values",
     .row = "arc.range", .call = "zof_arc_set_value_range", .record = &zof_cat_range, .flags = ZOF_CAT_NEEDED},
    {.key = "arc_value", .label = "value", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .start = "50", .help = "initial value", .row = "arc.value", .call = "zof_arc_set_value"},
    {.key = "mode_e", .label = "indicator from", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_VALUE,
     .help = "where the indicator begins: at the start, in the middle, or at the end"},
    {.key = "know_dis_en", .label = "knob", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_TOUCH, .help = "true: has a knob"},
    {.key = "arc_t_main", .label = "background", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}",
     .help = "appearance of the background, as of a [line](#line)", .row = "arc.look", .call = "zof_arc_set_dis",
     .record = &zof_cat_line_look},
    {.key = "arc_t_inc", .label = "indicator", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}",
     .help = "appearance of the indicator", .row = "arc.look", .call = "zof_arc_set_dis",
     .record = &zof_cat_line_look},
    {.key = "arc_main_img", .label = "background picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_LOOK,
     .help = "picture of the background, instead of the colour"},
    {.key = "arc_inc_img", .label = "indicator picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_LOOK,
     .help = "picture of the indicator, instead of the colour"},
};
ZOF_CAT_RECORD(zof_cat_arc, "arc", nullptr, zof_arc_attr_t_tbl, arc_keys);

static const zof_cat_key_t bar_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "minValue", .label = "minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .help = "low end of the range", .row = "bar.range", .call = "zof_bar_set_range"},
    {.key = "maxValue", .label = "maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .start = "100", .help = "high end; must differ from the low one", .row = "bar.range",
     .call = "zof_bar_set_range", .flags = ZOF_CAT_NEEDED},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .help = "time the bar takes to move to a new value; 0: immediately"},
};
ZOF_CAT_RECORD(zof_cat_bar, "bar", nullptr, zof_bar_attr_t_tbl, bar_keys);

static const zof_cat_key_t slider_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "minValue", .label = "minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .help = "low end of the range", .row = "slider.range", .call = "zof_slider_set_range"},
    {.key = "maxValue", .label = "maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .low = INT16_MIN,
     .high = INT16_MAX,
     .start = "100", .help = "high end", .row = "slider.range", .call = "zof_slider_set_range",
     .flags = ZOF_CAT_NEEDED},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .help = "time the knob takes to move to a value set by the program; 0: immediately"},
};
ZOF_CAT_RECORD(zof_cat_slider, "slider", nullptr, zof_slider_attr_t_tbl, slider_keys);

static const zof_cat_key_t sw_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX, .start = "120",
     .help = "duration of switching"},
};
ZOF_CAT_RECORD(zof_cat_sw, "switch", nullptr, zof_sw_attr_t_tbl, sw_keys);

static const zof_cat_key_t cursor_keys[] = {
    {.key = "cursor_e", .label = "sides", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_LOOK, .high = 31, .start = "\"left\"",
     .help = "sides: below the digit or letter, above, left, right of it"},
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "zof_cursor_width", .label = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "2",
     .help = "width"},
    {.key = "zof_cursor_opa", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity"},
    {.key = "zof_cursor_animtime", .label = "blink time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION,
     .high = UINT32_MAX, .start = "500",
     .help = "blink time"},
};
ZOF_CAT_RECORD(zof_cat_cursor, "cursor", nullptr, zof_cursor_style_attr_t_tbl, cursor_keys);

static const zof_cat_key_t spinbox_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "range_min", .label = "minimum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE,
     .help = "smallest value, in units of the last digit"},
    {.key = "range_max", .label = "maximum", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .start = "9999",
     .help = "largest value",
     .flags = ZOF_CAT_NEEDED},
    {.key = "step", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .high = INT32_MAX, .start = "1",
     .help = "change per step"},
    {.key = "int_cnt", .label = "digits", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .high = 10, .start = "4",
     .help = "digits before the decimal point", .flags = ZOF_CAT_NEEDED},
    {.key = "dec_cnt", .label = "decimals", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .high = 10,
     .help = "digits after it"},
    {.key = "i_value", .label = "value", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .help = "initial value",
     .row = "spin_box.value", .call = "zof_spinbox_set_value"},
    {.key = "cursor_style", .label = "cursor", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "the cursor, below",
     .call = "zof_txtbox_set_cursor_type", .record = &zof_cat_cursor},
};
ZOF_CAT_RECORD(zof_cat_spinbox, "spin box", nullptr, zof_spinbox_attr_t_tbl, spinbox_keys);
// clang-format on
