// Starting a project: logo, start view, and preloaded views.
#include "view_project.h"

static u32 logo_pixel, corner_pixel; // in the middle of the panel and at its edge, when the first view is created

// Three views, the second without a file, in the project's own order 3, 2, 1.
static void write_project(view_project_t &project, const std::string &keys) {
    project.pages.clear();
    project.view(3, {});
    project.pages += R"(, {"pageId": 2, "pageName": "two.g"})";
    project.view(1, {}, R"("bg_color": 255, "bg_scale": 255)");
    project.write("config/project/zofprj.g",
                  R"({"width": 320, "height": 240, "views": [)" + project.pages + "], " + keys + "}");
    REQUIRE(project.temp_project_t::open());
}

static s32 create() {
    static const zof_view_fun_t first = view_row<1>();
    static const auto init = [] {
        logo_pixel = sdl_frame_get(nullptr, nullptr)[120 * 320 + 160] & 0xFFFFFF;
        corner_pixel = sdl_frame_get(nullptr, nullptr)[0] & 0xFFFFFF;
        first.zof_view_init();
    };
    static const zof_view_fun_t rows[] = {
        {1, init, first.zof_view_entry, first.zof_view_exit}, view_row<2>(), view_row<3>()};
    return zof_prj_create(rows, 3);
}

TEST_CASE("the logo is on a black screen before the first view, and the views are loaded in file order") {
    view_project_t project;
    project.image("logo.png", 20, 20, 0xFF0000);
    write_project(project, R"("start_page": 1, "init_allview": 1, "cacheImg": 250)");
    screen_open(320, 240);
    screen_step(10); // just drawn, so the next refresh is not due: the logo must force one
    const std::string log = printed([] { CHECK(create() == 0); });
    CHECK(calls == " init1 entry1 init3");
    CHECK(contains(log, "two.g: cannot be read"));
    CHECK(lv_obj_get_child_cnt(lv_scr_act()) == 0); // the logo is gone
    CHECK(logo_pixel == 0xFF0000);
    CHECK(corner_pixel == 0);
    CHECK(screen_pixel(160, 120) == 0x0000FF);
}
