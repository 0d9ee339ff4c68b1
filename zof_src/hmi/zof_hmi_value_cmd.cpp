// Commands of controls with a value (types B2 04 to B2 07, B2 0B, B2 14): line, arc, bar, slider, tile view, spin box.
#include "control/zof_arc.h"
#include "control/zof_bar.h"
#include "control/zof_line.h"
#include "control/zof_slider.h"
#include "control/zof_spinbox.h"
#include "control/zof_tileview.h"
#include "hmi/zof_hmi_ctrl_in.h"

enum { ARC_PARTS = 2 };

static zof_line_disp_t line_of(const void *value) {
    const auto *v = (const zof_hmi_u32u16u8u8_t *)value;
    return {.color = v->a, .width = v->b, .opa = v->c, .rounded = v->d};
}

static s32 line_set_dis(void *type, void *, void *value, void *reply) {
    const zof_line_disp_t line = line_of(value);
    return hmi_ctrl_answer(reply, zof_line_set_dis(hmi_ctrl(type, ZOF_CTRL_LINE), &line));
}

static s32 arc_set_dis(void *type, void *req, void *value, void *reply) {
    const u8 part = *(u8 *)req;
    const zof_line_disp_t line = line_of(value);
    return hmi_ctrl_answer(reply, part < ARC_PARTS ? zof_arc_set_dis(hmi_ctrl(type, ZOF_CTRL_ARC), part, &line) : -1);
}

static s32 tileview_set_tile_id(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u16u16_t *)value;
    return hmi_ctrl_answer(reply, zof_tileview_set_tile_id(hmi_ctrl(type, ZOF_CTRL_TILEVIEW), v->b, v->c, v->a));
}

static s32 tileview_get_tile_id(void *type, void *, void *value) {
    u32 row = 0;
    u32 col = 0;
    zof_tileview_get_tile_id(hmi_ctrl(type, ZOF_CTRL_TILEVIEW), &row, &col);
    *(zof_hmi_u16u16_t *)value = {(u16)row, (u16)col};
    return ZOF_HMI_DONE;
}

static s32 spinbox_step(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_choose(type, ZOF_CTRL_SPINBOX, *(u8 *)value, zof_spinbox_step_prev, zof_spinbox_step_next, reply);
}

static s32 spinbox_value_ctrl(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_choose(type, ZOF_CTRL_SPINBOX, *(u8 *)value, zof_spinbox_decrement, zof_spinbox_increment, reply);
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_line_params[ZOF_CTRL_LINE_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "look",
     .help = "Colour 0xRRGGBB, width, opacity, and whether the ends are round.", .value_names = "rgb width opa rounded",
     .value = &zof_hmi_param_u32u16u8u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = line_set_dis},
};

const zof_hmi_param_type_t zof_ctrl_arc_params[ZOF_CTRL_ARC_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "look", .help = "Look of a part: 0 background, 1 indicator.",
     .req_names = "part", .value_names = "rgb width opa rounded",
     .value = &zof_hmi_param_u32u16u8u8_t_tbl, .rw = &zof_hmi_s8_s8_rw_t_tbl, .set_fun = arc_set_dis},
    {.len = 1, .code = {0x01}, .name = "knob_color", .help = "Colour of the knob, 0xRRGGBB.", .value_names = "rgb",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u32, ZOF_CTRL_ARC, zof_arc_set_knob>},
    {.len = 1, .code = {0x02}, .name = "range", .help = "The values of both ends.", .value_names = "min max",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<s16, ZOF_CTRL_ARC, zof_arc_set_value_range>},
    {.len = 1, .code = {0x03}, .name = "value", .help = "The value, kept within the range.", .value_names = "value",
     .value = &zof_hmi_one_s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<s16, ZOF_CTRL_ARC, zof_arc_get_value>,
     .set_fun = hmi_set<s16, ZOF_CTRL_ARC, zof_arc_set_value>},
    {.len = 1, .code = {0x04}, .name = "rotation", .help = "Turns the whole arc, in degrees.", .value_names = "degrees",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_ARC, zof_arc_set_rotation>},
    {.len = 1, .code = {0x05}, .name = "angles", .help = "Angles of both ends, clockwise from the right, in degrees.",
     .value_names = "start end",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<u16, ZOF_CTRL_ARC, zof_arc_set_angles>},
};

const zof_hmi_param_type_t zof_ctrl_bar_params[ZOF_CTRL_BAR_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "color", .help = "Colour of the indicator, 0xRRGGBB.", .value_names = "rgb",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u32, ZOF_CTRL_BAR, zof_bar_set_bar_color>},
    {.len = 1, .code = {0x01}, .name = "value", .help = "The value, kept within the range.", .value_names = "value",
     .value = &zof_hmi_one_s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<s16, ZOF_CTRL_BAR, zof_bar_get_value>,
     .set_fun = hmi_set<s16, ZOF_CTRL_BAR, zof_bar_set_value>},
    {.len = 1, .code = {0x02}, .name = "range", .help = "The values of both ends.", .value_names = "min max",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<s16, ZOF_CTRL_BAR, zof_bar_set_range>},
};

const zof_hmi_param_type_t zof_ctrl_slider_params[ZOF_CTRL_SLIDER_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "color", .help = "Colour of the indicator, 0xRRGGBB.", .value_names = "rgb",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u32, ZOF_CTRL_SLIDER, zof_slider_set_bar_color>},
    {.len = 1, .code = {0x01}, .name = "value", .help = "The value, kept within the range.", .value_names = "value",
     .value = &zof_hmi_one_s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<s16, ZOF_CTRL_SLIDER, zof_slider_get_value>,
     .set_fun = hmi_set<s16, ZOF_CTRL_SLIDER, zof_slider_set_value>},
    {.len = 1, .code = {0x02}, .name = "range", .help = "The values of both ends.", .value_names = "min max",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<s16, ZOF_CTRL_SLIDER, zof_slider_set_range>},
};

// Both rows have the same code. Hosts rely on a read of it being silent, so the second row is unreachable and stays.
const zof_hmi_param_type_t zof_ctrl_tileview_params[ZOF_CTRL_TILEVIEW_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "tile", .help = "Goes to a tile, at once (0) or in an animation (1).",
     .value_names = "animate row column",
     .value = &zof_hmi_param_u8u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = tileview_set_tile_id},
    {.len = 1, .code = {0x00}, .name = "tile_read", .help = "Cannot be reached: the row before it has the same code.",
     .value_names = "row column",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = tileview_get_tile_id},
};

const zof_hmi_param_type_t zof_ctrl_spinbox_params[ZOF_CTRL_SPINBOX_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "value", .help = "The value, without its decimal point.", .value_names = "value",
     .value = &zof_hmi_one_s32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<s32, ZOF_CTRL_SPINBOX, zof_spinbox_get_value>,
     .set_fun = hmi_set<s32, ZOF_CTRL_SPINBOX, zof_spinbox_set_value>},
    {.len = 1, .code = {0x01}, .name = "step", .help = "Chooses the digit to change: 0 the one before, 1 the next.",
     .value_names = "which",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = spinbox_step},
    {.len = 1, .code = {0x02}, .chooses = ZOF_HMI_ACTS, .name = "count",
     .help = "Counts by one step: 0 down, 1 up.", .value_names = "which",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = spinbox_value_ctrl},
};
// clang-format on
