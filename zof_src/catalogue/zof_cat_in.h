// Definitions that the files of the catalogue share. Not a public header.
#ifndef ZOF_CAT_IN_H
#define ZOF_CAT_IN_H

#include "catalogue/zof_cat.h"
#include "project/base/zof_prj_attr.h"

#define ZOF_CAT_COUNT(rows) ((u32)(sizeof(rows) / sizeof((rows)[0])))

// Defines a record: its name, its description (null if the name says it), its reflection table and its keys.
#define ZOF_CAT_RECORD(variable, title, about, table, list) \
    const zof_cat_record_t variable = {title, about, table, list, ZOF_CAT_COUNT(list)}

// The first rows of the keys of every control type.
#define ZOF_CAT_PUB_T                                                                                               \
    {                                                                                                               \
        .key = "pub_t", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_HOST, .help = "what [all controls](#pub_t) share", \
        .record = &zof_cat_pub_t, .flags = ZOF_CAT_NEEDED                                                           \
    }
#define ZOF_CAT_CTRL_KEYS                                                                         \
    ZOF_CAT_PUB_T, {                                                                              \
        .key = "styles", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_LOOK,                            \
        .help = "looks, one for each part and state, over those of the theme; [styles](#styles)", \
        .record = &zof_cat_style                                                                  \
    }
#define ZOF_CAT_CTRL_KEYS_WITHOUT_STYLES                                                                 \
    ZOF_CAT_PUB_T, {                                                                                     \
        .key = "styles", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_LOOK, .help = "the type has no styles", \
        .record = &zof_cat_style, .flags = ZOF_CAT_IGNORED                                               \
    }

extern const zof_cat_record_t zof_cat_pub_t, zof_cat_style, zof_cat_line_look, zof_cat_cursor, zof_cat_point,
    zof_cat_size;
extern const zof_cat_record_t zof_cat_project, zof_cat_link, zof_cat_view_file, zof_cat_theme;

// Records contained in others, grouped by file.
extern const zof_cat_record_t zof_cat_views, zof_cat_hw, zof_cat_dis, zof_cat_tone, zof_cat_touch, zof_cat_func,
    zof_cat_standby, zof_cat_uart;
extern const zof_cat_record_t zof_cat_view, zof_cat_entry, zof_cat_on, zof_cat_action, zof_cat_scrollbar;
extern const zof_cat_record_t zof_cat_body, zof_cat_border, zof_cat_shadow, zof_cat_padding, zof_cat_text_look,
    zof_cat_picture_look;
extern const zof_cat_record_t zof_cat_looks_file, zof_cat_colors, zof_cat_looks, zof_cat_look, zof_cat_look_style;
extern const zof_cat_record_t zof_cat_angles, zof_cat_range, zof_cat_marks, zof_cat_list_btn, zof_cat_caption;

// The records of the control types.
#define ZOF_CAT_OF_TYPE(NAME, type) extern const zof_cat_record_t zof_cat_##type;
ZOF_CTRL_TYPES(ZOF_CAT_OF_TYPE)
#undef ZOF_CAT_OF_TYPE

#endif
