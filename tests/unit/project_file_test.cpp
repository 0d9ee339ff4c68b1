// Project files, valid and broken: every fault is reported with its position and none is fatal.
#include <algorithm>

#include "temp_project.h"
#include "zof_test.h"

#include "project/base/zof_prj_up.h"

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
    project.write("config/project/zofprj.g", R"({"P_NAME": "bench", "width": 65536, "height": 65536, "start_page": 2,
        "unknown": [1, 2], "hw_t": {"dis_t": {"off_x": 3}, "tone_t": {"sound": "k.wav"}},
        "views": [{"pageId": 2, "pageName": "two.g"}, {"pageId": 3}, {"pageName": "x"},
                  {"pageId": "4", "pageName": "x"}, 7, {"pageId": 1, "pageName": "one.g"}]})");
    CHECK((!zof_j2s_view(nullptr) && !zof_j2s_get_prj_attr(nullptr) && zof_j2s_view_name_list_get(nullptr) == -1));
    RootJsonDel(nullptr);
    CHECK((zof_prj_create(nullptr, 0) == -1 && zof_prj_obj_create(nullptr) == nullptr)); // no project yet
    zof_prj_t *prj = nullptr;
    std::string log = printed([&] { prj = project.open(); });
    REQUIRE(prj);
    for (const char *line : {"views[1]: pageName is missing", "views[2]: pageId is missing",
                             "views[3].pageId: expected a number", "views[4]: expected an object"}) {
        CAPTURE(str(line));
        CHECK(contains(log, line));
    }
    CHECK(prj->view_names->count == 2);
    CHECK(str(((zof_view_name_t *)__db_list_visit(prj->view_names, 1))->name) == "one.g");
    zof_prj_facts_t facts = {};
    CHECK((zof_prj_facts(&facts) == 0 && facts.off_x == 3 && str(facts.title) == "bench" &&
           str(prj->attr->hw_t.tone_t.sound) == "k.wav"));
    // Too large by area, without an overflow of the product.
    CHECK(zof_prj_check_wh_avlid() == 1);
    const u32 before = zof_mem_count();
    printed([&] {
        zof_prj_attr_t *attr = zof_j2s_get_prj_attr(project.path("config/project/zofprj.g").c_str());
        CHECK(FreePrjStruct(attr) == 0);
        zof_free(attr);
        CHECK(zof_j2s_get_prj_attr(project.path("none").c_str()) == nullptr); // releases the file of the first
    });
    CHECK(zof_mem_count() == before);
}

TEST_CASE("the cursor walks the controls and skips invalid entries") {
    temp_project_t project;
    REQUIRE(project.open());
    u32 before = zof_mem_count();
    project.write("config/view/one.g", view_file(R"({"type": 0, "theme": "youth"}, 3,
        {"type": 0, "theme": "youth", "property": {"pub_t": {"name": "no id"}}},
        {"type": 30, "theme": "youth", "property": {"pub_t": {"id": 1}}},)" +
                                                 control("70000") + "," + control("\"6\"") +
                                                 R"(, {"theme": "night", "property": {"pub_t": {"id": 8, "pub": true}}},
        {"type": 1, "theme": 1, "property": {"pub_t": {"id": 9, "pub": 1}, "txt": "go", "mode": 1}},
        {"type": 1, "property": {"pub_t": {"id": 10, "pub": false}}})"));
    std::string path = project.path("config/view/one.g");
    CHECK((zof_j2s_ctrl_start(nullptr) == -1 && zof_j2s_ctrl_get() == nullptr));
    REQUIRE(zof_j2s_ctrl_start(path.c_str()) == 0);
    u32 id = 0;
    u32 pub = 9;
    std::string log = printed([&] { CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0); });
    CHECK((id == 8 && pub == 1));
    for (const char *fault :
         {"0]: property.pub_t is missing", "1]: property.pub_t is missing", "2]: property.pub_t.id is not a number",
          "3]: type is not a control type", "4]: property.pub_t.id", "5]: property.pub_t.id"}) {
        CHECK(contains(log, std::string(": controls[") + fault));
    }
    zof_pub_attr_t *record = zof_j2s_ctrl_get(); // without a type it is a label
    REQUIRE(record);
    CHECK((record->ctrl_type == ZOF_CTRL_LABEL && record->pub == 1));
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
    // The peek accepts a number, the record does not.
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0);
    CHECK(pub == 1);
    record = zof_j2s_ctrl_get();
    REQUIRE(record);
    CHECK((record->pub == 0 && str(((zof_btn_attr_t *)record)->txt) == "go"));
    zof_j2s_ctrl_delete(record, ZOF_CTRL_BTN);
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == 0);
    CHECK(contains(printed([] { CHECK(zof_j2s_ctrl_get() == nullptr); }), "controls[8]: theme is missing"));
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == -1);
    CHECK(zof_j2s_ctrl_start(path.c_str()) == 0);
    CHECK(zof_j2s_ctrl_start(path.c_str()) == 0); // ends the previous walk
    for (int i = 0; i < 7; i++) {
        zof_j2s_ctrl_run_next();
    }
    CHECK((zof_j2s_ctrl_get_para(&id, &pub) == 0 && id == 9)); // six are skipped, and one is valid
    zof_j2s_ctrl_end();
    CHECK(zof_j2s_ctrl_get_para(&id, &pub) == -1);
    CHECK(zof_mem_count() == before);
}

// Returns the only control of a view, with these styles of its own.
static zof_pub_attr_t *styled(const temp_project_t &project, const std::string &styles) {
    project.write("config/view/styles.g", view_file(control("5", R"(, "styles": [)" + styles + "]")));
    REQUIRE(zof_j2s_ctrl_start(project.path("config/view/styles.g").c_str()) == 0);
    zof_pub_attr_t *record = zof_j2s_ctrl_get();
    zof_j2s_ctrl_end();
    REQUIRE(record);
    return record;
}

TEST_CASE("own styles override only the keys they name, and release only what they own") {
    temp_project_t project;
    REQUIRE(project.open());
    project.write("config/theme/youth/label.g", label_theme);
    zof_pub_attr_t *theme = zof_theme_get_ctrl("youth", ZOF_CTRL_LABEL);
    REQUIRE(theme);
    u32 before = zof_mem_count();
    for (int round = 0; round < 3; round++) {
        zof_pub_attr_t *record = styled(project, R"(
            {"style_part": 0, "body_t": {"main_color": 99}, "txt_t": {"font_lib": "own.ttf"}},
            {"style_part": 0, "style_sect": 2147483647, "txt_t": {"font_lib": "again.ttf"},
             "img_t": {"bg_img": "own.png"}},
            {"style_part": 131072, "txt_t": {"font_lib": "new.ttf"}},
            {"style_part": 65536, "style_state": 2, "body_t": {"opa": 9}})");
        REQUIRE(record->style_num == 3);
        const zof_style_attr_t *first = record->style_list[0];
        CHECK((first->body_t.main_color == 99 && first->body_t.radius == 4));
        CHECK(str(first->txt_t.font_lib) + str(first->img_t.bg_img) == "again.ttfown.png");
        CHECK(record->style_list[1]->txt_t.font_lib == theme->style_list[1]->txt_t.font_lib);
        CHECK(str(record->style_list[2]->txt_t.font_lib) == "new.ttf");
        zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
        CHECK(zof_mem_count() == before);
    }
    const zof_style_attr_t *kept = theme->style_list[0];
    CHECK(str(kept->txt_t.font_lib) + str(kept->img_t.bg_img) == "theme.ttftheme.png");
}

static std::string replaced(std::string text, const std::string &from, const std::string &to) {
    const size_t at = text.find(from);
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

struct choice_t {
    std::string key, json; // the JSON of an object with this key and $ for its number
    u32 values;
};

// The keys of a table that choose one of several meanings; `json` is the object around them, with @ for the table's
// keys.
static void choices_of(const reflect_item_t *table, const std::string &json, std::vector<choice_t> *out) {
    for (; table->key; table++) {
        const std::string inner = std::string("\"") + table->key + "\": ";
        if (table->type == CSON_OBJECT) {
            choices_of(table->table, replaced(json, "@", inner + "{@}"), out);
        } else if (table->flags >> CSON_VALUES_SHIFT) {
            out->push_back({table->key, replaced(json, "@", inner + "$"), (u32)(table->flags >> CSON_VALUES_SHIFT)});
        }
    }
}

// Decodes a view's only control, which must be valid, and returns what was logged.
static std::string decoded(const std::string &path) {
    return printed([&] {
        REQUIRE(zof_j2s_ctrl_start(path.c_str()) == 0);
        zof_pub_attr_t *record = zof_j2s_ctrl_get();
        REQUIRE(record);
        zof_j2s_ctrl_delete(record, record->ctrl_type);
        zof_j2s_ctrl_end();
    });
}

TEST_CASE("a number that a key has no meaning for is reported with file and key") {
    temp_project_t project;
    REQUIRE(project.open());
    const std::string path = project.path("config/view/one.g");
    u32 count = 0;
    for (u32 type = 0; type < ZOF_CTRL_TYPE_COUNT; type++) {
        std::vector<choice_t> choices;
        choices_of(get_ctrl_struct_reflect(type), R"({@})", &choices);
        if (type == 0) { // styles are the same for all
            choices_of(zof_style_attr_t_tbl, R"({"styles": [{@}]})", &choices);
        }
        for (const choice_t &choice : choices) {
            for (const auto &[number, good] : {std::pair<s64, bool>{choice.values - 1, true},
                                               {INT32_MAX, true}, // not set
                                               {choice.values, false},
                                               {-1, false}}) {
                const std::string text = std::to_string(number);
                project.write("config/view/one.g",
                              view_file(R"({"type": )" + std::to_string(type) + R"(, "theme": "x", "property": )" +
                                        replaced(choice.json, "$", text) + "}"));
                const std::string said = "." + choice.key + ": " + text + " is not from 0 to " +
                                         std::to_string(choice.values - 1) + "; the default is used\n";
                const std::string log = decoded(path);
                CHECK((good ? log == "" : std::count(log.begin(), log.end(), '\n') == 1 && contains(log, said)));
            }
            count++;
        }
    }
    CHECK(count > 3 * ZOF_CTRL_TYPE_COUNT); // a scroll bar has three
    CHECK((zof_j2s_ctrl_create(nullptr, 0) == nullptr && zof_j2s_get_ctrl_size(ZOF_CTRL_TYPE_COUNT) == 0));
    cJSON *property = cJSON_Parse(R"({"point_cnt": 7})");
    zof_pub_attr_t *chart = zof_j2s_ctrl_create(property, ZOF_CTRL_CHART);
    cJSON_Delete(property);
    const std::string chart_text = printed([&] { CHECK(printfstruct(chart) == 0); });
    CHECK(contains(chart_text, "point_cnt"));
    zof_j2s_attr_free(chart, ZOF_CTRL_CHART);
    project.write("config/theme/youth/label.g",
                  R"({"styles": [{"body_t": {"grad_dir_e": 2, "border": {"part": 32}}}]})");
    zof_pub_attr_t *record = nullptr;
    const std::string log = printed([&] { record = styled(project, R"({"body_t": {"grad_dir_e": 3}})"); });
    CHECK(contains(log, "styles[0].body_t.border.part: 32 is not from 0 to 31"));
    CHECK(contains(log, "controls[0].property.styles[0].body_t.grad_dir_e: 3 is not from 0 to 2"));
    CHECK(record->style_list[0]->body_t.grad_dir_e == 2); // the theme's
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
    project.write("config/view/one.g", R"({"view": {"v_id": 1, "layer": 4}})");
    zof_view_attr_t *view = nullptr;
    CHECK(contains(printed([&] { view = zof_j2s_view(path.c_str()); }),
                   path + ":1:22: view.layer: 4 is not from 0 to 3"));
    FreeViewStruct(view);
    zof_free(view);
}

TEST_CASE("without a theme file own styles are used alone, and at most 255 of them") {
    temp_project_t project;
    REQUIRE(project.open());
    u32 before = zof_mem_count();
    zof_pub_attr_t *record = styled(project, R"({"txt_t": {"font_lib": "a.ttf"}, "img_t": {"bg_img": "a.png"}}, 5)");
    CHECK(record->style_num == 1); // an element that is not an object leaves the style unchanged
    CHECK(str(record->style_list[0]->txt_t.font_lib) == "a.ttf");
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
    CHECK(zof_mem_count() == before);
    std::string list;
    for (int i = 0; i < 300; i++) {
        list += (i ? "," : "") + std::string(R"({"style_part": )") + std::to_string(i + 1) + "}";
    }
    project.write("config/theme/youth/label.g", R"({"styles": [)" + list + "]}");
    CHECK(contains(printed([&] { record = styled(project, list); }), "only the first 255 count"));
    REQUIRE(record->style_num == 255);
    CHECK(record->style_list[254]->style_part == 255);
    zof_j2s_ctrl_delete(record, ZOF_CTRL_LABEL);
}
