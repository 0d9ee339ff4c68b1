// Keys of styles, and of theme files.
#include "catalogue/zof_cat_in.h"

// clang-format off
static const zof_cat_key_t border_keys[] = {
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 4095, .help = "width"},
    {.key = "part", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_LOOK, .high = 31, .start = "\"all\"", .help = "sides"},
    {.key = "opa", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity", .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_border, "border", nullptr, zof_border_t_tbl, border_keys);

static const zof_cat_key_t shadow_keys[] = {
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 255, .help = "width"},
    {.key = "type", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_shadow, "shadow", nullptr, zof_shadow_t_tbl, shadow_keys);

static const zof_cat_key_t padding_keys[] = {
    {.key = "top", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = -4095, .high = 4095,
     .help = "above the content; may be negative"},
    {.key = "bottom", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = -4095, .high = 4095,
     .help = "below it"},
    {.key = "left", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = -4095, .high = 4095,
     .help = "left of it"},
    {.key = "right", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .low = -4095, .high = 4095,
     .help = "right of it"},
    {.key = "inner", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_padding, "padding", nullptr, zof_padding_t_tbl, padding_keys);

static const zof_cat_key_t body_keys[] = {
    {.key = "main_color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "grad_color", .label = "gradient colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK,
     .help = "second colour of a gradient",
     .when = "`grad_dir_e` is not 0"},
    {.key = "grad_dir_e", .label = "gradient", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_LOOK,
     .help = "gradient: `vertical` from top to bottom, `horizontal` from left to right"},
    {.key = "radius", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = UINT32_MAX,
     .help = "radius of the corners; 4294967295: fully rounded"},
    {.key = "opa", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity of the colours"},
    {.key = "border", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "border", .record = &zof_cat_border},
    {.key = "shadow", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "shadow", .record = &zof_cat_shadow},
    {.key = "padding", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_PLACE, .help = "space around the content",
     .record = &zof_cat_padding},
};
ZOF_CAT_RECORD(zof_cat_body, "body_t", nullptr, zof_body_dis_t_tbl, body_keys);

static const zof_cat_key_t text_look_keys[] = {
    {.key = "color", .label = "colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "colour"},
    {.key = "opa", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity"},
    {.key = "font_lib", .label = "font", .kind = ZOF_CAT_FONT, .group = ZOF_CAT_LOOK,
     .help = "file in `font/`, or several, separated by commas: a letter comes from the first one that has it; absent or "
             "refused: the built-in font, below"},
    {.key = "font_size", .label = "font size", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = 2000,
     .absent = "16",
     .help = "size of the letters", .when = "there is a `font_lib`"},
    {.key = "sel_color", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
    {.key = "char_space", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
    {.key = "line_space", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .help = "read, not used",
     .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_text_look, "txt_t", nullptr, zof_text_dis_t_tbl, text_look_keys);

static const zof_cat_key_t picture_look_keys[] = {
    {.key = "bg_img", .label = "background picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_LOOK,
     .help = "background picture"},
};
ZOF_CAT_RECORD(zof_cat_picture_look, "img_t", nullptr, zof_img_dis_t_tbl, picture_look_keys);

static const zof_cat_key_t style_keys[] = {
    {.key = "style_part", .label = "part", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_LOOK, .help = "part of the control"},
    {.key = "style_state", .label = "state", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_LOOK, .high = LV_STATE_ANY,
     .help = "the states in which the look counts; `always`: in any. The program sets the `user` states, and those "
         "that need a keyboard or a mouse: `focus_key`, `edited`, `hovered`"},
    {.key = "style_sect", .label = "object", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_LOOK, .high = 1,
     .help = "the control, or its second object if it has one, such as the open list of a drop-down list"},
    {.key = "body_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}", .help = "body, below",
     .record = &zof_cat_body},
    {.key = "txt_t", .label = "text", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .start = "{}",
     .help = "text, below", .record = &zof_cat_text_look},
    {.key = "img_t", .label = "picture", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "background picture",
     .record = &zof_cat_picture_look},
};
ZOF_CAT_RECORD(zof_cat_style, "style", nullptr, zof_style_attr_t_tbl, style_keys);

static const zof_cat_key_t theme_keys[] = {
    {.key = "styles", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_LOOK,
     .help = "the initial styles of all controls of the type", .record = &zof_cat_style, .flags = ZOF_CAT_NEEDED},
    {.key = "pub_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_HOST,
     .help = "read, not used; and so are the type's other keys", .record = &zof_cat_pub_t, .flags = ZOF_CAT_IGNORED},
};
ZOF_CAT_RECORD(zof_cat_theme, "theme", nullptr, nullptr, theme_keys);
// clang-format on
