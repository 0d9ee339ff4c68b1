// How a view's controls are created: one view while another is being built, duplicate ids, deep nesting.
#include <chrono>

#include "view_project.h"

static std::string tile(u32 id) {
    return ctrl(ZOF_CTRL_TILE, id, R"("dir": 15)", R"("parent_id": 1)");
}

static bool shown;

// The event function of a tile view, which gets an event for each tile that is created.
static void show_another(zof_ctrl_t *, zof_event_e) {
    if (!shown) {
        shown = true;
        zof_view_set_dis_view(2);
    }
}

TEST_CASE("an event of a control that is being created shows another view, and both are complete") {
    view_project_t project;
    ctrl_funs = {{1, show_another}};
    project.view(1, {ctrl(ZOF_CTRL_TILEVIEW, 1), tile(2), tile(3), ctrl(ZOF_CTRL_LABEL, 4),
                     ctrl(ZOF_CTRL_LABEL, 5, "", R"("pub": true)")});
    project.view(2, {ctrl(ZOF_CTRL_LABEL, 1), ctrl(ZOF_CTRL_LABEL, 2), ctrl(ZOF_CTRL_LABEL, 3)});
    project.open(320, 240);
    shown = false;
    zof_view_set_dis_view(1);
    CHECK(shown);
    for (u32 id = 1; id <= 5; id++) {
        CAPTURE(id);
        CHECK(at(id)->obj != nullptr);
    }
    for (u32 id = 1; id <= 3; id++) {
        CHECK(at(id, 2)->obj != nullptr);
    }
    ctrl_funs.clear();
}

TEST_CASE("a control that is deleted during its own creation is gone, and nothing else breaks") {
    view_project_t project;
    ctrl_funs = {{1, [](zof_ctrl_t *, zof_event_e) { zof_ctrl_delete(zof_ctrl_get_form_id(1, 2)); }}};
    project.view(1, {ctrl(ZOF_CTRL_TILEVIEW, 1), tile(2), ctrl(ZOF_CTRL_LABEL, 4)});
    project.open(320, 240);
    CHECK(printed([] { zof_view_set_dis_view(1); }) == "");
    CHECK(zof_ctrl_get_child_sum(at(1)) == 0);
    CHECK(at(4)->obj != nullptr);
    ctrl_funs.clear();
}

// Milliseconds to load a view of `count` controls, each within the previous one.
static s64 chain_time(u32 view, u32 count, std::string *said) {
    const auto start = std::chrono::steady_clock::now();
    *said = printed([=] { zof_view_set_dis_view(view); });
    CHECK(at(count, view)->obj != nullptr);
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - start).count();
}

TEST_CASE("nesting has a limit that is logged, and loading time is proportional to the number of controls") {
    view_project_t project;
    const auto chain = [](u32 count) {
        std::vector<std::string> list;
        for (u32 id = 1; id <= count; id++) {
            list.push_back(ctrl(ZOF_CTRL_OBJ, id, "", form(R"("parent_id": %u)", id - 1)));
        }
        return list;
    };
    project.view(1, chain(500));
    project.view(2, chain(4000));
    project.open(320, 240);
    std::string said;
    const s64 few = chain_time(1, 500, &said);
    CHECK(contains(said, "control 65: nested more than 64 deep; it is put on the view"));
    CHECK(lv_obj_get_parent(at(65)->obj) == zof_view_list_get(1)->obj);
    CHECK(lv_obj_get_parent(at(66)->obj) == at(65)->obj);
    const s64 many = chain_time(2, 4000, &said);
    CAPTURE(few);
    CAPTURE(many);
    CHECK(many < 30 * (few + 10)); // eight times as many controls; quadratic, it was 64 times
}

TEST_CASE("a view's file is read once, and a theme file that is missing is looked for again with each view") {
    view_project_t project;
    project.view(1, {ctrl(ZOF_CTRL_LABEL, 1), ctrl(ZOF_CTRL_LABEL, 2)});
    project.view(2, {ctrl(ZOF_CTRL_LABEL, 1)});
    zof_prj_t *prj = project.open(320, 240);
    static std::string file;
    file = project.path("config/view/v1.g");
    static const auto create_without_file = [] {
        std::filesystem::remove(file);
        zof_view_create(1, nullptr, 0);
    };
    static const zof_view_fun_t rows[] = {{1, create_without_file}, {2, [] { zof_view_create(2, nullptr, 0); }}};
    prj->view_fun = rows;
    CHECK(zof_view_load(1) == 0);
    CHECK(at(2)->obj != nullptr);
    CHECK(at(2)->attr->style_num == 0);
    project.write("config/theme/youth/label.g", R"({"styles": [{"style_state": 32}]})");
    CHECK(zof_view_load(2) == 0);
    CHECK(at(1, 2)->attr->style_num == 1);
}
