// Message boxes, text boxes, keyboards with and without Pinyin, button matrices: behaviour, lifetime, and look.
#include "looks.h"

static std::string text(u32 box) {
    return zof_txtbox_get_text(at(box));
}

static std::string caption(zof_ctrl_t *matrix, u32 id) {
    return str(zof_btnmatrix_get_btn_text(matrix, id));
}

// The middle of a button of a matrix, keyboard or candidate panel.
static lv_point_t middle(const lv_obj_t *obj, u32 id) {
    const lv_area_t *area = &((const lv_btnmatrix_t *)obj)->button_areas[id];
    return {obj->coords.x1 + (area->x1 + area->x2) / 2, obj->coords.y1 + (area->y1 + area->y2) / 2};
}

static void press(const lv_obj_t *obj, u32 id) {
    const lv_point_t at = middle(obj, id);
    screen_click(at.x, at.y);
}

TEST_CASE("buttons of a matrix are counted without row breaks, whatever rows it has, and own their captions") {
    view_project_t project;
    looks_open(project);
    ctrl_funs = {{1, on_event}};
    project.show({ctrl(ZOF_CTRL_BTNMATRIX, 1,
                       R"("btnmatrix_txt": ["\n", "#yes", "#no", "\n", "\n", "three", "\n", "#none", ""])",
                       box(20, 20, 240, 200))});
    para_t *matrix = at(1);
    screen_step(50);
    zof_btnmatrix_set_btn_ctrl_all(matrix, LV_BTNMATRIX_CTRL_DISABLED);
    zof_btnmatrix_clear_btn_ctrl(matrix, 0, LV_BTNMATRIX_CTRL_DISABLED);
    press(matrix->obj, 0);
    CHECK(contains(taken(events), " 1:28"));
    press(matrix->obj, 1); // hits no button: LVGL alone would report the first one again
    CHECK(!contains(taken(events), " 1:28"));
    zof_lang_set("de"); // the table of the captions is freed
    screen_step(50);
    CHECK(zof_btnmatrix_set_btn_txt(matrix, 2, "#ask") == 0);
    zof_lang_set("en");
    CHECK(zof_btnmatrix_set_btn_txt(matrix, 1, "#cut") == 0); // shown as a row break it would not be a button
    CHECK(zof_btnmatrix_set_btn_txt(matrix, 4, "x") == -1);
    const std::string shown = caption(matrix, 0) + "|" + caption(matrix, 1) + "|" + caption(matrix, 2) + "|";
    CHECK(shown == "Yes| |Löschen?|");
    lv_obj_del(matrix->obj); // deleted with its parent and recreated, it has the captions of its file
    CHECK(zof_ctrl_show(1, 1) == matrix);
    CHECK(caption(matrix, 2) == "Delete it?");
    CHECK(zof_btnmatrix_del(matrix) == 0); // still there, but without buttons
    screen_step(50);
}

static std::string mbox(const std::string &title, const std::string &txt, const std::string &captions) {
    return form(R"("title": "%s", "txt": "%s", "btn_txt": [%s])", title.c_str(), txt.c_str(), captions.c_str());
}

// Title, text and number of buttons that a message box shows.
static std::string said_by(u32 id) {
    const lv_obj_t *title = lv_msgbox_get_title(at(id)->obj), *text = lv_msgbox_get_text(at(id)->obj);
    const auto *btns = (const lv_btnmatrix_t *)lv_msgbox_get_btns(at(id)->obj);
    return (title ? lv_label_get_text(title) : "-") + std::string("|") + (text ? lv_label_get_text(text) : "-") + "|" +
           std::to_string(btns ? btns->btn_cnt : 0);
}

TEST_CASE("message boxes work with and without title, text and buttons, which follow the language as documented") {
    view_project_t project;
    looks_open(project);
    project.show({ctrl(ZOF_CTRL_MBOX, 1, mbox("#ask", "plain", R"("#yes", "#no", "")"), box(20, 10, 240, 120)),
                  ctrl(ZOF_CTRL_MBOX, 2), ctrl(ZOF_CTRL_MBOX, 3, mbox("", "#none", R"("")") + R"(, "btn_num": 9)"),
                  ctrl(ZOF_CTRL_MBOX, 4, mbox("", "", R"("only")"))}); // the end is missing in its file
    CHECK(said_by(4) == "-|-|1");
    for (u32 id : {2, 3}) {
        CHECK(zof_title_set_txt(at(id), "#ask") == 0); // adds a title at the top
        CHECK(zof_mbox_set_txt(at(id), "text") == 0);
        CHECK(said_by(id) == "Delete it?|text|0");
    }
    zof_mbox_set_txt(at(1), "changed");
    zof_lang_set("de");
    CHECK(said_by(1) == "Löschen?|changed|2");
    CHECK(said_by(3) == "Löschen?|x|0");       // its file has a key, which comes back
    CHECK(zof_mbox_s_close(at(1)->obj) == -1); // functions accept the control, and its object only for opening
}

TEST_CASE("a message box closes by itself, twice if requested twice, and opens again, but not when it is deleted") {
    view_project_t project({ctrl(ZOF_CTRL_MBOX, 1, mbox("t", "x", "")), ctrl(ZOF_CTRL_MBOX, 2, mbox("t", "x", ""))});
    const auto hidden = [](u32 ms) {
        screen_step(ms);
        return lv_obj_has_flag(at(1)->obj, LV_OBJ_FLAG_HIDDEN);
    };
    zof_mbox_start_auto_close(at(1), 500);
    zof_mbox_start_auto_close(at(1), 1000);
    CHECK(!hidden(400));
    CHECK(hidden(200));
    CHECK(zof_mbox_s_open(at(1)) == 0);
    CHECK(!hidden(300));
    CHECK(hidden(300));
    zof_mbox_start_auto_close(at(2), 10);
    zof_ctrl_delete(at(2));
    screen_step(100);
}

TEST_CASE("a text box keeps only the characters that it accepts, in every mode") {
    const struct {
        const char *keys, *given, *has;
    } rows[] = {
        {R"("line_mode": 0)", "one\ntwo\r", "onetwo"},
        {R"("line_mode": 1)", "one\ntwo", "one\ntwo"},
        {R"("max_txt_len": 3)", "äöüß", "äöü"},
        {R"("accept_txt": "0123ö")", "1ä0ö3\n", "10ö3"},
        {R"("accept_txt": "0123ö", "max_txt_len": 3, "pwd_mode_en": true)", "1ä0ö3", "10ö"},
        {R"("accept_txt": "", "pwd_mode_en": true)", "#ask", "#ask"},
        {"", "a\xF0z\xC3\xE4\xBD\xA0\x80", "az\xE4\xBD\xA0"}, // whole characters only
    };
    view_project_t project;
    std::vector<std::string> boxes;
    for (const auto &row : rows) {
        boxes.push_back(ctrl(ZOF_CTRL_TXTBOX, (u32)boxes.size() + 1, row.keys));
    }
    project.show(boxes);
    for (u32 i = 0; i < boxes.size(); i++) {
        CAPTURE(rows[i].keys);
        CHECK(zof_txtbox_set_text(at(i + 1), rows[i].given) == 0);
        CHECK(text(i + 1) == rows[i].has);
    }
    const auto again = [](lv_event_t *e) { // the limits also apply to what typing triggers
        if (text(3) == "a") {
            zof_txtbox_add_txt(lv_event_get_target(e), "bcd");
        }
    };
    lv_obj_add_event_cb(at(3)->obj, again, LV_EVENT_VALUE_CHANGED, nullptr);
    zof_txtbox_set_text(at(3), "a");
    CHECK(text(3) == "abc");
    lv_obj_add_event_cb(
        at(4)->obj, [](lv_event_t *) { zof_ctrl_delete(at(4)); }, LV_EVENT_VALUE_CHANGED, nullptr);
    CHECK(zof_txtbox_add_txt(at(4), "1") == 0);
    CHECK(at(4)->obj == nullptr); // deleted by its own change
    zof_txtbox_set_text(at(7), std::string(40000, 'i').c_str());
    CHECK(text(7).size() == 32767); // without a limit of its own
    CHECK(zof_txtbox_add_char(at(2), 0xA4C3) == 0);
    CHECK(zof_txtbox_add_char(at(2), 0x80) == -1); // half a character
    for (u32 way : {1, 3, 2, 0, 1, 9}) {           // 9 is invalid
        CHECK(zof_txtbox_cursor_move(at(2), way) == 0);
    }
    zof_txtbox_del_char(at(2));
    CHECK(text(2) == "one\ntwä");
}

// Two text boxes, a keyboard below them, and one that cannot be touched; `keys` are more keys of the keyboard.
static void typing(view_project_t &project, const std::string &keys, const std::string &box_keys = "") {
    looks_open(project);
    ctrl_funs = {{3, on_event}};
    project.show({ctrl(ZOF_CTRL_TXTBOX, 1, box_keys, box(10, 10, 140, 30)),
                  ctrl(ZOF_CTRL_TXTBOX, 2, R"("line_mode": 1)", box(160, 10, 140, 50)),
                  ctrl(ZOF_CTRL_KEYBOARD, 3, keys, box(5, 110, 310, 125)),
                  ctrl(ZOF_CTRL_KEYBOARD, 4, R"("keyboard_spell": true)", box(0, 400, 9, 9) + R"(, "t_mode": 0)")});
    screen_step(50);
}

// Types the captions of keys in turn; " " is a key like others.
static void type(const std::vector<std::string> &keys, u32 keyboard = 3, u32 view = 1) {
    lv_obj_t *obj = at(keyboard, view)->obj;
    for (const std::string &key : keys) {
        CAPTURE(key);
        u32 id = 0;
        while (id < 50 && caption(obj, id) != key) {
            id++;
        }
        REQUIRE(id < 50);
        press(obj, id);
    }
}

TEST_CASE("keyboards are placed as their file says, type into their text box, and forget it when it is deleted") {
    view_project_t project;
    typing(project, R"("keyboard_spell": true, "mode": 3, "popovers": true)");
    para_t *keyboard = at(3), *other = at(4);
    CHECK(!lv_obj_has_flag(other->obj, LV_OBJ_FLAG_CLICKABLE)); // LVGL sets it, because it mistakes it for a state
    CHECK(screen_is_golden("keyboard_numbers"));
    type({"7"}); // without a text box
    zof_keyboard_set_txtbox(other, at(1));
    zof_keyboard_set_txtbox(keyboard, at(1));
    type({"1", "+/-", "2", LV_SYMBOL_LEFT, LV_SYMBOL_BACKSPACE});
    CHECK(text(1) == "-2");
    zof_ctrl_delete(other);
    zof_keyboard_set_txtbox(keyboard, at(2));
    zof_ctrl_delete(at(1));
    type({"3"});
    CHECK(text(2) == "3");
    zof_ctrl_delete(at(2));
    type({"1", "+/-", LV_SYMBOL_OK, LV_SYMBOL_KEYBOARD});
}

static const char *const pinyin = R"("keyboard_spell": false, "cn_font_lib": "cn.ttf", "cn_font_size": 18)";

// The candidates of a keyboard: its only child.
static lv_obj_t *candidates(u32 keyboard = 3, u32 view = 1) {
    lv_obj_t *panel = lv_obj_get_child(at(keyboard, view)->obj, 0);
    REQUIRE(panel);
    return panel;
}

// The text of a text box, and the first two candidates if there are any.
static std::string state(u32 id) {
    const bool open = !lv_obj_has_flag(candidates(), LV_OBJ_FLAG_HIDDEN);
    return text(id) + (open ? "[" + caption(candidates(), 1) + caption(candidates(), 2) + "]" : "");
}

static std::string typed(const std::vector<std::string> &keys, u32 id = 1) {
    type(keys);
    return state(id);
}

static std::string picked(u32 candidate, u32 id = 1) {
    press(candidates(), candidate);
    return state(id);
}

TEST_CASE("Pinyin replaces what was typed with the chosen character") {
    view_project_t project;
    typing(project, pinyin);
    zof_keyboard_set_txtbox(at(3), at(1));
    screen_click(40, 20); // the text box gets the cursor and keeps it
    CHECK(typed({"x", " ", "n", "i"}) == "x ni[你妳]");
    CHECK(picked(2) == "x 妳");
    type({"b", "u"}); // seven characters: two pages, of which the last one is not full
    CHECK(picked(7) == "x 妳bu[歩 ]");
    CHECK(typed({LV_SYMBOL_BACKSPACE, LV_SYMBOL_BACKSPACE, LV_SYMBOL_BACKSPACE}) == "x ");
    // When the cursor has moved, other letters are before it, and they stay.
    CHECK(typed({"n", "i", LV_SYMBOL_LEFT}) == "x ni");
    type({"a"});
    zof_txtbox_cursor_move(at(1), 0);
    CHECK(picked(1) == "x nai啊");
}

TEST_CASE("Pinyin handles any input: long, upper case, without a match, in a box that accepts none") {
    view_project_t project;
    typing(project, pinyin, R"("max_txt_len": 1, "pwd_mode_en": true)");
    zof_keyboard_set_txtbox(at(3), at(1));
    type({"n", "i"});
    CHECK(picked(1) == "n"); // full with the first letter
    zof_keyboard_set_txtbox(at(3), at(2));
    CHECK(typed({"n", "i", "x"}, 2) == "nix"); // no such syllable
    type(std::vector<std::string>(40, "a"));
    CHECK(typed(std::vector<std::string>(40, LV_SYMBOL_BACKSPACE), 2) == "nix");
    type({LV_SYMBOL_BACKSPACE});
    CHECK(picked(1, 2) == "你");
    CHECK(contains(typed({"ABC", "N", "I", "1#", "1", "abc", "h"}, 2), "h["));
    zof_ctrl_delete(at(2));
    CHECK(lv_obj_has_flag(candidates(), LV_OBJ_FLAG_HIDDEN));
}

TEST_CASE("an input method is created once for its keyboard, on its layer, and deleted with it, whichever goes first") {
    view_project_t project;
    const auto in_a_box = [](u32 id, s32 y) { return ctrl(ZOF_CTRL_OBJ, id, "", box(0, y, 320, 120)); };
    const auto keyboard = [](u32 id, u32 parent) {
        return ctrl(ZOF_CTRL_KEYBOARD, id, pinyin, form(R"("parent_id": %u, )", parent) + box(0, 0, 290, 80));
    };
    project.view(2, {in_a_box(4, 0), keyboard(5, 4), in_a_box(6, 120), keyboard(7, 6)}, R"("layer": 2)");
    typing(project, pinyin);
    zof_view_set_dis_view(2);
    screen_step(50);
    CHECK(lv_obj_get_screen(candidates(5, 2)) == lv_layer_sys());
    type({"n", "i"}, 5, 2);
    CHECK(caption(candidates(5, 2), 1) == "你");
    zof_ctrl_delete(at(5, 2));
    CHECK(lv_obj_get_child_cnt(at(4, 2)->obj) == 0);
    lv_obj_move_background(lv_obj_get_child(at(6, 2)->obj, 1)); // now the input method is deleted first
    zof_ctrl_delete(at(6, 2));
    CHECK(at(7, 2)->obj == nullptr);
}

// The gallery has pictures of message boxes and the other keyboards. Here is what it does not show.
// clang-format off
TEST_CASE("pictures of text boxes") {
    const auto boxed = [](u32 id, const std::string &own, s32 x, s32 y, s32 h) {
        return ctrl(ZOF_CTRL_TXTBOX, id, own, box(x, y, 150, h), looks);
    };
    const auto cursor = [](u32 side) {
        return form(R"(, "cursor_style_t": {"zof_cursor_width": 2, "zof_cursor_opa": 255, "cursor_e": %u})", side);
    };
    const std::string two = R"("line_mode": 1, "init_txt": "two\nlines, of which one is too long for its box")";
    looks_of({
        boxed(1, R"("init_txt": "right", "txt_align_e": 3)" + cursor(15), 5, 60, 36),
        boxed(2, two + R"(, "txt_align_e": 2)" + cursor(1), 5, 105, 120),
        boxed(3, R"("init_txt": "secret", "pwd_mode_en": true, "pwd_char_show_time": 1000)", 165, 10, 36),
        boxed(4, R"("p_holder_txt": "in the middle", "holder_txt_align_e": 2)", 165, 60, 36),
    }, {
        {"txtbox_focused_right", 0, [] { screen_click(100, 80); }}, // the password is still visible
        {"txtbox_focused_lines", 0, [] { screen_step(1000); screen_click(100, 130); zof_txtbox_add_txt(at(3), "x"); }},
    });
}
// clang-format on
