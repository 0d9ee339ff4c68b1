// The templates: what stands where. All lengths come from the size of the panel, so each is written once for all sizes.
#include <algorithm>

#include "new.h"

// What is the same in all templates --------------------------------------------------------------------------------

// The panel's background is a control, because the background of a view does not follow a change of the theme.
static int ground(new_page_t &page, new_box_t &box) {
    const int root = new_control(page, 0, "container", "page", "page", box, "");
    box = new_inside(box, page.scale->gap);
    return root;
}

// Cuts off the title at the top, with the buttons for language and theme if `buttons`.
static void header(new_page_t &page, int root, new_box_t &box, const char *title, bool buttons) {
    const int gap = page.scale->gap, touch = page.scale->touch;
    new_box_t bar = new_top(box, touch, gap);
    std::string languages;
    for (const std::string &language : page.languages) {
        languages += " " + language;
    }
    if (buttons) {
        new_button(page, root, "button", "theme", new_right(bar, touch, gap), "\\uF043",
                   page.program ? "" : "theme night day");
    }
    if (buttons && page.languages.size() > 1) {
        new_button(page, root, "button", "language", new_right(bar, touch, gap), "#next_language",
                   page.program ? "" : "lang" + languages);
    }
    new_label(page, root, "title", "title", bar, title, "left middle");
}

// A container whose content may be higher than itself. Returns its id, and the box that the content is laid out in.
static int scrolled(new_page_t &page, int root, new_box_t &box) {
    const int id =
        new_control(page, root, "container", "clear", "body", box, "",
                    "\"t_mode\": \"touch\",\n                      \"scrollbar_t\": {\"mode_e\": \"scrolling\", "
                    "\"dir_e\": \"vertical\", \"momentum\": true, \"elastic\": true}");
    box = {0, 0, box.w, box.h};
    return id;
}

static int card(new_page_t &page, int parent, const char *name, new_box_t &box) {
    const int id = new_control(page, parent, "container", "card", name, box, "");
    box = new_inside(box, page.scale->gap);
    return id;
}

// Blank
// ----------------------------------------------------------------------------------------------------------------

static void blank_draw(new_page_t &page, new_box_t box) {
    const int gap = page.scale->gap, width = box.w, root = ground(page, box);
    header(page, root, box, "#title_blank", true);
    new_box_t bar = new_bottom(box, page.scale->touch, gap);
    const int side = std::max(0, (bar.w - std::max(160, width / 3)) / 2);
    const int in = card(page, root, "clicks", box);
    new_box_t lines = {
        box.x, box.y + (box.h - new_line(page, page.scale->value) - new_line(page, page.scale->small) - gap / 2) / 2,
        box.w, box.h};
    new_label(page, in, "value", "count", new_top(lines, new_line(page, page.scale->value), gap / 2), "0",
              "center middle");
    new_label(page, in, "small", "hint", new_top(lines, new_line(page, page.scale->small), 0), "#hint",
              "center middle");
    new_button(page, root, "primary", "more", {bar.x + side, bar.y, bar.w - 2 * side, bar.h}, "#more");
}

// Dashboard
// ------------------------------------------------------------------------------------------------------------

static void gauge_draw(new_page_t &page, int parent, new_box_t box) {
    const int line = new_line(page, page.scale->small);
    const int value = new_line(page, page.scale->value);
    const int in = card(page, parent, "power_card", box);
    const int side = std::min(box.w, (box.h - line) * 10 / 9), width = std::max(8, side / 12);
    const int under = side * 9 / 10; // the dial is open below; its name stands there
    const new_box_t dial = {box.x + (box.w - side) / 2, box.y + (box.h - under - line) / 2, side, side};
    const std::string look = ", \"width\": " + std::to_string(width) + ", \"rounded\": 1, \"opa\": ";
    new_control(page, in, "arc", "", "power", dial,
                "\"angle_t\": {\"start_angle\": 135, \"end_angle\": 45}, \"range_t\": {\"minValue\": 0, \"maxValue\": "
                "100},\n            \"arc_value\": 64, \"mode_e\": \"start\", \"know_dis_en\": false,\n            "
                "\"arc_t_main\": {\"color\": \"#8A97A4\"" +
                    look + "90}, \"arc_t_inc\": {\"color\": \"#14919B\"" + look +
                    "255},\n            \"styles\": [{\"body_t\": {\"opa\": 0}}]");
    new_label(page, in, "value", "power_text", {dial.x + width, dial.y + (side - value) / 2, side - 2 * width, value},
              "64 %", "center middle");
    new_label(page, in, "small", "power_name", {box.x, dial.y + under, box.w, line}, "#power", "center middle");
}

static const struct {
    const char *name, *label, *text;
} values[] = {
    {"temperature", "#temperature", "21.5 °C"},
    {"pressure", "#pressure", "1.4 bar"},
    {"flow", "#flow", "6.8 l/min"},
};

// A name and a value: one above the other, with large letters if there is the height, or both in a line.
static void value_draw(new_page_t &page, int parent, new_box_t box, int i) {
    enum { VALUE_WIDTH = 66, LINE_WIDTH = 180 };
    const new_scale_t *scale = page.scale;
    const std::string name = values[i].name;
    const int small = new_line(page, scale->small);
    const bool large = box.h >= small + new_line(page, scale->value) + scale->gap;
    const int value = new_line(page, large ? scale->value : scale->text);
    const int in = new_control(page, parent, "container", "card", (name + "_card").c_str(), box, "");
    new_box_t lines = {scale->gap, 0, box.w - 2 * scale->gap, box.h}, top = {};
    const bool two = large || box.w < LINE_WIDTH;
    if (two) {
        lines = {lines.x, (box.h - small - value) / 2, lines.w, small + value};
        top = new_top(lines, small, 0);
    } else {
        top = new_left(lines, lines.w - VALUE_WIDTH, 0);
    }
    new_label(page, in, "small", (name + "_name").c_str(), top, values[i].label, "left middle");
    new_label(page, in, large ? "value" : "text", values[i].name, lines, values[i].text,
              two ? "left middle" : "right middle");
}

static void chart_draw(new_page_t &page, int parent, new_box_t box) {
    const int in = card(page, parent, "chart_card", box), line = new_line(page, page.scale->small);
    new_label(page, in, "small", "chart_name", new_top(box, line, page.scale->gap / 2), "#trend", "left middle");
    new_control(
        page, in, "chart", "chart", "chart", box,
        "\"dis_type_e\": \"lines\", \"dis_mode_e\": \"shift\", \"y_min\": 0, \"y_max\": 100, \"point_cnt\": 60,\n"
        "            \"divline_hdiv\": 5, \"divline_vdiv\": 0,\n            \"chart_line_style\": {\"color\": "
        "\"#8A97A4\", \"width\": 1, \"opa\": 70}");
}

static void messages_draw(new_page_t &page, int parent, new_box_t box) {
    const int gap = page.scale->gap;
    const int in = card(page, parent, "messages_card", box), line = new_line(page, page.scale->small);
    new_label(page, in, "small", "messages_name", new_top(box, line, gap / 2), "#messages", "left middle");
    new_control(page, in, "list", "list", "messages", box,
                "\"btns_t\": [{\"txt\": \"#message_ready\"}, {\"txt\": \"#message_filter\"}, {\"txt\": "
                "\"#message_update\"},\n                       {\"txt\": \"#message_door\"}]",
                "\"t_mode\": \"touch\",\n                      \"scrollbar_t\": {\"mode_e\": \"needed\", \"dir_e\": "
                "\"vertical\", \"momentum\": true, \"elastic\": true}");
}

// All on one page, in two columns.
static void dashboard_wide(new_page_t &page, int body, new_box_t box) {
    const int gap = page.scale->gap;
    new_box_t left = new_left(box, box.w * 36 / 100, gap);
    gauge_draw(page, body, new_top(left, left.h * 54 / 100, gap));
    messages_draw(page, body, left);
    const new_box_t top =
        new_top(box, new_line(page, page.scale->value) + new_line(page, page.scale->small) + 2 * gap, gap);
    for (int i = 0; i < 3; i++) {
        value_draw(page, body, new_column(top, i, 3, gap), i);
    }
    chart_draw(page, body, box);
}

// Dial and values on the first screen, with the chart if there is space beside or below; the rest is scrolled to.
static void dashboard_flat(new_page_t &page, int body, new_box_t box) {
    const int gap = page.scale->gap;
    const bool two_rows = box.h >= 240, three = box.w >= 440 && !two_rows;
    const int height = two_rows ? (box.h - gap) / 2 : std::max(box.h, 112);
    new_box_t first = new_top(box, height, gap);
    gauge_draw(page, body, new_left(first, first.w * (three ? 30 : 36) / 100, gap));
    const new_box_t column = three ? new_left(first, first.w * 44 / 100, gap) : first;
    for (int i = 0; i < 3; i++) {
        value_draw(page, body, new_row(column, i, 3, gap / 2), i);
    }
    chart_draw(page, body, three ? first : new_top(box, height, gap));
    messages_draw(page, body, new_top(box, std::max(height, 3 * page.scale->touch + gap), 0));
}

// One below the other; what is left of the height is shared, or the rest is scrolled to.
static void dashboard_tall(new_page_t &page, int body, new_box_t box) {
    const int gap = page.scale->gap, small = new_line(page, page.scale->small);
    const bool columns = box.w >= 400;
    const int values_height = columns ? small + new_line(page, page.scale->value) + 2 * gap : 3 * 40 + 2 * (gap / 2);
    const int list = 2 * page.scale->touch + small + 3 * gap, dial = 128, chart = 128;
    const int more = std::max(0, box.h - values_height - list - dial - chart - 3 * gap) / 3;
    gauge_draw(page, body, new_top(box, dial + more, gap));
    const new_box_t part = new_top(box, values_height, gap);
    for (int i = 0; i < 3; i++) {
        value_draw(page, body, columns ? new_column(part, i, 3, gap) : new_row(part, i, 3, gap / 2), i);
    }
    chart_draw(page, body, new_top(box, chart + more, gap));
    messages_draw(page, body, new_top(box, list + more, 0));
}

static void dashboard_draw(new_page_t &page, new_box_t box) {
    const int root = ground(page, box), gap = page.scale->gap;
    header(page, root, box, "#title_dashboard", true);
    const new_box_t bar = new_bottom(box, page.scale->touch, gap);
    const int body = scrolled(page, root, box);
    const bool wide = box.w >= 560 && box.h >= 280;
    const bool tall = box.w < 280 || box.h > box.w;
    (wide ? dashboard_wide : tall ? dashboard_tall : dashboard_flat)(page, body, box);
    new_button(page, root, "primary", "start", new_column(bar, 0, 3, gap), "#start");
    new_button(page, root, "button", "stop", new_column(bar, 1, 3, gap), "#stop");
    new_button(page, root, "button", "clear", new_column(bar, 2, 3, gap), "#clear");
}

// Settings
// -------------------------------------------------------------------------------------------------------------

enum kind_t { SWITCH, SLIDER, LANGUAGES, THEMES, ABOUT };

static const struct setting_t {
    const char *name, *label;
    kind_t kind;
} settings[] = {
    {"network", "#network", SWITCH},      {"sound", "#sound", SWITCH},
    {"volume", "#volume", SLIDER},        {"brightness", "#brightness", SLIDER},
    {"language", "#language", LANGUAGES}, {"theme", "#theme", THEMES},
    {"about", "#about", ABOUT},
};

// Touches count this far outside of a control of this height, so that a finger hits it.
static std::string touch_around(const new_page_t &page, int height) {
    return "\"click_area\": " + std::to_string((page.scale->touch - height + 1) / 2) + ", \"t_mode\": \"touch\"";
}

static void choice_draw(new_page_t &page, int in, const char *name, new_box_t box, const std::string &options) {
    new_control(page, in, "drop list", "choice", name, box, "\"options\": \"" + options + "\", \"dir_t\": \"down\"",
                "\"t_mode\": \"touch\"");
}

static void setting_draw(new_page_t &page, int body, new_box_t box, const setting_t &row) {
    enum { SWITCH_WIDTH = 56, SWITCH_HEIGHT = 30, SLIDER_HEIGHT = 8 };
    const int gap = page.scale->gap,
              in = new_control(page, body, "container", "card", (row.name + std::string("_card")).c_str(), box, "");
    new_box_t inner = {gap, (box.h - page.scale->touch) / 2, box.w - 2 * gap, page.scale->touch};
    const int width = row.kind == SWITCH ? (int)SWITCH_WIDTH : inner.w * 46 / 100;
    const new_box_t at = new_right(inner, width, gap);
    const int middle = at.y + at.h / 2;
    std::string options;
    switch (row.kind) {
    case SWITCH:
        new_control(page, in, "switch", "switch", row.name,
                    {at.x, middle - SWITCH_HEIGHT / 2, SWITCH_WIDTH, SWITCH_HEIGHT}, "\"anim_time\": 120",
                    touch_around(page, SWITCH_HEIGHT));
        break;
    case SLIDER:
        new_control(page, in, "slider", "slider", row.name,
                    {at.x + 12, middle - SLIDER_HEIGHT / 2, at.w - 24, SLIDER_HEIGHT},
                    "\"minValue\": 0, \"maxValue\": 100", touch_around(page, SLIDER_HEIGHT));
        break;
    case LANGUAGES:
        for (const std::string &language : page.languages) {
            options += (options.empty() ? "" : "\\n") + new_language_name(language);
        }
        choice_draw(page, in, row.name, at, options);
        break;
    case THEMES:
        choice_draw(page, in, row.name, at, "#day\\n#night");
        break;
    case ABOUT:
        new_label(page, in, "small", row.name, at, (page.name + " 1.0.0").c_str(), "right middle");
        break;
    }
    new_label(page, in, "text", (row.name + std::string("_name")).c_str(), inner, row.label, "left middle");
}

static void settings_draw(new_page_t &page, new_box_t box) {
    const int root = ground(page, box), gap = page.scale->gap;
    header(page, root, box, "#title_settings", false);
    box.h += gap; // what is scrolled goes on to the edge
    const int body = scrolled(page, root, box), columns = box.w >= 600 ? 2 : 1;
    const int height = std::clamp(box.h * columns / 8 - gap, page.scale->touch + gap, page.scale->touch + 3 * gap);
    int cell = 0;
    for (const setting_t &row : settings) {
        if (row.kind != LANGUAGES || page.languages.size() > 1) {
            const new_box_t line = {box.x, box.y + cell / columns * (height + gap), box.w, height};
            setting_draw(page, body, row.kind == ABOUT ? line : new_column(line, cell % columns, columns, gap), row);
            cell++;
        }
    }
}

const new_template_t new_templates[3] = {
    {"blank", blank_draw, {"buttons.c", "blank.c"}},
    {"dashboard", dashboard_draw, {"buttons.c", "dashboard.c"}},
    {"settings", settings_draw, {"settings.c"}},
};
