// The page of a template: boxes, and the controls in them as entries of a view file.
#include "new.h"

#include <algorithm>

static const new_scale_t scales[] = {
    {560, 16, 56, 16, 18, 24, 36},
    {300, 12, 48, 14, 16, 20, 28},
    {0, 8, 48, 13, 14, 16, 20},
};

const new_scale_t *new_scale(int width, int height) {
    const new_scale_t *scale = scales;
    while (scale->least > std::min(width, height)) {
        scale++;
    }
    return scale;
}

int new_line(const new_page_t &page, int size) {
    enum { BUILT_IN_LINE = 16 };
    return page.font ? size * 5 / 4 : (int)BUILT_IN_LINE;
}

new_box_t new_top(new_box_t &box, int height, int gap) {
    const new_box_t part = {box.x, box.y, box.w, height};
    box = {box.x, box.y + height + gap, box.w, box.h - height - gap};
    return part;
}

new_box_t new_bottom(new_box_t &box, int height, int gap) {
    const new_box_t part = {box.x, box.y + box.h - height, box.w, height};
    box.h -= height + gap;
    return part;
}

new_box_t new_left(new_box_t &box, int width, int gap) {
    const new_box_t part = {box.x, box.y, width, box.h};
    box = {box.x + width + gap, box.y, box.w - width - gap, box.h};
    return part;
}

new_box_t new_right(new_box_t &box, int width, int gap) {
    const new_box_t part = {box.x + box.w - width, box.y, width, box.h};
    box.w -= width + gap;
    return part;
}

// The edges are computed, not the widths, so that the last column ends where the box does.
new_box_t new_column(new_box_t box, int column, int columns, int gap) {
    const int from = (box.w + gap) * column / columns, to = (box.w + gap) * (column + 1) / columns - gap;
    return {box.x + from, box.y, to - from, box.h};
}

new_box_t new_row(new_box_t box, int row, int rows, int gap) {
    const int from = (box.h + gap) * row / rows, to = (box.h + gap) * (row + 1) / rows - gap;
    return {box.x, box.y + from, box.w, to - from};
}

new_box_t new_inside(new_box_t box, int space) {
    return {space, space, box.w - 2 * space, box.h - 2 * space};
}

static std::string pair(const char *name, const char *first, int a, const char *second, int b) {
    return std::string("\"") + name + "\": {\"" + first + "\": " + std::to_string(a) + ", \"" + second +
           "\": " + std::to_string(b) + "}";
}

int new_control(new_page_t &page, int parent, const char *type, const char *look, const char *name, new_box_t box,
                const std::string &keys, const std::string &pub, const std::string &on) {
    const std::string id = std::to_string(++page.count);
    std::string called = *name ? name : type + ("_" + id);
    std::string &out = page.controls;
    out += out.empty() ? "" : ",\n";
    out += std::string("        {\"type\": \"") + type + "\", \"theme\": \"day\", ";
    out += *look ? std::string("\"look\": \"") + look + "\", " : "";
    out += on.empty() ? "" : "\"on\": {" + on + "}, ";
    out += "\"property\": {\n            \"pub_t\": {\"name\": \"" + called + "\", \"id\": " + id + ", ";
    out += parent ? "\"parent_id\": " + std::to_string(parent) + ", " : "";
    out += pair("pt", "x", box.x, "y", box.y) + ",\n                      ";
    out += pair("size", "width", box.w, "height", box.h) + ", " + (pub.empty() ? "" : pub + ", ") + "\"alpha\": 255}";
    out += (keys.empty() ? "" : ",\n            " + keys) + "\n        }}";
    return page.count;
}

int new_label(new_page_t &page, int parent, const char *look, const char *name, new_box_t box, const char *text,
              const char *align) {
    return new_control(page, parent, "label", look, name, box,
                       std::string("\"auto_hight\": 1, \"align_e\": \"") + align + "\", \"txt\": \"" + text + "\"");
}

int new_button(new_page_t &page, int parent, const char *look, const char *name, new_box_t box, const char *text,
               const std::string &actions) {
    return new_control(page, parent, "button", look, name, box, std::string("\"txt\": \"") + text + "\"",
                       "\"t_mode\": \"touch\"", actions.empty() ? "" : "\"clicked\": [\"" + actions + "\"]");
}
