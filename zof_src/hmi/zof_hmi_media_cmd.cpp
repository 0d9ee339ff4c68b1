// Commands of moving pictures and codes (types B2 10 to B2 12): GIF, QR code, video.
#include "control/zof_gif.h"
#include "control/zof_qrcode.h"
#include "control/zof_video.h"
#include "hmi/zof_hmi_ctrl_in.h"

enum { VIDEO_STATES = 4 };

static s32 gif_ctrl(void *type, void *, void *value, void *reply) {
    static s32 (*const calls[])(zof_ctrl_t *) = {zof_gif_reset_play, zof_gif_pause, zof_gif_resume};
    const u8 which = *(u8 *)value;
    if (which >= sizeof(calls) / sizeof(calls[0])) {
        return hmi_ctrl_refuse(reply);
    }
    calls[which](hmi_ctrl(type, ZOF_CTRL_GIF));
    *(s8 *)reply = 0;
    return ZOF_HMI_DONE;
}

static s32 video_state_set(void *type, void *, void *value, void *reply) {
    const u8 state = *(u8 *)value;
    if (state >= VIDEO_STATES) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, zof_video_set_state(hmi_ctrl(type, ZOF_CTRL_VIDEO), state));
}

static s32 video_set_pos(void *type, void *, void *value, void *reply) {
    const auto *v = (const zof_hmi_u16u16u16u16_t *)value;
    return hmi_ctrl_answer(reply, zof_video_set_pos(hmi_ctrl(type, ZOF_CTRL_VIDEO), v->a, v->b, v->c, v->d));
}

static s32 video_one(void *type, void *, void *value, void *reply) {
    const u8 on = *(u8 *)value;
    if (on > 1) {
        return hmi_ctrl_refuse(reply);
    }
    return hmi_ctrl_answer(reply, zof_video_set_one_replay(hmi_ctrl(type, ZOF_CTRL_VIDEO), on));
}

// clang-format off
const zof_hmi_param_type_t zof_ctrl_gif_params[ZOF_CTRL_GIF_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "play", .help = "0 plays from the start, 1 pauses, 2 resumes.",
     .value_names = "which",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = gif_ctrl},
    {.len = 1, .code = {0x01}, .name = "count", .help = "Plays so many times from the start; 0 plays forever.",
     .value_names = "count",
     .value = &zof_hmi_one_u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u16, ZOF_CTRL_GIF, zof_gif_play_count>},
    {.len = 1, .code = {0x02}, .name = "source", .help = "A file under image/, which plays at once.",
     .value_names = "name",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_GIF, zof_gif_set_src>},
};

const zof_hmi_param_type_t zof_ctrl_qrcode_params[ZOF_CTRL_QRCODE_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "text", .help = "The text of the code.", .value_names = "text",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_QRCODE, zof_qrcode_updata_data>},
};

const zof_hmi_param_type_t zof_ctrl_video_params[ZOF_CTRL_VIDEO_PARAM_COUNT] = {
    {.len = 1, .code = {0x00}, .name = "source", .help = "A file under video/ that ends in .mp4; its sound begins.",
     .value_names = "name",
     .value = &zof_hmi_one_str_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<const char *, ZOF_CTRL_VIDEO, zof_video_set_src>},
    {.len = 1, .code = {0x01}, .name = "state",
     .help = "Picture and sound: 0 plays from the start, 1 stops, 2 pauses, 3 resumes.", .value_names = "state",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .get_fun = hmi_get<u8, ZOF_CTRL_VIDEO, zof_video_get_state>, .set_fun = video_state_set},
    {.len = 1, .code = {0x02}, .name = "volume", .help = "128 is the file's own, 0 is silent.",
     .value_names = "volume",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl,
     .set_fun = hmi_set<u8, ZOF_CTRL_VIDEO, zof_video_set_volum>},
    {.len = 1, .code = {0x03}, .name = "box", .help = "Place and size in pixels.", .value_names = "x y width height",
     .value = &zof_hmi_param_u16u16u16u16_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = video_set_pos},
    {.len = 1, .code = {0x04}, .name = "replay", .help = "Plays once (0), or again and again (1).",
     .value_names = "on",
     .value = &zof_hmi_one_u8_t_tbl, .rw = &zof_hmi_base_rw_t_tbl, .set_fun = video_one},
};
// clang-format on
