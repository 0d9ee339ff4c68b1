// Power-on: the overlay of diagnostic values, and the refusal of a project that is too large.
#include <unistd.h>

#include "screen_fixture.h"
#include "temp_project.h"

static zof_prj_t *project_showing(temp_project_t *project, u32 show_en) {
    project->write("config/project/zofprj.g", form(R"({"p_name": "t", "width": 320, "height": 240, "views": [],
                       "version": "fw 9", "app_ver": "2.5", "comp_time": "noon", "show_en": %u})",
                                                   show_en));
    REQUIRE(chdir(project->top.c_str()) == 0); // where the version is searched for
    zof_prj_t *prj = project->open();
    screen_open(0, 0);
    printed([] { zof_func_pwon(); });
    return prj;
}

// The overlay's text; "-" without an overlay.
static std::string overlay() {
    if (lv_obj_get_child_cnt(lv_scr_act()) == 0) {
        return "-";
    }
    return lv_label_get_text(lv_obj_get_child(lv_obj_get_child(lv_scr_act(), -1), 0));
}

TEST_CASE("the overlay appears after half a second, its text after a second, and it follows the active screen") {
    temp_project_t project;
    REQUIRE(project_showing(&project, ZOF_SHOW_FW_VER | ZOF_SHOW_SDK_VER | ZOF_SHOW_APP_VER | ZOF_SHOW_BOTTOM));
    screen_step(480);
    CHECK(overlay() == "-");
    screen_step(40);
    CHECK(overlay() == "");
    screen_step(520);
    CHECK(overlay() == std::string("fw ver: fw 9\nsdk ver: ") + zof_sdk_get_version() + "\napp ver: 2.5 noon\n");
    lv_obj_t *cont = lv_obj_get_child(lv_scr_act(), -1), *next = lv_obj_create(nullptr);
    zof_scr_load_anim(next, 0, 0, 0, lv_anim_path_linear);
    screen_step(520);
    CHECK(lv_obj_get_parent(cont) == next);
}

TEST_CASE("the overlay's rate is the refreshes divided by the time of the runs that made them") {
    temp_project_t project;
    REQUIRE(project_showing(&project, ZOF_SHOW_FPS | ZOF_SHOW_MEM));
    // Each run with a refresh takes 20 ms, each other one 3 ms.
    static lv_obj_t *restless = lv_obj_create(lv_scr_act());
    static bool drawing;
    const auto run = [](lv_timer_t *) {
        drawing = !drawing;
        screen_now += drawing ? 20 : 3;
        if (drawing) {
            lv_obj_set_x(restless, lv_obj_get_x(restless) ^ 1);
            lv_refr_now(nullptr);
        }
    };
    lv_timer_create(run, 50, nullptr);
    screen_step(1600);
    // Six in four runs of 20 ms; runs without a refresh do not count.
    CHECK(contains(overlay(), "fps: 75 \nusedmem: "));
}

static void refused_at_the_end(u32 ms) {
    screen_now += ms;
    if (screen_now > 5000) {
        exit(screen_is_golden("power_on_refused") ? 0 : 1);
    }
}

TEST_CASE("a project that is too large is refused on the screen, forever") {
    static temp_project_t project;
    project.write("config/project/zofprj.g", R"({"p_name": "t", "width": 4097, "height": 4096, "views": []})");
    project.open();
    screen_open(480, 272);
    static const zof_clock_t clock = {[] { return screen_now; }, refused_at_the_end};
    zof_clock_set(&clock);
    zof_func_pwon(); // does not return
    FAIL("the project is shown");
}
