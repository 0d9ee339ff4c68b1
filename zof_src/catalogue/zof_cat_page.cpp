// Keys of controls that contain others: container, tile view, scroll container, and their parts.
#include "catalogue/zof_cat_in.h"
#include "control/zof_obj.h"
#include "control/zof_scrollcont.h"
#include "control/zof_tileview.h"

// clang-format off
static const zof_cat_key_t obj_keys[] = {ZOF_CAT_CTRL_KEYS};
ZOF_CAT_RECORD(zof_cat_obj, "container", nullptr, zof_obj_attr_t_tbl, obj_keys);

static const zof_cat_key_t tileview_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "count", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT8_MAX, .start = "2",
     .help = "number of pages"},
    {.key = "start_id", .label = "first page", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT8_MAX,
     .help = "first page shown, from 0; it must not be the last page", .when = "`unlimited_scroll` is 1",
     .row = "tile_view.tile", .call = "zof_tileview_set_tile_id"},
    {.key = "unlimited_scroll", .label = "endless", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_MOTION,
     .help = "1: endless"},
    {.key = "anim_time", .label = "animation time", .kind = ZOF_CAT_TIME, .group = ZOF_CAT_MOTION,
     .high = UINT16_MAX, .start = "200",
     .help = "duration of a page change"},
};
ZOF_CAT_RECORD(zof_cat_tileview, "tile view", nullptr, zof_tileview_attr_t_tbl, tileview_keys);

static const zof_cat_key_t tile_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "col_id", .label = "column", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_PLACE, .high = UINT8_MAX,
     .help = "column, from 0"},
    {.key = "row_id", .label = "row", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_PLACE, .high = UINT8_MAX,
     .help = "row, from 0"},
    {.key = "dir", .label = "direction", .kind = ZOF_CAT_SUM, .group = ZOF_CAT_MOTION, .high = 15,
     .start = "\"horizontal\"",
     .help = "swipe directions; an endless view of two pages needs `horizontal` or `vertical`"},
};
ZOF_CAT_RECORD(zof_cat_tile, "tile", nullptr, zof_tile_attr_t_tbl, tile_keys);

static const zof_cat_key_t scrollcont_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "child_cnt", .label = "items", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_CONTENT, .high = UINT16_MAX,
     .start = "3",
     .help = "number of items that follow; with fewer the wheel is not endless and its items have no effects",
     .flags = ZOF_CAT_NEEDED},
    {.key = "display_count", .label = "visible items", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_PLACE, .low = 1,
     .high = 255, .start = "3",
     .help = "number of items that share the length of the wheel", .flags = ZOF_CAT_NEEDED},
    {.key = "dir", .label = "direction", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_MOTION,
     .help = "direction of the wheel"},
    {.key = "pad", .label = "gap", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_PLACE, .high = UINT16_MAX,
     .help = "space between items"},
    {.key = "zoom", .label = "smallest scale", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_LOOK, .high = UINT8_MAX,
     .help = "smallest scale of an item, 256 is its own size; 0: items do not shrink"},
    {.key = "zoom_mode", .label = "scale by", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_LOOK,
     .help = "`radius`: items shrink over the arc's radius, or over half the wheel if that is shorter; `pixels`: by "
         "1/256 per pixel", .when = "`zoom` is not 0"},
    {.key = "arc_r", .label = "radius", .kind = ZOF_CAT_LENGTH, .group = ZOF_CAT_LOOK, .high = UINT16_MAX,
     .help = "radius of the arc; items further from the middle are invisible; 0: no arc"},
    {.key = "arc_dir", .label = "sink towards", .kind = ZOF_CAT_NAMED, .group = ZOF_CAT_LOOK,
     .help = "items sink: `down` or to the right, `up` or to the left", .when = "`arc_r` is not 0"},
    {.key = "opa_mode", .label = "items fade", .kind = ZOF_CAT_SWITCH, .group = ZOF_CAT_LOOK, .help = "1: items fade"},
};
ZOF_CAT_RECORD(zof_cat_scrollcont, "scroll container", nullptr, zof_scrollcont_attr_t_tbl, scrollcont_keys);

static const zof_cat_key_t scrollcont_obj_keys[] = {
    ZOF_CAT_CTRL_KEYS,
    {.key = "create_num", .label = "item number", .kind = ZOF_CAT_NUMBER, .group = ZOF_CAT_VALUE, .high = UINT16_MAX,
     .help = "the item's own number, which `zof_scrollcont_get_display_index` returns while the item is in the "
         "middle"},
};
ZOF_CAT_RECORD(zof_cat_scrollcont_obj, "scroll item", nullptr, zof_scrollcont_obj_attr_t_tbl, scrollcont_obj_keys);
// clang-format on
