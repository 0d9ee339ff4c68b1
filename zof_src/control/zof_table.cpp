// Tables. LVGL's cells all have one colour; the record keeps one for each, and a draw event applies it.
#include "control/zof_table.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_style.h"
#include "zof_lib/zof_stdio.h"

const reflect_item_t zof_table_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_table_attr_t),
    CSON_INT(zof_table_attr_t, row_cnt),
    CSON_INT(zof_table_attr_t, col_cnt),
    CSON_ENUM(zof_table_attr_t, align_table, LV_TEXT_ALIGN_RIGHT + 1, zof_text_align_names),
    CSON_END,
};

// The cell that is being pressed: its row in the upper half, its column in the lower one, -1 for none; and its text.
static s32 cell_value(zof_ctrl_t *ctrl, zof_ctrl_value_t *out) {
    u16 row = 0;
    u16 col = 0;
    const s32 result = zof_table_get_selected_cell(ctrl, &row, &col);
    const bool pressed = row != LV_TABLE_CELL_NONE && col != LV_TABLE_CELL_NONE;
    out->number = pressed ? (s32)((u32)row << 16 | col) : -1;
    out->text = pressed ? zof_table_get_cell_value(ctrl, row, col) : "";
    return result;
}

const zof_ctrl_class_t zof_table_class = {
    .type = ZOF_CTRL_TABLE,
    .name = "table",
    .attr = zof_table_attr_t_tbl,
    .attr_size = sizeof(zof_table_attr_t),
    .create = zof_table_create,
    .del = zof_table_del,
    .value = cell_value,
};

enum { COLOR_MASK = 0xFFFFFF, COLUMNS_FITTED = 255, WIDTH_MAX = 4095 };

static zof_table_attr_t *table_attr(const zof_ctrl_t *ctrl) {
    const para_t *record = zof_ctrl_record(ctrl);
    return record && record->is_created ? zof_ctrl_attr<zof_table_attr_t>(ctrl, ZOF_CTRL_TABLE) : nullptr;
}

// Runs `fn` on the object and attributes of a table control.
template <typename F> static s32 on_table(zof_ctrl_t *ctrl, F &&fn, ZOF_CALLER) {
    zof_table_attr_t *attr = table_attr(ctrl);
    return attr ? zof_on(ctrl, &lv_table_class, [&](lv_obj_t *obj) { return fn(obj, attr); })
                : zof_refuse(ctrl, function, site);
}

static u32 color_count(const zof_table_attr_t *attr) {
    return attr->cell_colors ? (u32)attr->row_cnt * attr->col_cnt : 0;
}

// The cells' own background, whatever state the table is in.
static u32 default_color(lv_obj_t *obj) {
    lv_state_t state = obj->state;
    obj->state = LV_STATE_DEFAULT;
    obj->skip_trans = 1;
    lv_color_t color = lv_obj_get_style_bg_color(obj, LV_PART_ITEMS);
    obj->state = state;
    obj->skip_trans = 0;
    return lv_color_to32(color) & COLOR_MASK;
}

static void colors_fill(zof_table_attr_t *attr, u32 color) {
    for (u32 i = 0; i < color_count(attr); i++) {
        attr->cell_colors[i] = color & COLOR_MASK;
    }
}

static void colors_renew(lv_obj_t *obj, zof_table_attr_t *attr) {
    zof_free(attr->cell_colors);
    attr->cell_colors = (u32 *)zof_malloc((size_t)attr->row_cnt * attr->col_cnt * sizeof(u32));
    attr->default_color = default_color(obj);
    colors_fill(attr, attr->default_color);
}

// Unmarked cells follow a change of theme.
static void event_style_changed(lv_event_t *e) {
    zof_table_attr_t *attr = (zof_table_attr_t *)lv_event_get_user_data(e);
    u32 before = attr->default_color;
    attr->default_color = default_color(lv_event_get_target(e));
    for (u32 i = 0; i < color_count(attr); i++) {
        if (attr->cell_colors[i] == before) {
            attr->cell_colors[i] = attr->default_color;
        }
    }
}

// LVGL counts cells in 16 bits, and grows to include whatever cell it is asked for.
static bool has_room(lv_obj_t *obj, u32 row, u32 col) {
    u64 rows = LV_MAX((u64)row + 1, lv_table_get_row_cnt(obj));
    u64 cols = LV_MAX((u64)col + 1, lv_table_get_col_cnt(obj));
    return rows <= ZOF_TABLE_CELLS && cols <= ZOF_TABLE_CELLS && rows * cols <= ZOF_TABLE_CELLS;
}

void table_draw_part_event_cb(lv_event_t *e) {
    const lv_obj_draw_part_dsc_t *dsc = e ? lv_event_get_draw_part_dsc(e) : nullptr;
    const zof_table_attr_t *attr = e ? (const zof_table_attr_t *)lv_event_get_user_data(e) : nullptr;
    if (!dsc || !attr || dsc->part != LV_PART_ITEMS || !dsc->rect_dsc || dsc->id >= color_count(attr)) {
        return;
    }
    dsc->rect_dsc->bg_color = zof_color_to_lv(attr->cell_colors[dsc->id]);
}

static void columns_fit(lv_obj_t *obj, const zof_table_attr_t *table) {
    for (u32 col = 0; col < LV_MIN(table->col_cnt, COLUMNS_FITTED); col++) {
        lv_table_set_col_width(obj, (u16)col, LV_MIN(table->pub_t.size.width / table->col_cnt, WIDTH_MAX));
    }
}

s32 zof_table_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_table_attr_t *table = (zof_table_attr_t *)attr;
    if (!record || !table) {
        return -1;
    }
    if ((u32)table->row_cnt * table->col_cnt > ZOF_TABLE_CELLS) {
        zof_printf("table %u: %u by %u are too many cells", table->pub_t.id, table->row_cnt, table->col_cnt);
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_table_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &table->pub_t);
    lv_obj_set_size(obj, LV_SIZE_CONTENT, LV_SIZE_CONTENT);
    lv_table_set_row_cnt(obj, table->row_cnt);
    lv_table_set_col_cnt(obj, table->col_cnt);
    columns_fit(obj, table);
    lv_obj_set_style_text_line_space(obj, 0, LV_PART_ITEMS);
    zof_ctrl_style_add(record, table->pub_t.style_list, table->pub_t.style_num, 0);
    lv_obj_set_style_text_align(obj, (lv_text_align_t)table->align_table, LV_PART_MAIN);
    colors_renew(obj, table);
    lv_obj_add_event_cb(obj, table_draw_part_event_cb, LV_EVENT_DRAW_PART_BEGIN, table);
    lv_obj_add_event_cb(obj, event_style_changed, LV_EVENT_STYLE_CHANGED, table);
    return 0;
}

s32 zof_table_del(para_t *record) {
    auto *attr = zof_record_attr<zof_table_attr_t>(record, ZOF_CTRL_TABLE);
    if (!attr || !record->is_created) {
        return -1;
    }
    zof_free(attr->cell_colors);
    attr->cell_colors = nullptr;
    return 0;
}

s32 zof_table_set_cell_value(zof_ctrl_t *ctrl, u32 row, u32 col, const char *text) {
    return zof_on(ctrl, &lv_table_class, [=](lv_obj_t *obj) {
        if (!has_room(obj, row, col)) {
            return -1;
        }
        const char *shown = zof_lang_get_cur_str(text);
        lv_table_set_cell_value(obj, (u16)row, (u16)col, shown ? shown : "");
        zof_table_attr_t *attr = table_attr(ctrl);
        // The counts become the index, and a cell just beyond the end changes nothing: programs rely on both.
        if (!attr || (row <= attr->row_cnt && col <= attr->col_cnt)) {
            return 0;
        }
        attr->row_cnt = (u16)LV_MAX(row, attr->row_cnt);
        attr->col_cnt = (u16)LV_MAX(col, attr->col_cnt);
        colors_renew(obj, attr);
        return 0;
    });
}

const char *zof_table_get_cell_value(zof_ctrl_t *ctrl, u32 row, u32 col) {
    if (!table_attr(ctrl)) {
        zof_refuse(ctrl);
        return (const char *)(intptr_t)-1;
    }
    return row < UINT16_MAX && col < UINT16_MAX ? lv_table_get_cell_value(zof_ctrl_obj(ctrl), (u16)row, (u16)col) : "";
}

s32 zof_table_set_col_width(zof_ctrl_t *ctrl, u32 col, u32 width) {
    return zof_on(ctrl, &lv_table_class, [=](lv_obj_t *obj) {
        if (!has_room(obj, 0, col)) {
            return -1;
        }
        lv_table_set_col_width(obj, (u16)col, (lv_coord_t)LV_MIN(width, (u32)WIDTH_MAX));
        return 0;
    });
}

s32 zof_table_set_cell_merge_right(zof_ctrl_t *ctrl, u32 row, u32 col) {
    return zof_on(ctrl, &lv_table_class, [=](lv_obj_t *obj) {
        if (!has_room(obj, row, col)) {
            return -1;
        }
        bool merged = lv_table_has_cell_ctrl(obj, (u16)row, (u16)col, LV_TABLE_CELL_CTRL_MERGE_RIGHT);
        (merged ? lv_table_clear_cell_ctrl : lv_table_add_cell_ctrl)(obj, (u16)row, (u16)col,
                                                                     LV_TABLE_CELL_CTRL_MERGE_RIGHT);
        return 0;
    });
}

s32 zof_table_set_cell_wrap(zof_ctrl_t *ctrl, zof_color_t border_color, u32 border_width, u8 border_opa, u8 bg_opa,
                            zof_color_t bg_color) {
    return zof_on(ctrl, &lv_table_class, [=](lv_obj_t *obj) {
        lv_obj_set_style_border_color(obj, zof_color_to_lv(border_color), LV_PART_ITEMS);
        lv_obj_set_style_border_width(obj, zof_length_to_lv(border_width), LV_PART_ITEMS);
        lv_obj_set_style_border_opa(obj, border_opa, LV_PART_ITEMS);
        lv_obj_set_style_bg_color(obj, zof_color_to_lv(bg_color), LV_PART_ITEMS);
        zof_table_attr_t *attr = table_attr(ctrl);
        if (attr) {
            attr->default_color = bg_color & COLOR_MASK;
            colors_fill(attr, bg_color);
        }
        lv_obj_set_style_bg_opa(obj, bg_opa, LV_PART_ITEMS);
    });
}

s32 zof_table_get_selected_cell(zof_ctrl_t *ctrl, u16 *row, u16 *col) {
    if (!row || !col) {
        return -1;
    }
    return zof_on(ctrl, &lv_table_class, [=](lv_obj_t *obj) { lv_table_get_selected_cell(obj, row, col); });
}

s32 zof_table_set_value_changed_color(zof_ctrl_t *ctrl, zof_color_t color, u32 mode) {
    return on_table(ctrl, [=](lv_obj_t *obj, zof_table_attr_t *attr) {
        u16 row = 0;
        u16 col = 0;
        lv_table_get_selected_cell(obj, &row, &col);
        row = row == LV_TABLE_CELL_NONE ? 0 : row;
        col = col == LV_TABLE_CELL_NONE ? 0 : col;
        u32 cols = lv_table_get_col_cnt(obj);
        u32 rows = lv_table_get_row_cnt(obj);
        u32 count = color_count(attr);
        u32 at = row * cols + col;
        // A finger that slides off the table presses a cell beyond its end.
        if (row >= rows || col >= cols || at >= count) {
            return 0;
        }
        u32 unmarked = default_color(obj);
        u32 marked = color & COLOR_MASK;
        u32 is = attr->cell_colors[at];
        if (is != unmarked && is != marked) {
            return 0;
        }
        u32 paint = is == unmarked ? marked : unmarked;
        for (u32 i = 0; i < LV_MIN(count, rows * cols); i++) {
            if ((mode == 0 && i == at) || (mode == 1 && i / cols == row) || (mode == 2 && i % cols == col)) {
                attr->cell_colors[i] = paint;
            }
        }
        return 0;
    });
}

s32 zof_table_get_cell_color(zof_ctrl_t *ctrl, u32 row, u32 col) {
    return on_table(ctrl, [=](lv_obj_t *obj, const zof_table_attr_t *attr) {
        u32 cols = lv_table_get_col_cnt(obj);
        u64 at = (u64)row * cols + col;
        return col < cols && at < color_count(attr) ? attr->cell_colors[at] : default_color(obj);
    });
}

s32 zof_table_get_row_cnt(zof_ctrl_t *ctrl) {
    return on_table(ctrl, [](lv_obj_t *obj, zof_table_attr_t *) { return lv_table_get_row_cnt(obj); });
}

s32 zof_table_get_col_cnt(zof_ctrl_t *ctrl) {
    return on_table(ctrl, [](lv_obj_t *obj, zof_table_attr_t *) { return lv_table_get_col_cnt(obj); });
}
