// Languages: looking texts up, changing them, and writing them back.
#include "temp_project.h"
#include "zof_test.h"

#include <filesystem>

static const char *two = R"({"hello": "Hello", "Bye": "Good bye", "number": 5, "": "empty key"})";

static std::string shown(const char *text) {
    return str(zof_lang_get_cur_str(text));
}

// English is in use, and German lies beside it.
struct lang_project : temp_project_t {
    std::string file = path("config/languages/en.g");
    zof_prj_t *prj;
    lang_project() {
        write("config/languages/en.g", two);
        write("config/languages/de.g", R"({"hello": "Hallo"})");
        prj = open();
        REQUIRE(prj);
        REQUIRE(zof_lang_set("en") == 0);
    }
};

TEST_CASE("a reference shows its text, and itself when there is none") {
    temp_project_t project;
    project.write("config/project/zofprj.g", R"({"language": "en"})");
    project.write("config/languages/en.g", two);
    zof_prj_t *prj = project.open();
    REQUIRE(prj);
    CHECK(std::string(prj->lang_name) == "en");
    CHECK(shown("#hello") == "Hello");
    CHECK(shown("#HELLO") == "Hello");
    CHECK(shown("#number") == "#number");
    CHECK(shown("#nothing") == "#nothing");
    CHECK(shown("hello") == "hello");
    CHECK(shown("#") == "empty key");
    CHECK(zof_lang_get_cur_str(nullptr) == nullptr);
}

TEST_CASE("a language that cannot be had leaves none") {
    temp_project_t project;
    CHECK(zof_lang_set("en") == -1); // no project
    REQUIRE(project.open());
    CHECK(zof_lang_save_cur_to_flash() == 0);
    CHECK(zof_lang_set_cur_str("#hello", "x") == 0);
    project.write("config/languages/en.g", two);
    project.write("config/languages/bad.g", "{\"hello\": \"a\",\n  \"bye\" 5}");
    project.write("config/languages/list.g", "[1]");
    project.write("config/languages/empty.g", "");
    struct {
        const char *name, *line;
    } rows[] = {{"none", "config/languages/none.g: cannot be read"},
                {"bad", "config/languages/bad.g:2:9: parse error"},
                {"list", "config/languages/list.g:1:1: parse error"},
                {"empty", "config/languages/empty.g: read error!"},
                {"../../a name that is too long for the buffer of its path", "name too long"}};
    for (const auto &row : rows) {
        CAPTURE(row.name);
        CHECK(zof_lang_set("en") == 0);
        CHECK(shown("#hello") == "Hello");
        CHECK(contains(printed([&] { CHECK(zof_lang_set(row.name) == -1); }), row.line));
        CHECK(shown("#hello") == "#hello");
        CHECK(zof_lang_save_cur_to_flash() == 0);
    }
    CHECK(zof_lang_set(nullptr) == -1);
    CHECK(std::string(zof_prj_get_cur()->lang_name) == "en");
}

TEST_CASE("changed texts are seen at once and written once") {
    lang_project project;
    std::string longest(255, 'x');
    CHECK(zof_lang_set_cur_str("#hello", longest.c_str()) == 0);
    CHECK(zof_lang_set_cur_str("#hello", (longest + "x").c_str()) == 0);
    CHECK(shown("#hello") == longest);
    CHECK(zof_lang_set_cur_str("#nothing", "x") == -1);
    CHECK(zof_lang_set_cur_str("#number", "x") == -1);
    CHECK(zof_lang_set_cur_str("hello", "x") == 0);
    CHECK(zof_lang_set_cur_str("#Bye", zof_lang_get_cur_str("#bye") + 5) == 0); // a piece of the text itself
    CHECK(shown("#bye") == "bye");

    CHECK(file_text(project.file) == two);
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(contains(file_text(project.file), "\"Bye\":\t\"bye\""));
    project.write("config/languages/en.g", two);
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(file_text(project.file) == two);
}

TEST_CASE("unsaved changes never reach another language's file") {
    lang_project project;
    CHECK(zof_lang_set_cur_str("#hello", "changed") == 0);
    CHECK(contains(printed([] { CHECK(zof_lang_set("de") == 0); }), "language en: changes that were not saved"));
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(file_text(project.path("config/languages/de.g")) == R"({"hello": "Hallo"})");
    CHECK(file_text(project.file) == two);
    CHECK(zof_lang_set(project.prj->lang_name) == 0); // the name it already holds
    CHECK(std::string(project.prj->lang_name) == "de");
}

TEST_CASE("a table that cannot be written stays changed and its file whole") {
    lang_project project;
    CHECK(zof_lang_set_cur_str("#hello", "changed") == 0);
    // A folder stands where the new file would be written.
    std::filesystem::create_directories(project.path("config/languages/en.g.new/in the way"));
    CHECK(contains(printed([] { CHECK(zof_lang_save_cur_to_flash() == -1); }), "create json fail!\n"));
    CHECK(file_text(project.file) == two);
    std::filesystem::remove_all(project.path("config/languages/en.g.new"));
    CHECK(zof_lang_save_cur_to_flash() == 1);
    CHECK(contains(file_text(project.file), "changed"));
}
