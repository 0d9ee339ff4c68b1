// Tables and charts: colours of cells, growth, axes and ranges, and how they look.
#include "looks.h"

// clang-format off
static std::string table_looks(const palette &c) {
    return looks({
        {.bg = c.card, .text = c.text, .border = 1, .border_color = c.line},
        {.part = LV_PART_ITEMS, .bg = c.card, .text = c.text, .border = 1, .border_color = c.line, .pad = 8},
    });
}

static std::string chart_looks(const palette &c) {
    return looks({
        {.bg = c.card, .radius = 4, .text = c.text, .border = 1, .border_color = c.line, .pad = 6},
        {.part = LV_PART_TICKS, .opa = 0, .text = c.mute, .size = 12, .pad = 4},
    });
}
// clang-format on

static std::string table(u32 rows, u32 cols) {
    return R"("row_cnt": )" + std::to_string(rows) + R"(, "col_cnt": )" + std::to_string(cols);
}

static std::string colors(u32 rows, u32 cols) {
    std::string out;
    for (u32 i = 0; i < rows * cols; i++) {
        s32 color = zof_table_get_cell_color(at(1), i / cols, i % cols);
        out += color == (s32)day.card ? '.' : color == 0xFF0000 ? 'r' : color == 0x00FF00 ? 'g' : '?';
        out += i % cols == cols - 1 ? " " : "";
    }
    return out;
}

TEST_CASE("cells keep their colours until the table grows by more than one") {
    view_project_t project;
    looks_open(project);
    project.more += R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"volt": "Voltage"})");
    project.show(
        {ctrl(ZOF_CTRL_TABLE, 1, table(3, 3) + R"(, "align_table": 2)", box(10, 10, 300, 10), table_looks(day))});
    para_t *t = at(1);
    CHECK(lv_table_get_col_width(t->obj, 2) == 100);
    CHECK(zof_table_set_value_changed_color(t, 0xFF0000, 0) == 0); // nothing is pressed: the first cell
    CHECK(colors(3, 3) == "r.. ... ... ");
    auto paint = [&](u16 row, u16 col, u32 color, u32 mode) {
        ((lv_table_t *)t->obj)->row_act = row;
        ((lv_table_t *)t->obj)->col_act = col;
        CHECK(zof_table_set_value_changed_color(t, color, mode) == 0);
        return colors(3, 3);
    };
    CHECK(paint(0, 0, 0x00FF00, 0) == "r.. ... ... "); // a third colour stays
    CHECK(paint(1, 1, 0x00FF00, 1) == "r.. ggg ... ");
    CHECK(paint(1, 2, 0x00FF00, 2) == "r.. gg. ... "); // marked: so the column loses its mark
    CHECK(paint(2, 2, 0xFF0000, 2) == "r.r ggr ..r ");
    CHECK(paint(2, 2, 0xFF0000, 9) == "r.r ggr ..r ");
    CHECK(paint(3, 3, 0xFF0000, 1) == "r.r ggr ..r "); // beyond the end, where a finger has slid off
    CHECK(zof_table_set_cell_value(t, 3, 0, "#volt") == 0);
    CHECK(zof_table_get_row_cnt(t) == 4);
    CHECK(((zof_table_attr_t *)t->attr)->row_cnt == 3);
    CHECK(colors(4, 3) == "r.r ggr ..r ... ");
    CHECK(std::string(zof_table_get_cell_value(t, 3, 0)) == "Voltage");
    CHECK(std::string(zof_table_get_cell_value(t, 9, 0)) == "");
    paint(3, 1, 0x00FF00, 0); // it has no colour of its own
    screen_step(50);
    CHECK(screen_pixel(160, 30 + 3 * 36) == day.card);
    CHECK(zof_table_set_cell_value(t, 4, 0, nullptr) == 0);
    CHECK(zof_table_get_row_cnt(t) == 5);
    CHECK(((zof_table_attr_t *)t->attr)->row_cnt == 4);
    CHECK(colors(5, 3) == "... ... ... ... ... ");
    for (bool merged : {true, false}) {
        CHECK(zof_table_set_cell_merge_right(t, 0, 0) == 0);
        CHECK(lv_table_has_cell_ctrl(t->obj, 0, 0, LV_TABLE_CELL_CTRL_MERGE_RIGHT) == merged);
    }
    CHECK(zof_table_set_cell_wrap(t, 0, 2, 255, 255, 0xFF0000) == 0);
    CHECK(colors(1, 3) == "rrr ");
    CHECK(paint(0, 0, 0x00FF00, 0).substr(0, 3) == "grr");
    CHECK(paint(0, 0, 0x00FF00, 0).substr(0, 3) == "rrr"); // red is the default now
    screen_press(60, 20);
    u16 row = 9, col = 9;
    CHECK(zof_table_get_selected_cell(t, &row, &col) == 0);
    CHECK(row == 0);
    CHECK(col == 0);
    screen_release(60, 20);
    CHECK(zof_ctrl_delete(t) == 0);
    CHECK(zof_table_get_cell_value(t, 0, 0) == (const char *)-1);
    CHECK(zof_table_get_cell_color(t, 0, 0) == -1);
}

TEST_CASE("a table of any size is drawn and pressed, and one that is too large is refused") {
    view_project_t project;
    std::string said = project.show({ctrl(ZOF_CTRL_TABLE, 1, table(256, 256)), ctrl(ZOF_CTRL_TABLE, 2),
                                     ctrl(ZOF_CTRL_TABLE, 3, table(0, 3), box(0, 0, 0, 0)),
                                     ctrl(ZOF_CTRL_TABLE, 4, table(3, 300), box(0, 0, 100, 10)),
                                     ctrl(ZOF_CTRL_TABLE, 5, table(2, 2), box(0, 100, 4194304, 10))});
    CHECK(contains(said, "table 1: 256 by 256 are too many cells"));
    for (u32 id : {2, 3, 4, 5}) {
        CAPTURE(id);
        para_t *t = at(id);
        zof_table_set_value_changed_color(t, 0xFF0000, 2);
        CHECK(zof_table_set_cell_value(t, 65535, 0, "x") == -1);
        CHECK(zof_table_set_cell_value(t, 0, UINT32_MAX, "x") == -1);
        CHECK(zof_table_set_cell_merge_right(t, 40000, 2) == -1);
        CHECK(zof_table_set_cell_value(t, 1, 1, "a long text in a column of no width") == 0);
        CHECK(zof_table_set_col_width(t, 1, UINT32_MAX) == 0);
        CHECK(zof_table_set_col_width(t, 0, 0) == 0);
        screen_step(50);
        screen_click(5, 120);
        screen_drag(5, 5, 300, 230, 3);
        CHECK(zof_ctrl_delete(t) == 0);
    }
}

static std::string chart(u32 type, u32 points, const std::string &more = "") {
    return R"("dis_type_e": )" + std::to_string(type) + R"(, "y_min": 0, "y_max": 100, "x_min": 0, "x_max": 100,
        "point_cnt": )" +
           std::to_string(points) + more;
}

TEST_CASE("a chart shows its series, and finds a range for them") {
    view_project_t project;
    project.show({ctrl(ZOF_CTRL_CHART, 1, chart(1, 5), box(10, 10, 200, 100)),
                  ctrl(ZOF_CTRL_CHART, 2, chart(3, 3), box(10, 120, 200, 100))});
    para_t *c = at(1);
    lv_chart_series_t *series = zof_chart_add_series(c, 0xFF0000, 0);
    static lv_coord_t values[5];
    struct {
        std::vector<s32> values;
        s32 min, max;
    } rows[] = {{{10, 20, 30, 40, 50}, 8, 60},
                {{-10, 20, 32767, -32768, 5}, -12, 24},
                {{-10, -20, -30, -40, -50}, -60, -8},
                {{32767, 10, 10, 10, 10}, 8, 39320}, // the first one counts, whatever it is
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
    CHECK(zof_chart_set_next(c, own, 7) == 0);
    CHECK(zof_chart_set_value_by_id(c, own, 4, 9) == 0);
    CHECK(zof_chart_set_value_by_id(c, own, 70000, 9) == 0);
    CHECK(lv_chart_get_y_array(c->obj, own)[0] == 7);
    CHECK(lv_chart_get_y_array(c->obj, own)[4] == 9);
    CHECK(lv_chart_get_x_start_point(c->obj, own) == 1);
    CHECK(zof_chart_get_x_start_point(c, own) == 0);
    CHECK(zof_chart_set_line_width(c, 12, 3) == 0);
    CHECK(lv_obj_get_style_width(c->obj, LV_PART_INDICATOR) == 12);
    CHECK(lv_obj_get_style_line_width(c->obj, LV_PART_ITEMS) == 3);
    CHECK(zof_chart_series_remove(c, own) == 0);
    for (lv_chart_series_t *wrong : {own, (lv_chart_series_t *)nullptr, zof_chart_add_series(at(2), 0, 0)}) {
        CHECK(zof_chart_set_next(c, wrong, 1) == -1);
        CHECK(zof_chart_set_range_auto(c, wrong) == -1);
        CHECK(zof_chart_series_remove(c, wrong) == -1);
    }
    CHECK(zof_chart_set_points(c, series, nullptr) == -1);
    lv_chart_series_t *dots = zof_chart_add_series(at(2), 0x0000FF, 0);
    CHECK(lv_obj_get_style_line_width(at(2)->obj, LV_PART_ITEMS) == 0);
    screen_step(30); // points that are not set
    CHECK(zof_chart_set_next_value2(at(2), dots, 50, 50) == 0);
    CHECK(lv_chart_get_x_array(at(2)->obj, dots)[0] == 50);
    CHECK(zof_chart_refresh(at(2)) == 0);
    screen_step(30);
    for (u32 id : {1, 2}) {
        CHECK(zof_ctrl_delete(at(id)) == 0); // with what its series hold
    }
}

TEST_CASE("a chart of any numbers is drawn and pressed") {
    view_project_t project;
    const std::string ticks =
        R"(, "y_mark": {"major_cnt": 3, "last_mark_en": true}, "x_mark": {"major_cnt": 255, "minor_cnt": 255,
           "major_tick_len": 255, "last_mark_en": true, "draw_size": 255}, "divline_hdiv": 1, "divline_vdiv": 257)";
    const std::string wide = R"("y_min": -2147483648, "y_max": 2147483647, "x_min": 2147483647, "x_max": -2147483648,)";
    std::vector<std::string> controls;
    for (u32 type = 0; type < 5; type++) {
        u32 first = type * 5 + 1;
        s32 x = (s32)type * 60;
        controls.push_back(ctrl(ZOF_CTRL_CHART, first, chart(type, 1, ticks), box(x, 0, 50, 40)));
        controls.push_back(ctrl(ZOF_CTRL_CHART, first + 1, chart(type, 65535, ticks), box(x, 50, 0, 0)));
        controls.push_back(ctrl(ZOF_CTRL_CHART, first + 2, wide + chart(type, 0), box(x, 100, 50, 40)));
        controls.push_back(ctrl(ZOF_CTRL_CHART, first + 3, wide + chart(type, 2), box(x, 150, 50, 40)));
        controls.push_back(ctrl(ZOF_CTRL_CHART, first + 4, chart(type, 300), box(x, 200, 50, 40)));
    }
    project.show(controls);
    for (u32 id = 1; id <= controls.size(); id++) {
        CAPTURE(id);
        lv_chart_series_t *series[] = {zof_chart_add_series(at(id), 0xFF0000, 0),
                                       zof_chart_add_series(at(id), 0x00FF00, 255)};
        for (s32 value : {INT32_MIN, INT32_MAX, 40, -32768, 1000000}) {
            zof_chart_set_next(at(id), series[0], value);
            zof_chart_set_next_value2(at(id), series[1], value, value);
            zof_chart_set_range_auto(at(id), series[id % 2]);
        }
        zof_chart_set_line_width(at(id), UINT32_MAX, 4000000000);
    }
    screen_step(30);
    for (s32 y : {20, 55, 120, 170, 220}) {
        screen_drag(5, y, 290, y, 6);
    }
    CHECK(zof_ctrl_list_create(zof_view_list_get(1)) == 0);
}

static const std::string y_marks =
    R"(, "y_mark": {"major_tick_len": 8, "minor_tick_len": 4, "major_cnt": 5, "minor_cnt": 2, "draw_size": 50,
    "last_mark_en": true})";
static const std::string x_marks =
    R"(, "x_mark": {"major_tick_len": 8, "minor_tick_len": 4, "major_cnt": 5, "minor_cnt": 2, "draw_size": 40,
    "last_mark_en": true})";

static std::string lines(const palette &c) {
    const std::string color = R"({"color": )" + std::to_string(c.line) + R"(, "opa": 255, "width": 1})";
    return R"(, "divline_hdiv": 5, "divline_vdiv": 5, "chart_line_style": )" + color +
           R"(, "chart_line_tick_style": )" + color;
}

TEST_CASE("pictures of tables") {
    view_project_t project;
    looks_open(project);
    looks_theme(project, ZOF_CTRL_TABLE, table_looks);
    auto sized = [](u32 id, u32 align) {
        return ctrl(ZOF_CTRL_TABLE, id, table(4, 3) + R"(, "align_table": )" + std::to_string(align),
                    box(20, 20, 280, 10));
    };
    project.show({sized(1, 1), sized(2, 2), sized(3, 3)});
    const char *texts[4][3] = {
        {"Rail", "Voltage", "Current"}, {"1", "5.00 V", "3.0 A"}, {"2", "9.00 V", "3.0 A"}, {"3", "20.0 V", "5.0 A"}};
    const char *names[] = {"left", "middle", "right"};
    for (u32 id = 1; id <= 3; id++) {
        for (u32 i = 0; i < 12; i++) {
            CHECK(zof_table_set_cell_value(at(id), i / 3, i % 3, texts[i / 3][i % 3]) == 0);
        }
        looks_only(id, 3);
        picture(std::string("table_") + names[id - 1]);
    }
    looks_only(1, 3);
    const auto mark = [](u32 color, u32 mode) {
        screen_press(160, 80);
        CHECK(zof_table_set_value_changed_color(at(1), color, mode) == 0);
        screen_release(160, 80);
    };
    const char *modes[] = {"cell", "row", "column"};
    for (u32 mode = 0; mode < 3; mode++) {
        mark(0xFFE2A8, mode);
        picture(std::string("table_marked_") + modes[mode]);
        mark(0xFFE2A8, mode);
    }
    screen_press(160, 80);
    CHECK(zof_table_set_value_changed_color(at(1), 0xFFE2A8, 0) == 0);
    picture("table_pressed");
    screen_release(160, 80);
    CHECK(zof_table_set_col_width(at(1), 2, 86) == 0);
    CHECK(zof_table_set_cell_value(at(1), 3, 2, "5.0 A for a while") == 0);
    CHECK(zof_table_set_cell_merge_right(at(1), 1, 1) == 0);
    picture("table_merged_and_wrapped");
    CHECK(zof_table_set_cell_value(at(1), 4, 1, "more") == 0);
    picture("table_grown");
    zof_table_set_col_width(at(2), 0, 60);
    looks_only(2, 3);
    CHECK(zof_table_set_cell_wrap(at(2), day.accent, 2, 255, 255, day.press) == 0);
    picture("table_wrap");
    looks_night();
    looks_only(1, 3);
    mark(0xFFE2A8, 0);
    mark(0x6B4A12, 1);
    CHECK(screen_pixel(100, 115) == night.card); // cells that nobody painted follow the theme
    picture("table_night");
}

TEST_CASE("pictures of charts") {
    view_project_t project;
    looks_open(project);
    looks_theme(project, ZOF_CTRL_CHART, chart_looks);
    auto sized = [](u32 id, u32 type, u32 points, const std::string &more) {
        return ctrl(ZOF_CTRL_CHART, id, chart(type, points, lines(day) + more), box(60, 20, 240, 170));
    };
    project.show({sized(1, 1, 9, y_marks + x_marks),
                  sized(2, 2, 6, y_marks + R"(, "x_mark": {"major_tick_len": 6, "major_cnt": 6, "draw_size": 40,
                      "last_mark_en": true})"),
                  sized(3, 3, 12, y_marks + x_marks), sized(4, 1, 9, R"(, "dis_mode_e": 1)"), sized(5, 1, 1000, ""),
                  sized(6, 0, 9, y_marks)});
    auto fill = [](u32 id, u32 color, u32 count, u32 phase) {
        lv_chart_series_t *series = zof_chart_add_series(at(id), color, 0);
        for (u32 i = 0; i < count; i++) {
            s32 value = 50 + 40 * lv_trigo_sin((s16)((i * 360 / count + phase) % 360)) / 32768;
            CHECK(zof_chart_set_next(at(id), series, value) == 0);
        }
        return series;
    };
    looks_only(1, 6);
    picture("chart_without_series");
    lv_chart_series_t *first = fill(1, day.accent, 9, 0);
    picture("chart_line");
    CHECK(zof_chart_set_line_width(at(1), 0, 4) == 0);
    picture("chart_line_without_points");
    CHECK(zof_chart_set_line_width(at(1), 8, 2) == 0);
    fill(1, 0xE8590C, 9, 90);
    CHECK(zof_chart_set_value_by_id(at(1), first, 4, LV_CHART_POINT_NONE) == 0);
    picture("chart_two_lines_with_gap");
    CHECK(zof_chart_set_next(at(1), first, 5) == 0);
    CHECK(zof_chart_set_next(at(1), first, 95) == 0);
    picture("chart_line_shifted");
    for (u32 i = 0; i < 9; i++) {
        zof_chart_set_value_by_id(at(1), first, i, 1000 + (s32)i * 100);
    }
    CHECK(zof_chart_set_range_auto(at(1), first) == 0);
    picture("chart_auto_range");
    looks_only(2, 6);
    fill(2, day.accent, 6, 0);
    picture("chart_bars");
    lv_chart_series_t *second = fill(2, 0xE8590C, 6, 120);
    picture("chart_two_bars");
    CHECK(zof_chart_series_remove(at(2), second) == 0);
    picture("chart_bars_removed");
    looks_only(3, 6);
    lv_chart_series_t *dots = zof_chart_add_series(at(3), 0xE8590C, 0);
    for (s32 i = 0; i < 12; i++) {
        CHECK(zof_chart_set_next_value2(at(3), dots, 5 + i * 8, (i * 37 + 11) % 100) == 0);
    }
    picture("chart_scatter");
    looks_only(4, 6);
    lv_chart_series_t *round = fill(4, day.accent, 9, 0);
    CHECK(zof_chart_set_next(at(4), round, 5) == 0);
    CHECK(zof_chart_set_next(at(4), round, 95) == 0);
    picture("chart_line_circular");
    looks_only(5, 6);
    lv_chart_series_t *crowd = fill(5, day.accent, 1000, 0);
    for (u32 i = 400; i < 440; i++) {
        zof_chart_set_value_by_id(at(5), crowd, i, LV_CHART_POINT_NONE);
    }
    picture("chart_thousand_points");
    looks_only(6, 6);
    fill(6, day.accent, 9, 0);
    picture("chart_type_none");
    looks_only(2, 6);
    looks_night();
    picture("chart_night");
}
