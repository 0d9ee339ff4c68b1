// A project of a few views in a temporary folder, and a program for it that records what is called.
//
//     view_project_t project;
//     project.view(1, {ctrl(ZOF_CTRL_LABEL, 5, R"("txt": "hello")")});
//     project.open(320, 240);
//     zof_view_set_dis_view(1);
#ifndef VIEW_PROJECT_H
#define VIEW_PROJECT_H

#include <string>
#include <vector>

#include "screen_fixture.h"
#include "temp_project.h"
#include "zof_test.h"

inline std::string calls;  // " init1 entry1 exit1"
inline std::string events; // " 5:1 5:8": control and event, without the stream of "still pressing"

inline void on_event(zof_ctrl_t *ctrl, zof_event_e event) {
    if (event != ZOF_EVENT_PRESSING) {
        events += " " + std::to_string(zof_ctrl_get_id_form_ctrl(ctrl)) + ":" + std::to_string(event);
    }
}

// What has been recorded since the last call.
inline std::string taken(std::string &text) {
    std::string out = text;
    text.clear();
    return out;
}

inline std::vector<zof_ctrl_fun_t> ctrl_funs; // for all views of the test

template <u32 ID> zof_view_fun_t view_row() {
    static const std::string name = std::to_string(ID);
    return {ID,
            [] {
                calls += " init" + name;
                zof_view_create(ID, ctrl_funs.data(), (u32)ctrl_funs.size());
            },
            [] { calls += " entry" + name; }, [] { calls += " exit" + name; }};
}

// One entry of a view's controls. Keys given in `own` (the type's) and `pub` (the common ones) replace the defaults.
inline std::string ctrl(u32 type, u32 id, const std::string &own = "", const std::string &pub = "",
                        const std::string &styles = "") {
    std::string common = pub.empty() ? "" : pub + ", ";
    for (const char *key : {R"("pt": {"x": 0, "y": 0})", R"("size": {"width": 100, "height": 40})", R"("t_mode": 1)",
                            R"("alpha": 255)"}) {
        const std::string name(key, strcspn(key, ":") + 1);
        common += contains(pub, name) ? "" : key + std::string(", ");
    }
    return form(R"({"type": %u, "theme": "youth", "property": {"pub_t": {%s"name": "c%u", "id": %u}%s, )"
                R"("styles": [%s]}})",
                type, common.c_str(), id, id, (own.empty() ? "" : ", " + own).c_str(), styles.c_str());
}

inline std::string box(s32 x, s32 y, s32 width, s32 height) {
    return form(R"("pt": {"x": %d, "y": %d}, "size": {"width": %d, "height": %d})", x, y, width, height);
}

// A style that only fills the main part in its normal state.
inline std::string filled(u32 color) {
    return form(R"({"style_part": 0, "style_state": 0, "style_sect": 0, "body_t": {"opa": 255, "main_color": %u}})",
                color);
}

struct view_project_t : temp_project_t {
    std::string pages;
    std::string more = R"(, "start_page": 0)"; // keys of the project file
    std::string shown_keys;                    // keys of the view that `show` writes

    view_project_t() = default;

    explicit view_project_t(const std::vector<std::string> &controls) {
        show(controls);
    }

    void view(u32 id, const std::vector<std::string> &controls, const std::string &keys = "") {
        std::string list;
        for (const std::string &control : controls) {
            list += (list.empty() ? "" : ",\n") + control;
        }
        write(form("config/view/v%u.g", id), form(R"({"view": {"v_id": %u%s%s}, "controls": [%s]})", id,
                                                  keys.empty() ? "" : ", ", keys.c_str(), list.c_str()));
        pages += form(R"(%s{"pageId": %u, "pageName": "v%u.g"})", pages.empty() ? "" : ", ", id, id);
    }

    // Writes a picture of one colour.
    void image(const std::string &name, s32 width, s32 height, u32 color) const {
        screen_png_write(path("image/" + name),
                         {width, height, std::vector<u32>((size_t)width * (size_t)height, color)});
    }

    // Opens window and project, but shows no view yet.
    zof_prj_t *open(s32 width, s32 height) {
        write("config/project/zofprj.g", form(R"({"p_name": "t", "width": %d, "height": %d%s, "views": [%s]})", width,
                                              height, more.c_str(), pages.c_str()));
        zof_prj_t *prj = temp_project_t::open();
        REQUIRE(prj);
        screen_open(width, height);
        static const zof_view_fun_t rows[] = {view_row<1>(), view_row<2>(), view_row<3>(),
                                              view_row<4>(), view_row<5>(), view_row<6>()};
        zof_prj_create(rows, 6);
        return prj;
    }

    // Opens with view 1 of these controls and shows it. Returns what was printed.
    std::string show(const std::vector<std::string> &controls) {
        view(1, controls, shown_keys);
        return printed([&] {
            open(320, 240);
            zof_view_set_dis_view(1);
        });
    }
};

// A control that must exist.
inline para_t *at(u32 id, u32 view = 1) {
    para_t *record = zof_ctrl_get_form_id(view, id);
    REQUIRE(record);
    return record;
}

#endif
