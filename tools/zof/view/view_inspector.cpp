#include "view_inspector.h"

#include <algorithm>
#include <cctype>
#include <vector>

enum { LINE_HEIGHT = 20, BAND_SIDE = 8 };
enum : u32 { OUTLINE = 0xFF4FA3, PARENT = 0x4FC3FF, PADDING = 0x7CE38B, BAND_INK = 0xFFFFFF, BAND_PAPER = 0x20242B };

static const cJSON *picked(const view_inspector_t *inspector) {
    return inspector->hits ? cJSON_GetArrayItem(inspector->hits, (int)inspector->pick) : nullptr;
}

static std::string text_of(const cJSON *object, const char *name) {
    const char *text = cJSON_GetStringValue(cJSON_GetObjectItem(object, name));
    return text ? text : "";
}

static s32 number_of(const cJSON *object, const char *name) {
    const cJSON *value = cJSON_GetObjectItem(object, name);
    return cJSON_IsNumber(value) ? value->valueint : 0;
}

static s32 item_of(const cJSON *object, const char *array, s32 index) {
    const cJSON *value = cJSON_GetArrayItem(cJSON_GetObjectItem(object, array), index);
    return cJSON_IsNumber(value) ? value->valueint : 0;
}

static view_box_t box_of(const cJSON *control) {
    return {item_of(control, "box", 0), item_of(control, "box", 1), item_of(control, "box", 2),
            item_of(control, "box", 3)};
}

void view_inspector_take(view_inspector_t *inspector, const cJSON *reply) {
    const std::string before = text_of(picked(inspector), "path");
    cJSON_Delete(inspector->hits);
    inspector->hits = cJSON_Duplicate(cJSON_GetObjectItem(reply, "controls"), 1);
    inspector->hit_id = 0;
    inspector->pick = 0;
    for (s32 i = 0; i < cJSON_GetArraySize(inspector->hits); i++) {
        if (text_of(cJSON_GetArrayItem(inspector->hits, i), "path") == before) {
            inspector->pick = (u32)i;
        }
    }
}

void view_inspector_next(view_inspector_t *inspector) {
    const u32 count = (u32)cJSON_GetArraySize(inspector->hits);
    inspector->pick = count ? (inspector->pick + 1) % count : 0;
}

// Returns a place as "home.g:40". Files of looks have the same name in all themes, so they are shown with their theme:
// "night/looks.g:3".
static std::string place_text(const cJSON *place) {
    const std::string file = text_of(place, "file");
    size_t name = file.find_last_of('/') + 1;
    const size_t theme = file.rfind("/theme/");
    if (text_of(place, "look") != "" && theme != std::string::npos) {
        name = theme + 7;
    }
    return file.substr(name) + ":" + std::to_string(number_of(place, "line"));
}

// Returns the source of a style: "styles", "theme" or "look primary".
static std::string source_of(const cJSON *style, const std::string &view) {
    const std::string look = text_of(style, "look");
    return !look.empty() ? "look " + look : text_of(style, "file") == view ? "styles" : "theme";
}

// Returns "  look primary looks.g:3,7  styles home.g:40". Styles of one source and file share a list of lines.
static std::string styles_text(const cJSON *control) {
    const std::string view = text_of(cJSON_GetObjectItem(control, "place"), "file");
    std::string all, source, file;
    const cJSON *style = nullptr;
    cJSON_ArrayForEach(style, cJSON_GetObjectItem(control, "styles")) {
        if (source_of(style, view) == source && text_of(style, "file") == file) {
            all += "," + std::to_string(number_of(style, "line"));
            continue;
        }
        source = source_of(style, view);
        file = text_of(style, "file");
        all += "  " + source + " " + place_text(style);
    }
    return all;
}

std::string view_inspector_text(const view_inspector_t *inspector) {
    const cJSON *control = picked(inspector);
    if (!control) {
        return "no control";
    }
    const view_box_t box = box_of(control);
    const std::string state = text_of(control, "state");
    return text_of(control, "path") + "  " + text_of(control, "type") + " " + std::to_string(number_of(control, "id")) +
           "  " + std::to_string(box.x) + "," + std::to_string(box.y) + " " + std::to_string(box.w) + " x " +
           std::to_string(box.h) + (state == "default" ? "" : "  " + state) + styles_text(control);
}

std::string view_inspector_python(const view_inspector_t *inspector) {
    const cJSON *control = picked(inspector);
    std::string row = text_of(control, "row");
    if (row.empty()) {
        return "";
    }
    const bool text = row.size() > 5 && row.compare(row.size() - 5, 5, ".text") == 0;
    for (char &c : row) {
        c = c == '.' ? '_' : (char)toupper((unsigned char)c);
    }
    return "panel.write(rows." + row + ", " + (text ? "\"\"" : "0") +
           ", view=" + std::to_string(number_of(control, "view")) +
           ", control=" + std::to_string(number_of(control, "id")) + ")";
}

std::string view_inspector_place(const view_inspector_t *inspector, s32 *line) {
    const cJSON *place = cJSON_GetObjectItem(picked(inspector), "place");
    *line = number_of(place, "line");
    return text_of(place, "file");
}

static void padding_draw(const cJSON *control, view_image_t *image) {
    const view_box_t box = box_of(control);
    const s32 top = item_of(control, "padding", 0);
    const s32 bottom = item_of(control, "padding", 1);
    const s32 left = item_of(control, "padding", 2);
    const s32 right = item_of(control, "padding", 3);
    view_fill(image, {box.x, box.y, box.w, top}, PADDING, 90);
    view_fill(image, {box.x, box.y + box.h - bottom, box.w, bottom}, PADDING, 90);
    view_fill(image, {box.x, box.y, left, box.h}, PADDING, 90);
    view_fill(image, {box.x + box.w - right, box.y, right, box.h}, PADDING, 90);
}

void view_inspector_draw(const view_inspector_t *inspector, view_image_t *image) {
    const cJSON *control = picked(inspector);
    const cJSON *other = nullptr;
    const std::string parent = text_of(control, "parent");
    cJSON_ArrayForEach(other, inspector->hits) {
        if (!parent.empty() && text_of(other, "path") == parent) {
            view_frame(image, box_of(other), PARENT, 1);
        }
    }
    if (control) {
        padding_draw(control, image);
        view_frame(image, box_of(control), OUTLINE, 2);
    }
    const bool low = inspector->y > image->height / 2;
    view_band_draw(image, view_inspector_text(inspector), BAND_PAPER, low);
}

// Breaks a text at spaces. A word that is longer than a line is clipped at the edge.
static std::vector<std::string> wrapped(const std::string &text, s32 width) {
    std::vector<std::string> lines = {""};
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find(' ', text.find_first_not_of(' ', at)), text.size());
        const std::string word = text.substr(at, end - at);
        if (!lines.back().empty() && view_text_width(lines.back() + word) > width) {
            lines.push_back(word.substr(std::min(word.find_first_not_of(' '), word.size())));
        } else {
            lines.back() += word;
        }
        at = end;
    }
    return lines;
}

void view_band_draw(view_image_t *image, const std::string &text, u32 color, bool top) {
    const std::vector<std::string> lines = wrapped(text, image->width - 2 * BAND_SIDE);
    const s32 height = (s32)lines.size() * LINE_HEIGHT + BAND_SIDE;
    s32 y = top ? 0 : image->height - height;
    view_fill(image, {0, y, image->width, height}, color, 225);
    y += BAND_SIDE / 2;
    for (const std::string &line : lines) {
        view_text(image, BAND_SIDE, y, line, BAND_INK);
        y += LINE_HEIGHT;
    }
}
