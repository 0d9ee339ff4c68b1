// Styles and themes: conversion of records into LVGL styles, and ownership.
#include "view_project.h"

TEST_CASE("the first theme named for a type is used, and a broken one is reported once") {
    temp_project_t project;
    REQUIRE(project.open());
    CHECK(zof_theme_get_ctrl("youth", ZOF_CTRL_BTN) == nullptr); // missing: tried again at the next call
    project.write("config/theme/youth/button.g", R"({"mode": 1, "styles": [{"style_state": 32}]})");
    project.write("config/theme/night/button.g", R"({"mode": 0, "styles": []})");
    zof_pub_attr_t *theme = zof_theme_get_ctrl("youth", ZOF_CTRL_BTN);
    REQUIRE(theme);
    CHECK(theme->style_num == 1);
    CHECK(zof_theme_get_ctrl("night", ZOF_CTRL_BTN) == theme);
    project.write("config/theme/youth/label.g", "{\"styles\": [\n oops");
    CHECK(contains(printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); }), "label.g:2:"));
    CHECK(printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); }) == ""); // once, not once per label
}

static u32 text_color(lv_obj_t *obj) {
    return lv_obj_get_style_text_color(obj, LV_PART_MAIN).full;
}

TEST_CASE("styles of a section are added to the given object, and removed from every object that has them") {
    screen_open(100, 100);
    zof_style_attr_t main = {};
    main.txt_t.color = 0x010101;
    zof_style_attr_t second = {};
    second.style_sect = 1;
    second.txt_t.color = 0x020202;
    zof_style_attr_t *list[] = {&main, nullptr, &second};
    lv_obj_t *a = lv_label_create(lv_scr_act());
    lv_obj_t *b = lv_label_create(lv_layer_top());
    u32 before = text_color(b);
    zof_ctrl_style_add(a, list, 3, 0);
    CHECK(second.lv_style == nullptr); // no object of this control has a second section
    zof_ctrl_style_add(b, list, 3, 1);
    CHECK(text_color(a) == 0xFF010101);
    CHECK(text_color(b) == 0xFF020202);
    CHECK(zof_style_del(a, &main) + zof_style_del(a, &second) == 0);
    CHECK(text_color(b) == before);
}

TEST_CASE("another theme changes only what controls got from their theme") {
    view_project_t project;
    project.write("config/theme/night/slider.g", R"({"styles": [{"body_t": {"main_color": 8}}]})");
    project.write("config/theme/youth/slider.g", R"({"styles": [{"body_t": {"main_color": 9}}]})");
    project.write("config/theme/youth/container.g",
                  R"({"styles": [{"body_t": {"main_color": 1, "radius": 3}, "txt_t": {"font_lib": "no.ttf"}},
                                 {"style_state": 32, "body_t": {"main_color": 5}}]})");
    project.write("config/theme/night/container.g",
                  R"({"styles": [{"style_state": 1, "body_t": {"main_color": 4}},
                                 {"body_t": {"main_color": 2, "radius": 4}, "txt_t": {"font_lib": "so.ttf"}}]})");
    project.view(2, {ctrl(ZOF_CTRL_SLIDER, 6)});
    printed([&] {
        project.show({ctrl(ZOF_CTRL_OBJ, 5,
                           R"("styles": [{"body_t": {"radius": 7}}, {"style_state": 2, "body_t": {"opa": 9}}])")});
        const auto own = [record = at(5)](u32 i) { return record->attr->style_list[i]; };
        CHECK(zof_theme_set("none") == -1);
        for (const char *name : {"night", "youth", "night", "night"}) {
            const bool night = name[0] == 'n';
            REQUIRE(zof_theme_set(name) == 0);
            CHECK(own(0)->body_t.main_color == (night ? 2 : 1));
            CHECK(own(0)->body_t.radius == 7);
            CHECK(own(0)->txt_t.font_lib == std::string(night ? "so.ttf" : "no.ttf"));
            CHECK(own(1)->body_t.main_color == 5); // only one theme has a pressed style
            CHECK(own(2)->body_t.opa == 9);
        }
        const u32 used = zof_mem_count();
        zof_theme_set("night");
        CHECK(zof_mem_count() == used);
        // A type first used afterwards gets the new theme too, whatever theme its file names.
        REQUIRE(zof_view_set_dis_view(2) == 0);
        const zof_style_attr_t *late = at(6, 2)->attr->style_list[0];
        CHECK(late->body_t.main_color == 8);
        REQUIRE(zof_theme_set("youth") == 0);
        CHECK(late->body_t.main_color == 9);
    });
}

TEST_CASE("without memory the theme stays as it is, and nothing leaks") {
    temp_project_t project;
    REQUIRE(project.open());
    for (const char *name : {"youth", "night"}) {
        project.write(std::string("config/theme/") + name + "/container.g",
                      R"({"styles": [{"body_t": {"main_color": 1}}, {"style_state": 32, "body_t": {"opa": 5}}]})");
    }
    printed([&] {
        REQUIRE(zof_theme_get_ctrl("youth", ZOF_CTRL_OBJ));
        REQUIRE(zof_theme_set("night") + zof_theme_set("youth") == 0); // from now on it is known which have looks
        const u32 used = zof_mem_count();
        bool whole = false;
        for (u32 fail_at = 1; !whole; fail_at++) {
            CAPTURE(fail_at);
            zof_mem_fail_at(fail_at);
            const s32 result = zof_theme_set("night");
            whole = zof_mem_fail_at(0) < fail_at;
            CHECK((!whole || result == 0));
            CHECK(zof_theme_set("youth") == 0);
            CHECK(zof_mem_count() == used);
        }
    });
}
