// The manual of project folders: its example works, and its messages are the real ones.
#include <sstream>

#include "view_project.h"

static const std::string &page() {
    static const std::string text = file_text(ZOF_SOURCE_DIR "/docs/project.md");
    return text;
}

// The files of the example, with their paths in the project.
static std::vector<std::pair<std::string, std::string>> example() {
    std::vector<std::pair<std::string, std::string>> files;
    const std::string fence = "```json ";
    for (size_t at = page().find(fence); at != std::string::npos; at = page().find(fence, at + 1)) {
        size_t name = at + fence.size();
        size_t body = page().find('\n', name) + 1;
        files.emplace_back(page().substr(name, body - name - 1), page().substr(body, page().find("```", body) - body));
    }
    return files;
}

struct mistake_t {
    const char *what;      // as in the page's table
    const char *file;      // of the example
    const char *from, *to; // the text to replace and its replacement; null: the file is removed
};

static const char project_g[] = "config/project/zofprj.g", view_g[] = "config/view/main.g";

static const mistake_t mistakes[] = {
    {"no project file", project_g, nullptr, nullptr},
    {"a missing comma in the project file", project_g, "320,", "320"},
    {"the start page is not in `views`", project_g, "\"start_page\": 1", "\"start_page\": 7"},
    {"an entry of `views` without `pageName`", project_g, ", \"pageName\": \"main.g\"", ""},
    {"the view file does not exist", view_g, nullptr, nullptr},
    {"a missing comma in the view file", view_g, "\"v_name\": \"main\",", "\"v_name\": \"main\""},
    {"`v_id` is not the view's id", view_g, "\"v_id\": 1", "\"v_id\": 2"},
    {"no `controls`", view_g, "\"controls\"", "\"control\""},
    {"a control type that does not exist", view_g, "\"type\": \"button\"", "\"type\": 31"},
    {"a control without `property`", view_g, "\"property\"", "\"properties\""},
    {"a control without `id`", view_g, "\"id\": 1", "\"no\": 1"},
    {"a control without `theme`", view_g, "\"theme\": \"night\", ", ""},
    {"an `align_e` that has no meaning", view_g, "\"align_e\": \"center middle\"", "\"align_e\": 100"},
    {"a name that does not exist", view_g, "\"t_mode\": \"touch\"", "\"t_mode\": \"press\""},
    {"an unknown key", view_g, "\"align_e\"", "\"align\""},
    {"a value of the wrong kind", view_g, "\"auto_hight\": 1", "\"auto_hight\": true"},
    {"a parent that does not come first", view_g, "\"id\": 1,", "\"id\": 1, \"parent_id\": 2,"},
    {"two views with one id", project_g, "\"views\": [", "\"views\": [{\"pageId\": 1, \"pageName\": \"main.g\"}, "},
    {"one bracket too many", "config/languages/en.g", "}", "}}"},
    {"a file that is not saved as UTF-8", "config/languages/en.g", "One more",
     "\xDC"
     "ber"},
    {"a bar whose ends are equal", view_g, "\"type\": \"button\",", "\"type\": \"bar\","},
    {"a picture that does not exist", view_g, "\"type\": \"button\", \"theme\": \"night\", \"property\": {",
     "\"type\": \"image button\", \"theme\": \"night\", \"property\": {\"img_rel\": \"none.png\","},
    {"a font that does not exist", view_g, "\"txt_t\": {", "\"txt_t\": {\"font_lib\": \"none.ttf\", "},
    {"no file of the language", "config/languages/en.g", nullptr, nullptr},
};

// Starts the example in a folder of its own, as a program does; returns its output.
static std::string example_run(const mistake_t &mistake) {
    temp_project_t project;
    for (auto [name, text] : example()) {
        if (name == mistake.file && mistake.from) {
            const size_t at = text.find(mistake.from);
            REQUIRE(at != std::string::npos);
            text.replace(at, strlen(mistake.from), mistake.to);
        }
        project.write(name, text);
    }
    if (!mistake.from) {
        std::filesystem::remove(project.path(mistake.file));
    }
    REQUIRE(chdir(project.top.c_str()) == 0);
    static const zof_view_fun_t rows[] = {view_row<1>()};
    return printed([&] {
        zof_prj_set_cur(nullptr);
        zof_drv_set_prj_path();
        opened_projects.push_back(zof_prj_get_cur());
        zof_prj_create(rows, 1);
        screen_step(40);
    });
}

TEST_CASE("the example in the manual of projects works as printed") {
    REQUIRE(example().size() == 4);
    screen_open(320, 240);
    ctrl_funs = {{2, on_event}};
    CHECK(example_run({"nothing", "none", nullptr, nullptr}) == "find work path , ././res/\n\n");
    CHECK(std::string(zof_label_get_text(zof_ctrl_get_child(zof_ctrl_get_form_id(1, 2), 0))) == "One more");
    screen_click(160, 160);
    CHECK(contains(taken(events), " 2:7"));
}

TEST_CASE("the messages in the manual of projects are the real ones") {
    screen_open(320, 240);
    for (const mistake_t &mistake : mistakes) {
        std::string row = std::string("| ") + mistake.what + " | ";
        std::istringstream lines(example_run(mistake));
        for (std::string line; std::getline(lines, line);) {
            const bool printed_line = !line.empty() && line != "find work path , ././res/";
            row += printed_line ? (row.back() == '`' ? "<br>`" : "`") + line + "`" : "";
        }
        row += " |\n";
        CAPTURE(row);
        CHECK(contains(page(), row));
    }
}
