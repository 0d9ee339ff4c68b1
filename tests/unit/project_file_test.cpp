// Project files as people and tools write them, sound and broken: every fault is told with its place and none is fatal.
#include "temp_project.h"
#include "zof_test.h"

#include <filesystem>

#include "project/zof_prj_up.h"

static const char *label_theme = R"({"pub_t": {"id": 1}, "styles": [
    {"style_part": 0, "body_t": {"main_color": 11, "radius": 4, "opa": 255}, "txt_t": {"font_lib": "theme.ttf",
     "font_size": 20}, "img_t": {"bg_img": "theme.png"}},
    {"style_part": 65536, "style_state": 2, "txt_t": {"font_lib": "second.ttf"}}]})";

static std::string view_file(const std::string &controls) {
    return R"({"view": {"v_name": "one", "v_id": 1}, "controls": [)" + controls + "]}";
}

static std::string control(const std::string &id, const std::string &more = "") {
    return R"({"type": 0, "theme": "youth", "property": {"pub_t": {"id": )" + id + "}" + more + "}}";
}

TEST_CASE("the project file fills the record and the list of views") {
    temp_project_t project;
    project.write("config/project/zofprj.g", R"({"P_NAME": "bench", "width": 800, "height": 480, "start_page": 2,
        "unknown": [1, 2], "hw_t": {"dis_t": {"off_x": 3}, "tone_t": {"sound": "k.wav"}},
        "func_t": {"standby_t": {"stdby_time": 60, "on_bright": 100}},
        "views": [{"pageId": 2, "pageName": "two.g"}, {"pageId": 3}, {"pageName": "x"},
                  {"pageId": "4", "pageName": "x"}, 7, {"pageId": 1, "pageName": "one.g"}]})");
    zof_prj_t *prj = nullptr;
    std::string log = printed([&] { prj = project.open(); });
    REQUIRE(prj);
    CHECK(prj == zof_prj_get_cur());
    for (int i : {1, 2, 3, 4}) {
        CHECK(contains(log, "views[" + std::to_string(i) + "] needs pageId"));
    }
    CHECK(prj->view_names->count == 2);
    CHECK(str(static_cast<zof_view_name_t *>(__db_list_visit(prj->view_names, 1))->name) == "one.g");
    CHECK(zof_j2s_view_name_list_get(prj->view_names) == -1); // the file is gone from memory

    zof_prj_facts_t facts = {};
    CHECK(zof_prj_facts(&facts) == 0);
    CHECK(facts.width == 800);
    CHECK(facts.off_x == 3);
    CHECK(str(facts.title) == "bench");
    CHECK(str(prj->attr->hw_t.tone_t.sound) == "k.wav");
    CHECK(prj->attr->func_t.standby_t.on_bright == 100);
}

TEST_CASE("a project file that cannot be read leaves no project") {
    temp_project_t project;
    u32 before = zof_mem_count();
    struct {
        const char *text, *line;
    } rows[] = {{"", "read error!"},
                {"{\"width\": 1,\n\n \"height\" 2}", "zofprj.g:3:11: parse error"},
                {"{\"width\": 1", "zofprj.g:1:12: parse error"},
                {"[]", "zofprj.g:1:1: parse error"}};
    for (const auto &row : rows) {
        CAPTURE(row.text);
        project.write("config/project/zofprj.g", row.text);
        CHECK(contains(printed([&] { CHECK(project.open() == nullptr); }), row.line));
        CHECK(zof_prj_get_cur() == nullptr);
    }
    std::filesystem::remove(project.path("config/project/zofprj.g"));
    CHECK(contains(printed([&] { CHECK(project.open() == nullptr); }), "zofprj.g: cannot be read"));
    std::filesystem::create_directories(project.path("config/project/zofprj.g"));
    CHECK(contains(printed([&] { CHECK(project.open() == nullptr); }), "zofprj.g: "));
    CHECK(zof_prj_obj_create(nullptr) == nullptr);
    CHECK(zof_mem_count() == before);

    CHECK(zof_prj_create(nullptr, 0) == -1);
}

TEST_CASE("a design is too large by its area, which no product overflows, and the answer stays") {
    temp_project_t project;
    project.write("config/project/zofprj.g", R"({"width": 65536, "height": 65536})");
    zof_prj_t *prj = project.open();
    REQUIRE(prj);
    CHECK(zof_prj_check_wh_avlid() == 1);
    prj->attr->width = 10;
    CHECK(zof_prj_check_wh_avlid() == 1);
}

TEST_CASE("a design as large as the panel fits, and a side may be longer") {
    temp_project_t project;
    project.write("config/project/zofprj.g", R"({"width": 8192, "height": 2048})");
    REQUIRE(project.open());
    CHECK(zof_prj_check_wh_avlid() == 0);
}

TEST_CASE("a view file gives its view, or a line and nothing") {
    temp_project_t project;
    REQUIRE(project.open());
    u32 before = zof_mem_count();
    project.write("config/view/one.g", R"({"view": {"v_name": "one", "v_id": 7, "bg_color": 4294967295,
                                           "bg_image": "b.png", "layer": 2, "model_en": true, "bg_scale": 300}})");
    zof_view_attr_t *view = zof_j2s_view(project.path("config/view/one.g").c_str());
    REQUIRE(view);
    CHECK(view->bg_color == 0xFFFFFFFF);
    CHECK(view->bg_scale == 0); // 300 does not fit
    CHECK(str(view->bg_image) == "b.png");
    FreeViewStruct(view);
    zof_free(view);

    project.write("config/view/none.g", R"({"views": {}})");
    project.write("config/view/bad.g", "{\"view\": {\"v_id\": 1,}}");
    const std::pair<std::string, std::string> rows[] = {
        {"none.g", ": view is missing"}, {"bad.g", ":1:22: parse error"}, {"gone.g", ": cannot be read"}};
    for (const auto &[name, fault] : rows) {
        std::string path = project.path("config/view/" + name);
        CHECK(contains(printed([&] { CHECK(zof_j2s_view(path.c_str()) == nullptr); }), name + fault));
        CHECK(contains(printed([&] { CHECK(zof_j2s_ctrl_start(path.c_str()) == -1); }), name));
    }
    CHECK(zof_mem_count() == before);
}

TEST_CASE("the cursor walks the controls and steps over entries that cannot be one") {
    temp_project_t project;
    REQUIRE(project.open());
    u32 before = zof_mem_count();
    project.write("config/view/one.g", view_file(control("5") + R"(, {"type": 0, "theme": "youth"}, 3,
        {"type": 0, "theme": "youth", "property": {"pub_t": {"name": "no id"}}},
        {"type": 77, "theme": "youth", "property": {"pub_t": {"id": 1}}},
        {"type": "label", "theme": "youth", "property": {"pub_t": {"id": 1}}},)" +
                                                 control("70000") + "," + control("\"6\"") +
                                                 R"(, {"theme": "night", "property": {"pub_t": {"id": 8, "pub": true}}},
        {"type": 1, "theme": 1, "property": {"pub_t": {"id": 9, "pub": 1}, "txt": "go", "mode": 1}},
        {"type": 1, "property": {"pub_t": {"id": 10, "pub": false}}})"));
    std::string path = project.path("config/view/one.g");
    REQUIRE(zof_j2s_ctrl_start(path.c_str()) == 0);
    u32 id = 0;
    u32 pub = 9;
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0);
    CHECK(id == 5);
    zof_j2s_ctrl_run_next();
    std::string log = printed([&] { CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0); });
    CHECK(id == 8);
    CHECK(pub == 1);
    const std::string no_pub = "property.pub_t is missing";
    const std::string no_id = "property.pub_t.id is no number";
    const std::string no_type = "type is no control type";
    const std::string faults[] = {no_pub, no_pub, no_id, no_type, no_type, no_id, no_id};
    for (size_t i = 0; i < 7; i++) {
        CHECK(contains(log, "one.g: controls[" + std::to_string(i + 1) + "]: " + faults[i]));
    }

    zof_pub_attr_t *record = zof_j2s_ctrl_get(); // without a type it is a label
    REQUIRE(record);
    CHECK(record->ctrl_type == ZOF_CTRL_LABEL);
    CHECK(record->pub == 1);
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);

    // A number is seen by the peek and not by the record.
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0);
    CHECK(pub == 1);
    record = zof_j2s_ctrl_get();
    REQUIRE(record);
    CHECK(record->pub == 0);
    CHECK(str(reinterpret_cast<zof_btn_attr_t *>(record)->txt) == "go");
    zof_j2s_ctrl_delete(record, ZOF_CTRL_BTN);

    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0);
    CHECK(contains(printed([] { CHECK(zof_j2s_ctrl_get() == nullptr); }), "controls[10]: theme is missing"));
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == -1);
    CHECK(zof_j2s_ctrl_start(path.c_str()) == 0);
    CHECK(zof_j2s_ctrl_start(path.c_str()) == 0); // lets go of the former walk
    zof_j2s_ctrl_end();
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == -1);
    CHECK(zof_mem_count() == before);
}

// The only control of a view that holds nothing else.
static zof_pub_attr_t *only_control(const temp_project_t &project, const std::string &text) {
    project.write("config/view/styles.g", view_file(text));
    REQUIRE(zof_j2s_ctrl_start(project.path("config/view/styles.g").c_str()) == 0);
    zof_pub_attr_t *record = zof_j2s_ctrl_get();
    zof_j2s_ctrl_end();
    REQUIRE(record);
    return record;
}

TEST_CASE("own styles change only the keys they name, over the theme's, and release only what is theirs") {
    temp_project_t project;
    REQUIRE(project.open());
    project.write("config/theme/youth/label.g", label_theme);
    zof_pub_attr_t *theme = zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL);
    REQUIRE(theme);
    CHECK(theme->style_num == 2);
    u32 before = zof_mem_count();

    for (int round = 0; round < 3; round++) {
        zof_pub_attr_t *record = only_control(project, control("5", R"(, "styles": [
            {"style_part": 0, "body_t": {"main_color": 99}, "txt_t": {"font_lib": "own.ttf"}},
            {"style_part": 0, "style_sect": 2147483647, "txt_t": {"font_lib": "again.ttf"},
             "img_t": {"bg_img": "own.png"}},
            {"style_part": 131072, "txt_t": {"font_lib": "new.ttf"}},
            {"style_part": 65536, "style_state": 2, "body_t": {"opa": 9}}])"));
        REQUIRE(record->style_num == 3);
        const zof_style_attr_t *first = record->style_list[0];
        CHECK(first->body_t.main_color == 99);
        CHECK(first->body_t.radius == 4);
        CHECK(str(first->txt_t.font_lib) == "again.ttf");
        CHECK(str(first->img_t.bg_img) == "own.png");
        CHECK(record->style_list[1]->txt_t.font_lib == theme->style_list[1]->txt_t.font_lib);
        CHECK(str(record->style_list[2]->txt_t.font_lib) == "new.ttf");
        zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
        CHECK(zof_mem_count() == before);
    }
    CHECK(str(theme->style_list[0]->txt_t.font_lib) == "theme.ttf");
    CHECK(str(theme->style_list[0]->img_t.bg_img) == "theme.png");
}

TEST_CASE("without a theme file own styles stand alone") {
    temp_project_t project;
    REQUIRE(project.open());
    u32 before = zof_mem_count();
    zof_pub_attr_t *record = only_control(
        project, control("5", R"(, "styles": [{"txt_t": {"font_lib": "a.ttf"}, "img_t": {"bg_img": "a.png"}}, 5])"));
    CHECK(record->style_num == 1); // an element that is no object changes nothing of the style that it finds
    CHECK(str(record->style_list[0]->txt_t.font_lib) == "a.ttf");
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
    CHECK(zof_mem_count() == before);
}

TEST_CASE("more styles than a record can count stop at 255 with a line") {
    temp_project_t project;
    REQUIRE(project.open());
    std::string list;
    for (int i = 0; i < 300; i++) {
        list += (i ? "," : "") + std::string(R"({"style_part": )") + std::to_string(i + 1) + "}";
    }
    project.write("config/theme/youth/label.g", R"({"styles": [)" + list + "]}");
    std::string log = printed([] { zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL); });
    CHECK(contains(log, "only the first 255 count"));
    zof_pub_attr_t *record = nullptr;
    log = printed([&] { record = only_control(project, control("5", R"(, "styles": [)" + list + "]")); });
    CHECK(record->style_num == 255);
    CHECK(record->style_list[254]->style_part == 255);
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
}

TEST_CASE("every control type has its table, its size and the common head") {
    u32 before = zof_mem_count();
    cJSON *json = cJSON_Parse(R"({"pub_t": {"id": 3, "name": "n", "alpha": 9, "pt": {"x": -4}}, "txt": "t", "btn_txt":
        ["a", "b"], "btns_t": [{"image_num": "i", "txt": "t"}, {"txt": "u"}], "btnmatrix_txt": ["1", "\n", "2"],
        "options": "o", "init_img": "i", "init_angel": -900, "x_mark": {"last_mark_en": true}})");
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        CAPTURE(type);
        zof_pub_attr_t *record = zof_j2s_ctrl_create(json, type);
        REQUIRE(record);
        CHECK(record->ctrl_type == type);
        CHECK(record->id == 3);
        CHECK(record->pt.x == -4);
        zof_j2s_ctrl_delete(record, type);
        CHECK(zof_mem_count() == before);
    }
    zof_pub_attr_t *img = zof_j2s_ctrl_create(json, ZOF_CTRL_IMG);
    CHECK(reinterpret_cast<zof_img_attr_t *>(img)->init_angel == -900);
    zof_j2s_ctrl_delete(img, ZOF_CTRL_IMG);
    CHECK(zof_j2s_ctrl_create(json, ZOF_CTRL_TYPE_COUNT) == nullptr);
    cJSON_Delete(json);
}
