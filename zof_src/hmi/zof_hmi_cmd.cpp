// The type tables: one for each analyser. The system's type stands in both, because the runtime sends its own frames
// through the graphics thread's analyser.
#include "hmi/zof_hmi_cmd.h"

// clang-format off
#define SYSTEM_TYPE \
    {.len = 1, .code = {0xB0}, .name = "system", .help = "The device itself.", \
     .rec = &zof_hmi_none_t_tbl, .param_count = ZOF_SYS_PARAM_COUNT, .params = zof_sys_params}

const zof_hmi_cmd_type_t zof_sys_cmd_types[] = {SYSTEM_TYPE};
const u32 zof_sys_cmd_type_count = sizeof(zof_sys_cmd_types) / sizeof(zof_sys_cmd_types[0]);

const zof_hmi_cmd_type_t zof_ui_cmd_types[] = {
    SYSTEM_TYPE,
    {.len = 1, .code = {0xB1}, .name = "view", .help = "Views and their layers.",
     .rec = &zof_hmi_none_t_tbl, .param_count = ZOF_VIEW_PARAM_COUNT, .params = zof_view_params},
};
const u32 zof_ui_cmd_type_count = sizeof(zof_ui_cmd_types) / sizeof(zof_ui_cmd_types[0]);
// clang-format on
