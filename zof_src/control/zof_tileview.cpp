// Tile views. An endless one always returns to its home page: when a page at either end has been reached, all pages
// move on by one, so that the same picture is now shown at home, and the user can keep swiping in one direction
// forever.
#include "control/zof_tileview.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_tileview_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_tileview_attr_t),
    CSON_INT(zof_tileview_attr_t, anim_time),
    CSON_INT(zof_tileview_attr_t, count),
    CSON_INT(zof_tileview_attr_t, start_id),
    CSON_INT(zof_tileview_attr_t, unlimited_scroll),
    CSON_END,
};

const reflect_item_t zof_tile_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_tile_attr_t),
    CSON_INT(zof_tile_attr_t, row_id),
    CSON_INT(zof_tile_attr_t, col_id),
    CSON_SUM(zof_tile_attr_t, dir, LV_DIR_ALL + 1, zof_dir_names),
    CSON_END,
};

// The tile that is shown: its row in the upper half, its column in the lower one.
static s32 tile_value(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    u32 row = 0;
    u32 col = 0;
    const s32 result = zof_tileview_get_tile_id(ctrl, &row, &col);
    out->number = (s32)(row << 16 | col);
    return result;
}

const zof_ctrl_class_t zof_tileview_class = {
    .type = ZOF_CTRL_TILEVIEW,
    .name = "tileview",
    .attr = zof_tileview_attr_t_tbl,
    .attr_size = sizeof(zof_tileview_attr_t),
    .create = zof_tileview_create,
    .value = tile_value,
};

const zof_ctrl_class_t zof_tile_class = {
    .type = ZOF_CTRL_TILE,
    .name = "tile",
    .attr = zof_tile_attr_t_tbl,
    .attr_size = sizeof(zof_tile_attr_t),
    .create = zof_tile_create,
};

// One axis of an endless view during one event.
typedef struct {
    lv_obj_t *obj;
    const zof_tileview_attr_t *attr;
    bool horizontal;
    s32 page; // size of a page along the axis
    s32 home; // scroll position of the home page
} ring_t;

static s32 tile_pos(const ring_t *ring, lv_obj_t *tile) {
    if (!tile) {
        return 0;
    }
    return ring->horizontal ? lv_obj_get_x(tile) : lv_obj_get_y(tile);
}

static void tile_move(const ring_t *ring, lv_obj_t *tile, s32 pos) {
    if (!tile) {
        return;
    }
    if (ring->horizontal) {
        lv_obj_set_x(tile, pos);
    } else {
        lv_obj_set_y(tile, pos);
    }
}

static lv_obj_t *tile_at(const ring_t *ring, s32 index) {
    return lv_obj_get_child(ring->obj, index);
}

static s32 scroll_pos(const ring_t *ring) {
    return ring->horizontal ? lv_obj_get_scroll_x(ring->obj) : lv_obj_get_scroll_y(ring->obj);
}

// An endless ring needs three pages. In a view that has two, child 0 is a spare page, which is kept ahead of the
// movement.
static void spare_move(const ring_t *ring) {
    s32 scroll = scroll_pos(ring);
    bool to_start = scroll < ring->page;
    lv_obj_t *spare = tile_at(ring, 0);
    if (scroll == ring->page || tile_pos(ring, spare) != (to_start ? 0 : 2 * ring->page)) {
        return;
    }
    s32 here = tile_pos(ring, tile_at(ring, 1)) == ring->page ? 1 : 2;
    if (tile_pos(ring, tile_at(ring, here)) != ring->page) {
        return;
    }
    lv_obj_t *other = tile_at(ring, 3 - here);
    s32 end = 2 * ring->page;
    if (to_start) {
        // Existing projects expect the width in this one place of a vertical view too.
        tile_move(ring, spare, here == 1 && !ring->horizontal ? 2 * ring->attr->pub_t.size.width : end);
        tile_move(ring, other, 0);
    } else {
        tile_move(ring, other, end);
        tile_move(ring, spare, 0);
    }
    lv_obj_update_layout(ring->obj);
}

static void tiles_exchange(lv_obj_t *a, lv_obj_t *b) {
    lv_coord_t x = lv_obj_get_x(a);
    lv_coord_t y = lv_obj_get_y(a);
    lv_obj_set_pos(a, lv_obj_get_x(b), lv_obj_get_y(b));
    lv_obj_set_pos(b, x, y);
    lv_obj_update_layout(a);
}

static void pages_step_to_start(const ring_t *ring) {
    s32 count = (s32)lv_obj_get_child_cnt(ring->obj);
    if (ring->attr->count != 2) {
        for (s32 i = 1; i < count; i++) {
            tiles_exchange(tile_at(ring, 0), tile_at(ring, i));
        }
        return;
    }
    for (s32 i : {1, 2}) {
        tile_move(ring, tile_at(ring, i), tile_pos(ring, tile_at(ring, i)) - ring->page);
    }
    tile_move(ring, tile_at(ring, 0), 2 * ring->page);
}

static void pages_step_to_end(const ring_t *ring) {
    s32 last = (s32)lv_obj_get_child_cnt(ring->obj) - 1;
    if (ring->attr->count != 2) {
        for (s32 j = last - 1; j >= 0; j--) {
            tiles_exchange(tile_at(ring, last), tile_at(ring, j));
        }
        return;
    }
    for (s32 i : {1, 2}) {
        tile_move(ring, tile_at(ring, i), tile_pos(ring, tile_at(ring, i)) + ring->page);
    }
    tile_move(ring, tile_at(ring, 0), 0);
}

static void scroll_unlock_at_home(const ring_t *ring) {
    if (scroll_pos(ring) == ring->home) {
        lv_obj_add_flag(ring->obj, LV_OBJ_FLAG_SCROLLABLE);
    }
}

static void come_home(const ring_t *ring) {
    lv_obj_t *obj = ring->obj;
    lv_obj_clear_flag(obj, LV_OBJ_FLAG_SCROLLABLE); // no touch while the pages are rearranged
    s32 from_start = ring->horizontal ? lv_obj_get_scroll_left(obj) : lv_obj_get_scroll_top(obj);
    s32 from_end = ring->horizontal ? lv_obj_get_scroll_right(obj) : lv_obj_get_scroll_bottom(obj);
    if (from_end == ring->attr->limit_end) {
        pages_step_to_start(ring);
    } else if (from_start == ring->attr->limit_start) {
        pages_step_to_end(ring);
    } else {
        scroll_unlock_at_home(ring);
        return;
    }
    lv_obj_update_layout(obj);
    if (ring->horizontal) {
        lv_obj_scroll_to_x(obj, ring->home, LV_ANIM_OFF);
    } else {
        lv_obj_scroll_to_y(obj, ring->home, LV_ANIM_OFF);
    }
    scroll_unlock_at_home(ring);
}

static void event_new_obj(lv_event_t *e) {
    lv_obj_t *obj = lv_event_get_current_target(e);
    lv_obj_t *second = lv_obj_get_child(obj, 1);
    const zof_tileview_attr_t *view = zof_ctrl_attr<zof_tileview_attr_t>(obj, ZOF_CTRL_TILEVIEW);
    const zof_tile_attr_t *tile = zof_ctrl_attr<zof_tile_attr_t>(second, ZOF_CTRL_TILE);
    if (!view || !tile || (tile->dir != LV_DIR_HOR && tile->dir != LV_DIR_VER)) {
        return;
    }
    ring_t ring = {.obj = obj, .attr = view, .horizontal = tile->dir == LV_DIR_HOR};
    ring.page = ring.horizontal ? view->pub_t.size.width : view->pub_t.size.height;
    ring.home = view->start_id * ring.page;
    if (lv_event_get_code(e) == LV_EVENT_SCROLL_END) {
        come_home(&ring);
    } else if (view->count == 2) {
        spare_move(&ring);
    }
}

s32 zof_tileview_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_tileview_attr_t *view = (zof_tileview_attr_t *)attr;
    if (!record || !view) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_tileview_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &view->pub_t);
    lv_obj_set_style_anim_time(obj, view->anim_time, LV_PART_MAIN);
    zof_ctrl_style_add(record, view->pub_t.style_list, view->pub_t.style_num, 0);
    if (view->unlimited_scroll != 1) {
        return 0;
    }
    lv_obj_add_flag(obj, LV_OBJ_FLAG_SCROLL_ONE);
    lv_obj_t *spare = view->count == 2 ? lv_tileview_add_tile(obj, 0, 0, LV_DIR_ALL) : nullptr;
    if (!spare) {
        return 0;
    }
    lv_obj_set_style_bg_color(spare, lv_palette_main(LV_PALETTE_GREY), LV_PART_MAIN);
    lv_obj_set_style_bg_opa(spare, LV_OPA_COVER, LV_PART_MAIN);
    return 0;
}

// Where the ring ends on either side, once all its pages are there.
static void ring_close(lv_obj_t *obj, zof_tileview_attr_t *view, u32 dir) {
    lv_obj_update_layout(obj);
    lv_obj_t *home = lv_obj_get_child(obj, view->start_id);
    if (home) {
        lv_obj_scroll_to_view(home, LV_ANIM_OFF);
    }
    if (dir == LV_DIR_HOR || dir == LV_DIR_VER) {
        ring_t ring = {.obj = obj, .attr = view, .horizontal = dir == LV_DIR_HOR};
        view->limit_start = (s16)tile_pos(&ring, tile_at(&ring, view->start_id - 1));
        view->limit_end =
            (s16)(tile_pos(&ring, tile_at(&ring, -1)) - tile_pos(&ring, tile_at(&ring, view->start_id + 1)));
    }
    while (lv_obj_remove_event_cb(obj, event_new_obj)) {
        // a last tile that is recreated must not add it twice
    }
    lv_obj_add_event_cb(obj, event_new_obj, LV_EVENT_SCROLL, nullptr);
    lv_obj_add_event_cb(obj, event_new_obj, LV_EVENT_SCROLL_END, nullptr);
}

// In an endless view of two, a page is one place further on: the spare page is first.
static lv_obj_t *endless_tile_add(lv_obj_t *parent, zof_tileview_attr_t *view, const zof_tile_attr_t *tile) {
    u8 ahead = view->count == 2;
    if (ahead && tile->dir != LV_DIR_HOR && tile->dir != LV_DIR_VER) {
        return nullptr;
    }
    u8 col = (u8)(tile->col_id + (ahead && tile->dir == LV_DIR_HOR));
    u8 row = (u8)(tile->row_id + (ahead && tile->dir == LV_DIR_VER));
    bool last = lv_obj_get_child_cnt(parent) + 1 == (u32)view->count + ahead;
    if (last && view->start_id + 1u >= (u32)view->count + ahead) {
        zof_printf("tile view %u: an endless view has no page after start_id %u, where it starts", view->pub_t.id,
                   view->start_id);
        return nullptr;
    }
    lv_obj_t *obj = lv_tileview_add_tile(parent, col, row, tile->dir);
    if (obj && last) {
        ring_close(parent, view, tile->dir);
    }
    return obj;
}

s32 zof_tile_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_tile_attr_t *tile = (zof_tile_attr_t *)attr;
    zof_tileview_attr_t *view = zof_ctrl_attr<zof_tileview_attr_t>(parent, ZOF_CTRL_TILEVIEW);
    if (!record || !tile || !view) {
        return -1; // only a tile view has tiles
    }
    if (view->unlimited_scroll == 1) {
        record->obj = endless_tile_add(parent, view, tile);
    } else {
        record->obj = lv_tileview_add_tile(parent, tile->col_id, tile->row_id, tile->dir);
    }
    if (!record->obj) {
        return -1;
    }
    zof_ctrl_style_add(record, tile->pub_t.style_list, tile->pub_t.style_num, 0);
    lv_event_send(parent, LV_EVENT_SCROLL_END, nullptr);
    return 0;
}

s32 zof_tileview_set_tile_id(zof_ctrl_t *ctrl, u32 row, u32 col, u32 animate) {
    return zof_on(ctrl, &lv_tileview_class,
                  [=](lv_obj_t *obj) { lv_obj_set_tile_id(obj, col, row, animate ? LV_ANIM_ON : LV_ANIM_OFF); });
}

// The tile that is shown; null once it is deleted, which LVGL does not notice.
static const lv_obj_t *tile_shown(lv_obj_t *obj) {
    const lv_obj_t *tile = lv_tileview_get_tile_act(obj);
    for (u32 i = 0; i < lv_obj_get_child_cnt(obj); i++) {
        if (lv_obj_get_child(obj, (s32)i) == tile) {
            return tile;
        }
    }
    return nullptr;
}

s32 zof_tileview_get_tile_id(zof_ctrl_t *ctrl, u32 *row, u32 *col) {
    if (!row || !col) {
        return -1;
    }
    return zof_on(ctrl, &lv_tileview_class, [=](lv_obj_t *obj) {
        lv_obj_update_layout(obj);
        const lv_obj_t *tile = tile_shown(obj);
        lv_coord_t width = lv_obj_get_content_width(obj);
        lv_coord_t height = lv_obj_get_content_height(obj);
        if (!tile || width < 1 || height < 1) {
            return -1;
        }
        *col = (u32)(lv_obj_get_x(tile) / width);
        *row = (u32)(lv_obj_get_y(tile) / height);
        return 0;
    });
}
