// Commands of controls with a text or a picture (types B2 00 to B2 03, B2 08, B2 09): label, button, image, image
// button, switch, check box.
#include "control/zof_btn.h"
#include "control/zof_cb.h"
#include "control/zof_img.h"
#include "control/zof_imgbtn.h"
#include "control/zof_label.h"
#include "control/zof_sw.h"
#include "hmi/zof_hmi_ctrl_in.h"

static s32 label_get_txt(void *type, void *, void *value) {
    return hmi_ctrl_give_text(value, zof_label_get_text(hmi_ctrl(type, ZOF_CTRL_LABEL)));
}

static s32 label_set_dis_mode(void *type, void *, void *value, void *reply) {
    const u8 mode = *(u8 *)value;
    const bool known = mode <= LV_LABEL_LONG_CLIP;
    return hmi_ctrl_answer(reply, known ? zof_label_set_dis_mode(hmi_ctrl(type, ZOF_CTRL_LABEL), mode) : -1);
}

static s32 btn_set_txt_color(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u32_t *)value;
    return hmi_ctrl_answer(reply, zof_btn_set_txt_color(hmi_ctrl(type, ZOF_CTRL_BTN), v->b, v->a));
}

static s32 btn_set_mode(void *type, void *, void *value, void *reply) {
    const u8 mode = *(u8 *)value;
    return mode > 1 ? hmi_ctrl_refuse(reply)
                    : hmi_ctrl_answer(reply, zof_btn_set_mode(hmi_ctrl(type, ZOF_CTRL_BTN), mode));
}

static s32 img_get_src(void *type, void *, void *value) {
    return hmi_ctrl_give_text(value, zof_img_get_src(hmi_ctrl(type, ZOF_CTRL_IMG)));
}

static s32 imgbtn_set_txt_color(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u32_t *)value;
    return hmi_ctrl_answer(reply, zof_imgbtn_set_txt_color(hmi_ctrl(type, ZOF_CTRL_IMGBTN), v->b, v->a));
}

static s32 imgbtn_set_src(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8str_t *)value;
    return hmi_ctrl_answer(reply, zof_imgbtn_set_image(hmi_ctrl(type, ZOF_CTRL_IMGBTN), v->a, v->text));
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_label_params[ZOF_CTRL_LABEL_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "text", .help = "The text; one that begins with # is looked up in the language.",
     .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = label_get_txt,
     .set_fun = hmi_set<const char *, ZOF_CTRL_LABEL, zof_label_set_txt>},
    {.len = 1, .code = {0x01}, .name = "color", .help = "Colour of the text, 0xRRGGBB.", .value_names = "rgb",
     .value = &zof_hmi_one_u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u32, ZOF_CTRL_LABEL, zof_label_set_txt_color>},
    {.len = 1, .code = {0x02}, .name = "font_size", .help = "Size of the text in pixels, 1 to 512.",
     .value_names = "pixels",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_txt_size<ZOF_CTRL_LABEL, zof_label_set_txt_size>},
    {.len = 1, .code = {0x03}, .name = "long_mode",
     .help = "What a long text does: 0 wraps, 1 ends in dots, 2 scrolls, 3 scrolls in circles, 4 is cut.",
     .value_names = "mode",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = label_set_dis_mode},
    {.len = 1, .code = {0x04}, .name = "scroll_speed", .help = "Speed of a scrolling text in pixels a second.",
     .value_names = "speed",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_LABEL, zof_label_set_anim_speed>},
    {.len = 1, .code = {0x05}, .name = "align",
     .help = "Low half: alignment of the lines; high half: 1 top, 2 middle, 3 bottom.", .value_names = "align",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u8, ZOF_CTRL_LABEL, zof_label_set_align>},
};

const zof_hmi_param_type_t zof_ctrl_btn_params[ZOF_CTRL_BTN_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "text", .help = "The text on the button.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_BTN, zof_btn_set_txt>},
    {.len = 1, .code = {0x01}, .chooses = 1, .name = "color", .help = "Colour of the text in a state, 0xRRGGBB.",
     .value_names = "selector rgb",
     .value = &zof_hmi_param_u8u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = btn_set_txt_color},
    {.len = 1, .code = {0x02}, .name = "font_size", .help = "Size of the text in pixels, 1 to 512.",
     .value_names = "pixels",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_txt_size<ZOF_CTRL_BTN, zof_btn_set_txt_size>},
    {.len = 1, .code = {0x03}, .name = "mode", .help = "0 springs back, 1 stays down at every other click.",
     .value_names = "mode",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = btn_set_mode},
    {.len = 1, .code = {0x04}, .name = "state", .help = "State bits: 1 checked, 32 pressed, 128 disabled.",
     .value_names = "state",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_BTN, zof_btn_get_state>, .set_fun = hmi_set<u8, ZOF_CTRL_BTN, zof_btn_set_state>},
};

const zof_hmi_param_type_t zof_ctrl_img_params[ZOF_CTRL_IMG_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "image", .help = "The picture, a file of the project.", .value_names = "name",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = img_get_src,
     .set_fun = hmi_set<const char *, ZOF_CTRL_IMG, zof_img_set_src>},
    {.len = 1, .code = {0x01}, .name = "angle", .help = "Turns the picture, in tenths of a degree.",
     .value_names = "angle",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<s16, ZOF_CTRL_IMG, zof_img_set_rotate_angel>},
    {.len = 1, .code = {0x02}, .name = "pivot", .help = "The point around which the picture turns.",
     .value_names = "x y",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_pair<s16, ZOF_CTRL_IMG, zof_img_set_pivot>},
    {.len = 1, .code = {0x03}, .name = "zoom", .help = "Zoom, 256 is 100 %.", .value_names = "zoom",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_IMG, zof_img_zoom_setting>},
};

const zof_hmi_param_type_t zof_ctrl_imgbtn_params[ZOF_CTRL_IMGBTN_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "text", .help = "The text on the button.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_IMGBTN, zof_imgbtn_set_txt>},
    {.len = 1, .code = {0x01}, .chooses = 1, .name = "color", .help = "Colour of the text in a state, 0xRRGGBB.",
     .value_names = "state rgb",
     .value = &zof_hmi_param_u8u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = imgbtn_set_txt_color},
    {.len = 1, .code = {0x02}, .name = "font_size", .help = "Size of the text in pixels, 1 to 512.",
     .value_names = "pixels",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set_txt_size<ZOF_CTRL_IMGBTN, zof_imgbtn_set_txt_size>},
    {.len = 1, .code = {0x03}, .name = "state",
     .help = "0 released, 1 pressed, 2 disabled, 3 checked, 4 checked and pressed, 5 checked and disabled.",
     .value_names = "state",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u8, ZOF_CTRL_IMGBTN, zof_imgbtn_set_mode>},
    {.len = 1, .code = {0x04}, .chooses = 1, .name = "image",
     .help = "The picture of a state.", .value_names = "state name",
     .value = &zof_hmi_param_u8str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = imgbtn_set_src},
};

const zof_hmi_param_type_t zof_ctrl_sw_params[ZOF_CTRL_SW_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "on", .help = "Whether the switch is on.", .value_names = "on",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_SW, zof_sw_get_state>, .set_fun = hmi_set<u8, ZOF_CTRL_SW, zof_sw_set_state>},
};

const zof_hmi_param_type_t zof_ctrl_cb_params[ZOF_CTRL_CB_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "text", .help = "The text beside the box.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_CB, zof_cb_set_txt>},
    {.len = 1, .code = {0x01}, .name = "checked", .help = "Whether the box is checked.", .value_names = "checked",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_CB, zof_cb_is_checked>, .set_fun = hmi_set<u8, ZOF_CTRL_CB, zof_cb_set_checked>},
    {.len = 1, .code = {0x02}, .name = "disabled", .help = "Whether the box takes no touches.",
     .value_names = "disabled",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_CB, zof_cb_is_inactive>, .set_fun = hmi_set<u8, ZOF_CTRL_CB, zof_cb_set_disable>},
};
// clang-format on
