// Keys of controls that show pictures, clips and codes.
#include "catalogue/zof_cat_in.h"
#include "control/zof_animimg.h"
#include "control/zof_gif.h"
#include "control/zof_img.h"
#include "control/zof_qrcode.h"
#include "control/zof_video.h"

// clang-format off
static const zof_cat_key_t img_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "init_img", .label = "picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT, .help = "picture",
     .row = "image.image",
     .call = "zof_img_set_src", .flags = ZOF_CAT_NEEDED},
    {.key = "img_mode_e", .label = "picture mode", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_PLACE,
     .help = "`own size`: as large as the picture; `center`: once, centred in `size`; `tile`: tiled over `size`"},
    {.key = "init_angel", .label = "angle", .kind = ZOF_CAT_ANGLE, .group = ZOF_CAT_LOOK, .low = INT16_MIN,
     .high = INT16_MAX,
     .unit = "0.1 deg", .help = "rotation; may be negative", .row = "image.angle",
     .call = "zof_img_set_rotate_angel"},
    {.key = "rotate_pt", .label = "centre of rotation", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "centre of rotation: `x`, `y` in the picture", .row = "image.pivot", .call = "zof_img_set_pivot",
     .record = &zof_cat_point},
};
ZOF_CAT_RECORD(zof_cat_img, "image", nullptr, zof_img_attr_t_tbl, img_keys);

static const zof_cat_key_t gif_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "init_gif", .label = "GIF", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_CONTENT,
     .help = "a GIF of up to 2047 pixels per side; not a language key", .row = "gif.source",
     .call = "zof_gif_set_src", .flags = ZOF_CAT_NEEDED},
    {.key = "play_en", .label = "plays at start", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_MOTION, .start = "true",
     .help = "false: shows the first picture until the program starts it", .row = "gif.play",
     .call = "zof_gif_resume"},
    {.key = "num", .label = "plays", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .help = "number of plays, after which the last picture stays; 0: the GIF's own loop count", .row = "gif.count",
     .call = "zof_gif_play_count"},
};
ZOF_CAT_RECORD(zof_cat_gif, "gif", nullptr, zof_gif_attr_t_tbl, gif_keys);

static const zof_cat_key_t qrcode_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "txt", .label = "text", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_CONTENT, .start = "\"https://example.org\"",
     .help = "content of the code; not a language key", .row = "qr_code.text", .call = "zof_qrcode_updata_data"},
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "its dark colour"},
    {.key = "bg_color", .label = "background colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK,
     .start = "\"#FFFFFF\"",
     .help = "its light colour", .flags = ZOF_CAT_NEEDED},
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 2047,
     .help = "width of the border around it"},
    {.key = "border_color", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour of the border",
     .when = "`width` is not 0"},
};
ZOF_CAT_RECORD(zof_cat_qrcode, "qr code", nullptr, zof_qrcode_attr_t_tbl, qrcode_keys);

static const zof_cat_key_t video_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "play_en", .label = "plays at start", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_MOTION,
     .help = "true: plays in a loop",
     .row = "video.replay", .call = "zof_video_set_one_replay"},
    {.key = "volume", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT8_MAX, .start = "128",
     .help = "128 is the clip's own volume, 0 silent", .row = "video.volume", .call = "zof_video_set_volum"},
    {.key = "state", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_MOTION, .help = "initial state", .row = "video.state",
     .call = "zof_video_set_state"},
    {.key = "txt", .label = "text", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_CONTENT, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_video, "video", nullptr, zof_video_attr_t_tbl, video_keys);

static const zof_cat_key_t animimg_keys[] = {
    ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES,
    {.key = "img_dsc_t", .kind = ZOF_CAT_FOLDER, .group = ZOF_CAT_CONTENT,
     .help = "the folder, in `image/`; its path has at most 149 bytes", .flags = ZOF_CAT_NEEDED},
    {.key = "frame_rate", .label = "time per picture", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION,
     .high = UINT32_MAX, .start = "100",
     .help = "time per picture, despite its name", .call = "zof_animimg_set_frame_rate", .flags = ZOF_CAT_NEEDED},
    {.key = "start_id", .label = "first number", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT,
     .high = UINT16_MAX, .start = "1",
     .help = "number of the first picture; a sequence that starts at 0 must play forever"},
    {.key = "end_id", .label = "last number", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT16_MAX,
     .start = "1",
     .help = "number of the last picture", .flags = ZOF_CAT_NEEDED},
    {.key = "repeat_open", .label = "plays forever", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_MOTION, .start = "1",
     .help = "1: plays forever",
     .call = "zof_animimg_set_repeat_infinite"},
    {.key = "repeat_count", .label = "passes", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_MOTION, .high = UINT16_MAX,
     .start = "1",
     .help = "number of passes, after which the last picture stays. With 0 nothing plays, even with `repeat_open`",
     .call = "zof_animimg_set_repeat_count", .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_animimg, "image sequence", nullptr, zof_animimg_attr_t_tbl, animimg_keys);
// clang-format on
