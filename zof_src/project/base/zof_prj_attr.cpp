// The reflection tables of the project's files: project, host protocol, view, the head of all controls, and styles.
// Rows are decoded in this order.
#include "project/base/zof_prj_attr.h"

#include "project/base/zof_ctrl_types.h"
#include "project/base/zof_prj_cur.h"

const reflect_item_t zof_point_t_tbl[] = {
    CSON_INT(zof_point_t, x),
    CSON_INT(zof_point_t, y),
    CSON_END,
};

const reflect_item_t zof_size_t_tbl[] = {
    CSON_INT(zof_size_t, width),
    CSON_INT(zof_size_t, height),
    CSON_END,
};

static const zof_name_t dis_mode_names[] = {{"fill", 0}, {"keep", 1}, ZOF_NAMES_END};

const reflect_item_t zof_prj_dis_t_tbl[] = {
    CSON_INT(zof_prj_dis_t, off_x),
    CSON_INT(zof_prj_dis_t, off_y),
    CSON_ENUM(zof_prj_dis_t, dis_mode, 0, dis_mode_names),
    CSON_END,
};

static const zof_name_t tone_names[] = {{"beeper", 0}, {"sound", 1}, ZOF_NAMES_END};

const reflect_item_t zof_prj_tone_t_tbl[] = {
    CSON_ENUM(zof_prj_tone_t, type, 0, tone_names),
    CSON_INT(zof_prj_tone_t, time),
    CSON_TEXT(zof_prj_tone_t, sound),
    CSON_INT(zof_prj_tone_t, volum),
    CSON_END,
};

static const zof_name_t touch_names[] = {{"open", 1},         {"tones", 2},         {"anywhere", 4},
                                         {"at_release", 8},   {"report_press", 16}, {"report_release", 32},
                                         {"report_hold", 64}, {"calibrate", 128},   ZOF_NAMES_END};

const reflect_item_t zof_prj_touch_t_tbl[] = {
    CSON_SUM(zof_prj_touch_t, th_en, 0, touch_names),
    CSON_INT(zof_prj_touch_t, long_press_time),
    CSON_END,
};

const reflect_item_t zof_prj_hw_attr_t_tbl[] = {
    CSON_OBJ(zof_prj_hw_attr_t, dis_t, zof_prj_dis_t_tbl),
    CSON_OBJ(zof_prj_hw_attr_t, tone_t, zof_prj_tone_t_tbl),
    CSON_OBJ(zof_prj_hw_attr_t, touch_t, zof_prj_touch_t_tbl),
    CSON_END,
};

const reflect_item_t zof_func_standby_t_tbl[] = {
    CSON_INT(zof_func_standby_t, stdby_view),   CSON_INT(zof_func_standby_t, stdby_time),
    CSON_INT(zof_func_standby_t, stdby_bright), CSON_INT(zof_func_standby_t, off_time),
    CSON_INT(zof_func_standby_t, off_bright),   CSON_INT(zof_func_standby_t, on_bright),
    CSON_INT(zof_func_standby_t, on_view),      CSON_END,
};

const reflect_item_t zof_func_t_tbl[] = {
    CSON_OBJ(zof_func_t, standby_t, zof_func_standby_t_tbl),
    CSON_END,
};

static const zof_name_t show_names[] = {{"firmware", 1}, {"runtime", 2}, {"application", 4}, {"fps", 8},
                                        {"memory", 16},  {"bottom", 32}, ZOF_NAMES_END};

const reflect_item_t zof_prj_attr_t_tbl[] = {
    CSON_TEXT(zof_prj_attr_t, p_name),
    CSON_INT(zof_prj_attr_t, width),
    CSON_INT(zof_prj_attr_t, height),
    CSON_TEXT(zof_prj_attr_t, language),
    CSON_INT(zof_prj_attr_t, start_page),
    CSON_INT(zof_prj_attr_t, cacheImg),
    CSON_TEXT(zof_prj_attr_t, app_ver),
    CSON_TEXT(zof_prj_attr_t, comp_time),
    CSON_INT(zof_prj_attr_t, init_allview),
    CSON_ENUM(zof_prj_attr_t, rotate, 4, 0),
    CSON_SUM(zof_prj_attr_t, show_en, 0, show_names),
    CSON_INT(zof_prj_attr_t, win_mem),
    CSON_INT(zof_prj_attr_t, allow_outside),
    CSON_OBJ(zof_prj_attr_t, hw_t, zof_prj_hw_attr_t_tbl),
    CSON_OBJ(zof_prj_attr_t, func_t, zof_func_t_tbl),
    CSON_KNOWN("views"),   // read by hand
    CSON_KNOWN("version"), // read before the project is opened
    CSON_END,
};

static const zof_name_t speed_names[] = {
    {"2400 baud", 0},     {"4800 baud", 1},     {"9600 baud", 2},     {"19200 baud", 3},
    {"38400 baud", 4},    {"57600 baud", 5},    {"115200 baud", 6},   {"230400 baud", 7},
    {"460800 baud", 8},   {"500000 baud", 9},   {"576000 baud", 10},  {"921600 baud", 11},
    {"1000000 baud", 12}, {"1152000 baud", 13}, {"1500000 baud", 14}, ZOF_NAMES_END};
static const zof_name_t bit_names[] = {{"7 bits", 0}, {"8 bits", 1}, ZOF_NAMES_END};
static const zof_name_t parity_names[] = {{"none", 0}, {"odd", 1}, {"even", 2}, ZOF_NAMES_END};
static const zof_name_t stop_names[] = {{"1 bit", 0}, {"2 bits", 1}, ZOF_NAMES_END};

const reflect_item_t zof_uart_cfg_t_tbl[] = {
    CSON_INT(zof_uart_cfg_t, win_port),
    CSON_INT(zof_uart_cfg_t, port),
    CSON_ENUM(zof_uart_cfg_t, speed_e, 0, speed_names),
    CSON_ENUM(zof_uart_cfg_t, bit_e, 0, bit_names),
    CSON_ENUM(zof_uart_cfg_t, parity_e, 0, parity_names),
    CSON_ENUM(zof_uart_cfg_t, stop_e, 0, stop_names),
    CSON_END,
};

const reflect_item_t zof_hmi_attr_t_tbl[] = {
    CSON_INT(zof_hmi_attr_t, hmi_en),
    CSON_OBJ(zof_hmi_attr_t, uart, zof_uart_cfg_t_tbl),
    CSON_INT(zof_hmi_attr_t, head_fh),
    CSON_INT(zof_hmi_attr_t, head_fl),
    CSON_INT(zof_hmi_attr_t, buffsize),
    CSON_INT(zof_hmi_attr_t, timeout),
    CSON_INT(zof_hmi_attr_t, resend_en),
    CSON_INT(zof_hmi_attr_t, crc_en),
    CSON_INT(zof_hmi_attr_t, event_en),
    CSON_INT(zof_hmi_attr_t, load_en),
    CSON_END,
};

static const zof_name_t layer_names[] = {{"screen", ZOF_LAYER_UI},
                                         {"above", ZOF_LAYER_STATE},
                                         {"top", ZOF_LAYER_TOP},
                                         {"behind", ZOF_LAYER_BG},
                                         ZOF_NAMES_END};

const reflect_item_t zof_view_attr_t_tbl[] = {
    CSON_TEXT(zof_view_attr_t, v_name),   CSON_INT(zof_view_attr_t, v_id),
    CSON_INT(zof_view_attr_t, bg_scale),  CSON_COLOR(zof_view_attr_t, bg_color),
    CSON_TEXT(zof_view_attr_t, bg_image), CSON_ENUM(zof_view_attr_t, layer, ZOF_LAYER_COUNT, layer_names),
    CSON_BOOL(zof_view_attr_t, model_en), CSON_END,
};

static const zof_name_t scrollbar_names[] = {{"never", LV_SCROLLBAR_MODE_OFF},
                                             {"always", LV_SCROLLBAR_MODE_ON},
                                             {"scrolling", LV_SCROLLBAR_MODE_ACTIVE},
                                             {"needed", LV_SCROLLBAR_MODE_AUTO},
                                             ZOF_NAMES_END};
static const zof_name_t chain_names[] = {{"none", 0}, {"horizontal", 1}, {"vertical", 2}, {"both", 3}, ZOF_NAMES_END};

const reflect_item_t zof_scrollbar_t_tbl[] = {
    CSON_ENUM(zof_scrollbar_t, mode_e, LV_SCROLLBAR_MODE_AUTO + 1, scrollbar_names),
    CSON_SUM(zof_scrollbar_t, dir_e, LV_DIR_ALL + 1, zof_dir_names),
    CSON_ENUM(zof_scrollbar_t, chain_e, 4, chain_names),
    CSON_BOOL(zof_scrollbar_t, momentum),
    CSON_BOOL(zof_scrollbar_t, elastic),
    CSON_BOOL(zof_scrollbar_t, scroll_one),
    CSON_END,
};

static const zof_name_t touch_mode_names[] = {{"pass", 0}, {"touch", 1}, {"default", 2}, ZOF_NAMES_END};

// `alpha` is the only row of all tables that is not nullable. This loses nothing: it is the last row, and every record
// contains this table in a nullable row.
const reflect_item_t zof_pub_attr_t_tbl[] = {
    CSON_TEXT(zof_pub_attr_t, name),
    CSON_INT(zof_pub_attr_t, id),
    CSON_INT(zof_pub_attr_t, parent_id),
    CSON_BOOL(zof_pub_attr_t, pub),
    CSON_ENUM(zof_pub_attr_t, ctrl_type, 0, zof_type_names),
    CSON_OBJ(zof_pub_attr_t, pt, zof_point_t_tbl),
    CSON_OBJ(zof_pub_attr_t, size, zof_size_t_tbl),
    CSON_INT(zof_pub_attr_t, click_area),
    CSON_ENUM(zof_pub_attr_t, t_mode, 0, touch_mode_names),
    CSON_OBJ(zof_pub_attr_t, scrollbar_t, zof_scrollbar_t_tbl),
    CSON_BOOL(zof_pub_attr_t, hidden),
    {"alpha", offsetof(zof_pub_attr_t, alpha), sizeof(u8), CSON_INTEGER, 0, 0, 0, 0},
    CSON_END,
};

const reflect_item_t zof_border_t_tbl[] = {
    CSON_COLOR(zof_border_t, color),
    CSON_INT(zof_border_t, width),
    CSON_SUM(zof_border_t, part, 2 * LV_BORDER_SIDE_INTERNAL, zof_side_names),
    CSON_INT(zof_border_t, opa),
    CSON_END,
};

const reflect_item_t zof_shadow_t_tbl[] = {
    CSON_COLOR(zof_shadow_t, color),
    CSON_INT(zof_shadow_t, width),
    CSON_INT(zof_shadow_t, type),
    CSON_END,
};

const reflect_item_t zof_padding_t_tbl[] = {
    CSON_INT(zof_padding_t, top),   CSON_INT(zof_padding_t, bottom), CSON_INT(zof_padding_t, left),
    CSON_INT(zof_padding_t, right), CSON_INT(zof_padding_t, inner),  CSON_END,
};

static const zof_name_t gradient_names[] = {
    {"none", LV_GRAD_DIR_NONE}, {"vertical", LV_GRAD_DIR_VER}, {"horizontal", LV_GRAD_DIR_HOR}, ZOF_NAMES_END};

const reflect_item_t zof_body_dis_t_tbl[] = {
    CSON_COLOR(zof_body_dis_t, main_color),
    CSON_COLOR(zof_body_dis_t, grad_color),
    CSON_ENUM(zof_body_dis_t, grad_dir_e, LV_GRAD_DIR_HOR + 1, gradient_names),
    CSON_INT(zof_body_dis_t, radius),
    CSON_INT(zof_body_dis_t, opa),
    CSON_OBJ(zof_body_dis_t, border, zof_border_t_tbl),
    CSON_OBJ(zof_body_dis_t, shadow, zof_shadow_t_tbl),
    CSON_OBJ(zof_body_dis_t, padding, zof_padding_t_tbl),
    CSON_END,
};

const reflect_item_t zof_text_dis_t_tbl[] = {
    CSON_COLOR(zof_text_dis_t, color),    CSON_COLOR(zof_text_dis_t, sel_color),
    CSON_TEXT(zof_text_dis_t, font_lib),  CSON_INT(zof_text_dis_t, font_size),
    CSON_INT(zof_text_dis_t, char_space), CSON_INT(zof_text_dis_t, line_space),
    CSON_INT(zof_text_dis_t, opa),        CSON_END,
};

const reflect_item_t zof_img_dis_t_tbl[] = {
    CSON_TEXT(zof_img_dis_t, bg_img),
    CSON_END,
};

const reflect_item_t zof_style_attr_t_tbl[] = {
    ZOF_STYLE_KEYS,
    CSON_OBJ(zof_style_attr_t, body_t, zof_body_dis_t_tbl),
    CSON_OBJ(zof_style_attr_t, txt_t, zof_text_dis_t_tbl),
    CSON_OBJ(zof_style_attr_t, img_t, zof_img_dis_t_tbl),
    CSON_END,
};

const reflect_item_t zof_entry_t_tbl[] = {
    CSON_NAMED(zof_entry_t, type, ZOF_CTRL_TYPE_COUNT, CSON_SKIP_ENCODE, zof_type_names),
    CSON_KNOWN("theme"),
    CSON_KNOWN("look"),
    CSON_KNOWN("on"),
    CSON_KNOWN("property"),
    CSON_END,
};
