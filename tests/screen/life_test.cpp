// The life of every control: it comes and goes with its view and leaves nothing behind, and it may be deleted in any of
// its own events.
#include "every_control.h"

static void life_up(view_project_t &project) {
    std::filesystem::copy(ZOF_MEDIA_DIR, project.path("image"), std::filesystem::copy_options::recursive);
    files_of_each(project);
    project.view(1, one_of_each(R"("pub": true)"), R"("bg_image": "red.png")");
    project.view(2, {});
    project.open(640, 240);
}

// Calls `action` for each control that exists.
template <typename F> static void each(F action) {
    for (u32 id = LABEL; id < END; id++) {
        para_t *c = zof_ctrl_get_form_id(1, id);
        if (c && c->obj) {
            action(c);
        }
    }
}

// Puts a finger on each control and slides it a little, and on one option of the open list.
static void touch_all() {
    each([](para_t *c) {
        const lv_area_t a = c->obj->coords;
        const s32 x = (a.x1 + a.x2) / 2, y = (a.y1 + a.y2) / 2;
        screen_drag(x, y, x + 15, y - 12, 2);
    });
    if (at(DROP)->obj && zof_droplist_open(at(DROP)) == 0) {
        screen_step(40);
        const lv_area_t a = lv_dropdown_get_list(at(DROP)->obj)->coords;
        screen_click((a.x1 + a.x2) / 2, a.y2 - 12);
    }
}

TEST_CASE("controls come and go with their view and leave nothing behind") {
    view_project_t project;
    u32 memory[2] = {};
    life_up(project);
    for (u32 turn = 0; turn < 20; turn++) {
        printed([] { zof_view_set_dis_view(1); }); // no driver plays the video, which is logged
        touch_all();
        for (u32 id : {LIST, DROP, ROLLER}) { // deleted with its parent's object and recreated
            lv_obj_del(at(id)->obj);
            zof_ctrl_show(1, id);
        }
        zof_list_add_btn(at(LIST), "red.png", "#hello");
        zof_droplist_add_option(at(DROP), "more", 1);
        zof_droplist_open(at(DROP));
        zof_rollist_add_option(at(ROLLER), "more", 1);
        zof_rollist_set_selected(at(ROLLER), 2, 1);
        zof_table_set_cell_value(at(TABLE), 3, 3, "more");
        zof_chart_set_next_value2(at(CHART), zof_chart_add_series(at(CHART), 0, 0), 1, 1);
        zof_keyboard_set_txtbox(at(KEYBOARD), at(TXTBOX));
        zof_mbox_start_auto_close(at(MBOX), 20);
        zof_gif_set_src(at(GIF), turn % 3 ? "spots.gif" : "ever.gif");
        zof_qrcode_updata_data(at(QR), "another text");
        screen_step(60);
        zof_lang_set(turn % 2 ? "en" : "de");
        CHECK(str(zof_list_get_index_str(at(LIST), 2)) == (turn % 2 ? "hello" : "a longer hello"));
        zof_view_set_dis_view(2);
        screen_step(60);
        each([](para_t *) { CHECK(false); });
        const u32 now = zof_mem_count() + zof_lv_mem_count();
        CHECK((turn < 10 || now == memory[turn % 2]));
        memory[turn % 2] = now;
    }
}

static u32 deadly;

TEST_CASE("controls may be deleted in their own events") {
    const struct {
        u32 event;
        u32 gone; // how many controls, at least
    } rows[] = {{ZOF_EVENT_PRESSED, 27},  {ZOF_EVENT_PRESSING, 27},      {ZOF_EVENT_RELEASED, 21},
                {ZOF_EVENT_CLICKED, 20},  {ZOF_EVENT_VALUE_CHANGED, 12}, {ZOF_EVENT_SCROLL, 3},
                {ZOF_EVENT_SCROLL_END, 6}};
    view_project_t project;
    ctrl_funs.clear();
    for (u32 id = LABEL; id < END; id++) {
        ctrl_funs.push_back({id, [](zof_ctrl_t *ctrl, zof_event_e event) {
                                 if (event == deadly) {
                                     CHECK(zof_ctrl_delete((para_t *)ctrl) == 0);
                                 }
                             }});
    }
    life_up(project);
    for (const auto &row : rows) {
        deadly = 0;
        printed([] { zof_view_set_dis_view(1); });
        u32 gone = 0;
        each([&](para_t *) { gone++; });
        deadly = row.event;
        touch_all();
        zof_spinbox_increment(at(SPIN));
        each([](para_t *c) { zof_ctrl_scroll_set(c, 9, 9, 0); });
        screen_step(600);
        each([&](para_t *) { gone--; });
        CAPTURE(row.event);
        CHECK(gone >= row.gone);
        zof_view_set_dis_view(2);
    }
}
