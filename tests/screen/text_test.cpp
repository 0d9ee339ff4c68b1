// Texts: labels, buttons, switches and check boxes, and how they follow the language.
#include "view_project.h"

static para_t *at(u32 id) {
    para_t *record = zof_ctrl_get_form_id(1, id);
    REQUIRE(record);
    return record;
}

static std::string shown(zof_ctrl_t *label) {
    return zof_label_get_text(label);
}

static std::string white_text(const std::string &more = "") {
    return R"({"txt_t": {"color": 16777215, "opa": 255)" + more + "}}";
}

static void show(view_project_t &project, const std::vector<std::string> &controls) {
    project.view(1, controls);
    project.view(2, {});
    project.write("config/languages/en.g", R"({"hi": "Hello", "long": "one\ntwo", "pic": "en.png"})");
    project.write("config/languages/de.g", R"({"hi": "Hallo", "long": "eins\nzwei", "pic": "de.png", "only": "nur"})");
    project.more = R"(, "language": "en")";
    project.open(320, 240);
    zof_view_set_dis_view(1);
}

TEST_CASE("a slot keeps a private copy, and only a change counts") {
    char *slot = nullptr;
    CHECK(zof_txt_change(&slot, "abc") == 0);
    char *kept = slot;
    CHECK(zof_txt_change(&slot, "abc") == -1);
    CHECK(zof_txt_change(&slot, slot) == -1);
    CHECK(slot == kept);
    CHECK(zof_txt_change(&slot, slot + 1) == 0); // a part of itself
    CHECK(std::string(slot) == "bc");
    CHECK(zof_txt_change(nullptr, "a") == -1);
    CHECK(zof_txt_change(&slot, nullptr) == -1);
    zof_free(slot);
}

TEST_CASE("a key is kept and follows the language, a plain text is only shown") {
    view_project_t project;
    show(project, {ctrl(ZOF_CTRL_LABEL, 1, R"("txt": "#hi")"), ctrl(ZOF_CTRL_LABEL, 2, R"("txt": "plain")"),
                   ctrl(ZOF_CTRL_LABEL, 3), ctrl(ZOF_CTRL_BTN, 4, R"("txt": "#hi")"), ctrl(ZOF_CTRL_BTN, 5),
                   ctrl(ZOF_CTRL_CB, 6, R"("txt": "#hi")"), ctrl(ZOF_CTRL_CB, 7),
                   ctrl(ZOF_CTRL_IMGBTN, 8, R"("txt": "#hi")"), ctrl(ZOF_CTRL_LABEL, 9, R"("txt": "#only")")});
    auto inner = [](u32 id) { return shown(zof_ctrl_get_child(at(id), 0)); };
    auto box_text = [](u32 id) { return std::string(lv_checkbox_get_text(at(id)->obj)); };
    CHECK(shown(at(1)) == "Hello");
    CHECK(shown(at(2)) == "plain");
    CHECK(shown(at(3)) == ""); // and not what LVGL would show
    CHECK(inner(4) == "Hello");
    CHECK(inner(5) == "");
    CHECK(box_text(6) == "Hello");
    CHECK(box_text(7) == "");
    CHECK(inner(8) == "Hello");
    CHECK(shown(at(9)) == "#only");

    zof_label_set_txt(at(1), "typed");
    zof_label_set_txt(at(2), "typed");
    zof_label_set_txt(at(3), "#hi"); // painted by the program: follows from now on
    zof_btn_set_txt(at(5), "#hi");
    zof_cb_set_txt(at(7), "#hi");
    zof_imgbtn_set_txt(at(8), "typed");
    zof_label_set_txt(at(9), "#nothing");
    CHECK(shown(at(9)) == "#nothing");
    CHECK(std::string(((zof_label_attr_t *)at(9)->attr)->txt) == "#only");
    CHECK(shown(at(3)) == "Hello");

    CHECK(zof_lang_set("de") == 0);
    CHECK(shown(at(1)) == "Hallo"); // the key of the file comes back
    CHECK(shown(at(2)) == "typed");
    CHECK(shown(at(3)) == "Hallo");
    CHECK(inner(4) == "Hallo");
    CHECK(inner(5) == "Hallo");
    CHECK(box_text(6) == "Hallo");
    CHECK(box_text(7) == "Hallo");
    CHECK(inner(8) == "Hallo");
    CHECK(shown(at(9)) == "nur");
    zof_view_set_dis_view(2);
    CHECK(zof_lang_set("en") == 0); // views that are not shown follow too
    CHECK(shown(at(1)) == "Hello");
    zof_label_set_txt(at(1), nullptr);
    CHECK(shown(at(1)) == "");
}

// First and last row of the picture that is not black.
static void rows_lit(s32 *first, s32 *last) {
    const screen_picture p = screen_shot();
    *first = *last = -1;
    for (s32 y = 0; y < p.height; y++) {
        for (s32 x = 0; x < p.width; x++) {
            if (p.at(x, y) != 0) {
                *first = *first < 0 ? y : *first;
                *last = y;
            }
        }
    }
}

TEST_CASE("a label that keeps its height places its text in every mode, and keeps the place") {
    view_project_t project;
    std::vector<std::string> controls;
    const std::string pressed =
        R"(, {"style_state": 32, "body_t": {"opa": 0}, "txt_t": {"color": 16777215, "opa": 255}})";
    for (u32 mode = 0; mode <= LV_LABEL_LONG_CLIP; mode++) {
        controls.push_back(ctrl(ZOF_CTRL_LABEL, 10 + mode,
                                R"("txt": "x", "auto_hight": 1, "align_e": 34, "dis_mode_e": )" + std::to_string(mode),
                                R"("hidden": true, )" + box(0, 50, 200, 100), white_text() + pressed));
    }
    project.view(1, controls);
    project.open(320, 240);
    zof_view_set_dis_view(1);
    for (u32 mode = 0; mode <= LV_LABEL_LONG_CLIP; mode++) {
        CAPTURE(mode);
        para_t *label = at(10 + mode);
        lv_coord_t line = lv_font_get_line_height(lv_obj_get_style_text_font(label->obj, 0));
        zof_label_set_txt(label, "HHH");
        zof_ctrl_set_hidden(label, ZOF_FALSE);
        s32 middle = (100 - line) / 2;
        s32 top, first, last;
        CHECK(((lv_label_t *)label->obj)->offset.y == middle);
        rows_lit(&first, &last);
        CHECK(zof_label_set_align(label, 0x12) == 0);
        rows_lit(&top, &last);
        CHECK(first - top == middle);
        CHECK(zof_label_set_align(label, 0x32) == 0);
        rows_lit(&first, &last);
        CHECK(first - top == 100 - line);
        zof_ctrl_add_state(label, LV_STATE_PRESSED);
        zof_label_set_txt(label, "HHHH");
        rows_lit(&first, &last);
        CHECK(first - top == 100 - line);
        zof_ctrl_clear_state(label, LV_STATE_PRESSED);
        CHECK(zof_label_set_align(label, 0x02) == 0); // no vertical half: the place stays
        rows_lit(&first, &last);
        CHECK(first - top == 100 - line);
        zof_ctrl_set_hidden(label, ZOF_TRUE);
    }
}

TEST_CASE("the stored text is measured, of a key the key itself") {
    view_project_t project;
    const std::string keeps = R"(, "auto_hight": 1, "align_e": 34)";
    show(project, {ctrl(ZOF_CTRL_LABEL, 1, R"("txt": "#long")" + keeps, box(0, 0, 200, 100), white_text()),
                   ctrl(ZOF_CTRL_LABEL, 2, R"("txt": "a\nb")" + keeps, box(0, 0, 200, 100), white_text()),
                   ctrl(ZOF_CTRL_LABEL, 3, R"("txt": "a\nb")", box(0, 0, 200, 100), white_text()),
                   ctrl(ZOF_CTRL_LABEL, 4, R"("align_e": 34, "auto_hight": 1)", box(0, 0, 200, 100), white_text())});
    lv_coord_t line = lv_font_get_line_height(lv_obj_get_style_text_font(at(1)->obj, 0));
    auto offset = [](u32 id) { return ((lv_label_t *)at(id)->obj)->offset.y; };
    CHECK(shown(at(1)) == "one\ntwo");
    CHECK(offset(1) == (100 - line) / 2);
    CHECK(offset(2) == (100 - 2 * line) / 2);
    CHECK(offset(3) == 0);
    CHECK(zof_ctrl_get_height(at(3)) == 2 * line);
    CHECK(zof_ctrl_get_height(at(1)) == 100);
    CHECK(offset(4) == (100 - line) / 2);          // empty: the place of the text to come
    CHECK(zof_label_set_txt_size(at(1), 20) == 0); // no font file: as it was
    CHECK(zof_label_set_dis_mode(at(1), 99) == 0);
    zof_label_set_txt_color(at(1), 0x123456);
    CHECK(lv_obj_get_style_text_color(at(1)->obj, 0).full == 0xFF123456);
}

TEST_CASE("a button keeps its label in the middle and its states apart") {
    view_project_t project;
    show(project, {ctrl(ZOF_CTRL_BTN, 1, R"("txt": "ok", "mode": 1)", box(10, 10, 120, 50))});
    lv_obj_t *label = (lv_obj_t *)zof_ctrl_get_child(at(1), 0);
    CHECK(lv_obj_get_width(label) == 120);
    CHECK_FALSE(lv_obj_has_flag(label, LV_OBJ_FLAG_CLICKABLE));
    screen_click(20, 20);
    CHECK(zof_ctrl_state_judge(at(1), LV_STATE_CHECKED) == 1);
    CHECK(zof_btn_set_mode(at(1), 0) == 0);
    zof_ctrl_add_state(at(1), LV_STATE_FOCUSED);
    CHECK(zof_btn_set_state(at(1), LV_STATE_DISABLED) == 0);
    CHECK(zof_btn_get_state(at(1)) == (LV_STATE_DISABLED | LV_STATE_FOCUSED));
    CHECK(zof_btn_set_state(at(1), 0) == 0);
    CHECK(zof_btn_get_state(at(1)) == LV_STATE_FOCUSED);
    CHECK(zof_btn_set_txt_color(at(1), 0xABCDEF, LV_PART_MAIN) == 0);
    CHECK(lv_obj_get_style_text_color(label, 0).full == 0xFFABCDEF);
}

TEST_CASE("switches are never square, check boxes always as large as their text") {
    view_project_t project;
    show(project, {ctrl(ZOF_CTRL_SW, 1, R"("anim_time": 0)", box(0, 0, 40, 40)),
                   ctrl(ZOF_CTRL_CB, 2, R"("txt": "tick")", box(0, 100, 300, 200))});
    CHECK(zof_ctrl_get_width(at(1)) == 41);
    CHECK(at(1)->attr->size.width == 41);
    CHECK(zof_sw_get_state(at(1)) == 0);
    CHECK(zof_sw_set_state(at(1), 1) == 0);
    CHECK(zof_sw_get_state(at(1)) == 1);
    screen_click(20, 20);
    CHECK(zof_sw_get_state(at(1)) == 0);
    CHECK(zof_ctrl_get_width(at(2)) < 100);
    CHECK(zof_ctrl_get_height(at(2)) < 50);
    screen_click(5, 105);
    CHECK(zof_cb_is_checked(at(2)) == 1);
    CHECK(zof_cb_set_disable(at(2), 1) == 0);
    CHECK(zof_cb_is_inactive(at(2)) == 1);
    screen_click(5, 105);
    CHECK(zof_cb_is_checked(at(2)) == 1);
    CHECK(zof_cb_set_checked(at(2), 0) == 0);
    CHECK(zof_cb_is_checked(at(2)) == 0);
}
