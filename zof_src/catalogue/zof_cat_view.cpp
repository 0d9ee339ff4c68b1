// Keys of view files, and those that all controls share.
#include "catalogue/zof_cat_in.h"

// clang-format off
static const zof_cat_key_t point_keys[] = {
    {.key = "x", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .help = "from the left"},
    {.key = "y", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .help = "from the top"},
};
ZOF_CAT_RECORD(zof_cat_point, "point", nullptr, zof_point_t_tbl, point_keys);

static const zof_cat_key_t size_keys[] = {
    {.key = "width", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = ZOF_CAT_ANY, .help = "width",
     .row = "control.width"},
    {.key = "height", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = ZOF_CAT_ANY, .help = "height",
     .row = "control.height"},
};
ZOF_CAT_RECORD(zof_cat_size, "size", nullptr, zof_size_t_tbl, size_keys);

static const zof_cat_key_t scrollbar_keys[] = {
    {.key = "mode_e", .label = "scroll bar", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_MOTION,
     .help = "when the scroll bar is shown; `scrolling`: while scrolling, `needed`: when the content is larger than "
         "the control"},
    {.key = "dir_e", .label = "directions", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_MOTION, .high = 15,
     .help = "directions of scrolling; `none`: no scrolling"},
    {.key = "chain_e", .label = "passes scrolling on", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_MOTION,
     .help = "at the end of the content the parent scrolls: horizontally, vertically, or both"},
    {.key = "momentum", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_MOTION,
     .help = "true: scrolling continues after a swipe"},
    {.key = "elastic", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_MOTION,
     .help = "true: the content can be pulled beyond its end"},
    {.key = "scroll_one", .label = "one step per swipe", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_MOTION,
     .help = "true: each swipe scrolls one step"},
};
ZOF_CAT_RECORD(zof_cat_scrollbar, "scrollbar_t", nullptr, zof_scrollbar_t_tbl, scrollbar_keys);

static const zof_cat_key_t pub_keys[] = {
    {.key = "name", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_HOST,
     .help = "name, for messages and for `zof ids`"},
    {.key = "id", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .low = 1, .high = UINT16_MAX,
     .help = "id, unique in its view", .flags = ZOF_CAT_NEEDED},
    {.key = "parent_id", .label = "parent", .kind = ZOF_CAT_CONTROL, .group = ZOF_CAT_PLACE, .high = UINT16_MAX,
     .help = "id of the control that contains this one, which must come earlier in the file; at most 64 levels. 0: "
         "the view"},
    {.key = "pub", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_HOST,
     .help = "true: exists only while its view is shown, and is created again each time"},
    {.key = "ctrl_type", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_HOST,
     .help = "not needed: the entry's `type` counts", .flags = ZOF_CAT_IGNORED},
    {.key = "pt", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_PLACE, .start = "{\"x\": 0, \"y\": 0}",
     .help = "position in the parent: `x`, `y`", .row = "control.pos", .call = "zof_ctrl_set_pos",
     .record = &zof_cat_point},
    {.key = "size", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_PLACE, .help = "`width`, `height`",
     .row = "control.size", .call = "zof_ctrl_set_size", .record = &zof_cat_size, .flags = ZOF_CAT_NEEDED},
    {.key = "click_area", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_TOUCH,
     .help = "extends the touch area by this much on each side", .row = "control.click_area",
     .call = "zof_ctrl_set_ext_click_area"},
    {.key = "t_mode", .label = "touch", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_TOUCH,
     .help = "`pass`: touches pass through, `touch`: they are taken, otherwise LVGL's default for the type",
     .row = "control.touch", .call = "zof_ctrl_set_touch"},
    {.key = "scrollbar_t", .label = "scrolling", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_MOTION,
     .help = "scrolling, below",
     .call = "zof_ctrl_set_scrollbar", .record = &zof_cat_scrollbar},
    {.key = "hidden", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_LOOK, .help = "true: hidden at first",
     .row = "control.hidden", .call = "zof_ctrl_set_hidden"},
    {.key = "alpha", .label = "opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .start = "255",
     .help = "opacity. Absent means 0, which is invisible", .row = "control.alpha", .call = "zof_ctrl_set_alpha",
     .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_pub_t, "pub_t", nullptr, zof_pub_attr_t_tbl, pub_keys);

static const zof_cat_key_t view_keys[] = {
    {.key = "v_name", .label = "name", .kind = ZOF_CAT_TEXT, .group = ZOF_CAT_HOST, .help = "name"},
    {.key = "v_id", .label = "id", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_HOST, .low = 1, .high = ZOF_CAT_ANY,
     .help = "id; equal to `pageId`, with a row in the program's view table", .flags = ZOF_CAT_NEEDED},
    {.key = "bg_color", .label = "background colour", .kind = ZOF_CAT_COLOR, .group = ZOF_CAT_LOOK,
     .help = "background colour",
     .row = "view.bg_color"},
    {.key = "bg_scale", .label = "background opacity", .kind = ZOF_CAT_OPACITY, .group = ZOF_CAT_LOOK,
     .high = UINT8_MAX, .start = "255",
     .help = "background opacity; on layer 0 it takes effect only while layer 3 has a view, on layer 3 never"},
    {.key = "bg_image", .label = "background picture", .kind = ZOF_CAT_PICTURE, .group = ZOF_CAT_LOOK,
     .help = "background picture",
     .when = "`layer` is 0 or 3", .row = "view.bg_image"},
    {.key = "layer", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_PLACE,
     .help = "0 the screen, 1 above it, 2 above all, 3 behind the screen"},
    {.key = "model_en", .label = "modal", .kind = ZOF_CAT_BOOL, .group = ZOF_CAT_TOUCH,
     .help = "true: modal, touches do not reach the layers below", .when = "`layer` is 1 or 2"},
};
ZOF_CAT_RECORD(zof_cat_view, "view", nullptr, zof_view_attr_t_tbl, view_keys);

static const zof_cat_key_t action_keys[] = {
    {.key = "0String", .kind = ZOF_CAT_ACTION, .group = ZOF_CAT_TOUCH, .help = "a word and its arguments"},
};
ZOF_CAT_RECORD(zof_cat_action, "action", nullptr, stringReflectTbl, action_keys);

#define ON(name, text) \
    {.key = name, .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_TOUCH, .help = text, .record = &zof_cat_action}
static const zof_cat_key_t on_keys[] = {
    ON("clicked", "when the control has been pressed and released"),
    ON("long_pressed", "when it has been held down"),
    ON("changed", "when the user has changed its value"),
    ON("ready", "at Enter, in a keyboard or a text box of one line"),
    ON("cancel", "at the key that closes a keyboard"),
    ON("focused", "when it is touched, or reached by keys"),
};
ZOF_CAT_RECORD(zof_cat_on, "on", nullptr, nullptr, on_keys);

static const zof_cat_key_t entry_keys[] = {
    {.key = "type", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_CONTENT,
     .help = "control type: number or name, see [control types](#control-types)", .flags = ZOF_CAT_NEEDED},
    {.key = "theme", .kind = ZOF_CAT_THEME, .group = ZOF_CAT_LOOK, .start = "\"\"",
     .help = "name of a theme; it need not exist. **Without this key the view ends here**", .flags = ZOF_CAT_NEEDED},
    {.key = "look", .kind = ZOF_CAT_LOOK_NAME, .group = ZOF_CAT_LOOK,
     .help = "name of a [look](#looks), which takes the place of the theme's styles for the type"},
    {.key = "on", .label = "actions", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_TOUCH,
     .help = "what the panel does by itself when the user touches the control: [actions](#actions) for each event",
     .record = &zof_cat_on},
    {.key = "property", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_CONTENT,
     .help = "`pub_t`, the keys of the type, and `styles`", .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_entry, "entry", "an entry of `controls`", zof_entry_t_tbl, entry_keys);

static const zof_cat_key_t view_file_keys[] = {
    {.key = "view", .kind = ZOF_CAT_OBJECT, .group = ZOF_CAT_CONTENT, .help = "the view itself",
     .record = &zof_cat_view, .flags = ZOF_CAT_NEEDED},
    {.key = "controls", .kind = ZOF_CAT_ARRAY, .group = ZOF_CAT_CONTENT, .start = "[]",
     .help = "the controls in drawing order, from bottom to top", .record = &zof_cat_entry, .flags = ZOF_CAT_NEEDED},
};
ZOF_CAT_RECORD(zof_cat_view_file, "view file", nullptr, nullptr, view_file_keys);
// clang-format on
