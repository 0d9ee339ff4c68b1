// Tables and charts: colours of cells, growth, axes and ranges, and how they look.
#include "looks.h"

static const std::string table_looks = looks + ", " + look(LV_PART_ITEMS, 0, 0, CARD, TEXT, LINE, 8);

static std::string table(u32 rows, u32 cols) {
    return form(R"("row_cnt": %u, "col_cnt": %u)", rows, cols);
}

static std::string colors(u32 rows, u32 cols) {
    std::string out;
    for (u32 i = 0; i < rows * cols; i++) {
        s32 color = zof_table_get_cell_color(at(1), i / cols, i % cols);
        out += color == CARD ? '.' : color == 0xFF0000 ? 'r' : color == 0x00FF00 ? 'g' : '?';
        out += i % cols == cols - 1 ? " " : "";
    }
    return out;
}

TEST_CASE("cells keep their colours until the table grows by more than one") {
    view_project_t project;
    looks_open(project);
    project.show({ctrl(ZOF_CTRL_TABLE, 1, table(3, 3) + R"(, "align_table": 2)", box(10, 10, 300, 10), table_looks)});
    para_t *t = at(1);
    CHECK(zof_table_set_value_changed_color(t, 0xFF0000, 0) == 0); // nothing is pressed: the first cell
    const auto paint = [&](u16 row, u16 col, u32 color, u32 mode, u32 rows = 3) {
        ((lv_table_t *)t->obj)->row_act = row;
        ((lv_table_t *)t->obj)->col_act = col;
        CHECK(zof_table_set_value_changed_color(t, color, mode) == 0);
        return colors(rows, 3);
    };
    CHECK(paint(0, 0, 0x00FF00, 0) == "r.. ... ... "); // a third colour stays
    CHECK(paint(1, 1, 0x00FF00, 1) == "r.. ggg ... ");
    CHECK(paint(1, 2, 0x00FF00, 2) == "r.. gg. ... "); // marked, so the column loses its mark
    CHECK(paint(2, 2, 0xFF0000, 2) == "r.r ggr ..r ");
    CHECK(paint(3, 3, 0xFF0000, 1) == "r.r ggr ..r "); // beyond the end, where a finger slid off
    CHECK(zof_table_set_cell_value(t, 3, 0, "#low") == 0);
    CHECK(((zof_table_attr_t *)t->attr)->row_cnt == 3); // one less than LVGL has
    CHECK(std::string(zof_table_get_cell_value(t, 3, 0)) == "Low");
    CHECK(paint(3, 1, 0x00FF00, 0, 4) == "r.r ggr ..r ... "); // the new row has no colour of its own
    CHECK(zof_table_set_cell_value(t, 4, 0, nullptr) == 0);
    CHECK(colors(5, 3) == "... ... ... ... ... ");
    CHECK(zof_table_set_cell_wrap(t, 0, 2, 255, 255, 0xFF0000) == 0);
    CHECK(paint(0, 0, 0x00FF00, 0, 1) == "grr ");
    CHECK(paint(0, 0, 0x00FF00, 0, 1) == "rrr "); // red is the default now
}

static std::string chart(u32 type, u32 points, const std::string &more = "") {
    return form(R"("dis_type_e": %u, "y_min": 0, "y_max": 100, "x_min": 0, "x_max": 100, "point_cnt": %u)", type,
                points) +
           more;
}

TEST_CASE("a chart fits its range to a series, and refuses those of other charts") {
    view_project_t project({ctrl(ZOF_CTRL_CHART, 1, chart(1, 5), box(10, 10, 200, 100)),
                            ctrl(ZOF_CTRL_CHART, 2, chart(3, 3), box(10, 120, 200, 100))});
    para_t *c = at(1);
    lv_chart_series_t *series = zof_chart_add_series(c, 0xFF0000, 0);
    static lv_coord_t values[5];
    const struct {
        std::vector<s32> values;
        s32 min, max;
    } rows[] = {{{10, 20, 30, 40, 50}, 8, 60},
                {{-10, 20, 32767, -32768, 5}, -12, 24},
                {{32767, 10, 10, 10, 10}, 8, 39320}, // the first one always counts
                {{3, 3, 3, 3, 3}, 2, 3},
                {{LV_CHART_POINT_NONE, 10, 10, 10, 10}, 8, 12},
                {{0, 0, 0, 0, 0}, 0, 1}, // LVGL cannot draw an empty range
                {{INT32_MIN, INT32_MAX - 1, 0, 0, 0}, -(1 << 30), 1 << 30}};
    CHECK(zof_chart_set_points(c, series, values) == 0);
    for (const auto &row : rows) {
        std::copy(row.values.begin(), row.values.end(), values);
        CHECK(zof_chart_set_range_auto(c, series) == 0);
        CHECK(((lv_chart_t *)c->obj)->ymin[0] == row.min);
        CHECK(((lv_chart_t *)c->obj)->ymax[0] == row.max);
        screen_step(30);
    }
    lv_chart_series_t *own = zof_chart_add_series(c, 0x00FF00, LV_CHART_AXIS_SECONDARY_Y);
    CHECK(zof_chart_set_value_by_id(c, own, 70000, 9) == 0);
    zof_chart_series_remove(c, own);
    for (lv_chart_series_t *wrong : {own, (lv_chart_series_t *)nullptr, zof_chart_add_series(at(2), 0, 0)}) {
        CHECK(zof_chart_set_next(c, wrong, 1) == -1);
        CHECK(zof_chart_series_remove(c, wrong) == -1);
    }
    CHECK(zof_chart_set_points(c, series, nullptr) == -1);
}

TEST_CASE("a chart is drawn and pressed with any numbers") {
    const std::string wide = R"("y_min": -2147483648, "y_max": 2147483647, "x_min": 2147483647, "x_max": -2147483648,)";
    view_project_t project;
    std::vector<std::string> controls;
    for (u32 i = 0; i < 25; i++) {
        const u32 type = i / 5, y = i % 5 * 50;
        const std::string kinds[] = {chart(type, 1), chart(type, 65535), wide + chart(type, 0), wide + chart(type, 2),
                                     chart(type, 300)};
        controls.push_back(
            ctrl(ZOF_CTRL_CHART, i + 1, kinds[i % 5], box((s32)type * 60, (s32)y, y == 50 ? 0 : 50, 40)));
    }
    project.show(controls);
    for (u32 id = 1; id <= controls.size(); id++) {
        lv_chart_series_t *series = zof_chart_add_series(at(id), 0, id % 2 ? 255 : 0);
        for (s32 value : {INT32_MIN, INT32_MAX, 40, -32768, 1000000}) {
            zof_chart_set_next(at(id), series, value);
            zof_chart_set_next_value2(at(id), series, value, value);
            zof_chart_set_range_auto(at(id), series);
        }
        zof_chart_set_line_width(at(id), UINT32_MAX, 4000000000);
    }
    for (s32 y : {20, 55, 120, 170, 220}) {
        screen_drag(5, y, 290, y, 6);
    }
}

static void tables_fill() {
    const char *texts[] = {"Rail", "Voltage", "Current", "1", "5.00 V", "3.0 A",
                           "2",    "9.00 V",  "3.0 A",   "3", "20.0 V", "5.0 A"};
    for (u32 i = 0; i < 36; i++) {
        CHECK(zof_table_set_cell_value(at(1 + i / 12), i % 12 / 3, i % 3, texts[i % 12]) == 0);
    }
}

static void table_merge() {
    zof_table_set_cell_wrap(at(1), ACCENT, 2, 255, 255, PRESS);
    screen_press(160, 80);
    CHECK(zof_table_set_value_changed_color(at(1), 0xFFE2A8, 0) == 0);
    screen_release(160, 80);
    zof_table_set_col_width(at(1), 2, 86);
    zof_table_set_cell_value(at(1), 3, 2, "5.0 A for a while");
    zof_table_set_cell_merge_right(at(1), 1, 1);
}

// One row for each picture.
// clang-format off
TEST_CASE("pictures of tables") {
    const auto sized = [](u32 id) {
        return ctrl(ZOF_CTRL_TABLE, id, table(4, 3) + form(R"(, "align_table": %u)", id), box(20, 20, 280, 10), table_looks);
    };
    looks_of({sized(1), sized(2), sized(3)}, {
        {"table_left", 1, tables_fill},
        {"table_right", 3},
        {"table_merged_and_wrapped", 1, table_merge},
        {"table_grown", 1, [] { zof_table_set_cell_value(at(1), 4, 1, "more"); }},
    });
}
// clang-format on

static lv_chart_series_t *curve(u32 id, u32 color, u32 count, u32 phase = 0) {
    lv_chart_series_t *series = zof_chart_add_series(at(id), color, 0);
    for (u32 i = 0; i < count; i++) {
        s32 value = 50 + 40 * lv_trigo_sin((s16)((i * 360 / count + phase) % 360)) / 32768;
        CHECK(zof_chart_set_next(at(id), series, value) == 0);
    }
    return series;
}

static void chart_gap() {
    zof_chart_set_line_width(at(1), 8, 2);
    zof_chart_set_value_by_id(at(1), curve(1, ACCENT, 9), 4, LV_CHART_POINT_NONE);
    curve(1, 0xE8590C, 9, 90);
}

static void chart_shifted() {
    lv_chart_series_t *series = curve(3, ACCENT, 9);
    zof_chart_set_next(at(3), series, 5);
    zof_chart_set_next(at(3), series, 95);
}

// clang-format off
TEST_CASE("pictures of charts") {
    const std::string marks = R"({"major_tick_len": 8, "minor_tick_len": 4, "major_cnt": 5, "minor_cnt": 2,
                                  "last_mark_en": true, "draw_size": )";
    const std::string y = R"(, "y_mark": )" + marks + "50}", both = y + R"(, "x_mark": )" + marks + "40}";
    const std::string six = R"(, "x_mark": {"major_tick_len": 6, "major_cnt": 6, "draw_size": 40, "last_mark_en": true})";
    const std::string line = form(R"({"opa": 255, "width": 1, "color": %u})", LINE);
    const std::string lines = R"(, "divline_hdiv": 5, "divline_vdiv": 5, "chart_line_style": )" + line +
                              R"(, "chart_line_tick_style": )" + line;
    const auto sized = [&](u32 id, u32 type, u32 points, const std::string &more) {
        return ctrl(ZOF_CTRL_CHART, id, chart(type, points, lines + more), box(60, 20, 240, 170), looks);
    };
    looks_of({sized(1, 1, 9, both), sized(2, 2, 6, y + six), sized(3, 1, 9, R"(, "dis_mode_e": 1)")}, {
        {"chart_two_lines_with_gap", 1, chart_gap},
        {"chart_two_bars", 2, [] { curve(2, ACCENT, 6); curve(2, 0xE8590C, 6, 120); }},
        {"chart_line_circular", 3, chart_shifted},
    });
}
// clang-format on
