// Lists, drop lists and roller lists: their texts, how they follow touch and language, and how they look.
#include "looks.h"

// clang-format off
static std::string list_looks(const palette &c) {
    return looks({
        {.bg = c.card, .radius = 8, .border = 1, .border_color = c.line, .pad = 4},
        {.sect = 1, .bg = c.card, .radius = 5, .text = c.text, .border = 1, .border_color = c.line,
         .sides = LV_BORDER_SIDE_BOTTOM, .pad = 8},
        {.state = LV_STATE_PRESSED, .sect = 1, .bg = c.press, .radius = 5, .text = c.text, .border = 1,
         .border_color = c.press, .pad = 8},
        {.state = LV_STATE_CHECKED, .sect = 1, .bg = c.accent, .radius = 5, .text = c.accent_text, .border = 1,
         .border_color = c.accent, .pad = 8},
    });
}

static std::string drop_looks(const palette &c) {
    const u32 selected = LV_PART_SELECTED;
    return looks({
        {.bg = c.card, .radius = 6, .text = c.text, .border = 1, .border_color = c.line, .pad = 10, .top = 9},
        {.state = LV_STATE_CHECKED, .bg = c.press, .radius = 6, .text = c.text, .border = 2, .border_color = c.accent,
         .pad = 10, .top = 8},
        {.sect = 1, .bg = c.card, .radius = 6, .text = c.text, .border = 1, .border_color = c.line, .pad = 10,
         .top = 6, .shadow = 12},
        {.part = selected, .state = LV_STATE_CHECKED, .sect = 1, .bg = c.accent, .text = c.accent_text},
        {.part = selected, .state = LV_STATE_PRESSED, .sect = 1, .bg = c.press, .text = c.text},
        {.part = selected, .state = LV_STATE_CHECKED | LV_STATE_PRESSED, .sect = 1, .bg = c.accent,
         .text = c.accent_text},
    });
}

static std::string roll_looks(const palette &c) {
    return looks({
        {.bg = c.card, .radius = 8, .text = c.mute, .border = 1, .border_color = c.line, .pad = 10},
        {.part = LV_PART_SELECTED, .bg = c.accent, .radius = 7, .text = c.accent_text},
    });
}
// clang-format on

static void languages(view_project_t &project) {
    project.more += R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"off": "Off", "low": "Low", "high": "High power", "two": "a\nb"})");
    project.write("config/languages/de.g", R"({"off": "Aus", "low": "Niedrig", "high": "Hohe Leistung"})");
}

static std::string list_of(const std::vector<std::pair<std::string, std::string>> &btns) {
    std::string out;
    for (const auto &[image, text] : btns) {
        out += (out.empty() ? "" : ", ") + (R"({"image_num": ")" + image + R"(", "txt": ")" + text + "\"}");
    }
    return R"("anim_time": 200, "btns_t": [)" + out + "]";
}

static std::string shown(zof_ctrl_t *ctrl) {
    char text[64];
    bool drop = lv_obj_has_class(zof_ctrl_obj(ctrl), &lv_dropdown_class);
    CHECK((drop ? zof_droplist_get_selected_str : zof_rollist_get_selected_str)(ctrl, text, sizeof(text)) == 0);
    return text;
}

static std::string options(zof_ctrl_t *ctrl) {
    return lv_dropdown_get_options(zof_ctrl_obj(ctrl));
}

static const std::string scrolls = R"(, "scrollbar_t": {"dir_e": 12, "mode_e": 0, "momentum": true})";
static const std::string modes = R"("options": "#off\n#low\n#high\nCustom")";

TEST_CASE("options are kept as they were given, and one string is made of them") {
    db_list *list = db_list_create();
    char *slot = nullptr;
    auto is = [&](const char *made, const char *want) { return made == slot && std::string(slot) == want; };
    zof_listtxt_str2list("one\n\ntwo\n", list);
    CHECK(list->count == 4); // the last one, empty, counts too
    CHECK(is(zof_listtxt_list2str(list, &slot), "one\n\ntwo\n"));
    CHECK(is(zof_listtxt_del_option(list, &slot, 3), "one\n\ntwo"));
    CHECK(is(zof_listtxt_add_option(list, &slot, "first", 0), "first\none\n\ntwo"));
    CHECK(is(zof_listtxt_add_option(list, &slot, "last", 99), "first\none\n\ntwo\nlast"));
    CHECK(is(zof_listtxt_add_option(list, &slot, "a\nb", 2), "first\none\na\nb\n\ntwo\nlast"));
    CHECK(list->count == 6);
    CHECK(is(zof_listtxt_modify_option(list, &slot, "c", 2), "first\none\nc\n\ntwo\nlast"));
    CHECK(zof_listtxt_modify_option(list, &slot, "d", 6) == nullptr);
    CHECK(zof_listtxt_del_option(list, &slot, UINT32_MAX) == nullptr);
    const char *few[] = {"x", nullptr, "y"};
    CHECK(is(zof_listtxt_change_option(list, &slot, few, 3), "x\ny"));
    CHECK(zof_listtxt_change_option(list, &slot, few, 0) == nullptr);
    CHECK(std::string(slot) == "x\ny"); // what was shown stays
    CHECK(zof_listtxt_add_option(list, &slot, nullptr, 0) == nullptr);
    zof_listtxt_str2list(std::string(5000, '\n').c_str(), list);
    CHECK(contains(printed([&] { zof_listtxt_list2str(list, &slot); }), "only the first 4096 lines"));
    CHECK(std::string(slot).size() == ZOF_LISTTXT_LINES - 1);
    zof_listtxt_destroy(&list);
    zof_free(slot);
}

TEST_CASE("a list adds, changes and removes its buttons, and keeps texts and icons through a change of language") {
    view_project_t project;
    looks_open(project);
    languages(project);
    project.image("dot.png", 16, 16, 0x1F6FEB);
    ctrl_funs = {{1, on_event}};
    project.show({ctrl(ZOF_CTRL_LIST, 1, list_of({{"dot.png", "#low"}, {"", "#off"}, {"\\u001fx.png", "plain"}}),
                       box(20, 20, 200, 200) + scrolls, list_looks(day))});
    para_t *list = at(1);
    auto text = [&](u32 index) { return std::string(zof_list_get_index_str(list, index)); };
    CHECK(text(0) == "Low");
    CHECK(lv_obj_check_type(zof_ctrl_obj(zof_list_get_index_label(list, 0)), &lv_img_class)); // child 0 is the icon
    CHECK(lv_obj_check_type(zof_ctrl_obj(zof_list_get_index_label(list, 1)), &lv_label_class));
    CHECK(lv_obj_check_type(zof_ctrl_obj(zof_list_get_index_label(list, 2)), &lv_label_class)); // no name of a file
    zof_ctrl_t *added = zof_list_add_btn(list, "dot.png", "#high");
    CHECK(added == zof_list_get_index_btn(list, 3));
    CHECK(zof_list_set_index_str(list, 2, "#off") == 0);
    CHECK(zof_list_del_btn(list, 1) == 0);
    CHECK(zof_list_del_btn(list, 3) == -1);
    CHECK(zof_lang_set("de") == 0);
    CHECK(text(0) == "Niedrig");
    CHECK(text(1) == "Aus");
    CHECK(text(2) == "Hohe Leistung");
    CHECK(zof_list_set_select_index(list, zof_list_get_index_btn(list, 1)) == 0);
    CHECK(zof_list_get_select_index(list) == -1); // which asks for the focus
    screen_step(50);
    taken(events);
    screen_click(60, 40); // on the first button: it is the list that hears of it
    CHECK(contains(taken(events), " 1:7"));
    CHECK(zof_list_get_select_index(list) == 0);
    CHECK(zof_list_set_select_index(list, list) == -1);
    CHECK(zof_ctrl_state_judge(zof_list_get_index_btn(list, 1), LV_STATE_CHECKED) == 1);
    CHECK(zof_list_add_btns_style(list, 2, LV_PART_MAIN, 0xFF0000, 4, 128) == 0);
    for (u32 i = 0; i < 12; i++) {
        zof_list_add_btn(list, nullptr, nullptr);
    }
    CHECK(zof_list_focus(list, 14) == 0);
    CHECK(zof_list_focus(list, 15) == -1);
    screen_step(600);
    CHECK(zof_ctrl_scroll_get_y(list) > 100);
    CHECK(std::string(zof_list_get_index_str(list, 14)) == "");
    CHECK(zof_list_remove_all(list) == 0);
    CHECK(zof_list_get_index_btn(list, 0) == nullptr);
    CHECK(zof_lang_set("en") == 0);
    CHECK(zof_ctrl_del(1, 1) == 0);
    CHECK(zof_list_add_btn(list, nullptr, "x") == nullptr);
    zof_ctrl_obj_del(list);
}

TEST_CASE("a drop list is opened, chosen from and changed, open or closed") {
    view_project_t project;
    looks_open(project);
    languages(project);
    ctrl_funs = {{1, on_event}};
    project.show({ctrl(ZOF_CTRL_DROPLIST, 1, modes + R"(, "dir_t": 8)", box(20, 20, 160, 36), drop_looks(day))});
    para_t *drop = at(1);
    lv_obj_t *list = lv_dropdown_get_list(drop->obj);
    CHECK(shown(drop) == "Off");
    screen_click(60, 40);
    CHECK(lv_dropdown_is_open(drop->obj));
    taken(events);
    screen_click(60, list->coords.y1 + 40); // the second line
    CHECK(contains(taken(events), " 1:28"));
    CHECK(shown(drop) == "Low");
    CHECK(zof_droplist_open(drop) == 0);
    CHECK(zof_lang_set("de") == 0); // the open list shows the new texts, of which the widest makes the width
    CHECK(shown(drop) == "Niedrig");
    CHECK(std::string(lv_label_get_text(lv_obj_get_child(list, 0))) == "Aus\nNiedrig\nHohe Leistung\nCustom");
    s32 height = lv_obj_get_height(list);
    CHECK(zof_droplist_add_option(drop, "#low", 1) == 0);
    CHECK(options(drop) == "Aus\nNiedrig\nNiedrig\nHohe Leistung\nCustom");
    CHECK(zof_droplist_get_selected(drop) == 0);
    screen_step(50);
    CHECK(lv_obj_get_height(list) > height);
    CHECK(zof_droplist_modify_option(drop, "x", 1) == 0);
    CHECK(zof_droplist_modify_option(drop, "x", 5) == -1);
    CHECK(zof_droplist_del_option(drop, 5) == -1);
    CHECK(zof_droplist_set_selected(drop, 70000) == 0);
    CHECK(shown(drop) == "Custom");
    CHECK(zof_droplist_close(drop) == 0);
    const char *one[] = {"#two"};
    CHECK(zof_droplist_set_options(drop, one, 0) == -1);
    CHECK(zof_droplist_set_options(drop, one, 1) == 0);
    CHECK(zof_droplist_del_option(drop, 0) == -1);
    CHECK(options(drop) == "#two"); // still seen, though the list is empty now
    CHECK(zof_droplist_add_option(drop, nullptr, 0) == -1);
    char buffer[2] = "x";
    CHECK(zof_droplist_get_selected_str(drop, buffer, 0) == -1);
    CHECK(zof_droplist_get_selected_str(drop, buffer, 2) == 0);
    CHECK(std::string(buffer) == "#");
    zof_droplist_open(drop);
    CHECK(zof_ctrl_delete(drop) == 0); // its list goes with it
    screen_step(50);
    CHECK(zof_droplist_open(drop) == -1);
}

static bool endless(const para_t *roller) {
    return ((const lv_roller_t *)roller->obj)->mode == LV_ROLLER_MODE_INFINITE;
}

TEST_CASE("a roller turns to what is asked or touched, and keeps its mode and its place") {
    view_project_t project;
    looks_open(project);
    languages(project);
    ctrl_funs = {{1, on_event}, {2, on_event}};
    project.show(
        {ctrl(ZOF_CTRL_ROLLIST, 1, modes + R"(, "row_cnt": 3)", box(20, 20, 120, 10), roll_looks(day)),
         ctrl(ZOF_CTRL_ROLLIST, 2, modes + R"(, "rol_mode": 1, "row_cnt": 3)", box(160, 20, 120, 10), roll_looks(day)),
         ctrl(ZOF_CTRL_ROLLIST, 3, modes, box(20, 160, 120, 60), roll_looks(day))});
    CHECK(lv_obj_get_height(at(3)->obj) == 60); // no rows named
    for (u32 id : {1, 2}) {
        CAPTURE(id);
        para_t *roller = at(id);
        CHECK(zof_rollist_set_selected(roller, 1, 1) == 0);
        screen_step(250);
        s32 halfway = lv_obj_get_child(roller->obj, 0)->coords.y1;
        screen_step(300);
        CHECK(lv_obj_get_child(roller->obj, 0)->coords.y1 < halfway);
        CHECK(zof_lang_set("de") == 0);
        CHECK(shown(roller) == "Niedrig");
        s32 x = roller->obj->coords.x1 + 60;
        taken(events);
        screen_drag(x, 70, x, 35, 4);
        screen_step(600);
        CHECK(contains(taken(events), ":28"));
        CHECK(zof_rollist_get_selected(roller) > 1);
        CHECK(zof_rollist_add_option(roller, "#off", 99) == 0);
        CHECK(zof_rollist_set_selected(roller, 70000, 0) == 0);
        CHECK(zof_rollist_get_selected(roller) == 4);
        CHECK(shown(roller) == "Aus");
        CHECK(zof_rollist_modify_option(roller, "x", 5) == -1);
        CHECK(zof_rollist_del_option(roller, 4) == 0);
        CHECK(endless(roller) == (id == 2));
        CHECK(zof_lang_set("en") == 0);
        screen_step(50);
    }
    const char *two[] = {"#off", "#low"};
    CHECK(zof_rollist_set_options(at(1), two, 2, 1) == 0);
    CHECK(zof_rollist_add_option(at(1), "#high", 2) == 0);
    CHECK(endless(at(1))); // the one it was given, for good
    s32 height = lv_obj_get_height(at(1)->obj);
    CHECK(zof_rollist_set_line_space(at(1), 20) == 0);
    screen_step(50);
    CHECK(lv_obj_get_height(at(1)->obj) == height + 60 - 3 * lv_obj_get_style_text_line_space(at(2)->obj, 0));
    CHECK(zof_rollist_set_line_space(at(1), -1000) == 0); // lines cannot have less than a pixel
    screen_drag(80, 24, 80, 22, 2);
    screen_step(600);
}

TEST_CASE("a touch in the padding above the options of an open list chooses the first") {
    view_project_t project;
    looks_open(project);
    languages(project);
    project.show({ctrl(ZOF_CTRL_DROPLIST, 1, modes, box(20, 20, 160, 36),
                       looks({{.sect = 1, .bg = day.card, .text = day.text, .pad = 40}}))});
    CHECK(zof_droplist_set_selected(at(1), 2) == 0);
    CHECK(zof_droplist_open(at(1)) == 0);
    screen_step(50);
    screen_click(60, lv_dropdown_get_list(at(1)->obj)->coords.y1 + 4);
    CHECK(zof_droplist_get_selected(at(1)) == 0);
}

TEST_CASE("hostile numbers and texts of lists are drawn, touched and deleted like any other") {
    view_project_t project;
    std::string many;
    for (u32 i = 0; i < 5000; i++) {
        many += std::to_string(i) + "\\n";
    }
    const std::string big = R"("ext_sel_width": 4294967295, "row_cnt": 255, "txt_align_e": 4294967295, "dir_t": 77,)";
    std::string said = project.show(
        {ctrl(ZOF_CTRL_LIST, 1, R"("list_count": 9)", box(0, 0, 60, 60)),
         ctrl(ZOF_CTRL_LIST, 2, R"("btns_t": [{}, {"image_num": "none.png"}, {"txt": "a"}])", box(0, 60, 0, 0)),
         ctrl(ZOF_CTRL_DROPLIST, 3, big + R"("options": ")" + many + "\"", box(70, 0, 60, 40)),
         ctrl(ZOF_CTRL_DROPLIST, 4, R"("options": "")", box(70, 50, 60, 40)),
         ctrl(ZOF_CTRL_ROLLIST, 5, big + R"("rol_mode": 9, "options": ")" + many + "\"", box(140, 0, 60, 40)),
         ctrl(ZOF_CTRL_ROLLIST, 6, R"("options": "", "row_cnt": 1, "rol_mode": 1)", box(210, 0, 60, 40)),
         ctrl(ZOF_CTRL_ROLLIST, 7, "", box(210, 100, 0, 0))});
    CHECK(contains(said, "drop list 3: no direction 77"));
    CHECK(contains(said, "only the first 4096 lines"));
    for (u32 id : {3, 4}) {
        zof_droplist_open(at(id));
        screen_step(30);
        screen_click(80, 200);
    }
    for (u32 id : {5, 6, 7}) {
        zof_rollist_set_selected(at(id), 4095, 1);
        screen_step(600);
        screen_drag(at(id)->obj->coords.x1 + 5, 20, at(id)->obj->coords.x1 + 5, 200, 3);
    }
    CHECK(zof_rollist_get_selected(at(5)) < 4096);
    for (u32 id = 1; id <= 7; id++) {
        CHECK(zof_ctrl_delete(at(id)) == 0);
    }
    screen_step(50);
}

TEST_CASE("pictures of lists") {
    view_project_t project;
    looks_open(project);
    languages(project);
    looks_theme(project, ZOF_CTRL_LIST, list_looks);
    project.image("dot.png", 16, 16, 0xF2A33A);
    project.show({ctrl(ZOF_CTRL_LIST, 1, list_of({{"", "#off"}, {"", "#low"}, {"", "#high"}, {"", "Custom"}}),
                       box(40, 20, 220, 200) + scrolls),
                  ctrl(ZOF_CTRL_LIST, 2,
                       list_of({{"dot.png", "#off"},
                                {"dot.png", "#low"},
                                {"", "No picture"},
                                {"dot.png", "#high"},
                                {"dot.png", "A text that is far too long for its line"},
                                {"dot.png", "Last"}}),
                       box(40, 20, 220, 200) + scrolls)});
    looks_only(1, 2);
    picture("list_plain");
    picture_pressed("list_pressed", {100, 70});
    CHECK(zof_list_set_select_index(at(1), zof_list_get_index_btn(at(1), 2)) == 0);
    picture("list_checked");
    CHECK(zof_list_add_btns_style(at(1), 3, LV_PART_MAIN, 0xF9E2C0, 12, 200) == 0);
    picture("list_styled_button");
    looks_only(2, 2);
    picture("list_icons");
    CHECK(zof_lang_set("de") == 0);
    picture("list_icons_de");
    CHECK(zof_list_focus(at(2), 5) == 0);
    screen_step(1000);
    picture("list_scrolled_to_end");
    looks_night();
    picture("list_night");
    CHECK(zof_list_remove_all(at(2)) == 0);
    picture("list_empty");
}

TEST_CASE("pictures of drop lists") {
    view_project_t project;
    looks_open(project);
    languages(project);
    looks_theme(project, ZOF_CTRL_DROPLIST, drop_looks);
    const char *many = R"("options": "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12", "dir_t": 8)";
    auto drop = [](u32 id, u32 dir, u32 align, s32 x, s32 y) {
        return ctrl(ZOF_CTRL_DROPLIST, id,
                    modes + R"(, "dir_t": )" + std::to_string(dir) + R"(, "txt_align_e": )" + std::to_string(align),
                    box(x, y, 150, 38));
    };
    project.show({drop(1, LV_DIR_BOTTOM, 1, 80, 30), drop(2, LV_DIR_TOP, 2, 80, 180), drop(3, LV_DIR_LEFT, 3, 160, 60),
                  drop(4, LV_DIR_RIGHT, 1, 20, 60), drop(5, LV_DIR_BOTTOM, 1, 80, 190),
                  ctrl(ZOF_CTRL_DROPLIST, 6, many, box(80, 60, 150, 38))});
    looks_only(1, 6);
    picture("droplist_closed");
    const char *names[] = {"down", "up_middle", "left_end", "right", "no_room_below", "scrolls"};
    for (u32 id = 1; id <= 6; id++) {
        looks_only(id, 6);
        CHECK(zof_droplist_open(at(id)) == 0);
        picture(std::string("droplist_open_") + names[id - 1]);
        CHECK(zof_droplist_close(at(id)) == 0);
    }
    CHECK(zof_droplist_set_selected(at(6), 10) == 0);
    CHECK(zof_droplist_open(at(6)) == 0);
    picture("droplist_open_at_eleventh");
    CHECK(zof_droplist_close(at(6)) == 0);
    looks_only(1, 6);
    CHECK(zof_droplist_set_selected(at(1), 2) == 0);
    CHECK(zof_droplist_open(at(1)) == 0);
    picture("droplist_open_third");
    screen_press(100, 105);
    picture("droplist_open_pressed");
    CHECK(zof_lang_set("de") == 0);
    picture("droplist_open_pressed_de");
    screen_release(100, 105);
    picture("droplist_chosen_de");
    CHECK(zof_droplist_open(at(1)) == 0);
    looks_night();
    picture("droplist_open_night");
    CHECK(zof_droplist_close(at(1)) == 0);
    picture("droplist_closed_night");
}

TEST_CASE("pictures of rollers") {
    view_project_t project;
    looks_open(project);
    languages(project);
    looks_theme(project, ZOF_CTRL_ROLLIST, roll_looks);
    auto roller = [](u32 id, const std::string &keys) {
        return ctrl(ZOF_CTRL_ROLLIST, id, modes + keys, box(80, 20, 160, 200));
    };
    project.show({roller(1, R"(, "row_cnt": 3, "txt_align_e": 2)"),
                  roller(2, R"(, "row_cnt": 5, "rol_mode": 1, "txt_align_e": 2)"),
                  roller(3, R"(, "row_cnt": 5, "ext_sel_width": 8, "txt_align_e": 2)"),
                  roller(4, R"(, "row_cnt": 4, "txt_align_e": 1)"), roller(5, R"(, "row_cnt": 4, "txt_align_e": 3)"),
                  roller(6, R"(, "row_cnt": 1, "txt_align_e": 2)")});
    const char *names[] = {"rows_3", "endless", "high_band", "left", "right", "row_1"};
    for (u32 id = 1; id <= 6; id++) {
        looks_only(id, 6);
        picture(std::string("roller_") + names[id - 1]);
    }
    looks_only(2, 6);
    CHECK(zof_rollist_set_selected(at(2), 2, 1) == 0);
    screen_step(100);
    CHECK(screen_is_golden("roller_endless_turning"));
    picture("roller_endless_third");
    s32 y = at(2)->obj->coords.y1 + 50;
    screen_press(160, y);
    screen_move(160, y - 12);
    picture("roller_endless_dragged");
    screen_release(160, y - 12);
    CHECK(zof_lang_set("de") == 0);
    picture("roller_endless_de");
    looks_only(1, 6);
    CHECK(zof_rollist_set_selected(at(1), 3, 0) == 0);
    picture("roller_rows_3_last");
    CHECK(zof_rollist_set_line_space(at(1), 30) == 0);
    picture("roller_line_space");
    looks_night();
    picture("roller_night");
}
