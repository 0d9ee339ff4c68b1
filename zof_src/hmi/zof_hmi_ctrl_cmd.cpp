// Commands that every control has (type B2 F0), on the graphics thread. A handler is a row of the table and one call of
// the control layer; what a host may send but the layer cannot handle is refused here.
#include "hmi/zof_hmi_ctrl_in.h"

#include "hmi/zof_hmi_event.h"
#include "project/view/zof_view.h"
#include "zof_lib/zof_stdio.h"

static s32 get_hidden(void *type, void *, void *value) {
    *(s8 *)value = (s8)zof_ctrl_get_hidden(hmi_ctrl(type, HMI_ANY_TYPE));
    return ZOF_HMI_DONE;
}

static s32 set_hidden(void *type, void *, void *value, void *reply) {
    const s8 hidden = *(s8 *)value;
    if (hidden != 0 && hidden != 1) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, zof_ctrl_set_hidden(hmi_ctrl(type, HMI_ANY_TYPE), (zof_bool)hidden));
}

static s32 set_pos(void *type, void *, void *value, void *reply) {
    const auto *id = (const zof_hmi_ctrl_id_t *)type;
    const auto *v = (const zof_hmi_s16s16_t *)value;
    zof_printf("view_id = %d, ctrl_id = %d\n", id->view_id, id->ctrl_id);
    return hmi_ctrl_answer(reply, zof_ctrl_set_pos(hmi_ctrl(type, HMI_ANY_TYPE), v->a, v->b));
}

static s32 set_size(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16u16_t *)value;
    return hmi_ctrl_answer(reply, zof_ctrl_set_size(hmi_ctrl(type, HMI_ANY_TYPE), v->a, v->b));
}

static s32 move_fore_back(void *type, void *, void *value, void *reply) {
    return hmi_ctrl_choose(type, HMI_ANY_TYPE, *(u8 *)value, zof_ctrl_move_background, zof_ctrl_move_forground, reply);
}

// The base control is in the same view.
static s32 set_align(void *type, void *req, void *value, void *reply) {
    const zof_hmi_ctrl_id_t base = {((const zof_hmi_ctrl_id_t *)type)->view_id, *(u16 *)req};
    const auto *v = (const zof_hmi_u8s16s16_t *)value;
    if (v->a > LV_ALIGN_OUT_RIGHT_BOTTOM) {
        return hmi_ctrl_answer(reply, -1);
    }
    return hmi_ctrl_answer(
        reply, zof_ctrl_set_align(hmi_ctrl(type, HMI_ANY_TYPE), hmi_ctrl(&base, HMI_ANY_TYPE), v->a, v->b, v->c));
}

static s32 get_xy(void *type, void *, void *value) {
    para_t *c = hmi_ctrl(type, HMI_ANY_TYPE);
    *(zof_hmi_u16u16_t *)value = {(u16)zof_ctrl_get_x(c), (u16)zof_ctrl_get_y(c)};
    return ZOF_HMI_DONE;
}

static s32 set_scroll(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8s16s16_t *)value;
    return hmi_ctrl_answer(reply, zof_ctrl_scroll_set(hmi_ctrl(type, HMI_ANY_TYPE), v->b, v->c, v->a));
}

static s32 get_scroll(void *type, void *, void *value) {
    para_t *c = hmi_ctrl(type, HMI_ANY_TYPE);
    *(zof_hmi_s16s16_t *)value = {(s16)zof_ctrl_scroll_get_x(c), (s16)zof_ctrl_scroll_get_y(c)};
    return ZOF_HMI_DONE;
}

// 1: it can be read and written; 0: its view is not loaded, or has deleted it when it was left; -1: it does not exist.
static s32 get_present(void *type, void *, void *value) {
    const auto *id = (const zof_hmi_ctrl_id_t *)type;
    const bool loaded = zof_view_list_get_ctrl_list(id->view_id) != nullptr;
    const para_t *record = loaded ? zof_ctrl_get_form_id(id->view_id, id->ctrl_id) : nullptr;
    const bool possible = loaded ? record != nullptr : zof_view_name_get(id->view_id) != nullptr;
    *(s8 *)value = (s8)(record && record->obj ? 1 : possible ? 0 : -1);
    return ZOF_HMI_DONE;
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_pub_params[ZOF_CTRL_PUB_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "hidden", .help = "Whether the control is hidden: 1 or 0.",
     .value_names = "hidden",
     .value = &zof_hmi_one_s8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = get_hidden, .set_fun = set_hidden},
    {.len = 1, .code = {0x01}, .name = "width", .help = "Width in pixels.", .value_names = "width",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, HMI_ANY_TYPE, zof_ctrl_get_width>},
    {.len = 1, .code = {0x02}, .name = "height", .help = "Height in pixels.", .value_names = "height",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, HMI_ANY_TYPE, zof_ctrl_get_height>},
    {.len = 1, .code = {0x03}, .name = "pos", .help = "Moves the control within its parent.", .value_names = "x y",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = set_pos},
    {.len = 1, .code = {0x04}, .name = "size", .help = "Width and height in pixels.", .value_names = "width height",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = set_size},
    {.len = 1, .code = {0x05}, .name = "alpha", .help = "Opacity, 255 for opaque.", .value_names = "alpha",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u8, HMI_ANY_TYPE, zof_ctrl_set_alpha>},
    {.len = 1, .code = {0x06}, .chooses = ZOF_HMI_ACTS, .name = "move",
     .help = "To the bottom (0) or the top (1) of its parent's children.",
     .value_names = "where",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = move_fore_back},
    {.len = 1, .code = {0x07}, .name = "touch", .help = "1 takes touches, 0 lets them through.", .value_names = "touch",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u8, HMI_ANY_TYPE, zof_ctrl_set_touch>},
    {.len = 1, .code = {0x08}, .name = "click_area", .help = "Widens the area that takes touches by so many pixels.",
     .value_names = "pixels",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, HMI_ANY_TYPE, zof_ctrl_set_ext_click_area>},
    {.len = 1, .code = {0x09}, .name = "align", .help = "Places the control at another one of its view.",
     .req_names = "base", .value_names = "align x y",
     .value = &zof_hmi_param_u8s16s16_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl, .set_fun = set_align},
    {.len = 1, .code = {0x0A}, .name = "children", .help = "How many children the control has.", .value_names = "count",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u16, HMI_ANY_TYPE, zof_ctrl_get_child_sum>},
    {.len = 1, .code = {0x0B}, .name = "xy", .help = "Where the control stands within its parent.",
     .value_names = "x y",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = get_xy},
    {.len = 1, .code = {0x0C}, .name = "scroll_to", .help = "Scrolls the contents, at once (0) or in an animation (1).",
     .value_names = "animate x y",
     .value = &zof_hmi_param_u8s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = set_scroll},
    {.len = 1, .code = {0x0D}, .name = "scroll", .help = "How far the contents are scrolled.", .value_names = "x y",
     .value = &zof_hmi_param_s16s16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = get_scroll},
    {.len = 1, .code = {0x0E}, .name = "event",
     .help = "What the control stands at; also sent by the panel for each event, with `event_en`. The number counts "
             "events modulo 256.",
     .value_names = "seq event number text",
     .value = &zof_hmi_state_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = zof_hmi_event_get},
    {.len = 1, .code = {0x0F}, .name = "present",
     .help = "1 if the control can be read and written, 0 if its view is not loaded, -1 if there is no such control.",
     .value_names = "present",
     .value = &zof_hmi_one_s8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = get_present},
    {.len = 1, .code = {0x10}, .name = "key",
     .help = "The language key, with #, that its text or picture follows; empty if there is no such key. A write "
             "shows the text or picture of another key.",
     .value_names = "key",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = hmi_ctrl_key_get,
     .set_fun = hmi_ctrl_key_set},
};
// clang-format on
