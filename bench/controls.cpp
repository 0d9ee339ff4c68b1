// Single features compared with plain LVGL: a language change on a thousand controls, a step of a wheel, a chart.
#include "measure.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

enum : u32 { WORDS = 1, WHEEL = 2, CHART = 3, CONTROLS = 1000, ITEMS = 9, SHOWN = 5, POINTS = 200 };

static std::string number(u32 n) {
    return std::to_string(n);
}

static std::string control(u32 type, u32 id, u32 parent, u32 x, u32 y, u32 w, u32 h, const std::string &keys) {
    return std::string(id > 1 ? ",\n" : "") + R"({"type": )" + number(type) +
           R"(, "theme": "night", "property": {"pub_t": {"name": "c)" + number(id) + R"(", "id": )" + number(id) +
           R"(, "parent_id": )" + number(parent) + R"(, "pt": {"x": )" + number(x) + R"(, "y": )" + number(y) +
           R"(}, "size": {"width": )" + number(w) + R"(, "height": )" + number(h) +
           R"(}, "alpha": 255, "scrollbar_t": {"dir_e": 15}}, "styles": [{"style_part": 0, "style_state": 0,
           "style_sect": 0, "body_t": {"opa": 255, "main_color": 4210752}, "txt_t": {"color": 16777215, "opa": 255}}], )" +
           keys + "}}";
}

// Every second control is a button.
static std::string words_file() {
    std::string out;
    for (u32 i = 1; i <= CONTROLS; i++) {
        out += control(i % 2 ? ZOF_CTRL_LABEL : ZOF_CTRL_BTN, i, 0, i % 25 * 32, i / 25 * 12, 32, 12,
                       R"("auto_hight": 1, "dis_mode_e": 4, "txt": "#w)" + number(i) + "\"");
    }
    return out;
}

static std::string wheel_file() {
    std::string out = control(ZOF_CTRL_SCROLLCONT, 1, 0, 100, 60, 600, 300,
                              R"("child_cnt": )" + number(ITEMS) + R"(, "display_count": )" + number(SHOWN) +
                                  R"(, "dir": 0, "arc_r": 400, "zoom": 120, "opa_mode": 1)");
    for (u32 i = 0; i < ITEMS; i++) {
        out += control(ZOF_CTRL_SCROLLCONT_OBJ, 2 + 2 * i, 1, 0, 0, 10, 10, R"("create_num": )" + number(i)) +
               control(ZOF_CTRL_LABEL, 3 + 2 * i, 2 + 2 * i, 10, 100, 80, 60,
                       R"("auto_hight": 1, "align_e": 34, "txt": ")" + number(i) + "\"");
    }
    return out;
}

static std::string chart_file() {
    return control(ZOF_CTRL_CHART, 1, 0, 50, 50, 700, 380,
                   R"("dis_type_e": 1, "dis_mode_e": 0, "y_max": 100, "x_max": 100, "divline_hdiv": 5,
                   "divline_vdiv": 6, "x_mark": {}, "y_mark": {}, "chart_line_tick_style": {},
                   "chart_line_style": {"color": 255, "width": 1, "opa": 90}, "point_cnt": )" +
                       number(POINTS));
}

static void project_up(const std::filesystem::path &top) {
    const auto write = [&top](const std::string &name, const std::string &text) {
        std::filesystem::create_directories((top / name).parent_path());
        std::ofstream(top / name) << text;
    };
    for (const char *language : {"a", "b"}) {
        std::string texts;
        for (u32 i = 1; i <= CONTROLS; i++) {
            texts += (i > 1 ? ",\n\"w" : "\"w") + number(i) + "\": \"" + language + number(i) + "\"";
        }
        write(std::string("res/config/languages/") + language + ".g", "{" + texts + "}");
    }
    std::string views;
    for (const auto &[id, controls] : {std::pair{WORDS, words_file()}, {WHEEL, wheel_file()}, {CHART, chart_file()}}) {
        write("res/config/view/v" + number(id) + ".g",
              R"({"view": {"v_id": )" + number(id) + R"(, "bg_scale": 255}, "controls": [)" + controls + "]}");
        views += (id > 1 ? R"(, {"pageId": )" : R"({"pageId": )") + number(id) + R"(, "pageName": "v)" + number(id) +
                 ".g\"}";
    }
    write("res/config/project/zofprj.g", R"({"width": 800, "height": 480, "language": "a", "views": [)" + views + "]}");
    setenv("SDL_VIDEODRIVER", "offscreen", 0);
    if (chdir(top.c_str()) != 0) {
        _exit(1);
    }
    lv_init();
    zof_drv_init();
    static const zof_view_fun_t table[] = {{WORDS, [] { zof_view_create(WORDS, nullptr, 0); }},
                                           {WHEEL, [] { zof_view_create(WHEEL, nullptr, 0); }},
                                           {CHART, [] { zof_view_create(CHART, nullptr, 0); }}};
    zof_prj_get_cur()->view_fun = table;
    zof_prj_get_cur()->view_fun_cnt = 3;
}

static lv_obj_t *shown(u32 view) {
    zof_view_load(view);
    lv_obj_t *screen = zof_view_list_get(view)->obj;
    lv_disp_load_scr(screen);
    for (int i = 0; i < 3; i++) { // delayed work has started by then
        lv_timer_handler();
        lv_refr_now(nullptr);
    }
    return screen;
}

// Both are shown in turns, so a busy machine affects both; the best of five medians.
static void row(const char *what, const char *beside, const std::function<void()> &ours, lv_obj_t *our_screen,
                const std::function<void()> &plain, lv_obj_t *plain_screen) {
    double us = 1e9;
    double them = 1e9;
    for (int turn = 0; turn < 5; turn++) {
        lv_disp_load_scr(our_screen);
        lv_refr_now(nullptr);
        us = std::min(us, median_ms(21, ours));
        lv_disp_load_scr(plain_screen);
        lv_refr_now(nullptr);
        them = std::min(them, median_ms(21, plain));
    }
    printf("| %s | %.3f ms | %.3f ms, %s | %.2f |\n", what, us, them, beside, us / them);
}

// The object with its record's styles, by LVGL's own calls.
static lv_obj_t *plain_like(lv_obj_t *from, lv_obj_t *parent) {
    lv_obj_t *to = lv_obj_class_create_obj(from->class_p, parent);
    lv_obj_class_init_obj(to);
    lv_obj_remove_style_all(to);
    for (u32 i = from->style_cnt; i-- > 0;) { // the last one added takes precedence
        if (!from->styles[i].is_local && !from->styles[i].is_trans) {
            lv_obj_add_style(to, from->styles[i].style, from->styles[i].selector);
        }
    }
    lv_obj_set_pos(to, lv_obj_get_x(from), lv_obj_get_y(from));
    lv_obj_set_size(to, lv_obj_get_width(from), lv_obj_get_height(from));
    to->flags = from->flags;
    return to;
}

static void label_like(lv_obj_t *from, lv_obj_t *to) {
    lv_label_set_long_mode(to, lv_label_get_long_mode(from));
    lv_label_set_text(to, lv_label_get_text(from));
}

static void language_rows() {
    lv_obj_t *ours = shown(WORDS), *plain = lv_obj_create(nullptr);
    static std::vector<lv_obj_t *> labels;
    for (u32 i = 0; i < lv_obj_get_child_cnt(ours); i++) {
        lv_obj_t *from = lv_obj_get_child(ours, (s32)i), *to = plain_like(from, plain);
        lv_obj_t *caption = lv_obj_check_type(from, &lv_label_class) ? nullptr : lv_obj_get_child(from, 0);
        labels.push_back(caption ? plain_like(caption, to) : to);
        label_like(caption ? caption : from, labels.back());
    }
    static u32 turn;
    const auto change = [] { zof_lang_set(++turn % 2 ? "b" : "a"); };
    const auto texts = [] {
        turn++;
        for (u32 i = 0; i < labels.size(); i++) {
            char text[16];
            snprintf(text, sizeof(text), "%c%u", turn % 2 ? 'b' : 'a', i + 1);
            lv_label_set_text(labels[i], text);
        }
    };
    row("a change of language on a thousand labels and buttons", "lv_label_set_text on as many", change, ours, texts,
        plain);
    row(
        "the same, until it is drawn", "the same", [&] { change(), lv_refr_now(nullptr); }, ours,
        [&] { texts(), lv_refr_now(nullptr); }, plain);
}

// The items of the plain container have the positions that ours have now, and keep them.
static void wheel_row() {
    lv_obj_t *screen = shown(WHEEL), *plain = lv_obj_create(nullptr);
    lv_obj_t *ours = lv_obj_get_child(screen, 0), *strip = plain_like(ours, plain);
    lv_obj_set_scrollbar_mode(strip, LV_SCROLLBAR_MODE_OFF);
    for (u32 i = 0; i < lv_obj_get_child_cnt(ours); i++) {
        lv_obj_t *item = lv_obj_get_child(ours, (s32)i), *copy = plain_like(item, strip);
        for (lv_style_prop_t prop : {LV_STYLE_TRANSFORM_ZOOM, LV_STYLE_TRANSFORM_PIVOT_X, LV_STYLE_TRANSFORM_PIVOT_Y,
                                     LV_STYLE_TRANSLATE_Y, LV_STYLE_OPA}) {
            lv_style_value_t value;
            if (lv_obj_get_local_style_prop(item, prop, &value, LV_PART_MAIN) == LV_RES_OK) {
                lv_obj_set_local_style_prop(copy, prop, value, LV_PART_MAIN);
            }
        }
        lv_obj_set_pos(copy, (lv_coord_t)i * lv_obj_get_width(item), 0);
        label_like(lv_obj_get_child(item, 0), plain_like(lv_obj_get_child(item, 0), copy));
    }
    lv_obj_update_layout(plain);
    lv_obj_scroll_to_x(strip, lv_obj_get_scroll_x(ours), LV_ANIM_OFF);
    const auto step = [](lv_obj_t *obj) {
        static s32 turn;
        lv_obj_scroll_by(obj, ++turn % 2 ? 7 : -7, 0, LV_ANIM_OFF);
        lv_refr_now(nullptr);
    };
    row(
        "a wheel of 9 items moves by 7 pixels", "a container of items that keep their zoom", [=] { step(ours); },
        screen, [=] { step(strip); }, plain);
}

static void chart_fill(lv_obj_t *chart, lv_chart_series_t *series) {
    for (u32 i = 0; i < POINTS; i++) {
        lv_chart_set_next_value(chart, series, (lv_coord_t)(i * 37 % 100));
    }
}

static void chart_row() {
    lv_obj_t *screen = shown(CHART), *plain = lv_obj_create(nullptr);
    lv_obj_t *ours = lv_obj_get_child(screen, 0), *chart = plain_like(ours, plain);
    lv_chart_set_range(chart, LV_CHART_AXIS_PRIMARY_Y, 0, 100);
    lv_chart_set_point_count(chart, POINTS);
    lv_chart_set_div_line_count(chart, 5, 6);
    for (lv_style_prop_t prop : {LV_STYLE_LINE_COLOR, LV_STYLE_LINE_WIDTH, LV_STYLE_LINE_OPA}) {
        for (u32 part : {LV_PART_MAIN, LV_PART_ITEMS, LV_PART_INDICATOR}) {
            lv_style_value_t value;
            if (lv_obj_get_local_style_prop(ours, prop, &value, part) == LV_RES_OK) {
                lv_obj_set_local_style_prop(chart, prop, value, part);
            }
        }
    }
    chart_fill(ours, zof_chart_add_series(zof_ctrl_get_form_id(CHART, 1), 0x2F8FE8, 0));
    chart_fill(chart, lv_chart_add_series(chart, lv_color_hex(0x2F8FE8), LV_CHART_AXIS_PRIMARY_Y));
    const auto draw = [](lv_obj_t *obj) {
        lv_obj_invalidate(obj);
        lv_refr_now(nullptr);
    };
    row(
        "redraw of a chart of 200 points", "lv_chart with the same", [=] { draw(ours); }, screen, [=] { draw(chart); },
        plain);
}

void measure_controls() {
    const auto top = std::filesystem::temp_directory_path() / ("zof_controls_" + std::to_string(getpid()));
    project_up(top);
    language_rows();
    wheel_row();
    chart_row();
    std::filesystem::remove_all(top);
}
