// The control core: creating controls from files, the path of a press to the program, common operations, deletion.
#include "view_project.h"

static std::string child_of(u32 parent, u32 id) {
    return ctrl(ZOF_CTRL_OBJ, id, "", form(R"("parent_id": %u)", parent));
}

TEST_CASE("a control that cannot be built is reported and left out, and the view is built without it") {
    view_project_t project;
    std::string said = project.show({
        ctrl(ZOF_CTRL_VIDEO, 1), // no driver plays it
        ctrl(ZOF_CTRL_BAR, 2, R"("minValue": 5, "maxValue": 5)"),
        ctrl(ZOF_CTRL_TILE, 3), // outside of a tile view
        child_of(2, 4),         // its parent could not be created
        ctrl(ZOF_CTRL_LABEL, 5),
        ctrl(ZOF_CTRL_BTN, 5), // an id that is in use
        child_of(5, 6),
    });
    for (const char *line :
         {"err: create ctrl[c1,1] fail", "err: create ctrl[c2,2] fail", "[c3,3] fail",
          "controls[5].property.pub_t.id: the control c5 has the id 5 already; this one is left out"}) {
        CHECK(contains(said, line));
    }
    CHECK(zof_ctrl_get_form_id(1, 2) == nullptr);
    CHECK(at(4)->parent == zof_view_list_get(1));
    CHECK(at(5)->attr->ctrl_type == ZOF_CTRL_LABEL);
    CHECK(lv_obj_get_parent(at(6)->obj) == at(5)->obj);
    CHECK(zof_mbox_s_open(at(5)) == -1);                                // another type's
    CHECK(zof_ctrl_create(lv_scr_act(), at(5), at(5)->attr, 30) == -1); // above the table of types
}

TEST_CASE("a function that cannot use its handle logs the reason, once per call") {
    view_project_t project;
    project.view(2, {ctrl(ZOF_CTRL_SLIDER, 4)});
    project.show({ctrl(ZOF_CTRL_LABEL, 8), ctrl(ZOF_CTRL_IMG, 9), ctrl(ZOF_CTRL_BTN, 10)});
    REQUIRE(zof_ctrl_delete(at(10)) == 0);
    const std::string log = printed([] {
        for (u32 i = 0; i < 3; i++) {
            CHECK(zof_slider_set_value(at(8), 1) == -1);
            CHECK(zof_table_set_cell_value(at(9), 0, 0, "") == -1);
            CHECK(zof_btn_set_txt(at(10), "") == -1);
            CHECK(zof_slider_set_value(zof_ctrl_get_form_id(2, 4), 1) == -1);
            CHECK(zof_ctrl_set_x(zof_ctrl_get_form_id(1, 7), 1) == -1);
            CHECK(zof_ctrl_set_x(zof_ctrl_get_form_id(3, 7), 1) == -1);
            CHECK(at(8));
            CHECK(zof_ctrl_set_x(nullptr, 1) == -1);
        }
    });
    CHECK(log == "zof_slider_set_value: v1/c8 (1/8) is a label\n"
                 "zof_table_set_cell_value: v1/c9 (1/9) is an image\n"
                 "zof_btn_set_txt: v1/c10 (1/10): the control is deleted or not created yet\n"
                 "zof_slider_set_value: v2/c4 (2/4): view 2 is not loaded yet\n"
                 "zof_ctrl_set_x: control 1/7: view 1 has no such control\n"
                 "zof_ctrl_set_x: control 3/7: the project has no view 3\n"
                 "zof_ctrl_set_x: null handle\n");
}

TEST_CASE("parents are found in the order of the file, by the next walk at the latest, and never within themselves") {
    view_project_t project;
    project.view(2, {});
    project.show({child_of(2, 1), ctrl(ZOF_CTRL_OBJ, 2), child_of(3, 3), child_of(5, 4), child_of(4, 5),
                  ctrl(ZOF_CTRL_OBJ, 6, "", R"("pub": true)")});
    lv_obj_t *view = zof_view_list_get(1)->obj;
    CHECK(lv_obj_get_parent(at(1)->obj) == view);
    zof_view_set_dis_view(2);
    const std::string said = printed([] { zof_view_set_dis_view(1); });
    CHECK(lv_obj_get_parent(at(1)->obj) == at(2)->obj);
    CHECK(contains(said, "control 3: its parent 3 is inside it"));
    CHECK(contains(said, "control 4: its parent 5 is inside it"));
}

TEST_CASE("a press reaches the hook and the control's function, and the hook may delete the control") {
    view_project_t project;
    ctrl_funs = {{1, on_event}};
    static std::string hooked;
    project.show({ctrl(ZOF_CTRL_LABEL, 1, "", box(10, 10, 100, 40))});
    zof_ctrl_set_event_all([](u32 view, u32 id, u8 event) {
        if (event != ZOF_EVENT_PRESSING) {
            hooked += form(" %u.%u:%d", view, id, event);
        }
    });
    screen_click(20, 20);
    zof_event_send(at(1), ZOF_EVENT_SCROLL_END_ANIM, nullptr);
    zof_event_send(at(1), ZOF_EVENT_READY, nullptr); // not passed on
    CHECK(taken(events) == " 1:1 1:14 1:8 1:4 1:7 1:47");
    CHECK(taken(hooked) == " 1.1:1 1.1:14 1.1:8 1.1:4 1.1:7 1.1:47");
    zof_ctrl_set_event_all([](u32 view, u32 id, u8 event) {
        if (event == ZOF_EVENT_CLICKED && id == 1) {
            zof_ctrl_delete(zof_ctrl_get_form_id(view, id));
        }
    });
    screen_click(20, 20);
    CHECK_FALSE(contains(taken(events), ":7"));
}

TEST_CASE("a press that slides off is cancelled and does not trigger a neighbour") {
    view_project_t project;
    project.image("a.png", 100, 40, 0xFF0000);
    ctrl_funs = {{1, on_event}, {2, on_event}, {3, on_event}, {4, on_event}, {5, on_event}};
    const std::string no_scroll = R"(, "scrollbar_t": {"dir_e": 0})";
    project.show({ctrl(ZOF_CTRL_LABEL, 1, R"("auto_hight": 1)", box(0, 0, 100, 40)),
                  ctrl(ZOF_CTRL_BTN, 2, "", box(0, 40, 100, 40) + no_scroll),
                  ctrl(ZOF_CTRL_OBJ, 3, "", box(0, 80, 100, 40) + no_scroll),
                  ctrl(ZOF_CTRL_IMG, 4, R"("init_img": "a.png")", box(0, 120, 100, 40)),
                  ctrl(ZOF_CTRL_IMGBTN, 5, R"("img_rel": "a.png")", box(0, 160, 100, 40))});
    const s32 middles[] = {20, 60, 100, 140, 180};
    for (u32 i = 0; i < 5; i++) {
        CAPTURE(i);
        const std::string id = " " + std::to_string(i + 1);
        screen_press(50, middles[i]);
        CHECK(zof_ctrl_state_judge(at(i + 1), LV_STATE_PRESSED) == 1);
        screen_move(50, middles[(i + 1) % 5]); // onto a neighbour
        screen_move(150, 230);
        screen_move(50, middles[i]); // and back: the press is over until the finger is lifted
        screen_release(50, middles[i]);
        const std::string got = taken(events);
        CHECK((contains(got, id + ":3") && got.find(id + ":3") == got.rfind(id + ":3"))); // reported once
        CHECK_FALSE((contains(got, ":7") || contains(got, ":8")));
        screen_click(50, middles[i]); // the next press works
        CHECK(contains(taken(events), id + ":7"));
    }
}

TEST_CASE("a list is flung by its rows, however fast the finger, and a swipe reaches the object that waits for it") {
    view_project_t project;
    ctrl_funs = {{2, on_event}, {3, on_event}, {5, on_event}, {6, on_event}};
    const std::string row = R"("parent_id": 1, "scrollbar_t": {"chain_e": 3}, )";
    const std::string still = R"("scrollbar_t": {"dir_e": 0}, )";
    project.show(
        {ctrl(ZOF_CTRL_OBJ, 1, "", R"("scrollbar_t": {"dir_e": 12, "momentum": true}, )" + box(0, 0, 200, 150)),
         ctrl(ZOF_CTRL_OBJ, 2, "", row + box(0, 0, 160, 50)), ctrl(ZOF_CTRL_OBJ, 3, "", row + box(0, 60, 160, 500)),
         ctrl(ZOF_CTRL_OBJ, 5, "", still + box(0, 160, 320, 80)),
         ctrl(ZOF_CTRL_OBJ, 6, "", R"("parent_id": 5, )" + still + box(10, 10, 40, 40))});
    screen_drag(80, 90, 80, 20, 2); // past the row in one step
    CHECK(zof_ctrl_scroll_get_y(at(1)) > 10);
    CHECK_FALSE(contains(taken(events), ":7"));
    CHECK(zof_ctrl_set_gesture_bubble(at(5), ZOF_FALSE) == 0);
    screen_drag(40, 200, 280, 200, 4);
    CHECK(contains(taken(events), " 5:12"));
}

TEST_CASE("deleting a control leaves an empty record, and its children's records empty too") {
    view_project_t project;
    project.view(2, {});
    project.show({ctrl(ZOF_CTRL_OBJ, 1), child_of(1, 2), ctrl(ZOF_CTRL_LABEL, 3, R"("txt": "x")", R"("parent_id": 2)"),
                  ctrl(ZOF_CTRL_OBJ, 4), ctrl(ZOF_CTRL_OBJ, 5, "", R"("pub": true)")});
    para_t *child = at(3), *gone = at(4);
    CHECK(zof_ctrl_delete(at(1)) == 0);
    for (u32 id : {1, 2, 3}) {
        CHECK((!at(id)->obj && !at(id)->parent && !at(id)->is_created));
    }
    CHECK(zof_label_set_txt(child, "y") == -1);
    CHECK(zof_ctrl_delete(at(1)) == -1);
    CHECK(zof_ctrl_show(1, 1) == at(1)); // nothing is left to create it from
    CHECK(zof_ctrl_del(1, 4) == 0);
    CHECK(zof_ctrl_get_form_id(1, 4) == nullptr);
    zof_ctrl_obj_del(gone);   // now the caller's
    zof_view_set_dis_view(2); // showing the view again recreates them all
    zof_view_set_dis_view(1);
    CHECK(std::string(zof_label_get_text(at(3))) == "x");
    CHECK(lv_obj_get_parent(at(3)->obj) == at(2)->obj);
}

TEST_CASE("a control takes its common properties from the file, and odd values as intended") {
    view_project_t project({ctrl(ZOF_CTRL_OBJ, 1, "", box(10, 20, 100, 40) + R"(, "hidden": true, "t_mode": 0,
                        "scrollbar_t": {"mode_e": 1, "dir_e": 3, "chain_e": 2, "elastic": true})"),
                            ctrl(ZOF_CTRL_OBJ, 2, "", box(50, 60, 20, 20) + R"(, "t_mode": 5)")});
    lv_obj_t *obj = at(1)->obj;
    const u32 flags = LV_OBJ_FLAG_HIDDEN | LV_OBJ_FLAG_CLICKABLE | LV_OBJ_FLAG_SCROLL_CHAIN |
                      LV_OBJ_FLAG_SCROLL_ELASTIC | LV_OBJ_FLAG_SCROLL_MOMENTUM;
    CHECK((obj->flags & flags) == (LV_OBJ_FLAG_HIDDEN | LV_OBJ_FLAG_SCROLL_CHAIN_VER | LV_OBJ_FLAG_SCROLL_ELASTIC));
    CHECK(lv_obj_get_scroll_dir(obj) == LV_DIR_HOR);
    CHECK(lv_obj_has_flag(at(2)->obj, LV_OBJ_FLAG_CLICKABLE)); // LVGL's default
    CHECK(zof_map_relation(5, 5, 5, 1, 2) == 2);               // equal ends
    for (const auto &[angle, tenths] : {std::pair{90, 910}, {360, 0}, {45, 450}, {65430, 654310}}) {
        CHECK(zof_ctrl_rotate_angel(at(1), 3, 4, (u16)angle) == 0);
        CHECK(lv_obj_get_style_transform_angle(obj, 0) == tenths);
    }
}

TEST_CASE("an animation runs along its path, and ends with its object") {
    view_project_t project({ctrl(ZOF_CTRL_OBJ, 1)});
    static s32 reached;
    zof_anim_dsc_t dsc = {};
    dsc.time = 100;
    dsc.start_value = 10;
    dsc.end_value = 110;
    dsc.path = ZOF_ANIM_PATH_LINEAR;
    dsc.repeat_cnt = 0xFFFF;
    dsc.exec_cb = [](void *, s32 value) { reached = value; };
    CHECK(zof_animation_set(at(1), &dsc) == 0);
    screen_step(50);
    CHECK(abs(reached - 60) < 30);
    CHECK(zof_animation_del(at(1), dsc.exec_cb) == 1);
    zof_animation_set(at(1), &dsc);
    zof_ctrl_delete(at(1));
    reached = 0;
    screen_step(200);
    CHECK(reached == 0);
}

// Calls each function with a handle, and with zero for everything else.
template <typename... F> static void all_refuse(zof_ctrl_t *handle, F... functions) {
    auto call = [handle]<typename H, typename... A>(s32 (*function)(H *, A...)) {
        return function((H *)handle, A{}...);
    };
    const s32 results[] = {call(functions)...};
    CHECK(std::count(std::begin(results), std::end(results), -1) == sizeof...(functions));
}

TEST_CASE("any LVGL object is a handle, and every operation is harmless without one") {
    view_project_t project({ctrl(ZOF_CTRL_BTN, 1, R"("txt": "a")")});
    zof_ctrl_t *label = zof_ctrl_get_child(at(1), 0);
    CHECK(zof_label_set_txt(label, "inner") == 0);
    CHECK(std::string(zof_label_get_text(label)) == "inner");
    CHECK(zof_label_get_text(at(1)) == (char *)(intptr_t)-1); // a button
    CHECK(zof_ctrl_get_id_form_ctrl(label) == -1);
    CHECK(zof_ctrl_get_id_form_ctrl(zof_ctrl_obj(at(1))) == 1);
    CHECK(zof_ctrl_get_attr_from_ctrl(nullptr) == (void *)(intptr_t)-1);
    CHECK(zof_ctrl_move_forground(zof_view_list_get(1)) == -1); // it has no parent
    CHECK(zof_ctrl_set_align(zof_view_list_get(1), label, 0, 0, 0) == -1);
    zof_ctrl_zoom_set(at(1), 0); // LVGL divides by it
    screen_click(10, 10);
    para_t empty = {};
    for (zof_ctrl_t *c : {(zof_ctrl_t *)nullptr, (zof_ctrl_t *)&empty}) {
        all_refuse(c, zof_ctrl_set_pos, zof_ctrl_get_x, zof_ctrl_set_size, zof_ctrl_set_hidden, zof_ctrl_set_alpha,
                   zof_ctrl_set_touch, zof_ctrl_set_align, zof_ctrl_move_forground, zof_ctrl_move_background,
                   zof_ctrl_set_scrollbar, zof_ctrl_get_child_sum, zof_ctrl_get_coords, zof_ctrl_scroll_set,
                   zof_ctrl_child_not_scroll, zof_ctrl_update_location, zof_ctrl_force_refresh, zof_ctrl_rotate_angel,
                   zof_ctrl_zoom_set, zof_ctrl_state_judge, zof_ctrl_set_gesture_bubble, zof_ctrl_pub_attr,
                   zof_ctrl_get_id_form_ctrl, zof_animation_set, zof_ctrl_delete, zof_label_set_txt,
                   zof_label_set_dis_mode, zof_label_update_txt, zof_btn_set_txt, zof_btn_set_state, zof_sw_set_state,
                   zof_cb_set_txt, zof_cb_set_checked, zof_img_set_src, zof_img_update_src, zof_imgbtn_set_txt,
                   zof_imgbtn_set_image, zof_imgbtn_get_state, zof_tileview_set_tile_id, zof_tileview_get_tile_id,
                   zof_line_set_points, zof_arc_set_dis, zof_arc_set_value, zof_arc_get_value, zof_arc_del,
                   zof_bar_set_value, zof_bar_get_value, zof_slider_set_value, zof_slider_get_value,
                   zof_spinbox_get_value, zof_spinbox_increment);
        CHECK(zof_animation_del(c, nullptr) == 255);
        CHECK(zof_ctrl_get_child(c, 0) == nullptr);
    }
}
