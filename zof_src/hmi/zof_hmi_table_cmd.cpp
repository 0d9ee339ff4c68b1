// Commands of tables (type B2 15).
#include "control/zof_table.h"
#include "hmi/zof_hmi_ctrl_in.h"

static s32 table_set_cell_value(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16u16str_t *)value;
    return hmi_ctrl_answer(reply, zof_table_set_cell_value(hmi_ctrl(type, ZOF_CTRL_TABLE), v->a, v->b, v->text));
}

static s32 table_set_cell_merge_right(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16u16_t *)value;
    para_t *table = hmi_ctrl(type, ZOF_CTRL_TABLE);
    const s32 result = zof_table_set_cell_merge_right(table, v->a, v->b);
    zof_ctrl_force_refresh(table);
    return hmi_ctrl_answer(reply, result);
}

static s32 table_set_style(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_tabel_t *)value;
    return hmi_ctrl_answer(reply,
                           zof_table_set_cell_wrap(hmi_ctrl(type, ZOF_CTRL_TABLE), v->a, v->b, v->c, v->d, v->e));
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_table_params[ZOF_CTRL_TABLE_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .chooses = 2, .name = "text",
     .help = "The text of a cell; beyond the end the table grows.",
     .value_names = "row column text",
     .value = &zof_hmi_param_u16u16str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = table_set_cell_value},
    {.len = 1, .code = {0x01}, .chooses = 1, .name = "column_width", .help = "Width of a column in pixels.",
     .value_names = "column width",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<u16, ZOF_CTRL_TABLE, zof_table_set_col_width>},
    {.len = 1, .code = {0x02}, .chooses = 2, .name = "merge_right",
     .help = "Merges a cell with the one to its right, or splits them.",
     .value_names = "row column",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = table_set_cell_merge_right},
    {.len = 1, .code = {0x03}, .name = "look", .help = "Borders and background of all cells; colours 0xRRGGBB.",
     .value_names = "border_rgb border_width border_opacity opacity rgb",
     .value = &zof_hmi_tabel_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = table_set_style},
};
// clang-format on
