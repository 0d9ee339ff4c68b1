// Charts: axes and looks come from the file, series and values from the program.
#include "control/zof_chart.h"

#include "control/zof_ctrl_in.h"
#include "project/look/zof_style.h"

const reflect_item_t zof_chart_test_tbl[] = {
    CSON_INT(zof_chart_test_t, t_en),
    CSON_INT(zof_chart_test_t, color_t),
    CSON_END,
};

const reflect_item_t zof_chart_marks_t_tbl[] = {
    CSON_INT(zof_chart_marks_t, major_tick_len),
    CSON_INT(zof_chart_marks_t, minor_tick_len),
    CSON_INT(zof_chart_marks_t, major_cnt),
    CSON_INT(zof_chart_marks_t, minor_cnt),
    CSON_INT(zof_chart_marks_t, draw_size),
    CSON_BOOL(zof_chart_marks_t, last_mark_en),
    CSON_END,
};

static const zof_name_t type_names[] = {{"none", LV_CHART_TYPE_NONE},
                                        {"lines", LV_CHART_TYPE_LINE},
                                        {"bars", LV_CHART_TYPE_BAR},
                                        {"points", LV_CHART_TYPE_SCATTER},
                                        ZOF_NAMES_END};
static const zof_name_t update_names[] = {
    {"shift", LV_CHART_UPDATE_MODE_SHIFT}, {"overwrite", LV_CHART_UPDATE_MODE_CIRCULAR}, ZOF_NAMES_END};

const reflect_item_t zof_chart_attr_t_tbl[] = {
    ZOF_CTRL_KEYS(zof_chart_attr_t),
    CSON_ENUM(zof_chart_attr_t, dis_type_e, LV_CHART_TYPE_SCATTER + 1, type_names),
    CSON_ENUM(zof_chart_attr_t, dis_mode_e, 0, update_names),
    CSON_INT(zof_chart_attr_t, y_min),
    CSON_INT(zof_chart_attr_t, y_max),
    CSON_INT(zof_chart_attr_t, x_min),
    CSON_INT(zof_chart_attr_t, x_max),
    CSON_INT(zof_chart_attr_t, point_cnt),
    CSON_INT(zof_chart_attr_t, divline_hdiv),
    CSON_INT(zof_chart_attr_t, divline_vdiv),
    CSON_OBJ(zof_chart_attr_t, x_mark, zof_chart_marks_t_tbl),
    CSON_OBJ(zof_chart_attr_t, y_mark, zof_chart_marks_t_tbl),
    CSON_OBJ(zof_chart_attr_t, chart_line_style, zof_line_disp_t_tbl),
    CSON_OBJ(zof_chart_attr_t, chart_line_tick_style, zof_line_disp_t_tbl),
    CSON_END,
};

const zof_ctrl_class_t zof_chart_class = {
    .type = ZOF_CTRL_CHART,
    .name = "chart",
    .attr = zof_chart_attr_t_tbl,
    .attr_size = sizeof(zof_chart_attr_t),
    .create = zof_chart_create,
};

// LVGL's own numbers stay well within these, so that it can widen an empty range by one.
enum { RANGE_MAX = 1 << 30 };

static void range_set(lv_obj_t *obj, lv_chart_axis_t axis, s32 min, s32 max) {
    lv_chart_set_range(obj, axis, LV_CLAMP(-RANGE_MAX, min, RANGE_MAX), LV_CLAMP(-RANGE_MAX, max, RANGE_MAX));
}

// LVGL counts the steps between two major ticks and divides by the count.
static void ticks_set(lv_obj_t *obj, lv_chart_axis_t axis, const zof_chart_marks_t *marks) {
    lv_chart_set_axis_tick(obj, axis, marks->major_tick_len, marks->minor_tick_len, marks->major_cnt,
                           LV_MAX(marks->minor_cnt, 1), marks->last_mark_en, marks->draw_size);
}

static void axes_set(lv_obj_t *obj, const zof_chart_attr_t *chart) {
    range_set(obj, LV_CHART_AXIS_PRIMARY_Y, chart->y_min, chart->y_max);
    range_set(obj, LV_CHART_AXIS_PRIMARY_X, chart->x_min, chart->x_max);
    lv_chart_set_point_count(obj, chart->point_cnt);
    lv_chart_set_div_line_count(obj, (u8)LV_MIN(chart->divline_hdiv, UINT8_MAX),
                                (u8)LV_MIN(chart->divline_vdiv, UINT8_MAX));
    ticks_set(obj, LV_CHART_AXIS_PRIMARY_Y, &chart->y_mark);
    ticks_set(obj, LV_CHART_AXIS_PRIMARY_X, &chart->x_mark);
    const zof_line_disp_t *ticks = &chart->chart_line_tick_style;
    lv_obj_set_style_line_color(obj, zof_color_to_lv(ticks->color), LV_PART_TICKS);
    lv_obj_set_style_line_opa(obj, ticks->opa, LV_PART_TICKS);
    lv_obj_set_style_line_width(obj, zof_length_to_lv(ticks->width), LV_PART_TICKS);
}

s32 zof_chart_create(para_t *record, lv_obj_t *parent, void *attr) {
    zof_chart_attr_t *chart = (zof_chart_attr_t *)attr;
    if (!record || !chart) {
        return -1;
    }
    lv_obj_t *obj = record->obj = lv_chart_create(parent);
    if (!obj) {
        return -1;
    }
    zof_ctrl_pub_attr(record, &chart->pub_t);
    lv_chart_set_type(obj, (lv_chart_type_t)chart->dis_type_e);
    lv_chart_set_update_mode(obj, chart->dis_mode_e ? LV_CHART_UPDATE_MODE_CIRCULAR : LV_CHART_UPDATE_MODE_SHIFT);
    axes_set(obj, chart);
    zof_line_set_dis(record, &chart->chart_line_style);
    if (chart->dis_type_e == LV_CHART_TYPE_SCATTER) {
        lv_obj_set_style_line_width(obj, 0, LV_PART_ITEMS);
    }
    zof_ctrl_style_add(record, chart->pub_t.style_list, chart->pub_t.style_num, 0);
    lv_chart_refresh(obj);
    return 0;
}

lv_chart_series_t *zof_chart_add_series(zof_ctrl_t *ctrl, zof_color_t color, u32 axis) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_chart_class);
    return obj ? lv_chart_add_series(obj, zof_color_to_lv(color), (lv_chart_axis_t)axis) : nullptr;
}

// Runs `fn` on a chart that has this series: a series that was removed is only an address.
template <typename F> static s32 on_series(zof_ctrl_t *ctrl, lv_chart_series_t *series, F &&fn, ZOF_CALLER) {
    const auto run = [&](lv_obj_t *obj) {
        lv_chart_series_t *at = lv_chart_get_series_next(obj, nullptr);
        while (at && at != series) {
            at = lv_chart_get_series_next(obj, at);
        }
        if (!at) {
            return -1;
        }
        fn(obj);
        return 0;
    };
    return zof_on(ctrl, &lv_chart_class, run, function, site);
}

s32 zof_chart_series_remove(zof_ctrl_t *ctrl, lv_chart_series_t *series) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) {
        lv_chart_remove_series(obj, series);
        lv_chart_refresh(obj);
    });
}

// LVGL keeps the newest series first.
lv_chart_series_t *zof_chart_series_at(zof_ctrl_t *ctrl, u32 number) {
    lv_obj_t *obj = zof_obj_of(ctrl, &lv_chart_class);
    u32 newer = obj ? zof_chart_series_count(ctrl) : 0;
    lv_chart_series_t *at = nullptr;
    for (; newer > number; newer--) {
        at = lv_chart_get_series_next(obj, at);
    }
    return at;
}

u32 zof_chart_series_count(zof_ctrl_t *ctrl) {
    const lv_obj_t *obj = zof_obj_of(ctrl, &lv_chart_class);
    u32 count = 0;
    for (lv_chart_series_t *at = obj ? lv_chart_get_series_next(obj, nullptr) : nullptr; at; count++) {
        at = lv_chart_get_series_next(obj, at);
    }
    return count;
}

s32 zof_chart_set_series_color(zof_ctrl_t *ctrl, lv_chart_series_t *series, zof_color_t color) {
    return on_series(ctrl, series,
                     [=](lv_obj_t *obj) { lv_chart_set_series_color(obj, series, zof_color_to_lv(color)); });
}

s32 zof_chart_clear(zof_ctrl_t *ctrl, lv_chart_series_t *series) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) {
        lv_chart_set_all_value(obj, series, LV_CHART_POINT_NONE);
        lv_chart_set_x_start_point(obj, series, 0);
        lv_chart_refresh(obj);
    });
}

s32 zof_chart_set_range(zof_ctrl_t *ctrl, u32 axis, s32 min, s32 max) {
    return zof_on(ctrl, &lv_chart_class, [=](lv_obj_t *obj) {
        range_set(obj, (lv_chart_axis_t)axis, min, max);
        lv_chart_refresh(obj);
    });
}

s32 zof_chart_set_points(zof_ctrl_t *ctrl, lv_chart_series_t *series, lv_coord_t *y) {
    if (!y) {
        return -1;
    }
    return on_series(ctrl, series, [=](lv_obj_t *obj) { lv_chart_set_ext_y_array(obj, series, y); });
}

s32 zof_chart_set_next(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 value) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) { lv_chart_set_next_value(obj, series, value); });
}

s32 zof_chart_set_next_value2(zof_ctrl_t *ctrl, lv_chart_series_t *series, s32 x, s32 y) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) { lv_chart_set_next_value2(obj, series, x, y); });
}

s32 zof_chart_set_value_by_id(zof_ctrl_t *ctrl, lv_chart_series_t *series, u32 id, s32 value) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) {
        lv_chart_set_value_by_id(obj, series, (u16)LV_MIN(id, (u32)UINT16_MAX), value);
    });
}

s32 zof_chart_refresh(zof_ctrl_t *ctrl) {
    return zof_on(ctrl, &lv_chart_class, lv_chart_refresh);
}

s32 zof_chart_get_x_start_point(zof_ctrl_t *ctrl, lv_chart_series_t *series) {
    return on_series(ctrl, series, [](lv_obj_t *) {});
}

s32 zof_chart_set_line_width(zof_ctrl_t *ctrl, u32 point_size, u32 line_width) {
    return zof_on(ctrl, &lv_chart_class, [=](lv_obj_t *obj) {
        lv_obj_set_style_line_width(obj, zof_length_to_lv(line_width), LV_PART_ITEMS);
        lv_obj_set_style_width(obj, zof_length_to_lv(point_size), LV_PART_INDICATOR);
    });
}

// A limit with its margin.
static s32 outward(s32 limit, bool up) {
    double value = limit * (up == (limit >= 0) ? 1.2 : 0.8);
    return (s32)LV_CLAMP((double)-RANGE_MAX, value, (double)RANGE_MAX);
}

s32 zof_chart_set_range_auto(zof_ctrl_t *ctrl, lv_chart_series_t *series) {
    return on_series(ctrl, series, [=](lv_obj_t *obj) {
        const lv_coord_t *y = lv_chart_get_y_array(obj, series);
        u32 count = lv_chart_get_point_count(obj);
        u32 first = 0;
        while (first < count && y[first] == LV_CHART_POINT_NONE) {
            first++;
        }
        if (first == count) {
            return;
        }
        s32 min = y[first];
        s32 max = y[first];
        for (u32 i = first + 1; i < count; i++) {
            if (y[i] == LV_CHART_POINT_NONE || y[i] == INT16_MIN || y[i] == INT16_MAX) {
                continue;
            }
            min = LV_MIN(min, y[i]);
            max = LV_MAX(max, y[i]);
        }
        lv_chart_set_range(obj, LV_CHART_AXIS_PRIMARY_Y, outward(min, false), outward(max, true));
    });
}
