// Commands of input controls (types B2 0A, B2 0C, B2 13, B2 16): message box, text box, keyboard, button matrix.
#include "control/zof_btnmatrix.h"
#include "control/zof_keyboard.h"
#include "control/zof_mbox.h"
#include "control/zof_txtbox.h"
#include "hmi/zof_hmi_ctrl_in.h"

// Acknowledges with 1 for closing and opening, and for anything else.
static s32 mbox_ctrl(void *type, void *, void *value, void *reply) {
    para_t *box = hmi_ctrl(type, ZOF_CTRL_MBOX);
    const u8 open = *(u8 *)value;
    if (open == 0) {
        zof_mbox_s_close(box);
    }
    if (open == 1) {
        zof_mbox_s_open(box);
    }
    return hmi_ctrl_refuse(reply);
}

static s32 txtbox_del_char(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_choose(type, ZOF_CTRL_TXTBOX, *(u8 *)value, zof_txtbox_del_char, zof_txtbox_del_char_forward,
                           reply);
}

static s32 txtbox_get_text(void *type, void *, void *value) {
    return hmi_ctrl_give_text(value, zof_txtbox_get_text(hmi_ctrl(type, ZOF_CTRL_TXTBOX)));
}

// One call with a number up to LAST; larger ones are refused.
template <u8 LAST, s32 TYPE, auto CALL> static s32 set_up_to(void *type, void *, void *value, void *reply) {
    const u8 number = *(u8 *)value;
    return number > LAST ? hmi_ctrl_refuse(reply) : hmi_ctrl_answer(reply, CALL(hmi_ctrl(type, TYPE), number));
}

template <s32 TYPE, auto CALL> static s32 get_btn_text(void *type, void *req, void *value) {
    return hmi_ctrl_give_text(value, CALL(hmi_ctrl(type, TYPE), *(u16 *)req));
}

static s32 btnm_btn_set_ctrl(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u16u16_t *)value;
    if (v->a > 1) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, (v->a ? zof_btnmatrix_set_btn_ctrl : zof_btnmatrix_clear_btn_ctrl)(
                                      hmi_ctrl(type, ZOF_CTRL_BTNMATRIX), v->b, v->c));
}

static s32 btnm_set_ctrl(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u16_t *)value;
    if (v->a > 1) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, (v->a ? zof_btnmatrix_set_btn_ctrl_all
                                        : zof_btnmatrix_clear_btn_ctrl_all)(hmi_ctrl(type, ZOF_CTRL_BTNMATRIX), v->b));
}

static s32 btnm_btn_get_ctrl(void *type, void *req, void *value) {
    const auto *asked = (const zof_hmi_u16u16_t *)req;
    *(u8 *)value = (u8)zof_btnmatrix_has_btn_ctrl(hmi_ctrl(type, ZOF_CTRL_BTNMATRIX), asked->a, asked->b);
    return ZOF_HMI_DONE;
}

static s32 btnm_btn_set_width(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u16_t *)value;
    return hmi_ctrl_answer(reply, zof_btnmatrix_set_btn_width(hmi_ctrl(type, ZOF_CTRL_BTNMATRIX), v->b, v->a));
}

static s32 btnm_set_caption(void *type, void *req, void *value, void *reply) {
    para_t *matrix = hmi_ctrl(type, ZOF_CTRL_BTNMATRIX);
    return hmi_ctrl_answer(reply, zof_btnmatrix_set_btn_txt(matrix, *(u16 *)req, *(const char **)value));
}

// The text box is in the same view.
static s32 keyboard_set_target(void *type, void *, void *value, void *reply) {
    const zof_hmi_ctrl_id_t box = {((const zof_hmi_ctrl_id_t *)type)->view_id, *(u16 *)value};
    return hmi_ctrl_answer(reply,
                           zof_keyboard_set_txtbox(hmi_ctrl(type, ZOF_CTRL_KEYBOARD), hmi_ctrl(&box, ZOF_CTRL_TXTBOX)));
}

static zof_ctrl_t *keyboard_box(void *type) {
    return (zof_ctrl_t *)zof_keyboard_get_txtbox(hmi_ctrl(type, ZOF_CTRL_KEYBOARD));
}

static s32 keyboard_get_text(void *type, void *, void *value) {
    zof_ctrl_t *box = keyboard_box(type);
    return hmi_ctrl_give_text(value, box ? zof_txtbox_get_text(box) : nullptr);
}

static s32 keyboard_set_text(void *type, void *, void *value, void *reply) {
    zof_ctrl_t *box = keyboard_box(type);
    return hmi_ctrl_answer(reply, box ? zof_txtbox_set_text(box, *(const char **)value) : -1);
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_mbox_params[ZOF_CTRL_MBOX_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "title", .help = "The title.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_MBOX, zof_title_set_txt>},
    {.len = 1, .code = {0x01}, .name = "text", .help = "The text.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_MBOX, zof_mbox_set_txt>},
    {.len = 1, .code = {0x02}, .name = "auto_close", .help = "Closes the box after a time in milliseconds.",
     .value_names = "ms",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_MBOX, zof_mbox_start_auto_close>},
    {.len = 1, .code = {0x03}, .name = "open", .help = "Closes (0) or opens (1) the box.", .value_names = "open",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = mbox_ctrl},
    {.len = 1, .code = {0x04}, .name = "clicked", .help = "The button clicked last, counted from 0; 65535 for none.",
     .value_names = "button",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, ZOF_CTRL_MBOX, zof_mbox_get_clicked_btn_num>},
    {.len = 1, .code = {0x05}, .name = "clicked_text", .help = "The caption of the button clicked last.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_get_value_text<ZOF_CTRL_MBOX>},
};

const zof_hmi_param_type_t zof_ctrl_txtbox_params[ZOF_CTRL_TXTBOX_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .chooses = ZOF_HMI_ACTS, .name = "add_text",
     .help = "Adds a text at the cursor.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_TXTBOX, zof_txtbox_add_txt>},
    {.len = 1, .code = {0x01}, .chooses = ZOF_HMI_ACTS, .name = "add_char",
     .help = "Adds a character at the cursor: its UTF-8 bytes, the first one in the lowest byte.",
     .value_names = "character",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u32, ZOF_CTRL_TXTBOX, zof_txtbox_add_char>},
    {.len = 1, .code = {0x02}, .chooses = ZOF_HMI_ACTS, .name = "delete",
     .help = "Deletes the character before the cursor (0) or after it (1).", .value_names = "forward",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = txtbox_del_char},
    {.len = 1, .code = {0x03}, .name = "text", .help = "The whole text.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = txtbox_get_text,
     .set_fun = hmi_set<const char *, ZOF_CTRL_TXTBOX, zof_txtbox_set_text>},
    {.len = 1, .code = {0x04}, .name = "password", .help = "Whether the text is shown as bullets.",
     .value_names = "on",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = set_up_to<1, ZOF_CTRL_TXTBOX, zof_txtbox_pwd_mode>},
    {.len = 1, .code = {0x05}, .name = "cursor", .help = "Moves the cursor: 0 right, 1 left, 2 down, 3 up.",
     .value_names = "where",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = set_up_to<3, ZOF_CTRL_TXTBOX, zof_txtbox_cursor_move>},
};

const zof_hmi_param_type_t zof_ctrl_keyboard_params[ZOF_CTRL_KEYBOARD_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "key", .help = "The key pressed last, counted from 0; 65535 for none.",
     .value_names = "key",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u32, ZOF_CTRL_KEYBOARD, zof_keyboard_get_selected_btn>},
    {.len = 1, .code = {0x01}, .name = "caption", .help = "The caption of a key.", .req_names = "key",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .get_fun = get_btn_text<ZOF_CTRL_KEYBOARD, zof_keyboard_get_btn_text>},
    {.len = 1, .code = {0x02}, .name = "target", .help = "The text box that receives the keys, of the same view.",
     .value_names = "box",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = keyboard_set_target},
    {.len = 1, .code = {0x03}, .name = "text", .help = "The text of the text box that receives the keys.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = keyboard_get_text,
     .set_fun = keyboard_set_text},
};

const zof_hmi_param_type_t zof_ctrl_btnm_params[ZOF_CTRL_BTNM_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "caption", .help = "The caption of a button, counted from 0.",
     .req_names = "button", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl,
     .get_fun = get_btn_text<ZOF_CTRL_BTNMATRIX, zof_btnmatrix_get_btn_text>, .set_fun = btnm_set_caption},
    {.len = 1, .code = {0x01}, .chooses = 2, .name = "button_flags",
     .help = "Clears (0) or sets (1) flags of a button: 8 hidden, 32 disabled, 64 checkable, 128 checked.",
     .value_names = "set button flags",
     .value = &zof_hmi_param_u8u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = btnm_btn_set_ctrl},
    {.len = 1, .code = {0x02}, .chooses = 1, .name = "flags", .help = "Clears (0) or sets (1) flags of all buttons.",
     .value_names = "set flags",
     .value = &zof_hmi_param_u8u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = btnm_set_ctrl},
    {.len = 1, .code = {0x03}, .name = "has_flags", .help = "Whether a button has all of these flags.",
     .req_names = "button flags", .value_names = "has",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_u16u16_s8_rw_t_tbl, .get_fun = btnm_btn_get_ctrl},
    {.len = 1, .code = {0x04}, .name = "width", .help = "Makes a button 1 to 7 times as wide as others of its row.",
     .value_names = "width button",
     .value = &zof_hmi_param_u8u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = btnm_btn_set_width},
    {.len = 1, .code = {0x05}, .name = "one_checked", .help = "Whether checking a button unchecks the others.",
     .value_names = "on",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_BTNMATRIX, zof_btnmatrix_get_one_checked>,
     .set_fun = hmi_set<u8, ZOF_CTRL_BTNMATRIX, zof_btnmatrix_set_one_checked>},
    {.len = 1, .code = {0x06}, .name = "clicked", .help = "The button pressed last, counted from 0; 65535 for none.",
     .value_names = "button",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, ZOF_CTRL_BTNMATRIX, zof_btnmatrix_get_selected_btn>,
     .set_fun = hmi_set<u16, ZOF_CTRL_BTNMATRIX, zof_btnmatrix_set_selected_btn>},
    {.len = 1, .code = {0x07}, .name = "clicked_text", .help = "The caption of the button pressed last.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_get_value_text<ZOF_CTRL_BTNMATRIX>},
};
// clang-format on
