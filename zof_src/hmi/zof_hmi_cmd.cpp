// The type tables, one for each analyser. The system type is in both, because the runtime sends its own frames through
// the graphics thread's analyser.
#include "hmi/zof_hmi_cmd.h"

// clang-format off
#define SYSTEM_TYPE \
    {.len = 1, .code = {0xB0}, .name = "system", .help = "The device itself.", \
     .rec = &zof_hmi_none_t_tbl, .param_count = ZOF_SYS_PARAM_COUNT, .params = zof_sys_params}

// Control commands name their control first.
#define CTRL_TYPE(second, type_name, line, rows) \
    {.len = 2, .code = {0xB2, second}, .name = type_name, .help = line, .rec_names = "view control", \
     .rec = &zof_hmi_ctrl_id_t_tbl, .param_count = sizeof(rows) / sizeof((rows)[0]), .params = rows}

const zof_hmi_cmd_type_t zof_sys_cmd_types[] = {SYSTEM_TYPE};
const u32 zof_sys_cmd_type_count = sizeof(zof_sys_cmd_types) / sizeof(zof_sys_cmd_types[0]);

const zof_hmi_cmd_type_t zof_ui_cmd_types[] = {
    SYSTEM_TYPE,
    {.len = 1, .code = {0xB1}, .name = "view", .help = "Views and their layers.",
     .rec = &zof_hmi_none_t_tbl, .param_count = ZOF_VIEW_PARAM_COUNT, .params = zof_view_params},
    CTRL_TYPE(0xF0, "control", "What every control has.", zof_ctrl_pub_params),
    CTRL_TYPE(0x00, "label", "Labels.", zof_ctrl_label_params),
    CTRL_TYPE(0x01, "button", "Buttons.", zof_ctrl_btn_params),
    CTRL_TYPE(0x02, "image", "Pictures.", zof_ctrl_img_params),
    CTRL_TYPE(0x03, "image_button", "Buttons made of pictures.", zof_ctrl_imgbtn_params),
    CTRL_TYPE(0x04, "line", "Lines.", zof_ctrl_line_params),
    CTRL_TYPE(0x05, "arc", "Arcs.", zof_ctrl_arc_params),
    CTRL_TYPE(0x06, "bar", "Bars.", zof_ctrl_bar_params),
    CTRL_TYPE(0x07, "slider", "Sliders.", zof_ctrl_slider_params),
    CTRL_TYPE(0x08, "switch", "Switches.", zof_ctrl_sw_params),
    CTRL_TYPE(0x09, "check_box", "Check boxes.", zof_ctrl_cb_params),
    CTRL_TYPE(0x0A, "message_box", "Message boxes.", zof_ctrl_mbox_params),
    CTRL_TYPE(0x0B, "tile_view", "Tile views.", zof_ctrl_tileview_params),
    CTRL_TYPE(0x0C, "text_box", "Text boxes.", zof_ctrl_txtbox_params),
    CTRL_TYPE(0x0D, "list", "Lists of buttons.", zof_ctrl_list_params),
    CTRL_TYPE(0x0E, "drop_list", "Drop-down lists.", zof_ctrl_droplist_params),
    CTRL_TYPE(0x0F, "roller", "Roller lists.", zof_ctrl_rollist_params),
    CTRL_TYPE(0x10, "gif", "GIFs.", zof_ctrl_gif_params),
    CTRL_TYPE(0x11, "qr_code", "QR codes.", zof_ctrl_qrcode_params),
    CTRL_TYPE(0x12, "video", "Video players.", zof_ctrl_video_params),
    CTRL_TYPE(0x13, "keyboard", "Keyboards.", zof_ctrl_keyboard_params),
    CTRL_TYPE(0x14, "spin_box", "Spin boxes.", zof_ctrl_spinbox_params),
    CTRL_TYPE(0x15, "table", "Tables.", zof_ctrl_table_params),
    CTRL_TYPE(0x16, "button_matrix", "Button matrices.", zof_ctrl_btnm_params),
    CTRL_TYPE(0x17, "chart", "Charts.", zof_ctrl_chart_params),
};
const u32 zof_ui_cmd_type_count = sizeof(zof_ui_cmd_types) / sizeof(zof_ui_cmd_types[0]);
// clang-format on
