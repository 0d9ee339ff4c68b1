// Commands of charts (type B2 17). A host numbers the series: the colour of one that does not exist creates it, and all
// before it.
#include "control/zof_chart.h"
#include "hmi/zof_hmi_ctrl_in.h"

enum { SERIES_MAX = 16, AXES = 2 };

static lv_chart_series_t *series_of(void *type, u8 number) {
    return zof_chart_series_at(hmi_ctrl(type, ZOF_CTRL_CHART), number);
}

static s32 chart_set_color(void *type, void *req, void *value, void *reply) {
    para_t *chart = hmi_ctrl(type, ZOF_CTRL_CHART);
    const u8 number = *(u8 *)req;
    if (!chart || number >= SERIES_MAX) {
        return hmi_ctrl_answer(reply, -1);
    }
    while (zof_chart_series_count(chart) <= number) {
        if (!zof_chart_add_series(chart, *(u32 *)value, LV_CHART_AXIS_PRIMARY_Y)) {
            return hmi_ctrl_answer(reply, -1);
        }
    }
    return hmi_ctrl_answer(reply, zof_chart_set_series_color(chart, series_of(type, number), *(u32 *)value));
}

static s32 chart_next(void *type, void *req, void *value, void *reply) {
    para_t *chart = hmi_ctrl(type, ZOF_CTRL_CHART);
    return hmi_ctrl_answer(reply, zof_chart_set_next(chart, series_of(type, *(u8 *)req), *(s16 *)value));
}

static s32 chart_set_point(void *type, void *req, void *value, void *reply) {
    const auto *at = (const zof_hmi_u8u16_t *)req;
    para_t *chart = hmi_ctrl(type, ZOF_CTRL_CHART);
    return hmi_ctrl_answer(reply, zof_chart_set_value_by_id(chart, series_of(type, at->a), at->b, *(s16 *)value));
}

static s32 chart_set_range(void *type, void *req, void *value, void *reply) {
    static constexpr u32 axes[AXES] = {LV_CHART_AXIS_PRIMARY_Y, LV_CHART_AXIS_PRIMARY_X};
    const u8 axis = *(u8 *)req;
    const auto *v = (const zof_hmi_s16s16_t *)value;
    para_t *chart = hmi_ctrl(type, ZOF_CTRL_CHART);
    return hmi_ctrl_answer(reply, axis < AXES ? zof_chart_set_range(chart, axes[axis], v->a, v->b) : -1);
}

static s32 chart_clear(void *type, void *, void *value, void *reply) {
    para_t *chart = hmi_ctrl(type, ZOF_CTRL_CHART);
    return hmi_ctrl_answer(reply, zof_chart_clear(chart, series_of(type, *(u8 *)value)));
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_chart_params[ZOF_CTRL_CHART_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "color",
     .help = "Colour of a series, 0xRRGGBB; adds the series up to this one, 0 to 15, if the chart lacks them.",
     .req_names = "series", .value_names = "rgb",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_u8_s8_rw_t_tbl, .set_fun = chart_set_color},
    {.len = 1, .code = {0x01}, .chooses = ZOF_HMI_ACTS, .name = "next", .help = "Adds a value to a series.",
     .req_names = "series", .value_names = "value",
     .value = &zof_hmi_one_s16_t_tbl, .rw = &zof_hmi_u8_s8_rw_t_tbl, .set_fun = chart_next},
    {.len = 1, .code = {0x02}, .name = "point", .help = "Sets a point of a series, counted from 0.",
     .req_names = "series point", .value_names = "value",
     .value = &zof_hmi_one_s16_t_tbl, .rw = &zof_hmi_u8u16_s8_rw_t_tbl, .set_fun = chart_set_point},
    {.len = 1, .code = {0x03}, .name = "range", .help = "The values at both ends of an axis: 0 upwards, 1 sideways.",
     .req_names = "axis", .value_names = "min max",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_u8_s8_rw_t_tbl, .set_fun = chart_set_range},
    {.len = 1, .code = {0x04}, .chooses = ZOF_HMI_ACTS, .name = "clear",
     .help = "Removes the values of a series, which stays.", .value_names = "series",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = chart_clear},
};
// clang-format on
