// Labels, and how texts follow the language.
#include "view_project.h"

static std::string shown(u32 id) {
    return zof_label_get_text(at(id));
}

TEST_CASE("a key is kept and follows the language, a plain text is only shown") {
    const struct {
        const char *txt, *at_first, *typed, *in_german;
    } rows[] = {
        {R"("txt": "#hi")", "Hello", "typed", "Hallo"}, // the file's key comes back
        {R"("txt": "plain")", "plain", "typed", "typed"},
        {"", "", "#hi", "Hallo"}, // empty, not LVGL's default
        {R"("txt": "#only")", "#only", "#nothing", "nur"},
    };
    view_project_t project;
    std::vector<std::string> controls;
    for (const auto &row : rows) {
        controls.push_back(ctrl(ZOF_CTRL_LABEL, (u32)controls.size(), row.txt));
    }
    project.write("config/languages/en.g", R"({"hi": "Hello"})");
    project.write("config/languages/de.g", R"({"hi": "Hallo", "only": "nur"})");
    project.more = R"(, "language": "en")";
    project.view(2, {});
    project.show(controls);
    for (u32 id = 0; id < controls.size(); id++) {
        CAPTURE(id);
        CHECK(shown(id) == rows[id].at_first);
        zof_label_set_txt(at(id), rows[id].typed);
    }
    CHECK(shown(3) == "#nothing");
    zof_lang_set("de");
    for (u32 id = 0; id < controls.size(); id++) {
        CAPTURE(id);
        CHECK(shown(id) == rows[id].in_german);
    }
    zof_view_set_dis_view(2);
    CHECK(zof_lang_set("en") == 0); // views that are not shown follow too
    CHECK(shown(0) == "Hello");
}

TEST_CASE("a label with a fixed height is aligned by its stored text, for a key by the key itself") {
    const std::string keys = R"("auto_hight": 1, "align_e": 34, "txt": )";
    view_project_t project;
    project.write("config/languages/en.g", R"({"long": "one\ntwo"})");
    project.more = R"(, "language": "en")";
    project.show({ctrl(ZOF_CTRL_LABEL, 1, keys + R"("#long")", box(0, 0, 200, 100)),
                  ctrl(ZOF_CTRL_LABEL, 2, keys + R"("a\nb")", box(0, 0, 200, 100))});
    const s32 line = lv_font_get_line_height(lv_obj_get_style_text_font(at(1)->obj, 0));
    const auto offset = [](u32 id) { return ((lv_label_t *)at(id)->obj)->offset.y; };
    CHECK(offset(1) == (100 - line) / 2);
    CHECK(offset(2) == (100 - 2 * line) / 2);
    zof_label_set_dis_mode(at(2), LV_LABEL_LONG_DOT); // LVGL would move the text to the top
    CHECK(offset(2) == (100 - 2 * line) / 2);
    for (const auto &[align, place] : {std::pair{0x12, 0}, {0x32, 2}, {0x02, 2}}) { // no vertical half: it stays
        zof_label_set_align(at(2), (u32)align);
        CHECK(offset(2) == (100 - 2 * line) * place / 2);
    }
}
