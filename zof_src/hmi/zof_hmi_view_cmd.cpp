// View commands (type B1), on the graphics thread. Their acknowledgement means the same as the system's, 0 for success;
// it stays in the analyser's record, because only system writes are answered.
#include <string.h>

#include "control/zof_ctrl.h"
#include "hmi/zof_hmi_cmd.h"
#include "hmi/zof_hmi_event.h"
#include "project/view/zof_view.h"

enum { LAYERS_READ = 3 }; // the background layer has no view of its own to report

static s32 acknowledge(void *reply, s32 result) {
    *(s8 *)reply = result == 0 ? 0 : 1;
    return ZOF_HMI_DONE;
}

// Showing a view cannot fail by itself, so an unknown one is recognised here.
static s32 view_set_dis(void *, void *, void *value, void *reply) {
    const u16 id = *(u16 *)value;
    return acknowledge(reply, zof_view_name_get(id) ? zof_view_set_dis_view(id) : -1);
}

static s32 view_get_dis(void *, void *req, void *value) {
    const u8 layer = *(u8 *)req;
    if (layer >= LAYERS_READ) {
        return ZOF_HMI_FAIL;
    }
    *(u16 *)value = (u16)zof_view_get_cur_id(layer);
    return ZOF_HMI_DONE;
}

static s32 view_set_layer(void *, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u8u16_t *)value;
    return acknowledge(reply, v->a < ZOF_LAYER_COUNT ? zof_view_set_layer(v->b, v->a) : -1);
}

static s32 view_hide_layer(void *, void *, void *value, void *reply) {
    return acknowledge(reply, zof_view_hide_layer(*(u8 *)value));
}

static s32 view_load(void *, void *, void *value, void *reply) {
    return acknowledge(reply, zof_view_load(*(u16 *)value));
}

static s32 view_bg_color(void *, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16u32_t *)value;
    return acknowledge(reply, zof_view_set_bgcolor(v->a, v->b));
}

static s32 view_get_size(void *, void *, void *value) {
    zof_size_t size = {};
    zof_view_get_dis_wh(&size); // its result is meaningless
    *(zof_hmi_u16u16_t *)value = {(u16)size.width, (u16)size.height};
    return ZOF_HMI_DONE;
}

static s32 view_bg(void *, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16str_t *)value;
    return acknowledge(reply, zof_view_set_bg(v->a, v->text));
}

static s32 view_stack(void *, void *, void *value) {
    u16 views[ZOF_LAYER_COUNT];
    for (u32 layer = 0; layer < ZOF_LAYER_COUNT; layer++) {
        views[layer] = (u16)zof_view_get_cur_id(layer);
    }
    memcpy(value, views, sizeof(views));
    return ZOF_HMI_DONE;
}

static s32 view_events(void *, void *, void *value) {
    *(u8 *)value = zof_hmi_event_last();
    return ZOF_HMI_DONE;
}

// Finds the control with this number among those that have a value. Returns their count, at most `index` + 2.
static u32 valued_find(const db_list *list, u32 index, para_t **found) {
    u32 count = 0;
    *found = nullptr;
    for (const db_node *at = list->head->next; at != list->head && count < index + 2; at = at->next) {
        auto *record = (para_t *)at->data;
        const bool counts = zof_ctrl_has_value(record) != ZOF_FALSE;
        *found = counts && count == index ? record : *found;
        count += counts;
    }
    return count;
}

// One control of a view in each answer.
static s32 view_snapshot(void *, void *req, void *value) {
    const auto *asked = (const zof_hmi_u16u16_t *)req;
    db_list *list = zof_view_list_get_ctrl_list(asked->a);
    auto *out = (zof_hmi_page_t *)value;
    *out = {.seq = zof_hmi_event_last(), .more = 0, .ctrl_id = 0, .number = 0, .text = ""};
    if (!list) {
        out->number = -1;
        return ZOF_HMI_DONE;
    }
    para_t *record = nullptr;
    const u32 count = valued_find(list, asked->b, &record);
    zof_ctrl_value_t at = {.number = 0, .text = ""};
    if (zof_ctrl_get_value(record, &at) == 0) {
        out->more = asked->b + 1u < count;
        out->ctrl_id = record->id;
        out->number = at.number;
        out->text = at.text;
    }
    return ZOF_HMI_DONE;
}

// clang-format off
const zof_hmi_param_type_t zof_view_params[ZOF_VIEW_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "display", .help = "Shows a view on the layer of its file.",
     .value_names = "view",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = view_set_dis},
    {.len = 1, .code = {0x01}, .name = "displayed",
     .help = "The view on a layer: 0 interface, 1 state, 2 top; 65535 for none.",
     .req_names = "layer", .value_names = "view",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_s8_s8_rw_t_tbl, .get_fun = view_get_dis},
    {.len = 1, .code = {0x02}, .chooses = ZOF_HMI_ACTS, .name = "layer",
     .help = "Kept for old hosts: a view's layer comes from its file.",
     .value_names = "layer view",
     .value = &zof_hmi_param_u8u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = view_set_layer},
    {.len = 1, .code = {0x03}, .chooses = ZOF_HMI_ACTS, .name = "hide_layer",
     .help = "Takes the view off a layer: 0 interface, 1 state, 2 top, 3 background.",
     .value_names = "layer",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = view_hide_layer},
    {.len = 1, .code = {0x04}, .chooses = 1, .name = "load", .help = "Makes a view ready without showing it.",
     .value_names = "view",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = view_load},
    {.len = 1, .code = {0x05}, .chooses = 1, .name = "bg_color",
     .help = "Background of a view: opacity in the top byte, then red, green, blue.",
     .value_names = "view argb",
     .value = &zof_hmi_param_u16u32_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = view_bg_color},
    {.len = 1, .code = {0x06}, .name = "size", .help = "The project's width and height in pixels.",
     .value_names = "width height",
     .value = &zof_hmi_param_u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = view_get_size},
    {.len = 1, .code = {0x07}, .chooses = 1, .name = "bg_image",
     .help = "Background image of a view; the request field is not used.",
     .req_names = "unused", .value_names = "view image",
     .value = &zof_hmi_param_u16str_t_tbl, .rw = &zof_hmi_u16_s8_rw_t_tbl, .set_fun = view_bg},
    {.len = 1, .code = {0x08}, .name = "snapshot",
     .help = "What one control of a view stands at, counted from 0 among those with a value: `more` is 1 if others "
             "follow; control 0 if there is none with this number, then with the number -1 if the view is not loaded.",
     .req_names = "view index", .value_names = "seq more control number text",
     .value = &zof_hmi_page_t_tbl, .rw = &zof_hmi_u16u16_s8_rw_t_tbl, .get_fun = view_snapshot},
    {.len = 1, .code = {0x09}, .name = "stack",
     .help = "The views on all layers, 65535 for none.", .value_names = "interface state top background",
     .value = &zof_hmi_param_u16u16u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = view_stack},
    {.len = 1, .code = {0x0A}, .name = "events",
     .help = "The number of the last event that was sent, modulo 256.", .value_names = "seq",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .get_fun = view_events},
};
// clang-format on
