// Kinds, groups, the list of all records, the files of a project, and key lookup.
#include <cstring>

#include "catalogue/zof_cat_in.h"
#include "zof_lib/zof_cson_in.h"

const zof_cat_kind_t zof_cat_kinds[] = {
    {"number", "number", "", "an integer; fractions are cut off"},
    {"bool", "bool", "", "`true` or `false`, not 0 and 1"},
    {"switch", "number", "", "a number, 0 for off and 1 for on"},
    {"text", "text", "", "a text that is not translated"},
    {"words", "text", "", "a text that is shown: itself, or that of a language key, `\"#key\"`"},
    {"colour", "number", "",
     "a text, `\"#RRGGBB\"` or `\"#RGB\"`, the name of a colour of [looks](#looks), `\"$name\"`, or a number, "
     "0xRRGGBB: white is 16777215, red is "
     "16711680, green is 65280, blue is 255"},
    {"opacity", "number", "", "0 is invisible, 255 opaque"},
    {"length", "number", "px", "pixels"},
    {"angle", "number", "deg", "degrees"},
    {"percentage", "number", "%", "percent"},
    {"time", "number", "ms", "milliseconds"},
    {"choice", "number", "", "one of the names in the table, or its number"},
    {"sum", "number", "", "names in the table, joined by `+`, or the sum of their numbers"},
    {"font", "text", "", "a file in `font/`"},
    {"picture", "text", "", "a file in `image/`, or a language key"},
    {"folder", "text", "", "a folder in `image/`"},
    {"sound", "text", "", "a file in `sound/`"},
    {"clip", "text", "", "a file in `video/`"},
    {"control", "number", "", "id of a control of the same view"},
    {"view", "number", "", "id of a view"},
    {"file", "text", "", "a file in `config/view/`"},
    {"language", "text", "", "a file in `config/languages/`, without `.g`"},
    {"theme", "text", "", "a folder in `config/theme/`"},
    {"look", "text", "", "the name of a [look](#looks)"},
    {"options", "text", "", "words, one option per line (separated by `\\n`)"},
    {"action", "text", "", "an [action](#actions): a word and its arguments"},
    {"object", "object", "", "an object with keys of its own"},
    {"array", "array", "", "a list"},
};
static_assert(ZOF_CAT_COUNT(zof_cat_kinds) == ZOF_CAT_KIND_COUNT);

const char *const zof_cat_groups[] = {"content", "value", "place", "touch", "look", "motion", "host"};
static_assert(ZOF_CAT_COUNT(zof_cat_groups) == ZOF_CAT_GROUP_COUNT);

#define RECORD_OF_TYPE(NAME, type) &zof_cat_##type,
static const zof_cat_record_t no_record = {};
const zof_cat_record_t *const zof_cat_records[] = {
    &zof_cat_project,   &zof_cat_views,        &zof_cat_hw,         &zof_cat_dis,
    &zof_cat_tone,      &zof_cat_touch,        &zof_cat_func,       &zof_cat_standby,
    &zof_cat_link,      &zof_cat_uart,         &zof_cat_view_file,  &zof_cat_view,
    &zof_cat_entry,     &zof_cat_on,           &zof_cat_action,     &zof_cat_pub_t,
    &zof_cat_point,     &zof_cat_size,         &zof_cat_scrollbar,  &zof_cat_style,
    &zof_cat_body,      &zof_cat_border,       &zof_cat_shadow,     &zof_cat_padding,
    &zof_cat_text_look, &zof_cat_picture_look, &zof_cat_theme,      &zof_cat_line_look,
    &zof_cat_cursor,    &zof_cat_angles,       &zof_cat_range,      &zof_cat_marks,
    &zof_cat_list_btn,  &zof_cat_caption,      &zof_cat_looks_file, &zof_cat_colors,
    &zof_cat_looks,     &zof_cat_look,         &zof_cat_look_style, ZOF_CTRL_TYPES(RECORD_OF_TYPE) & no_record,
};

const zof_cat_file_t zof_cat_files[] = {
    {"config/project/zofprj.g", "size, start page, language, hardware, and the list of views", &zof_cat_project},
    {"config/project/zofhmi.g", "the serial link to a host; OPTIONAL", &zof_cat_link},
    {"config/view/*", "one view: its background and its controls", &zof_cat_view_file},
    {"config/looks.g", "colours and looks by name; OPTIONAL", &zof_cat_looks_file},
    {"config/theme/*/looks.g", "the same as a theme shows them, over those of the project; OPTIONAL",
     &zof_cat_looks_file},
    {"config/theme/*/*.g", "the initial styles of a control type; OPTIONAL", &zof_cat_theme},
    {"config/languages/*.g", "the texts of one language; OPTIONAL", nullptr},
    {"config/icons.g", "names of icons in texts; OPTIONAL", nullptr},
    {"image/*", "pictures: PNG and JPEG (`.jpg`); `image/logo.png` is shown on black at start", nullptr},
    {"font/*", "fonts: `.ttf`, `.otf`, `.ttc`, `.woff`, or bitmap fonts `.bin`", nullptr},
    {"video/*", "clips", nullptr},
    {"sound/*", "sounds", nullptr},
};
const u32 zof_cat_file_count = ZOF_CAT_COUNT(zof_cat_files);

const zof_cat_key_t *zof_cat_key(const zof_cat_record_t *record, const char *key) {
    for (u32 i = 0; i < record->count; i++) {
        if (cson_same_key(record->keys[i].key, key)) {
            return &record->keys[i];
        }
    }
    return nullptr;
}

const zof_cat_key_t *zof_cat_key_of(const zof_cat_record_t *record, const char *key) {
    const zof_cat_key_t *found = zof_cat_key(record, key);
    zof_style_key_t style;
    if (found || (record == &zof_cat_look && zof_style_key_read(key, &style) != 0)) {
        return found;
    }
    return zof_cat_key(record, "*");
}

const reflect_item_t *zof_cat_row(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    for (const reflect_item_t *row = record->rows; row && row->key; row++) {
        if (strcmp(row->key, key->key) == 0) {
            return row;
        }
    }
    return nullptr;
}
