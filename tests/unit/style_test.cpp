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
    record.body_t.border.width = 3;
    record.body_t.padding.left = 7;
    record.txt_t.color = 0x80FF00;
    lv_style_t *style = zof_style_create(&record);
    REQUIRE(style);
    CHECK(prop(style, LV_STYLE_BG_COLOR).color.full == 0xFF223344);
    CHECK(prop(style, LV_STYLE_RADIUS).num == 32767);
    CHECK(prop(style, LV_STYLE_BORDER_WIDTH).num == 3);
    CHECK(prop(style, LV_STYLE_PAD_LEFT).num == 7);
    CHECK(prop(style, LV_STYLE_TEXT_COLOR).color.full == 0xFF80FF00);
    for (lv_style_prop_t id : {LV_STYLE_BG_OPA, LV_STYLE_BORDER_OPA, LV_STYLE_TEXT_OPA, LV_STYLE_SHADOW_WIDTH,
                               LV_STYLE_PAD_TOP, LV_STYLE_BG_GRAD_DIR}) {
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
    CHECK(zof_style_get_lv_value(nullptr, style) == -1);
    CHECK(zof_style_get_lv_value(&record, nullptr) == -1);
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
    CHECK(theme->style_list[0]->style_state == 32);
    CHECK(zof_theme_get_ctrl("night", ZOF_CTRL_BTN) == theme);
    CHECK(zof_theme_get_ctrl(nullptr, ZOF_CTRL_BTN) == nullptr);
    CHECK(zof_theme_get_ctrl("youth", ZOF_CTRL_IMG) == nullptr);
    CHECK(zof_theme_get_ctrl("youth", 30) == nullptr);

    project.write("config/theme/youth/label.g", "{\"styles\": [\n oops");
    std::string said = printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); });
    CHECK(contains(said, "label.g:2:"));
    CHECK(printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); }) == ""); // once, not once a label
}

TEST_CASE("a control's own styles lie over its theme's, and each text is freed once") {
    temp_project_t project;
    REQUIRE(project.open());
    project.write("config/theme/youth/label.g", R"({"styles": [
        {"body_t": {"opa": 9, "main_color": 1, "padding": {"top": 4}}, "txt_t": {"font_lib": "a.ttf", "font_size": 20},
         "img_t": {"bg_img": "theme.png"}},
        {"style_state": 32, "txt_t": {"font_lib": "b.ttf"}, "img_t": {"bg_img": "pressed.png"}}]})");
    project.write("config/view/v.g", R"({"controls": [{"type": 0, "theme": "youth", "property": {"pub_t": {"id": 1},
        "styles": [{"body_t": {"main_color": 255}},
                   {"style_state": 32, "txt_t": {"font_lib": "own.ttf"}, "img_t": {"bg_img": "own.png"}},
                   {"style_sect": 1, "txt_t": {"font_lib": "third.ttf"}, "img_t": {"bg_img": "third.png"}}]}}]})");
    REQUIRE(zof_j2s_ctrl_start(project.path("config/view/v.g").c_str()) == 0);
    zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL);
    u32 used = zof_mem_count();
    zof_pub_attr_t *record = zof_j2s_ctrl_get();
    REQUIRE(record);
    REQUIRE(record->style_num == 3);
    const zof_style_attr_t *first = record->style_list[0];
    const zof_style_attr_t *theme = zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL)->style_list[0];
    CHECK(first->body_t.main_color == 255);
    CHECK(first->body_t.opa == 9);
    CHECK(first->body_t.padding.top == 4);
    CHECK(first->txt_t.font_lib == theme->txt_t.font_lib);
    CHECK(first->img_t.bg_img == theme->img_t.bg_img);
    CHECK(theme->body_t.main_color == 1);
    CHECK(std::string(record->style_list[1]->img_t.bg_img) == "own.png");
    CHECK(record->style_list[2]->style_sect == 1);
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
    CHECK(zof_mem_count() == used);
    CHECK(std::string(theme->txt_t.font_lib) == "a.ttf");
    zof_j2s_ctrl_end();
}

TEST_CASE("a record has 255 styles at most") {
    zof_pub_attr_t record = {};
    for (u32 i = 0; i < 255; i++) {
        zof_style_attr_t *style = zof_theme_style_check(i, 0, 0, &record);
        REQUIRE(style);
        style->style_part = i;
    }
    CHECK(zof_theme_style_check(100, 0, 0, &record) == record.style_list[100]);
    std::string said = printed([&] { CHECK(zof_theme_style_check(1000, 0, 0, &record) == nullptr); });
    CHECK(contains(said, "more than 255 styles"));
    CHECK(record.style_num == 255);
    CHECK(zof_theme_style_check(0, 0, 0, nullptr) == nullptr);

    zof_pub_attr_t few = {};
    few.style_num = 1;
    zof_style_attr_t one = {};
    zof_style_attr_t *list[] = {&one};
    few.style_list = list;
    CHECK(zof_theme_style_copy(&few, &record) == 0); // no further than there is room
    CHECK(zof_theme_style_copy(nullptr, &record) == -1);
    zof_pub_attr_t empty = {};
    CHECK(zof_theme_style_copy_new(&few, &empty) == -1);
    for (u32 i = 0; i < record.style_num; i++) {
        zof_free(record.style_list[i]);
    }
    zof_free(record.style_list);
}

static lv_color_t text_color(lv_obj_t *obj, u32 part = LV_PART_MAIN) {
    return lv_obj_get_style_text_color(obj, part);
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
    lv_color_t before = text_color(b);
    CHECK(zof_ctrl_style_add(a, list, 3, 0) == 0);
    CHECK(second.lv_style == nullptr); // no object of this control has a second section
    CHECK(zof_ctrl_style_add(b, list, 3, 1) == 0);
    CHECK(text_color(a).full == 0xFF010101);
    CHECK(text_color(b).full == 0xFF020202);
    CHECK(zof_style_del(a, &main) == 0);
    CHECK(zof_style_del(a, &second) == 0);
    CHECK(text_color(b).full == before.full);
    CHECK(zof_ctrl_style_add(nullptr, list, 3, 0) == -1);
    CHECK(zof_ctrl_style_add(a, nullptr, 3, 0) == -1);
    CHECK(zof_ctrl_style_add(a, list, 0, 0) == 0);

    CHECK(zof_ctrl_style_set_bg_grad_dir(a, LV_GRAD_DIR_HOR, LV_PART_MAIN) == 0);
    CHECK(lv_obj_get_style_bg_grad_dir(a, LV_PART_MAIN) == LV_GRAD_DIR_HOR);
    CHECK(zof_ctrl_style_set_bg_grad_dir(a, 5, LV_PART_MAIN) == 0);
    CHECK(lv_obj_get_style_bg_grad_dir(a, LV_PART_MAIN) == LV_GRAD_DIR_NONE);
    CHECK(zof_ctrl_style_set_bg_color(a, 0x00123456, LV_PART_MAIN) == 0);
    CHECK(lv_obj_get_style_bg_color(a, LV_PART_MAIN).full == 0xFF123456);
    CHECK(zof_ctrl_style_set_bg_opa(nullptr, 1, LV_PART_MAIN) == -1);
}
