// Styles of controls in golden pictures. The gallery's pictures show the dark theme and other languages.
#ifndef LOOKS_H
#define LOOKS_H

#include "view_project.h"

enum : u32 { CARD = 0xFFFFFF, LINE = 0xC8D0DC, TEXT = 0x1E2A3A, MUTE = 0x7A8699, ACCENT = 0x1F6FEB, PRESS = 0xD8E6FD };

inline std::string look(u32 part, u32 state, u32 sect, u32 bg, u32 text, u32 border, u32 pad) {
    return form(R"({"style_part": %u, "style_state": %u, "style_sect": %u, "body_t": {"main_color": %u, "opa": 255,
                "radius": 6, "border": {"color": %u, "width": 1, "opa": 255, "part": 15},
                "padding": {"top": %u, "bottom": %u, "left": %u, "right": %u}},
                "txt_t": {"color": %u, "opa": 255, "font_lib": "text.ttf", "font_size": 16}})",
                part, state, sect, bg, border, pad, pad, pad, pad, text);
}

inline const std::string looks = look(LV_PART_MAIN, 0, 0, CARD, TEXT, LINE, 8) + ", " +
                                 look(LV_PART_MAIN, LV_STATE_FOCUSED, 0, CARD, TEXT, ACCENT, 8) + ", " +
                                 look(LV_PART_TEXTAREA_PLACEHOLDER, 0, 0, CARD, MUTE, LINE, 0) + ", " +
                                 look(LV_PART_SELECTED, 0, 0, ACCENT, CARD, LINE, 0) + ", " + // for rollers
                                 look(LV_PART_TICKS, 0, 0, CARD, MUTE, LINE, 4) + ", " +
                                 look(LV_PART_MAIN, 0, 1, CARD, TEXT, LINE, 8) + ", " + // for the objects of lists
                                 look(LV_PART_MAIN, LV_STATE_PRESSED, 1, PRESS, TEXT, PRESS, 8) + ", " +
                                 look(LV_PART_SELECTED, LV_STATE_CHECKED, 1, ACCENT, CARD, LINE, 8) + ", " +
                                 look(LV_PART_SELECTED, LV_STATE_PRESSED, 1, PRESS, TEXT, LINE, 8);

// Installs the fonts that the looks name, two languages, and the view's colour.
inline void looks_open(view_project_t &project) {
    std::filesystem::create_directories(project.path("font"));
    std::filesystem::copy_file(ZOF_PANEL_DIR "/res/font/bench-text.ttf", project.path("font/text.ttf"));
    std::filesystem::copy_file(ZOF_BUILD_DIR "/test-fonts/cn.ttf", project.path("font/cn.ttf"));
    project.more += R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"yes": "Yes", "no": "No", "ask": "Delete it?", "none": "", "cut": "\n",
                                               "off": "Off", "low": "Low", "high": "High power"})");
    project.write("config/languages/de.g", R"({"yes": "Ja", "no": "Nein", "ask": "Löschen?", "none": "x",
                                               "off": "Aus", "low": "Niedrig", "high": "Hohe Leistung"})");
    project.shown_keys = R"("bg_color": 15527924, "bg_scale": 255)";
}

// One picture: what is done before it, and which control it shows (0: the whole view). A finger that `first` puts down
// is lifted afterwards.
struct picture_row {
    const char *name;
    u32 only;
    void (*first)() = nullptr;
};

// Takes all pictures of a type, whose controls are numbered from 1.
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
