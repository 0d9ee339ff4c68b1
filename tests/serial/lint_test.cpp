// zof lint: a project with one fault for each rule, and cases that must not be reported.
#include <filesystem>

#include "lint.h"
#include "temp_project.h"
#include "view.h"

static const char view_g[] = "config/view/home.g", ignore[] = "zof-check.ignore";

// Entries of `controls`, one per line from line 2 on, and what is found there. P stands for `theme` and "property": {.
static const struct {
    const char *entry, *found;
} rows[] = {
    {R"({"type": "label", P"pub_t": {"name": "clip", "id": 1, "size": {"width": 40, "height": 20}, "alpha": 255}, "dis_mode_e": 4, "txt": "Temperature"}},)",
     "\"Temperature\" is cut off: it needs 94 x 13 px and has 44 x 13 px [text-cut]"},
    {R"({"type": "label", P"pub_t": {"name": "dots", "id": 2, "pt": {"x": 100, "y": 0}, "size": {"width": 60, "height": 20}, "alpha": 255}, "dis_mode_e": 1, "txt": "#long"}},)",
     "\"Tempe...\" ends in dots: it needs 86 x 16 px and has 60 x 16 px (in de) [text-cut]"},
    {R"({"type": "label", P"pub_t": {"name": "word", "id": 3, "pt": {"x": 200, "y": 0}, "size": {"width": 50, "height": 60}, "alpha": 255}, "auto_hight": 1, "txt": "a Thermostat b"}},)",
     "the word \"Thermostat\" needs 84 px, and its line has 50 px [word-cut]"},
    {R"({"type": "label", P"pub_t": {"name": "letter", "id": 4, "pt": {"x": 300, "y": 0}, "size": {"width": 50, "height": 20}, "alpha": 255}, "txt": "#ru"}},)",
     "the built-in font has no Ж of \"aЖ\" (in de) [letter]"},
    {R"({"type": "label", P"pub_t": {"name": "faint", "id": 5, "pt": {"x": 0, "y": 60}, "size": {"width": 90, "height": 20}, "alpha": 255}, "txt": "faint", "styles": [{"txt_t": {"color": "#999", "opa": 255}}]}},)",
     "\"faint\" has a contrast of 2.84:1, less than 4.5:1 [contrast]"},
    {R"({"type": "label", P"pub_t": {"name": "unseen", "id": 22, "pt": {"x": 300, "y": 30}, "size": {"width": 90, "height": 20}, "alpha": 255}, "txt": "unseen", "styles": [{"txt_t": {"color": "#000"}}]}},)",
     "\"unseen\" cannot be seen: its text has no opacity [contrast]"},
    {R"({"type": "label", P"pub_t": {"name": "below", "id": 6, "pt": {"x": 100, "y": 60}, "size": {"width": 90, "height": 20}, "alpha": 255}, "txt": "below"}},)",
     ""},
    {R"({"type": "label", P"pub_t": {"name": "above", "id": 7, "pt": {"x": 108, "y": 64}, "size": {"width": 90, "height": 20}, "alpha": 255}, "txt": "above"}},)",
     "\"above\" overlaps \"below\" of home/below [overlap]"},
    {R"({"type": "button", P"pub_t": {"name": "behind", "id": 8, "pt": {"x": 200, "y": 60}, "size": {"width": 90, "height": 50}, "t_mode": 1, "alpha": 255}}},)",
     "touches of 59 % of its area go to home/front [covered]"},
    {R"({"type": "label", P"pub_t": {"name": "under", "id": 9, "pt": {"x": 222, "y": 112}, "size": {"width": 60, "height": 20}, "alpha": 255}, "txt": "under"}},)",
     "69 % of \"under\" is covered by home/front [covered]"},
    {R"({"type": "button", P"pub_t": {"name": "front", "id": 10, "pt": {"x": 236, "y": 60}, "size": {"width": 60, "height": 80}, "t_mode": 1, "alpha": 255}, "styles": [{"body_t": {"main_color": "#000", "opa": 255}}]}},)",
     ""},
    {R"({"type": "container", P"pub_t": {"name": "edge", "id": 11, "pt": {"x": 380, "y": 60}, "size": {"width": 40, "height": 40}, "alpha": 255}, "styles": [{"body_t": {"main_color": "#000", "opa": 255}}]}},)",
     "of its 40 x 40 px only 20 x 40 px can be seen [cut-off]"},
    {R"({"type": "button", P"pub_t": {"name": "small", "id": 12, "pt": {"x": 0, "y": 120}, "size": {"width": 60, "height": 30}, "t_mode": 1, "alpha": 255}}},)",
     "a finger has 60 x 30 px to hit, less than 44 x 44 px [target]"},
    {R"({"type": "button", P"pub_t": {"name": "round", "id": 13, "pt": {"x": 80, "y": 120}, "size": {"width": 46, "height": 46}, "t_mode": 1, "alpha": 255}, "styles": [{"body_t": {"radius": 23, "opa": 255}}]}},)",
     "a finger has 46 x 46 px to hit, less than 48 x 48 px [target]"},
    {R"({"type": "image", P"pub_t": {"name": "pic", "id": 14, "pt": {"x": 160, "y": 120}, "size": {"width": 20, "height": 20}, "alpha": 255}, "init_img": "on.png"}},)",
     "the picture is drawn at 150 % of its size [scaled-up]"},
    {R"({"type": "bar", P"pub_t": {"name": "bar", "id": 15, "pt": {"x": 0, "y": 180}, "size": {"width": 90, "height": 10}, "alpha": 255}, "maxValue": 100, "styles": [{"txt_t": {"font_lib": "cn.ttf", "font_size": 20, "opa": 255}}]}},)",
     "cn.ttf 20 is loaded, but no control shows texts in it [font-unused]"},
    // What is meant: faint because it cannot be used, a label on a button, what can be scrolled to, what is hidden.
    {R"({"type": "button", P"pub_t": {"name": "labelled", "id": 16, "pt": {"x": 0, "y": 200}, "size": {"width": 90, "height": 50}, "t_mode": 1, "alpha": 255}, "styles": [{"body_t": {"main_color": "#000", "opa": 255}}]}},)",
     ""},
    {R"({"type": "label", P"pub_t": {"name": "on_it", "id": 17, "pt": {"x": 10, "y": 216}, "size": {"width": 70, "height": 20}, "alpha": 255}, "txt": "on it", "styles": [{"txt_t": {"color": "#FFF", "opa": 255}}]}},)",
     ""},
    {R"({"type": "container", P"pub_t": {"name": "scroll", "id": 18, "pt": {"x": 100, "y": 200}, "size": {"width": 90, "height": 60}, "t_mode": 1, "alpha": 255, "scrollbar_t": {"dir_e": 12}}}},)",
     ""},
    {R"({"type": "label", P"pub_t": {"name": "far", "id": 19, "parent_id": 18, "pt": {"x": 0, "y": 50}, "size": {"width": 60, "height": 30}, "alpha": 255}, "txt": "far down"}},)",
     ""},
    {R"({"type": "button", P"pub_t": {"name": "gone", "id": 20, "pt": {"x": 390, "y": 290}, "size": {"width": 20, "height": 20}, "t_mode": 1, "hidden": true, "alpha": 255}}},)",
     ""},
    {R"({"type": "label", P"pub_t": {"name": "runs", "id": 21, "pt": {"x": 200, "y": 200}, "size": {"width": 60, "height": 20}, "alpha": 255}, "dis_mode_e": 3, "txt": "this goes round and round"}})",
     ""},
};

static void project_write(const temp_project_t &project) {
    project.write("config/project/zofprj.g", R"({"width": 400, "height": 300, "start_page": 1, "language": "en",
        "views": [{"pageId": 1, "pageName": "home.g"}]})");
    project.write("config/languages/en.g", R"({"long": "Heat", "ru": "a"})");
    project.write("config/languages/de.g", R"({"long": "Temperatur", "ru": "aЖ"})");
    std::string view = R"({"view": {"v_id": 1, "bg_scale": 255, "bg_color": 16777215}, "controls": [)";
    for (const auto &row : rows) {
        std::string entry = row.entry;
        view += "\n" + entry.replace(entry.find("P\""), 1, R"("theme": "", "property": {)");
    }
    project.write(view_g, view + "\n]}");
    for (const auto &[path, from] : {std::pair("image/on.png", ZOF_PANEL_DIR "/res/image/mark.png"),
                                     {"font/cn.ttf", ZOF_BUILD_DIR "/test-fonts/cn.ttf"}}) {
        std::filesystem::create_directories(std::filesystem::path(project.path(path)).parent_path());
        std::filesystem::copy_file(from, project.path(path));
    }
}

// Returns the findings as lines. No file can enlarge a picture, so a host does.
static std::string findings_of(const temp_project_t &project) {
    setenv("ZOF_PLAYER", ZOF_BUILD_DIR "/tools/zof_player", 1);
    view_options.dir = project.folder;
    view_player_t first;
    cJSON *loaded = view_load(&first, true);
    REQUIRE(loaded);
    lint_t lint = {.plan = view_plan(loaded), .folder = project.folder};
    cJSON_Delete(loaded);
    view_player_stop(&first);
    CHECK(view_walk(lint.plan, [&](view_player_t *player, const view_cell_t &cell) {
        CHECK(view_tell(player,
                        cJSON_Parse(R"({"do": "set", "row": "image.zoom", "control": "home/pic", "value": 384})")));
        cJSON *review = view_ask(player, view_command("review"));
        lint_take(&lint, review, cell);
        cJSON_Delete(review);
    }));
    zof_check_t check = {};
    lint_end(&lint, project.folder.c_str(), &check);
    std::string out;
    for (u32 i = 0; i < check.count; i++) {
        char line[1000];
        zof_check_line(&check.findings[i], ZOF_FALSE, line, sizeof line);
        out += std::string(line) + "\n";
    }
    zof_check_free(&check);
    return out;
}

TEST_CASE("each fault that a reviewer would see is found once, and intended designs are not reported") {
    temp_project_t project;
    project_write(project);
    std::string expected;
    for (size_t i = 0; i < sizeof(rows) / sizeof(rows[0]); i++) {
        if (rows[i].found[0]) {
            expected += std::string(view_g) + ":" + std::to_string(i + 2) + ":1: warning: " + rows[i].found + "\n";
        }
    }
    CHECK(findings_of(project) == expected);
    for (const zof_check_rule_t *rule = zof_lint_rules; rule->name; rule++) {
        CHECK_MESSAGE(contains(expected, std::string("[") + rule->name + "]"), rule->name);
    }

    // The file of exceptions is that of zof check, whose rules it may name, too.
    std::string text =
        "text-unused config/languages/* a program uses them\ntarget config/view/none.g it is for a pen\n";
    for (const zof_check_rule_t *rule = zof_lint_rules; rule->name; rule++) {
        text += std::string(rule->name) + " " + view_g + ":controls* the test wants it\n";
    }
    project.write(ignore, text);
    CHECK(findings_of(project) == std::string(ignore) +
                                      ":2:1: warning: there is no finding target at config/view/none.g; remove the "
                                      "line [ignore]\n");
    view_options.language = "en"; // what another language needs is not reported as unused
    CHECK(findings_of(project) == "");
    view_options.language = "";
    zof_check_t check = {};
    lv_init();
    REQUIRE(zof_check_project(project.folder.c_str(), &check) == 0);
    for (u32 i = 0; i < check.count; i++) {
        CHECK((str(check.findings[i].file) != ignore || check.findings[i].line == 1));
    }
    zof_check_free(&check);
}
