// Commands of text lists (types B2 0D to B2 0F): list, drop list, roller list.
#include "control/zof_droplist.h"
#include "control/zof_list.h"
#include "control/zof_rollist.h"
#include "hmi/zof_hmi_ctrl_in.h"

static s32 list_del_all(void *type, void *, void *, void *reply) {
    return hmi_ctrl_answer(reply, zof_list_remove_all(hmi_ctrl(type, ZOF_CTRL_LIST)));
}

static s32 list_btn_get_text(void *type, void *req, void *value) {
    return hmi_ctrl_give_text(value, zof_list_get_index_str(hmi_ctrl(type, ZOF_CTRL_LIST), *(u16 *)req));
}

static s32 list_btn_set_text(void *type, void *req, void *value, void *reply) {
    para_t *list = hmi_ctrl(type, ZOF_CTRL_LIST);
    return hmi_ctrl_answer(reply, zof_list_set_index_str(list, *(u16 *)req, *(const char **)value));
}

static s32 droplist_ctrl(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_choose(type, ZOF_CTRL_DROPLIST, *(u8 *)value, zof_droplist_close, zof_droplist_open, reply);
}

static s32 list_add(void *type, void *, void *value, void *reply) {
    para_t *list = hmi_ctrl(type, ZOF_CTRL_LIST);
    return hmi_ctrl_answer(reply, zof_list_add_btn(list, nullptr, *(const char **)value) ? 0 : -1);
}

static s32 list_set_selected(void *type, void *, void *value, void *reply) {
    para_t *list = hmi_ctrl(type, ZOF_CTRL_LIST);
    return hmi_ctrl_answer(reply, zof_list_set_select_index(list, zof_list_get_index_btn(list, *(u16 *)value)));
}

static s32 rollist_set_selected(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_answer(reply, zof_rollist_set_selected(hmi_ctrl(type, ZOF_CTRL_ROLLIST), *(u16 *)value, 0));
}

// Sets a text at a position.
template <s32 TYPE, auto CALL> static s32 set_text_at(void *type, void *req, void *value, void *reply) {
    return hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), *(const char **)value, *(u16 *)req));
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_list_params[ZOF_CTRL_LIST_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .chooses = ZOF_HMI_ACTS, .name = "remove",
     .help = "Removes a button, counted from 0.", .value_names = "index",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_LIST, zof_list_del_btn>},
    {.len = 1, .code = {0x01}, .chooses = ZOF_HMI_ACTS, .name = "clear",
     .help = "Removes all buttons; the value is ignored.",
     .value_names = "any",
     .value = &zof_hmi_one_s8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = list_del_all},
    {.len = 1, .code = {0x02}, .name = "text", .help = "The text of a button, counted from 0.", .req_names = "index",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .get_fun = list_btn_get_text, .set_fun = list_btn_set_text},
    {.len = 1, .code = {0x03}, .chooses = ZOF_HMI_ACTS, .name = "add", .help = "Adds a button at the end.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = list_add},
    {.len = 1, .code = {0x04}, .name = "selected",
     .help = "The button that was touched last, 65535 for none; a write checks a button and no other.",
     .value_names = "index",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, ZOF_CTRL_LIST, zof_list_get_select_index>, .set_fun = list_set_selected},
    {.len = 1, .code = {0x05}, .name = "selected_text", .help = "The text of the button that was touched last.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_get_value_text<ZOF_CTRL_LIST>},
};

const zof_hmi_param_type_t zof_ctrl_droplist_params[ZOF_CTRL_DROPLIST_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .chooses = ZOF_HMI_ACTS, .name = "add",
     .help = "Inserts an option before a position, or appends it beyond the end.",
     .req_names = "position", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .set_fun = set_text_at<ZOF_CTRL_DROPLIST, zof_droplist_add_option>},
    {.len = 1, .code = {0x01}, .name = "modify", .help = "Replaces an option, counted from 0.",
     .req_names = "position", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .set_fun = set_text_at<ZOF_CTRL_DROPLIST, zof_droplist_modify_option>},
    {.len = 1, .code = {0x02}, .chooses = ZOF_HMI_ACTS, .name = "remove",
     .help = "Removes an option, counted from 0.",
     .value_names = "position",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_DROPLIST, zof_droplist_del_option>},
    {.len = 1, .code = {0x03}, .name = "open", .help = "Closes (0) or opens (1) the list.", .value_names = "open",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = droplist_ctrl},
    {.len = 1, .code = {0x04}, .name = "selected", .help = "The selected option, counted from 0.",
     .value_names = "index",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, ZOF_CTRL_DROPLIST, zof_droplist_get_selected>,
     .set_fun = hmi_set<u16, ZOF_CTRL_DROPLIST, zof_droplist_set_selected>},
    {.len = 1, .code = {0x05}, .name = "selected_text", .help = "The text of the selected option.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_get_value_text<ZOF_CTRL_DROPLIST>},
};

const zof_hmi_param_type_t zof_ctrl_rollist_params[ZOF_CTRL_ROLLIST_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .chooses = ZOF_HMI_ACTS, .name = "add",
     .help = "Inserts an option before a position, or appends it beyond the end.",
     .req_names = "position", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .set_fun = set_text_at<ZOF_CTRL_ROLLIST, zof_rollist_add_option>},
    {.len = 1, .code = {0x01}, .name = "modify", .help = "Replaces an option, counted from 0.",
     .req_names = "position", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .set_fun = set_text_at<ZOF_CTRL_ROLLIST, zof_rollist_modify_option>},
    {.len = 1, .code = {0x02}, .chooses = ZOF_HMI_ACTS, .name = "remove",
     .help = "Removes an option, counted from 0.",
     .value_names = "position",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_ROLLIST, zof_rollist_del_option>},    {.len = 1, .code = {0x03}, .name = "selected", .help = "The selected option, counted from 0.",
     .value_names = "index",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, ZOF_CTRL_ROLLIST, zof_rollist_get_selected>, .set_fun = rollist_set_selected},
    {.len = 1, .code = {0x04}, .name = "selected_text", .help = "The text of the selected option.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_get_value_text<ZOF_CTRL_ROLLIST>},
};
// clang-format on
