// Keys of the files of looks.
#include "catalogue/zof_cat_in.h"

// clang-format off
static const reflect_item_t colors_tbl[] = {
    {"*", 0, sizeof(u32), CSON_INTEGER, nullptr, 0, nullptr, CSON_NULLABLE | CSON_COLORS, nullptr}, CSON_END};

static const zof_cat_key_t colors_keys[] = {
    {.key = "*", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK, .help = "a colour, under a name of its own"},
};
ZOF_CAT_RECORD(zof_cat_colors, "colors", nullptr, colors_tbl, colors_keys);

static const zof_cat_key_t look_style_keys[] = {
    {.key = "body_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "body, as in [styles](#styles)",
     .record = &zof_cat_body},
    {.key = "txt_t", .label = "text", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "text",
     .record = &zof_cat_text_look},
    {.key = "img_t", .label = "picture", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "background picture",
     .record = &zof_cat_picture_look},
};
ZOF_CAT_RECORD(zof_cat_look_style, "look style", nullptr, nullptr, look_style_keys);

static const zof_cat_key_t look_keys[] = {
    {.key = "is", .label = "inherits from", .kind = ZOF_CAT_LOOK_NAME, .group = ZOF_CAT_LOOK,
     .help = "the look that this one inherits from"},
    {.key = "body_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "body of the main part, as in [styles](#styles)", .record = &zof_cat_body},
    {.key = "txt_t", .label = "text", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "its text",
     .record = &zof_cat_text_look},
    {.key = "img_t", .label = "picture", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "its background picture",
     .record = &zof_cat_picture_look},
    {.key = "*", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "`body_t`, `txt_t` and `img_t` of another part or state, which is the key: `pressed`, `items`, "
         "`items:pressed+checked`, `second`", .record = &zof_cat_look_style},
};
ZOF_CAT_RECORD(zof_cat_look, "look", nullptr, nullptr, look_keys);

static const zof_cat_key_t looks_keys[] = {
    {.key = "*", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "a look, under a name of its own",
     .record = &zof_cat_look},
};
ZOF_CAT_RECORD(zof_cat_looks, "looks", nullptr, nullptr, looks_keys);

static const zof_cat_key_t file_keys[] = {
    {.key = "colors", .label = "colours", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK,
     .help = "colours by name: `\"accent\": \"#D9863D\"` is `\"$accent\"` wherever a colour is written",
     .record = &zof_cat_colors},
    {.key = "looks", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_LOOK, .help = "looks by name", .record = &zof_cat_looks},
};
ZOF_CAT_RECORD(zof_cat_looks_file, "looks file", nullptr, nullptr, file_keys);
// clang-format on
