// Actions in files: each word, in order, at its event, and what they cannot do.
#include <cstring>

#include "../serial/every_control.h"
#include "catalogue/zof_cat.h"
#include "hmi/zof_hmi_action.h"
#include "hmi/zof_hmi_event.h"
#include "project/look/zof_lang.h"
#include "project/look/zof_look_in.h"

static lv_obj_t *obj(u32 view, u32 id) {
    const para_t *c = zof_ctrl_get_form_id(view, id);
    REQUIRE((c && c->obj));
    return c->obj;
}

// Adds `on` to an entry as `ctrl` writes it.
static std::string acts(std::string entry, const std::string &on) {
    return entry.insert(entry.find('{') + 1, "\"on\": {" + on + "}, ");
}

static void up(view_project_t &project, const std::string &on) {
    project.more = R"(, "language": "en")";
    project.write("config/languages/en.g", R"({"hello": "hello"})");
    project.write("config/languages/de.g", R"({"hello": "hallo"})");
    const std::string look = "\"pub\": 0, ";
    for (u32 view : {1, 2}) {
        project.view(view,
                     {acts(ctrl(ZOF_CTRL_BTN, BTN, R"("txt": "b")", look + box(0, 0, 80, 30)), on),
                      ctrl(ZOF_CTRL_LABEL, LABEL, R"("txt": "#hello")", look + box(0, 40, 90, 20)),
                      ctrl(ZOF_CTRL_SLIDER, SLIDER, R"("minValue": 0, "maxValue": 50)", look + box(0, 60, 90, 10)),
                      ctrl(ZOF_CTRL_TXTBOX, TXTBOX, "", look + box(0, 80, 90, 30)),
                      ctrl(ZOF_CTRL_KEYBOARD, KEYBOARD, R"("keyboard_spell": true)", look + box(0, 120, 320, 90))});
    }
    REQUIRE(project.open(320, 240));
    zof_view_set_dis_view(1);
}

static void click(u32 view = 1) {
    lv_event_send(obj(view, BTN), LV_EVENT_CLICKED, nullptr);
}

TEST_CASE("actions: each word does what it says, in order, at its event alone") {
    view_project_t project;
    const std::string l = form("c%u", LABEL), s = form("c%u", SLIDER), t = form("c%u", TXTBOX),
                      k = form("c%u", KEYBOARD);
    up(project, R"("clicked": ["lang de", "set )" + s + R"(.value 7", "add )" + s + R"(.value 100", "hide )" + l +
                    R"(", "keys )" + k + " " + t + R"(", "set )" + t + R"(.txt  two  words", "disable )" + s +
                    R"("], "long_pressed": ["show )" + l + R"(", "set )" + l + R"(.txt #hello", "enable )" + s +
                    R"("])");
    click();
    CHECK(zof_slider_get_value(zof_ctrl_get_form_id(1, SLIDER)) == 50);
    CHECK(zof_ctrl_get_hidden(zof_ctrl_get_form_id(1, LABEL)) == 1);
    CHECK(lv_keyboard_get_textarea(obj(1, KEYBOARD)) == obj(1, TXTBOX));
    CHECK(lv_textarea_get_text(obj(1, TXTBOX)) == std::string("two  words"));
    CHECK(lv_obj_has_state(obj(1, SLIDER), LV_STATE_DISABLED));
    lv_event_send(obj(1, BTN), LV_EVENT_LONG_PRESSED, nullptr);
    CHECK(zof_ctrl_get_hidden(zof_ctrl_get_form_id(1, LABEL)) == 0);
    CHECK(lv_label_get_text(obj(1, LABEL)) == std::string("hallo"));
    CHECK(!lv_obj_has_state(obj(1, SLIDER), LV_STATE_DISABLED));
}

TEST_CASE("actions: of several languages and themes the one after the current is next") {
    view_project_t project;
    project.write("config/theme/day/looks.g", "{}");
    project.write("config/theme/night/looks.g", "{}");
    up(project, R"("clicked": ["lang en de"], "long_pressed": ["theme night day"])");
    for (const char *text : {"hallo", "hello", "hallo"}) {
        click();
        CHECK(lv_label_get_text(obj(1, LABEL)) == std::string(text));
    }
    for (const char *theme : {"night", "day", "night"}) {
        lv_event_send(obj(1, BTN), LV_EVENT_LONG_PRESSED, nullptr);
        CHECK(zof_look_theme("") == std::string(theme));
    }
}

TEST_CASE("actions: views lead on and back, and another view's control is set before it is shown") {
    view_project_t project;
    up(project, form(R"("clicked": ["set 2/c%u.txt there", "view v2", "back", "back", "view 2"])", LABEL));
    click();
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 2);
    CHECK(lv_label_get_text(obj(2, LABEL)) == std::string("there"));
}

TEST_CASE("actions: a view that deletes the control, unknown names and loops do no harm") {
    view_project_t project;
    const std::string loop = form(R"("changed": ["set c%u.txt again", "set c%u.txt more"])", TXTBOX, TXTBOX);
    project.view(1, {acts(ctrl(ZOF_CTRL_TXTBOX, TXTBOX, "", box(0, 0, 90, 30)), loop),
                     acts(ctrl(ZOF_CTRL_BTN, BTN, "", R"("pub": true, )" + box(0, 40, 90, 30)),
                          R"("clicked": ["show nothing", "frobnicate", "view 2", "view 1", "view 9", "lang none"])")});
    project.view(2, {ctrl(ZOF_CTRL_LABEL, LABEL, "", box(0, 0, 90, 30))});
    REQUIRE(project.open(320, 240));
    zof_view_set_dis_view(1);
    zof_txtbox_set_text(zof_ctrl_get_form_id(1, TXTBOX), "first");
    CHECK(lv_textarea_get_text(obj(1, TXTBOX)) == std::string("more"));
    click();
    CHECK(zof_view_get_cur_id(ZOF_LAYER_UI) == 1);
}

TEST_CASE("actions: the catalogue has a list for each event of a control") {
    for (const zof_hmi_event_row_t &row : zof_hmi_event_rows) {
        const zof_cat_record_t *record = nullptr;
        for (u32 i = 0; zof_cat_records[i]->name; i++) {
            record = strcmp(zof_cat_records[i]->name, "on") == 0 ? zof_cat_records[i] : record;
        }
        REQUIRE(record);
        CHECK((zof_cat_key(record, row.name) != nullptr) == (row.event != ZOF_EVENT_ALL));
    }
}
