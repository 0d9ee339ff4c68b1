// Tile views, and the tiles in them. Rows and columns count from 0; the getter returns those of the active tile.
// Graphics thread, or under dis_mutex. Functions return 0, or -1 for null, or without a tile.
#ifndef ZOF_TILEVIEW_H
#define ZOF_TILEVIEW_H

#include "control/zof_ctrl.h"

ZOF_C_BEGIN

typedef struct {
    zof_pub_attr_t pub_t;
    u16 anim_time;
    u8 count;
    u8 start_id;
    u8 unlimited_scroll;
    s16 limit_start, limit_end; // no key: scroll limits of the endless view
} zof_tileview_attr_t;

typedef struct {
    zof_pub_attr_t pub_t;
    u8 row_id;
    u8 col_id;
    u8 dir;
} zof_tile_attr_t;

extern const reflect_item_t zof_tileview_attr_t_tbl[];
extern const reflect_item_t zof_tile_attr_t_tbl[];

s32 zof_tileview_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tile_create(para_t *record, lv_obj_t *parent, void *attr);
s32 zof_tileview_set_tile_id(zof_ctrl_t *ctrl, u32 row, u32 col, u32 animate); // shows a tile
s32 zof_tileview_get_tile_id(zof_ctrl_t *ctrl, u32 *row, u32 *col);

ZOF_C_END

#endif
