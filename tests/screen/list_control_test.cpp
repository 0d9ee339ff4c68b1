// Lists, drop lists and roller lists: their texts, how they follow touch and language, and those looks that the gallery
// does not show.
#include "looks.h"

static std::string shown(zof_ctrl_t *ctrl) {
    char text[64];
    bool drop = lv_obj_has_class(zof_ctrl_obj(ctrl), &lv_dropdown_class);
    CHECK((drop ? zof_droplist_get_selected_str : zof_rollist_get_selected_str)(ctrl, text, sizeof(text)) == 0);
    return text;
}

static const std::string scrolls = R"(, "scrollbar_t": {"dir_e": 12, "mode_e": 0, "momentum": true})";
static const std::string modes = R"("options": "#off\n#low\n#high\nCustom")";

TEST_CASE("a list adds, changes and removes its buttons, and keeps texts and icons through a language change") {
    view_project_t project;
    looks_open(project);
    project.image("dot.png", 16, 16, 0x1F6FEB);
    ctrl_funs = {{1, on_event}};
    project.show({ctrl(ZOF_CTRL_LIST, 1,
                       R"("btns_t": [{"txt": "#low", "image_num": "dot.png"}, {"txt": "#off"},
                                     {"txt": "plain", "image_num": "\u001fx.png"}])",
                       box(20, 20, 200, 200) + scrolls, looks)});
    para_t *list = at(1);
    auto texts = [&] {
        std::string out;
        for (u32 i = 0; zof_list_get_index_btn(list, i); i++) {
            out += (i ? "|" : "") + std::string(zof_list_get_index_str(list, i));
        }
        return out;
    };
    CHECK(texts() == "Low|Off|plain");
    CHECK(lv_obj_check_type(zof_ctrl_obj(zof_list_get_index_label(list, 2)), &lv_label_class)); // not a file name
    CHECK(zof_list_add_btn(list, "dot.png", "#high"));
    CHECK(zof_list_set_index_str(list, 2, "#off") == 0);
    CHECK(zof_list_del_btn(list, 1) == 0);
    zof_lang_set("de");
    CHECK(texts() == "Niedrig|Aus|Hohe Leistung");
    screen_step(50);
    screen_click(60, 40); // on the first button: the list gets the event
    CHECK(contains(taken(events), " 1:7"));
    CHECK(zof_list_get_select_index(list) == 0);
}

TEST_CASE("a drop list is opened, used and changed, open or closed") {
    view_project_t project;
    looks_open(project);
    ctrl_funs = {{1, on_event}};
    project.show(
        {ctrl(ZOF_CTRL_DROPLIST, 1, modes + R"(, "dir_t": 8)", box(20, 20, 160, 36), looks),
         ctrl(ZOF_CTRL_DROPLIST, 2, modes, box(200, 20, 100, 36), look(LV_PART_MAIN, 0, 1, CARD, TEXT, LINE, 40))});
    para_t *drop = at(1);
    lv_obj_t *list = lv_dropdown_get_list(drop->obj);
    screen_click(60, 40);
    taken(events);
    screen_click(60, list->coords.y1 + 40); // the second line
    CHECK(contains(taken(events), " 1:28"));
    zof_droplist_open(drop);
    zof_lang_set("de"); // the open list shows the new texts and is as wide as the widest
    CHECK(std::string(lv_label_get_text(lv_obj_get_child(list, 0))) == "Aus\nNiedrig\nHohe Leistung\nCustom");
    zof_droplist_set_selected(drop, 70000);
    CHECK(shown(drop) == "Custom");
    const char *one[] = {"#two"};
    CHECK(zof_droplist_set_options(drop, one, 1) == 0);
    CHECK(zof_droplist_del_option(drop, 0) == -1);
    CHECK(std::string(lv_dropdown_get_options(drop->obj)) == "#two"); // still shown, though the list is empty now
    // A touch in the padding above the options of an open list chooses the first.
    zof_droplist_set_selected(at(2), 2);
    zof_droplist_open(at(2));
    screen_step(50);
    screen_click(240, lv_dropdown_get_list(at(2)->obj)->coords.y1 + 4);
    CHECK(zof_droplist_get_selected(at(2)) == 0);
    zof_droplist_open(at(2));
    zof_ctrl_set_hidden(at(2), ZOF_TRUE);
    CHECK(lv_dropdown_is_open(at(2)->obj) == false);
}

TEST_CASE("a roller turns to what is requested or touched, and keeps its mode and position") {
    view_project_t project;
    looks_open(project);
    ctrl_funs = {{1, on_event}, {2, on_event}};
    project.show({ctrl(ZOF_CTRL_ROLLIST, 1, modes + R"(, "row_cnt": 3)", box(20, 20, 120, 10), looks),
                  ctrl(ZOF_CTRL_ROLLIST, 2, modes + R"(, "rol_mode": 1)", box(160, 20, 120, 110), looks)});
    const auto endless = [](u32 id) { return ((const lv_roller_t *)at(id)->obj)->mode == LV_ROLLER_MODE_INFINITE; };
    for (u32 id : {1, 2}) {
        CAPTURE(id);
        para_t *roller = at(id);
        zof_rollist_set_selected(roller, 1, 0);
        zof_lang_set("de");
        const s32 x = roller->obj->coords.x1 + 60;
        screen_drag(x, 70, x, 35, 4);
        screen_step(600);
        CHECK(contains(taken(events), form(" %u:28", id)));
        CHECK(zof_rollist_get_selected(roller) > 1);
        CHECK(zof_rollist_add_option(roller, "#off", 99) == 0);
        CHECK(zof_rollist_set_selected(roller, 70000, 0) == 0);
        CHECK(shown(roller) == "Aus");
        CHECK(endless(id) == (id == 2));
        zof_lang_set("en");
        screen_step(50);
    }
    const char *one[] = {"#off"};
    CHECK(zof_rollist_set_options(at(1), one, 1, 1) == 0);
    zof_rollist_add_option(at(1), "#high", 2);
    CHECK(endless(1));                                    // the mode it was given lasts
    CHECK(zof_rollist_set_line_space(at(1), -1000) == 0); // lines cannot have less than a pixel
    screen_drag(80, 24, 80, 22, 2);
}

// One row for each picture.
// clang-format off
TEST_CASE("pictures of lists") {
    const std::string place = box(40, 20, 220, 200) + scrolls;
    const std::string few = R"("btns_t": [{"txt": "#off"}, {"txt": "#low"}, {"txt": "#high"}, {"txt": "Custom"}])";
    const std::string more = R"("anim_time": 200, "btns_t": [{"txt": "#off", "image_num": "dot.png"},
        {"txt": "#low", "image_num": "dot.png"}, {"txt": "No picture"}, {"txt": "#high", "image_num": "dot.png"},
        {"txt": "A text that is far too long for its line", "image_num": "dot.png"},
        {"txt": "Last", "image_num": "dot.png"}])";
    looks_of({
        ctrl(ZOF_CTRL_LIST, 1, few, place, looks),
        ctrl(ZOF_CTRL_LIST, 2, more, place, looks),
    }, {
        {"list_pressed", 1, [] { screen_press(100, 70); }},
        {"list_styled_button", 1, [] { zof_list_add_btns_style(at(1), 3, LV_PART_MAIN, 0xF9E2C0, 12, 200); }},
        {"list_scrolled_to_end", 2, [] { zof_list_focus(at(2), 5); screen_step(1000); }},
        {"list_empty", 2, [] { zof_list_remove_all(at(2)); }},
    });
}

static void drop_open(u32 id, u32 selected = 0) {
    for (u32 other = 1; other <= 5; other++) {
        zof_droplist_close(at(other));
    }
    zof_droplist_set_selected(at(id), selected);
    CHECK(zof_droplist_open(at(id)) == 0);
}

TEST_CASE("pictures of drop lists") {
    const auto drop = [](u32 id, u32 dir, u32 align, s32 x, s32 y, const std::string &options = modes) {
        return ctrl(ZOF_CTRL_DROPLIST, id, options + form(R"(, "dir_t": %u, "txt_align_e": %u)", dir, align),
                    box(x, y, 150, 38), looks);
    };
    looks_of({
        drop(1, LV_DIR_BOTTOM, 1, 80, 30), drop(2, LV_DIR_LEFT, 3, 160, 60), drop(3, LV_DIR_RIGHT, 1, 20, 60),
        drop(4, LV_DIR_BOTTOM, 1, 80, 190),
        drop(5, LV_DIR_BOTTOM, 0, 80, 60, R"("options": "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12")"),
    }, {
        {"droplist_open_left_end", 2, [] { drop_open(2); }},
        {"droplist_open_right", 3, [] { drop_open(3); }},
        {"droplist_open_no_room_below", 4, [] { drop_open(4); }},
        {"droplist_open_scrolls", 5, [] { drop_open(5); }},
        {"droplist_open_at_eleventh", 5, [] { drop_open(5, 10); }},
        {"droplist_open_pressed_de", 1, [] { drop_open(1, 2); screen_press(100, 105); zof_lang_set("de"); }},
    });
}

TEST_CASE("pictures of rollers") {
    const auto roller = [](u32 id, const std::string &keys) {
        return ctrl(ZOF_CTRL_ROLLIST, id, modes + keys, box(80, 20, 160, 200), looks);
    };
    looks_of({
        roller(1, R"(, "row_cnt": 5, "rol_mode": 1, "txt_align_e": 2)"),
        roller(2, R"(, "row_cnt": 4, "txt_align_e": 1)"),
        roller(3, R"(, "row_cnt": 4, "txt_align_e": 3)"),
        roller(4, R"(, "row_cnt": 1, "txt_align_e": 2)"),
        roller(5, R"(, "row_cnt": 3, "txt_align_e": 2)"),
    }, {
        {"roller_endless_dragged", 1, [] { screen_press(160, 70); screen_move(160, 58); }},
        {"roller_left", 2},
        {"roller_right", 3},
        {"roller_row_1", 4},
        {"roller_rows_3_last", 5, [] { zof_rollist_set_selected(at(5), 3, 0); }},
        {"roller_line_space", 5, [] { zof_rollist_set_line_space(at(5), 30); }},
    });
}
// clang-format on
