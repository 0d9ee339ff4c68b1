// Styles and themes: from records to LVGL styles, and who owns what on the way.
#include "view_project.h"

static lv_style_value_t prop(lv_style_t *style, lv_style_prop_t id) {
    lv_style_value_t value = {.num = -77};
    lv_style_get_prop(style, id, &value);
    return value;
}

TEST_CASE("a record sets every property, also those that were left at 0") {
    lv_init();
    zof_style_attr_t record = {};
    record.body_t.main_color = 0x11223344;
    record.body_t.radius = UINT32_MAX;
    record.txt_t.color = 0x80FF00;
    lv_style_t *style = zof_style_create(&record);
    REQUIRE(style);
    CHECK(prop(style, LV_STYLE_BG_COLOR).color.full == 0xFF223344);
    CHECK(prop(style, LV_STYLE_RADIUS).num == 32767);
    CHECK(prop(style, LV_STYLE_TEXT_COLOR).color.full == 0xFF80FF00);
    for (lv_style_prop_t id : {LV_STYLE_BG_OPA, LV_STYLE_BORDER_WIDTH, LV_STYLE_PAD_TOP}) {
        CHECK(prop(style, id).num == 0);
    }
    CHECK(prop(style, LV_STYLE_BG_IMG_SRC).num == -77); // none was named
    CHECK(zof_style_del(nullptr, &record) == 0);
    CHECK(record.lv_style == nullptr);
    CHECK(zof_style_del(nullptr, &record) == -1);
}

TEST_CASE("filling a style again frees what it held") {
    temp_project_t project;
    REQUIRE(project.open());
    lv_init();
    char picture[] = "back.png";
    zof_style_attr_t record = {};
    record.img_t.bg_img = picture;
    u32 used = zof_mem_count();
    u32 lv_used = zof_lv_mem_count();
    lv_style_t *style = zof_style_create(&record);
    std::string path = project.path("image/back.png");
    CHECK(std::string((const char *)prop(style, LV_STYLE_BG_IMG_SRC).ptr) == path);
    for (int i = 0; i < 3; i++) {
        CHECK(zof_style_create(&record) == style);
        CHECK(zof_style_get_lv_value(&record, style) == 0);
    }
    CHECK(zof_style_del(nullptr, &record) == 0);
    CHECK(zof_mem_count() == used);
    CHECK(zof_lv_mem_count() == lv_used);
}

TEST_CASE("the theme that is named first fixes a type's look") {
    temp_project_t project;
    REQUIRE(project.open());
    CHECK(zof_theme_get_ctrl("youth", ZOF_CTRL_BTN) == nullptr); // not there yet: asked for again
    project.write("config/theme/youth/button.g",
                  R"({"mode": 1, "styles": [{"style_state": 32}, {"style_part": 65536}]})");
    project.write("config/theme/night/button.g", R"({"mode": 0, "styles": []})");
    zof_pub_attr_t *theme = zof_theme_get_ctrl("youth", ZOF_CTRL_BTN);
    REQUIRE(theme);
    CHECK(theme->style_num == 2);
    CHECK(zof_theme_get_ctrl("night", ZOF_CTRL_BTN) == theme);

    project.write("config/theme/youth/label.g", "{\"styles\": [\n oops");
    std::string said = printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); });
    CHECK(contains(said, "label.g:2:"));
    CHECK(printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); }) == ""); // once, not once a label
}

static u32 text_color(lv_obj_t *obj) {
    return lv_obj_get_style_text_color(obj, LV_PART_MAIN).full;
}

TEST_CASE("styles of a section are put on the object that is given, and come off every object that wears them") {
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
    CHECK(zof_ctrl_style_add(a, list, 3, 0) == 0);
    CHECK(second.lv_style == nullptr); // no object of this control has a second section
    CHECK(zof_ctrl_style_add(b, list, 3, 1) == 0);
    CHECK(text_color(a) == 0xFF010101);
    CHECK(text_color(b) == 0xFF020202);
    CHECK(zof_style_del(a, &main) == 0);
    CHECK(zof_style_del(a, &second) == 0);
    CHECK(text_color(b) == before);
    CHECK(zof_ctrl_style_add(nullptr, list, 3, 0) == -1);
    CHECK(zof_ctrl_style_set_bg_grad_dir(a, 5, LV_PART_MAIN) == 0);
    CHECK(lv_obj_get_style_bg_grad_dir(a, LV_PART_MAIN) == LV_GRAD_DIR_NONE);
}

TEST_CASE("another theme changes what controls have from their theme and nothing else") {
    view_project_t project;
    project.view(1, {ctrl(ZOF_CTRL_OBJ, 5,
                          R"("styles": [{"body_t": {"radius": 7}}, {"style_state": 2, "body_t": {"opa": 9}}])")});
    project.view(2, {ctrl(ZOF_CTRL_SLIDER, 6)});
    project.write("config/theme/night/slider.g", R"({"styles": [{"body_t": {"main_color": 8}}]})");
    project.write("config/theme/youth/slider.g", R"({"styles": [{"body_t": {"main_color": 9}}]})");
    project.write(
        "config/theme/youth/container.g",
        R"({"styles": [{"body_t": {"main_color": 1, "radius": 3, "opa": 255}, "txt_t": {"font_lib": "no.ttf"}},
                                 {"style_state": 32, "body_t": {"main_color": 5}}]})");
    project.write("config/theme/night/container.g",
                  R"({"styles": [{"style_state": 1, "body_t": {"main_color": 4}},
                                 {"body_t": {"main_color": 2, "radius": 4, "opa": 200}, "txt_t": {"font_lib": "so.ttf"}}]})");
    REQUIRE(project.open(320, 240));
    REQUIRE(zof_view_set_dis_view(1) == 0);
    const para_t *record = zof_ctrl_get_form_id(1, 5);
    REQUIRE(record);
    const auto own = [&](u32 i) { return record->attr->style_list[i]; };
    CHECK(zof_theme_set("none") == -1);
    for (const char *name : {"night", "youth", "night", "night"}) {
        const bool night = name[0] == 'n';
        REQUIRE(zof_theme_set(name) == 0);
        CHECK(own(0)->body_t.main_color == (night ? 2 : 1));
        CHECK(own(0)->body_t.opa == (night ? 200 : 255));
        CHECK(own(0)->body_t.radius == 7);
        CHECK(own(0)->txt_t.font_lib == std::string(night ? "so.ttf" : "no.ttf"));
        CHECK(own(1)->body_t.main_color == 5); // the pressed look is one theme's only
        CHECK(own(2)->body_t.opa == 9);
        CHECK(lv_obj_get_style_bg_opa(record->obj, LV_PART_MAIN) == (night ? 200 : 255));
    }
    const u32 used = zof_mem_count();
    zof_theme_set("night");
    CHECK(zof_mem_count() == used);

    // A type that is first used afterwards follows too, whatever theme its file names.
    REQUIRE(zof_view_set_dis_view(2) == 0);
    const zof_style_attr_t *late = zof_ctrl_get_form_id(2, 6)->attr->style_list[0];
    CHECK(late->body_t.main_color == 8);
    REQUIRE(zof_theme_set("youth") == 0);
    CHECK(late->body_t.main_color == 9);
}
