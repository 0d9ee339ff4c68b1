// What controls wear in golden pictures: a light palette, and style records made of it. By night and in other languages
// the pictures of the gallery show them.
//
//     look{.state = LV_STATE_PRESSED, .bg = day.press}.json()
#ifndef LOOKS_H
#define LOOKS_H

#include "view_project.h"

constexpr struct {
    u32 view, card, line, text, mute, accent, accent_text, press;
} day = {0xECEFF4, 0xFFFFFF, 0xC8D0DC, 0x1E2A3A, 0x7A8699, 0x1F6FEB, 0xFFFFFF, 0xD8E6FD};

// One style record. Sides without a number of their own have `pad`.
struct look {
    u32 part = LV_PART_MAIN, state = LV_STATE_DEFAULT, sect = 0;
    u32 bg = 0, opa = 255, radius = 0;
    u32 text = 0, size = 16;
    u32 border = 0, border_color = 0, sides = 15;
    s32 pad = 0, top = -1;
    u32 shadow = 0;

    std::string json() const {
        const s32 high = top < 0 ? pad : top;
        return form(R"({"style_part": %u, "style_state": %u, "style_sect": %u, "body_t": {"main_color": %u, "opa": %u,
                    "radius": %u, "border": {"color": %u, "width": %u, "opa": 255, "part": %u},
                    "shadow": {"color": 0, "width": %u},
                    "padding": {"top": %d, "bottom": %d, "left": %d, "right": %d}},
                    "txt_t": {"color": %u, "opa": 255, "font_lib": "text.ttf", "font_size": %u}})",
                    part, state, sect, bg, opa, radius, border_color, border, sides, shadow, high, high, pad, pad, text,
                    size);
    }
};

inline std::string looks(const std::vector<look> &all) {
    std::string out;
    for (const look &one : all) {
        out += (out.empty() ? "" : ", ") + one.json();
    }
    return out;
}

// The fonts that the looks name, two languages, and the view's colour.
inline void looks_open(view_project_t &project) {
    std::filesystem::create_directories(project.path("font"));
    std::filesystem::copy_file(ZOF_PANEL_DIR "/res/font/bench-text.ttf", project.path("font/text.ttf"));
    std::filesystem::copy_file(ZOF_BUILD_DIR "/test-fonts/cn.ttf", project.path("font/cn.ttf"));
    project.more += R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"yes": "Yes", "no": "No", "ask": "Delete it?", "none": "", "cut": "\n",
                                               "off": "Off", "low": "Low", "high": "High power"})");
    project.write("config/languages/de.g", R"({"yes": "Ja", "no": "Nein", "ask": "Löschen?", "none": "x",
                                               "off": "Aus", "low": "Niedrig", "high": "Hohe Leistung"})");
    project.shown_keys = R"("bg_color": )" + std::to_string(day.view) + R"(, "bg_scale": 255)";
}

// One picture: what was done before it, and which control stands for it alone (0: the view as it is). A finger that
// `first` puts down is lifted afterwards.
struct picture_row {
    const char *name;
    u32 only;
    void (*first)() = nullptr;
};

// All pictures of a type, whose controls have the numbers from 1 on.
inline void looks_of(const std::vector<std::string> &controls, const std::vector<picture_row> &rows) {
    view_project_t project;
    looks_open(project);
    project.image("dot.png", 16, 16, 0xF2A33A);
    project.show(controls);
    u32 seen = 0;
    for (const picture_row &row : rows) {
        for (u32 i = 1; seen != row.only && i <= controls.size(); i++) {
            zof_ctrl_set_hidden(at(i), i != row.only);
        }
        screen_step(seen != row.only ? 50 : 0);
        seen = row.only;
        if (row.first) {
            row.first();
        }
        screen_step(400); // LVGL's theme changes colours in steps
        CHECK(screen_is_golden(row.name));
        zof_touch_t touch = {};
        if (zof_touch_get(&touch) == 0 && touch.state != ZOF_TOUCH_RELEASED) {
            screen_release(touch.x, touch.y);
        }
    }
}

#endif
