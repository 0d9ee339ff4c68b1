// Arcs, bars, sliders and spin boxes.
#include "view_project.h"

static std::string range(s32 min, s32 max) {
    return form(R"("minValue": %d, "maxValue": %d)", min, max);
}

TEST_CASE("a sliding value gives way to a finger and to a new range") {
    view_project_t project({ctrl(ZOF_CTRL_SLIDER, 1, range(0, 100) + R"(, "anim_time": 200)", box(0, 0, 200, 20))});
    zof_slider_set_value(at(1), 100);
    screen_click(50, 10);
    CHECK(zof_slider_get_value(at(1)) == 25);
    zof_slider_set_value(at(1), 100);
    zof_slider_set_range(at(1), 0, 50);
    screen_step(300);
    CHECK(zof_slider_get_value(at(1)) == 50);
}

TEST_CASE("an arc derives its change rate from its range, has a knob only on request, and stays where it is held") {
    const u32 spans[][3] = {{0, 20, 2000}, {0, 21, 720}, {1, 10, 6000}, {0, 10, 2000}, {3, 3, 720}, {9, 0, 720}};
    view_project_t project;
    std::vector<std::string> controls;
    for (const auto &[min, max, rate] : spans) {
        controls.push_back(
            ctrl(ZOF_CTRL_ARC, (u32)controls.size(), R"("range_t": {)" + range((s32)min, (s32)max) + "}"));
    }
    controls.push_back(ctrl(ZOF_CTRL_ARC, 10, R"("range_t": {"minValue": 0, "maxValue": 9}, "arc_value": 70000,
        "angle_t": {"end_angle": 270}, "arc_t_main": {"width": 10}, "arc_t_inc": {"width": 10}, "arc_main_img": "none.png")",
                            box(200, 0, 100, 100)));
    project.show(controls);
    for (u32 id = 0; id < 6; id++) {
        CHECK(((lv_arc_t *)at(id)->obj)->chg_rate == spans[id][2]);
    }
    CHECK(zof_arc_get_value(at(10)) == 9);
    CHECK(lv_obj_get_style_bg_opa(at(10)->obj, LV_PART_KNOB) == 0);
    lv_obj_del(at(10)->obj);
    CHECK(zof_ctrl_show(1, 10) == at(10)); // its path is not leaked
    screen_press(250, 95);
    screen_step(1000);
    for (u32 held = 0; held < 10000; held += 40) {
        screen_step(40);
        REQUIRE(zof_arc_get_value(at(10)) == 3);
    }
    screen_release(250, 95);
}

TEST_CASE("a spin box keeps its format, its step and its limits") {
    view_project_t project;
    ctrl_funs = {{1, on_event}};
    const std::string said = project.show(
        {ctrl(ZOF_CTRL_SPINBOX, 1, R"("range_max": 2100, "step": 10, "int_cnt": 2, "dec_cnt": 2, "i_value": 500)"),
         ctrl(ZOF_CTRL_SPINBOX, 2, R"("range_min": -2147483648, "range_max": 2147483646, "step": 4000000000,
             "int_cnt": 200, "i_value": 2147483646)",
              box(0, 100, 200, 40)),
         ctrl(ZOF_CTRL_SPINBOX, 3, R"("range_max": 9, "step": 1)", box(0, 160, 100, 40))});
    CHECK(contains(said, "spin box 3: no digits"));
    auto text = [](u32 id) { return std::string(lv_textarea_get_text(at(id)->obj)); };
    taken(events);
    zof_spinbox_increment(at(1));
    CHECK(taken(events) == " 1:28"); // reported once
    CHECK(text(1) == "05.10");
    zof_spinbox_step_prev(at(1)); // ten times the step
    zof_spinbox_decrement(at(1));
    CHECK(text(1) == "04.10");
    zof_spinbox_step_prev(at(2)); // there is no larger step
    zof_spinbox_increment(at(2));
    CHECK(zof_spinbox_get_value(at(2)) == 2147483646);
    zof_spinbox_decrement(at(2));
    CHECK(zof_spinbox_get_value(at(2)) == -1);
    screen_click(50, 120);
    screen_click(50, 180); // one digit: the click's search ends
    CHECK(zof_spinbox_get_value(at(3)) == 0);
}
