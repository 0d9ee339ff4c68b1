// Views: the order of the program's calls, lifetimes, and what each layer does.
#include "view_project.h"

static const char *on_view = R"("pub": true)";

static bool there(u32 view, u32 id) {
    const para_t *record = zof_ctrl_get_form_id(view, id);
    return record && record->obj && record->is_created;
}

static s32 place(u32 view, u32 id) {
    return (s32)lv_obj_get_index(at(id, view)->obj);
}

static std::string plain(u32 id) {
    return ctrl(ZOF_CTRL_OBJ, id);
}

static std::string brief(u32 id, const std::string &more = "") {
    return ctrl(ZOF_CTRL_OBJ, id, "", std::string(on_view) + more);
}

TEST_CASE("a switch leaves the old view, clears it, and builds and enters the new one") {
    view_project_t project;
    project.view(1, {plain(1), brief(2)});
    project.view(2, {plain(1), brief(2), plain(3)});
    project.open(320, 240);
    CHECK(zof_view_set_dis_view(1) == 0);
    CHECK(zof_view_set_dis_view(1) == 0);
    CHECK(zof_view_load(2) == 0);
    CHECK(taken(calls) == " init1 entry1 init2");
    CHECK(there(2, 3));
    zof_ctrl_set_x(at(1, 2), 33);

    CHECK(zof_view_set_dis_view(2) == 0);
    CHECK(taken(calls) == " exit1 entry2");
    CHECK((!there(1, 2) && there(1, 1) && there(2, 2)));
    CHECK(place(2, 2) == 1); // created later, but where the file has it

    zof_view_set_dis_view(1);
    zof_view_set_dis_view(2);
    CHECK(taken(calls) == " exit2 entry1 exit1 entry2");
    CHECK(lv_obj_get_x(at(1, 2)->obj) == 33); // a control that is not short-lived keeps its state
    CHECK(zof_view_delete(2) == 0);
}

TEST_CASE("missing views are reported and change nothing") {
    view_project_t project;
    project.view(1, {plain(1)});
    project.pages += R"(, {"pageId": 2, "pageName": "gone.g"}, {"pageId": 4, "pageName": "v1.g"})"
                     R"(, {"pageId": 77, "pageName": "v77.g"})";
    project.write("config/view/v77.g", R"({"view": {"v_id": 77}, "controls": []})");
    project.open(320, 240);
    for (const auto &[id, line] : {std::pair{2, "gone.g"}, {77, "no functions for v_id 77"}, {6, "view 6"}}) {
        const u32 view = (u32)id;
        CHECK(contains(printed([=] { CHECK(zof_view_load(view) == -1); }), line));
        printed([=] { CHECK(zof_view_set_dis_view_anim(view, 0, 0, 0, 1) + zof_view_delete(view) == -2); });
    }
    for (u32 i = 0; i < 2; i++) {
        printed([] { zof_view_set_dis_view(4); }); // a file whose own id is 1: it makes view 1, once
    }
    CHECK(zof_prj_get_cur()->view_list->count == 1);
}

TEST_CASE("with a transition the short-lived controls are deleted when the screen is unloaded") {
    view_project_t project;
    project.view(1, {brief(1)});
    project.view(2, {brief(1)});
    project.view(3, {brief(1)}, R"("layer": 1)");
    project.view(4, {}, R"("layer": 1)");
    project.open(320, 240);
    zof_view_set_dis_view(1);

    zof_view_set_dis_view_anim(2, ZOF_SCR_LOAD_ANIM_MOVE_LEFT, 200, 0, ZOF_ANIM_PATH_LINEAR);
    screen_step(100);
    CHECK(there(1, 1));
    screen_step(200);
    CHECK((!there(1, 1) && there(2, 1)));
    // Back before the old screen was unloaded: it is in use again, so it keeps its controls.
    zof_view_set_dis_view_anim(1, ZOF_SCR_LOAD_ANIM_FADE_ON, 200, 0, ZOF_ANIM_PATH_LINEAR);
    screen_step(50);
    zof_view_set_dis_view_anim(2, ZOF_SCR_LOAD_ANIM_FADE_ON, 200, 0, ZOF_ANIM_PATH_LINEAR);
    screen_step(500);
    CHECK((!there(1, 1) && there(2, 1)));

    taken(calls);
    zof_view_set_dis_view_anim(1, 0, 0, 0, ZOF_ANIM_PATH_NONE); // entered, but the screen stays
    CHECK(taken(calls) == " exit2 entry1");
    CHECK(lv_scr_act() == zof_view_list_get(2)->obj);

    // A layer without screens keeps them.
    zof_view_set_dis_view(3);
    zof_view_set_dis_view_anim(4, 0, 100, 0, 1);
    screen_step(300);
    CHECK(there(3, 1));
}

TEST_CASE("a control that stays is parked while its short-lived parent is gone") {
    view_project_t project;
    project.view(1, {brief(1), ctrl(ZOF_CTRL_OBJ, 2, "", R"("parent_id": 1)"), plain(3)});
    project.view(2, {});
    project.open(320, 240);
    zof_view_set_dis_view(1);
    lv_obj_t *child = at(2, 1)->obj;
    for (int i = 0; i < 3; i++) {
        zof_view_set_dis_view(2);
        CHECK(lv_obj_get_parent(child) == zof_view_list_get(1)->obj);
        zof_view_set_dis_view(1);
        CHECK(at(2, 1)->obj == child);
        CHECK(lv_obj_get_parent(child) == at(1, 1)->obj);
        CHECK(place(1, 3) == 1);
    }
}

TEST_CASE("a view above takes touches only if it is modal, and hiding it restores the display's own layer") {
    view_project_t project;
    ctrl_funs = {{1, on_event}};
    project.view(1, {ctrl(ZOF_CTRL_BTN, 1, "", box(0, 0, 320, 240))});
    project.view(2, {ctrl(ZOF_CTRL_LABEL, 2, R"("txt": "x")", R"("t_mode": 0)")}, R"("layer": 1, "model_en": false)");
    project.view(3, {}, R"("layer": 2, "model_en": true)");
    project.open(320, 240);
    lv_obj_t *top = lv_layer_top(), *sys = lv_layer_sys();
    zof_view_set_dis_view(1);
    zof_view_set_dis_view(2);
    screen_click(200, 200);
    CHECK(contains(taken(events), " 1:7"));

    zof_view_set_dis_view(3);
    screen_click(200, 200);
    CHECK_FALSE(contains(taken(events), " 1:7"));

    CHECK(zof_view_hide_layer(ZOF_LAYER_TOP) == 0);
    CHECK(zof_view_hide_layer(ZOF_LAYER_STATE) == 0);
    CHECK((lv_layer_top() == top && lv_layer_sys() == sys));
}

TEST_CASE("backgrounds show their colour, opacity and picture where they can") {
    view_project_t project;
    project.image("red.png", 20, 20, 0xFF0000);
    project.view(1, {}, R"("bg_color": 65280, "bg_scale": 128, "bg_image": "red.png")");
    project.view(2, {}, R"("layer": 3, "bg_color": 255)");
    project.open(320, 240);
    zof_view_set_dis_view(1);
    screen_check({{10, 10, 0xFF0000}, {100, 100, 0x00FF00}}); // nothing behind it: opaque whatever the file says

    zof_view_set_dis_view(2);
    zof_view_set_bg_opa(1, 128);
    CHECK(screen_pixel(100, 100) == 0x00807F);
    CHECK(zof_view_set_bgcolor(1, 0xFF102030) == 0);
    zof_mutex_lock(dis_mutex);
    CHECK(zof_view_force_refresh() == 0); // at once, also while the caller holds the lock
    zof_mutex_unlock(dis_mutex);
    CHECK((sdl_frame_get(nullptr, nullptr)[100 * 320 + 100] & 0xFFFFFF) == 0x102030);

    CHECK(zof_view_set_bg(1, zof_view_list_get(1)->attr->bg_image) == 0); // its own name
    CHECK(screen_pixel(10, 10) == 0xFF0000);
    zof_view_set_bg(1, "missing.png");
    CHECK(screen_pixel(10, 10) == 0x102030);
    zof_size_t size = {};
    CHECK(zof_view_get_dis_wh(&size) == -1); // and it returns the size all the same
}
