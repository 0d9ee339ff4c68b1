// Named looks: what controls have from them, and what a theme changes.
#include "looks.h"

static const char day[] = R"({
"colors": {"paper": "#F4F6FA", "ink": "#1E2A3A", "brand": "#1F6FEB", "accent": "$brand", "line": 13160668},
"looks": {
 "plain": {
  "body_t": {"main_color": "$paper", "opa": 255, "radius": 6,
             "border": {"color": "$line", "width": 1, "part": "all", "opa": 255},
             "padding": {"top": 6, "bottom": 6, "left": 8, "right": 8}},
  "txt_t": {"color": "$ink", "opa": 255, "font_lib": "text.ttf", "font_size": 16},
  "placeholder": {"txt_t": {"opa": 120}}},
 "primary": {"is": "plain", "body_t": {"main_color": "$accent"}, "txt_t": {"color": "#FFF"},
             "pressed": {"body_t": {"main_color": "$ink"}}},
 "meter": {"is": "plain", "body_t": {"radius": 9, "padding": {"top": 0, "bottom": 0, "left": 0, "right": 0}},
           "indicator": {"body_t": {"main_color": "$accent", "opa": 255, "radius": 9}},
           "knob": {"body_t": {"main_color": "$ink", "opa": 255, "radius": 9}}}
}})";

static const char night[] = R"({
"colors": {"paper": "#20242B", "ink": "#E8ECF2", "brand": "#F2A33A", "line": "#4A5160"},
"looks": {"primary": {"body_t": {"radius": 20}, "txt_t": {"color": "$paper"}, "focused": {"body_t": {"radius": 2}}}}
})";

// An entry with a look.
static std::string with(const char *look, std::string entry) {
    return entry.insert(1, form(R"("look": "%s", )", look));
}

static void looks_write(const view_project_t &project) {
    project.write("config/looks.g", day);
    project.write("config/theme/night/looks.g", night);
    project.write("config/theme/youth/button.g", R"({"styles": [{"body_t": {"main_color": 1, "opa": 9}}]})");
}

TEST_CASE("controls of five types share looks, and a theme changes them") {
    view_project_t project;
    looks_open(project);
    looks_write(project);
    project.shown_keys = R"("bg_color": "$line", "bg_scale": 255)";
    CHECK(project.show({
              with("plain", ctrl(ZOF_CTRL_LABEL, 1, R"("txt": "plain", "auto_hight": 0)", box(20, 16, 130, 34))),
              with("primary", ctrl(ZOF_CTRL_BTN, 2, R"("txt": "primary")", box(170, 16, 130, 34))),
              with("plain", ctrl(ZOF_CTRL_TXTBOX, 3, R"("p_holder_txt": "placeholder")", box(20, 66, 130, 40))),
              with("meter", ctrl(ZOF_CTRL_BAR, 4, R"("maxValue": 100)", box(20, 130, 280, 18))),
              with("meter", ctrl(ZOF_CTRL_SLIDER, 5, R"("maxValue": 100)", box(20, 170, 280, 18))),
              with("primary", ctrl(ZOF_CTRL_BTN, 6, R"("txt": "own")", box(170, 66, 130, 40),
                                   R"({"body_t": {"radius": 0, "border": {"width": 4}}})")),
          }) == "");
    zof_bar_set_value(at(4), 40);
    zof_slider_set_value(at(5), 70);
    screen_press(230, 80); // own styles of the default state show while it is pressed
    screen_step(400);
    CHECK(screen_is_golden("named_looks"));
    screen_release(230, 80);
    REQUIRE(zof_theme_set("night") == 0);
    screen_step(400);
    CHECK(screen_is_golden("named_looks_night"));
}

static const zof_style_attr_t &style(u32 id, u32 part, u32 state) {
    const zof_pub_attr_t *attr = at(id)->attr;
    for (u32 i = 0; i < attr->style_num; i++) {
        if (attr->style_list[i]->style_part == part && attr->style_list[i]->style_state == state) {
            return *attr->style_list[i];
        }
    }
    static const zof_style_attr_t none = {};
    return none;
}

TEST_CASE("states and parts inherit from the look and from the control's own styles, in each theme") {
    view_project_t project;
    looks_write(project);
    project.write("config/theme/plain/looks.g", "{}");
    project.write("config/theme/none/label.g", "{}");
    printed([&] {
        project.show({
            with("Primary", ctrl(ZOF_CTRL_BTN, 1, R"("styles": [
                {"style_state": "pressed+checked", "body_t": {"opa": 7}},
                {"style_part": "items", "body_t": {"opa": 8}},
                {"style_state": "checked", "body_t": {"main_color": "$line"}},
                {"body_t": {"border": {"width": 4}}, "txt_t": {"color": "#00f", "font_lib": "own.ttf"}}])")),
            ctrl(ZOF_CTRL_BTN, 2),
        });
    });
    for (const char *theme : {"", "night", "plain", "night"}) {
        const bool dark = str(theme) == "night";
        CAPTURE(str(theme));
        REQUIRE((!*theme || zof_theme_set(theme) == 0));
        const auto &main = style(1, 0, 0), &pressed = style(1, 0, LV_STATE_PRESSED);
        const auto &both = style(1, 0, LV_STATE_PRESSED | LV_STATE_CHECKED), &items = style(1, LV_PART_ITEMS, 0);
        CHECK(main.body_t.main_color == (dark ? 0xF2A33A : 0x1F6FEB));
        CHECK(main.body_t.radius == (dark ? 20 : 6));
        CHECK(pressed.body_t.main_color == (dark ? 0xE8ECF2 : 0x1E2A3A));
        CHECK(pressed.body_t.border.width == 4);
        CHECK(both.body_t.main_color == pressed.body_t.main_color); // of two states that apply, the greater one
        CHECK((both.body_t.opa == 7 && both.body_t.padding.left == 8));
        CHECK((items.body_t.opa == 8 && items.body_t.radius == 0 && items.txt_t.color == 0xFF));
        for (const zof_style_attr_t *inherits : {&main, &pressed, &both, &items}) {
            CHECK(inherits->txt_t.font_lib == str("own.ttf"));
        }
        CHECK(style(2, 0, 0).body_t.main_color == 1); // without a look: the style of its type
    }
    CHECK(style(1, 0, LV_STATE_FOCUSED).body_t.radius == 2); // only the night has one
    CHECK(style(1, 0, LV_STATE_FOCUSED).body_t.border.width == 4);
    lv_obj_add_state(at(1)->obj, LV_STATE_FOCUSED);
    CHECK(lv_obj_get_style_radius(at(1)->obj, 0) == 2);
    CHECK(zof_theme_set("none") == -1);
    const u32 used = zof_mem_count();
    CHECK(zof_theme_set("plain") + zof_theme_set("night") == 0);
    CHECK(zof_mem_count() == used);
    CHECK(zof_ctrl_delete(at(1)) == 0); // whose texts are those of the looks
}

TEST_CASE("faults in files of looks are reported once, with their place, and the rest is used") {
    view_project_t project;
    project.write("config/looks.g", R"({"color": 1, "colors": {"a": "$b", "b": "$a", "c": "$d", "d": 7},
"looks": {"one": {"is": "two",
"presed": {},
"items": {"body_t": {"radius": "x", "main_color": "$c", "opa": 9}, "style_part": 1},
"body_t": {"main_color": "$nine"}}, "round": {"is": "round", "body_t": {"opa": 3}}, "list": [{}]}})");
    const std::string log = project.show({with("one", ctrl(ZOF_CTRL_TABLE, 1)), with("one", ctrl(ZOF_CTRL_TABLE, 2)),
                                          with("round", ctrl(ZOF_CTRL_OBJ, 3)), with("on", ctrl(ZOF_CTRL_OBJ, 4)),
                                          with("one", ctrl(ZOF_CTRL_IMG, 5)), with("list", ctrl(ZOF_CTRL_OBJ, 6))});
    for (const char *line : {
             "looks.g:1:2: color: unknown key color; did you mean colors?",
             "looks.g:1:25: colors.a: a colour is",
             "looks.g:2:19: looks.one.is: there is no look two",
             "looks.g:3:1: looks.one.presed: unknown key presed; it is ignored",
             "looks.g:4:22: looks.one.items.body_t.radius: expected a number, found a text",
             "looks.g:4:68: looks.one.items.style_part: unknown key style_part",
             "looks.g:5:12: looks.one.body_t.main_color: there is no colour nine",
             "looks.g:5:47: looks.round.is: the look inherits from itself",
             "looks.list: expected an object; it is ignored",
             "v1.g:4:2: controls[3].look: there is no look on; the control is drawn without a look",
             "controls[4].look: a control of this type has no styles; the look is ignored",
         }) {
        CAPTURE(str(line));
        CHECK(contains(log, line));
    }
    CHECK(log.find("nine") == log.rfind("nine"));
    const zof_style_attr_t &items = style(2, LV_PART_ITEMS, 0);
    CHECK((items.body_t.main_color == 7 && items.body_t.opa == 9));
    CHECK(style(3, 0, 0).body_t.opa == 3);
    CHECK(at(4)->attr->style_num == 0);
}
